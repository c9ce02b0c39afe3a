// "Init_Box": the initial values of a system's facts.
#pragma once

#include <windows.h>

INT_PTR CALLBACK InitKnw(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
