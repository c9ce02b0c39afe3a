// The rule editor among the other windows: what is asked before its text is left, and what the
// frame and the text windows can do while it is open.
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <optional>

namespace gui {

namespace {

const std::string kRules = "Rule 1\r\na\r\nEndRule\r\n";
constexpr char kTextChanged[] = "File Has been change. Save before Closing?";
constexpr char kClosing[] = "Close notification";

class RuleLeavingTest : public GuiTest {
protected:
    RuleBox& RunNew(const App::Setup& setup = {}) {
        app_ = &Run(Kind::Nt, setup);
        app_->Start(CM_RULES);
        return box_.emplace(*app_);
    }

    // The rule editor on "a.rul" with a changed text.
    RuleBox& RunChanged() {
        RuleBox& box = RunNew([](const WorkFolder& work) { PutFile(work.Path("a.rul"), kRules); });
        box.CommandWithFile(RM_OPEN_RULES, kRulesTitle, app_->Path("a.rul"));
        box.TypeAtEnd("x");
        return box;
    }

    void Ask(Answer answer) {
        box_->Ask(answer);
        app_->Finish();
    }

    void AskText(Answer answer) {
        app_->ExpectBox(kTextChanged, kClosing, Buttons::YesNoCancel, Icon::None, answer);
    }

    std::string File(const std::string& name) const { return FileContent(app_->Path(name)); }

    void ExpectKept() {
        EXPECT_TRUE(box_->Open());
        EXPECT_EQ(box_->Content(), kRules + "x");
        EXPECT_TRUE(box_->Modified());
        EXPECT_EQ(File("a.rul"), kRules);
    }

