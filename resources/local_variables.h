// "Var_Box": the local variables of a system.
#pragma once

#include <windows.h>

INT_PTR CALLBACK VarNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
