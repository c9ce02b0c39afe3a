// All rows of a list box as texts.
#pragma once

#include <span>
#include <string>
#include <vector>
#include <windows.h>

std::vector<std::string> RowTexts(HWND list);

// Adds rows at the end, or in their places in a sorted list.
void AddRows(HWND list, std::span<const std::string> texts);

// True when a row is `text`, letter case included.
bool HasRow(HWND list, const std::string& text);
