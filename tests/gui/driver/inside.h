// What can be learnt only inside the program: its menu and the icons of its message boxes.
#pragma once

#include "shell/core/messages.h"
#include "tests/gui/driver/program.h"

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

private:
    std::string Ask(HWND hwnd, WPARAM question);

    const Program& program_;
    HMODULE library_ = nullptr;
    HHOOK hook_ = nullptr;
    HANDLE mapping_ = nullptr;
    const char* answer_ = nullptr;
};

} // namespace gui
