// The project and its files: results, saving, closing, exit, damaged files, history length.
#include "tests/gui/project_fixture.h"

namespace gui {

namespace {

TEST_F(ProjectTest, RemovingAResultTakesItsNamesOutOfTheAuxiliaryFile) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutSampleProject(work);
        PutFile(work.Path("plant.aux"), TagBytes({"KEPT", "HIGH", "ALSO", "LOW"}));
    });
    Open(app, "plant.mrv");
    RemoveRow(app, 11);
    EXPECT_EQ(FileContent(app.Path("plant.aux")), TagBytes({"KEPT", "ALSO"}));
}

TEST_F(ProjectTest, RemovingAllResultsEmptiesTheAuxiliaryFile) {
    App& app = RunSample();
    RemoveRow(app, 10);
    EXPECT_TRUE(FileExists(app.Path("plant.aux")));
    EXPECT_EQ(FileContent(app.Path("plant.aux")), "");
}

TEST_F(ProjectTest, AddsResultsThroughTheirDialog) {
    App& app = RunNew();
    PutFile(app.Path("r.rst"), TagBytes({"HIGH", "LOW", "OK"}));
    SaveAs(app, "p.mrv");
    app.Start(CM_ADD_RESULTS);
    app.ChooseFile("Open MORV Result", app.Path("r.rst"));
    Dialog add = app.WaitDialog("Add Resource");
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"HIGH", "LOW", "OK"}));
    add.SelectRows(ADD_OFFERED, {0, 2});
    add.Click(ADD_ADD);
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows{"LOW"});
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"HIGH", "OK"}));
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(app.Rows(kProject),
              (TextRows{"MORVName", Item(app.Path("p.mrv")), "Results", Item(app.Path("r.rst"))}));
    EXPECT_EQ(FileContent(app.Path("temp\\p.aux")), TagBytes({"HIGH", "OK"}));
    // Saving moves the working copy beside the project.
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(FileContent(app.Path("p.aux")), TagBytes({"HIGH", "OK"}));
    EXPECT_FALSE(FileExists(app.Path("temp\\p.aux")));
    EXPECT_EQ(Text(ProjectHead(app.Path("p.mrv")).ResAux), app.Path("p.aux"));
}

TEST_F(ProjectTest, SavingAnUntitledProjectAsksForAName) {
    App& app = RunNew({"m.cpp"});
    AddMain(app, "m.cpp");
    app.CommandWithCancel(CM_SAVE_MORV, kSaveTitle);
    EXPECT_EQ(app.Rows(kProject).at(1), "\tuntitled.mrv");
    app.CommandWithFile(CM_SAVE_MORV, kSaveTitle, app.Path("p.mrv"));
    EXPECT_EQ(app.Rows(kProject).at(1), Item(app.Path("p.mrv")));
    EXPECT_EQ(Text(ProjectHead(app.Path("p.mrv")).MainName), app.Path("m.cpp"));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(ProjectTest, ACancelledSaveKeepsItChanged) {
    App& app = RunNew({"m.cpp"});
    AddMain(app, "m.cpp");
    app.CommandWithCancel(CM_SAVE_MORV, kSaveTitle);
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(ProjectTest, AFailedSaveIsReportedAndKeepsItChanged) {
    App& app = RunSample();
    const std::string before = FileContent(app.Path("plant.mrv"));
    RemoveRow(app, 7);
    {
        const LockedFile lock(app.Path("plant.mrv"));
        app.Start(CM_SAVE_MORV);
        app.ExpectError("Permison denied");
        app.Finish();
    }
    EXPECT_EQ(FileContent(app.Path("plant.mrv")), before);
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(ProjectTest, TheDefaultExtensionIsAppended) {
    App& app = RunNew();
    SaveAs(app, "plain");
    EXPECT_EQ(FileContent(app.Path("plain.mrv")).size(), 4096u);
}

TEST_F(ProjectTest, ClosingWithYesSaves) {
    App& app = RunSample();
    RemoveRow(app, 7);
    app.Start(CM_CLOSE_MORV);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Yes);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kProject));
    EXPECT_EQ(ProjectHead(app.Path("plant.mrv")).ExtNum, 0);
}

TEST_F(ProjectTest, ClosingWithCancelKeepsTheWindow) {
    App& app = RunSample();
    RemoveRow(app, 7);
    app.Start(CM_CLOSE_MORV);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.Rows(kProject).size(), 10u);
    EXPECT_FALSE(app.IsGrey(CM_CLOSE_MORV));
}

TEST_F(ProjectTest, ClosingAnUntitledProjectWithACancelledNameStillCloses) {
    App& app = RunNew({"m.cpp"});
    AddMain(app, "m.cpp");
    app.Start(CM_CLOSE_MORV);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Yes);
    app.CancelFile(kSaveTitle);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kProject));
}

