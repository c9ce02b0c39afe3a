#include "shell/services/text_measure.h"

#include <algorithm>

bool OneByteCharacters() {
    CPINFO page{};
    return GetCPInfo(CP_ACP, &page) && page.MaxCharSize == 1;
}

std::size_t CharactersIn(std::string_view bytes) {
    if (bytes.empty() || OneByteCharacters())
        return bytes.size();
    const auto size = static_cast<int>(bytes.size());
    return static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0));
}

TextMeasure::TextMeasure(HWND hwnd) : hwnd_(hwnd), dc_(GetDC(hwnd)) {
    const auto font = reinterpret_cast<HFONT>(SendMessageA(hwnd, WM_GETFONT, 0, 0));
    before_ = SelectObject(dc_, font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc_, &metrics);
    constexpr int kCharactersInATab = 8;
    tab_width_ = std::max<int>(1, kCharactersInATab * metrics.tmAveCharWidth);
    added_up_ = OneByteCharacters() && GetCharWidth32A(dc_, 0, 255, widths_);
}

TextMeasure::~TextMeasure() {
    SelectObject(dc_, before_);
    ReleaseDC(hwnd_, dc_);
}

int TextMeasure::Width(std::string_view text) const {
    if (added_up_) {
        int width = 0;
        for (const char c : text)
            width += widths_[static_cast<unsigned char>(c)];
        return width;
    }
    SIZE size{};
    GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int TextMeasure::TabbedWidth(std::string_view text, std::span<const int> stops) const {
    // A single tab stop is repeated.
    const int every = stops.size() == 1 ? std::max(1, stops[0]) : tab_width_;
    int left = 0;
    for (;;) {
        const std::size_t tab = std::min(text.find('\t'), text.size());
        left += Width(text.substr(0, tab));
        if (tab == text.size())
            return left;
        const auto stop = std::ranges::upper_bound(stops, left);
        left = stop != stops.end() ? *stop : (left / every + 1) * every;
        text.remove_prefix(tab + 1);
    }
}

int TextMeasure::AverageWidth() const {
    return (Width("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") / 26 + 1) / 2;
}
