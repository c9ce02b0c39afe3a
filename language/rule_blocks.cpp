#include "language/rule_blocks.h"

#include "language/rule_marks.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace morv {

namespace {

struct IfWord {
    const char* word;
    const char* end;
};

constexpr IfWord kIfWords[] = {
    {"If", "EndIf"}, {"IfOr", "EndIfOr"}, {"IfXor", "EndIfXor"}, {"IfAny", "EndIfAny"}};

const IfWord* IfWordOf(const std::string& word) {
    const auto found = std::find_if(std::begin(kIfWords), std::end(kIfWords),
                                    [&](const IfWord& known) { return word == known.word; });
    return found == std::end(kIfWords) ? nullptr : found;
}

bool IsEndOfIf(const std::string& word) {
    return std::any_of(std::begin(kIfWords), std::end(kIfWords),
                       [&](const IfWord& known) { return word == known.end; });
}

// One of the expressions in the brackets of a block.
struct Expression {
    std::string code;  // as it stands
    std::string plain; // without comments
};

// The text of a comment without its marks.
std::string CommentText(const std::string& comment) {
    const bool block = comment.compare(0, 2, "/*") == 0;
    std::string text = comment.substr(2);
    if (block && text.size() >= 2 && text.compare(text.size() - 2, 2, "*/") == 0)
        text.resize(text.size() - 2);
    std::string words;
    for (const char c : text)
        if (!std::isspace(static_cast<unsigned char>(c)))
            words += c;
        else if (!words.empty() && words.back() != ' ')
            words += ' ';
    while (!words.empty() && words.back() == ' ')
        words.pop_back();
    return words;
}

class Blocks {
public:
    Blocks(const std::string& text, int line, const std::string& system,
           std::vector<Complaint>& complaints, bool poked)
        : tokens_(Tokens(text)), walk_(tokens_), marks_(MarksAround(tokens_, poked)),
          first_line_(line), system_(system), complaints_(complaints) {
        Next(false);
    }

    std::vector<Part> All() {
        while (at_ < tokens_.size())
            One();
        for (const Open& open : open_)
            ComplainAt(open.line, open.word + " without " + open.end);
        if (parts_.back().text.empty() && !parts_.back().rule)
            parts_.pop_back();
        return std::move(parts_);
    }

private:
    enum Stage { Body, Asking, Holding, Failing };
    struct Open {
        std::string word, end;
        Stage stage;
        int line;
        int condition; // of an If
    };

    int Line() const {
        return tokens_.empty() ? first_line_
                               : first_line_ - 1 + tokens_[std::min(at_, tokens_.size() - 1)].line;
    }

    void Complain(const std::string& text) { ComplainAt(Line(), text); }

    // Says it with the rule, when there is one.
    void ComplainAt(int line, const std::string& text) {
        const Part& part = parts_.back();
        const bool within = part.rule && !part.number.empty() && line >= part.line;
        complaints_.push_back(
            {line,
             (within ? RulePlace(system_, part.number, line - part.line + 1) + ": " : "") + text});
    }

    // Begins a new part.
    void Next(bool rule) {
        if (!parts_.empty() && parts_.back().text.empty())
            parts_.pop_back();
        if (!parts_.empty() && !parts_.back().rule)
            between_ += static_cast<int>(parts_.back().conditions.size());
        parts_.emplace_back();
        parts_.back().rule = rule;
        parts_.back().line = Line();
        parts_.back().first_condition = rule ? 0 : between_;
    }

    void Out(const std::string& code) { parts_.back().code += code; }

    // Passes the next token by; what becomes of it goes to the code.
    void Pass(const std::string& code) {
        Out(code);
        parts_.back().text += tokens_[at_++].text;
    }

    // The next token with what is put around it.
    std::string Marked() const {
        return marks_.before[at_] + tokens_[at_].text + marks_.after[at_];
    }

    void Copy() {
        const std::string code = Marked();
        Part& part = parts_.back();
        if (part.rule && part.title.empty() && tokens_[at_].kind == Token::Comment)
            part.title = CommentText(tokens_[at_].text);
        Pass(code);
    }

