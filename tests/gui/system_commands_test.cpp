// The commands of the systems menu: their refusals, the rows they make and take, what is saved.
#include "tests/gui/blocked_files.h"
#include "tests/gui/system_steps.h"

namespace gui {

namespace {

class SystemCommandsTest : public SystemGuiTest {
protected:
    // Starts a command that is refused with one box of the frame.
    static void ExpectRefused(App& app, int id, const std::string& text,
                              const std::string& caption) {
        app.Start(id);
        EXPECT_EQ(app.ExpectBox(text, caption).owner, app.Frame()) << caption;
        app.Finish();
    }

    static TextRows SampleRows(const App& app) {
        return {"System Name",
                Item(app.Path("tank.lse")),
                "Rules",
                Item(app.Path("tank.rul")),
                "Facts Base",
                "\tLevel",
                "\tValve",
                "Opposites",
                "\tHIGH\tLOW",
                "System Header",
                Item(app.Path("head.cpp"))};
    }

    static TextRows Without(TextRows rows, int first, int count) {
        rows.erase(rows.begin() + first, rows.begin() + first + count);
        return rows;
    }

    // An empty system file, or one with these names.
    static void PutEmptySystem(const std::string& path, const std::string& header = "") {
        SystemFile system{};
        SetText(system.head.HeaderName, header);
        PutFile(path, SystemBytes(system));
    }
};

TEST_F(SystemCommandsTest, WithoutASystemTheySaySo) {
    App& app = Run();
    const std::vector<std::pair<int, const char*>> commands{
        {CM_SAVE_SYSTEM, "Save MORV System"},
        {CM_SAVE_AS_SYSTEM, "Save MORV System As..."},
        {CM_CLOSE_SYSTEM, "Close MORV System As..."},
        {CM_ADD_LOCAL_VARS, "Add System Local Var"},
        {CM_ADD_HEADER, "Add Header"},
        {CM_ADD_OPPOSITES, "Add Opposite"},
        {CM_ADD_FACTS, "Add Facts Base"},
        {CM_ADD_RULES, "Add Rules"},
        {CM_INIT_FACTS, "Init Knowledge Base"}};
    for (const auto& [id, caption] : commands)
        ExpectRefused(app, id, "There is not Opened MORV System", caption);
    app.Command(CM_RESOURCE_REMOVE); // says nothing
    EXPECT_TRUE(app.Children().empty());
}

TEST_F(SystemCommandsTest, OnlyOneSystemIsOpen) {
    App& app = RunNew();
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse"}));
    EXPECT_EQ(TextOf(app.Child(kSystem)), "System");
    ExpectRefused(app, CM_NEW_SYSTEM, "There is a Opened MORV System", "New MORV System");
    ExpectRefused(app, CM_OPEN_SYSTEM, "There is Opened MORV System", "Open MORV System");
    EXPECT_EQ(app.Children(kSystem).size(), 1u);
    EXPECT_FALSE(CloseAsks(app));
    EXPECT_FALSE(app.HasChild(kSystem));
}

TEST_F(SystemCommandsTest, EveryFileDialogCanBeCancelled) {
    App& app = RunNew();
    app.CommandWithCancel(CM_ADD_HEADER, "Add System Header");
    app.CommandWithCancel(CM_ADD_RULES, "Open MORV Rules");
    app.CommandWithCancel(CM_ADD_FACTS, "Open MORV Facts");
    app.CommandWithCancel(CM_ADD_OPPOSITES, "Add Opposites");
    app.CommandWithCancel(CM_SAVE_AS_SYSTEM, "Save MORV System As...");
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse"}));
    EXPECT_FALSE(CloseAsks(app));
    app.CommandWithCancel(CM_OPEN_SYSTEM, "Open MORV System");
    EXPECT_FALSE(app.HasChild(kSystem));
}

TEST_F(SystemCommandsTest, TheMenuFollowsTheSystem) {
    App& app = Run(Kind::Nt, PutSampleProject);
    EXPECT_TRUE(app.IsGrey(CM_SAVE_SYSTEM));
    app.Command(CM_NEW_SYSTEM);
    EXPECT_FALSE(app.IsGrey(CM_SAVE_SYSTEM));
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
    AddHeader(app, "head.cpp");
    EXPECT_FALSE(app.IsGrey(CM_RESOURCE_REMOVE));
    RemoveRow(app, 3);
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
    AddFacts(app, "tank.fac", {0});
    EXPECT_FALSE(app.IsGrey(CM_RESOURCE_REMOVE));
    RemoveRow(app, 3);
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
    EXPECT_FALSE(app.IsGrey(CM_INIT_FACTS)); // the group for it never reaches it
    EXPECT_TRUE(CloseAsks(app));
    EXPECT_TRUE(app.IsGrey(CM_SAVE_SYSTEM));
    Open(app, "tank.lse");
    EXPECT_FALSE(app.IsGrey(CM_SAVE_SYSTEM));
    EXPECT_FALSE(app.IsGrey(CM_RESOURCE_REMOVE));
}

TEST_F(SystemCommandsTest, SectionsFollowEachOther) {
    App& app = RunNew();
    // In an order that makes every later section move.
    AddHeader(app, "head.cpp");
    AddFacts(app, "tank.fac", {0, 1});
    EXPECT_EQ(app.Rows(kSystem).at(2), "Facts Base");
    AddRules(app, "tank.rul");
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", "\tuntitled.lse", "Rules", Item(app.Path("tank.rul")),
                        "Facts Base", "\tLevel", "\tValve", "System Header",
                        Item(app.Path("head.cpp"))}));
    ExpectRefused(app, CM_ADD_HEADER, "There is An System Header", "Add Header");
    ExpectRefused(app, CM_ADD_RULES, "There is An Opened Rule File", "Add Rules");
    SaveAs(app, "new.lse");
    const SystemFile stored = Stored(app, "new.lse");
    EXPECT_EQ(Text(stored.head.RuleName), app.Path("tank.rul"));
    EXPECT_EQ(Text(stored.head.RuleSizeName), app.Path("tank.siz"));
    EXPECT_EQ(Text(stored.head.HeaderName), app.Path("head.cpp"));
    EXPECT_EQ(BytesOf(stored.facts), FileContent(app.Path("tank.fac")));
}

