#include "system/system_commands.h"

#include "command_test.h"
#include "dialog_test.h"
#include "project/ZENPRO.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;

class SystemCommands : public CommandTest {
protected:
    static RowTexts Rows() { return RowsOf(System.hwndSys); }

    void OpenNamed(const std::string& name) {
        NewEngine(hFrame);
        System.ChangeName(Path(name).c_str());
    }

    static void SetFacts(const RowTexts& facts) {
        for (const std::string& fact : facts) {
            System.NameKnw(NameBuffer(fact));
            System.DatNum += 1;
        }
        System.TitleKnw();
    }
};

TEST_F(SystemCommands, NewSystemEnablesItsMenus) {
    NewEngine(hFrame);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
    EXPECT_EQ(System.EngineState, 1);
    for (int id : {CM_SAVE_SYSTEM, CM_SAVE_AS_SYSTEM, CM_CLOSE_SYSTEM})
        EXPECT_FALSE(FrameWindow::IsGray(id)) << id;
    EXPECT_TRUE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    Boxes boxes;
    NewEngine(hFrame);
    OpenEngine(hFrame); // before any file dialog
    EXPECT_EQ(boxes.shown, (RowTexts{"New MORV System: There is a Opened MORV System",
                                     "Open MORV System: There is Opened MORV System"}));
    EXPECT_EQ(boxes.messages[0].owner, hFrame);
}

TEST_F(SystemCommands, AreRefusedWithoutASystem) {
    Boxes boxes;
    SaveEngine(hFrame);
    SaveAsEngine(hFrame);
    EXPECT_EQ(CloseEngine(hFrame), 0);
    AddLocalVar(hFrame);
    AddHeader(hFrame);
    AddOpposite(hFrame);
    AddKnow(hFrame);
    AddRules(hFrame);
    KnowValue(hFrame);
    RowTexts expected;
    for (const char* caption :
         {"Save MORV System", "Save MORV System As...", "Close MORV System As...",
          "Add System Local Var", "Add Header", "Add Opposite", "Add Facts Base", "Add Rules",
          "Init Knowledge Base"})
        expected.push_back(std::string(caption) + ": There is not Opened MORV System");
    EXPECT_EQ(boxes.shown, expected);
}

TEST_F(SystemCommands, SaveOfAnUntitledSystemForgetsTheChangesWhenCancelled) {
    NewEngine(hFrame);
    System.Engmod = 1;
    Cancel(SaveAsEngine);
    EXPECT_EQ(System.Engmod, 1);
    Cancel(SaveEngine);
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_TRUE(System.IsUntitled());
    System.Engmod = 1;
    FileChoices choices;
    choices.Choose(Path("a.lse"));
    SaveEngine(hFrame);
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("a.lse"))}));
    EXPECT_EQ(temp_.Content("a.lse").size(), 1797u);
}

TEST_F(SystemCommands, AFailedSaveKeepsNameAndChanges) {
    NewEngine(hFrame);
    System.Engmod = 1;
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    {
        FileChoices choices;
        choices.Choose(Path("a.lse"));
        SaveEngine(hFrame);
    }
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_TRUE(System.IsUntitled());
    System.ChangeName(Path("a.lse").c_str());
    SaveEngine(hFrame);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(CloseEngine(hFrame), 1);
    files::FailWritesAfter(-1);
    EXPECT_EQ(System.EngineState, 1);
    EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(SystemCommands, CloseAsksForAChangedSystem) {
    OpenNamed("a.lse");
    System.NameHeader("h.cpp");
    EnableSystemMenus(hFrame);
    {
        Boxes boxes(Answer::Cancel);
        EXPECT_EQ(CloseEngine(hFrame), 1);
        EXPECT_EQ(boxes.shown, RowTexts{"Close MORV System:    Save Current MORV System"});
        EXPECT_EQ(boxes.messages[0].owner, nullptr);
        EXPECT_EQ(boxes.messages[0].buttons, Buttons::YesNoCancel);
    }
    Boxes boxes(Answer::Yes);
    EXPECT_EQ(CloseEngine(hFrame), 0);
    DestroyMdiS();
    EXPECT_EQ(temp_.Content("a.lse").size(), 1797u);
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_EQ(System.HeadState, 1); // carries over
    EXPECT_EQ(GetMdi(), nullptr);
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_TRUE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    NewEngine(hFrame);
    EXPECT_EQ(System.HeadState, 0);
    EXPECT_EQ(CloseEngine(hFrame), 0);
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(SystemCommands, OpenEnablesTheMenusOfWhatItFinds) {
    OpenNamed("a.lse");
    System.NameHeader("h.cpp");
    SaveEngine(hFrame);
    CloseEngine(hFrame);
    DestroyMdiS();
    Choose("a.lse", OpenEngine);
    EXPECT_EQ(Rows(),
              (RowTexts{"System Name", ItemRow(Path("a.lse")), "System Header", "\th.cpp"}));
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
}

TEST_F(SystemCommands, AFailedOpenLeavesAWindowThatCanBeClosed) {
    Boxes boxes;
    Choose("short.lse", OpenEngine);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Engine: Open Error"});
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("short.lse"))}));
    EXPECT_EQ(CloseEngine(hFrame), 0);
    DestroyMdiS();
    EXPECT_EQ(GetMdi(), nullptr);
}

