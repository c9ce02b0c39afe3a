// A running program: its process, its windows, messages to them, and the one way to wait.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

namespace gui {

constexpr DWORD kPatience = 15000; // ms that anything may take

class Program {
public:
    // Starts `exe` with `folder` as its current folder; without one in that of this process. With
    // keep_running the process is left alone at the end instead of being ended.
    Program(const std::string& exe, const std::string& folder, bool keep_running = false);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    bool Alive() const;
    DWORD ProcessId() const { return process_.dwProcessId; }
    DWORD ThreadId() const { return process_.dwThreadId; }

    // Waits for the end and returns the exit code.
    DWORD ExitCode(DWORD patience = kPatience) const;

    // The only wait of the driver: until the condition holds. Fails, naming what was awaited, when
    // the program ends or the time is over before.
    void WaitFor(const std::string& what, const std::function<bool()>& condition,
                 DWORD patience = kPatience) const;

    // The visible top-level windows, topmost first.
    std::vector<HWND> Windows() const;

    // Sends a message and returns the answer; fails when none comes in time.
    LRESULT Send(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // Starts sending a message whose handling will show dialogs; nested starts end in the
    // reverse order.
    void Start(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Waits for the end of the message started last, which must show nothing more.
    void Finish();
    bool Busy() const; // the message started last is still being handled

private:
    struct Call {
        std::thread thread;
        std::atomic<bool> done{false};
    };

    PROCESS_INFORMATION process_{};
    bool keep_running_;
    std::vector<std::unique_ptr<Call>> calls_;
};

} // namespace gui
