#include "shell/services/list_columns.h"

#include "shell/services/list_texts.h"
#include "shell/services/text_measure.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

namespace {

constexpr int kGap = 8; // pixels between the widest text of a column and the next column

// The width of the widest text of each column.
std::vector<int> ColumnWidths(std::span<const std::string> rows, const TextMeasure& measure) {
    std::vector<int> widths;
    for (const std::string& row : rows) {
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

// Where the columns behind the first begin, in units of tab stops. Short texts spread over the
// list. When the widest texts do not fit beside each other, every column begins within the list,
// and the long texts push only what follows in their own rows.
std::vector<int> TabStops(const std::vector<int>& widths, int inside, int unit) {
    int together = 0;
    for (const int width : widths)
        together += width + kGap;
    const auto columns = static_cast<int>(widths.size());
    const int least = inside / (columns + 1);
    const int most = together <= inside ? inside : std::max(1, inside / columns);
    std::vector<int> stops;
    int left = 0;
    for (int i = 0; i + 1 < columns; ++i) {
        const int width = widths[static_cast<std::size_t>(i)] + kGap;
        const int right = left + std::max(std::min(width, most), least);
        stops.push_back((right * 4 + unit - 1) / unit);
        left = stops.back() * unit / 4;
    }
    return stops;
}

void AlignColumns(HWND list) {
    const TextMeasure measure(list);
    const std::vector<std::string> rows = RowTexts(list);
    RECT inside{};
    GetClientRect(list, &inside);
    const int unit = std::max(1, measure.AverageWidth());
    std::vector<int> stops = TabStops(ColumnWidths(rows, measure), inside.right, unit);
    if (!stops.empty())
        SendMessageA(list, LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
    for (int& stop : stops)
        stop = stop * unit / 4;
    int widest = 0;
    for (const std::string& row : rows)
        widest = std::max(widest, measure.TabbedWidth(row, stops));
    const int whole = rows.empty() ? 0 : widest + kGap;
    SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(whole), 0);
}

} // namespace

ColumnFill::ColumnFill(HWND list, int rows, int bytes)
    : list_(list), fill_(list, ListFill::Width::FoundAtTheEnd, rows, bytes) {}

ColumnFill::~ColumnFill() {
    AlignColumns(list_);
}
