#include "system/core/rule_text.h"

#include "shell/core/file_helpers.h"
#include "system/core/rule_index.h"

#include <algorithm>

namespace {

constexpr std::string_view kRule = "Rule";
constexpr std::string_view kEndRule = "EndRule";
constexpr std::string_view kLineEnd = "\r\n";

// One walk over a text. What is finished stands in `out_`; `at_` is the first character of the
// text that is not yet taken over. A search for the next word starts at `scan_`, a place in `out_`:
// only a line end, or a blank and a number, may stand behind it, and no word begins in those.
class Renumbering {
public:
    explicit Renumbering(std::string_view text) : text_(text), next_end_(FindStr(kEndRule, text)) {
        out_.reserve(text.size() + text.size() / 8);
    }

    RenumberedRules Run() {
        for (std::ptrdiff_t r = NextRule(); r != -1; r = NextRule()) {
            const std::ptrdiff_t e = NextEnd();
            const std::size_t start = e != -1 && e < r ? StrayEnd(e) : Rule(r, e);
            AddSize(start);
        }
        CopyTo(std::ssize(text_));
        result_.text = std::move(out_);
        return std::move(result_);
    }

private:
    // The first "Rule" from `at_` on, or -1.
    std::ptrdiff_t NextRule() const { return FindStr(kRule, text_, at_); }

    // The first "EndRule" from `at_` on, or -1. The one found last is kept until `at_` has passed
    // it, or every rule would search for a far one again. A new search would not find another: it
    // never starts inside a half match.
    std::ptrdiff_t NextEnd() {
        if (next_end_ != -1 && next_end_ < at_)
            next_end_ = FindStr(kEndRule, text_, at_);
        return next_end_;
    }

    int Number() const { return static_cast<int>(result_.sizes.size()) + 1; }

    void CopyTo(std::ptrdiff_t end) {
        out_ += text_.substr(static_cast<std::size_t>(at_), static_cast<std::size_t>(end - at_));
        at_ = end;
    }

    void CopyThroughEndRule(std::ptrdiff_t e) {
        CopyTo(e + std::ssize(kEndRule));
        scan_ = out_.size();
    }

    // The rule whose "Rule" is at `r`, with `e` the next "EndRule" or -1.
    std::size_t Rule(std::ptrdiff_t r, std::ptrdiff_t e) {
        CopyTo(r + std::ssize(kRule));
        const std::size_t start = out_.size() - kRule.size();
        const std::ptrdiff_t q = NextRule();
        const bool open = e == -1 || (q != -1 && q < e);
        if (!open) {
            PutNumber(e);
            CopyThroughEndRule(e);
        } else {
            const std::ptrdiff_t end = q == -1 ? std::ssize(text_) : q;
            PutNumber(end);
            CopyTo(end);
            PutEnd();
        }
        return start;
    }

    // Closes the rule at the end of `out_`.
    void PutEnd() {
        out_ += kEndRule;
        const std::size_t end = out_.size();
        const bool seen = FindStr(kEndRule, out_, static_cast<std::ptrdiff_t>(scan_)) != -1;
        out_ += kLineEnd;
        // Where the text before it ends with the beginning of the word, as with "E", a search
        // misses the new "EndRule". Then the rule reaches to the next one that is found; if there
        // is none, the walk goes on behind the new one.
        const std::ptrdiff_t e = seen ? -1 : NextEnd();
        if (e == -1)
            scan_ = end;
        else
            CopyThroughEndRule(e);
    }

    // An "EndRule" at `e` that no "Rule" stands before.
    std::size_t StrayEnd(std::ptrdiff_t e) {
        CopyTo(e);
        InsText(out_, kRule, out_.size(), 1);
        const std::ptrdiff_t r = FindStr(kRule, out_, static_cast<std::ptrdiff_t>(scan_));
        CopyThroughEndRule(e);
        if (r != -1) {
            out_.replace(static_cast<std::size_t>(r), kRule.size(), RuleName(Number()));
            result_.numbers_changed = true;
            scan_ = out_.size();
            return static_cast<std::size_t>(r);
        }
        // Where the text before it ends with the beginning of the word, as with "R", a search
        // misses the new "Rule": the one in "EndRule" is taken for it.
        const std::size_t start = out_.size() - kRule.size();
        PutNumber(std::ssize(text_));
        return start;
    }

