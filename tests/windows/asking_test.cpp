// What happens while a file dialog or a box without an owner is open: it leaves the rest of the
// program usable, so its subject can be closed, changed or asked for again.
#include "file_choices.h"
#include "rule_editor_fixture.h"
#include "write_lock.h"

#include "project/project_commands.h"
#include "project/ZENPRO.h"
#include "resources/core/dde_item.h"
#include "resources/core/record_files.h"
#include "resources/dde_items.h"
#include "resources/facts_base.h"
#include "resources/knowledge_types.h"
#include "resources/names_lists.h"
#include "shell/services/asking.h"
#include "system/system_commands.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

const std::string kCloseText = "Close notification: File Has been change. Save before Closing?";

// Text editors in a frame, and a file that is there already.
class TextAsked : public testing::Test {
protected:
    TextAsked() {
        temp_.Put("old.cpp", "old");
        Project.Init();
        System.Init();
    }
    ~TextAsked() override { EditState = EditRule = 0; }

    std::string Old() const { return temp_.Path("old.cpp"); }

    static HWND OpenWith(const char* title, const char* text) {
        OpenEdit(title);
        const HWND child = GetMdi();
        SetWindowTextA(TopChild(child), text);
        SendMessageA(TopChild(child), EM_SETMODIFY, TRUE, 0);
        return child;
    }
    static void SetUnmodified(HWND child) { SendMessageA(TopChild(child), EM_SETMODIFY, FALSE, 0); }
    static void CloseBox(HWND child) { SendMessageA(child, WM_SYSCOMMAND, SC_CLOSE, 0); }

    TempFolder temp_;
    FrameWindow frame_;
    FileChoices choices_;
};

TEST_F(TextAsked, AnEditorClosedBesideItsSaveDialogWritesNothing) {
    const HWND child = OpenWith("untitled", "new");
    SetUnmodified(child);
    choices_.Meanwhile([&] { CloseBox(child); }, Old());
    SaveFileAs(child);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(temp_.Content("old.cpp"), "old");
}

TEST_F(TextAsked, AnEditorClosedByTheCommandBesideItsSaveDialogWritesNothing) {
    const HWND child = OpenWith("untitled", "new");
    Boxes boxes(Answer::No);
    choices_.Meanwhile([&] { DestroyMdiE(); }, Old());
    SaveFileAs(child);
    EXPECT_EQ(boxes.shown, Texts{kCloseText});
    EXPECT_EQ(temp_.Content("old.cpp"), "old");
}

TEST_F(TextAsked, ASecondSaveAsBesideTheFirstAsksNothing) {
    const HWND child = OpenWith("untitled", "new");
    choices_.Meanwhile(
        [&] {
            SaveFileAs(child);
            SaveFile(child);
        },
        Old());
    SaveFileAs(child);
    EXPECT_EQ(choices_.asked.size(), 1u);
    EXPECT_EQ(temp_.Content("old.cpp"), "new");
    EXPECT_EQ(ChildTitle(child), Old());
}

TEST_F(TextAsked, ASecondEditorCanBeSavedBesideTheFirst) {
    const HWND one = OpenWith("untitled", "one");
    const HWND two = OpenWith("untitled", "two");
    choices_.Meanwhile([&] { SaveFileAs(two); }, temp_.Path("one.cpp"));
    choices_.Choose(temp_.Path("two.cpp"));
    SaveFileAs(one);
    EXPECT_EQ(temp_.Content("one.cpp"), "one");
    EXPECT_EQ(temp_.Content("two.cpp"), "two");
}

TEST_F(TextAsked, TheCloseBoxUsedTwiceClosesOnce) {
    const HWND child = OpenWith("untitled", "new");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile(
        [&] {
            CloseBox(child);
            EXPECT_TRUE(IsWindow(child));
        },
        Old());
    CloseBox(child);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(boxes.shown, Texts{kCloseText});
    EXPECT_EQ(temp_.Content("old.cpp"), "new");
}

TEST_F(TextAsked, ClosingWithYesBesideTheSaveDialogLeavesTheTextToIt) {
    const HWND child = OpenWith("untitled", "new");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile([&] { CloseBox(child); }, Old());
    SaveFileAs(child);
    EXPECT_TRUE(IsWindow(child));
    EXPECT_EQ(temp_.Content("old.cpp"), "new");
}

TEST_F(TextAsked, TheExitAsksForATextThatWasBegunMeanwhile) {
    OpenWith("untitled", "one");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile([] { OpenWith("untitled", "two"); }, temp_.Path("one.cpp"));
    choices_.Choose(temp_.Path("two.cpp"));
    ExitZentrik(hFrame);
    EXPECT_EQ(temp_.Content("one.cpp"), "one");
    EXPECT_EQ(temp_.Content("two.cpp"), "two");
    EXPECT_FALSE(IsWindow(hFrame));
}

