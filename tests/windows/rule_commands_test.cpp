// The menu commands of the rule editor.
#include "rule_editor_fixture.h"

namespace {

using namespace zentrik_test;
using RuleCommandsTest = RuleEditorTest;

constexpr char kSaveTitle[] = "Save MORV Rules As...";
const std::string kQuestion = "Rules: Rules File has been changed. Save before Close?";

TEST_F(RuleCommandsTest, SavesTheTextAndItsIndex) {
    StartWith("Rule 1\r\na\r\nEndRule\r\nRule 7\r\nbb\r\nEndRule\r\n");
    Press(RM_SAVE_FILE);
    EXPECT_EQ(temp_.Content("a.rul"), kOne + kTwo);
    const int last = static_cast<int>(kTwo.size()) - 2;
    EXPECT_EQ(temp_.Content("a.siz"), IndexBytes({static_cast<int>(kOne.size()), last}));
    EXPECT_EQ(Count(), "Rule 2");
    EXPECT_EQ(mod, 0);
    EXPECT_FALSE(IsModified());
}

TEST_F(RuleCommandsTest, SavesALargeTextQuickly) {
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text +=
            "Rule " + std::to_string(20000 + i) + "\r\n" + std::string(80, 'x') + "\r\nEndRule\r\n";
    StartWith(text);
    const DWORD start = GetTickCount();
    ReNumRules(box_->Window(), 0);
    EXPECT_LT(GetTickCount() - start, 20000u);
    EXPECT_EQ(Rules().size(), 10000u);
    EXPECT_EQ(Rules().back(), "Rule 10000");
}

TEST_F(RuleCommandsTest, SaveAsksForTheNameOfANewFile) {
    Boxes boxes;
    Start("untitled.rul");
    Press(RULE_RULE);
    {
        DialogSteps steps;
        steps.CancelFile(kSaveTitle);
        Press(RM_SAVE_FILE);
    }
    EXPECT_EQ(Text(RuleFile), "untitled.rul");
    EXPECT_EQ(mod, 1);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("new.rul"));
    Press(RM_SAVE_FILE);
    EXPECT_EQ(Text(RuleFile), temp_.Path("new.rul"));
    EXPECT_EQ(Text(RuleSize), temp_.Path("new.siz"));
    EXPECT_EQ(Title(child_), temp_.Path("new.rul"));
    EXPECT_EQ(temp_.Content("new.rul"), "Rule 1EndRule\r\n");
    EXPECT_EQ(mod, 0);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(RuleCommandsTest, SaveAsTakesAnotherName) {
    StartWith(kOne);
    {
        DialogSteps steps;
        steps.CancelFile(kSaveTitle);
        Press(RM_SAVE_FILE_AS);
    }
    EXPECT_EQ(Title(child_), temp_.Path("a.rul"));
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    Press(RM_SAVE_FILE_AS);
    EXPECT_EQ(Title(child_), temp_.Path("b.rul"));
    EXPECT_EQ(temp_.Content("b.rul"), kOne);
    EXPECT_EQ(temp_.Content("b.siz").size(), 267u);
    EXPECT_EQ(temp_.Content("a.rul"), kOne);
}

TEST_F(RuleCommandsTest, AFailedSaveKeepsTextAndOldFile) {
    Boxes boxes;
    StartWith(kOne);
    Press(RULE_RULE);
    files::FailWritesAfter(0);
    Press(RM_SAVE_FILE);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, (Rows{"WARNING: No space left on the disk",
                                 "WARNING: No space left on the disk"})); // index, text
    EXPECT_EQ(temp_.Content("a.rul"), kOne);
    EXPECT_EQ(mod, 1);
    EXPECT_TRUE(IsModified());
}

TEST_F(RuleCommandsTest, WhatIsTypedBesideTheFailureOfTheIndexIsSaved) {
    std::filesystem::create_directory(temp_.Path("a.siz"));
    StartWith(kOne);
    Rows shown;
    const MessageShower before = SetMessageShower([&](const Message& message) {
        shown.push_back(message.text);
        Type('x');
        return Answer::Ok;
    });
    Press(RM_SAVE_FILE);
    SetMessageShower(before);
    EXPECT_EQ(shown, Rows{"Permison denied"});
    EXPECT_EQ(temp_.Content("a.rul"), "x" + kOne);
    EXPECT_FALSE(IsModified());
}

