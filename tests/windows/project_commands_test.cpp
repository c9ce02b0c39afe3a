#include "project/project_commands.h"

#include "dialog_test.h"
#include "document_test.h"
#include "shell/editor.h"
#include "shell/menu.h"
#include "shell/ZENTRIK.h"

namespace {

using namespace zentrik_test;

class ProjectCommands : public DocumentTest {
protected:
    ProjectCommands() {
        for (int group = 1; group <= 8; ++group)
            GrayMenu(hFrame, group);
        SetText(WorkPath, Path("work"));
        std::filesystem::create_directories(Path("work") + "\\temp");
    }
    ~ProjectCommands() override { EditState = 0; }

    static RowTexts Rows() { return RowsOf(Project.hwndPro); }

    // Chooses a file in the dialog `title` that `command` shows.
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

    // Opens a saved project of this name.
    void OpenSaved(const std::string& name) {
        Project.Init();
        Project.NamePro(Path(name).c_str());
        Project.SavePro();
        Choose("Open MORV Project", name, OpenMORV);
        ASSERT_EQ(Project.MORState, 1);
    }

    static constexpr const char* kChanged =
        "Close MORV Project: MORV Project has been changed. Save before Close?";
};

TEST_F(ProjectCommands, NewProjectEnablesItsMenus) {
    NewMORV(hFrame);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
    EXPECT_EQ(Project.MORState, 1);
    for (int id : {CM_SAVE_MORV, CM_SAVE_AS_MORV, CM_CLOSE_MORV, CM_COMPILE})
        EXPECT_FALSE(FrameWindow::IsGray(id)) << id;
    EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    Boxes boxes;
    NewMORV(hFrame);
    OpenMORV(hFrame);
    EXPECT_EQ(boxes.shown, (RowTexts{"New MORV Project: There is Opened MORV Project",
                                     "Open MORV Project: There is Opened MORV Project"}));
    EXPECT_EQ(boxes.messages[0].owner, hFrame);
}

TEST_F(ProjectCommands, AreRefusedWithoutAProject) {
    Boxes boxes;
    SaveMORV(hFrame);
    SaveAsMORV(hFrame);
    EXPECT_EQ(CloseMORV(hFrame), 0); // says nothing
    AddMain(hFrame);
    AddEngine(hFrame);
    AddExtern(hFrame);
    AddDDE(hFrame);
    AddResult(hFrame);
    Remove(hFrame);
    RowTexts expected;
    for (const char* caption :
         {"Save MORV Project", "Save MORV Project As...", "Add MORV Main", "Add MORV Main",
          "Add MORV Main", "Add MORV Main", "Add Result", "Remove MORV Item"})
        expected.push_back(std::string(caption) + ": There is not Opened MORV Project");
    EXPECT_EQ(boxes.shown, expected);
    EXPECT_EQ(Project.MORVmod, 0);
}

TEST_F(ProjectCommands, AddWhatIsChosen) {
    NewMORV(hFrame);
    Boxes boxes;
    Choose("Add MORV Main", "m.cpp", AddMain);
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    Choose("Add MORV System", "s.lse", AddEngine);
    Choose("Add MORV System", "s.lse", AddEngine); // dropped without a word
    Choose("Add MORV System", "m.cpp", AddEngine); // listed in another role
    Choose("Add MORV Extern", "e.cpp", AddExtern);
    EXPECT_TRUE(boxes.shown.empty());
    Choose("Add MORV Extern", "s.lse", AddExtern);
    Choose("Add MORV DDE", "d.dde", AddDDE);
    Cancel("Add MORV System", AddEngine);
    AddMain(hFrame);
    AddDDE(hFrame);
    EXPECT_EQ(boxes.shown,
              (RowTexts{"Add Externs: Duplicate Extern", "Add MORV Main: There is Opened MORV Main",
                        "Add MORV Main: There is Opened DDE"}));
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", ItemRow(Path("m.cpp")),
                                "System", ItemRow(Path("s.lse")), "Extern", ItemRow(Path("e.cpp")),
                                "DDE", ItemRow(Path("d.dde"))}));
}

TEST_F(ProjectCommands, RefuseTheNinthSystemAndTheFourthExtern) {
    NewMORV(hFrame);
    for (int i = 0; i < 8; ++i)
        Project.NameSys(NameBuffer(Numbered("s", i)));
    for (int i = 0; i < 3; ++i)
        Project.NameExt(NameBuffer(Numbered("e", i)));
    Boxes boxes;
    AddEngine(hFrame);
    AddExtern(hFrame);
    EXPECT_EQ(boxes.shown, (RowTexts{"Add MORV System: There is too much Systems",
                                     "Add MORV Externs: There is too much Extern Files"}));
}

