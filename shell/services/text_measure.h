// How wide texts are in the font of a window.
#pragma once

#include <span>
#include <string_view>
#include <windows.h>

// True when every character of the system's code page is one byte.
bool OneByteCharacters();

// How many characters these bytes are in the system's code page: edit controls count characters.
std::size_t CharactersIn(std::string_view bytes);

// Adds up the widths of characters, which it asks for once. Asking the window system for the width
// of every row would take longer than filling the list.
class TextMeasure {
public:
    explicit TextMeasure(HWND hwnd);
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;
    ~TextMeasure();

    int Width(std::string_view text) const; // of one without TABs

    // Of one with TABs. Behind `stops`, in pixels, are the window system's own tab stops.
    int TabbedWidth(std::string_view text, std::span<const int> stops = {}) const;

    // The average width of a character; a quarter of it is the unit of tab stops.
    int AverageWidth() const;

private:
    HWND hwnd_;
    HDC dc_;
    HGDIOBJ before_;
    bool added_up_; // else the window system measures every text
    INT widths_[256];
    int tab_width_;
};
