// Finds the words of the rule language in rule text, one table look-up per byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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

// The words, as bits, that one byte of text completed.
using WordSet = std::uint32_t;
constexpr WordSet SetOf(RuleWord word) {
    return WordSet{1} << word;
}

// All words are looked for side by side. Each counts how many of its characters matched so far; a
// character that does not match sets the count to 0 and is not tried again as the word's first one,
// so "RRule" holds no "Rule". Those counts together are the scanner's state.
class WordScanner {
public:
    using State = std::uint16_t;
    static constexpr State kStart = 0;

    struct Stop {
        const char* at; // the byte that completed `words` or is an LF; `end` when there is none
        WordSet words;
    };

    static const WordScanner& Shared();

    // Reads on from `at` to the next byte that completes words or is an LF.
    Stop Run(State& state, const char* at, const char* end) const;

private:
    WordScanner();

    struct Step {
        State next;
        std::uint16_t stop; // 0: read on, else an index into stops_
    };
    std::vector<Step> steps_; // 256 per state
    std::vector<WordSet> stops_;
};
