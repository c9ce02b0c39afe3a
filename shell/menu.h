// Greying and enabling groups of items of the frame menu.
#pragma once

#include <windows.h>

// Both take the window whose menu is changed (a window without a menu is left alone) and a group:
// 1 the project has items, 2 to 4 a project is open, 5 a system is open, 6 the system has
// resources, 7 a text editor is active, 8 the system has facts (no visible effect).
void GrayMenu(HWND hwnd, int a);
void EnableMenu(HWND hwnd, int a);
