// Starting the compilers. Texts are UTF-8 on Windows, as paths take them.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace morv {

// The words that the program was started with, but for its own name.
std::vector<std::string> CommandWords(int count, char** words);

// A number that no other running program has.
int ProcessNumber();

// Where this program is; empty when that cannot be told.
std::filesystem::path OwnProgram();

// Programs in this folder go before all others, also for the programs that are started.
void LookFirstIn(const std::filesystem::path& folder);

// Where the program `name` is; empty when there is none.
std::filesystem::path FindTool(const std::string& name);

// A path as the compilers write it.
std::filesystem::path PathFromTool(const std::string& text);

struct Command {
    std::filesystem::path tool;
    std::vector<std::string> arguments;
    std::filesystem::path folder; // where it runs
    std::filesystem::path says;   // the file that takes what it says; none: it has this program's
                                  // own input and output
    int after = -1;               // the command that has to go well before this one begins
    std::filesystem::path reads = {}; // the file that it reads; none: it finds nothing to read
};

constexpr int kNotRun = -1;  // what it waited for failed, or it was not to begin any more
constexpr int kStopped = -2; // it could not start, or something ended it

// Runs commands, as many as `at_once` at the same time. `ended` learns of each one that ended, with
// its exit code or kStopped, and says whether more may begin. Returns the codes of all.
std::vector<int> RunTools(const std::vector<Command>& commands, std::size_t at_once,
                          const std::function<bool(std::size_t, int)>& ended);

// The parts of RunTools that each system has its own way for. A process of 0 could not start.
using Process = std::intptr_t;
Process StartTool(const Command& command);
// Waits for one of some processes to end; returns which, and its exit code or kStopped.
std::size_t WaitForOne(const std::vector<Process>& running, int& code);

// Starts the window that shows how a build goes, and that outlives this program where the build
// fails. Returns what takes its lines (zkcc_screen.h), or nullptr when there can be no window.
std::FILE* StartWindow();

// The only right to work with what belongs to a file. It ends with this object, or with the
// program.
class Lock {
public:
    Lock() = default;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock();

    // Waits until no other run has it; `waits` is called when there is a wait. Returns whether the
    // file can be used at all.
    bool Take(const std::filesystem::path& file, const std::function<void()>& waits);

private:
    std::intptr_t file_ = -1;
};

} // namespace morv