    // Puts the blank and the number at the end of `out_` and skips those of the text, which has no
    // more of them at `end`.
    void PutNumber(std::ptrdiff_t end) {
        const std::string number = std::to_string(Number());
        out_ += ' ';
        if (at_ < end && text_[static_cast<std::size_t>(at_)] == ' ')
            ++at_;
        const std::ptrdiff_t digits = at_;
        while (at_ < end && IsDigit(text_[static_cast<std::size_t>(at_)]))
            ++at_;
        const std::string_view old =
            text_.substr(static_cast<std::size_t>(digits), static_cast<std::size_t>(at_ - digits));
        result_.numbers_changed = result_.numbers_changed || old != number;
        out_ += number;
    }

    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

    void AddSize(std::size_t start) {
        const std::ptrdiff_t q = NextRule();
        const std::size_t next = q == -1 ? scan_ : out_.size() + static_cast<std::size_t>(q - at_);
        result_.sizes.push_back(static_cast<std::int32_t>(next - start));
    }

    std::string_view text_;
    std::ptrdiff_t next_end_;
    std::string out_;
    std::ptrdiff_t at_ = 0;
    std::size_t scan_ = 0;
    RenumberedRules result_;
};

} // namespace

std::string RuleName(int number) {
    return "Rule " + std::to_string(number);
}

RenumberedRules Renumber(std::string_view text) {
    return Renumbering(text).Run();
}

std::string IndexBytes(const std::vector<std::int32_t>& sizes) {
    std::vector<RuleIndexRecord> records(sizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        records[i].size = sizes[i];
        SetText(records[i].name, RuleName(static_cast<int>(i) + 1));
    }
    return std::string(BytesOf(records));
}

IndexedRules FirstRules(std::string_view index) {
    IndexedRules rules;
    // The first record is listed in any case: what is missing of it counts as zeros.
    std::string bytes(index);
    bytes.resize(std::max(bytes.size(), sizeof(RuleIndexRecord)));
    for (const RuleIndexRecord& record : RecordsIn<RuleIndexRecord>(bytes)) {
        if (rules.count == 0 || record.bor == 0)
            rules.names.push_back(Text(record.name));
        ++rules.count;
    }
    return rules;
}

IndexedRules AllRules(std::string_view index) {
    IndexedRules rules;
    for (const RuleIndexRecord& record : RecordsIn<RuleIndexRecord>(index))
        rules.names.push_back(Text(record.name));
    rules.count = static_cast<int>(rules.names.size());
    return rules;
}

void InsText(std::string& text, std::string_view string, std::size_t position, int ret) {
    std::string inserted(string);
    if (ret == 1)
        inserted += kLineEnd;
    text.insert(position, inserted);
}

std::optional<RuleSpan> FindRule(std::string_view text, int row) {
    if (row < 0)
        return std::nullopt;
    std::ptrdiff_t p = 0;
    for (int count = 0;; ++count) {
        const std::ptrdiff_t r = FindStr(kRule, text, p);
        const std::ptrdiff_t e = r == -1 ? -1 : FindStr(kEndRule, text, p);
        if (e == -1)
            return std::nullopt;
        if (count == row)
            return RuleSpan{static_cast<std::size_t>(r), static_cast<std::size_t>(e + 9)};
        p = e + 6;
    }
}

void CutRule(std::string& text, int row) {
    const std::optional<RuleSpan> rule = FindRule(text, row);
    if (rule && rule->end <= text.size())
        text.erase(rule->begin, rule->end - rule->begin);
}

std::string RuleBytes(std::string_view text, int row) {
    const std::optional<RuleSpan> rule = FindRule(text, row);
    return rule ? std::string(text.substr(rule->begin, rule->end - rule->begin)) : std::string();
}

std::string WithRule(std::string_view file, std::string_view rule) {
    const std::size_t kept = file.empty() ? 0 : file.size() - 1;
    std::string whole(file.substr(0, kept));
    whole += rule;
    whole += file.substr(kept);
    return whole;
}
