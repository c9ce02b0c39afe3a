#include "tests/gui/driver/program.h"

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/window_query.h"

#include <algorithm>

namespace gui {

namespace {

// Under load Wine now and then makes no process and calls that an internal error; the next try
// works.
bool Started(const std::string& exe, const std::string& folder, PROCESS_INFORMATION& process) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    for (int tries = 0; tries < 5; ++tries) {
        std::string line = "\"" + exe + "\"";
        if (CreateProcessA(exe.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                           folder.empty() ? nullptr : folder.c_str(), &start, &process))
            return true;
        if (GetLastError() != ERROR_INTERNAL_ERROR)
            break;
    }
    return false;
}

} // namespace

Program::Program(const std::string& exe, const std::string& folder, bool keep_running)
    : keep_running_(keep_running) {
    if (!Started(exe, folder, process_))
        Fail("cannot start " + exe + ", error " + std::to_string(GetLastError()));
}

Program::~Program() {
    if (!keep_running_ && Alive()) {
        TerminateProcess(process_.hProcess, 99);
        WaitForSingleObject(process_.hProcess, kPatience);
    }
    for (const auto& call : calls_)
        call->thread.join();
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

bool Program::Alive() const {
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD Program::ExitCode(DWORD patience) const {
    if (WaitForSingleObject(process_.hProcess, patience) != WAIT_OBJECT_0)
        Fail("the program did not end");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

void Program::WaitFor(const std::string& what, const std::function<bool()>& condition,
                      DWORD patience) const {
    const ULONGLONG end = GetTickCount64() + patience;
    // Polls, for windows of another process give no handle to wait on: less and less often, for
    // each look takes time from the program. A program that ends cuts the wait short.
    for (DWORD pause = 2; !condition(); pause = std::min<DWORD>(pause + pause / 2, 30)) {
        if (WaitForSingleObject(process_.hProcess, pause) == WAIT_OBJECT_0 && !condition())
            Fail("the program ended; awaited: " + what);
        if (GetTickCount64() > end)
            Fail("awaited in vain: " + what + "; on the screen: " + Describe(Windows()));
    }
}

std::vector<HWND> Program::Windows() const {
    struct Search {
        DWORD process;
        std::vector<HWND> found;
    } search{ProcessId(), {}};
    EnumWindows(
        [](HWND hwnd, LPARAM parameter) -> BOOL {
            auto* search = reinterpret_cast<Search*>(parameter);
            DWORD process = 0;
            GetWindowThreadProcessId(hwnd, &process);
            if (process == search->process && IsWindowVisible(hwnd))
                search->found.push_back(hwnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

LRESULT Program::Send(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) const {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(hwnd, message, wParam, lParam, SMTO_NORMAL, kPatience, &answer))
        Fail("no answer to message " + std::to_string(message) + " to " + Describe({hwnd}));
    return static_cast<LRESULT>(answer);
}

void Program::Start(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    calls_.push_back(std::make_unique<Call>());
    Call* call = calls_.back().get();
    call->thread = std::thread([=] {
        SendMessageA(hwnd, message, wParam, lParam);
        call->done = true;
    });
}

bool Program::Busy() const {
    return !calls_.empty() && !calls_.back()->done;
}

void Program::Finish() {
    if (calls_.empty())
        Fail("nothing was started");
    const std::vector<HWND> before = Dialogs(*this);
    WaitFor("the end of the command", [&] {
        if (!Busy())
            return true;
        for (HWND dialog : Dialogs(*this))
            if (std::find(before.begin(), before.end(), dialog) == before.end())
                Fail("the command showed " + Describe({dialog}));
        return false;
    });
    calls_.back()->thread.join();
    calls_.pop_back();
}

} // namespace gui
