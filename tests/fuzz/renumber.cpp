// Renumbering a rules text, and removing and moving its rules. The input is the row of a rule and
// the text.
#include "system/core/rule_text.h"
#include "tests/core/renumber_reference.h"
#include "tests/fuzz/fuzz.h"

#include <numeric>

namespace {

// A search does not look back, so a word directly behind its own beginning, as in "EEndRule", is
// not seen. Such texts never come to rest, which is kept.
bool HidesWords(std::string_view text) {
    for (const char* word : {"RRule", "RuRule", "RulRule", "EEndRule", "EnEndRule", "EndEndRule",
                             "EndREndRule", "EndRuEndRule", "EndRulEndRule"})
        if (text.find(word) != text.npos)
            return true;
    return false;
}

void EqualsTheStepByStepWalk(const std::string& text, const RenumberedRules& once) {
    const RenumberedRules plain = zentrik_test::StepByStep(text).Run();
    fuzz::Holds(once.text == plain.text && once.sizes == plain.sizes &&
                    once.numbers_changed == plain.numbers_changed,
                "one walk renumbers as the steps one by one do");
}

void StaysAsItIs(const RenumberedRules& once) {
    if (HidesWords(once.text))
        return;
    const RenumberedRules twice = Renumber(once.text);
    fuzz::Holds(twice.text == once.text, "a renumbered text is renumbered without a change");
    fuzz::Holds(!twice.numbers_changed, "a renumbered text keeps its numbers");
}

void HasAnIndex(const RenumberedRules& rules) {
    const IndexedRules listed = AllRules(IndexBytes(rules.sizes));
    fuzz::Holds(listed.names.size() == rules.sizes.size(), "every rule is in the index");
    for (std::size_t i = 0; i < listed.names.size(); ++i)
        fuzz::Holds(listed.names[i] == RuleName(static_cast<int>(i) + 1), "rules are in order");
}

void RemovesAndMoves(const std::string& text, int row) {
    const std::string rule = RuleBytes(text, row);
    fuzz::Holds(text.find(rule) != text.npos, "a rule is a part of its text");
    std::string rest = text;
    CutRule(rest, row);
    fuzz::Holds(rest == text || rest.size() + rule.size() == text.size(),
                "removing takes nothing but the rule");
    const std::string moved = WithRule(text, rule);
    fuzz::Holds(moved.size() == text.size() + rule.size(), "moving adds nothing but the rule");
    Renumber(rest);
    Renumber(moved);
}

} // namespace

void Fuzz(std::string_view bytes) {
    fuzz::Input input(bytes);
    const int row = static_cast<int>(input.Byte()) - 2;
    const std::string text(input.Rest());
    const RenumberedRules once = Renumber(text);
    EqualsTheStepByStepWalk(text, once);
    StaysAsItIs(once);
    HasAnIndex(once);
    RemovesAndMoves(once.text, row);
    RemovesAndMoves(text, row);
}
