// Why facts and results are what they are: what the window and other programs ask the runtime.
#ifndef MORV_EXPLAIN
#define MORV_EXPLAIN

#include "shell.h"

#include <string>
#include <vector>

namespace morv {

// How the fact or result `name` came to be what it is, down to the inputs: one line a step, each
// indented by what it led to. A line that says so when there is no such name.
std::vector<std::string> Why(const std::string& name);

// Each rule that could conclude the result, or assign the fact, with the first of its conditions
// that was false or unknown when it ran last.
std::vector<std::string> WhyNot(const std::string& name);

// Whether a rule concluded, assigned or took back something in the last tick; when it did not, also
// what each of its conditions was. Empty when there is no such rule.
std::vector<std::string> Fired(const std::string& system, const std::string& rule);

// Whether there is such a rule, or such a system when `rule` is empty.
bool IsThere(const std::string& system, const std::string& rule);

// "1 FULL" or "0 NULL" of a result, "12.5 HIGH" of a fact; empty when there is no such name.
std::string StateText(const std::string& name);

// All facts, then all results. Where systems have facts of the same name, each is "system.name".
std::vector<std::string> Names();

// What the last tick changed, a line each, such as "HIGH_PRESSURE holds (HIGH)".
std::vector<std::string> Changes();

// The time of day that justifications tell, "HH:MM:SS"; without a clock they tell the tick alone.
void SetClock(std::string (*clock)());

// The item `name` was poked with `text`; the next tick sees it.
void NoteInput(const std::string& name, const std::string& text);

} // namespace morv

#endif
