// "Add_Box": chooses the facts of the system, or the results of the project (AddType says which).
#pragma once

#include <windows.h>

INT_PTR CALLBACK SystemAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