TEST_F(RuleCommandsTest, WhatIsTypedBesideTheOpenDialogIsAskedFor) {
    temp_.Put("b.rul", kTwo);
    StartWith(kOne);
    Boxes boxes(Answer::Cancel);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"), [&] { Type('x'); });
    Press(RM_OPEN_RULES);
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
    EXPECT_EQ(RulesText(), "x" + kOne);
    EXPECT_EQ(Title(child_), temp_.Path("a.rul"));
}

TEST_F(RuleCommandsTest, ExitSavesTheTextAsRules) {
    Boxes boxes(Answer::Yes);
    temp_.Put("a.rul", kOne);
    DialogSteps steps;
    steps.When("Rules", [&](const DialogHandle& box) {
        edit_ = TextHwnd();
        SetRulesText("Rule 7\r\nEndRule");
        SendMessageA(edit_, EM_SETMODIFY, TRUE, 0);
        EXPECT_TRUE(SaveEditors());
        box.Press(RM_CLOSE);
    });
    RunRuleEditor(temp_.Path("a.rul").c_str());
    EXPECT_EQ(temp_.Content("a.rul"), "Rule 1\r\nEndRule");
    EXPECT_EQ(temp_.Content("a.siz"), IndexBytes({15}));
}

TEST_F(RuleCommandsTest, ExitAsksForTheNameOfNewRules) {
    Boxes boxes(Answer::Yes);
    DialogSteps steps;
    steps.When("Rules", [&](const DialogHandle& box) {
        box.Press(RULE_RULE);
        EXPECT_FALSE(SaveEditors()); // the name is not given
        EXPECT_TRUE(IsWindow(TextHwnd()));
        EXPECT_TRUE(SaveEditors());
        box.Press(RM_CLOSE);
    });
    steps.CancelFile(kSaveTitle);
    steps.ChooseFile(kSaveTitle, temp_.Path("new"));
    RunRuleEditor("untitled.rul");
    EXPECT_EQ(temp_.Content("new.rul"), "Rule 1EndRule\r\n");
    EXPECT_EQ(temp_.Content("new.siz"), IndexBytes({13}));
    EXPECT_FALSE(std::filesystem::exists(temp_.Path("untitled.rul")));
}

TEST_F(RuleCommandsTest, ClosesAnUnchangedTextWithoutAsking) {
    Boxes boxes;
    StartWith(kOne);
    Press(RM_CLOSE);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(box_->IsOpen());
    EXPECT_FALSE(IsWindow(child_));
    EXPECT_EQ(EditRule, 0);
    EXPECT_FALSE(std::filesystem::exists(temp_.Path("a.siz")));
}

TEST_F(RuleCommandsTest, CancelKeepsTheEditorOpen) {
    Boxes boxes(Answer::Cancel);
    StartWith(kOne);
    Type('x');
    Press(RM_CLOSE);
    box_->CloseBox();
    Press(IDCANCEL);
    EXPECT_EQ(boxes.shown, (Rows{kQuestion, kQuestion, kQuestion}));
    EXPECT_TRUE(boxes.messages[0].buttons == Buttons::YesNoCancel);
    EXPECT_TRUE(box_->IsOpen());
    EXPECT_EQ(RulesText(), "x" + kOne);
    EXPECT_EQ(EditRule, 1);
}

