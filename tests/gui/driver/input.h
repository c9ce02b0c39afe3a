// The keyboard, and the mouse by its messages: the system's pointer is shared with the X server,
// which moves it back at times of its own.
#pragma once

#include <string>
#include <windows.h>

namespace gui {

// Clicks a place given in the window's client area.
void MouseClick(HWND hwnd, POINT place);
void MouseDoubleClick(HWND hwnd, POINT place);

// Presses and releases a key of the keyboard, by its virtual key code; to the window with the
// focus.
void Key(WORD code, WORD held = 0); // `held`: another key that is down meanwhile
void Keys(const std::string& text); // letters, digits and blanks

} // namespace gui