TEST_F(TextAsked, TheExitAsksForAProjectThatWasBegunMeanwhile) {
    OpenWith("untitled", "one");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile(
        [] {
            NewMORV(hFrame);
            Project.MORVmod = 1;
        },
        temp_.Path("one.cpp"));
    choices_.Choose(temp_.Path("p.mrv"));
    ExitZentrik(hFrame);
    EXPECT_EQ(temp_.Content("p.mrv").size(), 4096u);
    EXPECT_FALSE(IsWindow(hFrame));
}

TEST_F(TextAsked, ASecondExitWaitsForTheFirst) {
    const HWND child = OpenWith("untitled", "one");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile(
        [] {
            ExitZentrik(hFrame);
            EXPECT_FALSE(MayEndSession(hFrame));
        },
        "");
    ExitZentrik(hFrame); // the name was not given: the text stays
    EXPECT_TRUE(IsWindow(hFrame));
    EXPECT_EQ(EditText(TopChild(child)), "one");
    EXPECT_EQ(boxes.shown, Texts{kCloseText});
}

TEST_F(TextAsked, AnEditorThatWasClosedBesideItsNameDialogStopsTheExit) {
    const HWND child = OpenWith("untitled", "one");
    Boxes boxes(Answer::Yes);
    choices_.Meanwhile(
        [&] {
            SetUnmodified(child);
            CloseBox(child);
        },
        Old());
    ExitZentrik(hFrame);
    EXPECT_EQ(temp_.Content("old.cpp"), "old");
}

TEST_F(TextAsked, ATextThatShowsLessThanItsFileDoesNotReplaceItUnasked) {
    temp_.Put("cut.cpp", std::string("before\0after", 12));
    OpenEdit(temp_.Path("cut.cpp").c_str());
    const HWND child = GetMdi();
    EXPECT_EQ(EditText(TopChild(child)), "before");
    choices_.Cancel();
    SaveFile(child);
    EXPECT_EQ(choices_.asked.at(0).substr(0, 22), "save|Save File As ...|");
    EXPECT_EQ(temp_.Content("cut.cpp").size(), 12u);
    // Once it was saved under a name it shows all of that file.
    choices_.Choose(Old());
    SaveFile(child);
    EXPECT_EQ(temp_.Content("old.cpp"), "before");
    SaveFile(child);
    EXPECT_EQ(choices_.asked.size(), 2u);
}

TEST_F(TextAsked, AFileThatCannotBeReadIsNotReplacedUnasked) {
    HWND child = nullptr;
    {
        const WholeLock lock(Old());
        OpenEdit(Old().c_str());
        child = GetMdi();
    }
    EXPECT_EQ(EditText(TopChild(child)), "");
    choices_.Cancel();
    SaveFile(child);
    EXPECT_EQ(temp_.Content("old.cpp"), "old");
}

TEST_F(TextAsked, AFileThatIsNotThereYetIsWrittenUnasked) {
    OpenEdit(temp_.Path("new.cpp").c_str());
    SetWindowTextA(TextHwnd(), "text");
    SaveFile(GetMdi());
    EXPECT_EQ(temp_.Content("new.cpp"), "text");
}

TEST_F(TextAsked, TheEndOfTheSessionAsksAndClosesNothing) {
    const HWND child = OpenWith("untitled", "one");
    NewMORV(hFrame);
    Project.MORVmod = 1;
    {
        Boxes boxes(Answer::Cancel);
        EXPECT_FALSE(MayEndSession(hFrame));
        EXPECT_EQ(boxes.shown.size(), 1u);
    }
    Boxes boxes(Answer::No);
    EXPECT_TRUE(MayEndSession(hFrame));
    EXPECT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(Project.MORState, 1);
    EXPECT_TRUE(IsWindow(TopChild(child)));
}

// Rules, with a text window and the rules dialog.
class RulesAsked : public RuleEditorTest {
protected:
    FileChoices choices_;
};

TEST_F(RulesAsked, AMovedRuleIsTheOneThatWasSelected) {
    StartWith(kOne + kTwo);
    temp_.Put("to.rul", "x");
    Press(RULE_END_RULE);
    box_->Select(RULE_RULES, 1);
    choices_.Meanwhile([this] { SetRulesText("Rule 1\r\nother\r\nEndRule\r\n"); },
                       temp_.Path("to.rul"));
    Press(RM_MOVE_RULE);
    EXPECT_EQ(temp_.Content("to.rul"), kTwo + "x");
}

TEST_F(RulesAsked, ATextWindowThatIsGoneIsNotSaved) {
    StartWith(kOne);
    temp_.Put("old.rul", "old");
    choices_.Meanwhile([this] { DestroyWindow(edit_); }, temp_.Path("old.rul"));
    Press(RM_SAVE_FILE_AS);
    EXPECT_EQ(temp_.Content("old.rul"), "old");
    EXPECT_EQ(Text(RuleFile), temp_.Path("a.rul"));
}