TEST_F(RuleCommandsTest, TheDialogStandsBelowTheBoxesOfItsCommands) {
    StartWith(kOne);
    Type('x');
    const auto on_top = [&] {
        return (GetWindowLongA(box_->Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    };
    EXPECT_TRUE(on_top());
    bool asked = false;
    const MessageShower before = SetMessageShower([&](const Message&) {
        asked = true;
        EXPECT_FALSE(on_top());
        return Answer::Cancel;
    });
    Press(RM_CLOSE);
    SetMessageShower(before);
    EXPECT_TRUE(asked);
    EXPECT_TRUE(on_top());
}

TEST_F(RuleCommandsTest, NoDropsTheChanges) {
    Boxes boxes(Answer::No);
    StartWith(kOne);
    Type('x');
    box_->CloseBox();
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
    EXPECT_FALSE(box_->IsOpen());
    EXPECT_EQ(temp_.Content("a.rul"), kOne);
}

TEST_F(RuleCommandsTest, YesSavesBeforeClosing) {
    Boxes boxes(Answer::Yes);
    StartWith(kOne);
    Type('x');
    box_->CloseBox();
    EXPECT_EQ(temp_.Content("a.rul"), "x" + kOne);
    EXPECT_EQ(temp_.Content("a.siz").size(), 267u);
    EXPECT_FALSE(box_->IsOpen());
}

TEST_F(RuleCommandsTest, YesWithoutANameSavesAsUntitled) {
    Boxes boxes(Answer::Yes);
    Start("untitled.rul");
    Press(RULE_RULE);
    DialogSteps steps;
    steps.CancelFile(kSaveTitle);
    Press(RM_CLOSE);
    EXPECT_EQ(temp_.Content("untitled.rul"), "Rule 1EndRule\r\n");
    EXPECT_EQ(temp_.Content("untitled.siz").size(), 267u);
    EXPECT_FALSE(box_->IsOpen());
}

TEST_F(RuleCommandsTest, AFailedSaveEndsTheCommand) {
    for (int command : {RM_CLOSE, RM_NEW_FILE, RM_OPEN_RULES}) {
        Boxes boxes(Answer::Yes);
        StartWith(kOne);
        Type('x');
        files::FailWritesAfter(0);
        Press(command);
        files::FailWritesAfter(-1);
        EXPECT_EQ(boxes.shown.size(), 3u);
        EXPECT_TRUE(box_->IsOpen());
        EXPECT_EQ(RulesText(), "x" + kOne);
        EXPECT_EQ(temp_.Content("a.rul"), kOne);
        box_.reset();
    }
}

TEST_F(RuleCommandsTest, RenumberingDoesNotHideWhatWasTyped) {
    Boxes boxes(Answer::Cancel);
    StartWith(kOne);
    Type('x');
    Press(RM_MOVE_RULE); // nothing is selected; only renumbers
    EXPECT_TRUE(IsModified());
    Press(RM_CLOSE);
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
}

TEST_F(RuleCommandsTest, NewFileStartsAnUntitledText) {
    StartWith(kOne);
    Press(RULE_END_RULE);
    Boxes boxes(Answer::No);
    Press(RM_NEW_FILE);
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
    EXPECT_FALSE(IsWindow(child_));
    EXPECT_EQ(Title(GetMdi()), "untitled.rul");
    EXPECT_EQ(Text(RuleFile), "untitled.rul");
    EXPECT_EQ(Text(RuleSize), "untitled.siz");
    EXPECT_EQ(Rules(), Rows{});
    EXPECT_EQ(Count(), "Rule 0");
    EXPECT_EQ(EditRule, 1);
    edit_ = TextHwnd();
    Press(RULE_RULE);
    EXPECT_EQ(RulesText(), "Rule 1");
}

TEST_F(RuleCommandsTest, OpenRulesLoadsAnotherFile) {
    temp_.Put("b.rul", kOne + kTwo);
    temp_.Put("b.siz", Record("Rule 1", 1) + Record("Rule 2") + "cut");
    StartWith("x");
    {
        DialogSteps steps;
        steps.CancelFile(kSaveTitle);
        Press(RM_OPEN_RULES);
    }
    EXPECT_EQ(RulesText(), "x");
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    Press(RM_OPEN_RULES);
    EXPECT_EQ(RulesText(), kOne + kTwo);
    EXPECT_EQ(Rules(), (Rows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(Count(), "Rule 2");
    EXPECT_EQ(Title(child_), temp_.Path("b.rul"));
    EXPECT_EQ(Text(RuleSize), temp_.Path("b.siz"));
    EXPECT_FALSE(IsModified());
    EXPECT_EQ(mod, 0);
}

TEST_F(RuleCommandsTest, OpenRulesTakesABinaryFileWithoutAnIndex) {
    temp_.Put("b.rul", std::string("ab\0cd\xff", 6));
    StartWith(kOne);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    Press(RM_OPEN_RULES);
    EXPECT_EQ(RulesText(), "ab");
    EXPECT_EQ(Rules(), Rows{});
    EXPECT_EQ(Count(), "Rule 0");
}

TEST_F(RuleCommandsTest, RemovesTheSelectedRuleAndWritesTheIndex) {
    StartWith(kOne + kTwo + kThree);
    Press(RM_REMOVE_RULE); // nothing is selected
    EXPECT_EQ(RulesText(), kOne + kTwo + kThree);
    EXPECT_EQ(mod, 0);
    box_->Select(RULE_RULES, 1);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nccc\r\nEndRule\r\n");
    EXPECT_EQ(Rules(), (Rows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(RuleNum, 2);
    EXPECT_EQ(mod, 1);
    EXPECT_TRUE(IsModified());
    EXPECT_EQ(temp_.Content("a.siz").size(), 2 * 267u);
    EXPECT_EQ(temp_.Content("a.rul"), kOne + kTwo + kThree);
}

TEST_F(RuleCommandsTest, RemoveOnlyRenumbersWhenNumbersChange) {
    StartWith(kOne + kThree);
    ReNumRules(box_->Window(), 0);
    SetRulesText(kOne + kThree);
    box_->Select(RULE_RULES, 0);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nccc\r\nEndRule\r\n");
    EXPECT_EQ(ListRows(box_->Item(RULE_RULES)).Selected(), -1);
    EXPECT_TRUE(IsModified());
}

TEST_F(RuleCommandsTest, ALastRuleThatEndsTheTextIsNotRemoved) {
    StartWith(kOne + "Rule 2\r\nEndRule");
    ReNumRules(box_->Window(), 0);
    box_->Select(RULE_RULES, 1);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nEndRule");
    EXPECT_EQ(RuleNum, 2);
}

TEST_F(RuleCommandsTest, MoveCopiesTheSelectedRule) {
    Boxes boxes;
    temp_.Put("b.rul", "Rule 1\r\nEndRule\r\n");
    temp_.Put("b.siz", "as it was");
    StartWith(kOne + kTwo);
    ReNumRules(box_->Window(), 0);
    box_->Select(RULE_RULES, 1);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    Press(RM_MOVE_RULE);
    EXPECT_EQ(temp_.Content("b.rul"), "Rule 1\r\nEndRule\r" + kTwo + "\n");
    EXPECT_EQ(temp_.Content("b.siz"), "as it was");
    EXPECT_EQ(RulesText(), kOne + kTwo);
    EXPECT_EQ(mod, 0);
    EXPECT_FALSE(IsModified());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(RuleCommandsTest, AFailedMoveLeavesTheTargetAsItWas) {
    Boxes boxes;
    temp_.Put("b.rul", "old");
    StartWith(kOne);
    ReNumRules(box_->Window(), 0);
    box_->Select(RULE_RULES, 0);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    files::FailWritesAfter(0);
    Press(RM_MOVE_RULE);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, Rows{"WARNING: No space left on the disk"});
    EXPECT_EQ(temp_.Content("b.rul"), "old");
}

TEST_F(RuleCommandsTest, TagsComeSortedAndGoToTheEndOfTheText) {
    std::string tags(3 * 50 + 7, '\0');
    tags.replace(0, 4, "pump");
    tags.replace(50, 5, "alarm");
    tags.replace(100, 50, std::string(50, 'z'));
    tags.replace(150, 7, "not all");
    temp_.Put("a.tag", tags);
    StartWith("if ");
    {
        DialogSteps steps;
        steps.ChooseFile("Open Tags Files", temp_.Path("a.tag"));
        Press(RM_OPEN_TAGS);
    }
    const Rows sorted = {"alarm", "pump", std::string(50, 'z')};
    EXPECT_EQ(Tags(), sorted);
    box_->DoubleClick(RULE_TAGS, 1);
    EXPECT_EQ(RulesText(), "if pump");
    EXPECT_EQ(mod, 1);
    EXPECT_TRUE(IsModified());
    {
        DialogSteps steps;
        steps.ChooseFile("Open Tags Files", temp_.Path("a.tag"));
        Press(RM_OPEN_TAGS);
    }
    EXPECT_EQ(Tags().size(), 6u);
    Press(RM_CLOSE_TAGS);
    EXPECT_EQ(Tags(), Rows{});
}

} // namespace
