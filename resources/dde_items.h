// "Dde_Box": the DDE items editor.
#pragma once

#include "shell/core/record_text.h"

#include <windows.h>

// What the next dialog edits: a file's path, or "untitled.dde" until a new list has one.
extern char DDEFileName[kNameSize];
extern int DDEType; // 1 = that file is read, 0 = the list starts empty

void NewDDE(HWND hwnd);
void LoadDDE(HWND hwnd);
INT_PTR CALLBACK DDEDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
