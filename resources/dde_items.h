// "Dde_Box": the DDE items editor.
#pragma once

#include "shell/record_text.h"

#include <windows.h>

extern char DDEFileName[kNameSize]; // the file being edited, "untitled.dde" for a new one
extern int DDEType;                 // 1 = load the file when the dialog opens

void NewDDE(HWND hwnd);
void LoadDDE(HWND hwnd);
INT_PTR CALLBACK DDEDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
