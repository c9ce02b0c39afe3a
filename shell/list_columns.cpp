#include "shell/list_columns.h"

#include "shell/list_rows.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr int kGap = 8; // pixels between the widest text of a column and the next column

// Measures texts in the font of a window.
class TextMeasure {
public:
    explicit TextMeasure(HWND hwnd) : hwnd_(hwnd), dc_(GetDC(hwnd)) {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(hwnd, WM_GETFONT, 0, 0));
        before_ = SelectObject(dc_, font ? font : GetStockObject(SYSTEM_FONT));
        TEXTMETRICA metrics{};
        GetTextMetricsA(dc_, &metrics);
        widest_character_ = metrics.tmMaxCharWidth;
    }
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;
    ~TextMeasure() {
        SelectObject(dc_, before_);
        ReleaseDC(hwnd_, dc_);
    }

    int Width(std::string_view text) const {
        SIZE size{};
        GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

    // Raises `width` to that of `text`; measures only a text that can be wider.
    void Raise(int& width, std::string_view text) const {
        if (static_cast<int>(text.size()) * widest_character_ > width)
            width = std::max(width, Width(text));
    }

    // The average character width that tab stops are counted in fourths of.
    int AverageWidth() const {
        return (Width("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") / 26 + 1) / 2;
    }

private:
    HWND hwnd_;
    HDC dc_;
    HGDIOBJ before_;
    int widest_character_;
};

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
            measure.Raise(widths[column], std::string_view(row).substr(at, end - at));
            at = end + 1;
        }
    }
    return widths;
}

} // namespace

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
    // Rows that are on the screen already stand at the old stops.
    InvalidateRect(list, nullptr, TRUE);
}
