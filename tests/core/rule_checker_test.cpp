// The rule check over the files of a project.
#include "build_disk.h"
#include "check_log.h"

#include "build/core/rule_structure.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::CheckLog;
using zentrik_test::Disk;
using zentrik_test::EmptySystem;
using zentrik_test::IndexRecord;
using zentrik_test::Name;
using zentrik_test::Tags;
using zentrik_test::WholeIndex;
using Lines = std::vector<std::string>;

// Findings without the lines that every rule gives.
Lines Findings(const std::string& text, Lexical& anul, std::vector<RuleIndexRecord> index = {}) {
    CheckLog log;
    CheckRules(text, index.empty() ? WholeIndex(text) : index, anul, log);
    Lines lines = log.findings;
    std::erase_if(lines, [](const std::string& line) { return line.ends_with("Secon Debug:"); });
    return lines;
}

Lines Findings(const std::string& text, std::vector<RuleIndexRecord> index = {}) {
    Lexical anul = Lexical::Code;
    return Findings(text, anul, std::move(index));
}

const Lines kNothing;

TEST(CheckRules, GivesOneLineForAFineRule) {
    const std::string text = "Rule 3\r\nEndRule";
    Lexical anul = Lexical::Code;
    CheckLog log;
    CheckRules(text, {IndexRecord("Rule 3", 15)}, anul, log);
    EXPECT_EQ(log.log, (Lines{"rule Rule 3", "finding Rule 3 : Line :1 : Secon Debug:"}));
}

TEST(CheckRules, CountsLinesFromZeroThroughAllRules) {
    const std::string first = "Rule 1\r\nThen\r\nEndRule\r\n";
    const std::string second = "Rule 2\r\nThen EndRule\r\n";
    EXPECT_EQ(Findings(first + second, {IndexRecord("a", 23), IndexRecord("b", 22)}),
              (Lines{"a : Line :1 : There are Then whithout any kind of If",
                     "b : Line :4 : There are Then whithout any kind of If"}));
}

TEST(CheckRules, OnlyCrLfEndsALine) {
    const std::string then = "Then EndRule";
    const auto line = [](int number) {
        return "R : Line :" + std::to_string(number) + " : There are Then whithout any kind of If";
    };
    EXPECT_EQ(Findings("Rule\n\n" + then), Lines{line(0)});
    EXPECT_EQ(Findings("Rule\r\r\n\n" + then), Lines{line(1)});
    EXPECT_EQ(Findings("Rule\n\r\r" + then), Lines{line(0)});
    EXPECT_EQ(Findings("Rule\r \n" + then), Lines{line(0)});
    EXPECT_EQ(Findings("\r\nRule\r\n" + then), Lines{line(2)});
}

TEST(CheckRules, ALineEndSplitBetweenTwoRulesDoesNotCount) {
    EXPECT_EQ(Findings("EndRule\r\nThen", {IndexRecord("a", 8), IndexRecord("b", 5)}),
              (Lines{"a : Line :0 : There is a If or a For without End",
                     "b : Line :0 : There are Then whithout any kind of If",
                     "b : Line :0 : There is no Rule", "b : Line :0 : There is no EndRule"}));
}

TEST(CheckRules, CommentsAndStringsHideTheStructure) {
    EXPECT_EQ(Findings("Rule // Then\r\nEndRule"), kNothing);
    EXPECT_EQ(Findings("Rule /* Then\r\n Then */ EndRule"), kNothing);
    EXPECT_EQ(Findings("Rule \"Then\" EndRule"), kNothing);
    // An LF alone does not end the comment.
    EXPECT_EQ(Findings("Rule // Then\nThen EndRule"), kNothing);
    // "*/" outside a block comment means nothing.
    EXPECT_EQ(Findings("Rule */ EndRule"), kNothing);
    EXPECT_EQ(Findings("Rule // */ Then\r\nEndRule"), kNothing);
    // The '*' of "/*" also begins "*/", so this is a whole comment.
    EXPECT_EQ(Findings("Rule /*/ Then EndRule"),
              Lines{"R : Line :0 : There are Then whithout any kind of If"});
}

