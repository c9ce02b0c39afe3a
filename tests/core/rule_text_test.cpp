#include "core_test.h"
#include "renumber_reference.h"

#include "shell/core/file_helpers.h"
#include "system/core/rule_index.h"
#include "system/core/rule_text.h"

#include <chrono>
#include <random>

namespace {

using zentrik_test::StepByStep;

void ExpectSameAsStepByStep(const std::string& text) {
    const RenumberedRules got = Renumber(text);
    const RenumberedRules wanted = StepByStep(text).Run();
    ASSERT_EQ(got.text, wanted.text) << "of: " << text;
    ASSERT_EQ(got.sizes, wanted.sizes) << "of: " << text;
    ASSERT_EQ(got.numbers_changed, wanted.numbers_changed) << "of: " << text;
}

std::string ManyRules(int count, const std::string& line_end, int first = 1) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "Rule " + std::to_string(first + i) + line_end + "if a > " + std::to_string(i) +
                " then b" + line_end + "EndRule" + line_end;
    }
    return text;
}

TEST(Renumber, TheWordRuleInACommentBeginsARule) {
    const RenumberedRules rules = Renumber("Rule 1\r\n// This Rule opens the valve\r\nEndRule\r\n");
    EXPECT_EQ(rules.text, "Rule 1\r\n// This EndRule\r\nRule 2opens the valve\r\nEndRule\r\n");
    EXPECT_EQ(rules.sizes.size(), 2u);
    const std::string small = "Rule 1\r\n// This rule opens the valve\r\nEndRule\r\n";
    EXPECT_EQ(Renumber(small).text, small);
}

TEST(Renumber, LeavesWellNumberedRulesAlone) {
    const std::string text = ManyRules(12, "\r\n");
    const RenumberedRules rules = Renumber(text);
    EXPECT_EQ(rules.text, text);
    EXPECT_EQ(rules.sizes.size(), 12u);
    EXPECT_FALSE(rules.numbers_changed);
}

TEST(Renumber, GivesTheSecondOfTwoRulesItsNumber) {
    const RenumberedRules rules = Renumber("Rule 1\r\na\r\nEndRule\r\nRule 7\r\nb\r\nEndRule\r\n");
    EXPECT_EQ(rules.text, "Rule 1\r\na\r\nEndRule\r\nRule 2\r\nb\r\nEndRule\r\n");
    EXPECT_EQ(rules.sizes, (std::vector<std::int32_t>{20, 18}));
    EXPECT_TRUE(rules.numbers_changed);
}

TEST(Renumber, ClosesARuleDirectlyBehindTheText) {
    const RenumberedRules rules = Renumber("Rule1 x");
    EXPECT_EQ(rules.text, "Rule 1 xEndRule\r\n");
    EXPECT_EQ(rules.sizes, std::vector<std::int32_t>{15});
    EXPECT_FALSE(rules.numbers_changed);
}

TEST(Renumber, PutsARuleBeforeALoneEndRule) {
    const RenumberedRules rules = Renumber("EndRule");
    EXPECT_EQ(rules.text, "Rule 1\r\nEndRule");
    EXPECT_TRUE(rules.numbers_changed);
    EXPECT_EQ(Renumber("Rule 1 EndRule\r\nEndRule\r\n").text,
              "Rule 1 EndRule\r\nRule 2\r\nEndRule\r\n");
}

TEST(Renumber, ReplacesNumbersOfAnyLength) {
    const RenumberedRules rules =
        Renumber(ManyRules(8, "\r\n") + "Rule 10\r\nx\r\nEndRule\r\nRule 00010\r\nEndRule\r\n");
    EXPECT_EQ(rules.text,
              ManyRules(8, "\r\n") + "Rule 9\r\nx\r\nEndRule\r\nRule 10\r\nEndRule\r\n");
    EXPECT_TRUE(rules.numbers_changed);
    EXPECT_TRUE(Renumber("Rule 01\r\nEndRule\r\n").numbers_changed);
}

TEST(Renumber, TakesRuleInsideAWordForARule) {
    EXPECT_EQ(Renumber("Rule 1\r\nall Rules\r\nEndRule\r\n").text,
              "Rule 1\r\nall EndRule\r\nRule 2s\r\nEndRule\r\n");
}

TEST(Renumber, EmptyTextAndTextWithoutRules) {
    EXPECT_EQ(Renumber("").text, "");
    EXPECT_TRUE(Renumber("").sizes.empty());
    EXPECT_EQ(Renumber("rule 1 endrule").text, "rule 1 endrule");
    EXPECT_FALSE(Renumber("rule 1 endrule").numbers_changed);
}

TEST(Renumber, EqualsTheStepByStepWalkOnOverlaps) {
    for (const char* text : {"RRule",
                             "RRule 1\r\nEndRule",
                             "REndRule",
                             "RuREndRule",
                             "RulEndRule 5 Rule",
                             "EEndRule",
                             "EndEndRule",
                             "EndRuleRule",
                             "RuleRule",
                             "Rule",
                             "Rule ",
                             "Rule 1",
                             "Rule 1E",
                             "Rule 1 EndRRule 2",
                             "Rule 1ERule 2\r\nEndRule",
                             "Rule 1EndRule 2Rule 3E",
                             "EndRuleEndRule",
                             "Rule 1EnRule",
                             "Rule7EndRule8EndRule",
                             "RuleEEndRule Rule EEndRule",
                             "Rule 12345678901234567890\nEndRule\n",
                             "Rule 1\r\nERule 2\r\nERule 3\r\nE"})
        ExpectSameAsStepByStep(text);
}