TEST_F(ProjectCommands, SaveAsksForANameWhileUntitled) {
    NewMORV(hFrame);
    Project.MORVmod = 1;
    Cancel("Save MORV Project As...", SaveMORV);
    EXPECT_EQ(Project.IsUntitled(), 1);
    EXPECT_EQ(Project.MORVmod, 1);
    {
        DialogSteps steps;
        steps.ChooseFile("Save MORV Project As...", Path("p.mrv"));
        SaveMORV(hFrame);
    }
    EXPECT_EQ(Project.MORVmod, 0);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path("p.mrv"))}));
    EXPECT_EQ(temp_.Content("p.mrv").size(), 4096u);
    Project.DatHisLen = 7;
    SaveMORV(hFrame);
    EXPECT_EQ(temp_.Content("p.mrv").substr(4092), Number(7));
}

TEST_F(ProjectCommands, AFailedSaveKeepsNameAndChanges) {
    NewMORV(hFrame);
    Project.NameMain("m.cpp");
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    {
        DialogSteps steps;
        steps.ChooseFile("Save MORV Project As...", Path("p.mrv"));
        SaveAsMORV(hFrame);
    }
    EXPECT_EQ(Project.IsUntitled(), 1);
    EXPECT_EQ(Project.MORVmod, 1);
    Project.ChName(Path("p.mrv").c_str());
    SaveMORV(hFrame);
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(CloseMORV(hFrame), 1);
    ExitZentrik(hFrame);
    files::FailWritesAfter(-1);
    EXPECT_TRUE(IsWindow(hFrame));
    EXPECT_EQ(Project.MORState, 1);
    EXPECT_EQ(Rows().size(), 4u);
}

TEST_F(ProjectCommands, CloseAsksForAChangedProject) {
    OpenSaved("p.mrv");
    Project.NameMain("m.cpp");
    {
        Boxes boxes(Answer::Cancel);
        EXPECT_EQ(CloseMORV(hFrame), 1);
        EXPECT_EQ(boxes.shown, RowTexts{kChanged});
        EXPECT_EQ(boxes.messages[0].buttons, Buttons::YesNoCancel);
        EXPECT_EQ(Project.MORState, 1);
    }
    Boxes boxes(Answer::Yes);
    EXPECT_EQ(CloseMORV(hFrame), 0);
    DestroyMdiP();
    EXPECT_EQ(Project.MORState, 0);
    EXPECT_EQ(temp_.Content("p.mrv").substr(0, 255), Field("m.cpp"));
    for (int id : {CM_SAVE_MORV, CM_CLOSE_MORV, CM_COMPILE, CM_REMOVE_ITEM})
        EXPECT_TRUE(FrameWindow::IsGray(id)) << id;
    // An unchanged one closes without a question.
    Choose("Open MORV Project", "p.mrv", OpenMORV);
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM)); // it has a main file
    EXPECT_EQ(CloseMORV(hFrame), 0);
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(ProjectCommands, CloseGivesUpAnUntitledProjectWhoseNameWasCancelled) {
    NewMORV(hFrame);
    Project.MORVmod = 1;
    Boxes boxes(Answer::Yes);
    DialogSteps steps;
    steps.CancelFile("Save MORV Project As...");
    EXPECT_EQ(CloseMORV(hFrame), 0);
    EXPECT_EQ(Project.MORState, 0);
}

TEST_F(ProjectCommands, OpenEnablesTheMenusEvenWhenItFails) {
    Boxes boxes;
    Choose("Open MORV Project", "short.mrv", OpenMORV);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Project: Open Error"});
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_MORV));
    EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    EXPECT_EQ(Project.MORState, 0);
    GrayMenu(hFrame, 3);
    Cancel("Open MORV Project", OpenMORV);
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_MORV));
}

TEST_F(ProjectCommands, RemoveTakesASectionByItsHeader) {
    NewMORV(hFrame);
    Project.NameMain("m");
    for (const char* name : {"s1", "s2", "s3"})
        Project.NameSys(NameBuffer(name));
    for (const char* name : {"e1", "e2"})
        Project.NameExt(NameBuffer(name));
    Project.NameDde(NameBuffer("d"));
    for (const char* name : {"r1", "r2"})
        Project.NameRes(name, 1);
    EnableMenu(hFrame, 1);
    auto remove_row = [](int row) {
        SelectRow(Project.hwndPro, row);
        EXPECT_EQ(Remove(hFrame), 0);
    };
    // 2 Main, 4 System, 8 Extern, 11 DDE, 13 Results
    remove_row(14); // r1
    EXPECT_EQ(Rows()[14], "\tr2");
    remove_row(13); // Results
    remove_row(12); // d
    remove_row(9);  // e1
    EXPECT_EQ(Rows()[9], "\te2");
    remove_row(5); // s1
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", "\tm", "System", "\ts2",
                                "\ts3", "Extern", "\te2"}));
    remove_row(4);
    remove_row(4);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", "\tm"}));
    remove_row(2);
    // The last removal leaves the menu as it is; the next, which finds nothing, does not.
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    Project.MORVmod = 0;
    remove_row(1);
    EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
}

