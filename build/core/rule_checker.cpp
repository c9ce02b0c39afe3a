#include "build/core/rule_checker.h"

#include "build/core/project_lists.h"
#include "shell/core/messages.h"
#include "system/core/system_file.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

// How many bytes are checked between two calls of CheckView::Progress.
constexpr std::size_t kPieceSize = 8192;

int Lines(const char* begin, const char* end) {
    return static_cast<int>(std::count(begin, end, '\n'));
}

// The rules of one system, checked one after the other.
class RulesCheck {
public:
    RulesCheck(std::string_view text, Lexical& anul, CheckView& view)
        : text_(text.data()), at_(text.data()), file_end_(text.data() + text.size()), Anul(anul),
          view_(view), structure_([this](RuleError error) { MessageError(error); }) {}

    void CheckRule(const RuleIndexRecord& record);

private:
    void CheckPiece(const char* begin, const char* end);
    void LineFeed(const char* at);
    void DebugError(int code, const char* end);
    void MessageError(RuleError Terr);

    WordScanner scanner_;
    const char* const text_;
    const char* at_;
    const char* const file_end_;
    Lexical& Anul;
    CheckView& view_;
    int NumLin = 0; // runs on through all rules of the system

    int rule_ = -1;
    std::string name_;
    const char* rule_begin_ = nullptr;
    int lines_before_rule_ = 0;
    const char* word_ = nullptr; // what a finding is about
    WordCounts B{};
    RuleStructure structure_;
};

void RulesCheck::CheckRule(const RuleIndexRecord& record) {
    ++rule_;
    name_ = Text(record.name);
    view_.RuleName(name_);
    rule_begin_ = at_;
    scanner_.Restart();
    B = {};
    structure_.Reset();

    const std::size_t size = record.size > 0 ? static_cast<std::size_t>(record.size) : 0;
    const char* const rule_end = at_ + std::min<std::size_t>(size, file_end_ - at_);
    while (at_ != rule_end) {
        const char* const end = at_ + std::min<std::size_t>(kPieceSize, rule_end - at_);
        CheckPiece(at_, end);
        at_ = end;
        view_.Progress(end[-1]);
    }
    word_ = rule_begin_;
    CheckBalance(B, [this](RuleError error) { MessageError(error); });
    lines_before_rule_ += Lines(rule_begin_, at_);
}

void RulesCheck::CheckPiece(const char* begin, const char* end) {
    WordScanner::Stop stop = scanner_.Next(begin, end);
    while (stop.at != end) {
        const char* const next = stop.at + 1;
        if (*stop.at == '\n')
            LineFeed(stop.at);
        else
            DebugError(
                ObsInst(stop.words, B, next != file_end_ ? static_cast<unsigned char>(*next) : -1),
                next);
        stop = scanner_.Next(next, end);
    }
}

// A line ends at CR LF, both in the same rule.
void RulesCheck::LineFeed(const char* at) {
    if (at == rule_begin_ || at[-1] != '\r')
        return;
    NumLin += 1;
    if (Anul == Lexical::LineComment)
        Anul = Lexical::Code;
}

// Comments and strings do not know of each other: a quote in a comment starts a string, and "//" in
// a string a comment.
void RulesCheck::DebugError(int code, const char* end) {
    if (code == kBlockBegin)
        Anul = Lexical::BlockComment;
    else if (code == kLineBegin)
        Anul = Lexical::LineComment;
    else if (code == kQuote)
        Anul = Anul == Lexical::String ? Lexical::Code : Lexical::String;

    if (code != kNoInstruction)
        word_ = end - WordText(static_cast<RuleWord>(code)).size();
    if (Anul == Lexical::Code)
        structure_.Take(code);
    else if (code == kBlockEnd && Anul == Lexical::BlockComment)
        Anul = Lexical::Code;
}

void RulesCheck::MessageError(RuleError Terr) {
    std::string line = name_;
    line.append(" : Line :").append(std::to_string(NumLin)).append(" : ");
    view_.RuleFinding(line.append(RuleErrorText(Terr)),
                      {Terr, rule_, static_cast<std::size_t>(rule_begin_ - text_),
                       static_cast<std::size_t>(word_ - text_),
                       lines_before_rule_ + Lines(rule_begin_, word_)});
}

// The opposites, checked against the results file, which is read at the first of them.
class OppositesCheck {
public:
    explicit OppositesCheck(CheckView& view) : view_(view) {}

    void IsResult(const std::string& op) {
        if (!results_)
            ReadResults();
        const OppositePair pair = SplitOpposite(op);
        for (const std::string& name : {pair.result, pair.opposite})
            if (!results_->contains(name))
                view_.OppositeFinding("Opposite Result not defined - " + name);
    }

private:
    void ReadResults() {
        std::vector<TagRecord> records;
        // Without a results file nothing is defined.
        ReadRecords(view_.ResultsFile().c_str(), files::Mode::Update, records);
        results_.emplace();
        for (const TagRecord& record : records)
            results_->insert(Text(record.name));
    }

    CheckView& view_;
    std::optional<std::unordered_set<std::string>> results_;
};

// Without its rules or their index a system has nothing to check, and nothing is said.
void CheckRulesFiles(const SystemHead& head, Lexical& anul, CheckView& view) {
    const std::string path = Text(head.RuleName);
    view.RulesFile(path.c_str());
    view.Finding(path);
    std::string text;
    std::vector<RuleIndexRecord> index;
    if (files::ReadWhole(path.c_str(), files::Mode::Update, text) &&
        ReadRecords(Text(head.RuleSizeName).c_str(), files::Mode::Update, index))
        CheckRules(text, index, anul, view);
}

} // namespace

void CheckRules(std::string_view text, const std::vector<RuleIndexRecord>& index, Lexical& anul,
                CheckView& view) {
    RulesCheck check(text, anul, view);
    for (const RuleIndexRecord& record : index)
        check.CheckRule(record);
}

bool CheckProject(const ProjectRecord& project, Lexical& anul, CheckView& view,
                  WindowHandle owner) {
    OppositesCheck opposites(view);
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i) {
        const std::string path = Text(project.EngineNames[i]);
        view.SystemFile(path.c_str());
        SystemFile system;
        const ReadResult result = ReadSystem(path.c_str(), system);
        // What is left of a damaged one is checked: a fact removed from its base leaves such files.
        if (result == ReadResult::Missing || result == ReadResult::Useless) {
            ShowMessage(owner, "Open System Error", "Debug");
            return false;
        }
        for (const NameRecord& opposite : system.opposites)
            opposites.IsResult(Text(opposite.name));
        CheckRulesFiles(system.head, anul, view);
    }
    return true;
}
