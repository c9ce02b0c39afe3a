#include "morv/explain.h"
#include "morv/shell.h"
#include "panel_test.h"

using panel_test::TheEngine;

panel_test::Engine& panel_test::TheEngine() {
    static Engine engine;
    return engine;
}

namespace morv {

void Output(const std::string& line) {
    TheEngine().output.push_back(line);
    if (TheEngine().shown)
        TheEngine().shown(line);
}

void Tick() {
    ++TheEngine().ticks;
    const std::function<void()> rules = TheEngine().rules; // it may put others in their place
    rules();
}

std::vector<std::string> Why(const std::string& name) {
    return {"why " + name};
}

std::vector<std::string> WhyNot(const std::string& name) {
    return {"why not " + name};
}

// The one rule there is.
std::vector<std::string> Fired(const std::string& system, const std::string& rule) {
    return system == "steam" && rule == "3" ? std::vector<std::string>{"steam 3 fired"}
                                            : std::vector<std::string>{};
}

bool IsThere(const std::string& system, const std::string& rule) {
    return system == "steam" && (rule.empty() || rule == "3");
}

std::string StateText(const std::string& name) {
    const auto found = TheEngine().states.find(name);
    return found == TheEngine().states.end() ? "" : found->second;
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& [name, state] : TheEngine().states)
        names.push_back(name);
    return names;
}

void SetTrace(bool on, const std::string& system, const std::string& rule) {
    TheEngine().trace = std::string(on ? "on" : "off") + "," + system + "," + rule;
}

void NoteInput(const std::string& name, const std::string& text) {
    TheEngine().inputs.push_back(name + " = " + text);
}

} // namespace morv
