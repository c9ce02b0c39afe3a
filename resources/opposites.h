// "Result_Box": the pairs of results that exclude each other.
#pragma once

#include <windows.h>

INT_PTR CALLBACK OppAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
