#include "language/splitting.h"

#include "language/header_macros.h"
#include "language/tokens.h"

#include <algorithm>

namespace morv {

namespace {

bool IsName(const Token& token) {
    return token.kind == Token::Word && (token.text[0] < '0' || token.text[0] > '9');
}

bool IsMember(const std::vector<Token>& tokens, std::size_t at) {
    return (at > 0 && tokens[at - 1].text == ".") ||
           (at > 1 && tokens[at - 1].text == ">" && tokens[at - 2].text == "-");
}

// What the tokens of a text are read for.
std::string OddToken(const std::vector<Token>& tokens) {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const std::string& text = tokens[at].text;
        const std::string& next = at + 1 < tokens.size() ? tokens[at + 1].text : text;
        if (text == "#")
            return "has lines for the preprocessor";
        if (tokens[at].kind == Token::Word && next[0] == '"' && text.back() == 'R')
            return "has a raw text";
        if ((text == "<" && next == "%") || (text == "?" && next == "?") || text == "\\")
            return "has signs that stand for others";
        if (!IsName(tokens[at]))
            continue;
        if (IsOneOf(text, {"goto", "engine", "FactsOf", "asm", "co_await", "co_yield"}) ||
            text.compare(0, 2, "__") == 0 || text.compare(0, 5, "morv_") == 0)
            return "says " + text;
        if (IsOneOf(text, {"this", "description"}) && !IsMember(tokens, at))
            return "says " + text;
    }
    return "";
}

bool IsBalanced(const std::vector<Token>& tokens) {
    std::string open;
    for (const Token& token : tokens) {
        if (token.text.size() != 1)
            continue;
        const char c = token.text[0];
        if (c == '(' || c == '[' || c == '{')
            open += c;
        else if (c == ')' || c == ']' || c == '}') {
            const char due = c == ')' ? '(' : c == ']' ? '[' : '{';
            if (open.empty() || open.back() != due)
                return false;
            open.pop_back();
        }
    }
    return open.empty();
}

// Adds to `names` what the statement may declare. With a macro that has names in it that may be
// anything.
void Declared(const std::vector<Token>& statement, const std::set<std::string>& known,
              const ExternCode& code, std::set<std::string>& names) {
    bool declares = false;
    const auto add = [&](const std::string& name) {
        if (code.macros.count(name) == 0)
            names.insert(name);
    };
    for (const Token& token : statement)
        if (const auto macro = code.macros.find(token.text);
            macro != code.macros.end() && !macro->second.empty()) {
            for (const std::string& word : WithMacros({token.text}, code))
                add(word);
            declares = true;
        }
    for (std::size_t at = 0; at + 1 < statement.size(); ++at) {
        if (!IsName(statement[at]) || IsMember(statement, at))
            continue;
        const std::string& word = statement[at].text;
        if (IsOneOf(word, {"auto", "static", "const", "typedef", "using", "extern"}))
            declares = true;
        if (IsOneOf(word, {"return", "else", "case", "new", "delete", "throw", "sizeof", "do"}))
            continue;
        std::size_t next = at + 1;
        while (next < statement.size() && known.count(word) == 0 &&
               IsOneOf(statement[next].text, {"*", "&", ">"}))
            ++next;
        declares = declares || (next < statement.size() && IsName(statement[next]));
    }
    if (!declares)
        return;
    int depth = 0, value_depth = -1;
    for (std::size_t at = 0; at < statement.size(); ++at) {
        const std::string& text = statement[at].text;
        depth += IsOneOf(text, {"(", "[", "{"}) ? 1 : IsOneOf(text, {")", "]", "}"}) ? -1 : 0;
        if (text == "=" && value_depth < 0)
            value_depth = depth;
        if (text == "," && depth == value_depth)
            value_depth = -1;
        if (IsName(statement[at]) && !IsKeyword(text) &&
            (value_depth < 0 || known.count(text) == 0))
            add(text);
    }
}

// What the text around the rules declares, which rules may see.
std::set<std::string> DeclaredAround(const std::vector<Token>& tokens,
                                     const std::set<std::string>& known, const ExternCode& code) {
    std::set<std::string> names;
    std::vector<Token> statement;
    for (const Token& token : tokens) {
        if (!IsOneOf(token.text, {";", "{", "}"})) {
            statement.push_back(token);
            continue;
        }
        Declared(statement, known, code, names);
        statement.clear();
    }
    Declared(statement, known, code, names);
    return names;
}

// Whether "=" or an operator with it, "++" or "--" stands at `at`.
bool Assigns(const std::vector<Token>& tokens, std::size_t at) {
    const auto is = [&](std::size_t where, const char* text) {
        return where < tokens.size() && tokens[where].text == text;
    };
    if (is(at, "="))
        return !is(at + 1, "=");
    if (is(at, "<") || is(at, ">"))
        return is(at + 1, tokens[at].text.c_str()) && is(at + 2, "=");
    if ((is(at, "+") && is(at + 1, "+")) || (is(at, "-") && is(at + 1, "-")))
        return true;
    return at < tokens.size() &&
           IsOneOf(tokens[at].text, {"+", "-", "*", "/", "%", "&", "|", "^"}) && is(at + 1, "=");
}

// A statement that names the settings of a fact may change them when it assigns to them, copies
// to a text, or takes an address or a reference.
bool StatementChangesSettings(const std::vector<Token>& tokens) {
    bool names = false, reaches = false;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const std::string& text = tokens[at].text;
        const bool doubled = (at > 0 && tokens[at - 1].text == text) ||
                             (at + 1 < tokens.size() && tokens[at + 1].text == text);
        reaches = reaches || (text == "&" && !doubled) ||
                  (doubled && (text == "+" || text == "-")) ||
                  (IsName(tokens[at]) &&
                   (IsOneOf(text, {"sprintf", "snprintf", "Set", "swap"}) ||
                    text.compare(0, 3, "str") == 0 || text.compare(0, 3, "mem") == 0));
        if (!IsMember(tokens, at) ||
            !IsOneOf(text, {"fact_value", "type", "name", "description", "units"}))
            continue;
        names = true;
        std::size_t next = at + 1;
        while (next + 1 < tokens.size() && tokens[next].text == "." && IsName(tokens[next + 1]))
            next += 2;
        if (Assigns(tokens, next))
            return true;
    }
    return names && reaches;
}

