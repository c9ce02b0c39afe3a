// The line ends of texts: edit controls break lines at CR LF alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// True when a text has lines and every one ends in LF alone.
bool EndsLinesInLf(std::string_view text);

// Puts a CR in front of every LF that has none.
std::string WithCrLf(std::string_view text);

// Takes away the CR of every CR LF.
std::string WithLf(std::string_view text);

struct LinePlace {
    std::size_t begin;
    std::size_t size; // without its end
};

// Where a line of a text is, counted from 0 by every LF. The last line stands for all behind it.
LinePlace FindLine(std::string_view text, int line);
