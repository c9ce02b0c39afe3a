// The Debug command: checks every rule of the project and lists what it finds.
#pragma once

#include <windows.h>

extern HWND hwndMes; // the messages child of the last run; it may be gone

void DebugMORV(HWND hwnd);
INT_PTR CALLBACK InfoBox(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
