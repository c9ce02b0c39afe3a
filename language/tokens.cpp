#include "language/tokens.h"

#include <algorithm>

namespace morv {

bool InWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           (static_cast<unsigned char>(c) & 0x80U) != 0;
}

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

template <class Test> std::size_t While(const std::string& text, std::size_t at, Test test) {
    while (at < text.size() && test(text[at]))
        ++at;
    return at;
}

// The end of the text that begins with the quote at `at`.
std::size_t TextEnd(const std::string& text, std::size_t at) {
    const char quote = text[at];
    for (++at; at < text.size() && text[at] != '\n'; ++at) {
        if (text[at] == quote)
            return at + 1;
        if (text[at] == '\\' && at + 1 < text.size())
            ++at;
    }
    return std::min(at, text.size());
}

// A line that ends with "\" goes on with the next one, also in a comment.
std::size_t LineEnd(const std::string& text, std::size_t at) {
    for (;; ++at) {
        at = text.find('\n', at);
        if (at == std::string::npos)
            return text.size();
        const std::size_t last = text.find_last_not_of('\r', at - 1);
        if (last == std::string::npos || text[last] != '\\')
            return at;
    }
}

std::size_t CommentEnd(const std::string& text, std::size_t at) {
    if (text[at + 1] == '/')
        return LineEnd(text, at + 2);
    const std::size_t end = text.find("*/", at + 2);
    return end == std::string::npos ? text.size() : end + 2;
}

std::vector<Token> Cut(const std::string& text, bool solid) {
    std::vector<Token> tokens;
    tokens.reserve(text.size() / 4);
    int line = 1;
    bool word_before = false;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        Token::Kind kind = Token::Other;
        std::size_t end = at + 1;
        if (InWord(c)) {
            kind = Token::Word;
            end = While(text, at, InWord);
        } else if (IsBlank(c)) {
            kind = Token::Blank;
            end = While(text, at, IsBlank);
        } else if (c == '/' && end < text.size() && (text[end] == '/' || text[end] == '*')) {
            kind = Token::Comment;
            end = CommentEnd(text, at);
        } else if (c == '"' || (c == '\'' && !word_before)) { // 1'000 has no text
            kind = Token::Text;
            end = TextEnd(text, at);
        }
        if (!solid || (kind != Token::Blank && kind != Token::Comment)) // before the text is copied
            tokens.push_back({kind, text.substr(at, end - at), line});
        if (kind != Token::Word && kind != Token::Other)
            line +=
                static_cast<int>(std::count(text.begin() + static_cast<std::ptrdiff_t>(at),
                                            text.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
        word_before = kind == Token::Word;
        at = end;
    }
    return tokens;
}

} // namespace

std::vector<Token> Tokens(const std::string& text) {
    return Cut(text, false);
}

std::vector<Token> SolidTokens(const std::string& text) {
    return Cut(text, true);
}

bool IsSolid(const Token& token) {
    return token.kind != Token::Blank && token.kind != Token::Comment;
}

bool IsOneOf(const std::string& word, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(), [&](const char* each) { return word == each; });
}

bool IsNumber(const std::string& word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
}

bool BeginsLambda(const std::vector<Token>& tokens, std::size_t at) {
    if (tokens[at].text != "[" || at == 0)
        return tokens[at].text == "[";
    const Token& before = tokens[at - 1];
    return before.text == "return" ||
           !(before.kind == Token::Word || before.text == "]" || before.text == ")");
}

} // namespace morv
