// The project document and its commands: rows, boxes and bytes on disk.
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr char kNotOpen[] = "There is not Opened MORV Project";
constexpr char kChanged[] = "MORV Project has been changed. Save before Close?";
constexpr char kCloseCaption[] = "Close MORV Project";
constexpr char kOpenTitle[] = "Open MORV Project";
constexpr char kSaveTitle[] = "Save MORV Project As...";

class ProjectTest : public GuiTest {
protected:
    // The program with a new project and these files (which may be empty) in its folder.
    App& RunNew(const std::vector<std::string>& files = {}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            for (const std::string& name : files)
                PutFile(work.Path(name), name);
        });
        app.Command(CM_NEW_MORV);
        return app;
    }

    // The program with the sample project open.
    App& RunSample() {
        App& app = Run(Kind::Nt, PutSampleProject);
        Open(app, "plant.mrv");
        return app;
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_MORV, kOpenTitle, app.Path(name));
    }

    static void SaveAs(App& app, const std::string& name) {
        app.CommandWithFile(CM_SAVE_AS_MORV, kSaveTitle, app.Path(name));
    }

    static void AddMain(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_MAIN, "Add MORV Main", app.Path(name));
    }

    static void AddSystem(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_SYSTEM, "Add MORV System", app.Path(name));
    }

    static void AddExtern(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_EXTERN, "Add MORV Extern", app.Path(name));
    }

    static void AddDde(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_DDE, "Add MORV DDE", app.Path(name));
    }

    static void RemoveRow(App& app, int row) {
        app.SelectRow(kProject, row);
        app.Command(CM_REMOVE_ITEM);
    }

    // Closes the project and tells whether that asked to save it; the answer is No.
    static bool CloseAsks(App& app) {
        app.Start(CM_CLOSE_MORV);
        bool asked = false;
        app.Process().WaitFor("the end of the close or its question", [&] {
            asked = !Dialogs(app.Process()).empty();
            return asked || !app.Process().Busy();
        });
        if (asked)
            app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
        app.Finish();
        return asked;
    }

    // The rows of the sample project as opened from its file.
    static TextRows SampleRows(const App& app) {
        return {"MORVName", Item(app.Path("plant.mrv")), "Main",    Item(app.Path("main.cpp")),
                "Systems",  Item(app.Path("tank.lse")),  "Extern",  Item(app.Path("help.cpp")),
                "DDE",      Item(app.Path("link.dde")),  "Results", Item(app.Path("names.rst"))};
    }

    static TextRows Without(TextRows rows, std::size_t first, std::size_t count) {
        rows.erase(rows.begin() + static_cast<int>(first),
                   rows.begin() + static_cast<int>(first + count));
        return rows;
    }
};

TEST_F(ProjectTest, ANewProjectHasTwoRows) {
    App& app = RunNew();
    EXPECT_EQ(app.Rows(kProject), (TextRows{"MORVName", "\tuntitled.mrv"}));
    EXPECT_FALSE(CloseAsks(app));
    EXPECT_FALSE(app.HasChild(kProject));
}

TEST_F(ProjectTest, OnlyOneProjectIsOpen) {
    App& app = RunNew();
    app.Start(CM_NEW_MORV);
    EXPECT_EQ(app.ExpectBox("There is Opened MORV Project", "New MORV Project").owner, app.Frame());
    app.Finish();
    app.Start(CM_OPEN_MORV);
    app.ExpectBox("There is Opened MORV Project", "Open MORV Project");
    app.Finish();
    EXPECT_EQ(app.Children(kProject).size(), 1u);
}

TEST_F(ProjectTest, CommandsWithoutAProjectSaySo) {
    App& app = Run();
    const std::vector<std::pair<int, const char*>> commands{
        {CM_SAVE_MORV, "Save MORV Project"}, {CM_SAVE_AS_MORV, "Save MORV Project As..."},
        {CM_ADD_MAIN, "Add MORV Main"},      {CM_ADD_SYSTEM, "Add MORV Main"},
        {CM_ADD_EXTERN, "Add MORV Main"},    {CM_ADD_DDE, "Add MORV Main"},
        {CM_ADD_RESULTS, "Add Result"},      {CM_REMOVE_ITEM, "Remove MORV Item"}};
    for (const auto& [id, caption] : commands) {
        app.Start(id);
        EXPECT_EQ(app.ExpectBox(kNotOpen, caption).owner, app.Frame()) << caption;
        app.Finish();
    }
    app.Command(CM_CLOSE_MORV); // says nothing
    EXPECT_TRUE(app.Children().empty());
}

TEST_F(ProjectTest, EveryFileDialogCanBeCancelled) {
    App& app = RunNew();
    app.CommandWithCancel(CM_ADD_MAIN, "Add MORV Main");
    app.CommandWithCancel(CM_ADD_SYSTEM, "Add MORV System");
    app.CommandWithCancel(CM_ADD_EXTERN, "Add MORV Extern");
    app.CommandWithCancel(CM_ADD_DDE, "Add MORV DDE");
    app.CommandWithCancel(CM_SAVE_AS_MORV, kSaveTitle);
    EXPECT_EQ(app.Rows(kProject).size(), 2u);
    EXPECT_FALSE(CloseAsks(app));
    app.CommandWithCancel(CM_OPEN_MORV, kOpenTitle);
    EXPECT_FALSE(app.HasChild(kProject));
}

