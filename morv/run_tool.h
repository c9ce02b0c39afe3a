// Starting the compilers. Texts are UTF-8 on Windows, as paths take them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace morv {

constexpr int kNoTool = -1;

// The words that the program was started with, but for its own name.
std::vector<std::string> CommandWords(int count, char** words);

// A number that no other running program has.
int ProcessNumber();

// Programs in this folder go before all others, also for the programs that are started.
void LookFirstIn(const std::filesystem::path& folder);

// Runs a program, named plainly or by its path, and adds what it says to the file `log`. Returns
// its exit code; kNoTool when there is no such program.
int RunTool(const std::string& tool, const std::vector<std::string>& arguments,
            const std::filesystem::path& log);

} // namespace morv
