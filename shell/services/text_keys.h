// The keys of text editors beyond those of the system's edit control: Ctrl+A all, Ctrl+S save,
// Ctrl+F find, F3 again (with Shift the other way), Ctrl+H replace, Ctrl+G go to line.
#pragma once

#include <windows.h>

// Lets the edit control of an editor take these keys.
void UseTextKeys(HWND edit);
