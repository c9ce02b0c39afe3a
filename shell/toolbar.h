// The strip of picture buttons above the MDI client (not on Windows NT).
#pragma once

#include <windows.h>

LRESULT CALLBACK MdiFunc5(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