TEST(Renumber, EqualsTheStepByStepWalkOnRandomTexts) {
    const std::vector<std::string> pieces = {
        "Rule", "EndRule", "Rules", "Rule ", "Rule 1", "E", "R",  "Ru", "Rul", "End", "EndR",
        "e",    " ",       "\r\n",  "\n",    "0",      "7", "12", "x",  "if",  "",    "Rule 2\r\n"};
    std::mt19937 random(7);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    for (int run = 0; run < 200000 && std::chrono::steady_clock::now() < end; ++run) {
        std::string text;
        for (std::size_t count = random() % 30; count > 0; --count)
            text += pieces[random() % pieces.size()];
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsStepByStep(text));
    }
}

TEST(Renumber, EqualsTheStepByStepWalkOnRandomLetters) {
    const std::string letters = "EndRule 1\n";
    std::mt19937 random(11);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    for (int run = 0; run < 50000 && std::chrono::steady_clock::now() < end; ++run) {
        std::string text;
        for (std::size_t count = random() % 400; count > 0; --count) {
            // Mostly the next letter of the word, so that it comes about whole or nearly.
            const std::size_t at = text.empty() ? 0 : letters.find(text.back()) + 1;
            text += letters[random() % 8 == 0 ? random() % letters.size() : at % letters.size()];
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsStepByStep(text));
    }
}

TEST(Renumber, ASecondTimeChangesNothing) {
    std::mt19937 random(3);
    const std::vector<std::string> lines = {"Rule 3", "Rule9",   "EndRule",     "if a", "then b",
                                            "Rule",   "EndRule", "Rule 1 // c", ""};
    for (const std::string line_end : {"\r\n", "\n"}) {
        for (int run = 0; run < 500; ++run) {
            std::string text;
            for (std::size_t count = random() % 40; count > 0; --count)
                text += lines[random() % lines.size()] + line_end;
            const RenumberedRules once = Renumber(text);
            const RenumberedRules twice = Renumber(once.text);
            ASSERT_EQ(twice.text, once.text) << "of: " << text;
            ASSERT_EQ(Renumber(twice.text).sizes, twice.sizes) << "of: " << text;
            ASSERT_FALSE(twice.numbers_changed);
        }
    }
}

TEST(Renumber, NumbersAlikeWithEitherLineEnd) {
    const auto without_returns = [](std::string text) {
        std::erase(text, '\r');
        return text;
    };
    for (const std::string& text :
         {ManyRules(30, "\r\n", 5), "EndRule\r\nRule\r\nx\r\n" + ManyRules(3, "\r\n")}) {
        EXPECT_EQ(without_returns(Renumber(text).text),
                  without_returns(Renumber(without_returns(text)).text));
    }
}

TEST(Renumber, KeepsBytesThatAreNoText) {
    using namespace std::string_literals;
    EXPECT_EQ(Renumber("Rule 5\0\xff\x80 EndRule\0tail"s).text, "Rule 1\0\xff\x80 EndRule\0tail"s);
}

