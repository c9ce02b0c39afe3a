// How wide texts are in the font of a window.
#pragma once

#include <string_view>
#include <windows.h>

class TextMeasure {
public:
    explicit TextMeasure(HWND hwnd);
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;
    ~TextMeasure();

    int Width(std::string_view text) const;       // of one without TABs
    int TabbedWidth(std::string_view text) const; // with the window system's own tab stops

    // False when `text` fits `width` pixels whatever its characters are: then it needs no
    // measuring.
    bool MayExceed(std::string_view text, int width) const;

    // The average character width that tab stops are counted in fourths of.
    int AverageWidth() const;

private:
    HWND hwnd_;
    HDC dc_;
    HGDIOBJ before_;
    int widest_character_;
    int tab_width_;
};
