// What the dialogs for variables, initial facts and DDE items share.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

// Fills a combo box with the types of a value and puts the first choice in it; `size` is what the
// type's field holds with its NUL.
void FillTypes(HWND dialog, int id, int size);

// Lets an edit control take no more than a field of `size` bytes holds.
void LimitText(HWND dialog, int id, int size);

// Adds rows at the end of a list.
void AddRows(HWND list, const std::vector<std::string>& rows);

// All rows of a list.
std::vector<std::string> AllRows(HWND list);

// Puts the selected row of list `list_id` behind the text of the value field `value_id`.
void AppendSelected(HWND dialog, int list_id, int value_id);
