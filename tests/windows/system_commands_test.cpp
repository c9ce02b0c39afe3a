#include "system/system_commands.h"

#include "dialog_test.h"
#include "document_test.h"
#include "shell/editor.h"
#include "shell/menu.h"
#include "shell/ZENTRIK.h"

namespace {

using namespace zentrik_test;

class SystemCommands : public DocumentTest {
protected:
    SystemCommands() {
        for (int group = 1; group <= 8; ++group)
            GrayMenu(hFrame, group);
        SetText(WorkPath, Path("work"));
        std::filesystem::create_directories(Path("work") + "\\temp");
    }
    ~SystemCommands() override { EditState = EditRule = 0; }

    static RowTexts Rows() { return RowsOf(System.hwndSys); }

    template <class Command>
    void Choose(const std::string& title, const std::string& name, Command command) {
        if (!files::Exists(Path(name).c_str()))
            temp_.Put(name, "");
        DialogSteps steps;
        steps.ChooseFile(title, Path(name));
        command(hFrame);
    }
    template <class Command> static void Cancel(const std::string& title, Command command) {
        DialogSteps steps;
        steps.CancelFile(title);
        command(hFrame);
    }

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
    Cancel("Save MORV System As...", SaveAsEngine);
    EXPECT_EQ(System.Engmod, 1);
    Cancel("Save MORV System As...", SaveEngine);
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_TRUE(System.IsUntitled());
    System.Engmod = 1;
    DialogSteps steps;
    steps.ChooseFile("Save MORV System As...", Path("a.lse"));
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
        DialogSteps steps;
        steps.ChooseFile("Save MORV System As...", Path("a.lse"));
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
    Choose("Open MORV System", "a.lse", OpenEngine);
    EXPECT_EQ(Rows(),
              (RowTexts{"System Name", ItemRow(Path("a.lse")), "System Header", "\th.cpp"}));
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
}

TEST_F(SystemCommands, AFailedOpenLeavesAWindowThatCanBeClosed) {
    Boxes boxes;
    Choose("Open MORV System", "short.lse", OpenEngine);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Engine: Open Error"});
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("short.lse"))}));
    EXPECT_EQ(CloseEngine(hFrame), 0);
    DestroyMdiS();
    EXPECT_EQ(GetMdi(), nullptr);
}

TEST_F(SystemCommands, AddHeaderAndRulesOnce) {
    NewEngine(hFrame);
    Cancel("Add System Header", AddHeader);
    EXPECT_EQ(Rows().size(), 2u);
    Choose("Add System Header", "h.cpp", AddHeader);
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    Choose("Open MORV Rules", "r.rul", AddRules);
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
    DialogSteps steps;
    steps.ChooseFile("Open MORV Facts", Path("a.fac"));
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
    Cancel("Open DDE File", KnowValue);
    EXPECT_STREQ(System.IKWFile, "");
    temp_.Put("d.dde", "");
    DialogSteps steps;
    steps.ChooseFile("Open DDE File", Path("d.dde"));
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
