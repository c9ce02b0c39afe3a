#include "../core/core_test.h"
#include "dialog_test.h"
#include "frame_window.h"

#include "shell/editor.h"
#include "shell/paths.h"
#include "shell/ZENTRIK.h"
#include "system/rule_commands.h"
#include "system/rule_editor.h"
#include "system/rule_index.h"
#include "system/rule_text.h"

#include <memory>

namespace {

using namespace zentrik_test;
using Rows = std::vector<std::string>;

constexpr char kSaveTitle[] = "Save MORV Rules As...";
const std::string kOne = "Rule 1\r\na\r\nEndRule\r\n";
const std::string kTwo = "Rule 2\r\nbb\r\nEndRule\r\n";
const std::string kThree = "Rule 3\r\nccc\r\nEndRule\r\n";
const std::string kQuestion = "Rules: Rules File has been changed. Save before Close?";

std::string Title(HWND hwnd) {
    char title[kNameSize] = "";
    GetWindowTextA(hwnd, title, sizeof title);
    return title;
}

std::string Record(const std::string& name, int bor = 0) {
    RuleIndexRecord record{};
    SetText(record.name, name);
    record.bor = bor;
    return std::string(BytesOf(record));
}

// The rule editor beside a text window, in a folder of its own.
class RuleEditorTest : public testing::Test {
protected:
    RuleEditorTest() {
        GetCurrentDirectoryA(sizeof before_, before_);
        SetCurrentDirectoryA(temp_.Path("").c_str());
    }
    ~RuleEditorTest() override {
        box_.reset();
        EditRule = 0;
        SetCurrentDirectoryA(before_);
    }

    void OpenText(const std::string& path) {
        OpenEdit(path.c_str());
        child_ = GetMdi();
        edit_ = TextHwnd();
        SetText(RuleFile, path);
        SetText(RuleSize, WithExtension(path, ".siz"));
    }
    void Start(const std::string& path) {
        OpenText(path);
        box_ = std::make_unique<ShownDialog>("Rule_Box", RuleDlg);
    }
    // A rules file of this content, opened in the editor.
    void StartWith(const std::string& text) {
        temp_.Put("a.rul", text);
        Start(temp_.Path("a.rul"));
    }

    Rows Rules() const { return box_->Rows(RULE_RULES); }
    Rows Tags() const { return box_->Rows(RULE_TAGS); }
    std::string Count() const { return box_->Text(RULE_COUNT); }
    std::string RulesText() const { return EditText(edit_); }
    void SetRulesText(const std::string& text) const { SetWindowTextA(edit_, text.c_str()); }
    bool IsModified() const { return SendMessageA(edit_, EM_GETMODIFY, 0, 0) != 0; }
    void Type(char key) const { SendMessageA(edit_, WM_CHAR, static_cast<WPARAM>(key), 1); }
    void Press(int id) const { box_->Press(id); }