    void One() {
        const Token& token = tokens_[at_];
        if (token.kind != Token::Word)
            return Copy();
        const std::string& word = token.text;
        if (word == "Rule")
            StartRule();
        else if (word == "ForAll")
            StartForAll();
        else if (const IfWord* known = IfWordOf(word))
            StartIf(*known);
        else if (word == "Then" || word == "Else" || word == "Otherwise")
            StartBranch(word);
        else if (word == "EndRule" || word == "EndForAll" || IsEndOfIf(word))
            End(word);
        else
            Statement(word);
    }

    // Passes blanks and comments on.
    void SkipBlanks() {
        while (at_ < tokens_.size() && !IsSolid(tokens_[at_]))
            Copy();
    }

    void Begin(const std::string& word, const std::string& end, Stage stage) {
        if (!open_.empty() && open_.back().stage == Asking)
            Complain(word + " before the Then of " + open_.back().word);
        open_.push_back({word, end, stage, Line(), -1});
    }

    void StartRule() {
        if (!open_.empty())
            Complain("Rule inside " + open_.back().word);
        else
            Next(true);
        Begin("Rule", "EndRule", Body);
        Pass("");
        // The number stays on its line; it is all that stands there.
        SkipBlanks();
        if (at_ < tokens_.size() && IsNumber(tokens_[at_].text)) {
            if (parts_.back().number.empty())
                parts_.back().number = tokens_[at_].text;
            Pass("");
        } else
            ComplainAt(open_.back().line, "Rule without its number");
    }

    void StartForAll() {
        Begin("ForAll", "EndForAll", Body);
        Pass("");
        const std::vector<Expression> types = Brackets("ForAll", 1, 1);
        if (!types.empty())
            Out("for (DATAFACT* PF : morv::FactsOf(morv_rule, " + types[0].code +
                ")) { const morv::Each morv_each(PF);");
    }

    // The condition around the next block, and in which of its branches it stands.
    std::pair<int, bool> Around() const {
        for (auto open = open_.rbegin(); open != open_.rend(); ++open)
            if (open->condition >= 0)
                return {open->condition, open->stage == Failing};
        return {-1, false};
    }

    void StartIf(const IfWord& known) {
        const std::string word = known.word;
        const auto [outer, otherwise] = Around();
        Begin(word, known.end, Asking);
        Pass("");
        const bool any = word == "IfAny";
        const std::size_t least = any ? 2 : 1;
        const std::size_t most = any ? 2 : word == "If" ? 1 : ~std::size_t{0};
        const std::vector<Expression> parts = Brackets(word, least, most);
        if (parts.empty())
            return;
        std::vector<ConditionText>& conditions = parts_.back().conditions;
        open_.back().condition =
            parts_.back().first_condition + static_cast<int>(conditions.size());
        const std::string site = "morv_site[" + std::to_string(open_.back().condition) + "]";
        std::string text;
        for (const Expression& part : parts)
            text += (text.empty() ? "" : ", ") + part.plain;
        conditions.push_back({word, text, outer, otherwise});
        if (word == "If")
            Out("{ const morv::Condition morv_if(" + site + ", " + Value(parts[0]) + ");");
        else if (any)
            Out("{ DATAFACT* PF = morv::NoFact(); morv::Condition morv_if(" + site +
                "); for (morv::Any morv_any(morv_if, PF, morv::FactsOf(morv_rule, " +
                parts[0].code + ")); morv_any.Next(); ) morv_if.Take(" + Quoted(parts[1].plain) +
                ", " + Value(parts[1]) + ");");
        else {
            Out("{ morv::Condition morv_if(" + site + ");");
            for (const Expression& part : parts)
                Out(" morv_if.Take(" + Quoted(part.plain) + ", " + Value(part) + ");");
        }
    }

    // What an expression is while its reading is watched.
    static std::string Value(const Expression& part) {
        return "(morv::Read(), static_cast<bool>(" + part.code + "))";
    }