TEST_F(ProjectTest, TheCloseBoxAsksTheSame) {
    App& app = RunSample();
    RemoveRow(app, 7);
    app.StartClose(app.Child(kProject));
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Cancel);
    app.Finish();
    EXPECT_TRUE(app.HasChild(kProject));
    app.StartClose(app.Child(kProject));
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kProject));
    // And another can be opened.
    Open(app, "plant.mrv");
    EXPECT_EQ(app.Rows(kProject), SampleRows(app));
}

TEST_F(ProjectTest, ExitAsksForAChangedProject) {
    App& app = RunSample();
    RemoveRow(app, 7);
    app.Start(CM_EXIT);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.Rows(kProject).size(), 10u);
    app.Start(CM_EXIT);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::Yes);
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(ProjectHead(app.Path("plant.mrv")).ExtNum, 0);
}

TEST_F(ProjectTest, ExitAsksForProjectSystemAndTextInTurn) {
    App& app = RunSample();
    RemoveRow(app, 7);
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("tank.lse"));
    app.SelectRow(kSystem, 3);
    app.Command(CM_RESOURCE_REMOVE);
    app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("main.cpp"));
    app.Type("x");
    app.Start(CM_EXIT);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
    app.ExpectBox("Save Current MORV System", kCloseCaption, Buttons::YesNoCancel, Icon::None,
                  Answer::No);
    app.ExpectBox("File Has been change. Save before Closing?", "Close notification",
                  Buttons::YesNoCancel, Icon::None, Answer::No);
    EXPECT_EQ(app.Farewell(), 0u);
}

class CancelledExitTest : public ProjectTest, public testing::WithParamInterface<Kind> {};

TEST_P(CancelledExitTest, GreysTheCommandsOfWhatItClosed) {
    App& app = RunSample(GetParam());
    RemoveRow(app, 7);
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("tank.lse"));
    app.SelectRow(kSystem, 3);
    app.Command(CM_RESOURCE_REMOVE);
    const std::vector<int> of_project{CM_SAVE_MORV,   CM_SAVE_AS_MORV, CM_CLOSE_MORV,
                                      CM_REMOVE_ITEM, CM_DEBUG,        CM_COMPILE};
    app.Start(CM_EXIT);
    app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
    app.ExpectBox("Save Current MORV System", kCloseCaption, Buttons::YesNoCancel, Icon::None,
                  Answer::Cancel);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kProject));
    EXPECT_TRUE(app.HasChild(kSystem));
    for (int id : of_project)
        EXPECT_TRUE(app.IsGrey(id)) << id;
    EXPECT_TRUE(app.IsGrey("Add MORV Item"));
    for (int id : {CM_SAVE_SYSTEM, CM_SAVE_AS_SYSTEM, CM_CLOSE_SYSTEM})
        EXPECT_FALSE(app.IsGrey(id)) << id;
}

INSTANTIATE_TEST_SUITE_P(Kinds, CancelledExitTest, testing::Values(Kind::Nt, Kind::Win98));

TEST_F(ProjectTest, AProjectThatCannotBeOpenedIsReported) {
    App& app = Run(Kind::Nt, PutSampleProject);
    {
        const LockedFile lock(app.Path("plant.mrv"));
        app.Start(CM_OPEN_MORV);
        app.ChooseFile(kOpenTitle, app.Path("plant.mrv"));
        app.ExpectBox("Open Error", "Open Project");
        app.Finish();
    }
    EXPECT_FALSE(app.HasChild(kProject));
    // Nothing is open: New is allowed.
    app.Command(CM_NEW_MORV);
    EXPECT_EQ(app.Rows(kProject), (TextRows{"MORVName", "\tuntitled.mrv"}));
}

TEST_F(ProjectTest, AFileShorterThanItsFixedPartDoesNotOpen) {
    for (std::size_t size : {0, 1, 4095}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            PutFile(work.Path("short.mrv"), std::string(size, 'x'));
        });
        app.Start(CM_OPEN_MORV);
        app.ChooseFile(kOpenTitle, app.Path("short.mrv"));
        app.ExpectBox("Open Error", "Open Project");
        app.Finish();
        EXPECT_FALSE(app.HasChild(kProject)) << size;
    }
}

TEST_F(ProjectTest, ExactlyTheFixedPartOpens) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) { PutProject(work.Path("p.mrv"), {}); });
    ASSERT_EQ(FileContent(app.Path("p.mrv")).size(), 4096u);
    Open(app, "p.mrv");
    EXPECT_EQ(app.Rows(kProject), (TextRows{"MORVName", Item(app.Path("p.mrv"))}));
}