TEST_F(SystemCommands, AskForFilesOfTheirKind) {
    NewEngine(hFrame);
    SetFacts({"fever"});
    FileChoices choices;
    for (auto command :
         {SaveEngine, SaveAsEngine, AddHeader, AddOpposite, AddKnow, AddRules, KnowValue}) {
        choices.Cancel();
        command(hFrame);
    }
    System.DestroySys();
    choices.Cancel();
    OpenEngine(hFrame);
    const std::string all = "| All Files (*.*)|*.*";
    const std::string save =
        "save|Save MORV System As...|.lse|2|MORV System Files (*.lse)|*.lse" + all;
    EXPECT_EQ(choices.asked,
              (RowTexts{save, save, "open|Add System Header|.cpp|4096|Files (*.cpp)|*.cpp" + all,
                        "open|Add Opposites|.rst|4096|MORV Result Files (*.rst)|*.rst" + all,
                        "open|Open MORV Facts|.fac|4096|MORV Know Files (*.fac)|*.fac" + all,
                        "open|Open MORV Rules|.rul|4096|MORV Rule Files (*.rul)|*.rul" + all,
                        "open|Open DDE File|.dde|12288| DDE Files (*.dde)|*.dde"
                        "|All Files (*.*)|*.*",
                        "open|Open MORV System|.lse|4096|MORV Systems Files (*.lse)|*.lse" + all}));
}

TEST_F(SystemCommands, EachResourceEnablesRemove) {
    NewEngine(hFrame);
    auto enables = [](auto add) {
        GrayMenu(hFrame, 6);
        add();
        return !FrameWindow::IsGray(CM_RESOURCE_REMOVE);
    };
    EXPECT_FALSE(enables([] { Cancel(AddRules); }));
    EXPECT_TRUE(enables([this] { Choose("r.rul", AddRules); }));
    EXPECT_FALSE(enables([] { Cancel(AddHeader); }));
    EXPECT_TRUE(enables([this] { Choose("h.cpp", AddHeader); }));
    EXPECT_FALSE(enables([] { Cancel(AddOpposite); }));
    EXPECT_TRUE(enables([this] {
        DialogSteps steps;
        steps.When("Result/Opposite ", [](const DialogHandle& dialog) { dialog.Press(IDCANCEL); });
        Choose("o.rst", AddOpposite);
    }));
    EXPECT_TRUE(enables([] {
        DialogSteps steps;
        steps.When("Local Vars", [](const DialogHandle& dialog) { dialog.Press(IDCANCEL); });
        AddLocalVar(hFrame);
    }));
}

// Neither the close question nor the file dialogs have an owner, so the menu stays usable behind
// them.
TEST_F(SystemCommands, LeaveASystemAloneThatCameMeanwhile) {
    const std::function<void()> replace = [] {
        Boxes boxes(Answer::No);
        CloseEngine(hFrame);
        DestroyMdiS();
        NewEngine(hFrame);
    };
    temp_.Put("f", "");
    for (auto command :
         {SaveEngine, SaveAsEngine, AddHeader, AddOpposite, AddKnow, AddRules, KnowValue})
        for (const std::string& path : {Path("f"), std::string()}) {
            NewEngine(hFrame);
            SetFacts({"fever"});
            System.Engmod = 1;
            FileChoices choices;
            choices.Meanwhile(replace, path);
            command(hFrame);
            EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
            EXPECT_EQ(System.Engmod, 0);
            EXPECT_STREQ(System.KnowName, "");
            EXPECT_EQ(temp_.Content("f"), "");
            CloseEngine(hFrame);
            DestroyMdiS();
        }
}

TEST_F(SystemCommands, ACancelledSaveForgetsNoChangesOfAnotherSystem) {
    NewEngine(hFrame);
    System.Engmod = 1;
    FileChoices choices;
    choices.Meanwhile(
        [] {
            System.Engmod = 0;
            CloseEngine(hFrame);
            DestroyMdiS();
            NewEngine(hFrame);
            System.NameHeader("h.cpp");
        },
        "");
    SaveEngine(hFrame);
    EXPECT_EQ(System.Engmod, 1);
}

