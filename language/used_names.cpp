#include "language/used_names.h"

#include "language/generated_lines.h"
#include "language/tokens.h"

#include <algorithm>

namespace morv {

namespace {

using NameSet = std::unordered_set<std::string>;

// What facts and results have. A value of another type may have it too, but that is declared.
const NameSet kMembers = {"value",   "assign", "certainty",  "known", "level",
                          "outside", "holds",  "fact_value", "age"};

// NameSet after which a name is used, not declared.
const NameSet kBeforeUse = {"return", "else", "do", "case", "throw", "goto",     "Then",
                            "Else",   "and",  "or", "not",  "xor",   "Otherwise"};

class UsesReader {
public:
    UsesReader(const std::string& text, const NameSet& own, const NameSet& elsewhere)
        : tokens_(SolidTokens(text)), own_(own), elsewhere_(elsewhere) {
        for (std::size_t at = 0; at < tokens_.size(); ++at)
            if (IsWord(at) && LooksDeclared(at))
                declared_.insert(tokens_[at].text);
    }

    std::vector<UsedName> Undeclared() {
        for (std::size_t at = 0; at < tokens_.size(); ++at) {
            if (Is(at, "Rule"))
                told_.clear();
            if (!IsWord(at) || IsBehindName(at))
                continue;
            if (Is(at + 1, ".") && at + 2 < tokens_.size() && kMembers.count(tokens_[at + 2].text))
                Use(at);
            else if ((Is(at, "deduce") || Is(at, "retract")) && Is(at + 1, "(") &&
                     Is(at + 2, "&") && (Is(at + 4, ")") || Is(at + 4, ",")))
                Use(at + 3);
            else if (Is(at, "set_opposites") && Is(at + 1, "(") && Is(at + 3, ",") &&
                     Is(at + 5, ")")) {
                Use(at + 2);
                Use(at + 4);
            }
        }
        return std::move(used_);
    }

private:
    bool Is(std::size_t at, const char* text) const {
        return at < tokens_.size() && tokens_[at].text == text;
    }
    bool IsWord(std::size_t at) const {
        return at < tokens_.size() && tokens_[at].kind == Token::Word &&
               !(tokens_[at].text[0] >= '0' && tokens_[at].text[0] <= '9');
    }
    bool IsOneOf(std::size_t at, const char* characters) const {
        return at < tokens_.size() && tokens_[at].text.size() == 1 &&
               std::string(characters).find(tokens_[at].text[0]) != std::string::npos;
    }

    // A name in "x.name", "x->name" or "x::name" belongs to x.
    bool IsBehindName(std::size_t at) const {
        return at > 0 && (Is(at - 1, ".") || Is(at - 1, ":") ||
                          (at > 1 && Is(at - 1, ">") && Is(at - 2, "-")));
    }

    // Errs on the side of a declaration.
    bool LooksDeclared(std::size_t at) const {
        if (at == 0 || !IsOneOf(at + 1, ";=({,[]):}"))
            return false;
        const std::size_t before = at - 1;
        if (IsWord(before))
            return kBeforeUse.count(tokens_[before].text) == 0;
        if (IsOneOf(before, "&*"))
            return before > 0 && (IsWord(before - 1) || IsOneOf(before - 1, ">&*,"));
        if (Is(before, ","))
            return !IsArgument(at);
        return IsOneOf(before, ">[{}");
    }

    // Of a call that takes facts or results, where a name is not declared.
    bool IsArgument(std::size_t at) const {
        return at >= 4 && Is(at - 3, "(") && Is(at - 4, "set_opposites");
    }

    void Use(std::size_t at) {
        if (!IsWord(at))
            return;
        const std::string& name = tokens_[at].text;
        if (own_.count(name) == 0 && elsewhere_.count(name) == 0 && declared_.count(name) == 0 &&
            told_.insert(name).second)
            used_.push_back({name, tokens_[at].line});
    }

    const std::vector<Token> tokens_;
    const NameSet& own_;
    const NameSet& elsewhere_;
    NameSet declared_, told_;
    std::vector<UsedName> used_;
};

// The #define lines of a text, each with what follows a "\" at its end.
std::vector<std::string> Defines(const std::string& text) {
    std::vector<std::string> defines;
    bool goes_on = false;
    for (const std::string& line : LinesOf(text)) {
        const std::string start = Trimmed(line);
        if (goes_on)
            defines.back() += "\n" + line;
        else if (!start.empty() && start[0] == '#' &&
                 Trimmed(start.substr(1)).compare(0, 6, "define") == 0)
            defines.push_back(line);
        else
            continue;
        goes_on = !line.empty() && line.back() == '\\';
    }
    return defines;
}

} // namespace

std::vector<UsedName> UndeclaredNames(const std::string& text, const std::string& own,
                                      const NameSet& elsewhere) {
    return UsesReader(text, WordsOf(own), elsewhere).Undeclared();
}

NameSet WordsOf(const std::string& text) {
    NameSet words;
    for (const Token& token : Tokens(text))
        if (token.kind == Token::Word)
            words.insert(token.text);
    return words;
}

NameSet MacroWords(const std::string& text) {
    NameSet words;
    for (const std::string& define : Defines(text))
        words.merge(WordsOf(define));
    return words;
}

bool PastesNames(const std::string& text) {
    const std::vector<std::string> defines = Defines(text);
    return std::any_of(defines.begin(), defines.end(), [](const std::string& define) {
        return define.find("##") != std::string::npos;
    });
}

} // namespace morv
