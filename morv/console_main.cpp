// The main program of an expert system without a window, for tests and for systems without Windows:
// it reads commands from its input and writes what there is to tell. It has no clock; the command
// tick runs one. A line that begins with '#' is told as it is, so that what follows can be found in
// the output. It ends with its input, with 1 when a command could not be done. With the word /trace
// each rule tells what it does. With /limit SECONDS it ends itself with 124 when a command takes
// longer, or tells without end: rules may hold loops.
#include "commands.h"
#include "session.h"
#include "shell.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <unistd.h>
#endif

namespace {

constexpr int kEnded = 124;
constexpr long kMostLines = 1000000; // that a command tells, when there is a limit

unsigned g_limit = 0; // seconds; 0: none
long g_lines = 0;     // that the command has told
std::string g_too_long;

// Ends the program from wherever it is: what the command has told and not written yet is left.
#ifdef _WIN32
void End(const std::string& why) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), why.data(), static_cast<DWORD>(why.size()), &written,
              nullptr);
    TerminateProcess(GetCurrentProcess(), kEnded);
}

void CALLBACK EndTooLong(void*, BOOLEAN) {
    End(g_too_long);
}

// From now on the program has so many seconds; 0: as many as it likes.
void Watch(unsigned seconds) {
    static HANDLE timer = nullptr;
    if (timer != nullptr)
        DeleteTimerQueueTimer(nullptr, timer, INVALID_HANDLE_VALUE);
    timer = nullptr;
    if (seconds > 0)
        CreateTimerQueueTimer(&timer, nullptr, EndTooLong, nullptr, seconds * 1000, 0,
                              WT_EXECUTEONLYONCE);
}
#else
void End(const std::string& why) {
    [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, why.data(), why.size());
    _exit(kEnded);
}

void EndTooLong(int) {
    End(g_too_long);
}

// From now on the program has so many seconds; 0: as many as it likes.
void Watch(unsigned seconds) {
    alarm(seconds);
}
#endif

void Limit(const char* seconds) {
    g_limit = static_cast<unsigned>(std::strtoul(seconds, nullptr, 10));
    g_too_long = "ended: a command took longer than " + std::to_string(g_limit) + " s\n";
#ifndef _WIN32
    std::signal(SIGALRM, EndTooLong);
#endif
}

bool Do(const std::string& line) {
    if (!line.empty() && line[0] == '#') {
        morv::Output(line);
        return true;
    }
    const auto tick = [](long count) {
        for (; count > 0; --count)
            morv::RunTick();
    };
    const auto hold = [](bool) {
        morv::Output("there is no clock: ticks run by the command tick");
    };
    return morv::DoCommand(line, {tick, hold});
}

} // namespace

void morv::Output(const std::string& line) {
    std::fputs((line + '\n').c_str(), stdout);
    if (g_limit > 0 && ++g_lines > kMostLines) {
        std::fflush(stdout);
        End("ended: a command told more than " + std::to_string(kMostLines) + " lines\n");
    }
}

int main(int count, char** words) {
    for (int i = 1; i < count; ++i) {
        if (std::string(words[i]) == "/trace")
            morv::SetTrace(true);
        else if (std::string(words[i]) == "/limit" && i + 1 < count)
            Limit(words[++i]);
    }
    bool done = true;
    for (std::string line; std::getline(std::cin, line);) {
        g_lines = 0;
        Watch(g_limit);
        done = Do(line) && done;
        std::fflush(stdout);
        Watch(0);
    }
    return done ? 0 : 1;
}
