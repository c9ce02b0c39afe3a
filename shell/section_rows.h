// The rows of a document's list: sections of a heading and items under it, an item's row being its
// text with one TAB in front.
#pragma once

#include "shell/list_rows.h"

std::string ItemRow(const std::string& text);
std::string ItemText(const ListRows& rows, int row); // without its first character

// What a row is to a section whose first item is row `first` (-1: the section is absent): 1 its
// heading, 2 one of its `count` items, 0 neither.
int PartOf(int row, int first, int count);

// Deletes a section's heading and those of its `count` items that the list has.
void DeleteSection(HWND list, int first, int count);

// The same TAB on a text in place: the buffer must have room for it.
void PutTab(char* text);
void DropFirst(char* text);
