// Looking at windows of another process.
#pragma once

#include "tests/gui/driver/program.h"

#include <string>
#include <vector>
#include <windows.h>

namespace gui {

std::string ClassOf(HWND hwnd);

// Of a window or a control, any length; empty when the program does not answer.
std::string TextOf(HWND hwnd, DWORD patience = kPatience);

// Direct children, topmost first.
std::vector<HWND> ChildrenOf(HWND hwnd);
HWND TopChildOf(HWND hwnd);

// The rows of a list box, and of the list of a combo box.
std::vector<std::string> ListRows(HWND list);
std::vector<std::string> ComboRows(HWND combo);

// The window's place inside its parent's client area.
RECT PlaceIn(HWND parent, HWND hwnd);

// The visible dialogs and message boxes of a program, topmost first.
std::vector<HWND> Dialogs(const Program& program);

// Class, title and static texts of windows, for messages of failures.
std::string Describe(const std::vector<HWND>& windows);

} // namespace gui
