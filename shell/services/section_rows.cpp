#include "shell/services/section_rows.h"

#include <algorithm>
#include <cstring>

std::string ItemRow(const std::string& text) {
    std::string row = "\t";
    row += text;
    return row;
}

std::string ItemText(const ListRows& rows, int row) {
    std::string text = rows.RowText(row);
    text.erase(0, 1);
    return text;
}

int PartOf(int row, int first, int count) {
    if (row < 0 || first == -1)
        return 0;
    if (row == first - 1)
        return 1;
    return row >= first && row < first + count ? 2 : 0;
}

void DeleteSection(HWND list, int first, int count) {
    ListRows rows(list);
    ListFill fill(list);
    const int there = std::min(count, rows.Count() - first);
    for (int i = there - 1; i >= -1; --i)
        rows.Delete(first + i);
}

void PutTab(char* text) {
    std::memmove(text + 1, text, std::strlen(text) + 1);
    text[0] = '\t';
}

void DropFirst(char* text) {
    std::memmove(text, text + 1, std::strlen(text));
}
