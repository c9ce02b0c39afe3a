// The rule editor: what its buttons and menu do to the text, the lists and the files.
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <optional>

namespace gui {

namespace {

const std::string kFirst = "Rule 1\r\na\r\nEndRule\r\n";
const std::string kSecond = "Rule 2\r\nbb\r\nEndRule\r\n";
const std::string kThree = "Rule 3\r\nccc\r\nEndRule\r\n";

int Size(const std::string& text) {
    return static_cast<int>(text.size());
}

class GuiRuleEditorTest : public GuiTest {
protected:
    // The rule editor on a new file.
    RuleBox& RunNew(const App::Setup& setup = {}, Kind kind = Kind::Nt) {
        app_ = &Run(kind, setup);
        return Start();
    }

    // The rule editor on "a.rul" with this text and, unless it is "-", this index file.
    RuleBox& RunOn(const std::string& text, const std::string& index = "-", Kind kind = Kind::Nt) {
        const auto setup = [&](const WorkFolder& work) {
            PutFile(work.Path("a.rul"), text);
            if (index != "-")
                PutFile(work.Path("a.siz"), index);
        };
        RunNew(setup, kind);
        Open("a.rul");
        return *box_;
    }

    RuleBox& Start() {
        app_->Start(CM_RULES);
        return box_.emplace(*app_);
    }

    void Open(const std::string& name) {
        box_->CommandWithFile(RM_OPEN_RULES, kRulesTitle, app_->Path(name));
    }

    // What EndRule makes of a text that was typed.
    std::string Renumbered(const std::string& typed) {
        box_->Retype(typed);
        box_->Click(RULE_END_RULE);
        return box_->Content();
    }

    std::string File(const std::string& name) const { return FileContent(app_->Path(name)); }

    App* app_ = nullptr;
    std::optional<RuleBox> box_;
};

TEST_F(GuiRuleEditorTest, StartsEmptyBesideAnUntitledText) {
    RuleBox& box = RunNew();
    EXPECT_EQ(TextOf(app_->Child(kEditor)), "untitled.rul");
    EXPECT_EQ(box.Content(), "");
    EXPECT_EQ(box.Rules(), TextRows{});
    EXPECT_EQ(box.Tags(), TextRows{});
    EXPECT_EQ(box.Count(), "");
    EXPECT_EQ(TextOf(box.Window()), "Rules");
    EXPECT_EQ(GetWindow(box.Window(), GW_OWNER), nullptr);
    box.Close();
    EXPECT_TRUE(app_->Children().empty());
    EXPECT_FALSE(FileExists(app_->Path("untitled.rul")));
    EXPECT_FALSE(FileExists(app_->Path("untitled.siz")));
}

TEST_F(GuiRuleEditorTest, StartsWithAnUntitledFileThatIsThere) {
    RuleBox& box = RunNew([](const WorkFolder& work) {
        std::string index = IndexFile({1, 2, 3});
        index[263] = 1;         // a first record is listed all the same
        index[267 + 263] = 127; // and counts like any other when it is not listed
        PutFile(work.Path("untitled.rul"), kFirst + kSecond);
        PutFile(work.Path("untitled.siz"), index);
    });
    EXPECT_EQ(box.Content(), kFirst + kSecond);
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 3"}));
    EXPECT_EQ(box.Count(), "");
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Count(), "Rule 4");
}

TEST_F(GuiRuleEditorTest, RuleAppendsAHeadingWithoutALineEnd) {
    RuleBox& box = RunNew();
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Content(), "Rule 1");
    EXPECT_EQ(box.Count(), "Rule 1");
    EXPECT_EQ(box.Rules(), TextRows{});
    box.TypeAtEnd("\rx");
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Content(), "Rule 1\r\nxRule 2");
    EXPECT_EQ(box.Count(), "Rule 2");
    box.Click(RULE_END_RULE);
    EXPECT_EQ(box.Content(), "Rule 1\r\nxEndRule\r\nRule 2EndRule\r\n");
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
}

