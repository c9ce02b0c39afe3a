// A scenario, run by a project's program.
#pragma once

#include "console/made_program.h"
#include "console/scenario.h"

namespace console {

// An expectation that was not met.
struct Unmet {
    int line;
    std::string text;             // as it is written
    std::string instead;          // what was
    std::vector<std::string> why; // how it came to be so
};

struct Outcome {
    std::vector<Unmet> unmet;
    std::optional<BadLine> bad; // a step that names what the project does not have
};

// Runs a scenario in a process of its own, each step of which may take `limit` seconds; 0: any
// time.
Outcome RunScenario(const Scenario& scenario, const ConsoleProgram& program, unsigned limit);

} // namespace console
