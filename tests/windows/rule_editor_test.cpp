// The rule editor's start, buttons, list and text window.
#include "rule_editor_fixture.h"

#include "project/project_commands.h"

namespace {

using namespace zentrik_test;

TEST_F(RuleEditorTest, StartsWithTheLiveRulesOfTheIndex) {
    temp_.Put("a.siz", Record("Rule 1", 1) + Record("Rule 2", 1) + Record("Rule 3"));
    StartWith(kOne);
    EXPECT_EQ(Rules(), (Rows{"Rule 1", "Rule 3"}));
    EXPECT_EQ(RuleNum, 3);
    EXPECT_EQ(Count(), "");
    EXPECT_EQ(EditRule, 1);
    EXPECT_EQ(IsRule(), 1);
}

TEST_F(RuleEditorTest, StartsWithoutAnIndex) {
    StartWith(kOne);
    EXPECT_EQ(Rules(), Rows{});
    EXPECT_EQ(RuleNum, 0);
}

TEST_F(RuleEditorTest, StartsWithAnEmptyIndex) {
    temp_.Put("a.siz", "");
    StartWith(kOne);
    EXPECT_EQ(Rules(), Rows{""});
    EXPECT_EQ(RuleNum, 1);
}

TEST_F(RuleEditorTest, MenuHoldsTheCommands) {
    StartWith("");
    const HMENU menu = GetMenu(box_->Window());
    const std::vector<std::pair<int, std::string>> items = {
        {207, "Open Rules"},      {204, "New File"},  {209, "Save File"},
        {203, "Save File As .."}, {201, "Close"},     {205, "Move Rule"},
        {200, "Remove Rule"},     {202, "Open Tags"}, {206, "Close Tags"}};
    for (const auto& [id, text] : items) {
        char caption[40] = "";
        GetMenuStringA(menu, static_cast<UINT>(id), caption, sizeof caption, MF_BYCOMMAND);
        EXPECT_EQ(caption, text);
    }
    EXPECT_EQ(Title(box_->Window()), "Rules");
    EXPECT_EQ(GetWindow(box_->Window(), GW_OWNER), nullptr);
}

TEST_F(RuleEditorTest, RuleAppendsToTheVeryEnd) {
    StartWith(kOne + "x");
    RuleNum = 1;
    Press(RULE_RULE);
    EXPECT_EQ(RulesText(), kOne + "xRule 2");
    EXPECT_EQ(Count(), "Rule 2");
    EXPECT_EQ(mod, 1);
    EXPECT_TRUE(IsModified());
    EXPECT_EQ(Rules(), Rows{});
}

TEST_F(RuleEditorTest, EndRuleClosesAndNumbersTheRules) {
    StartWith(kOne + "Rule7\r\nb");
    Press(RULE_END_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nbEndRule\r\n");
    EXPECT_EQ(Rules(), (Rows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(RuleNum, 2);
    EXPECT_EQ(Count(), "");
    EXPECT_EQ(mod, 1);
    EXPECT_FALSE(std::filesystem::exists(temp_.Path("a.siz")));
}

TEST_F(RuleEditorTest, ShowsTheEndOfTheText) {
    // Also where the text is so short that the count of lines to scroll wraps.
    for (int rules : {1, 100}) {
        std::string text;
        for (int i = 1; i <= rules; ++i)
            text += "Rule " + std::to_string(i) + "\r\nEndRule\r\n";
        StartWith(text);
        Press(RULE_END_RULE);
        const LRESULT shown = SendMessageA(edit_, EM_GETFIRSTVISIBLELINE, 0, 0);
        EXPECT_EQ(shown > 0, rules == 100);
        SendMessageA(edit_, EM_LINESCROLL, 0, 60000);
        EXPECT_EQ(SendMessageA(edit_, EM_GETFIRSTVISIBLELINE, 0, 0), shown);
        box_.reset();
    }
}

TEST_F(RuleEditorTest, ScrollsAVeryLongTextByTheLowBitsOfItsLineNumber) {
    std::string text;
    for (int i = 0; i < 66000; ++i)
        text += "x\r\n";
    StartWith(text);
    Press(RULE_END_RULE);
    EXPECT_EQ(SendMessageA(edit_, EM_GETFIRSTVISIBLELINE, 0, 0), 66000 - 3 - 65536);
}

TEST_F(RuleEditorTest, RenumberingTellsWhichRuleWasSelected) {
    StartWith(kOne + kTwo);
    EXPECT_EQ(ReNumRules(box_->Window(), 0), -1);
    box_->Select(RULE_RULES, 1);
    EXPECT_EQ(ReNumRules(box_->Window(), 0), 1);
    SetRulesText(kOne + kThree);
    box_->Select(RULE_RULES, 1);
    EXPECT_EQ(ReNumRules(box_->Window(), 0), -1);
}

TEST_F(RuleEditorTest, KeepsToItsTextWindowWhenAnotherIsActive) {
    StartWith(kOne);
    OpenEdit("other.cpp");
    const HWND other = TextHwnd();
    ASSERT_NE(other, edit_);
    Press(RULE_RULE);
    Press(RM_SAVE_FILE);
    EXPECT_EQ(EditText(other), "");
    EXPECT_EQ(temp_.Content("a.rul"), kOne + "Rule 2EndRule\r\n");
    Press(RM_CLOSE);
    EXPECT_FALSE(IsWindow(child_));
    EXPECT_TRUE(IsWindow(other));
}

TEST_F(RuleEditorTest, WithoutItsTextWindowNothingIsWritten) {
    Boxes boxes;
    StartWith(kOne);
    Press(RULE_RULE);
    DestroyMdiCh(child_);
    for (int command :
         {RULE_RULE, RULE_END_RULE, RM_SAVE_FILE, RM_SAVE_FILE_AS, RM_REMOVE_RULE, RM_MOVE_RULE})
        Press(command);
    box_->DoubleClick(RULE_TAGS, 0);
    EXPECT_EQ(temp_.Content("a.rul"), kOne);
    EXPECT_FALSE(std::filesystem::exists(temp_.Path("a.siz")));
    Press(RM_CLOSE);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(box_->IsOpen());
}

TEST_F(RuleEditorTest, AnIndexNeverTakesThePlaceOfTheRules) {
    temp_.Put("a.siz", kOne);
    Start(temp_.Path("a.siz"));
    EXPECT_EQ(Rules(), Rows{});
    ReNumRules(box_->Window(), 1);
    EXPECT_EQ(temp_.Content("a.siz"), kOne);
}

TEST_F(RuleEditorTest, TheEndOfTheProgramEndsTheDialog) {
    DialogSteps steps;
    steps.When("Rules", [](const DialogHandle& box) {
        EXPECT_EQ(GetWindow(box.Window(), GW_OWNER), nullptr);
        EXPECT_TRUE(IsWindowEnabled(hFrame));
        DestroyWindow(hFrame);
        PostQuitMessage(7);
    });
    RunRuleEditor(temp_.Path("a.rul").c_str());
    EXPECT_EQ(EditRule, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_EQ(FindWindowA("#32770", "Rules"), nullptr);
}

TEST_F(RuleEditorTest, RunsOnlyOnce) {
    temp_.Put("a.rul", kOne);
    const std::string path = temp_.Path("a.rul");
    DialogSteps steps;
    steps.When("Rules", [&](const DialogHandle& box) {
        RunRuleEditor("untitled.rul");
        EXPECT_EQ(Text(RuleFile), path);
        EXPECT_EQ(Text(RuleSize), WithExtension(path, ".siz"));
        EXPECT_TRUE(box.IsOpen());
        box.Press(RM_CLOSE);
    });
    RunRuleEditor(path.c_str());
    EXPECT_EQ(EditRule, 0);
}

TEST_F(RuleEditorTest, StartsAgainWhileAnotherDialogHoldsUpItsEnd) {
    temp_.Put("a.rul", kOne);
    temp_.Put("b.rul", kTwo);
    DialogSteps steps;
    HWND first = nullptr;
    steps.When("Rules", [&](const DialogHandle& box) {
        first = box.Window();
        RunDialog(nullptr, "HL_Box", HistoryDlg); // runs within the loop of the first
    });
    steps.When("History Length", [&](const DialogHandle& box) {
        DialogHandle(first).Press(RM_CLOSE);
        EXPECT_EQ(EditRule, 0);
        RunRuleEditor(temp_.Path("b.rul").c_str());
        box.Press(IDCANCEL);
    });
    steps.When("Rules", [&](const DialogHandle& box) {
        EXPECT_NE(box.Window(), first);
        EXPECT_EQ(EditRule, 1);
        EXPECT_EQ(EditText(TextHwnd()), kTwo);
        box.Press(RM_CLOSE);
    });
    RunRuleEditor(temp_.Path("a.rul").c_str());
    EXPECT_EQ(EditRule, 0);
    EXPECT_EQ(GetMdi(), nullptr);
}

} // namespace
