// Cuts C++ text into words, blanks, comments, texts and single characters.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace morv {

struct Token {
    enum Kind { Word, Blank, Comment, Text, Other } kind;
    std::string text;
    int line; // where it starts, from 1
};

// The tokens of `text`, which put together are `text` again. What is not closed goes to the end of
// its line (a text) or of everything (a comment).
std::vector<Token> Tokens(const std::string& text);

// Those of them that mean something: all but blanks and comments.
std::vector<Token> SolidTokens(const std::string& text);

bool IsSolid(const Token& token);

// Letters, digits and "_". Names may have letters beyond ASCII.
bool InWord(char c);

bool IsOneOf(const std::string& word, std::initializer_list<const char*> words);

// Whether the word is all digits.
bool IsNumber(const std::string& word);

// Whether the solid token at `at` begins a function within a function.
bool BeginsLambda(const std::vector<Token>& tokens, std::size_t at);

} // namespace morv
