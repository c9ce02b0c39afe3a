// "Rule_Box": the rule editor beside the text window of a rules file.
#pragma once

#include <windows.h>

// Opens a text window on the rules file `path` and runs the rules dialog beside it until it is
// closed. The dialog has no owner, so the text window and the frame stay usable; while it is open,
// a second start only brings it forward.
void RunRuleEditor(const char* path);
INT_PTR CALLBACK RuleDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