TEST_F(ProjectTest, CountsThatNoProjectHasOpenNothing) {
    const auto damage = [](ProjectFile& project, int field) {
        std::int32_t* counts[] = {&project.head.EngNum, &project.head.ExtNum, &project.head.ResNum};
        *counts[field / 2] = field % 2 == 0 ? 0x7FFFFFFF : -5;
    };
    for (int field = 0; field < 6; ++field) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            ProjectFile project = MakeProject(
                {work.Path("m.cpp"), {work.Path("a.lse")}, {}, "", "", {work.Path("r.rst")}});
            damage(project, field);
            PutFile(work.Path("p.mrv"),
                    std::string(BytesOf(project.head)).append(BytesOf(project.results)));
        });
        app.Start(CM_OPEN_MORV);
        app.ChooseFile(kOpenTitle, app.Path("p.mrv"));
        app.ExpectBox("Open Error", "Open Project");
        app.Finish();
        EXPECT_TRUE(app.Children(kProject).empty()) << "field " << field;
    }
}

TEST_F(ProjectTest, FieldsWithoutATerminatorAreCut) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        ProjectFile project = MakeProject({"", {"x"}, {"y"}, "", "", {}});
        std::memset(project.head.MainName, 'm', kNameSize);
        std::memset(project.head.EngineNames[1], 's', kNameSize);
        std::memset(project.head.DDEName, 'd', kNameSize);
        PutFile(work.Path("p.mrv"), BytesOf(project.head));
    });
    Open(app, "p.mrv");
    const TextRows rows = app.Rows(kProject);
    ASSERT_EQ(rows.size(), 10u);
    EXPECT_EQ(rows[3].substr(0, 100), Item(std::string(99, 'm')));
    EXPECT_LE(rows[3].size(), 256u);
    // Removing and saving such names works too.
    RemoveRow(app, 5);
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(ProjectHead(app.Path("p.mrv")).EngNum, 0);
}

TEST_F(ProjectTest, TheHistoryLengthStartsAt4) {
    App& app = RunNew();
    app.Start(CM_HISTORY_LENGTH);
    Dialog dialog = app.WaitDialog("History Length");
    EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(dialog.Text(HL_LENGTH), "4");
    dialog.SetText(HL_LENGTH, "17");
    dialog.Click(IDOK);
    app.Finish();
    // It does not mark the project changed, and reaches the file with the next save.
    SaveAs(app, "p.mrv");
    EXPECT_EQ(ProjectHead(app.Path("p.mrv")).DatHisLen, 17);
    EXPECT_FALSE(CloseAsks(app));
    app.Command(CM_NEW_MORV);
    app.Start(CM_HISTORY_LENGTH);
    Dialog again = app.WaitDialog("History Length");
    EXPECT_EQ(again.Text(HL_LENGTH), "4");
    again.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ProjectTest, TheHistoryLengthIsTakenAsItIsTyped) {
    App& app = Run();
    std::string shown = "4";
    const std::vector<std::pair<std::string, std::string>> values{
        {"12abc", "12"}, {"-3", "-3"}, {"word", "0"}, {"", "0"}};
    for (const auto& [typed, kept] : values) {
        app.Start(CM_HISTORY_LENGTH);
        Dialog dialog = app.WaitDialog("History Length");
        EXPECT_EQ(dialog.Text(HL_LENGTH), shown);
        dialog.SetText(HL_LENGTH, typed);
        dialog.Click(IDOK);
        app.Finish();
        shown = kept;
    }
    app.Start(CM_HISTORY_LENGTH);
    Dialog dialog = app.WaitDialog("History Length");
    dialog.SetText(HL_LENGTH, "99");
    dialog.Close();
    app.Finish();
    app.Start(CM_HISTORY_LENGTH);
    Dialog last = app.WaitDialog("History Length");
    EXPECT_EQ(last.Text(HL_LENGTH), "0");
    last.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ProjectTest, DoubleClicksOpenTheFiles) {
    App& app = RunSample();
    app.StartDoubleClick(kProject, 3);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("main.cpp"));
    EXPECT_EQ(app.EditorText(), "\tstart();\r\n");
    app.StartDoubleClick(kProject, 7);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("help.cpp"));
    app.StartDoubleClick(kProject, 5);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("tank.lse")));
    app.StartDoubleClick(kProject, 4);
    app.Finish();
    EXPECT_EQ(app.Children().size(), 4u);
}

TEST_F(ProjectTest, ADoubleClickOnAMissingFileOpensAnEmptyEditor) {
    App& app = RunSample();
    DeleteFileA(app.Path("main.cpp").c_str());
    app.StartDoubleClick(kProject, 3);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("main.cpp"));
    EXPECT_EQ(app.EditorText(), "");
}

} // namespace

} // namespace gui
