#include "build/core/rule_scanner.h"

#include <bit>
#include <string_view>

namespace {

constexpr std::array<std::string_view, kRuleWords> Com = {
    "Rule",    "EndRule", "ForAll",   "EndForAll", "If",       "EndIf", "IfOr",
    "EndIfOr", "IfXor",   "EndIfXor", "Then",      "Else",     "IfAny", "EndIfAny",
    "/*",      "*/",      "//",       "\"",        "Otherwise"};

// The words that start with each byte.
constexpr auto kStarting = [] {
    std::array<WordSet, 256> words{};
    for (int k = 0; k < kRuleWords; ++k)
        words[static_cast<unsigned char>(Com[k][0])] |= SetOf(static_cast<RuleWord>(k));
    return words;
}();

} // namespace

std::string_view WordText(RuleWord word) {
    return Com[word];
}

void WordScanner::Restart() {
    matched_ = {};
    half_matched_ = 0;
}

// Counts one more character; returns the words that end with it.
WordSet WordScanner::Take(char c) {
    WordSet ended = 0;
    // No other count changes. Going through all of them at each byte, the check takes four times as
    // long.
    WordSet words = half_matched_ | kStarting[static_cast<unsigned char>(c)];
    half_matched_ = 0;
    for (; words != 0; words &= words - 1) {
        const int k = std::countr_zero(words);
        const WordSet word = words & -words;
        matched_[k] = c == Com[k][matched_[k]] ? matched_[k] + 1 : 0;
        if (matched_[k] == std::ssize(Com[k])) {
            ended |= word;
            matched_[k] = 0;
        }
        if (matched_[k] != 0)
            half_matched_ |= word;
    }
    return ended;
}

WordScanner::Stop WordScanner::Next(const char* at, const char* end) {
    for (; at != end; ++at) {
        const WordSet words = Take(*at);
        if (words != 0 || *at == '\n')
            return {at, words};
    }
    return {end, 0};
}
