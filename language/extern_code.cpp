#include "language/extern_code.h"

#include "language/tokens.h"

#include <algorithm>
#include <unordered_set>

namespace morv {

namespace {

using Words = std::vector<std::string>;

class ExternReader {
public:
    explicit ExternReader(const std::string& text) : tokens_(Tokens(text)) {}

    ExternCode All() {
        while (at_ < tokens_.size() && !result_.unclear) {
            if (!IsSolid(tokens_[at_])) {
                ++at_;
            } else if (tokens_[at_].text == "#")
                Directive();
            else
                Statement();
        }
        for (const Token& token : tokens_)
            result_.code += token.text;
        return std::move(result_);
    }

private:
    // Passes a line by, with the lines that continue it. Returns it.
    std::string RestOfLine() {
        std::string line;
        for (; at_ < tokens_.size(); ++at_) {
            const std::string& text = tokens_[at_].text;
            const bool ends = tokens_[at_].kind == Token::Blank && text.find('\n') != text.npos;
            if (ends && (line.empty() || line.back() != '\\'))
                break;
            line += text;
        }
        return line;
    }

    // How many parameters the macro `name` has: its bracket stands right behind its name.
    static std::ptrdiff_t Parameters(const std::vector<Token>& tokens, const std::string& name) {
        auto at = std::find_if(tokens.begin(), tokens.end(),
                               [&](const Token& token) { return token.text == name; });
        if (at == tokens.end() || ++at == tokens.end() || at->text != "(")
            return 0;
        std::ptrdiff_t count = 0;
        for (; at != tokens.end() && at->text != ")"; ++at)
            count += at->kind == Token::Word && IsWord(at->text);
        return count;
    }

    // `words` are "define", the name, the parameters and what it stands for.
    void AddMacro(const Words& words, std::ptrdiff_t parameters) {
        const auto first = words.begin() + 2, last = first + parameters;
        std::set<std::string>& macro = result_.macros[words[1]];
        for (auto word = last; word != words.end(); ++word)
            if (std::find(first, last, *word) == last)
                macro.insert(*word);
    }

    void Directive() {
        const std::string line = RestOfLine();
        const std::vector<Token> tokens = Tokens(line);
        Words words;
        for (const Token& token : tokens)
            if (token.kind == Token::Word && IsWord(token.text))
                words.push_back(token.text);
        const std::string name = words.empty() ? "" : words[0];
        if (name == "define" && words.size() > 1)
            AddMacro(words, Parameters(tokens, words[1]));
        else if (name == "include" && line.find('<') == line.npos)
            result_.unclear = true;
        result_.declarations += line + "\n";
    }

    // Passes a declaration or a definition by.
    void Statement() {
        const std::size_t from = at_;
        Words solid;
        int depth = 0;
        std::size_t body = 0; // where in `solid` the first brace stands
        for (; at_ < tokens_.size(); ++at_) {
            const std::string& text = tokens_[at_].text;
            if (!IsSolid(tokens_[at_]))
                continue;
            if (text == "#") { // a macro or a condition inside
                result_.unclear = true;
                return;
            }
            if (text == "{" && depth == 0 && body == 0)
                body = solid.size();
            depth += IsOneOf(text, {"(", "[", "{"}) ? 1 : IsOneOf(text, {")", "]", "}"}) ? -1 : 0;
            solid.push_back(text);
            if (depth < 0)
                break;
            if (depth == 0 && (text == ";" || (text == "}" && !Continues(solid, body))))
                break;
        }
        if (at_ == tokens_.size() || depth != 0) {
            result_.unclear = true;
            return;
        }
        ++at_;
        Read(from, solid, body);
    }

    // Whether a ";" follows the brace that closes: after a type or the values of a variable.
    static bool Continues(const Words& solid, std::size_t body) {
        const auto before = solid.begin() + static_cast<std::ptrdiff_t>(body);
        const bool call = std::find(solid.begin(), before, "(") != before;
        bool value = false; // and not that of a parameter
        int depth = 0;
        for (auto word = solid.begin(); word != before; ++word) {
            depth += IsOneOf(*word, {"(", "["}) ? 1 : IsOneOf(*word, {")", "]"}) ? -1 : 0;
            value = value || (depth == 0 && *word == "=");
        }
        return value || (!call && !IsOneOf(solid[0], {"namespace", "extern"}));
    }

    std::string TextFrom(std::size_t from) const {
        std::string text;
        for (std::size_t at = from; at < at_; ++at)
            text += tokens_[at].text;
        return text + "\n";
    }