TEST_F(ProjectTest, ACancelledResultMarksTheProjectChanged) {
    App& app = RunNew();
    app.CommandWithCancel(CM_ADD_RESULTS, "Open MORV Result");
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(ProjectTest, SectionsFollowEachOther) {
    App& app = RunNew({"m.cpp", "a.lse", "b.lse", "x.cpp", "y.cpp", "l.dde"});
    // In an order that makes every later section move.
    AddDde(app, "l.dde");
    AddExtern(app, "x.cpp");
    AddSystem(app, "a.lse");
    AddMain(app, "m.cpp");
    AddSystem(app, "b.lse");
    AddExtern(app, "y.cpp");
    EXPECT_EQ(app.Rows(kProject),
              (TextRows{"MORVName", "\tuntitled.mrv", "Main", Item(app.Path("m.cpp")), "System",
                        Item(app.Path("a.lse")), Item(app.Path("b.lse")), "Extern",
                        Item(app.Path("x.cpp")), Item(app.Path("y.cpp")), "DDE",
                        Item(app.Path("l.dde"))}));
    EXPECT_FALSE(app.IsGrey(CM_REMOVE_ITEM));
}

TEST_F(ProjectTest, TheSystemsHeaderChangesAfterSaveAndReopen) {
    App& app = RunNew({"a.lse"});
    AddSystem(app, "a.lse");
    EXPECT_EQ(app.Rows(kProject).at(2), "System");
    SaveAs(app, "p.mrv");
    EXPECT_EQ(app.Rows(kProject).at(1), Item(app.Path("p.mrv")));
    EXPECT_EQ(app.Rows(kProject).at(2), "System");
    EXPECT_FALSE(CloseAsks(app));
    Open(app, "p.mrv");
    EXPECT_EQ(app.Rows(kProject).at(2), "Systems");
}

TEST_F(ProjectTest, OpensEverySection) {
    App& app = RunSample();
    EXPECT_EQ(app.Rows(kProject), SampleRows(app));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(ProjectTest, SavingAnOpenedProjectGivesTheSameBytes) {
    App& app = RunSample();
    const std::string before = FileContent(app.Path("plant.mrv"));
    ASSERT_EQ(before.size(), 4096u + 255u);
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(FileContent(app.Path("plant.mrv")), before);
}

TEST_F(ProjectTest, TheNinthSystemIsRefused) {
    std::vector<std::string> names;
    for (int i = 1; i <= 9; ++i)
        names.push_back("s" + std::to_string(i) + ".lse");
    App& app = RunNew(names);
    for (int i = 0; i < 8; ++i)
        AddSystem(app, names[i]);
    app.Start(CM_ADD_SYSTEM);
    app.ExpectBox("There is too much Systems", "Add MORV System");
    app.Finish();
    EXPECT_EQ(app.Rows(kProject).size(), 2u + 1u + 8u);
}

TEST_F(ProjectTest, TheFourthExternIsRefused) {
    App& app = RunNew({"1.cpp", "2.cpp", "3.cpp"});
    for (const char* name : {"1.cpp", "2.cpp", "3.cpp"})
        AddExtern(app, name);
    app.Start(CM_ADD_EXTERN);
    app.ExpectBox("There is too much Extern Files", "Add MORV Externs");
    app.Finish();
}

TEST_F(ProjectTest, OneMainAndOneDde) {
    App& app = RunNew({"m.cpp", "l.dde"});
    AddMain(app, "m.cpp");
    AddDde(app, "l.dde");
    app.Start(CM_ADD_MAIN);
    app.ExpectBox("There is Opened MORV Main", "Add MORV Main");
    app.Finish();
    app.Start(CM_ADD_DDE);
    app.ExpectBox("There is Opened DDE", "Add MORV Main");
    app.Finish();
}

TEST_F(ProjectTest, ADuplicateSystemIsDroppedSilently) {
    App& app = RunNew({"m.cpp", "a.lse"});
    AddMain(app, "m.cpp");
    AddSystem(app, "a.lse");
    AddSystem(app, "a.lse");
    AddSystem(app, "A.LSE");
    AddSystem(app, "m.cpp"); // any row counts
    EXPECT_EQ(app.Rows(kProject).size(), 6u);
}

TEST_F(ProjectTest, ADuplicateExternIsReported) {
    App& app = RunNew({"m.cpp", "x.cpp"});
    AddMain(app, "m.cpp");
    AddExtern(app, "x.cpp");
    for (const char* name : {"x.cpp", "m.cpp"}) {
        app.Start(CM_ADD_EXTERN);
        app.ChooseFile("Add MORV Extern", app.Path(name));
        app.ExpectBox("Duplicate Extern", "Add Externs");
        app.Finish();
    }
    EXPECT_EQ(app.Rows(kProject).size(), 6u);
}

TEST_F(ProjectTest, TheMainIsNotCheckedForDuplicates) {
    App& app = RunNew({"x.cpp"});
    AddExtern(app, "x.cpp");
    AddMain(app, "x.cpp");
    EXPECT_EQ(app.Rows(kProject).at(3), Item(app.Path("x.cpp")));
}

TEST_F(ProjectTest, RemovesTheItemOfASelectedRow) {
    for (std::size_t item : {3, 5, 7, 9, 11}) {
        App& app = RunSample();
        RemoveRow(app, static_cast<int>(item));
        EXPECT_EQ(app.Rows(kProject), Without(SampleRows(app), item - 1, 2)) << "row " << item;
        EXPECT_TRUE(CloseAsks(app));
    }
}

TEST_F(ProjectTest, RemovesTheSectionOfASelectedHeader) {
    for (std::size_t header : {2, 4, 6, 8, 10}) {
        App& app = RunSample();
        RemoveRow(app, static_cast<int>(header));
        EXPECT_EQ(app.Rows(kProject), Without(SampleRows(app), header, 2)) << "row " << header;
    }
}

TEST_F(ProjectTest, RemovesOneOfSeveralSystems) {
    App& app = RunNew({"a.lse", "b.lse", "c.lse", "l.dde"});
    for (const char* name : {"a.lse", "b.lse", "c.lse"})
        AddSystem(app, name);
    AddDde(app, "l.dde");
    RemoveRow(app, 4);
    EXPECT_EQ(app.Rows(kProject),
              (TextRows{"MORVName", "\tuntitled.mrv", "System", Item(app.Path("a.lse")),
                        Item(app.Path("c.lse")), "DDE", Item(app.Path("l.dde"))}));
    SaveAs(app, "p.mrv");
    const ProjectRecord head = ProjectHead(app.Path("p.mrv"));
    EXPECT_EQ(head.EngNum, 2);
    EXPECT_EQ(Text(head.EngineNames[1]), app.Path("a.lse"));
    EXPECT_EQ(Text(head.EngineNames[2]), app.Path("c.lse"));
    // What was below still fits its rows.
    RemoveRow(app, 6);
    EXPECT_EQ(app.Rows(kProject).size(), 5u);
}

TEST_F(ProjectTest, RemovingAllSystemsAtOnce) {
    App& app = RunNew({"a.lse", "b.lse", "x.cpp"});
    for (const char* name : {"a.lse", "b.lse"})
        AddSystem(app, name);
    AddExtern(app, "x.cpp");
    RemoveRow(app, 2);
    EXPECT_EQ(app.Rows(kProject),
              (TextRows{"MORVName", "\tuntitled.mrv", "Extern", Item(app.Path("x.cpp"))}));
    RemoveRow(app, 3);
    EXPECT_EQ(app.Rows(kProject).size(), 2u);
}

TEST_F(ProjectTest, RemovingTheProjectRowOnlyMarksItChanged) {
    App& app = RunSample();
    RemoveRow(app, 1);
    EXPECT_EQ(app.Rows(kProject), SampleRows(app));
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(ProjectTest, RemoveIsGreyedOnlyWhenItFindsNothing) {
    App& app = RunNew({"m.cpp"});
    AddMain(app, "m.cpp");
    RemoveRow(app, 3);
    EXPECT_FALSE(app.IsGrey(CM_REMOVE_ITEM));
    app.Command(CM_REMOVE_ITEM);
    EXPECT_TRUE(app.IsGrey(CM_REMOVE_ITEM));
}

TEST_F(ProjectTest, ARemovedMainIsStillInTheSavedFile) {
    App& app = RunSample();
    RemoveRow(app, 9);
    RemoveRow(app, 3);
    app.Command(CM_SAVE_MORV);
    app.Command(CM_CLOSE_MORV);
    Open(app, "plant.mrv");
    EXPECT_EQ(app.Rows(kProject), SampleRows(app));
}

TEST_F(ProjectTest, RemovedExternsStayInTheFileBehindANewOne) {
    App& app = RunNew({"1.cpp", "2.cpp", "3.cpp", "n.cpp"});
    for (const char* name : {"1.cpp", "2.cpp", "3.cpp"})
        AddExtern(app, name);
    RemoveRow(app, 2);
    EXPECT_EQ(app.Rows(kProject).size(), 2u);
    AddExtern(app, "n.cpp");
    SaveAs(app, "p.mrv");
    const ProjectRecord head = ProjectHead(app.Path("p.mrv"));
    EXPECT_EQ(head.ExtNum, 1);
    EXPECT_EQ(Text(head.ExternFiles[1]), app.Path("n.cpp"));
    EXPECT_EQ(Text(head.ExternFiles[2]), app.Path("2.cpp"));
}

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

TEST_F(ProjectTest, DamagedCountsOpenWithTheWholeItems) {
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
        const TextRows rows = app.Rows(kProject);
        ASSERT_GE(rows.size(), 4u) << "field " << field;
        EXPECT_LE(rows.size(), 20u) << "field " << field;
        EXPECT_EQ(rows[3], Item(app.Path("m.cpp")));
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
