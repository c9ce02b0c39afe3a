#include "language/rule_marks.h"

#include "language/rule_blocks.h"

#include <utility>

namespace morv {

std::size_t TokenWalk::Next(std::size_t at) const {
    while (++at < tokens_.size())
        if (IsSolid(tokens_[at]))
            return at;
    return None();
}

std::size_t TokenWalk::Previous(std::size_t at) const {
    while (at < tokens_.size() && at > 0)
        if (IsSolid(tokens_[--at]))
            return at;
    return None();
}

bool TokenWalk::Is(std::size_t at, const char* text) const {
    return at < tokens_.size() && tokens_[at].text == text;
}

std::size_t TokenWalk::MemberMark(std::size_t at) const {
    const std::size_t mark = Previous(at);
    if (Is(mark, "."))
        return mark;
    return Is(mark, ">") && mark > 0 && Is(mark - 1, "-") ? mark - 1 : None();
}

namespace {

class Marking {
public:
    explicit Marking(const std::vector<Token>& tokens)
        : tokens_(tokens), walk_(tokens), marks_{std::vector<std::string>(tokens.size()),
                                                 std::vector<std::string>(tokens.size())} {}

    void Assignments() {
        bool in_rule = false;
        for (std::size_t at = 0; at < tokens_.size(); ++at) {
            if (tokens_[at].kind != Token::Word)
                continue;
            in_rule = walk_.Is(at, "Rule") || (in_rule && !walk_.Is(at, "EndRule"));
            if (!in_rule || !walk_.Is(at, "assign") || !walk_.Is(walk_.Next(at), "("))
                continue;
            const std::size_t last = walk_.Previous(walk_.MemberMark(at));
            const std::size_t start = last < walk_.None() ? ObjectStart(last) : walk_.None();
            if (start == walk_.None())
                continue;
            marks_.before[start].insert(0, "morv::Computed(");
            marks_.after[last] += ")";
        }
    }

    void Poked() {
        for (std::size_t at = 0; at < tokens_.size(); ++at) {
            const std::size_t open = walk_.Next(at), item = walk_.Next(open);
            if (!walk_.Is(at, "Poked") || !walk_.Is(open, "(") ||
                !walk_.Is(walk_.Next(item), ")") || tokens_[item].kind != Token::Word ||
                walk_.MemberMark(at) < walk_.None())
                continue;
            marks_.before[at] += "morv::";
            marks_.before[item] += "(static_cast<void>(DDEinfo.";
            marks_.after[item] += "), " + Quoted(tokens_[item].text) + ")";
        }
    }

    Marks Done() { return std::move(marks_); }

private:
    // Where the bracket that closes at `at` opens.
    std::size_t Opening(std::size_t at) const {
        int depth = 0;
        for (; at < tokens_.size(); --at) { // below 0 is beyond the size
            const std::string& text = tokens_[at].text;
            if (text == ")" || text == "]")
                ++depth;
            else if ((text == "(" || text == "[") && --depth == 0)
                return at;
            else if (IsOneOf(text, {";", "{", "}"}))
                break;
        }
        return walk_.None();
    }

    // Whether the word at `at` may name an object or a function.
    bool IsObjectName(std::size_t at) const {
        if (at >= tokens_.size() || tokens_[at].kind != Token::Word)
            return false;
        const std::string& word = tokens_[at].text;
        return (word[0] < '0' || word[0] > '9') &&
               !IsOneOf(word, {"if", "while", "for", "switch", "return", "sizeof", "else", "case",
                               "do", "throw", "Rule", "Then", "Else", "Otherwise", "EndIf",
                               "EndIfOr", "EndIfXor", "EndIfAny", "EndForAll"});
    }

    // Where the expression whose last token is at `last` begins: names, calls and what stands in
    // brackets, joined by ".", "->" and "::". None when that is not sure.
    std::size_t ObjectStart(std::size_t last) const {
        const std::size_t none = walk_.None();
        std::size_t start = none;
        for (std::size_t at = last;;) {
            while (walk_.Is(at, ")") || walk_.Is(at, "]")) {
                at = start = Opening(at);
                if (at == none)
                    return none;
                const std::size_t before = walk_.Previous(at);
                const bool joined =
                    IsObjectName(before) || walk_.Is(before, "]") ||
                    (walk_.Is(before, ")") && IsObjectName(walk_.Previous(Opening(before))));
                if (!joined)
                    break;
                at = before;
            }
            if (at < none && tokens_[at].kind == Token::Word) {
                if (!IsObjectName(at))
                    return start;
                start = at;
            } else if (start == none)
                return none;
            const std::size_t mark = walk_.Previous(at);
            if (walk_.Is(mark, ":") && mark > 0 && walk_.Is(mark - 1, ":")) {
                const std::size_t scope = walk_.Previous(mark - 1);
                if (scope == none || tokens_[scope].kind != Token::Word)
                    return walk_.Is(scope, ">") ? none : mark - 1;
                at = scope;
                continue;
            }
            const std::size_t member = walk_.MemberMark(at);
            if (member == none)
                return walk_.Is(mark, ">") ? none : start;
            at = walk_.Previous(member);
            if (at == none)
                return none;
        }
    }

    const std::vector<Token>& tokens_;
    TokenWalk walk_;
    Marks marks_;
};

} // namespace

Marks MarksAround(const std::vector<Token>& tokens, bool poked) {
    Marking marking(tokens);
    marking.Assignments();
    if (poked)
        marking.Poked();
    return marking.Done();
}

} // namespace morv
