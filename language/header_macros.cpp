#include "language/header_macros.h"

#include "language/tokens.h"

#include <algorithm>

namespace morv {

namespace {

bool EndsLine(const Token& token) {
    return token.kind == Token::Blank && token.text.find('\n') != std::string::npos;
}

// Whether a line begins with the token at `at`, but for blanks and comments.
bool BeginsLine(const std::vector<Token>& tokens, std::size_t at) {
    while (at-- > 0)
        if (EndsLine(tokens[at]))
            return true;
        else if (IsSolid(tokens[at]))
            return false;
    return true;
}

bool IsDefine(const std::vector<Token>& tokens, std::size_t at) {
    if (tokens[at].text != "#" || !BeginsLine(tokens, at))
        return false;
    for (++at; at < tokens.size() && !EndsLine(tokens[at]); ++at)
        if (IsSolid(tokens[at]))
            return tokens[at].text == "define";
    return false;
}

// Takes the lines "#define" out of a text.
TextAround Split(const std::string& text) {
    const std::vector<Token> tokens = Tokens(text);
    TextAround split;
    for (std::size_t at = 0; at < tokens.size();) {
        if (!IsDefine(tokens, at)) {
            split.rest += tokens[at++].text;
            continue;
        }
        std::string line;
        for (; at < tokens.size(); ++at) {
            if (EndsLine(tokens[at]) && (line.empty() || line.back() != '\\'))
                break;
            line += tokens[at].text;
        }
        split.defines += line + "\n";
    }
    return split;
}

// What is written around the rules, and the names that are nobody's to define.
bool IsTaken(const std::string& name) {
    static const char* const names[] = {
        "DATAFACT", "DATAFACTRESULT", "Left",   "Rule", "Site", "Kind",       "Conclusion",
        "Source",   "maybe_unused",   "engine", "NULL", "HIGH", "LOW",        "NORMAL",
        "FULL",     "VERYLOW",        "line",   "If",   "IfOr", "NOTVERYLOW", "VERYHIGH",
        "IfXor",    "IfAny",          "EndIf",  "Then", "Else", "NOTVERYHIGH"};
    return IsKeyword(name) || name.compare(0, 4, "morv") == 0 ||
           std::any_of(std::begin(names), std::end(names),
                       [&](const char* each) { return name == each; });
}

} // namespace

TextAround ReadAround(const std::vector<Part>& parts) {
    TextAround around;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i == 0 && !parts[i].rule)
            around = Split(parts[i].text);
        else
            around.rest += parts[i].rule ? ";" : parts[i].text;
    }
    return around;
}

std::string AddMacros(const std::string& defines, const std::set<std::string>& known,
                      ExternCode& code) {
    std::string taken;
    for (const auto& [name, words] : ReadExternCode(defines).macros) {
        if (taken.empty() && (known.count(name) != 0 || IsTaken(name)))
            taken = name;
        code.macros[name].insert(words.begin(), words.end());
    }
    return taken;
}

} // namespace morv
