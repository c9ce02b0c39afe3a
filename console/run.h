// The command "run": a project's program over the input.
#pragma once

#include "console/made_program.h"

namespace console {

struct RunOptions {
    std::string project;          // the project file
    std::string morv;             // the runtime's folder; empty: the one around this program
    bool trace = false;           // each rule tells what it does
    unsigned limit = kUsualLimit; // seconds that a command may take; 0: any time
};

// Makes the program and runs it with this program's own input and output. Returns what it does, and
// kFound when a command could not be done.
int RunProject(const RunOptions& options, const Report& report);

} // namespace console