TEST(CheckRules, CommentsAndStringsDoNotKnowOfEachOther) {
    Lexical anul = Lexical::Code;
    Findings("Rule /* \" */ EndRule", anul);
    EXPECT_EQ(anul, Lexical::String);
    anul = Lexical::Code;
    Findings("Rule \"http://x\" EndRule", anul);
    EXPECT_EQ(anul, Lexical::String); // the second quote opened a string in the comment
    anul = Lexical::Code;
    Findings("Rule \"/*\" EndRule", anul);
    EXPECT_EQ(anul, Lexical::String);
    anul = Lexical::Code;
    Findings("Rule // /* \r\n EndRule", anul);
    EXPECT_EQ(anul, Lexical::BlockComment);
}

TEST(CheckRules, WhatStaysOpenSilencesTheFollowingRules) {
    const std::string text = "Rule /* EndRuleThen EndRuleThen */ Then EndRule";
    // The word "Rule" before the comment stands in rule a, so the EndRule of rule c ends nothing.
    EXPECT_EQ(Findings(text, {IndexRecord("a", 15), IndexRecord("b", 12), IndexRecord("c", 20)}),
              (Lines{"c : Line :0 : There are Then whithout any kind of If",
                     "c : Line :0 : There is a If or a For without End"}));
    Lexical anul = Lexical::Code;
    Findings("Rule \" EndRule", anul);
    EXPECT_EQ(anul, Lexical::String);
    // The next run of the program's life starts in the string.
    EXPECT_EQ(Findings("Rule Then EndRule", anul), kNothing);
}

TEST(CheckRules, TheLookAheadAfterIfGoesBeyondTheRule) {
    // The first rule's "If" is followed by the second rule's "O".
    EXPECT_EQ(Findings("EndRule IfOther EndRule", {IndexRecord("a", 10), IndexRecord("b", 13)}),
              (Lines{"a : Line :0 : There is a If or a For without End",
                     "b : Line :0 : There is a If or a For without End"}));
    EXPECT_EQ(Findings("EndRule If other EndRule", {IndexRecord("a", 10), IndexRecord("b", 14)}),
              (Lines{"a : Line :0 : There is a If or a For without End",
                     "a : Line :0 : There are If without EndIf",
                     "b : Line :0 : There is a If or a For without End"}));
}

TEST(CheckRules, AWordSplitBetweenTwoRulesIsNone) {
    EXPECT_EQ(Findings("EndRuleThen", {IndexRecord("a", 9), IndexRecord("b", 2)}),
              (Lines{"a : Line :0 : There is a If or a For without End",
                     "b : Line :0 : There is no Rule", "b : Line :0 : There is no EndRule"}));
}

TEST(CheckRules, StrangeSizesTakeWhatThereIs) {
    const std::string text = "Rule EndRule";
    const Lines empty = {"a : Line :0 : There is no Rule", "a : Line :0 : There is no EndRule"};
    Lines all = empty;
    EXPECT_EQ(Findings(text, {IndexRecord("a", 0), IndexRecord("b", 12)}), empty);
    EXPECT_EQ(Findings(text, {IndexRecord("a", -7), IndexRecord("b", 12)}), empty);
    EXPECT_EQ(Findings(text, {IndexRecord("b", 0x7fffffff), IndexRecord("a", 1)}), empty);
    EXPECT_EQ(Findings("", {IndexRecord("a", 5)}), empty);
}

TEST(CheckRules, ProgressEndsWithTheLastCharacterOfEachRule) {
    const std::string text = std::string(100000, 'x') + "1" + "ab2";
    Lexical anul = Lexical::Code;
    CheckLog log;
    CheckRules(text,
               {IndexRecord("a", 100001), IndexRecord("none", 0), IndexRecord("b", 3),
                IndexRecord("none", 5)},
               anul, log);
    EXPECT_TRUE(log.progress.ends_with("x12")) << log.progress;
    EXPECT_GT(log.progress.size(), 10u);
    EXPECT_LT(log.progress.size(), 100u);
}

TEST(RuleErrorText, HasTheMessagesThatNoCheckGives) {
    EXPECT_EQ(RuleErrorText(kAfterEndRule), "Command After EndRule");
    EXPECT_EQ(RuleErrorText(kIfXorSurplus), "There are too many EndIfXor");
}

