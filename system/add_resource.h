// "Add_Box": chooses the facts of the system, or the results of the project (AddType says which).
#pragma once

#include <windows.h>

// Runs it for the results of the project, out of the file ResulFile. Nothing, after a box, when
// their working copy can have no name: the path is too long.
void ChooseResults(HWND owner);

INT_PTR CALLBACK SystemAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
