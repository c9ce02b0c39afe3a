#include "zkcc_window.h"

#include "zkcc_window_ids.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>
#include <windows.h>

namespace morv {

namespace {

constexpr UINT kLine = WM_APP;    // a line has come; lParam is a string of the receiver's
constexpr UINT kEnd = WM_APP + 1; // no more lines will
constexpr UINT_PTR kDelay = 1;
constexpr UINT kDelayMs = 400; // a build that takes less shows no window

// The lines are UTF-8, or of the system's code page where they repeat the rules.
std::wstring Wide(const std::string& text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    int length =
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
    if (length == 0)
        length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

// Hands the lines of the standard input to a window's thread.
void ReadLines(DWORD thread) {
    const HANDLE in = GetStdHandle(STD_INPUT_HANDLE);
    std::string line;
    char block[4096];
    for (DWORD count = 0; ::ReadFile(in, block, sizeof block, &count, nullptr) && count > 0;)
        for (DWORD i = 0; i < count; ++i) {
            if (block[i] != '\n') {
                line += block[i];
                continue;
            }
            PostThreadMessageW(thread, kLine, 0, reinterpret_cast<LPARAM>(new std::string(line)));
            line.clear();
        }
    PostThreadMessageW(thread, kEnd, 0, 0);
}

constexpr wchar_t kNotMade[] = L" is not made";

// Closes the window of an earlier run that tells that the same program is not made.
BOOL CALLBACK CloseEarlier(HWND window, LPARAM not_made) {
    wchar_t text[300] = L"";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetWindowTextW(window, text, 300);
    const HWND told = GetDlgItem(window, ID_WORK);
    if (process == GetCurrentProcessId() || std::wstring(text) != L"Compile" || told == nullptr ||
        GetDlgItem(window, ID_MESSAGES) == nullptr)
        return TRUE;
    DWORD_PTR length = 0;
    SendMessageTimeoutW(told, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        1000, &length);
    if (*reinterpret_cast<const std::wstring*>(not_made) == text)
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

class Window {
public:
    int Run() {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue that lines go to
        std::thread(ReadLines, GetCurrentThreadId()).detach();
        Open(L"Work_Box");
        SetTimer(window_, kDelay, kDelayMs, nullptr);
        while (!closed_ && GetMessageW(&message, nullptr, 0, 0) > 0)
            if (message.hwnd == nullptr)
                Take(message);
            else if (!IsDialogMessageW(window_, &message))
                DispatchMessageW(&message);
        return 0;
    }

private:
    void Open(const wchar_t* name) {
        if (window_ != nullptr)
            DestroyWindow(window_);
        window_ = CreateDialogParamW(GetModuleHandleW(nullptr), name, nullptr, Procedure,
                                     reinterpret_cast<LPARAM>(this));
        closed_ = window_ == nullptr;
    }

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG)
            SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, DWLP_USER));
        if (message == WM_TIMER) {
            KillTimer(window, kDelay);
            ShowWindow(window, SW_SHOWNOACTIVATE);
            return TRUE;
        }
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) {
            self->Hide();
            return TRUE;
        }
        return message == WM_INITDIALOG ? TRUE : FALSE;
    }

    // A failure is shown also to who hid the work.
    void Hide() {
        KillTimer(window_, kDelay);
        ShowWindow(window_, SW_HIDE);
        closed_ = ended_;
    }

    void Take(const MSG& message) {
        if (message.message == kLine) {
            auto* line = reinterpret_cast<std::string*>(message.lParam);
            TakeLine(*line);
            delete line;
        } else if (message.message == kEnd && !ended_) {
            Failed(L"The compiler utility was ended before it was done");
        }
    }

    void TakeLine(const std::string& line) {
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        const std::wstring rest =
            blank == std::string::npos ? std::wstring() : Wide(line.substr(blank + 1));
        if (word == "work")
            Work(rest, {});
        else if (word == "step")
            Work(work_, rest);
        else if (word == "message")
            messages_.push_back(rest);
        else if (word == "failed")
            Failed(rest);
        else if (word == "made")
            closed_ = ended_ = true;
    }

    // `step` is "3 of 12", or empty.
    void Work(const std::wstring& work, const std::wstring& step) {
        if (std::exchange(work_, work) != work)
            CloseFailureOf(work.substr(work.find(L' ') + 1) + kNotMade);
        SetDlgItemTextW(window_, ID_WORK, (step.empty() ? work : work + L": " + step).c_str());
    }

    static void CloseFailureOf(const std::wstring& not_made) {
        EnumWindows(CloseEarlier, reinterpret_cast<LPARAM>(&not_made));
    }

    void Failed(const std::wstring& what) {
        ended_ = true;
        CloseFailureOf(what);
        Open(L"Failed_Box");
        SetDlgItemTextW(window_, ID_WORK, what.c_str());
        const std::wstring first = messages_.empty() ? std::wstring() : messages_.front();
        SetDlgItemTextW(window_, ID_MESSAGE, first.c_str());
        FillList(GetDlgItem(window_, ID_MESSAGES));
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
    }

    void FillList(HWND list) const {
        const HDC screen = GetDC(list);
        const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(list, WM_GETFONT, 0, 0));
        const HGDIOBJ before = SelectObject(screen, font);
        LONG widest = 0;
        SendMessageW(list, WM_SETREDRAW, FALSE, 0);
        for (const std::wstring& message : messages_) {
            SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(message.c_str()));
            SIZE size{};
            GetTextExtentPoint32W(screen, message.c_str(), static_cast<int>(message.size()), &size);
            widest = std::max(widest, size.cx);
        }
        SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest) + 8, 0);
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
        SelectObject(screen, before);
        ReleaseDC(list, screen);
    }

    HWND window_ = nullptr;
    bool ended_ = false;  // the build
    bool closed_ = false; // the window
    std::wstring work_;
    std::vector<std::wstring> messages_;
};

} // namespace

int ShowProgress() {
    return Window().Run();
}

} // namespace morv