TEST_F(SystemCommands, OpenIsRefusedWhenASystemCameMeanwhile) {
    temp_.Put("a.lse", std::string(1797, '\0'));
    Boxes boxes;
    FileChoices choices;
    choices.Meanwhile([] { NewEngine(hFrame); }, Path("a.lse"));
    OpenEngine(hFrame);
    EXPECT_EQ(boxes.shown, RowTexts{"Open MORV System: There is Opened MORV System"});
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
}

TEST_F(SystemCommands, AddRulesIsRefusedWhenRulesCameMeanwhile) {
    NewEngine(hFrame);
    Boxes boxes;
    FileChoices choices;
    choices.Meanwhile([] { System.NameRule("first.rul"); }, Path("r.rul"));
    AddRules(hFrame);
    EXPECT_EQ(boxes.shown, RowTexts{"Add Rules: There is An Opened Rule File"});
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "Rules", "\tfirst.rul"}));
}

TEST_F(SystemCommands, ACloseAnsweredWhenTheSystemIsGoneSavesNothing) {
    OpenNamed("a.lse");
    System.NameHeader("h.cpp");
    SaveEngine(hFrame);
    const std::string before = temp_.Content("a.lse");
    System.DeleteHead();
    for (bool replaced : {false, true}) {
        System.Engmod = 1;
        const HWND window = System.hwndSys;
        int questions = 0;
        const MessageShower shower = SetMessageShower([&](const Message&) {
            ++questions;
            EXPECT_EQ(CloseEngine(hFrame), 1); // it is asked for already
            System.DestroySys();
            DestroyMdiS();
            if (replaced)
                NewEngine(hFrame);
            return Answer::Yes;
        });
        EXPECT_EQ(CloseEngine(hFrame), 1);
        SetMessageShower(shower);
        EXPECT_EQ(questions, 1);
        EXPECT_EQ(temp_.Content("a.lse"), before);
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(System.EngineState, replaced ? 1 : 0);
        if (!replaced)
            OpenNamed("a.lse");
    }
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
}

// The message of a failed save has no owner either.
TEST_F(SystemCommands, AFailedSaveRenamesNoOtherSystem) {
    OpenNamed("a.lse");
    const MessageShower shower = SetMessageShower([](const Message&) {
        System.Engmod = 0;
        CloseEngine(hFrame);
        DestroyMdiS();
        NewEngine(hFrame);
        return Answer::Ok;
    });
    FileChoices choices;
    choices.Choose(Path("b.lse"));
    files::FailWritesAfter(0);
    SaveAsEngine(hFrame);
    files::FailWritesAfter(-1);
    SetMessageShower(shower);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
    EXPECT_STREQ(System.EngineName, "untitled.lse");
}

// The message of a damaged file comes when everything is in place.
TEST_F(SystemCommands, ADamagedSystemIsWholeWhenItsMessageComes) {
    SystemFile file;
    file.head.DatNum = 5;
    SetText(file.head.HeaderName, "h.cpp");
    temp_.Put("a.lse", SystemBytes(file));
    std::vector<RowTexts> rows;
    const MessageShower shower = SetMessageShower([&rows](const Message&) {
        rows.push_back(Rows());
        return Answer::Ok;
    });
    Choose("a.lse", OpenEngine);
    SetMessageShower(shower);
    EXPECT_EQ(rows, (std::vector<RowTexts>{
                        {"System Name", ItemRow(Path("a.lse")), "System Header", "\th.cpp"}}));
}

TEST_F(SystemCommands, AddHeaderAndRulesOnce) {
    NewEngine(hFrame);
    Cancel(AddHeader);
    EXPECT_EQ(Rows().size(), 2u);
    Choose("h.cpp", AddHeader);
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    Choose("r.rul", AddRules);
    Boxes boxes;
    AddHeader(hFrame);
    AddRules(hFrame);
    System.KnowState = 1;
    AddKnow(hFrame);
    EXPECT_EQ(boxes.shown, (RowTexts{"Add Header: There is An System Header",
                                     "Add Rules: There is An Opened Rule File",
                                     "Add Facts Base: There is an Opened Facts Base"}));
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "Rules", ItemRow(Path("r.rul")),
                                "System Header", ItemRow(Path("h.cpp"))}));
    EXPECT_EQ(System.RuleSizeName, Path("r.siz"));
}

TEST_F(SystemCommands, AddFactsKeepsTheNamesOfACancelledDialog) {
    NewEngine(hFrame);
    temp_.Put("a.fac", "");
    FileChoices choices;
    choices.Choose(Path("a.fac"));
    DialogSteps steps;
    steps.When("Add Resource", [](const DialogHandle& dialog) { dialog.Press(ADD_CANCEL); });
    AddKnow(hFrame);
    EXPECT_EQ(System.KnowName, Path("a.fac"));
    EXPECT_EQ(System.KTypeName, Path("a.typ"));
    EXPECT_EQ(AddType, kAddFacts);
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
}