TEST_F(RulesAsked, AFailedSaveAsKeepsTheNameBefore) {
    StartWith(kOne);
    temp_.Put("old.rul", "old");
    const WriteLock lock(temp_.Path("old.rul"));
    Boxes boxes;
    choices_.Choose(temp_.Path("old.rul"));
    Press(RM_SAVE_FILE_AS);
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(Text(RuleFile), temp_.Path("a.rul"));
    EXPECT_EQ(Text(RuleSize), temp_.Path("a.siz"));
    EXPECT_EQ(Title(child_), temp_.Path("a.rul"));
    EXPECT_TRUE(IsModified());
}

TEST_F(RulesAsked, ASecondCommandWaitsForTheFirst) {
    StartWith(kOne);
    choices_.Meanwhile(
        [this] {
            Press(RM_SAVE_FILE_AS);
            Press(RM_CLOSE);
            EXPECT_TRUE(box_->IsOpen());
        },
        "");
    Press(RM_SAVE_FILE_AS);
    EXPECT_EQ(choices_.asked.size(), 1u);
}

// Lists that a dialog without its own owner, or over a save dialog without one, edits.
class ListAsked : public testing::Test {
protected:
    ListAsked() {
        SetText(DDEFileName, "untitled.dde");
        DDEType = 0;
        temp_.Put("old.dde", "old");
    }
    static void Fill(const DialogHandle& dialog) {
        dialog.Put(DDE_NAME, "plant");
        dialog.Put(DDE_ITEM_NAME, "Level");
        dialog.Press(IDOK);
    }

    TempFolder temp_;
    Boxes boxes_;
    FileChoices choices_;
};

TEST_F(ListAsked, CloseOfADdeListUsedTwiceAsksOnce) {
    const ShownDialog dialog("Dde_Box", DDEDlg);
    Fill(dialog);
    choices_.Meanwhile([&] { dialog.Press(DDE_CLOSE); }, temp_.Path("old.dde"));
    dialog.Press(DDE_CLOSE);
    EXPECT_EQ(choices_.asked.size(), 1u);
    EXPECT_EQ(temp_.Content("old.dde").size(), 255u + 150u);
    EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(ListAsked, ADdeListCancelledBesideItsSaveDialogIsNotWritten) {
    const ShownDialog dialog("Dde_Box", DDEDlg);
    Fill(dialog);
    choices_.Meanwhile([&] { dialog.Press(IDCANCEL); }, temp_.Path("old.dde"));
    dialog.Press(DDE_CLOSE);
    EXPECT_EQ(temp_.Content("old.dde"), "old");
}

TEST_F(ListAsked, CloseOfTagsUsedTwiceAsksOnce) {
    DialogSteps steps;
    steps.When("Tags", [&](const DialogHandle& dialog) {
        dialog.Put(TAGS_NAME, "one");
        dialog.Press(IDOK);
        choices_.Meanwhile([&] { dialog.Press(TAGS_CLOSE); }, temp_.Path("new.tag"));
        dialog.Press(TAGS_CLOSE);
    });
    NewTag(nullptr);
    EXPECT_EQ(choices_.asked.size(), 1u);
    EXPECT_EQ(NamesIn(temp_.Path("new.tag").c_str()), Texts{"one"});
}

TEST_F(ListAsked, ResultsCancelledBesideTheirSaveDialogAreNotWritten) {
    temp_.Put("old.rst", "old");
    DialogSteps steps;
    steps.When("Results", [&](const DialogHandle& dialog) {
        dialog.Put(RES_NAME, "one");
        dialog.Press(IDOK);
        choices_.Meanwhile([&] { dialog.Press(IDCANCEL); }, temp_.Path("old.rst"));
        dialog.Press(RES_CLOSE);
    });
    NewResult(nullptr);
    EXPECT_EQ(temp_.Content("old.rst"), "old");
}

TEST_F(ListAsked, AddTypeUsedTwiceOpensOneDialog) {
    WriteNames(temp_.Path("a.typ").c_str(), Texts{"one"});
    SetText(KTypeFileName, temp_.Path("a.typ"));
    int opened = 0;
    DialogSteps steps;
    steps.When("Knowledge Type", [&](const DialogHandle& dialog) {
        ++opened;
        EditKnowledgeTypes(); // comes back at once
        dialog.Put(KTYPE_NAME, "two");
        dialog.Press(IDOK);
        dialog.Press(IDCANCEL);
    });
    EditKnowledgeTypes();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(NamesIn(temp_.Path("a.typ").c_str()), (Texts{"one", "two"}));
}

TEST_F(ListAsked, TheExitStopsAtAChangedListWithoutAnOwner) {
    const FrameWindow frame;
    Project.Init();
    System.Init();
    {
        const ShownDialog dialog("Dde_Box", DDEDlg);
        EXPECT_FALSE(ShowUnsavedDialog(Dialogs::WithoutOwner));
        Fill(dialog);
        ExitZentrik(hFrame);
        EXPECT_TRUE(IsWindow(hFrame));
        EXPECT_FALSE(MayEndSession(hFrame));
        dialog.Press(IDCANCEL);
        EXPECT_TRUE(MayEndSession(hFrame));
    }
    const HWND before = hFrame;
    ExitZentrik(hFrame);
    EXPECT_FALSE(IsWindow(before));
}

} // namespace