// `words` are those of the rule with what its macros stand for.
std::string WhyRule(const std::vector<Token>& tokens, const std::set<std::string>& words,
                    bool loops) {
    std::string odd = OddToken(tokens);
    if (!odd.empty())
        return odd;
    if (!IsBalanced(tokens))
        return "leaves a bracket open";
    for (const std::string& word : words)
        if (loops && IsOneOf(word, {"break", "continue", "case", "default"}))
            return "says " + word + ", and there is a loop around the rules";
        else if (IsOneOf(word, {"goto", "this", "engine", "FactsOf"}))
            return "says " + word;
    return "";
}

} // namespace

std::set<std::string> WordsOf(const std::string& text, bool free) {
    std::set<std::string> words;
    const std::vector<Token> tokens = SolidTokens(text);
    for (std::size_t at = 0; at < tokens.size(); ++at)
        if (IsName(tokens[at]) && !(free && IsMember(tokens, at)))
            words.insert(tokens[at].text);
    return words;
}

std::set<std::string> WithMacros(std::set<std::string> words, const ExternCode& code) {
    std::vector<std::string> more(words.begin(), words.end());
    while (!more.empty()) {
        const auto macro = code.macros.find(more.back());
        more.pop_back();
        if (macro == code.macros.end())
            continue;
        for (const std::string& word : macro->second)
            if (words.insert(word).second)
                more.push_back(word);
    }
    return words;
}

std::string WhyWhole(const std::vector<Part>& parts, const std::set<std::string>& known,
                     const ExternCode& code) {
    const std::string around = ReadAround(parts).rest;
    const std::vector<Token> tokens = SolidTokens(around);
    std::string odd = OddToken(tokens);
    if (!odd.empty())
        return "the text around the rules " + odd;
    bool loops = false;
    for (const std::string& word : WithMacros(WordsOf(around, false), code)) {
        loops = loops || IsOneOf(word, {"for", "while", "do", "switch", "ForAll"});
        if (IsOneOf(word, {"enum", "struct", "class", "union", "namespace", "operator"}))
            return "the text around the rules says " + word;
    }
    for (std::size_t at = 0; at < tokens.size(); ++at)
        if (BeginsLambda(tokens, at))
            return "the text around the rules has a function in it";
    const std::set<std::string> declared = DeclaredAround(tokens, known, code);
    for (const Part& part : parts) {
        if (!part.rule)
            continue;
        const std::set<std::string> words = WithMacros(WordsOf(part.text, true), code);
        const std::string why = WhyRule(SolidTokens(part.text), words, loops);
        if (!why.empty())
            return "rule " + part.number + " " + why;
        for (const std::string& word : words)
            if (declared.count(word) != 0)
                return "rule " + part.number + " uses " + word +
                       ", which the text around the rules declares";
    }
    return "";
}

std::string WhyTogether(const std::vector<Part>& parts, const ExternCode& code) {
    if (code.unclear)
        return "the extern code cannot be declared apart from itself";
    for (const Part& part : parts)
        if (part.rule)
            for (const std::string& word : WithMacros(WordsOf(part.text, true), code))
                if (code.hidden.count(word) != 0)
                    return "rule " + part.number + " uses " + word +
                           ", which cannot be declared apart from the extern code";
    return "";
}

bool StandsApart(const std::string& text, const ExternCode& code) {
    const std::set<std::string> words = WithMacros(WordsOf(text, true), code);
    return WhyRule(SolidTokens(text), words, false).empty() &&
           std::none_of(words.begin(), words.end(),
                        [&](const std::string& word) { return code.hidden.count(word) != 0; });
}

bool ChangesSettings(const std::string& text) {
    std::vector<Token> statement;
    for (const Token& token : SolidTokens(text)) {
        if (!IsOneOf(token.text, {";", "{", "}", "Then", "Else", "Otherwise", "If", "IfOr", "IfXor",
                                  "IfAny", "ForAll", "EndIf", "EndRule", "EndForAll"})) {
            statement.push_back(token);
            continue;
        }
        if (StatementChangesSettings(statement))
            return true;
        statement.clear();
    }
    return StatementChangesSettings(statement);
}

} // namespace morv