// Each of these takes minutes where a rule costs a pass over the text.
TEST(Renumber, TakesTimeInProportion) {
    std::string open_rules, no_ends;
    for (int i = 0; i < 100000; ++i) {
        no_ends += "Rule\n if a\n";
        open_rules += "ERule";
    }
    std::string big = ManyRules(10000, "\r\n", 100);
    big.append(1 << 20, ' ');
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Renumber(big).sizes.size(), 10000u);
    EXPECT_EQ(Renumber(no_ends).sizes.size(), 100000u);
    EXPECT_EQ(Renumber(no_ends + "EndRule").sizes.size(), 100000u);
    EXPECT_GE(Renumber(open_rules).sizes.size(), 100000u);
    EXPECT_GE(Renumber(open_rules + "\nEndRule").sizes.size(), 1u);
    std::string ends;
    for (int i = 0; i < 100000; ++i)
        ends += "REndRule";
    EXPECT_EQ(Renumber(ends).sizes.size(), 100000u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(RuleIndex, IsTheSameByteForByte) {
    const std::string bytes = IndexBytes({20, 18});
    std::string wanted(2 * 267, '\0');
    wanted[0] = 20;
    wanted.replace(8, 6, "Rule 1");
    wanted[267] = 18;
    wanted.replace(267 + 8, 6, "Rule 2");
    EXPECT_EQ(bytes, wanted);
    EXPECT_EQ(IndexBytes({}), "");
}

std::string Records(const std::vector<std::pair<std::string, int>>& names_and_bor) {
    std::string bytes;
    for (const auto& [name, bor] : names_and_bor) {
        RuleIndexRecord record{};
        SetText(record.name, name);
        record.bor = bor;
        bytes += BytesOf(record);
    }
    return bytes;
}

using NameList = std::vector<std::string>;

TEST(RuleIndex, FirstRulesListsTheFirstAndTheLiveRecords) {
    const std::string index =
        Records({{"Rule 1", 1}, {"Rule 2", 0}, {"Rule 3", -1}, {"Rule 4", 0}});
    EXPECT_EQ(FirstRules(index).names, (NameList{"Rule 1", "Rule 2", "Rule 4"}));
    EXPECT_EQ(FirstRules(index).count, 4);
    EXPECT_EQ(AllRules(index).names, (NameList{"Rule 1", "Rule 2", "Rule 3", "Rule 4"}));
    EXPECT_EQ(AllRules(index).count, 4);
}

TEST(RuleIndex, AnEmptyIndexGivesOneEmptyLineAtTheStart) {
    EXPECT_EQ(FirstRules("").names, NameList{""});
    EXPECT_EQ(FirstRules("").count, 1);
    EXPECT_TRUE(AllRules("").names.empty());
    EXPECT_EQ(AllRules("").count, 0);
}

TEST(RuleIndex, CutRecordsAreBounded) {
    const std::string index = Records({{"Rule 1", 0}, {"Rule 2", 0}});
    EXPECT_EQ(FirstRules(index.substr(0, 12)).names, NameList{"Rule"});
    EXPECT_EQ(FirstRules(index.substr(0, 400)).names, NameList{"Rule 1"});
    EXPECT_EQ(AllRules(index.substr(0, 266)).count, 0);
    const std::string no_end(267, 'x');
    EXPECT_EQ(AllRules(no_end).names, NameList{std::string(255, 'x')});
}

TEST(InsText, InsertsWithAndWithoutALineEnd) {
    std::string text = "ad";
    InsText(text, "b", 1, 0);
    EXPECT_EQ(text, "abd");
    InsText(text, "c", 2, 1);
    EXPECT_EQ(text, "abc\r\nd");
    InsText(text, "!", text.size(), 0);
    EXPECT_EQ(text, "abc\r\nd!");
}

TEST(CutRule, TakesOutTheRuleWithItsLineEnd) {
    const std::string one = "Rule 1\r\na\r\nEndRule\r\n", two = "Rule 2\r\nb\r\nEndRule\r\n";
    std::string text = one + two;
    CutRule(text, 0);
    EXPECT_EQ(text, two);
    text = "head " + one + two;
    CutRule(text, 1);
    EXPECT_EQ(text, "head " + one);
    CutRule(text, 1);
    CutRule(text, -1);
    EXPECT_EQ(text, "head " + one);
    CutRule(text, 0);
    EXPECT_EQ(text, "head ");
}

TEST(CutRule, TwoCharactersBehindEndRuleGoWithIt) {
    std::string text = "Rule 1\nEndRule\nRule 2\nEndRule\n";
    CutRule(text, 0);
    EXPECT_EQ(text, "ule 2\nEndRule\n");
}

TEST(CutRule, ALastRuleThatEndsTheTextStays) {
    for (const char* tail : {"", "\n"}) {
        const std::string text = std::string("Rule 1\r\nEndRule\r\nRule 2\r\nEndRule") + tail;
        std::string left = text;
        CutRule(left, 1);
        EXPECT_EQ(left, text);
        EXPECT_EQ(Renumber(left).sizes.size(), 2u);
    }
}

TEST(RuleBytes, GivesTheRuleThroughItsLineEnd) {
    const std::string text = "Rule 1\r\nEndRule\r\nRule 2\r\nx\r\nEndRule";
    EXPECT_EQ(RuleBytes(text, 0), "Rule 1\r\nEndRule\r\n");
    EXPECT_EQ(RuleBytes(text, 1), "Rule 2\r\nx\r\nEndRule");
    EXPECT_EQ(RuleBytes(text, 2), "");
    EXPECT_EQ(RuleBytes("", 0), "");
}

TEST(FindRule, StaysInBoundsOnRandomTexts) {
    const std::vector<std::string> pieces = {"Rule", "EndRule", "R", "E", "End", " 1", "\r\n"};
    std::mt19937 random(5);
    for (int run = 0; run < 5000; ++run) {
        std::string text;
        for (std::size_t count = random() % 20; count > 0; --count)
            text += pieces[random() % pieces.size()];
        if (random() % 2 == 0)
            text = Renumber(text).text;
        for (int row = 0; row < 12; ++row) {
            std::string left = text;
            CutRule(left, row);
            ASSERT_LE(left.size(), text.size());
            ASSERT_LE(RuleBytes(text, row).size(), text.size());
        }
    }
}

TEST(WithRule, KeepsTheLastByteLast) {
    EXPECT_EQ(WithRule("a\r\n", "Rule 1\r\n"), "a\rRule 1\r\n\n");
    EXPECT_EQ(WithRule("x", "r"), "rx");
    EXPECT_EQ(WithRule("", "Rule 1"), "Rule 1");
    EXPECT_EQ(WithRule(std::string("ab\0", 3), "r"), std::string("abr\0", 4));
}

} // namespace
