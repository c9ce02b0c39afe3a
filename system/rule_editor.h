// "Rule_Box": the rule editor beside the text window of a rules file.
#pragma once

#include "shell/record_text.h"

#include <windows.h>

extern char RuleFile[kNameSize]; // the rules file being edited, "untitled.rul" for a new one
extern char RuleSize[kNameSize]; // its index file

// Runs the rules dialog. It has no owner, so the text window and the frame stay usable.
void RunRuleEditor();
INT_PTR CALLBACK RuleDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
