// One run of the compiler utility.
#pragma once

#include "command_line.h"
#include "zkcc_screen.h"

#include <string>
#include <vector>

namespace morv {

// The log of a run, in the project folder; it appears whole at the end of the run.
constexpr char kLog[] = "zkcc.log";

// What a failed run had to say, as it stands in the log too.
struct Faults {
    std::vector<std::string> project; // what is wrong with the project's rules, names and sources
    std::vector<std::string> others;  // what else went wrong
};

// Makes the program of a project, telling the screen how it goes. Whatever fails, the program that
// was there stays, and the log says why. Returns whether the program is there.
bool BuildProgram(const Job& job, Screen& screen, Faults* faults = nullptr);

// Ends a run that cannot even begin.
void TellFailure(const std::filesystem::path& project, const std::string& wrong, Screen& screen);

} // namespace morv
