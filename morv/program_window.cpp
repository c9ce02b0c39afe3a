#include "program_window.h"

#include "commands.h"
#include "dde_server.h"
#include "entry_line.h"
#include "explain.h"
#include "names.h"
#include "output_list.h"
#include "session.h"
#include "shell.h"

#include <algorithm>
#include <deque>

namespace {

constexpr char kClass[] = "MorvProgram";
constexpr UINT kLinesWait = WM_APP + 2;
constexpr UINT_PTR kClock = 1, kSteps = 2, kFlush = 3;
constexpr DWORD kStepTime = 50; // ms, then the window sees to the user again

struct ProgramWindow {
    WindowUse use;
    HWND window = nullptr, list = nullptr, entry = nullptr;
    bool held = false;
    long steps = 0;                  // ticks that a command asked for
    std::deque<std::string> waiting; // lines to be shown
};

ProgramWindow& Own() {
    static ProgramWindow own;
    return own;
}

// Does nothing while a tick runs: that one's box may let timers go on.
void OneTick() {
    ProgramWindow& own = Own();
    if (morv::InTick())
        return;
    morv::RunTick();
    AdviseOfChanges();
    if (own.use.ticks > 0 && --own.use.ticks == 0)
        DestroyWindow(own.window);
}

void Hold(bool hold) {
    ProgramWindow& own = Own();
    own.held = hold;
    own.steps = 0;
    KillTimer(own.window, kSteps);
    SetWindowTextA(own.window, (own.use.title + (hold ? " - held" : "")).c_str());
}

// As many of the ticks asked for as fit into a moment.
void RunSteps() {
    ProgramWindow& own = Own();
    const ULONGLONG end = GetTickCount64() + kStepTime;
    while (own.window != nullptr && own.steps > 0 && !morv::InTick() && GetTickCount64() < end) {
        --own.steps;
        OneTick();
    }
    if (own.steps == 0)
        KillTimer(own.window, kSteps);
}

void AskForSteps(long count) {
    Own().steps += count;
    SetTimer(Own().window, kSteps, USER_TIMER_MINIMUM, nullptr);
    RunSteps();
}

void Do(const std::string& line) {
    if (line.empty())
        return;
    morv::Output(": " + line);
    morv::DoCommand(line, {AskForSteps, Hold});
}

// A double-click asks why for the name in the line.
void AskWhy() {
    const std::string name = morv::NameIn(SelectedLine(Own().list));
    if (!name.empty())
        Do("why " + name);
}

void ShowWaitingLines() {
    ProgramWindow& own = Own();
    const ListUpdate update(own.list);
    for (; !own.waiting.empty(); own.waiting.pop_front())
        AddOutputLine(own.list, own.waiting.front());
}

void Arrange(int width, int height) {
    const ProgramWindow& own = Own();
    const int entry = EntryHeight(own.entry);
    const ListUpdate update(own.list);
    MoveWindow(own.list, 0, 0, width, std::max(height - entry, 0), FALSE);
    MoveWindow(own.entry, 0, std::max(height - entry, 0), width, entry, TRUE);
}

bool Create(HWND window) {
    ProgramWindow& own = Own();
    own.window = window;
    own.list = MakeOutputList(window);
    own.entry = MakeEntryLine(window);
    return own.list != nullptr && own.entry != nullptr;
}

void Timer(UINT_PTR timer) {
    if (timer == kClock && !Own().held)
        OneTick();
    else if (timer == kSteps)
        RunSteps();
    else if (timer == kFlush)
        Own().use.flush();
}

void Close() {
    ProgramWindow& own = Own();
    for (const UINT_PTR timer : {kClock, kSteps, kFlush})
        KillTimer(own.window, timer);
    own.window = own.list = own.entry = nullptr;
    PostQuitMessage(0);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return Create(window) ? 0 : -1;
    case WM_SIZE:
        Arrange(LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_SETFOCUS:
        SetFocus(Own().entry);
        return 0;
    case WM_TIMER:
        Timer(wParam);
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == LBN_DBLCLK && reinterpret_cast<HWND>(lParam) == Own().list)
            AskWhy();
        return 0;
    case kLineTyped:
        Do(TakeLine(Own().entry));
        return 0;
    case kLinesWait:
        ShowWaitingLines();
        return 0;
    case WM_ENDSESSION:
        Own().use.flush();
        return 0;
    case WM_DESTROY:
        Close();
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

bool OpenProgramWindow(HINSTANCE instance, const WindowUse& use) {
    Own() = {};
    Own().use = use;
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = WindowProcedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursor(nullptr, IDC_ARROW);
    window_class.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
    window_class.lpszClassName = kClass;
    RegisterClassA(&window_class);
    const HWND window =
        CreateWindowA(kClass, use.title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                      CW_USEDEFAULT, CW_USEDEFAULT, 700, 480, nullptr, nullptr, instance, nullptr);
    if (window == nullptr)
        return false;
    ShowWindow(window, use.show);
    SetTimer(window, kClock, use.period, nullptr);
    SetTimer(window, kFlush, 1000, nullptr);
    OneTick();
    return true;
}

void ShowLine(const std::string& line) {
    ProgramWindow& own = Own();
    if (own.list == nullptr)
        return;
    if (own.waiting.empty())
        PostMessageA(own.window, kLinesWait, 0, 0);
    own.waiting.push_back(line);
    if (own.waiting.size() > static_cast<std::size_t>(kMostRows))
        own.waiting.pop_front();
}
