// "Tags_Box" and "Res_Box": the lists of tags and of results.
#pragma once

#include <windows.h>

extern int TagNum; // tags added since the program started

void NewTag(HWND hwnd);
void NewResult(HWND hwnd);
void OpenResource(HWND hwnd); // asks for a tags, results or facts base file and edits it
INT_PTR CALLBACK TagNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ResultNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
