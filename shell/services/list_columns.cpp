#include "shell/services/list_columns.h"

#include "shell/services/text_measure.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr int kGap = 8; // pixels between the widest text of a column and the next column

// The width of the widest text of each column.
std::vector<int> ColumnWidths(HWND list, const TextMeasure& measure) {
    std::vector<int> widths;
    const ListRows rows(list);
    const int count = rows.Count();
    for (int i = 0; i < count; ++i) {
        const std::string row = rows.RowText(i);
        std::size_t column = 0;
        for (std::size_t at = 0; at <= row.size(); ++column) {
            const std::size_t end = std::min(row.find('\t', at), row.size());
            if (column == widths.size())
                widths.push_back(0);
            const std::string_view text = std::string_view(row).substr(at, end - at);
            widths[column] = std::max(widths[column], measure.Width(text));
            at = end + 1;
        }
    }
    return widths;
}

void AlignColumns(HWND list) {
    const TextMeasure measure(list);
    const std::vector<int> widths = ColumnWidths(list, measure);
    RECT inside{};
    GetClientRect(list, &inside);
    // Short texts still spread over the list.
    const int least = widths.empty() ? 0 : inside.right / (static_cast<int>(widths.size()) + 1);
    const int unit = std::max(1, measure.AverageWidth());
    std::vector<int> stops;
    int left = 0;
    for (std::size_t i = 0; i + 1 < widths.size(); ++i) {
        const int right = left + std::max(widths[i] + kGap, least);
        stops.push_back((right * 4 + unit - 1) / unit);
        left = stops.back() * unit / 4;
    }
    if (!stops.empty())
        SendMessageA(list, LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
    const int whole = widths.empty() ? 0 : left + widths.back() + kGap;
    SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(whole), 0);
}

} // namespace

ColumnFill::ColumnFill(HWND list, int rows, int bytes)
    : list_(list), fill_(list, ListFill::Width::FoundAtTheEnd, rows, bytes) {}

ColumnFill::~ColumnFill() {
    AlignColumns(list_);
}