TEST_F(ProjectCommands, RemoveWithoutASelectionOnlyMarksTheProject) {
    NewMORV(hFrame);
    Project.NameMain("m");
    EnableMenu(hFrame, 1);
    Project.MORVmod = 0;
    Remove(hFrame);
    EXPECT_EQ(Rows().size(), 4u);
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
}

TEST_F(ProjectCommands, AddResultsMarksTheProjectEvenWhenCancelled) {
    NewMORV(hFrame);
    SetText(ResulFile, "before");
    Cancel("Open MORV Result", AddResult);
    EXPECT_STREQ(ResulFile, "");
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_STREQ(Project.ResName, "");
    // Chosen, the results dialog comes with its working file named.
    temp_.Put("r.rst", "");
    DialogSteps steps;
    steps.ChooseFile("Open MORV Result", Path("r.rst"));
    steps.When("Add Resource", [](const DialogHandle& dialog) { dialog.CloseBox(); });
    AddResult(hFrame);
    EXPECT_EQ(ResulFile, Path("r.rst"));
    EXPECT_EQ(AddType, kAddResults);
    EXPECT_EQ(Project.ResName, Path("work") + "\\temp\\untitled.aux");
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
}

TEST_F(ProjectCommands, HistoryLengthTakesAnyText) {
    Project.DatHisLen = -3;
    struct {
        const char* text;
        int length;
    } const cases[] = {{"12", 12},
                       {" 7 rows", 7},
                       {"text", 0},
                       {"", 0},
                       {"-5", -5},
                       {"99999999999999999999", 2147483647},
                       {"-9999999999", -2147483647 - 1},
                       // Only 19 characters are read.
                       {"000000000000000000123", 1}};
    for (const auto& [text, length] : cases) {
        ShownDialog dialog("HL_Box", HistoryDlg);
        EXPECT_EQ(dialog.Text(HL_LENGTH), std::to_string(Project.DatHisLen));
        dialog.Put(HL_LENGTH, text);
        dialog.Press(IDOK);
        EXPECT_FALSE(dialog.IsOpen());
        EXPECT_EQ(Project.DatHisLen, length) << text;
    }
    EXPECT_EQ(Project.MORVmod, 0);
    Project.DatHisLen = 4;
    for (int way : {0, 1}) {
        ShownDialog dialog("HL_Box", HistoryDlg);
        dialog.Put(HL_LENGTH, "99");
        if (way == 0)
            dialog.Press(IDCANCEL);
        else
            dialog.CloseBox();
        EXPECT_FALSE(dialog.IsOpen());
        EXPECT_EQ(Project.DatHisLen, 4);
    }
}

TEST_F(ProjectCommands, ExitAsksForProjectAndSystemInTurn) {
    NewMORV(hFrame);
    System.NameSys("untitled.lse");
    System.CreateSys();
    System.EngineState = 1;
    Project.MORVmod = 1;
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown, RowTexts{kChanged});
        EXPECT_EQ(Project.MORState, 1);
        EXPECT_EQ(System.EngineState, 1);
    }
    Project.MORVmod = 0;
    System.Engmod = 1;
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown, RowTexts{"Close MORV Project: Save Current MORV System"});
        // The project is closed by then, the system is not.
        EXPECT_EQ(Project.MORState, 0);
        EXPECT_EQ(System.EngineState, 1);
        EXPECT_TRUE(IsWindow(hFrame));
    }
    Boxes boxes(Answer::No);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_FALSE(IsWindow(frame));
}

TEST_F(ProjectCommands, ExitSavesWhatItIsToldTo) {
    OpenSaved("p.mrv");
    Project.NameMain("m.cpp");
    System.NameSys(Path("a.lse").c_str());
    System.CreateSys();
    System.EngineState = 1;
    System.NameHeader("h.cpp");
    Boxes boxes(Answer::Yes);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_FALSE(IsWindow(frame));
    EXPECT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(temp_.Content("p.mrv").substr(0, 255), Field("m.cpp"));
    EXPECT_EQ(temp_.Content("a.lse").substr(765, 255), Field("h.cpp"));
}

TEST_F(ProjectCommands, ExitKeepsASystemThatCouldNotBeSaved) {
    System.NameSys(Path("a.lse").c_str());
    System.CreateSys();
    System.EngineState = 1;
    System.Engmod = 1;
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    ExitZentrik(hFrame);
    files::FailWritesAfter(-1);
    EXPECT_TRUE(IsWindow(hFrame));
    EXPECT_EQ(System.EngineState, 1);
    EXPECT_EQ(System.Engmod, 1);
}

TEST_F(ProjectCommands, ExitStopsAtATextTheUserKeeps) {
    OpenEdit("untitled");
    SendMessageA(TextHwnd(), EM_SETMODIFY, TRUE, 0);
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown.size(), 1u);
        EXPECT_TRUE(IsWindow(hFrame));
    }
    Boxes boxes(Answer::No);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_FALSE(IsWindow(frame));
}

} // namespace