TEST_F(SystemCommandsTest, RemovesWhatTheSelectedRowShows) {
    struct Case {
        int row, first, count;
    };
    App& app = Run(Kind::Nt, PutSampleProject);
    for (const auto& [row, first, count] : {Case{2, 2, 2},
                                            {3, 2, 2},
                                            {4, 4, 3},
                                            {5, 5, 1},
                                            {6, 6, 1},
                                            {7, 7, 2},
                                            {8, 7, 2},
                                            {9, 9, 2},
                                            {10, 9, 2}}) {
        Open(app, "tank.lse");
        RemoveRow(app, row);
        EXPECT_EQ(app.Rows(kSystem), Without(SampleRows(app), first, count)) << "row " << row;
        // The last section still fits its rows.
        if (row < 9) {
            RemoveRow(app, 10 - count);
            EXPECT_EQ(app.Rows(kSystem).size(), SampleRows(app).size() - count - 2u);
        }
        EXPECT_TRUE(CloseAsks(app));
        EXPECT_TRUE(FileExists(app.Path("tank.rul")));
        EXPECT_TRUE(FileExists(app.Path("head.cpp")));
    }
}

TEST_F(SystemCommandsTest, TheNameRowsCannotBeRemoved) {
    App& app = RunSample();
    RemoveRow(app, 0);
    RemoveRow(app, 1);
    RemoveRow(app, -1);
    EXPECT_EQ(app.Rows(kSystem), SampleRows(app));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemCommandsTest, RemovingTheFactsOneByOneRemovesTheHeading) {
    App& app = RunSample();
    RemoveRow(app, 6);
    RemoveRow(app, 5);
    EXPECT_EQ(app.Rows(kSystem), Without(SampleRows(app), 4, 3));
    RemoveRow(app, 7); // what comes behind has moved with its rows
    EXPECT_EQ(app.Rows(kSystem), Without(Without(SampleRows(app), 9, 2), 4, 3));
    app.Command(CM_SAVE_SYSTEM);
    const SystemFile stored = Stored(app, "tank.lse");
    EXPECT_EQ(stored.head.DatNum, 0);
    EXPECT_EQ(Opposites(stored), TextRows{"HIGH\tLOW"});
    while (app.Rows(kSystem).size() > 2)
        RemoveRow(app, 2);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("tank.lse"))}));
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.lse")).size(), 1797u);
}

TEST_F(SystemCommandsTest, SavingAnOpenedSystemGivesTheSameBytes) {
    App& app = RunSample();
    const std::string before = FileContent(app.Path("tank.lse"));
    EXPECT_EQ(app.Rows(kSystem), SampleRows(app));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.lse")), before);
    SaveAs(app, "copy");
    EXPECT_EQ(FileContent(app.Path("copy.lse")), before);
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("copy.lse")));
}

TEST_F(SystemCommandsTest, AFactThatIsGoneFromItsBaseIsNotStored) {
    App& app = RunSample();
    const std::string base = FileContent(app.Path("tank.fac"));
    PutFile(app.Path("tank.fac"), base.substr(287)); // without Level
    app.Command(CM_SAVE_SYSTEM);
    const std::string stored = FileContent(app.Path("tank.lse"));
    EXPECT_EQ(stored.size(), 1797u + 287u + 255u);
    EXPECT_EQ(stored.substr(1789, 4), std::string("\x02\0\0\0", 4)); // though it is counted
    EXPECT_EQ(stored.substr(1797, 287), base.substr(287));
}

