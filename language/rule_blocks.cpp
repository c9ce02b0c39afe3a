#include "language/rule_blocks.h"

#include <algorithm>

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

bool IsNumber(const std::string& word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
}

// One of the expressions in the brackets of a block.
struct Expression {
    std::string code;  // as it stands
    std::string plain; // without comments
};

class Blocks {
public:
    Blocks(const std::string& text, int line, std::string system,
           std::vector<Complaint>& complaints)
        : tokens_(Tokens(text)), first_line_(line), system_(std::move(system)),
          complaints_(complaints) {}

    std::string All() {
        while (at_ < tokens_.size())
            One();
        for (const Open& open : open_)
            complaints_.push_back({open.line, open.word + " without " + open.end});
        return std::move(out_);
    }

private:
    enum Stage { Body, Asking, Holding, Failing };
    struct Open {
        std::string word, end;
        Stage stage;
        int line;
    };

    int Line() const { return first_line_ - 1 + tokens_[std::min(at_, tokens_.size() - 1)].line; }
    void Complain(const std::string& text) { complaints_.push_back({Line(), text}); }

    void One() {
        const Token& token = tokens_[at_];
        if (token.kind != Token::Word) {
            out_ += token.text;
            ++at_;
            return;
        }
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
        while (at_ < tokens_.size() &&
               (tokens_[at_].kind == Token::Blank || tokens_[at_].kind == Token::Comment))
            out_ += tokens_[at_++].text;
    }

    void Begin(const std::string& word, const std::string& end, Stage stage) {
        if (!open_.empty() && open_.back().stage == Asking)
            Complain(word + " before the Then of " + open_.back().word);
        open_.push_back({word, end, stage, Line()});
    }

    void StartRule() {
        if (!open_.empty())
            Complain("Rule inside " + open_.back().word);
        Begin("Rule", "EndRule", Body);
        ++at_;
        // The number stays on its line; it is all that stands there.
        SkipBlanks();
        std::string number;
        if (at_ < tokens_.size() && IsNumber(tokens_[at_].text))
            number = tokens_[at_++].text;
        else
            complaints_.push_back({open_.back().line, "Rule without its number"});
        out_ += "{ morv::Rule morv_rule(" + Quoted(system_) + ", " + Quoted(number) + ");";
    }

    void StartForAll() {
        Begin("ForAll", "EndForAll", Body);
        ++at_;
        const std::vector<Expression> types = Brackets("ForAll", 1, 1);
        if (!types.empty())
            out_ +=
                "for (DATAFACT* PF : FactsOf(" + types[0].code + ")) { morv::Each morv_each(PF);";
    }

    void StartIf(const IfWord& known) {
        const std::string word = known.word;
        Begin(word, known.end, Asking);
        ++at_;
        const bool any = word == "IfAny";
        const std::size_t least = any ? 2 : 1;
        const std::size_t most = any ? 2 : word == "If" ? 1 : ~std::size_t{0};
        const std::vector<Expression> parts = Brackets(word, least, most);
        if (parts.empty())
            return;
        out_ += any ? "{ DATAFACT* PF = morv::NoFact(); " : "{ ";
        out_ += "morv::Condition morv_if(morv::Kind::" + word + ");";
        if (any)
            out_ += " morv_if.Any(FactsOf(" + parts[0].code + "), PF, " + Lambda(parts[1]);
        else
            for (const Expression& part : parts)
                out_ += " morv_if.Test(" + Lambda(part);
    }

    static std::string Lambda(const Expression& part) {
        return Quoted(part.plain) + ", [&] { return static_cast<bool>(" + part.code + "); });";
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
            parts.back().code += token.text;
            parts.back().plain += token.kind == Token::Comment ? " " : token.text;
        }
        complaints_.push_back({line, word + " whose bracket is not closed"});
        return {};
    }

    std::vector<Expression> Checked(const std::string& word, std::vector<Expression> parts,
                                    std::size_t least, std::size_t most, int line) {
        if (parts.size() < least || parts.size() > most) {
            complaints_.push_back(
                {line, word + " with " + std::to_string(parts.size()) + " expressions"});
            return {};
        }
        for (const Expression& part : parts)
            if (part.plain.find_first_not_of(" \t\r\n") == std::string::npos) {
                complaints_.push_back({line, word + " with an empty expression"});
                return {};
            }
        return parts;
    }

    void StartBranch(const std::string& word) {
        const bool then = word == "Then";
        if (open_.empty() || open_.back().stage != (then ? Asking : Holding)) {
            Complain(word + (then ? " without an If" : " without Then"));
        } else if (then) {
            open_.back().stage = Holding;
            out_ += "morv_if.Decide(); if (morv_if.Holds()) { morv::Branch morv_branch(morv_if, "
                    "\"Then\");";
        } else {
            open_.back().stage = Failing;
            out_ += "} else if (morv_if.Fails()) { morv::Branch morv_branch(morv_if, " +
                    Quoted(word) + ");";
        }
        ++at_;
    }

    void End(const std::string& word) {
        if (open_.empty() || open_.back().end != word) {
            Complain(word + (open_.empty() ? " without its beginning"
                                           : " where " + open_.back().end + " is due"));
        } else if (open_.back().stage == Asking) {
            Complain(open_.back().word + " without Then");
            open_.pop_back();
        } else {
            out_ += open_.back().stage == Body ? "}" : "} }";
            open_.pop_back();
        }
        ++at_;
    }

    // Whether the word stands behind "." or "->".
    bool IsMember() const {
        std::size_t at = at_;
        while (at > 0 &&
               (tokens_[at - 1].kind == Token::Blank || tokens_[at - 1].kind == Token::Comment))
            --at;
        return at > 0 && (tokens_[at - 1].text == "." ||
                          (at > 1 && tokens_[at - 1].text == ">" && tokens_[at - 2].text == "-"));
    }

    // A word of C++. Inside a rule the value that a fact is assigned rests on what it is computed
    // from.
    void Statement(const std::string& word) {
        out_ += IsMember() && word == "assign" && !open_.empty() ? "computed().assign" : word;
        ++at_;
    }

    std::vector<Token> tokens_;
    int first_line_;
    std::string system_;
    std::vector<Complaint>& complaints_;
    std::size_t at_ = 0;
    std::vector<Open> open_;
    std::string out_;
};

} // namespace

std::string TranslateBlocks(const std::string& text, int line, const std::string& system,
                            std::vector<Complaint>& complaints) {
    return Blocks(text, line, system, complaints).All();
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
