// "Tags_Box" and "Res_Box": the lists of tags and of results.
#pragma once

#include <windows.h>

extern int TagNum; // tags added since the program started

// 1: the file is loaded when the dialog opens. It stays so for the rest of the run, so once a
// resource was opened a new list loads the untitled file of the current folder.
extern int TagType;
extern int ResultType;

void NewTag(HWND hwnd);
void NewResult(HWND hwnd);
void OpenResource(HWND hwnd); // asks for a tags, results or facts base file and edits it
INT_PTR CALLBACK TagNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ResultNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