TEST_F(SystemCommandsTest, ACancelledNameGivesTheChangesUp) {
    App& app = RunNew();
    AddHeader(app, "head.cpp");
    app.CommandWithCancel(CM_SAVE_SYSTEM, "Save MORV System As...");
    EXPECT_EQ(app.Rows(kSystem).at(1), "\tuntitled.lse");
    EXPECT_FALSE(CloseAsks(app));
    EXPECT_FALSE(FileExists(app.Path("untitled.lse")));
}

TEST_F(SystemCommandsTest, SavingAnUntitledSystemAsksForItsName) {
    App& app = RunNew();
    AddHeader(app, "head.cpp");
    app.CommandWithFile(CM_SAVE_SYSTEM, "Save MORV System As...", app.Path("new.lse"));
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("new.lse")));
    EXPECT_EQ(FileContent(app.Path("new.lse")).size(), 1797u);
    EXPECT_EQ(Text(Stored(app, "new.lse").head.HeaderName), app.Path("head.cpp"));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemCommandsTest, ExitSavesAnUntitledSystemThroughADialog) {
    App& app = RunNew();
    AddHeader(app, "head.cpp");
    app.Start(CM_EXIT);
    app.ExpectBox("Save Current MORV System", "Close MORV Project", Buttons::YesNoCancel,
                  Icon::None, Answer::Yes);
    app.ChooseFile("Save MORV System As...", app.Path("new.lse"));
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(Text(Stored(app, "new.lse").head.HeaderName), app.Path("head.cpp"));
}

TEST_F(SystemCommandsTest, ClosingAsksForAChangedSystem) {
    App& app = RunSample();
    RemoveRow(app, 9);
    app.Start(CM_CLOSE_SYSTEM);
    ExpectSaveQuestion(app, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem), Without(SampleRows(app), 9, 2));
    EXPECT_FALSE(app.IsGrey(CM_CLOSE_SYSTEM));
    for (const Answer answer : {Answer::Cancel, Answer::No}) {
        app.StartClose(app.Child(kSystem));
        ExpectSaveQuestion(app, answer);
        app.Finish();
        EXPECT_EQ(app.HasChild(kSystem), answer == Answer::Cancel);
    }
    Open(app, "tank.lse");
    EXPECT_EQ(app.Rows(kSystem), SampleRows(app));
    RemoveRow(app, 9);
    app.Start(CM_CLOSE_SYSTEM);
    ExpectSaveQuestion(app, Answer::Yes);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kSystem));
    EXPECT_TRUE(app.IsGrey(CM_CLOSE_SYSTEM));
    EXPECT_EQ(Text(Stored(app, "tank.lse").head.HeaderName), "");
}

TEST_F(SystemCommandsTest, ClosingAnUntitledSystemWithYesAsksForItsName) {
    App& app = RunNew();
    AddHeader(app, "head.cpp");
    app.Start(CM_CLOSE_SYSTEM);
    ExpectSaveQuestion(app, Answer::Yes);
    app.ChooseFile("Save MORV System As...", app.Path("new.lse"));
    app.Finish();
    EXPECT_FALSE(app.HasChild(kSystem));
    EXPECT_EQ(Text(Stored(app, "new.lse").head.HeaderName), app.Path("head.cpp"));
    app.Command(CM_NEW_SYSTEM);
    AddHeader(app, "head.cpp");
    app.Start(CM_CLOSE_SYSTEM);
    ExpectSaveQuestion(app, Answer::Yes);
    app.CancelFile("Save MORV System As...");
    app.Finish();
    EXPECT_FALSE(app.HasChild(kSystem)); // closed all the same
}

