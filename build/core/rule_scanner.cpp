#include "build/core/rule_scanner.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace {

constexpr std::array<std::string_view, kRuleWords> Com = {
    "Rule",    "EndRule", "ForAll",   "EndForAll", "If",       "EndIf", "IfOr",
    "EndIfOr", "IfXor",   "EndIfXor", "Then",      "Else",     "IfAny", "EndIfAny",
    "/*",      "*/",      "//",       "\"",        "Otherwise"};

constexpr int kBytes = 256;

// How many characters of each word have matched.
using Matched = std::array<std::uint8_t, kRuleWords>;

// Moves every word on by one character; returns the words it completed.
WordSet Advance(Matched& A, char c) {
    WordSet completed = 0;
    for (int k = 0; k < kRuleWords; ++k) {
        const std::string_view word = Com[k];
        A[k] = c == word[A[k]] ? A[k] + 1 : 0;
        if (A[k] == word.size()) {
            completed |= SetOf(static_cast<RuleWord>(k));
            A[k] = 0;
        }
    }
    return completed;
}

} // namespace

std::string_view WordText(RuleWord word) {
    return Com[word];
}

const WordScanner& WordScanner::Shared() {
    static const WordScanner scanner;
    return scanner;
}

WordScanner::WordScanner() {
    stops_.push_back(0); // stop 0 is none
    std::vector<Matched> found = {Matched{}};
    std::map<Matched, State> numbers = {{found[0], kStart}};
    for (std::size_t state = 0; state < found.size(); ++state) {
        for (int byte = 0; byte < kBytes; ++byte) {
            Matched next = found[state];
            const WordSet completed = Advance(next, static_cast<char>(byte));
            const auto [number, is_new] =
                numbers.try_emplace(next, static_cast<State>(found.size()));
            if (is_new)
                found.push_back(next);
            Step step{number->second, 0};
            if (completed != 0 || byte == '\n') {
                auto same = std::find(stops_.begin() + 1, stops_.end(), completed);
                step.stop = static_cast<std::uint16_t>(same - stops_.begin());
                if (same == stops_.end())
                    stops_.push_back(completed);
            }
            steps_.push_back(step);
        }
    }
}

WordScanner::Stop WordScanner::Run(State& state, const char* at, const char* end) const {
    State now = state;
    for (; at != end; ++at) {
        const Step step = steps_[std::size_t{now} * kBytes + static_cast<unsigned char>(*at)];
        now = step.next;
        if (step.stop != 0) {
            state = now;
            return {at, stops_[step.stop]};
        }
    }
    state = now;
    return {end, 0};
}
