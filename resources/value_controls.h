// What the dialogs for variables, initial facts and DDE items share.
#pragma once

#include <windows.h>

// Fills a combo box with the types of a value and puts the first choice in it; `size` is what the
// type's field holds with its NUL.
void FillTypes(HWND dialog, int id, int size);

// Puts the selected row of list `list_id` behind the text of the value field `value_id`.
void AppendSelected(HWND dialog, int list_id, int value_id);
