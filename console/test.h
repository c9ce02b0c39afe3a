// The command "test": a project's scenarios.
#pragma once

#include "console/made_program.h"

#include <string>
#include <vector>

namespace console {

struct TestOptions {
    std::string project;                // the project file
    std::vector<std::string> scenarios; // the files; empty: all beside the project
    std::string morv;                   // the runtime's folder; empty: the one around this program
    std::string junit;                  // the file that takes JUnit's XML; empty: none
    unsigned limit = kUsualLimit;       // seconds that a step may take; 0: any time
};

// Makes the project's program, runs every scenario and tells the outcome as TAP. Returns kFound
// when one failed.
int Test(const TestOptions& options, const Report& report);

} // namespace console
