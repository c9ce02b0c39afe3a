// The project document and its commands: rows, refusals, adding and removing items.
#include "tests/gui/project_fixture.h"

namespace gui {

namespace {

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

} // namespace

} // namespace gui
