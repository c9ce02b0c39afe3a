#include "shell/services/list_texts.h"

#include "shell/services/list_rows.h"

#include <algorithm>

std::vector<std::string> RowTexts(HWND list) {
    const ListRows rows(list);
    std::vector<std::string> texts(static_cast<std::size_t>(rows.Count()));
    int row = 0;
    for (std::string& text : texts)
        text = rows.RowText(row++);
    return texts;
}

void AddRows(HWND list, std::span<const std::string> texts) {
    std::size_t bytes = 0;
    for (const std::string& text : texts)
        bytes += text.size() + 1;
    const ListFill fill(list, static_cast<int>(texts.size()), static_cast<int>(bytes));
    ListRows rows(list);
    for (const std::string& text : texts)
        rows.Add(text);
}

bool HasRow(HWND list, const std::string& text) {
    const std::vector<std::string> texts = RowTexts(list);
    return std::ranges::find(texts, text) != texts.end();
}
