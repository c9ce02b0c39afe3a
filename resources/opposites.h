// "Result_Box": the opposites of a system, results that cannot hold together.
#pragma once

#include <windows.h>

INT_PTR CALLBACK OppAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
