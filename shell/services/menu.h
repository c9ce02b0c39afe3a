// Greying and enabling menu items, by groups.
#pragma once

#include <windows.h>

// Both change the menu of `hwnd`, if it has one. A group is what can be used when
// 1 the project has items, 2 to 4 it is open, 5 a system is open, 6 it has resources,
// 7 a text is on top, 8 the system has facts (no visible effect).
void GrayMenu(HWND hwnd, int a);
void EnableMenu(HWND hwnd, int a);
