#include "tests/gui/monkey/screen.h"

#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"

#include <algorithm>

namespace monkey {

namespace {

// Long enough for a machine that is busy with other tests.
constexpr DWORD kAnswerTime = 30000;

// Help without its file is refused by the system's help program, in a box of its own, for which
// Zentrik waits.
void CloseBoxesOfOthers(DWORD process) {
    EnumWindows(
        [](HWND hwnd, LPARAM own) -> BOOL {
            DWORD process = 0;
            GetWindowThreadProcessId(hwnd, &process);
            if (process != static_cast<DWORD>(own) && process != GetCurrentProcessId() &&
                IsWindowVisible(hwnd) && gui::ClassOf(hwnd) == "#32770")
                PostMessageA(hwnd, WM_COMMAND, IDCANCEL, 0);
            return TRUE;
        },
        static_cast<LPARAM>(process));
}

// A question that a file dialog asks is answered before anything else is done: a dialog that ends
// while its question still stands below another dialog brings Wine's down.
bool IsQuestionOfFileDialog(HWND hwnd) {
    HWND owner = GetWindow(hwnd, GW_OWNER);
    return owner && IsWindowEnabled(hwnd) && GetDlgItem(owner, gui::kFileName);
}

// Without the system commands of a maximized document, which its menu box adds to the menu.
void AddCommands(const std::vector<gui::MenuItem>& items, std::vector<int>& commands) {
    for (const gui::MenuItem& item : items) {
        if (item.grey || item.separator || (!item.popup && item.id >= SC_SIZE))
            continue;
        if (item.popup)
            AddCommands(item.items, commands);
        else
            commands.push_back(item.id);
    }
}

} // namespace

Screen::Screen(gui::Program& program)
    : program_(program), frame_(gui::AwaitFrame(program)), inside_(program) {
    for (HWND child : gui::ChildrenOf(frame_)) {
        if (gui::ClassOf(child) == "MDIClient" || gui::ClassOf(child) == "MDICLIENT")
            client_ = child;
        else if (gui::ClassOf(child) == "Buttons")
            toolbar_ = child;
    }
}

std::vector<HWND> Screen::Dialogs() const {
    std::vector<HWND> dialogs = gui::Dialogs(program_);
    std::erase_if(dialogs, [](HWND dialog) { return !IsWindowEnabled(dialog); });
    const auto question = std::ranges::find_if(dialogs, IsQuestionOfFileDialog);
    return question == dialogs.end() ? dialogs : std::vector<HWND>{*question};
}

bool Screen::FrameTakesInput() const {
    if (std::ranges::any_of(gui::Dialogs(program_), IsQuestionOfFileDialog))
        return false;
    return IsWindow(frame_) && IsWindowVisible(frame_) && IsWindowEnabled(frame_);
}

std::vector<HWND> Screen::Controls(HWND window) const {
    std::vector<HWND> controls;
    EnumChildWindows(
        window,
        [](HWND control, LPARAM found) -> BOOL {
            if (IsWindowVisible(control) && IsWindowEnabled(control))
                reinterpret_cast<std::vector<HWND>*>(found)->push_back(control);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::vector<int> Screen::Commands(HWND window) {
    std::vector<int> commands;
    AddCommands(inside_.Menu(window), commands);
    return commands;
}

HWND Screen::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(program_.ThreadId(), &info) ? info.hwndFocus : nullptr;
}

HWND Screen::AnyWindow() const {
    if (IsWindow(frame_))
        return frame_;
    const std::vector<HWND> windows = program_.Windows();
    return windows.empty() ? nullptr : windows.front();
}

void Screen::Settle() {
    // What was posted may post in its turn, as a click does that reaches a button.
    Pass();
    Pass();
    const HWND window = AnyWindow();
    DWORD_PTR answer = 0;
    if (window && program_.Alive() &&
        !SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kAnswerTime, &answer) &&
        IsWindow(window) && program_.Alive())
        gui::Fail("the program does not answer");
}

void Screen::Pass() {
    HWND asked = nullptr;
    program_.WaitFor(
        "the program taking what was posted to it",
        [&] {
            CloseBoxesOfOthers(program_.ProcessId());
            if (!asked || !IsWindow(asked)) {
                asked = AnyWindow();
                if (asked)
                    inside_.PostMark(asked);
            }
            return !program_.Alive() || (asked && inside_.Passed(asked));
        },
        kAnswerTime);
}

} // namespace monkey