    // Reads the bracketed expressions after a word. Returns none, after a complaint, when there are
    // fewer than `least` or more than `most`.
    std::vector<Expression> Brackets(const std::string& word, std::size_t least, std::size_t most) {
        SkipBlanks();
        if (at_ == tokens_.size() || tokens_[at_].text != "(") {
            Complain(word + " without its brackets");
            return {};
        }
        const int line = Line();
        std::vector<Expression> parts(1);
        int depth = 0;
        for (; at_ < tokens_.size(); ++at_) {
            const Token& token = tokens_[at_];
            parts_.back().text += token.text;
            const bool opens = token.text == "(" || token.text == "[" || token.text == "{";
            const bool closes = token.text == ")" || token.text == "]" || token.text == "}";
            depth += opens ? 1 : closes ? -1 : 0;
            if (depth == 0) {
                ++at_;
                return Checked(word, std::move(parts), least, most, line);
            }
            if (opens && depth == 1)
                continue;
            if (token.text == "," && depth == 1) {
                parts.emplace_back();
                continue;
            }
            parts.back().code += Marked();
            parts.back().plain += token.kind == Token::Comment ? " " : token.text;
        }
        ComplainAt(line, word + " whose bracket is not closed");
        return {};
    }

    std::vector<Expression> Checked(const std::string& word, std::vector<Expression> parts,
                                    std::size_t least, std::size_t most, int line) {
        if (parts.size() < least || parts.size() > most) {
            ComplainAt(line, word + " with " + std::to_string(parts.size()) + " expressions");
            return {};
        }
        for (const Expression& part : parts)
            if (part.plain.find_first_not_of(" \t\r\n") == std::string::npos) {
                ComplainAt(line, word + " with an empty expression");
                return {};
            }
        return parts;
    }

    void StartBranch(const std::string& word) {
        const bool then = word == "Then";
        std::string code;
        if (open_.empty() || open_.back().stage != (then ? Asking : Holding)) {
            Complain(word + (then ? " without an If" : " without Then"));
        } else if (then) {
            open_.back().stage = Holding;
            code = std::string(open_.back().word == "If" ? "" : "morv_if.Decide(); ") +
                   "if (morv_if.Holds()) { const morv::Branch morv_branch(morv_if, \"Then\");";
        } else {
            open_.back().stage = Failing;
            code = "} else if (morv_if.Fails()) { const morv::Branch morv_branch(morv_if, " +
                   Quoted(word) + ");";
        }
        Pass(code);
    }

    void End(const std::string& word) {
        std::string code;
        bool rule = false;
        if (open_.empty() || open_.back().end != word) {
            Complain(word + (open_.empty() ? " without its beginning"
                                           : " where " + open_.back().end + " is due"));
        } else if (open_.back().stage == Asking) {
            Complain(open_.back().word + " without Then");
            open_.pop_back();
        } else {
            rule = open_.size() == 1 && word == "EndRule";
            code = rule ? "" : open_.back().stage == Body ? "}" : "} }";
            open_.pop_back();
        }
        Pass(code);
        if (rule)
            Next(false);
    }

    void Conclude(const std::string& name) {
        const auto [outer, otherwise] = Around();
        parts_.back().conclusions.push_back({name, outer, otherwise});
    }

    // A word of C++.
    void Statement(const std::string& word) {
        const std::size_t next = walk_.Next(at_);
        if (word == "deduce" && walk_.Is(next, "(") && walk_.Is(walk_.Next(next), "&")) {
            const std::size_t name = walk_.Next(walk_.Next(next));
            if (name < tokens_.size())
                Conclude(tokens_[name].text);
        } else if (word == "assign" && walk_.MemberMark(at_) < tokens_.size()) {
            const std::size_t name = walk_.Previous(walk_.MemberMark(at_));
            if (name < tokens_.size() && tokens_[name].kind == Token::Word)
                Conclude(tokens_[name].text);
        }
        Copy();
    }

    std::vector<Token> tokens_;
    TokenWalk walk_;
    Marks marks_;
    int first_line_;
    std::string system_;
    std::vector<Complaint>& complaints_;
    std::size_t at_ = 0;
    std::vector<Open> open_;
    std::vector<Part> parts_;
    int between_ = 0; // conditions outside of rules so far
};

} // namespace

std::vector<Part> TranslateBlocks(const std::string& text, int line, const std::string& system,
                                  std::vector<Complaint>& complaints, bool poked) {
    return Blocks(text, line, system, complaints, poked).All();
}

std::string RulePlace(const std::string& system, const std::string& rule, int line) {
    return system + ", rule " + rule + ", line " + std::to_string(line);
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            if (quoted.back() != ' ' && quoted.size() > 1)
                quoted += ' ';
            continue;
        }
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    if (quoted.back() == ' ')
        quoted.pop_back();
    return quoted + '"';
}

} // namespace morv