    TempFolder temp_;
    FrameWindow frame_;
    std::unique_ptr<ShownDialog> box_;
    HWND child_ = nullptr;
    HWND edit_ = nullptr;

private:
    char before_[MAX_PATH];
};

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

TEST_F(RuleEditorTest, SavesTheTextAndItsIndex) {
    StartWith("Rule 1\r\na\r\nEndRule\r\nRule 7\r\nbb\r\nEndRule\r\n");
    Press(RM_SAVE_FILE);
    EXPECT_EQ(temp_.Content("a.rul"), kOne + kTwo);
    const int last = static_cast<int>(kTwo.size()) - 2;
    EXPECT_EQ(temp_.Content("a.siz"), IndexBytes({static_cast<int>(kOne.size()), last}));
    EXPECT_EQ(Count(), "Rule 2");
    EXPECT_EQ(mod, 0);
    EXPECT_FALSE(IsModified());
}

TEST_F(RuleEditorTest, SavesALargeTextQuickly) {
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

TEST_F(RuleEditorTest, SaveAsksForTheNameOfANewFile) {
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

TEST_F(RuleEditorTest, SaveAsTakesAnotherName) {
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

TEST_F(RuleEditorTest, AFailedSaveKeepsTextAndOldFile) {
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

TEST_F(RuleEditorTest, ClosesAnUnchangedTextWithoutAsking) {
    Boxes boxes;
    StartWith(kOne);
    Press(RM_CLOSE);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(box_->IsOpen());
    EXPECT_FALSE(IsWindow(child_));
    EXPECT_EQ(EditRule, 0);
    EXPECT_FALSE(std::filesystem::exists(temp_.Path("a.siz")));
}

TEST_F(RuleEditorTest, CancelKeepsTheEditorOpen) {
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

TEST_F(RuleEditorTest, NoDropsTheChanges) {
    Boxes boxes(Answer::No);
    StartWith(kOne);
    Type('x');
    box_->CloseBox();
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
    EXPECT_FALSE(box_->IsOpen());
    EXPECT_EQ(temp_.Content("a.rul"), kOne);
}

TEST_F(RuleEditorTest, YesSavesBeforeClosing) {
    Boxes boxes(Answer::Yes);
    StartWith(kOne);
    Type('x');
    box_->CloseBox();
    EXPECT_EQ(temp_.Content("a.rul"), "x" + kOne);
    EXPECT_EQ(temp_.Content("a.siz").size(), 267u);
    EXPECT_FALSE(box_->IsOpen());
}

TEST_F(RuleEditorTest, YesWithoutANameSavesAsUntitled) {
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

TEST_F(RuleEditorTest, AFailedSaveEndsTheCommand) {
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

TEST_F(RuleEditorTest, RenumberingDoesNotHideWhatWasTyped) {
    Boxes boxes(Answer::Cancel);
    StartWith(kOne);
    Type('x');
    Press(RM_MOVE_RULE); // nothing is selected; only renumbers
    EXPECT_TRUE(IsModified());
    Press(RM_CLOSE);
    EXPECT_EQ(boxes.shown, Rows{kQuestion});
}

TEST_F(RuleEditorTest, NewFileStartsAnUntitledText) {
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

TEST_F(RuleEditorTest, OpenRulesLoadsAnotherFile) {
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

TEST_F(RuleEditorTest, OpenRulesTakesABinaryFileWithoutAnIndex) {
    temp_.Put("b.rul", std::string("ab\0cd\xff", 6));
    StartWith(kOne);
    DialogSteps steps;
    steps.ChooseFile(kSaveTitle, temp_.Path("b.rul"));
    Press(RM_OPEN_RULES);
    EXPECT_EQ(RulesText(), "ab");
    EXPECT_EQ(Rules(), Rows{});
    EXPECT_EQ(Count(), "Rule 0");
}

TEST_F(RuleEditorTest, RemovesTheSelectedRuleAndWritesTheIndex) {
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

TEST_F(RuleEditorTest, RemoveOnlyRenumbersWhenNumbersChange) {
    StartWith(kOne + kThree);
    ReNumRules(box_->Window(), 0);
    SetRulesText(kOne + kThree);
    box_->Select(RULE_RULES, 0);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nccc\r\nEndRule\r\n");
    EXPECT_EQ(ListRows(box_->Item(RULE_RULES)).Selected(), -1);
    EXPECT_TRUE(IsModified());
}

TEST_F(RuleEditorTest, ALastRuleThatEndsTheTextIsNotRemoved) {
    StartWith(kOne + "Rule 2\r\nEndRule");
    ReNumRules(box_->Window(), 0);
    box_->Select(RULE_RULES, 1);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), kOne + "Rule 2\r\nEndRule");
    EXPECT_EQ(RuleNum, 2);
}

TEST_F(RuleEditorTest, MoveCopiesTheSelectedRule) {
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

TEST_F(RuleEditorTest, AFailedMoveLeavesTheTargetAsItWas) {
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

TEST_F(RuleEditorTest, TagsComeSortedAndGoToTheEndOfTheText) {
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
    StartWith(kOne);
    box_.reset();
    DialogSteps steps;
    steps.When("Rules", [](const DialogHandle& box) {
        EXPECT_EQ(GetWindow(box.Window(), GW_OWNER), nullptr);
        EXPECT_TRUE(IsWindowEnabled(hFrame));
        DestroyWindow(hFrame);
        PostQuitMessage(7);
    });
    RunRuleEditor();
    EXPECT_EQ(EditRule, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_EQ(FindWindowA("#32770", "Rules"), nullptr);
}

TEST_F(RuleEditorTest, RunsOnlyOnce) {
    StartWith(kOne);
    box_.reset();
    const std::string path = temp_.Path("a.rul");
    DialogSteps steps;
    steps.When("Rules", [&](const DialogHandle& box) {
        OpenText("untitled.rul");
        RunRuleEditor();
        EXPECT_EQ(Text(RuleFile), path);
        EXPECT_EQ(Text(RuleSize), WithExtension(path, ".siz"));
        EXPECT_TRUE(box.IsOpen());
        box.Press(RM_CLOSE);
    });
    RunRuleEditor();
    EXPECT_EQ(EditRule, 0);
}

} // namespace
