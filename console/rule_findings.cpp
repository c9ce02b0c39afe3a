#include "console/rule_findings.h"

#include "build/core/rule_checker.h"

#include <array>
#include <optional>

namespace console {

namespace {

// A name for each kind of finding, to filter by.
constexpr std::array<const char*, kRuleErrors> kIds = {
    "forall-open",   "forall-surplus", "if-open",          "if-surplus", "ifor-open",
    "ifor-surplus",  "ifany-open",     "ifany-surplus",    "if-no-then", "ifor-no-then",
    "ifany-no-then", "then-no-if",     "else-no-then",     "wrong-end",  "before-rule",
    "after-endrule", "block-open",     "no-rule",          "no-endrule", "second-debug",
    "ifxor-no-then", "ifxor-surplus",  "otherwise-no-then"};

class PlacedView : public CheckView {
public:
    explicit PlacedView(const LoadedProject& project) : project_(project) {}

    void SystemFile(const char* path) override { system_ = path; }

    void RulesFile(const char* path) override {
        rules_ = path;
        lines_.reset();
        for (const LoadedSystem& system : project_.systems)
            if (system.rules.path == rules_)
                text_ = &system.rules.bytes;
    }

    void RuleName(const std::string&) override {}
    void Progress(char) override {}
    void Finding(const std::string&) override {} // the heading of a system

    void RuleFinding(const std::string&, const RulePlace& place) override {
        if (place.error == kSecondDebug)
            return;
        console::Finding finding;
        finding.file = rules_;
        finding.rule = place.rule + 1;
        finding.id = kIds[place.error];
        finding.text = RuleErrorText(place.error);
        if (!lines_)
            lines_.emplace(*text_);
        lines_->Locate(place.word, finding);
        findings.push_back(std::move(finding));
    }

    void OppositeFinding(const std::string& line) override {
        console::Finding finding;
        finding.file = system_;
        finding.id = "opposite-undefined";
        finding.text = line;
        findings.push_back(std::move(finding));
    }

    std::string ResultsFile() override { return Text(project_.file.head.ResAux); }

    std::vector<console::Finding> findings;

private:
    const LoadedProject& project_;
    std::string system_, rules_;
    const std::string* text_ = nullptr; // of `rules_`
    std::optional<Lines> lines_;
};

} // namespace

std::vector<Finding> RuleFindings(const LoadedProject& project) {
    PlacedView view(project);
    Lexical anul = Lexical::Code;
    CheckProject(project.file.head, anul, view, nullptr);
    return std::move(view.findings);
}

} // namespace console
