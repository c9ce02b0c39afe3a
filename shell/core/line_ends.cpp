#include "shell/core/line_ends.h"

#include <algorithm>

bool EndsLinesInLf(std::string_view text) {
    return text.find('\n') != text.npos && text.find('\r') == text.npos;
}

std::string WithCrLf(std::string_view text) {
    std::string with;
    with.reserve(text.size() + static_cast<std::size_t>(std::ranges::count(text, '\n')));
    char before = '\0';
    for (const char c : text) {
        if (c == '\n' && before != '\r')
            with += '\r';
        with += c;
        before = c;
    }
    return with;
}

std::string WithLf(std::string_view text) {
    std::string without;
    without.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n')
            without += text[i];
    return without;
}
