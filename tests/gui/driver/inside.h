// What can be learnt only inside the program: its menu, the icons of its message boxes, and how far
// it is with what was posted to it.
#pragma once

#include "shell/core/messages.h"
#include "tests/gui/driver/program.h"
#include "tests/gui/spy/spy.h"

#include <string>
#include <vector>
#include <windows.h>

namespace gui {

struct MenuItem {
    int id;
    bool separator;
    bool grey;
    std::string text;
    bool popup;
    std::vector<MenuItem> items;
};

// A hook in the program's window thread that answers questions.
class Inside {
public:
    explicit Inside(const Program& program);
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
    ~Inside();

    std::vector<MenuItem> Menu(HWND frame);
    char StockIcon(HWND control);    // as spy::StockIcon says
    bool WaitCursorSeen(HWND frame); // as spy::WaitCursorSeen says

    // Returns when the program has read the news of the focus. When they come late they release
    // every key that is down.
    void ReadNews(HWND frame) { Ask(frame, spy::NewsRead); }

    // Posts a mark to a window of the program. Passed: the program has taken it from its queue, and
    // with it all that was posted before.
    void PostMark(HWND hwnd);
    bool Passed(HWND hwnd) const;

private:
    std::string Ask(HWND hwnd, WPARAM question);
    HHOOK Hook(int kind, const char* function) const;

    const Program& program_;
    HMODULE library_ = nullptr;
    HHOOK hook_ = nullptr;
    HHOOK queue_hook_ = nullptr;
    UINT_PTR mark_ = 0; // the last one posted
    HANDLE mapping_ = nullptr;
    const char* answer_ = nullptr;
};

} // namespace gui