    void Hide(const Words& solid) {
        for (const std::string& word : solid)
            if (IsWord(word) && !IsKeyword(word))
                result_.hidden.insert(word);
    }

    static bool IsWord(const std::string& text) {
        return InWord(text[0]) && (text[0] < '0' || text[0] > '9');
    }

    void Read(std::size_t from, Words solid, std::size_t body) {
        // Of a function only what comes before its body is declared.
        const bool whole = body == 0 || !IsCall(solid) ||
                           IsOneOf(solid[0], {"template", "inline", "constexpr", "namespace"});
        const auto end = whole ? solid.end() : solid.begin() + static_cast<std::ptrdiff_t>(body);
        const bool odd = std::any_of(solid.begin(), end, [&](const std::string& word) {
            return word.compare(0, 2, "__") == 0 ||
                   IsOneOf(word, {"asm", "operator", "alignas", "thread_local"}) ||
                   (IsWord(word) && result_.hidden.count(word) != 0);
        });
        if (odd || IsOneOf(solid[0], {"namespace", "friend"}))
            return Hide(solid);
        if (solid[0] == ";")
            return;
        if (solid[0] == "template" || solid[0] == "typedef" || solid[0] == "using" ||
            solid[0] == "inline" || solid[0] == "constexpr" || solid[0] == "static_assert" ||
            IsTypeDefinition(solid, body)) {
            result_.declarations += TextFrom(from);
            return;
        }
        if (solid[0] == "extern") {
            if (solid.back() == "}" || std::find(solid.begin(), solid.end(), "=") != solid.end())
                return Hide(solid);
            result_.declarations += TextFrom(from);
            return;
        }
        if (IsOneOf(solid[0], {"struct", "class", "enum", "union"}) && body != 0 && !IsCall(solid))
            return Hide(solid); // a type and a variable in one
        const bool is_static = solid[0] == "static";
        if (is_static)
            solid.erase(solid.begin());
        const std::string declaration = IsCall(solid) ? Function(solid) : Variable(solid);
        if (declaration.empty())
            return Hide(solid);
        if (is_static)
            ShowStatic(from);
        if (declaration != "-")
            result_.declarations += declaration + ";\n";
    }

    void ShowStatic(std::size_t from) {
        while (tokens_[from].text != "static")
            ++from;
        tokens_[from].text = "";
    }

    // struct X { ... }; and struct X;
    static bool IsTypeDefinition(const Words& solid, std::size_t body) {
        if (!IsOneOf(solid[0], {"struct", "class", "enum", "union"}))
            return false;
        if (body == 0)
            return solid.size() == 3;
        const auto brace = solid.begin() + static_cast<std::ptrdiff_t>(body);
        return solid.size() > 2 && solid[solid.size() - 2] == "}" && IsWord(solid[1]) &&
               std::find(solid.begin(), brace, "(") == brace && !HasTwoBlocks(solid, body);
    }

    static bool HasTwoBlocks(const Words& solid, std::size_t body) {
        int depth = 0;
        for (std::size_t at = body; at + 2 < solid.size(); ++at) {
            depth += solid[at] == "{" ? 1 : solid[at] == "}" ? -1 : 0;
            if (depth == 0)
                return true;
        }
        return false;
    }

    // Whether a "(" comes before any "=" and "{".
    static bool IsCall(const Words& solid) {
        for (const std::string& text : solid)
            if (text == "(")
                return true;
            else if (text == "=" || text == "{")
                return false;
        return false;
    }

    // Whether two tokens would become another one without a blank between them.
    static bool Sticks(char last, char next) {
        const auto of_word = [](char c) { return c == '"' || c == '\'' || InWord(c); };
        return (of_word(last) && of_word(next)) || (last == '/' && next == '*') ||
               (last == next && (last == '+' || last == '-'));
    }

    // Signs like "::", "&&" and the point of a number stay together.
    static std::string Joined(Words::const_iterator from, Words::const_iterator to) {
        std::string text;
        for (; from != to; ++from)
            text += (!text.empty() && Sticks(text.back(), from->front()) ? " " : "") + *from;
        return text;
    }

    // What declares the function; "-" for a member, which its class declares; empty when unsure.
    static std::string Function(const Words& solid) {
        const auto open = std::find(solid.begin(), solid.end(), "(");
        if (open - solid.begin() < 2 || !IsWord(*(open - 1)) || IsKeyword(*(open - 1)))
            return "";
        if (*(open - 2) == ":")
            return solid.back() == "}" ? "-" : "";
        if (!IsWord(*(open - 2)) && !IsOneOf(*(open - 2), {"*", "&", ">"}))
            return "";
        int depth = 0;
        auto close = open;
        for (; close != solid.end(); ++close) {
            depth += *close == "(" ? 1 : *close == ")" ? -1 : 0;
            if (depth == 0)
                break;
        }
        if (close == solid.end() || close + 1 == solid.end())
            return "";
        const bool prototype = *(close + 1) == ";";
        if (!prototype && *(close + 1) != "{")
            return "";
        if (prototype && !HasParameters(open + 1, close))
            return "";
        if (std::find(solid.begin(), open, "auto") != open)
            return "";
        return Joined(solid.begin(), close + 1);
    }

