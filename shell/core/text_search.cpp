#include "shell/core/text_search.h"

#include <cctype>

namespace {

// Letters with accents are bytes from 128 on.
bool IsOfWord(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 128 || std::isalnum(byte) || c == '_';
}

bool Counts(std::string_view text, const Wanted& wanted, std::size_t at) {
    const std::size_t end = at + wanted.what.size();
    return !wanted.whole_word ||
           ((at == 0 || !IsOfWord(text[at - 1])) && (end == text.size() || !IsOfWord(text[end])));
}

} // namespace

std::optional<std::size_t> FindForward(std::string_view text, const Wanted& wanted,
                                       std::size_t from) {
    if (wanted.what.empty())
        return std::nullopt;
    std::size_t at = text.find(wanted.what, from);
    while (at != text.npos && !Counts(text, wanted, at))
        at = text.find(wanted.what, at + 1);
    return at == text.npos ? std::nullopt : std::optional(at);
}

std::optional<std::size_t> FindBackward(std::string_view text, const Wanted& wanted,
                                        std::size_t before) {
    const std::size_t size = wanted.what.size();
    if (size == 0 || before < size)
        return std::nullopt;
    std::size_t at = text.rfind(wanted.what, before - size);
    while (at != text.npos && !Counts(text, wanted, at))
        at = at == 0 ? text.npos : text.rfind(wanted.what, at - 1);
    return at == text.npos ? std::nullopt : std::optional(at);
}

std::optional<std::string> ReplaceAll(std::string_view text, std::string_view searched,
                                      const Wanted& wanted, std::string_view other) {
    std::string replaced;
    std::size_t done = 0;
    std::optional<std::size_t> at = FindForward(searched, wanted, 0);
    if (!at)
        return std::nullopt;
    for (; at; at = FindForward(searched, wanted, done)) {
        replaced += text.substr(done, *at - done);
        replaced += other;
        done = *at + wanted.what.size();
    }
    replaced += text.substr(done);
    return replaced;
}
