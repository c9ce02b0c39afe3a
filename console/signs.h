// The words and signs of a text of C++, without blanks, comments and texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace console {

struct Sign {
    std::string text;
    bool word;
    std::size_t offset;
};

// Reads signs by their number; there is an empty one before the first and behind the last.
class Signs {
public:
    explicit Signs(const std::string& text);

    std::ptrdiff_t Count() const { return std::ssize(signs_); }
    const Sign& At(std::ptrdiff_t i) const {
        static const Sign none{"", false, 0};
        return i < 0 || i >= Count() ? none : signs_[static_cast<std::size_t>(i)];
    }
    const std::string& TextAt(std::ptrdiff_t i) const { return At(i).text; }

    // A word that is no number.
    bool IsName(std::ptrdiff_t i) const {
        const Sign& sign = At(i);
        return sign.word && !(sign.text[0] >= '0' && sign.text[0] <= '9');
    }

    // Whether sign `i` is a member of what stands before it.
    bool IsMember(std::ptrdiff_t i) const {
        const std::string& before = TextAt(i - 1);
        return before == "." || (before == ">" && TextAt(i - 2) == "-") || IsQualified(i);
    }

    // Whether "::" stands before sign `i`.
    bool IsQualified(std::ptrdiff_t i) const {
        return TextAt(i - 1) == ":" && TextAt(i - 2) == ":";
    }

    // The name that a call of `deduce` or `retract` at sign `i` is about; 0 when it is none.
    std::ptrdiff_t Concluded(std::ptrdiff_t i) const;

private:
    std::vector<Sign> signs_;
};

// Whether a word is one of the rule language's own, as "Then".
bool IsBlockWord(std::string_view word);

} // namespace console