TEST_F(SystemCommandsTest, AFailedSaveKeepsTheSystemChanged) {
    App& app = RunSample();
    const std::string before = FileContent(app.Path("tank.lse"));
    RemoveRow(app, 9);
    {
        const ReadOnlyFile mark(app.Path("tank.lse"));
        app.Start(CM_SAVE_SYSTEM);
        app.ExpectError("Permison denied");
        app.Finish();
        app.Start(CM_CLOSE_SYSTEM);
        ExpectSaveQuestion(app, Answer::Yes);
        app.ExpectError("Permison denied");
        app.Finish();
    }
    EXPECT_TRUE(app.HasChild(kSystem));
    EXPECT_EQ(FileContent(app.Path("tank.lse")), before);
    {
        const LockedFile lock(app.Path("tank.lse"));
        app.Start(CM_SAVE_SYSTEM);
        app.ExpectError("Permison denied");
        app.Finish();
    }
    EXPECT_EQ(FileContent(app.Path("tank.lse")), before);
    PutFolder(app.Path("tank.lse"));
    app.Start(CM_SAVE_SYSTEM);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(SystemCommandsTest, AFileThatDoesNotOpenLeavesAWindowWithItsName) {
    App& app = Run(Kind::Nt, PutSampleProject);
    PutFile(app.Path("short.lse"), std::string(1796, 'x'));
    PutEmptySystem(app.Path("locked.lse"));
    const ReadOnlyFile mark(app.Path("tank.lse"));
    const LockedFile lock(app.Path("locked.lse"));
    for (const char* name : {"tank.lse", "locked.lse", "short.lse"}) {
        app.Start(CM_OPEN_SYSTEM);
        app.ChooseFile("Open MORV System", app.Path(name));
        EXPECT_EQ(app.ExpectBox("Open Error", "Open Engine").owner, nullptr);
        app.Finish();
        EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path(name))}));
        ExpectRefused(app, CM_SAVE_SYSTEM, "There is not Opened MORV System", "Save MORV System");
    }
    // No system is open, so another one may be.
    app.Command(CM_NEW_SYSTEM);
    EXPECT_EQ(app.Children(kSystem).size(), 1u);
}

TEST_F(SystemCommandsTest, CountsThatNoSystemHasOpenNothing) {
    App& app = Run(Kind::Nt, PutSampleProject);
    const std::string whole = FileContent(app.Path("tank.lse"));
    for (const std::int32_t count : {0x7FFFFFFF, -5}) {
        for (const std::size_t at : {1789u, 1793u}) {
            std::string bytes = whole;
            bytes.replace(at, 4, std::string(BytesOf(count)));
            PutFile(app.Path("tank.lse"), bytes);
            app.Start(CM_OPEN_SYSTEM);
            app.ChooseFile("Open MORV System", app.Path("tank.lse"));
            app.ExpectBox("Open Error", "Open Engine");
            app.Finish();
            EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("tank.lse"))}))
                << count << " at " << at;
            ExpectRefused(app, CM_SAVE_SYSTEM, "There is not Opened MORV System",
                          "Save MORV System");
        }
    }
}

TEST_F(SystemCommandsTest, RulesAndHeaderCarryOverToTheNextSystem) {
    App& app = RunSample();
    PutEmptySystem(app.Path("empty.lse"));
    EXPECT_FALSE(CloseAsks(app));
    Open(app, "empty.lse");
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("empty.lse"))}));
    ExpectRefused(app, CM_ADD_RULES, "There is An Opened Rule File", "Add Rules");
    ExpectRefused(app, CM_ADD_HEADER, "There is An System Header", "Add Header");
    // A new system forgets them.
    EXPECT_FALSE(CloseAsks(app));
    app.Command(CM_NEW_SYSTEM);
    AddRules(app, "tank.rul");
    AddHeader(app, "head.cpp");
    EXPECT_EQ(app.Rows(kSystem).size(), 6u);
}

TEST_F(SystemCommandsTest, RulesClosesTheTextWindowsFirst) {
    App& app = RunSample();
    for (const char* name : {"main.cpp", "help.cpp"})
        app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path(name));
    app.Type("x");
    app.Activate(app.Child(kSystem));
    const auto start = [&](Answer answer) {
        app.Start(CM_RULES);
        app.ExpectBox("File Has been change. Save before Closing?", "Close notification",
                      Buttons::YesNoCancel, Icon::None, answer);
    };
    start(Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.Children(kEditor).size(), 2u);
    start(Answer::No);
    Dialog rules = app.WaitDialog("Rules");
    EXPECT_TRUE(IsWindowEnabled(app.Frame()));
    ASSERT_EQ(app.Children(kEditor).size(), 1u);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled.rul");
    EXPECT_EQ(app.EditorText(), "");
    EXPECT_TRUE(app.HasChild(kSystem));
    rules.Close();
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("help.cpp")),
              "#include <math.h>\r\nint twice(int a) { return 2 * a; }\r\n");
}

TEST_F(SystemCommandsTest, DerivedNamesEndAtTheFirstDotOfThePath) {
    App& app = RunNew();
    MakeFolders(app.Path("a.b"));
    PutFile(app.Path("a.b\\tank.rul"), "");
    PutFile(app.Path("a.b\\tank.fac"), FileContent(app.Path("tank.fac")));
    AddRules(app, "a.b\\tank.rul");
    AddFacts(app, "a.b\\tank.fac", {0});
    SaveAs(app, "new.lse");
    const SystemFile stored = Stored(app, "new.lse");
    EXPECT_EQ(Text(stored.head.RuleSizeName), app.Path("a.siz"));
    EXPECT_EQ(Text(stored.head.KTypeName), app.Path("a.typ"));
}

} // namespace

} // namespace gui
