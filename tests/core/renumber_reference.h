// Renumbering done step by step, to compare the one-pass walk with.
#pragma once

#include "system/core/rule_text.h"

namespace zentrik_test {

// Works on the whole text: each change is inserted where it belongs and every search started anew.
// Slow, and the measure of the one-pass walk.
class StepByStep {
public:
    explicit StepByStep(std::string text) : text_(std::move(text)) {}

    RenumberedRules Run() {
        RenumberedRules result;
        std::ptrdiff_t p = 0;
        for (int n = 1;; ++n) {
            std::ptrdiff_t r = Find("Rule", p);
            if (r == -1)
                break;
            std::ptrdiff_t e = Find("EndRule", p);
            if (e != -1 && e < r) {
                Insert("Rule\r\n", e);
                r = Find("Rule", p);
                e = Find("EndRule", p);
            }
            std::ptrdiff_t q = Find("Rule", r + 4);
            std::ptrdiff_t behind_end = 0; // characters behind an EndRule put in
            if (e == -1 || (q != -1 && q < e)) {
                const std::ptrdiff_t place = q == -1 ? std::ssize(text_) : q;
                Insert("EndRule\r\n", place);
                behind_end = std::ssize(text_) - (place + 7);
            }
            if (At(r + 4) != ' ')
                Insert(" ", r + 4);
            std::string digits;
            while (At(r + 5 + std::ssize(digits)) >= '0' && At(r + 5 + std::ssize(digits)) <= '9')
                digits += At(r + 5 + std::ssize(digits));
            if (digits != std::to_string(n)) {
                result.numbers_changed = true;
                text_.replace(static_cast<std::size_t>(r + 5), digits.size(), std::to_string(n));
            }
            e = Find("EndRule", p);
            // No EndRule is found when the one put in follows the beginning of another: the walk
            // then goes on behind it, so that it always ends.
            p = e == -1 ? std::ssize(text_) - behind_end : e + 7;
            q = Find("Rule", p);
            result.sizes.push_back(static_cast<std::int32_t>((q == -1 ? p : q) - r));
        }
        result.text = text_;
        return result;
    }

private:
    std::ptrdiff_t Find(std::string_view word, std::ptrdiff_t p) const {
        std::size_t a = 0;
        for (std::ptrdiff_t i = p; i < std::ssize(text_); ++i) {
            a = text_[static_cast<std::size_t>(i)] == word[a] ? a + 1 : 0;
            if (a == word.size())
                return i + 1 - std::ssize(word);
        }
        return -1;
    }

    void Insert(const std::string& string, std::ptrdiff_t place) {
        text_.insert(static_cast<std::size_t>(place), string);
    }

    char At(std::ptrdiff_t i) const {
        return i < std::ssize(text_) ? text_[static_cast<std::size_t>(i)] : '\0';
    }

    std::string text_;
};

} // namespace zentrik_test
