// The programs that are made of projects: by the compiler utility's own code, and for this system's
// console from the starter runtime.
#pragma once

#include "console/form/report.h"

#include "morv/command_line.h"

#include <filesystem>
#include <string>

namespace console {

// A project path as this system has it.
std::filesystem::path HostFile(const std::string& path);

// Makes the program of a job. What is wrong with the project is listed in the output, and
// kFound returned; when the compiler cannot be used or the like, kStopped.
int MakeProgram(const morv::Job& job, const Report& report);

// How many seconds a command of such a program may take, unless something else is said: rules may
// hold loops.
constexpr unsigned kUsualLimit = 60;

// What it ends with when a command took longer, or told without end.
constexpr int kTookTooLong = 124;

struct ConsoleProgram {
    std::filesystem::path folder; // its own folder, which other projects do not use
    std::filesystem::path file;   // the program
};

// Makes the program of a project for the console of this system, in a folder of the user's cache;
// nothing is written beside the project. `morv` is the runtime's folder; when empty it is looked
// for around this program. The paths are project paths. Returns kNothingFound when it was made.
int MakeConsoleProgram(const std::string& project, const std::string& morv, const Report& report,
                       ConsoleProgram& program);

} // namespace console
