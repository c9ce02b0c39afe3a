// The commands of the rule editor. Each takes the dialog "Rule_Box".
#pragma once

#include "shell/services/ask_and_save.h"

#include <windows.h>

extern int RuleNum; // rules as last counted
extern int mod;     // 1 = there is something to save

void ListIndex(HWND dialog); // fills the rules list from the index file, as the editor starts

// Renumbers the rules in the text window and lists them; with `write` 1 also writes the index file.
// Returns the row that was selected, or -1 when there was none or a number had to be changed.
int ReNumRules(HWND dialog, int write);

// Renumbers, writes the index file and the rules file. Failures are shown; returns false when the
// rules file could not be written.
bool SaveRules(HWND dialog);

// The rules in the text window, as something that can be saved.
Savable RulesOf(HWND dialog);

void AddRule(HWND dialog);   // button "Rule"
void EndRule(HWND dialog);   // button "EndRule"
void InsertTag(HWND dialog); // the selected tag goes to the end of the text
// Scrolls the text to the rule that is selected in the list.
void ShowSelectedRule(HWND dialog);
void CloseRules(HWND dialog); // ends the dialog unless cancelled
void NewRules(HWND dialog);
void OpenRules(HWND dialog);
void SaveRulesFile(HWND dialog);
void SaveRulesFileAs(HWND dialog);
void RemoveRule(HWND dialog);
void MoveRule(HWND dialog);
void OpenTags(HWND dialog);
void CloseTags(HWND dialog);
