#include "shell/services/process.h"

#include <utility>
#include <windows.h>

namespace {

void CreateDetached(const std::string& program, const std::string& line) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    std::string arguments = line; // the system may write into it
    if (!CreateProcessA(program.empty() ? nullptr : program.c_str(), arguments.data(), nullptr,
                        nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr, nullptr, &start, &process))
        return;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

ProcessStarter g_starter = CreateDetached;

} // namespace

void StartProcess(const std::string& program, const std::string& line) {
    g_starter(program, line);
}

ProcessStarter SetProcessStarter(ProcessStarter starter) {
    return std::exchange(g_starter, std::move(starter));
}
