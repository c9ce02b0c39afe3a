// One run of the compiler utility.
#pragma once

#include "command_line.h"
#include "zkcc_screen.h"

#include <string>

namespace morv {

// The log of a run, in the project folder; it appears whole at the end of the run.
constexpr char kLog[] = "zkcc.log";

// Makes the program of a project, telling the screen how it goes. Whatever fails, the program that
// was there stays, and the log says why. Returns whether the program is there.
bool BuildProgram(const Job& job, Screen& screen);

// Ends a run that cannot even begin.
void TellFailure(const std::filesystem::path& project, const std::string& wrong, Screen& screen);

} // namespace morv
