// What the engine can say about facts and results.
#ifndef MORV_EXPLAIN
#define MORV_EXPLAIN

#include <functional>
#include <string>
#include <vector>

namespace morv {

std::vector<std::string> Why(const std::string& name);
std::vector<std::string> WhyNot(const std::string& name);
std::string StateText(const std::string& name);
std::vector<std::string> Names();
void SetTrace(bool on, const std::string& system, const std::string& rule);
std::vector<std::string> Changes();
void SetClock(std::function<std::string()> clock);
void NoteInput(const std::string& name, const std::string& text);

} // namespace morv

#endif