TEST_F(GuiRuleEditorTest, EndRuleNumbersTheRulesInOrder) {
    RunNew();
    EXPECT_EQ(Renumbered("Rule 1\ra\rEndRule\rRule 7\rbb\rEndRule\r"), kFirst + kSecond);
    EXPECT_EQ(box_->Rules(), (TextRows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(Renumbered("Rule 007\rEndRule\rRule \rEndRule"),
              "Rule 1\r\nEndRule\r\nRule 2\r\nEndRule");
    EXPECT_EQ(Renumbered("no rule at all\r"), "no rule at all\r\n");
    EXPECT_EQ(box_->Rules(), TextRows{});
}

TEST_F(GuiRuleEditorTest, EndRuleMendsTheFrameOfARule) {
    RunNew();
    EXPECT_EQ(Renumbered("Rule1 x"), "Rule 1 xEndRule\r\n");
    EXPECT_EQ(Renumbered("EndRule"), "Rule 1\r\nEndRule");
    EXPECT_EQ(Renumbered("x\rEndRule\rRule 2\rEndRule\r"),
              "x\r\nRule 1\r\nEndRule\r\nRule 2\r\nEndRule\r\n");
    EXPECT_EQ(Renumbered("Rule 1\ra\rRule 2\rb\rEndRule\r"),
              "Rule 1\r\na\r\nEndRule\r\nRule 2\r\nb\r\nEndRule\r\n");
}

TEST_F(GuiRuleEditorTest, AShorterNumberMovesTheTextToTheLeft) {
    RunNew();
    std::string typed, wanted;
    for (int i = 1; i <= 10; ++i) {
        // The ninth rule has the number 10, the tenth the number 9.
        const int number = i < 9 ? i : 19 - i;
        typed += "Rule " + std::to_string(number) + " x\rEndRule\r";
        wanted += "Rule " + std::to_string(i) + " x\r\nEndRule\r\n";
    }
    EXPECT_EQ(Renumbered(typed), wanted);
    EXPECT_EQ(box_->Rules().size(), 10u);
    EXPECT_EQ(box_->Rules().back(), "Rule 10");
}

TEST_F(GuiRuleEditorTest, TheWordRulesStartsARule) {
    RunNew();
    EXPECT_EQ(Renumbered("Rule 1\rthe Rules\rEndRule\r"),
              "Rule 1\r\nthe EndRule\r\nRule 2s\r\nEndRule\r\n");
    EXPECT_EQ(box_->Rules(), (TextRows{"Rule 1", "Rule 2"}));
}

TEST_F(GuiRuleEditorTest, ShowsTheEndOfALongText) {
    RuleBox& box = RunNew();
    std::string text;
    for (int i = 1; i <= 60; ++i)
        text += "Rule " + std::to_string(i) + "\r\nEndRule\r\n";
    PutFile(app_->Path("long.rul"), text);
    Open("long.rul");
    EXPECT_EQ(app_->Process().Send(box.Edit(), EM_GETFIRSTVISIBLELINE), 0);
    box.Click(RULE_END_RULE);
    EXPECT_GT(app_->Process().Send(box.Edit(), EM_GETFIRSTVISIBLELINE), 60);
}

TEST_F(GuiRuleEditorTest, SaveAsksForTheNameOfANewFileOnly) {
    RuleBox& box = RunNew();
    box.TypeAtEnd("Rule 1\ra\rEndRule\rRule 9\rbb\rEndRule");
    box.CommandWithCancel(RM_SAVE_FILE, kRulesTitle);
    EXPECT_TRUE(box.Modified());
    EXPECT_EQ(box.Rules(), TextRows{});
    box.CommandWithFile(RM_SAVE_FILE, kRulesTitle, app_->Path("a.rul"));
    const std::string saved = kFirst + "Rule 2\r\nbb\r\nEndRule";
    EXPECT_EQ(File("a.rul"), saved);
    EXPECT_EQ(File("a.siz"), IndexFile({Size(kFirst), Size(kSecond) - 2}));
    EXPECT_EQ(TextOf(app_->Child(kEditor)), app_->Path("a.rul"));
    EXPECT_EQ(box.Count(), "Rule 2");
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    // From then on it has a name; a shorter text shortens both files.
    box.Retype("Rule 1\rEndRule\r");
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(File("a.rul"), "Rule 1\r\nEndRule\r\n");
    EXPECT_EQ(File("a.siz"), IndexFile({15}));
    EXPECT_EQ(box.Count(), "Rule 1");
    box.Close();
}

TEST_F(GuiRuleEditorTest, TheIndexGivesEachRuleItsLength) {
    RuleBox& box = RunOn("before\r\n" + kFirst + "between\r\n" + kSecond + kThree + "behind\r\n");
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(File("a.siz"), IndexFile({Size(kFirst) + 9, Size(kSecond), Size(kThree) - 2}));
    box.Retype("no rule");
    box.Command(RM_SAVE_FILE);
    EXPECT_TRUE(FileExists(app_->Path("a.siz")));
    EXPECT_EQ(File("a.siz"), "");
    EXPECT_EQ(File("a.rul"), "no rule");
    EXPECT_EQ(box.Count(), "Rule 0");
}

TEST_F(GuiRuleEditorTest, SaveAsAsksForAName) {
    RuleBox& box = RunOn(kFirst);
    box.TypeAtEnd("x");
    box.CommandWithCancel(RM_SAVE_FILE_AS, kRulesTitle);
    EXPECT_EQ(TextOf(app_->Child(kEditor)), app_->Path("a.rul"));
    box.CommandWithFile(RM_SAVE_FILE_AS, kRulesTitle, app_->Path("b.rul"));
    EXPECT_EQ(TextOf(app_->Child(kEditor)), app_->Path("b.rul"));
    EXPECT_EQ(File("b.rul"), kFirst + "x");
    EXPECT_EQ(File("b.siz"), IndexFile({Size(kFirst) - 2}));
    EXPECT_EQ(File("a.rul"), kFirst);
    EXPECT_EQ(box.Count(), "Rule 1");
    box.Close();
}

TEST_F(GuiRuleEditorTest, FailedSavesAreReported) {
    RuleBox& box = RunOn(kFirst, "old");
    box.TypeAtEnd("x");
    {
        const LockedFile index(app_->Path("a.siz"));
        const LockedFile rules(app_->Path("a.rul"));
        box.Start(RM_SAVE_FILE);
        app_->ExpectError("Permison denied");
        app_->ExpectError("Permison denied");
        app_->Finish();
    }
    EXPECT_EQ(File("a.rul"), kFirst);
    EXPECT_EQ(File("a.siz"), "old");
    // The operation goes on when only the index fails.
    {
        const LockedFile index(app_->Path("a.siz"));
        box.Start(RM_SAVE_FILE);
        app_->ExpectError("Permison denied");
        app_->Finish();
    }
    EXPECT_EQ(File("a.rul"), kFirst + "x");
    box.Close();
}

TEST_F(GuiRuleEditorTest, OpenRulesListsEveryRecord) {
    std::string index = IndexFile({20, 21});
    index[263] = 1;
    index[267 + 263] = 1;
    RuleBox& box = RunOn(kFirst + kSecond, index + "cut");
    EXPECT_EQ(box.Content(), kFirst + kSecond);
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(box.Count(), "Rule 2");
    EXPECT_EQ(TextOf(app_->Child(kEditor)), app_->Path("a.rul"));
    box.CommandWithCancel(RM_OPEN_RULES, kRulesTitle);
    EXPECT_EQ(box.Content(), kFirst + kSecond);
    PutFile(app_->Path("b.rul"), "other");
    Open("b.rul");
    EXPECT_EQ(box.Content(), "other");
    EXPECT_EQ(box.Rules(), TextRows{});
    EXPECT_EQ(box.Count(), "Rule 0");
    EXPECT_EQ(app_->Children().size(), 1u);
    box.Close();
    EXPECT_EQ(File("a.siz"), index + "cut");
    EXPECT_FALSE(FileExists(app_->Path("b.siz")));
}

class LfRulesTest : public GuiRuleEditorTest, public testing::WithParamInterface<Kind> {};

TEST_P(LfRulesTest, ShowTheirLinesAndAreSavedWithCrLf) {
    RuleBox& box = RunOn("Rule 1\na\nEndRule\n", "-", GetParam());
    app_->Inner().WaitCursorSeen(app_->Frame()); // forgets what was before
    Open("a.rul");
    EXPECT_TRUE(app_->Inner().WaitCursorSeen(app_->Frame()));
    EXPECT_EQ(box.Content(), kFirst);
    EXPECT_FALSE(box.Modified());
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(File("a.rul"), kFirst);
    EXPECT_EQ(File("a.siz"), IndexFile({Size(kFirst) - 2}));
    box.Close();
}

INSTANTIATE_TEST_SUITE_P(Kinds, LfRulesTest, testing::Values(Kind::Nt, Kind::Win98));

TEST_F(GuiRuleEditorTest, NewFileStartsAgain) {
    RuleBox& box = RunOn(kFirst, IndexFile({Size(kFirst)}));
    const HWND old = box.Edit();
    box.Command(RM_NEW_FILE);
    EXPECT_FALSE(IsWindow(old));
    EXPECT_EQ(app_->Children().size(), 1u);
    EXPECT_EQ(TextOf(app_->Child(kEditor)), "untitled.rul");
    EXPECT_EQ(box.Rules(), TextRows{});
    EXPECT_EQ(box.Count(), "Rule 0");
    box.TextChanged();
    EXPECT_EQ(box.Content(), "");
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Content(), "Rule 1");
    EXPECT_EQ(File("a.rul"), kFirst);
}

TEST_F(GuiRuleEditorTest, RemovesTheSelectedRule) {
    RuleBox& box = RunOn(kFirst + kSecond + kThree, IndexFile({1, 2, 3}));
    box.Command(RM_REMOVE_RULE); // nothing is selected
    EXPECT_EQ(box.Content(), kFirst + kSecond + kThree);
    box.Select(1);
    box.Command(RM_REMOVE_RULE);
    EXPECT_EQ(box.Content(), kFirst + "Rule 2\r\nccc\r\nEndRule\r\n");
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    // The index is written at once, the rules are not.
    EXPECT_EQ(File("a.siz"), IndexFile({Size(kFirst), Size(kThree) - 2}));
    EXPECT_EQ(File("a.rul"), kFirst + kSecond + kThree);
    EXPECT_TRUE(box.Modified());
    box.Start(RM_CLOSE);
    box.Ask(Answer::No);
    app_->Finish();
    box.Finish();
}

TEST_F(GuiRuleEditorTest, RemoveSelectsAgainWhenNumbersChange) {
    RuleBox& box = RunOn(kFirst + kThree, IndexFile({1, 2}));
    box.Select(0);
    box.Command(RM_REMOVE_RULE);
    EXPECT_EQ(box.Content(), kFirst + "Rule 2\r\nccc\r\nEndRule\r\n");
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    box.Select(0);
    box.Command(RM_REMOVE_RULE);
    EXPECT_EQ(box.Content(), "Rule 1\r\nccc\r\nEndRule\r\n");
}

TEST_F(GuiRuleEditorTest, ALastRuleWithoutALineEndStays) {
    RuleBox& box = RunOn(kFirst + "Rule 2\r\nEndRule", IndexFile({1, 2}));
    box.Select(1);
    box.Command(RM_REMOVE_RULE);
    EXPECT_EQ(box.Content(), kFirst + "Rule 2\r\nEndRule");
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    box.Click(RULE_RULE); // the number goes on from the count
    EXPECT_EQ(box.Count(), "Rule 3");
}

TEST_F(GuiRuleEditorTest, MoveCopiesTheSelectedRule) {
    RuleBox& box = RunOn(kFirst + kSecond, IndexFile({1, 2}));
    PutFile(app_->Path("b.rul"), "Rule 1\r\nEndRule\r\n");
    PutFile(app_->Path("b.siz"), "as it was");
    box.Command(RM_MOVE_RULE); // nothing is selected
    box.Select(1);
    box.CommandWithCancel(RM_MOVE_RULE, kRulesTitle);
    box.Select(1);
    box.CommandWithFile(RM_MOVE_RULE, kRulesTitle, app_->Path("b.rul"));
    EXPECT_EQ(File("b.rul"), "Rule 1\r\nEndRule\r" + kSecond + "\n");
    EXPECT_EQ(File("b.siz"), "as it was");
    EXPECT_EQ(box.Content(), kFirst + kSecond);
    EXPECT_FALSE(box.Modified());
    box.Close();
}

TEST_F(GuiRuleEditorTest, TagsAreSortedAndGoToTheEndOfTheText) {
    RuleBox& box = RunNew([](const WorkFolder& work) {
        // The last record is not whole, the second has no room for an end.
        PutFile(work.Path("a.tag"),
                TagBytes({"pump"}) + std::string(50, 'z') + TagBytes({"alarm"}) + "not all");
        PutFile(work.Path("b.tag"), TagBytes({"motor"}));
    });
    box.CommandWithCancel(RM_OPEN_TAGS, kTagsTitle);
    box.CommandWithFile(RM_OPEN_TAGS, kTagsTitle, app_->Path("a.tag"));
    EXPECT_EQ(box.Tags(), (TextRows{"alarm", "pump", std::string(50, 'z')}));
    box.CommandWithFile(RM_OPEN_TAGS, kTagsTitle, app_->Path("b.tag"));
    EXPECT_EQ(box.Tags(), (TextRows{"alarm", "motor", "pump", std::string(50, 'z')}));
    box.TypeAtEnd("If ");
    box.TypeAt(0, ""); // a tag goes to the end, not to the caret
    box.DoubleClickTag(2);
    box.DoubleClickTag(0);
    EXPECT_EQ(box.Content(), "If pumpalarm");
    box.Command(RM_CLOSE_TAGS);
    EXPECT_EQ(box.Tags(), TextRows{});
    EXPECT_EQ(File("b.tag"), TagBytes({"motor"}));
}

} // namespace

} // namespace gui
