#include "language/quiet_rules.h"

#include "language/tokens.h"

#include <algorithm>
#include <sstream>

namespace morv {

namespace {

// The tokens of a rule, read from left to right.
class RuleTokens {
public:
    explicit RuleTokens(const std::vector<Token>& tokens) : tokens_(tokens) {}

    const std::string& At(std::size_t ahead = 0) const {
        static const std::string none;
        return at_ + ahead < tokens_.size() ? tokens_[at_ + ahead].text : none;
    }
    const std::string& Before() const {
        static const std::string none;
        return at_ > 0 ? tokens_[at_ - 1].text : none;
    }
    bool End() const { return at_ >= tokens_.size(); }
    bool IsWord() const { return tokens_[at_].kind == Token::Word; }
    bool IsText() const { return tokens_[at_].kind == Token::Text; }
    void Pass(std::size_t count) { at_ += count; }

    // How many tokens from the next one on are these; 0 when they are not.
    std::size_t Are(std::initializer_list<const char*> texts) const {
        std::size_t ahead = 0;
        for (const char* text : texts)
            if (At(ahead++) != text)
                return 0;
        return ahead;
    }

private:
    const std::vector<Token>& tokens_;
    std::size_t at_ = 0;
};

bool IsCertainty(const std::string& word) {
    return IsOneOf(word, {"NULL", "VERYLOW", "LOW", "NOTVERYLOW", "NORMAL", "NOTVERYHIGH", "HIGH",
                          "VERYHIGH", "FULL"});
}

// deduce(&R); deduce(&R, HIGH); retract(&R); How many tokens; 0 when it is something else.
std::size_t ConclusionAt(const RuleTokens& words) {
    if (!IsOneOf(words.At(), {"deduce", "retract"}) || words.At(1) != "(" || words.At(2) != "&")
        return 0;
    if (words.At(4) == ")" && words.At(5) == ";")
        return 6;
    const bool certain = words.At() == "deduce" && words.At(4) == "," && IsCertainty(words.At(5));
    return certain && words.At(6) == ")" && words.At(7) == ";" ? 8 : 0;
}

// What is asked of the fact at hand; 0 when it is something else.
std::size_t QuestionAt(const RuleTokens& words) {
    if (words.At(1) != ".")
        return 0;
    if (IsOneOf(words.At(2), {"value", "certainty", "known", "level", "outside"}))
        return words.At(3) == "(" && words.At(4) == ")" ? 5 : 0;
    return words.At(2) == "fact_value" && words.At(3) == "." ? 5 : 0;
}

bool IsHarmless(const RuleTokens& words) {
    const std::string& text = words.At();
    if (words.IsText())
        return text[0] == '"';
    if (words.IsWord())
        return (text[0] >= '0' && text[0] <= '9') || IsCertainty(text) ||
               IsOneOf(text, {"If", "IfOr", "IfXor", "Then", "Else", "EndIf", "EndIfOr", "EndIfXor",
                              "EndRule", "true", "false"});
    if (text == "=")
        return words.At(1) == "=" || IsOneOf(words.Before(), {"=", "<", ">", "!"});
    return IsOneOf(text, {"<", ">", "!", "(", ")", ",", "+", "-", "*", "/", ".", "&", "|", ";"});
}

// The macros of a source that stand for more than a word or a number.
std::unordered_set<std::string> LongMacros(const std::string& source) {
    std::unordered_set<std::string> names;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        if (line.find('#') == std::string::npos)
            continue;
        const std::vector<Token> tokens = SolidTokens(line);
        if (tokens.size() > 4 && tokens[0].text == "#" && tokens[1].text == "define")
            names.insert(tokens[2].text);
    }
    return names;
}

} // namespace

bool QuietRules::IsCalm(const std::string& text) const {
    const std::vector<Token> tokens = SolidTokens(text);
    for (std::size_t at = 0; at < tokens.size(); ++at)
        if (IsOneOf(tokens[at].text, {"for", "while", "do", "goto", "ForAll", "#"}) ||
            BeginsLambda(tokens, at) || long_macros_.count(tokens[at].text) != 0)
            return false;
    return true;
}

QuietRules::QuietRules(const std::string& source, const std::string& main,
                       const std::vector<std::string>& results)
    : results_(results.begin(), results.end()), long_macros_(LongMacros(source)) {
    calm_ = IsCalm(main);
    std::set<std::string> engines;
    const std::vector<Token> of_main = SolidTokens(main);
    std::size_t calls = 0;
    for (std::size_t at = 0; at < of_main.size(); ++at) {
        const std::string& text = of_main[at].text;
        if (text == "engine") {
            ++calls;
            calm_ = calm_ && at > 1 && of_main[at - 1].text == "." &&
                    engines.insert(of_main[at - 2].text).second;
        }
    }
    const std::vector<Token> tokens = SolidTokens(source);
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const std::string& text = tokens[at].text;
        if (text == "engine") {
            calm_ = calm_ && calls > 0;
            calls -= calls > 0;
        }
        calm_ = calm_ && text != "settle";
        if (tokens[at].kind != Token::Word || results_.count(text) == 0)
            continue;
        const bool asked = at + 2 < tokens.size() && tokens[at + 1].text == "." &&
                           IsOneOf(tokens[at + 2].text, {"holds", "certainty"});
        touched_[text] += !asked;
    }
}

bool QuietRules::IsQuiet(const std::string& rule, const std::set<std::string>& facts,
                         const ExternCode& code, std::set<std::string>& read_facts,
                         std::set<std::string>& read_results) const {
    if (!calm_)
        return false;
    const std::vector<Token> tokens = SolidTokens(rule);
    std::map<std::string, int> touched;
    RuleTokens words(tokens);
    words.Pass(2); // Rule and its number
    while (!words.End()) {
        const std::string& text = words.At();
        if (code.macros.count(text) != 0)
            return false;
        if (const std::size_t conclusion = ConclusionAt(words)) {
            const std::string& result = words.At(3);
            if (results_.count(result) == 0 || facts.count(result) != 0)
                return false;
            ++touched[result];
            words.Pass(conclusion);
        } else if (words.IsWord() && facts.count(text) != 0) {
            const std::size_t question = QuestionAt(words);
            if (question == 0)
                return false;
            read_facts.insert(text);
            words.Pass(question);
        } else if (words.IsWord() && results_.count(text) != 0) {
            if (words.At(1) != "." || !IsOneOf(words.At(2), {"holds", "certainty"}) ||
                words.At(3) != "(" || words.At(4) != ")")
                return false;
            read_results.insert(text);
            words.Pass(5);
        } else if (IsHarmless(words))
            words.Pass(1);
        else
            return false;
    }
    return std::all_of(touched.begin(), touched.end(), [&](const auto& each) {
        const auto all = touched_.find(each.first);
        return all != touched_.end() && all->second == each.second;
    });
}

} // namespace morv
