// Finds the words of the rule language in rule text.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// A word's value is its instruction code.
enum RuleWord : int {
    kRule,
    kEndRule,
    kForAll,
    kEndForAll,
    kIf,
    kEndIf,
    kIfOr,
    kEndIfOr,
    kIfXor,
    kEndIfXor,
    kThen,
    kElse,
    kIfAny,
    kEndIfAny,
    kBlockBegin, // of a comment
    kBlockEnd,
    kLineBegin, // of a comment
    kQuote,
    kOtherwise,
    kRuleWords // how many there are
};

// How a word is spelt.
std::string_view WordText(RuleWord word);

// The words, as bits, that end at one byte of text.
using WordSet = std::uint32_t;
constexpr WordSet SetOf(RuleWord word) {
    return WordSet{1} << word;
}

// Looks for all words side by side. Of each it counts the characters matched so far; one that does
// not match sets the count to 0 and is not tried again as the word's first one, so "RRule" holds no
// "Rule".
class WordScanner {
public:
    struct Stop {
        const char* at; // the byte where `words` end, or an LF; `end` when there is none
        WordSet words;
    };

    void Restart(); // forgets what is half matched

    // Reads on from `at` to the next byte where words end or that is an LF.
    Stop Next(const char* at, const char* end);

private:
    WordSet Take(char c);

    std::array<int, kRuleWords> matched_{}; // characters of each word
    WordSet half_matched_ = 0;              // the words whose count is not 0
};
