// The keyboard and the mouse. The system's pointer is shared with the X server, which moves it back
// at times of its own, so most clicks are the mouse's messages.
#pragma once

#include "tests/gui/driver/program.h"

#include <string>
#include <windows.h>

namespace gui {

// Clicks a place given in the window's client area.
void MouseClick(HWND hwnd, POINT place);
void MouseDoubleClick(HWND hwnd, POINT place);

// Moves the system's pointer over a place of the window's client area and clicks: the window system
// itself finds out whose click it is.
void PointerClick(const Program& program, HWND hwnd, POINT place);

// Presses and releases a key of the keyboard, by its virtual key code; to the window with the
// focus. `held` is another key that is down meanwhile; Inside::ReadNews comes before, or late news
// of the focus may release it.
void Key(WORD code, WORD held = 0);
void Keys(const std::string& text); // letters, digits and blanks

} // namespace gui