    App* app_ = nullptr;
    std::optional<RuleBox> box_;
};

TEST_F(RuleLeavingTest, CancelKeepsTheEditorOpenOnEveryWay) {
    RuleBox& box = RunChanged();
    for (int way : {RM_CLOSE, RM_NEW_FILE, RM_OPEN_RULES, IDCANCEL}) {
        box.Start(way);
        Ask(Answer::Cancel);
        ExpectKept();
    }
    box.StartCloseBox();
    Ask(Answer::Cancel);
    ExpectKept();
}

TEST_F(RuleLeavingTest, CloseSavesOrDrops) {
    for (Answer answer : {Answer::Yes, Answer::No}) {
        RuleBox& box = RunChanged();
        box.Start(RM_CLOSE);
        Ask(answer);
        box.Finish();
        EXPECT_TRUE(app_->Children().empty());
        EXPECT_EQ(File("a.rul"), answer == Answer::Yes ? kRules + "x" : kRules);
        EXPECT_EQ(FileExists(app_->Path("a.siz")), answer == Answer::Yes);
    }
}

TEST_F(RuleLeavingTest, TheCloseBoxSavesOrDrops) {
    for (Answer answer : {Answer::Yes, Answer::No}) {
        RuleBox& box = RunChanged();
        box.StartCloseBox();
        Ask(answer);
        box.Finish();
        EXPECT_TRUE(app_->Children().empty());
        EXPECT_EQ(File("a.rul"), answer == Answer::Yes ? kRules + "x" : kRules);
        EXPECT_EQ(File("a.siz"), answer == Answer::Yes ? IndexFile({18}) : "");
    }
}

TEST_F(RuleLeavingTest, NewFileSavesOrDrops) {
    for (Answer answer : {Answer::Yes, Answer::No}) {
        RuleBox& box = RunChanged();
        box.Start(RM_NEW_FILE);
        Ask(answer);
        box.TextChanged();
        EXPECT_EQ(box.Content(), "");
        EXPECT_EQ(File("a.rul"), answer == Answer::Yes ? kRules + "x" : kRules);
        box.Close(); // there is nothing to ask about the new text
    }
}

TEST_F(RuleLeavingTest, OpenRulesSavesOrDrops) {
    for (Answer answer : {Answer::Yes, Answer::No}) {
        RuleBox& box = RunChanged();
        PutFile(app_->Path("b.rul"), "other");
        box.Start(RM_OPEN_RULES);
        box.Ask(answer);
        app_->ChooseFile(kRulesTitle, app_->Path("b.rul"));
        app_->Finish();
        EXPECT_EQ(box.Content(), "other");
        EXPECT_EQ(File("a.rul"), answer == Answer::Yes ? kRules + "x" : kRules);
        box.Close();
    }
}

TEST_F(RuleLeavingTest, ButtonsAndTagsChangeTheTextToo) {
    RuleBox& box =
        RunNew([](const WorkFolder& work) { PutFile(work.Path("a.tag"), TagBytes({"HIGH"})); });
    auto expect_asked = [&] {
        box.Start(RM_CLOSE);
        Ask(Answer::Cancel);
        box.Start(RM_NEW_FILE);
        Ask(Answer::No);
        box.TextChanged();
    };
    box.Click(RULE_RULE);
    expect_asked();
    box.Click(RULE_END_RULE);
    expect_asked();
    box.CommandWithFile(RM_OPEN_TAGS, kTagsTitle, app_->Path("a.tag"));
    box.DoubleClickTag(0);
    expect_asked();
    box.Close();
}

TEST_F(RuleLeavingTest, AnUntitledTextIsSavedUnderTheNameGiven) {
    RuleBox& box = RunNew();
    box.Click(RULE_RULE);
    box.Start(RM_CLOSE);
    box.Ask(Answer::Yes);
    app_->ChooseFile(kRulesTitle, app_->Path("new.rul"));
    app_->Finish();
    box.Finish();
    EXPECT_EQ(File("new.rul"), "Rule 1EndRule\r\n");
    EXPECT_EQ(File("new.siz"), IndexFile({13}));
    EXPECT_FALSE(FileExists(app_->Path("untitled.rul")));
}

TEST_F(RuleLeavingTest, WithoutANameItIsSavedAsUntitled) {
    RuleBox& box = RunNew();
    box.Click(RULE_RULE);
    box.StartCloseBox();
    box.Ask(Answer::Yes);
    app_->CancelFile(kRulesTitle);
    app_->Finish();
    box.Finish();
    EXPECT_EQ(File("untitled.rul"), "Rule 1EndRule\r\n");
    EXPECT_EQ(File("untitled.siz"), IndexFile({13}));
}

TEST_F(RuleLeavingTest, AFailedSaveKeepsTheText) {
    RuleBox& box = RunChanged();
    {
        const LockedFile lock(app_->Path("a.rul"));
        box.Start(RM_CLOSE);
        box.Ask(Answer::Yes);
        app_->ExpectError("Permison denied");
        app_->Finish();
    }
    ExpectKept();
}

TEST_F(RuleLeavingTest, ExitAsksForTheRulesLikeForAnyText) {
    for (Answer answer : {Answer::Yes, Answer::No}) {
        RunChanged();
        app_->Start(CM_EXIT);
        AskText(Answer::Cancel);
        app_->Finish();
        ExpectKept();
        app_->Process().Start(app_->Frame(), WM_SYSCOMMAND, SC_CLOSE);
        AskText(answer);
        EXPECT_EQ(app_->Farewell(), 0u);
        EXPECT_EQ(File("a.rul"), answer == Answer::Yes ? kRules + "x" : kRules);
        EXPECT_EQ(File("a.siz"), answer == Answer::Yes ? IndexFile({18}) : "");
    }
}

TEST_F(RuleLeavingTest, ExitWithoutAChangeAsksNothing) {
    RunNew();
    EXPECT_EQ(app_->Exit(), 0u);
}

TEST_F(RuleLeavingTest, NothingIsDisabledWhileItIsOpen) {
    RuleBox& box = RunNew();
    EXPECT_TRUE(IsWindowEnabled(app_->Frame()));
    EXPECT_TRUE(IsWindowEnabled(app_->Client()));
    EXPECT_TRUE(IsWindowEnabled(box.Edit()));
    box.TypeAtEnd("Rule 1\r");
    EXPECT_EQ(box.Content(), "Rule 1\r\n");
    app_->Command(CM_NEW_MORV);
    app_->Command(CM_NEW_SYSTEM);
    EXPECT_TRUE(app_->HasChild(kProject));
    EXPECT_TRUE(app_->HasChild(kSystem));
    app_->Command(CM_CASCADE);
    app_->Start(CM_HISTORY_LENGTH);
    app_->WaitDialog("History Length").Close();
    app_->Finish();
    app_->Command(CM_CLOSE_SYSTEM);
    EXPECT_FALSE(app_->HasChild(kSystem));
    EXPECT_TRUE(box.Open());
    EXPECT_EQ(box.Content(), "Rule 1\r\n");
}

TEST_F(RuleLeavingTest, TheFramesEditCommandsWorkOnItsText) {
    RuleBox& box = RunNew();
    box.TypeAtEnd("Rule");
    app_->Process().Send(box.Edit(), EM_SETSEL, 0, -1);
    app_->Command(CM_COPY);
    box.TypeAtEnd(" ");
    app_->Command(CM_PASTE);
    EXPECT_EQ(box.Content(), "Rule Rule");
}

TEST_F(RuleLeavingTest, TheTextEditorsFileCommandsDoNothingMeanwhile) {
    RuleBox& box = RunChanged();
    for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
        app_->Command(id);
    app_->StartClose(app_->Child(kEditor));
    app_->Finish();
    ExpectKept();
    box.Start(RM_CLOSE);
    Ask(Answer::No);
    box.Finish();
    // Afterwards they work again.
    app_->CommandWithFile(CM_OPEN_FILE, "Open File", app_->Path("a.rul"));
    app_->Type("x");
    app_->Command(CM_SAVE_FILE);
    EXPECT_EQ(File("a.rul"), "x" + kRules);
    app_->CloseChild(app_->Child(kEditor));
}

TEST_F(RuleLeavingTest, OtherTextWindowsCannotBeClosedMeanwhile) {
    RuleBox& box = RunChanged();
    app_->Command(CM_NEW_FILE);
    HWND other = app_->Child(kEditor);
    ASSERT_NE(GetWindow(other, GW_CHILD), box.Edit());
    app_->Type("int a;");
    app_->StartClose(other);
    app_->Finish();
    app_->Command(CM_CLOSE_FILE);
    app_->Command(CM_SAVE_FILE);
    EXPECT_TRUE(IsWindow(other));
    EXPECT_EQ(app_->Children().size(), 2u);
    // The rule editor keeps to its own text, whichever window is active.
    box.Click(RULE_RULE);
    EXPECT_EQ(app_->EditorText(), "int a;");
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(File("a.rul"), kRules + "xRule 2EndRule\r\n");
    box.Close();
    EXPECT_EQ(app_->Children(), std::vector<HWND>{other});
}

} // namespace

} // namespace gui
