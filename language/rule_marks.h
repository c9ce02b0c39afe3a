// What is put around the words of a rules text so that the runtime sees them: assignments, and
// Poked.
#pragma once

#include "language/tokens.h"

#include <cstddef>
#include <string>
#include <vector>

namespace morv {

// Steps over the solid tokens of a text. The number of tokens stands for none.
class TokenWalk {
public:
    explicit TokenWalk(const std::vector<Token>& tokens) : tokens_(tokens) {}

    std::size_t None() const { return tokens_.size(); }

    // The next solid token behind the one at `at`, and the one before it.
    std::size_t Next(std::size_t at) const;
    std::size_t Previous(std::size_t at) const;

    bool Is(std::size_t at, const char* text) const;

    // Where the "." or "->" in front of the word at `at` begins.
    std::size_t MemberMark(std::size_t at) const;

private:
    const std::vector<Token>& tokens_;
};

// Code in front of and behind each token.
struct Marks {
    std::vector<std::string> before, after;
};

// The value that a fact is assigned rests on what it is computed from: in a rule, what is assigned
// is told so before its arguments are evaluated. With `poked`, Poked(ITEM) asks the runtime about
// an item that there must be.
Marks MarksAround(const std::vector<Token>& tokens, bool poked);

} // namespace morv