    // Whether what stands in the brackets are parameters, not the value of a variable.
    static bool HasParameters(Words::const_iterator from, Words::const_iterator to) {
        while (from != to) {
            const auto end = std::find(from, to, ",");
            bool sure = false;
            for (auto word = from; word != end; ++word)
                sure = sure || IsKeyword(*word) ||
                       (word + 1 != end && IsWord(*word) && IsWord(*(word + 1)));
            if (!sure)
                return false;
            from = end == to ? to : end + 1;
        }
        return true;
    }

    // What declares the variables of a definition; "-" for a member, which its class declares.
    static std::string Variable(const Words& solid) {
        Words kept;
        int depth = 0, angles = 0;
        bool value = false;
        if (std::find(solid.begin(), solid.end(), "auto") != solid.end() || solid.size() < 3)
            return "";
        const bool constant = solid[0] == "const" || solid[1] == "const";
        if (constant && std::find(solid.begin(), solid.end(), "*") == solid.end())
            return ""; // it belongs to one source
        for (const std::string& text : solid) {
            if (depth == 0 && text == ";")
                break;
            if (depth == 0 && (text == "=" || text == "{"))
                value = true;
            if (depth == 0 && angles == 0 && text == ",")
                value = false;
            if (!value) {
                if (text == "[" && !kept.empty() && kept.back() == "[")
                    return "";
                if (text == "]" && kept.back() == "[")
                    return ""; // how long it is stands in its values
                if (text == "(")
                    return "";
                angles += text == "<" ? 1 : text == ">" ? -1 : 0;
                kept.push_back(text);
            }
            depth += IsOneOf(text, {"(", "[", "{"}) ? 1 : IsOneOf(text, {")", "]", "}"}) ? -1 : 0;
        }
        const auto name = std::find_if(kept.rbegin(), kept.rend(),
                                       [](const std::string& text) { return IsWord(text); });
        if (name == kept.rend() || name + 1 == kept.rend())
            return "";
        return *(name + 1) == ":" ? "-" : "extern " + Joined(kept.begin(), kept.end());
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    ExternCode result_;
};

} // namespace

bool IsKeyword(const std::string& word) {
    static const std::unordered_set<std::string> words = {"alignas",
                                                          "alignof",
                                                          "and",
                                                          "asm",
                                                          "auto",
                                                          "bool",
                                                          "break",
                                                          "case",
                                                          "catch",
                                                          "char",
                                                          "class",
                                                          "const",
                                                          "constexpr",
                                                          "const_cast",
                                                          "continue",
                                                          "decltype",
                                                          "default",
                                                          "delete",
                                                          "do",
                                                          "double",
                                                          "dynamic_cast",
                                                          "else",
                                                          "enum",
                                                          "explicit",
                                                          "extern",
                                                          "false",
                                                          "float",
                                                          "for",
                                                          "friend",
                                                          "goto",
                                                          "if",
                                                          "inline",
                                                          "int",
                                                          "long",
                                                          "mutable",
                                                          "namespace",
                                                          "new",
                                                          "noexcept",
                                                          "not",
                                                          "nullptr",
                                                          "operator",
                                                          "or",
                                                          "private",
                                                          "protected",
                                                          "public",
                                                          "register",
                                                          "reinterpret_cast",
                                                          "return",
                                                          "short",
                                                          "signed",
                                                          "sizeof",
                                                          "static",
                                                          "static_assert",
                                                          "static_cast",
                                                          "struct",
                                                          "switch",
                                                          "template",
                                                          "this",
                                                          "thread_local",
                                                          "throw",
                                                          "true",
                                                          "try",
                                                          "typedef",
                                                          "typeid",
                                                          "typename",
                                                          "union",
                                                          "unsigned",
                                                          "using",
                                                          "virtual",
                                                          "void",
                                                          "volatile",
                                                          "wchar_t",
                                                          "while",
                                                          "xor"};
    return words.count(word) != 0;
}

ExternCode ReadExternCode(const std::string& text) {
    return ExternReader(text).All();
}

} // namespace morv
