// New, Open, adding and removing items, and the history length.
#include "project/ZENPRO.h"
#include "project_commands_fixture.h"
#include "shell/services/VARMORV.h"

namespace {

using namespace zentrik_test;

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
    Choose("m.cpp", AddMain);
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    Choose("s.lse", AddEngine);
    Choose("s.lse", AddEngine); // dropped without a word
    Choose("m.cpp", AddEngine); // listed in another role
    Choose("e.cpp", AddExtern);
    EXPECT_TRUE(boxes.shown.empty());
    Choose("s.lse", AddExtern);
    Choose("d.dde", AddDDE);
    Cancel(AddEngine);
    AddMain(hFrame);
    AddDDE(hFrame);
    EXPECT_EQ(boxes.shown,
              (RowTexts{"Add Externs: Duplicate Extern", "Add MORV Main: There is Opened MORV Main",
                        "Add MORV Main: There is Opened DDE"}));
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", ItemRow(Path("m.cpp")),
                                "System", ItemRow(Path("s.lse")), "Extern", ItemRow(Path("e.cpp")),
                                "DDE", ItemRow(Path("d.dde"))}));
}

TEST_F(ProjectCommands, AskForFilesOfTheirKind) {
    NewMORV(hFrame);
    FileChoices choices;
    for (auto command : {SaveMORV, SaveAsMORV, AddMain, AddEngine, AddExtern, AddDDE, AddResult}) {
        choices.Cancel();
        command(hFrame);
    }
    Project.DestroyPro();
    choices.Cancel();
    OpenMORV(hFrame);
    const std::string projects = "MORV Project Files (*.mrv)|*.mrv| All Files (*.*)|*.*";
    const std::string save = "save|Save MORV Project As...|.mrv|2|" + projects;
    EXPECT_EQ(choices.asked,
              (RowTexts{save, save, "open|Add MORV Main|.cpp|4096|MORV Main Files (*.cpp)|*.cpp",
                        "open|Add MORV System|.lse|4096|MORV System Files (*.lse)|*.lse",
                        "open|Add MORV Extern|*.cpp|4096|MORV Extern Files (*.cpp)|*.cpp",
                        "open|Add MORV DDE|.dde|4096|MORV DDE Files (*.dde)|*.dde",
                        "open|Open MORV Result|.rst|4096|MORV Result Files (*.rst)|*.rst"
                        "| All Files (*.*)|*.*",
                        "open|Open MORV Project|.mrv|4096|" + projects}));
}

TEST_F(ProjectCommands, EachItemEnablesRemove) {
    NewMORV(hFrame);
    for (auto command : {AddMain, AddEngine, AddExtern, AddDDE}) {
        GrayMenu(hFrame, 1);
        Cancel(command);
        EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
        const std::size_t rows = Rows().size();
        Choose(Numbered("f", static_cast<int>(rows)), command);
        EXPECT_GT(Rows().size(), rows);
        EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM)) << Rows().back();
    }
}

TEST_F(ProjectCommands, OpenEnablesRemoveForAnyItem) {
    const std::function<void(ProjectFile&)> items[] = {
        [](ProjectFile&) {},
        [](ProjectFile& file) { SetText(file.head.MainName, "m"); },
        [](ProjectFile& file) { file.head.EngNum = 1; },
        [](ProjectFile& file) { file.head.ExtNum = 1; },
        [](ProjectFile& file) { SetText(file.head.DDEName, "d"); },
        [](ProjectFile& file) {
            file.head.ResNum = 1;
            file.results.resize(1);
        },
    };
    bool empty = true;
    for (const auto& add : items) {
        ProjectFile file;
        add(file);
        ASSERT_TRUE(WriteProject(Path("p.mrv").c_str(), file));
        Choose("p.mrv", OpenMORV);
        EXPECT_EQ(FrameWindow::IsGray(CM_REMOVE_ITEM), empty) << Rows().back();
        empty = false;
        CloseMORV(hFrame);
        DestroyMdiP();
    }
}

TEST_F(ProjectCommands, ADroppedDuplicateIsNoChange) {
    NewMORV(hFrame);
    Choose("s.lse", AddEngine);
    Project.MORVmod = 0;
    Choose("s.lse", AddEngine);
    EXPECT_EQ(Project.MORVmod, 0);
    EXPECT_EQ(Project.EngNum, 1);
}

// The file dialogs have no owner, so the menu stays usable behind them.
TEST_F(ProjectCommands, LeaveAProjectAloneThatCameMeanwhile) {
    const std::function<void()> replace = [] {
        Boxes boxes(Answer::No);
        CloseMORV(hFrame);
        DestroyMdiP();
        NewMORV(hFrame);
    };
    temp_.Put("f", "");
    for (auto command : {SaveMORV, SaveAsMORV, AddMain, AddEngine, AddExtern, AddDDE, AddResult})
        for (const std::string& path : {Path("f"), std::string()}) {
            NewMORV(hFrame);
            Project.MORVmod = 1;
            FileChoices choices;
            choices.Meanwhile(replace, path);
            command(hFrame);
            EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
            EXPECT_EQ(Project.MORVmod, 0);
            EXPECT_EQ(temp_.Content("f"), "");
            CloseMORV(hFrame);
            DestroyMdiP();
        }
}

TEST_F(ProjectCommands, OpenIsRefusedWhenAProjectCameMeanwhile) {
    ASSERT_TRUE(WriteProject(Path("p.mrv").c_str(), ProjectFile()));
    Boxes boxes;
    FileChoices choices;
    choices.Meanwhile([] { NewMORV(hFrame); }, Path("p.mrv"));
    OpenMORV(hFrame);
    EXPECT_EQ(boxes.shown, RowTexts{"Open MORV Project: There is Opened MORV Project"});
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
}

TEST_F(ProjectCommands, AddMainIsRefusedWhenAMainCameMeanwhile) {
    NewMORV(hFrame);
    Boxes boxes;
    FileChoices choices;
    choices.Meanwhile([] { Project.NameMain("first"); }, Path("m.cpp"));
    AddMain(hFrame);
    EXPECT_EQ(boxes.shown, RowTexts{"Add MORV Main: There is Opened MORV Main"});
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", "\tfirst"}));
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

TEST_F(ProjectCommands, OpenEnablesTheMenusEvenWhenItFails) {
    Boxes boxes;
    Choose("short.mrv", OpenMORV);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Project: Open Error"});
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_MORV));
    EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    EXPECT_EQ(Project.MORState, 0);
    GrayMenu(hFrame, 3);
    Cancel(OpenMORV);
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
    Cancel(AddResult);
    EXPECT_STREQ(ResulFile, "");
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_STREQ(Project.ResName, "");
    // Chosen, the results dialog comes with its working file named.
    temp_.Put("r.rst", "");
    FileChoices choices;
    choices.Choose(Path("r.rst"));
    DialogSteps steps;
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

} // namespace
