// The rows of a document's list: each section is a heading at the left margin and, below it, its
// items with a TAB in front.
#pragma once

#include "shell/services/list_rows.h"

std::string ItemRow(const std::string& text);
std::string ItemText(const ListRows& rows, int row); // without its first character

// Where `row` lies in the section whose `count` items begin at row `first` (-1 when the document
// has no such section). Returns 1 for the heading, which is the row above them, 2 for one of the
// items and 0 for a row outside.
int PartOf(int row, int first, int count);

// Deletes a section with its heading. The list may have fewer than `count` of its items.
void DeleteSection(HWND list, int first, int count);

// ItemRow and ItemText for a text that stays in its buffer, which must have room for the TAB.
void PutTab(char* text);
void DropFirst(char* text);