TEST_F(SystemCommands, AddLocalVarNamesTheWorkingCopy) {
    NewEngine(hFrame);
    DialogSteps steps;
    steps.When("Local Vars", [](const DialogHandle& dialog) { dialog.Press(VAR_CLOSE); });
    AddLocalVar(hFrame);
    EXPECT_EQ(System.VarFile, Path("work") + "\\temp\\untitled.var");
    EXPECT_EQ(System.VarState, 1);
    EXPECT_EQ(Rows().back(), ItemRow(Path("work")) + "\\untitled.var");
}

TEST_F(SystemCommands, InitFactsNeedsFacts) {
    NewEngine(hFrame);
    Boxes boxes;
    KnowValue(hFrame);
    EXPECT_EQ(boxes.shown, RowTexts{"Init Knowledge Base: There is not Facts"});
    SetFacts({"fever"});
    Cancel(KnowValue);
    EXPECT_STREQ(System.IKWFile, "");
    temp_.Put("d.dde", "");
    FileChoices choices;
    choices.Choose(Path("d.dde"));
    DialogSteps steps;
    steps.When("Init Facts", [](const DialogHandle& dialog) { dialog.Press(INIT_CLOSE); });
    KnowValue(hFrame);
    EXPECT_EQ(DDEIKnw, Path("d.dde"));
    EXPECT_EQ(System.IKWFile, Path("work") + "\\tempuntitled.ikw");
    EXPECT_EQ(System.InitNew, 1);
}

TEST_F(SystemCommands, RemoveTakesWhatIsSelected) {
    NewEngine(hFrame);
    System.NameRule("r.rul");
    SetFacts({"fever", "cough"});
    System.NameOpp(NameBuffer("a\tb"));
    System.OppNum = 1;
    System.TitleOpp();
    System.NameHeader("h.cpp");
    System.NameVar("C:\\run");
    EnableMenu(hFrame, 6);
    auto remove_row = [](int row) {
        System.Engmod = 0;
        SelectRow(System.hwndSys, row);
        ResRemove(hFrame);
        return System.Engmod == 1;
    };
    // 2 rules, 4 facts, 7 opposites, 9 header, 11 variables
    EXPECT_FALSE(remove_row(-1));
    EXPECT_FALSE(remove_row(0));
    EXPECT_FALSE(remove_row(1));
    EXPECT_EQ(Rows().size(), 13u);
    EXPECT_TRUE(remove_row(5)); // fever
    EXPECT_EQ(Rows()[5], "\tcough");
    EXPECT_TRUE(remove_row(4)); // all facts
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_TRUE(remove_row(3)); // rules
    EXPECT_TRUE(remove_row(2)); // opposites
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "System Header", "\th.cpp",
                                "System Locar Var", "\tC:\\run\\untitled.var"}));
    EXPECT_TRUE(remove_row(2));
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    EXPECT_TRUE(remove_row(2));
    EXPECT_TRUE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(SystemCommands, RemoveWithoutASystemDoesNothing) {
    Boxes boxes;
    ResRemove(hFrame);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(System.Engmod, 0);
}

TEST_F(SystemCommands, RulesClosesTheTextsFirst) {
    NewEngine(hFrame);
    Project.NamePro("untitled.mrv");
    Project.CreatePro();
    OpenEdit("untitled");
    OpenEdit("untitled");
    const HWND top = GetMdi();
    SendMessageA(TextHwnd(), EM_SETMODIFY, TRUE, 0);
    {
        Boxes boxes(Answer::Cancel);
        Rules(hFrame); // a text the user keeps ends the command
        EXPECT_EQ(boxes.shown,
                  RowTexts{"Close notification: File Has been change. Save before Closing?"});
        EXPECT_TRUE(IsWindow(top));
        EXPECT_EQ(EditRule, 0);
    }
    Boxes boxes(Answer::No);
    DialogSteps steps;
    steps.When("Rules", [](const DialogHandle& dialog) {
        EXPECT_EQ(EditRule, 1);
        Rules(hFrame); // already running: nothing happens
        int editors = 0;
        for (HWND child = GetMdi(); child; child = GetWindow(child, GW_HWNDNEXT))
            editors += IsEditor(child);
        EXPECT_EQ(editors, 1);
        dialog.Press(RM_CLOSE);
    });
    Rules(hFrame);
    EXPECT_FALSE(IsWindow(top));
    EXPECT_TRUE(IsWindow(System.hwndSys));
    EXPECT_TRUE(IsWindow(Project.hwndPro));
    EXPECT_EQ(EditRule, 0);
}

} // namespace
