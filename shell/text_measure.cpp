#include "shell/text_measure.h"

#include <algorithm>

TextMeasure::TextMeasure(HWND hwnd) : hwnd_(hwnd), dc_(GetDC(hwnd)) {
    const auto font = reinterpret_cast<HFONT>(SendMessageA(hwnd, WM_GETFONT, 0, 0));
    before_ = SelectObject(dc_, font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc_, &metrics);
    constexpr int kCharactersInATab = 8;
    widest_character_ = metrics.tmMaxCharWidth;
    tab_width_ = std::max<int>(metrics.tmMaxCharWidth, kCharactersInATab * metrics.tmAveCharWidth);
}

TextMeasure::~TextMeasure() {
    SelectObject(dc_, before_);
    ReleaseDC(hwnd_, dc_);
}

int TextMeasure::Width(std::string_view text) const {
    SIZE size{};
    GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int TextMeasure::TabbedWidth(std::string_view text) const {
    const DWORD extent =
        GetTabbedTextExtentA(dc_, text.data(), static_cast<int>(text.size()), 0, nullptr);
    return LOWORD(extent);
}

bool TextMeasure::MayExceed(std::string_view text, int width) const {
    const auto tabs = static_cast<int>(std::count(text.begin(), text.end(), '\t'));
    const int others = static_cast<int>(text.size()) - tabs;
    return others * widest_character_ + tabs * tab_width_ > width;
}

int TextMeasure::AverageWidth() const {
    return (Width("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") / 26 + 1) / 2;
}
