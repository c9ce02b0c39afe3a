#include "console/form/code_page.h"
#include "console/warnings.h"

#include "build/core/rule_scanner.h"
#include "build/core/rule_structure.h"
#include "language/tokens.h"
#include "shell/core/paths.h"
#include "system/core/rule_text.h"

#include <map>

namespace console {

namespace {

Finding Warning(const std::string& file, const char* id, std::string text) {
    Finding finding;
    finding.file = file;
    finding.warning = true;
    finding.id = id;
    finding.text = std::move(text);
    return finding;
}

class FileCheck {
public:
    explicit FileCheck(const LoadedProject& project) : project_(project) {}

    std::vector<Finding> Run() {
        MissingOf(project_);
        SystemNames();
        for (const LoadedSystem& system : project_.systems) {
            MissingOf(system);
            if (system.rules.found)
                Rules(system);
        }
        return std::move(findings_);
    }

private:
    void Missing(const std::string& named_in, const NamedFile& file) {
        if (file.Missing())
            findings_.push_back(Warning(named_in, "missing-file", "no such file: " + file.path));
    }

    void MissingOf(const LoadedProject& project) {
        for (const NamedFile* file : {&project.main, &project.dde, &project.chosen})
            Missing(project.path, *file);
        for (const NamedFile& file : project.externs)
            Missing(project.path, file);
        for (const NamedFile& file : project.results)
            Missing(project.path, file);
    }

    void MissingOf(const LoadedSystem& system) {
        for (const NamedFile* file : {&system.types, &system.rules, &system.index, &system.header,
                                      &system.variables, &system.initial, &system.base})
            Missing(system.path, *file);
    }

    // The generated program names its engines after the systems' files, whatever their folder.
    void SystemNames() {
        std::map<std::string, std::string> first;
        for (const LoadedSystem& system : project_.systems) {
            const auto [other, is_new] = first.try_emplace(Folded(Stem(system.path)), system.path);
            if (!is_new)
                findings_.push_back(
                    Warning(project_.path, "same-system-name",
                            "two systems of one name: " + other->second + " and " + system.path));
        }
    }

    void Rules(const LoadedSystem& system) {
        const std::vector<RuleIndexRecord> index = RecordsIn<RuleIndexRecord>(system.index.bytes);
        const RuleSpans spans(index);
        const Lines lines(system.rules.bytes);
        Numbers(system, spans, lines);
        if (system.index.found)
            Index(system, index, spans);
        else if (system.index.path.empty())
            findings_.push_back(Warning(system.path, "index-mismatch",
                                        "the rules have no index, so that Debug checks none: save "
                                        "them in the rule editor"));
        Keywords(system, spans, lines);
    }

    // The number of each rule, where its text has one.
    void Numbers(const LoadedSystem& system, const RuleSpans& spans, const Lines& lines) {
        const std::string_view text = system.rules.bytes;
        std::size_t begin = 0;
        int place = 0;
        for (const std::size_t end : spans.Ends()) {
            ++place;
            const std::string_view word = "Rule ";
            if (begin < text.size() && text.substr(begin).starts_with(word)) {
                const std::size_t digits = begin + word.size();
                const std::size_t after = text.find_first_not_of("0123456789", digits);
                const std::string number(
                    text.substr(digits, std::min(after, text.size()) - digits));
                if (number != std::to_string(place)) {
                    Finding finding = Warning(system.rules.path, "rule-number",
                                              "the rule has the number \"" + number +
                                                  "\", not that of its place");
                    finding.rule = place;
                    lines.Locate(begin, finding);
                    findings_.push_back(std::move(finding));
                }
            }
            begin = end;
        }
    }

    // An index fits when every record takes one rule, and together they take all.
    void Index(const LoadedSystem& system, const std::vector<RuleIndexRecord>& index,
               const RuleSpans& spans) {
        const std::string_view text = system.rules.bytes;
        const RenumberedRules sound = Renumber(text);
        const bool is_sound = sound.text == text;
        bool fits = index.size() == sound.sizes.size();
        std::size_t begin = 0;
        for (std::size_t i = 0; fits && i < index.size(); ++i) {
            const std::int32_t size = index[i].size;
            fits = is_sound ? size == sound.sizes[i]
                            : begin < text.size() && text.substr(begin).starts_with("Rule");
            begin = spans.Ends()[i];
        }
        if (!fits || begin > text.size())
            findings_.push_back(Warning(system.index.path, "index-mismatch",
                                        "the index does not fit the rules: save them in the "
                                        "rule editor"));
    }

    // The sums of the check count block words in comments and texts as well.
    void Keywords(const LoadedSystem& system, const RuleSpans& spans, const Lines& lines) {
        std::size_t offset = 0;
        for (const morv::Token& token : morv::Tokens(system.rules.bytes)) {
            if (token.kind == morv::Token::Comment || token.kind == morv::Token::Text)
                KeywordsIn(token, offset, system, spans, lines);
            offset += token.text.size();
        }
    }

    void KeywordsIn(const morv::Token& token, std::size_t offset, const LoadedSystem& system,
                    const RuleSpans& spans, const Lines& lines) {
        const bool comment = token.kind == morv::Token::Comment;
        const char* const end = token.text.data() + token.text.size();
        WordScanner scanner;
        WordCounts counts{};
        WordScanner::Stop stop = scanner.Next(token.text.data(), end);
        while (stop.at != end) {
            const char* const next = stop.at + 1;
            const int code = ObsInst(stop.words, counts, next != end ? *next : -1);
            if (code != kNoInstruction && (code < kBlockBegin || code == kOtherwise)) {
                const std::string word(WordText(static_cast<RuleWord>(code)));
                Finding finding =
                    Warning(system.rules.path, comment ? "word-in-comment" : "word-in-text",
                            "\"" + word + "\" in a " + (comment ? "comment" : "text") +
                                " counts in the sums of Debug");
                const auto at = static_cast<std::size_t>(next - token.text.data()) - word.size();
                finding.rule = spans.RuleAt(offset + at);
                lines.Locate(offset + at, finding);
                findings_.push_back(std::move(finding));
            }
            stop = scanner.Next(next, end);
        }
    }

    const LoadedProject& project_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> FileWarnings(const LoadedProject& project) {
    return FileCheck(project).Run();
}

RuleSpans::RuleSpans(const std::vector<RuleIndexRecord>& index) {
    std::size_t end = 0;
    for (const RuleIndexRecord& record : index) {
        end += record.size > 0 ? static_cast<std::size_t>(record.size) : 0;
        ends_.push_back(end);
    }
}

int RuleSpans::RuleAt(std::size_t offset) const {
    const auto after = std::upper_bound(ends_.begin(), ends_.end(), offset);
    return after == ends_.end() ? 0 : static_cast<int>(after - ends_.begin()) + 1;
}

} // namespace console
