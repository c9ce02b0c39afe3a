// The text window the rule editor works on. It stays the same one, whatever window is active later.
// Once it is gone the functions do nothing.
#pragma once

#include "shell/core/record_text.h"

#include <string>
#include <windows.h>

extern char RuleFile[kNameSize]; // whose text the window shows; new rules: "untitled.rul"
extern char RuleSize[kNameSize]; // its index file

// Takes the topmost MDI child when it is the text window of the file RuleFile, else none.
void HoldRuleWindow();

HWND RuleEdit();  // its edit control; 0 when it is gone
HWND RuleChild(); // the MDI child; 0 when it is gone

// Puts a text back into the window. It counts as changed when it was or when `text` is another.
void PutRuleText(const std::string& text);

// Loads a file's text, which counts as unchanged.
void LoadRuleText(const std::string& text);

// Shows a text whose lines end with LF alone as the rule commands need it, with CR LF.
void EndLinesWithCrLf();

void SetRuleTextChanged();

// Scrolls to the end of the text, with three lines above it.
void ScrollToRuleTextEnd();

// Puts the caret behind the end of the text, in sight.
void ShowRuleTextEnd();

// Puts the caret to the byte `at` of the window's `text`, and its line to the top of the window.
void ShowRuleTextLine(const std::string& text, std::size_t at);

void DestroyRuleWindow();