TEST(CheckRules, ANameThatFillsItsFieldIsShownWhole) {
    RuleIndexRecord record{};
    std::fill(std::begin(record.name), std::end(record.name), 'n');
    Lexical anul = Lexical::Code;
    CheckLog log;
    CheckRules("", {record}, anul, log);
    EXPECT_EQ(log.findings.front(), std::string(255, 'n') + " : Line :0 : Secon Debug:");
}

// One system on a disk, with "Rule 1" in its rules file.
struct OneSystem {
    OneSystem() {
        SetText(system.head.RuleName, disk.Path("a.rul"));
        SetText(system.head.RuleSizeName, disk.Path("a.siz"));
        disk.Put("a.rul", "Rule 1 EndRule");
        disk.Put("a.siz", BytesOf(IndexRecord("Rule 1", 14)));
        SetText(project.EngineNames[1], disk.Path("a.lse"));
        project.EngNum = 1;
        log.results_file = disk.Path("a.aux");
    }

    bool Check(WindowHandle owner = nullptr) {
        system.head.DatNum = static_cast<std::int32_t>(system.facts.size());
        system.head.OppNum = static_cast<std::int32_t>(system.opposites.size());
        disk.Put("a.lse", SystemBytes(system));
        return CheckProject(project, anul, log, owner);
    }

    const Disk disk;
    SystemFile system = EmptySystem();
    ProjectRecord project{};
    CheckLog log;
    Boxes boxes;
    Lexical anul = Lexical::Code;
};

TEST(CheckProject, ShowsAndListsInOrder) {
    OneSystem one;
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.log, (Lines{"system C:\\zktest\\a.lse", "rules C:\\zktest\\a.rul",
                                  "finding C:\\zktest\\a.rul", "rule Rule 1",
                                  "finding Rule 1 : Line :0 : Secon Debug:"}));
    EXPECT_EQ(one.boxes.shown, Lines{});
}

TEST(CheckProject, StartsTheLinesAnewInEachSystem) {
    OneSystem one;
    one.disk.Put("a.rul", "Rule 1\r\nEndRule");
    one.disk.Put("a.siz", BytesOf(IndexRecord("Rule 1", 15)));
    SetText(one.project.EngineNames[2], one.disk.Path("a.lse"));
    one.project.EngNum = 2;
    EXPECT_TRUE(one.Check());
    const Lines half = {"C:\\zktest\\a.rul", "Rule 1 : Line :1 : Secon Debug:"};
    EXPECT_EQ(one.log.findings, (Lines{half[0], half[1], half[0], half[1]}));
}

TEST(CheckProject, AMissingRulesOrIndexFileGivesOnlyTheHeading) {
    for (const char* missing : {"a.rul", "a.siz"}) {
        OneSystem one;
        one.disk.Remove(missing);
        EXPECT_TRUE(one.Check());
        EXPECT_EQ(one.log.findings, Lines{"C:\\zktest\\a.rul"});
        EXPECT_EQ(one.boxes.shown, Lines{});
    }
    OneSystem none;
    none.system = EmptySystem();
    EXPECT_TRUE(none.Check());
    EXPECT_EQ(none.log.findings, Lines{""});
}

TEST(CheckProject, AnIndexCutShortUsesItsWholeRecords) {
    OneSystem one;
    std::string index(BytesOf(IndexRecord("Rule 1", 14)));
    one.disk.Put("a.siz", index + index.substr(0, 100));
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.findings.size(), 2u);
}

TEST(CheckProject, StopsAtASystemFileThatCannotBeRead) {
    const auto owner = reinterpret_cast<WindowHandle>(std::uintptr_t{16});
    for (const char* how : {"missing", "short", "folder"}) {
        OneSystem one;
        SetText(one.project.EngineNames[2], one.disk.Path("b.lse"));
        SetText(one.project.EngineNames[3], one.disk.Path("a.lse"));
        one.project.EngNum = 3;
        if (how == std::string("short"))
            one.disk.Put("b.lse", "too short");
        else if (how == std::string("folder"))
            one.disk.Block("b.lse");
        EXPECT_FALSE(one.Check(owner)) << how;
        EXPECT_EQ(one.boxes.shown, Lines{"Debug: Open System Error"});
        EXPECT_EQ(one.boxes.messages.at(0).owner, owner);
        EXPECT_EQ(one.log.findings.size(), 2u) << how; // of the first system
        EXPECT_EQ(one.log.log.back(), "system C:\\zktest\\b.lse");
    }
}

