// "Goto_Box": the line of a text to go to.
#pragma once

#include <windows.h>

// Asks for a line and puts the caret to its start; behind the last line is the last line.
void GoToLine(HWND edit);
INT_PTR CALLBACK GotoDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
