// The compilers that a build calls.
#pragma once

#include "zkcc_workplace.h"

#include <filesystem>
#include <string>

namespace morv {

struct Tools {
    std::filesystem::path compiler, resource_compiler; // the second not for a console
};

// Finds the tools. Returns an empty text, or which one is missing.
std::string FindTools(const Job& job, Tools& tools);

// As messages call them.
const char* CompilerName(const Job& job);
const char* ResourceCompilerName();

// Differs when a program was exchanged, which makes everything anew.
std::string ToolPrint(const std::filesystem::path& tool);

// What a compiler makes code for, such as "x86_64-w64-mingw32"; empty when it does not tell.
std::string MachineOf(Workplace& place, const std::filesystem::path& compiler);

} // namespace morv