// A fact that was removed from its base is listed in the system file but not stored there.
TEST(CheckProject, ChecksASystemWithAListedFactGone) {
    OneSystem one;
    EXPECT_TRUE(one.Check());
    const Lines whole = one.log.findings;
    one.log.findings.clear();
    one.system.head.DatNum = 4;
    one.disk.Put("a.lse", SystemBytes(one.system));
    EXPECT_TRUE(CheckProject(one.project, one.anul, one.log, nullptr));
    EXPECT_EQ(one.log.findings, whole);
    EXPECT_EQ(one.boxes.shown, Lines{});
}

TEST(CheckProject, ChecksTheWholeOppositesOfADamagedSystem) {
    OneSystem one;
    one.disk.Put("a.aux", Tags({"HIGH"}));
    one.system.opposites = {Name("HIGH\tLOW")};
    one.system.head.OppNum = 3;
    one.disk.Put("a.lse", SystemBytes(one.system) + "a part of the next");
    EXPECT_TRUE(CheckProject(one.project, one.anul, one.log, nullptr));
    EXPECT_EQ(one.log.findings, (Lines{"Opposite Result not defined - LOW", "C:\\zktest\\a.rul",
                                       "Rule 1 : Line :0 : Secon Debug:"}));
    EXPECT_EQ(one.boxes.shown, Lines{});
}

TEST(CheckProject, CountsOutOfRangeAreHeldToTheTable) {
    OneSystem one;
    for (auto& name : one.project.EngineNames)
        SetText(name, one.disk.Path("a.lse"));
    one.project.EngNum = 1000;
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.findings.size(), 16u);
    one.project.EngNum = -3;
    one.log.findings.clear();
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.findings.size(), 0u);
}

TEST(Opposites, NamesThatAreNoResultsAreListedBeforeTheHeading) {
    OneSystem one;
    one.disk.Put("a.aux", Tags({"HIGH", "LOW"}));
    one.system.facts.resize(2);
    one.system.opposites = {Name("HIGH\tLOW"), Name("HIGH\tlow"), Name("MID\tHIGH"),
                            Name("A\tB\tC")};
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.log, (Lines{"system C:\\zktest\\a.lse", "results",
                                  "finding Opposite Result not defined - low",
                                  "finding Opposite Result not defined - MID",
                                  "finding Opposite Result not defined - A",
                                  "finding Opposite Result not defined - B\tC",
                                  "rules C:\\zktest\\a.rul", "finding C:\\zktest\\a.rul",
                                  "rule Rule 1", "finding Rule 1 : Line :0 : Secon Debug:"}));
}

TEST(Opposites, AskForTheResultsFileOncePerRun) {
    OneSystem one;
    one.disk.Put("a.aux", Tags({"HIGH"}));
    one.system.opposites = {Name("HIGH\tHIGH"), Name("HIGH\tHIGH")};
    SetText(one.project.EngineNames[2], one.disk.Path("a.lse"));
    one.project.EngNum = 2;
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(std::count(one.log.log.begin(), one.log.log.end(), "results"), 1);
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(std::count(one.log.log.begin(), one.log.log.end(), "results"), 2);
}

TEST(Opposites, WithoutAResultsFileNothingIsDefined) {
    OneSystem one;
    one.system.opposites = {Name("HIGH\tLOW")};
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.findings.at(0), "Opposite Result not defined - HIGH");
    EXPECT_EQ(one.log.findings.at(1), "Opposite Result not defined - LOW");
    EXPECT_EQ(one.boxes.shown, Lines{});
}

TEST(Opposites, WithoutATabTheOppositeIsEmpty) {
    OneSystem one;
    one.disk.Put("a.aux", Tags({"HIGH"}));
    one.system.opposites = {Name("HIGH")};
    EXPECT_TRUE(one.Check());
    EXPECT_EQ(one.log.findings.at(0), "Opposite Result not defined - ");
}

} // namespace
