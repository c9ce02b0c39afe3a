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

LinePlace FindLine(std::string_view text, int line) {
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); line > 0 && end != text.npos; --line) {
        begin = end + 1;
        end = text.find('\n', begin);
    }
    std::size_t end = std::min(text.find('\n', begin), text.size());
    if (end > begin && end < text.size() && text[end - 1] == '\r')
        --end;
    return {begin, end - begin};
}
