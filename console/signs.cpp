#include "console/signs.h"

#include "language/tokens.h"

#include <unordered_set>

namespace console {

Signs::Signs(const std::string& text) {
    std::size_t offset = 0;
    std::vector<morv::Token> tokens = morv::Tokens(text);
    signs_.reserve(tokens.size());
    for (morv::Token& token : tokens) {
        const std::size_t size = token.text.size();
        if (token.kind == morv::Token::Word || token.kind == morv::Token::Other)
            signs_.push_back({std::move(token.text), token.kind == morv::Token::Word, offset});
        else if (token.kind == morv::Token::Text)
            signs_.push_back({"\"", false, offset});
        offset += size;
    }
}

std::ptrdiff_t Signs::Concluded(std::ptrdiff_t i) const {
    const std::string& word = TextAt(i);
    const bool call = (word == "deduce" || word == "retract") && TextAt(i + 1) == "(" &&
                      TextAt(i + 2) == "&" && At(i + 3).word;
    return call ? i + 3 : 0;
}

bool IsBlockWord(std::string_view word) {
    static const std::unordered_set<std::string_view> words = {
        "Rule",  "EndRule", "ForAll",   "EndForAll", "If",    "EndIf",    "IfOr",     "EndIfOr",
        "IfXor", "Then",    "EndIfXor", "Else",      "IfAny", "EndIfAny", "Otherwise"};
    return words.contains(word);
}

} // namespace console
