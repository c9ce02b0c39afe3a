// The system document and its commands: rows, boxes and bytes on disk.
#include "resources/variable.h"
#include "system/system_file.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr char kOpenTitle[] = "Open MORV System";
constexpr char kSaveTitle[] = "Save MORV System As...";
constexpr char kAskSave[] = "   Save Current MORV System";
constexpr char kAskCaption[] = "Close MORV System";

class SystemTest : public GuiTest {
protected:
    App& RunNew() {
        App& app = Run(Kind::Nt, PutSampleProject);
        app.Command(CM_NEW_SYSTEM);
        return app;
    }

    App& RunTank(const App::Setup& change = {}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            PutSampleProject(work);
            if (change)
                change(work);
        });
        Open(app, "tank.lse");
        return app;
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_SYSTEM, kOpenTitle, app.Path(name));
    }

    static void SaveAs(App& app, const std::string& name) {
        app.CommandWithFile(CM_SAVE_AS_SYSTEM, kSaveTitle, app.Path(name));
    }

    static void AddRules(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", app.Path(name));
    }

    static void AddHeader(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_HEADER, "Add System Header", app.Path(name));
    }

    // Starts Add Facts on the sample's facts base and returns its dialog.
    static Dialog AddFacts(App& app) {
        app.Start(CM_ADD_FACTS);
        app.ChooseFile("Open MORV Facts", app.Path("tank.fac"));
        return app.WaitDialog("Add Resource");
    }

    static void RemoveRow(App& app, int row) {
        app.SelectRow(kSystem, row);
        app.Command(CM_RESOURCE_REMOVE);
    }

    static SystemFile Stored(const App& app, const std::string& name) {
        SystemFile system;
        ReadSystem(app.Path(name).c_str(), system);
        return system;
    }

    static bool CloseAsks(App& app, Answer answer = Answer::No) {
        app.Start(CM_CLOSE_SYSTEM);
        bool asked = false;
        app.Process().WaitFor("the end of the close or its question", [&] {
            asked = !Dialogs(app.Process()).empty();
            return asked || !app.Process().Busy();
        });
        if (asked) {
            const Box box =
                app.ExpectBox(kAskSave, kAskCaption, Buttons::YesNoCancel, Icon::None, answer);
            EXPECT_EQ(box.owner, nullptr);
        }
        app.Finish();
        return asked;
    }

    // The rows of the sample system as opened from its file.
    static TextRows TankRows(const App& app) {
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
};

TEST_F(SystemTest, ANewSystemHasTwoRows) {
    App& app = RunNew();
    EXPECT_EQ(TextOf(app.Child(kSystem)), "System");
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse"}));
    EXPECT_FALSE(CloseAsks(app));
    EXPECT_FALSE(app.HasChild(kSystem));
}

TEST_F(SystemTest, CommandsWithoutASystemSaySo) {
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
    for (const auto& [id, caption] : commands) {
        app.Start(id);
        app.ExpectBox("There is not Opened MORV System", caption);
        app.Finish();
    }
    app.Command(CM_RESOURCE_REMOVE);
    EXPECT_TRUE(app.Children().empty());
}

TEST_F(SystemTest, OnlyOneSystemIsOpen) {
    App& app = RunNew();
    app.Start(CM_NEW_SYSTEM);
    app.ExpectBox("There is a Opened MORV System", "New MORV System");
    app.Finish();
    app.Start(CM_OPEN_SYSTEM);
    app.ExpectBox("There is Opened MORV System", "Open MORV System");
    app.Finish();
    EXPECT_EQ(app.Children(kSystem).size(), 1u);
}

TEST_F(SystemTest, EveryFileDialogCanBeCancelled) {
    App& app = RunNew();
    app.CommandWithCancel(CM_SAVE_AS_SYSTEM, kSaveTitle);
    app.CommandWithCancel(CM_ADD_HEADER, "Add System Header");
    app.CommandWithCancel(CM_ADD_OPPOSITES, "Add Opposites");
    app.CommandWithCancel(CM_ADD_FACTS, "Open MORV Facts");
    app.CommandWithCancel(CM_ADD_RULES, "Open MORV Rules");
    EXPECT_EQ(app.Rows(kSystem).size(), 2u);
    EXPECT_FALSE(CloseAsks(app));
    app.CommandWithCancel(CM_OPEN_SYSTEM, kOpenTitle);
    EXPECT_FALSE(app.HasChild(kSystem));
}

TEST_F(SystemTest, OpensEverySection) {
    App& app = RunTank();
    EXPECT_EQ(app.Rows(kSystem), TankRows(app));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, SavingAnOpenedSystemGivesTheSameBytes) {
    App& app = RunTank();
    const std::string before = FileContent(app.Path("tank.lse"));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.lse")), before);
}

TEST_F(SystemTest, ASystemThatCannotBeOpenedLeavesItsWindow) {
    App& app = Run(Kind::Nt, PutSampleProject);
    {
        const LockedFile lock(app.Path("tank.lse"));
        app.Start(CM_OPEN_SYSTEM);
        app.ChooseFile(kOpenTitle, app.Path("tank.lse"));
        EXPECT_EQ(app.ExpectBox("Open Error", "Open Engine").owner, nullptr);
        app.Finish();
    }
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("tank.lse"))}));
    // It does not count as open.
    app.Start(CM_SAVE_SYSTEM);
    app.ExpectBox("There is not Opened MORV System", "Save MORV System");
    app.Finish();
}

TEST_F(SystemTest, SavingAnUntitledSystemAsksForAName) {
    App& app = RunNew();
    AddRules(app, "tank.rul");
    app.CommandWithFile(CM_SAVE_SYSTEM, kSaveTitle, app.Path("new.lse"));
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("new.lse")));
    const SystemFile stored = Stored(app, "new.lse");
    EXPECT_EQ(Text(stored.head.RuleName), app.Path("tank.rul"));
    EXPECT_EQ(Text(stored.head.RuleSizeName), app.Path("tank.siz"));
    EXPECT_EQ(FileContent(app.Path("new.lse")).size(), 1797u);
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, ACancelledNameCountsAsSaved) {
    App& app = RunNew();
    AddRules(app, "tank.rul");
    app.CommandWithCancel(CM_SAVE_SYSTEM, kSaveTitle);
    EXPECT_EQ(app.Rows(kSystem).at(1), "\tuntitled.lse");
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, AFailedSaveIsReportedAndKeepsItChanged) {
    App& app = RunTank();
    RemoveRow(app, 10);
    const std::string before = FileContent(app.Path("tank.lse"));
    {
        const LockedFile lock(app.Path("tank.lse"));
        app.Start(CM_SAVE_SYSTEM);
        app.ExpectError("Permison denied");
        app.Finish();
    }
    EXPECT_EQ(FileContent(app.Path("tank.lse")), before);
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(SystemTest, ClosingAsksWhenChanged) {
    App& app = RunTank();
    RemoveRow(app, 10);
    EXPECT_TRUE(CloseAsks(app, Answer::Cancel));
    EXPECT_TRUE(app.HasChild(kSystem));
    EXPECT_FALSE(app.IsGrey(CM_CLOSE_SYSTEM));
    EXPECT_TRUE(CloseAsks(app, Answer::Yes));
    EXPECT_FALSE(app.HasChild(kSystem));
    EXPECT_TRUE(app.IsGrey(CM_CLOSE_SYSTEM));
    EXPECT_EQ(Text(Stored(app, "tank.lse").head.HeaderName), "");
}

TEST_F(SystemTest, TheCloseBoxAsksTheSame) {
    App& app = RunTank();
    RemoveRow(app, 10);
    app.StartClose(app.Child(kSystem));
    app.ExpectBox(kAskSave, kAskCaption, Buttons::YesNoCancel, Icon::None, Answer::Cancel);
    app.Finish();
    EXPECT_TRUE(app.HasChild(kSystem));
    app.StartClose(app.Child(kSystem));
    app.ExpectBox(kAskSave, kAskCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kSystem));
    Open(app, "tank.lse");
    EXPECT_EQ(app.Rows(kSystem), TankRows(app));
}

TEST_F(SystemTest, ExitSavesAnUntitledSystemThroughADialog) {
    App& app = RunNew();
    AddRules(app, "tank.rul");
    app.Start(CM_EXIT);
    app.ExpectBox("Save Current MORV System", "Close MORV Project", Buttons::YesNoCancel,
                  Icon::None, Answer::Yes);
    app.ChooseFile(kSaveTitle, app.Path("new.lse"));
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(Text(Stored(app, "new.lse").head.RuleName), app.Path("tank.rul"));
}

TEST_F(SystemTest, RulesMoveTheFactsDown) {
    App& app = RunNew();
    Dialog add = AddFacts(app);
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"Level", "Valve"}));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{});
    add.SelectRows(ADD_OFFERED, {1});
    add.Click(ADD_ADD);
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", "\tuntitled.lse", "Facts Base", "\tValve"}));
    AddRules(app, "tank.rul");
    AddHeader(app, "head.cpp");
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", "\tuntitled.lse", "Rules", Item(app.Path("tank.rul")),
                        "Facts Base", "\tValve", "System Header", Item(app.Path("head.cpp"))}));
    SaveAs(app, "new.lse");
    const SystemFile stored = Stored(app, "new.lse");
    ASSERT_EQ(stored.facts.size(), 1u);
    EXPECT_EQ(Text(stored.facts[0].Name), "Valve");
    EXPECT_EQ(stored.facts[0].Ident, 2);
    EXPECT_EQ(Text(stored.head.KnowName), app.Path("tank.fac"));
    EXPECT_EQ(Text(stored.head.KTypeName), app.Path("tank.typ"));
}

TEST_F(SystemTest, OneRulesFileAndOneHeader) {
    App& app = RunTank();
    app.Start(CM_ADD_RULES);
    app.ExpectBox("There is An Opened Rule File", "Add Rules");
    app.Finish();
    app.Start(CM_ADD_HEADER);
    app.ExpectBox("There is An System Header", "Add Header");
    app.Finish();
}

TEST_F(SystemTest, AddResourceOffersWhatTheSystemHasNot) {
    App& app = RunTank();
    Dialog add = AddFacts(app);
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"Level", "Valve"}));
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows{});
    add.SelectRows(ADD_CHOSEN, {0});
    add.Click(ADD_REMOVE);
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{"Valve"});
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows{"Level"});
    add.Click(ADD_CANCEL);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem), TankRows(app));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, TheSameFactIsAddedOnce) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutSampleProject(work);
        const std::string facts = FileContent(work.Path("tank.fac"));
        PutFile(work.Path("tank.fac"), facts + facts);
    });
    app.Command(CM_NEW_SYSTEM);
    Dialog add = AddFacts(app);
    EXPECT_EQ(add.Rows(ADD_OFFERED).size(), 4u);
    add.SelectRows(ADD_OFFERED, {0, 2});
    add.Click(ADD_ADD);
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{"Level"});
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"Valve", "Valve"}));
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).size(), 4u);
}

TEST_F(SystemTest, TwentyRowsAreTakenAtATime) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutSampleProject(work);
        std::vector<Dat> facts(25);
        for (std::size_t i = 0; i < facts.size(); ++i)
            SetText(facts[i].Name, "Fact" + std::to_string(i));
        PutFile(work.Path("tank.fac"), BytesOf(facts));
    });
    app.Command(CM_NEW_SYSTEM);
    Dialog add = AddFacts(app);
    std::vector<int> all(25);
    for (int i = 0; i < 25; ++i)
        all[static_cast<std::size_t>(i)] = i;
    add.SelectRows(ADD_OFFERED, all);
    add.Click(ADD_ADD);
    EXPECT_EQ(add.Rows(ADD_CHOSEN).size(), 20u);
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"Fact20", "Fact21", "Fact22", "Fact23", "Fact24"}));
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).size(), 2u + 1u + 20u);
}

TEST_F(SystemTest, AnEmptyChoiceRemovesAllFacts) {
    App& app = RunTank();
    Dialog add = AddFacts(app);
    add.SelectRows(ADD_CHOSEN, {0, 1});
    add.Click(ADD_REMOVE);
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{});
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem), Without(TankRows(app), 4, 3));
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(SystemTest, TheDialogsCloseBoxChangesNothing) {
    App& app = RunTank();
    Dialog add = AddFacts(app);
    add.SelectRows(ADD_CHOSEN, {0, 1});
    add.Click(ADD_REMOVE);
    add.Close();
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem), TankRows(app));
}

TEST_F(SystemTest, RemovesSectionsByTheirRows) {
    struct Case {
        int row;
        int first;
        int count;
    };
    for (const Case& each : std::vector<Case>{{2, 2, 2}, // rules by their heading
                                              {3, 2, 2}, // and by their file
                                              {4, 4, 3}, // all facts
                                              {5, 5, 1}, // one fact
                                              {7, 7, 2}, // all opposites
                                              {8, 7, 2}, // the only opposite
                                              {9, 9, 2},
                                              {10, 9, 2}}) {
        App& app = RunTank();
        RemoveRow(app, each.row);
        EXPECT_EQ(app.Rows(kSystem), Without(TankRows(app), each.first, each.count))
            << "row " << each.row;
        EXPECT_TRUE(CloseAsks(app)) << "row " << each.row;
    }
}

TEST_F(SystemTest, TheNameRowsRemoveNothing) {
    App& app = RunTank();
    RemoveRow(app, 0);
    RemoveRow(app, 1);
    EXPECT_EQ(app.Rows(kSystem), TankRows(app));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, RemovingEverythingGreysRemove) {
    App& app = RunTank();
    while (app.Rows(kSystem).size() > 2)
        RemoveRow(app, 2);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("tank.lse"))}));
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.lse")).size(), 1797u);
}

TEST_F(SystemTest, RemovingTheLastFactMovesTheRestUpByTwo) {
    App& app = RunTank();
    RemoveRow(app, 5);
    RemoveRow(app, 5);
    EXPECT_EQ(app.Rows(kSystem), Without(TankRows(app), 4, 3));
    // The positions still fit: the header is removed by its row.
    RemoveRow(app, 7);
    EXPECT_EQ(app.Rows(kSystem), Without(Without(TankRows(app), 9, 2), 4, 3));
}

TEST_F(SystemTest, AFactThatLeftTheFactsBaseShortensTheFile) {
    App& app = RunTank();
    const std::string facts = FileContent(app.Path("tank.fac"));
    PutFile(app.Path("tank.fac"), facts.substr(0, sizeof(Dat)));
    app.Command(CM_SAVE_SYSTEM);
    const std::string bytes = FileContent(app.Path("tank.lse"));
    EXPECT_EQ(bytes.size(), 1797u + sizeof(Dat) + 255u);
    SystemHead head;
    std::memcpy(&head, bytes.data(), sizeof head);
    EXPECT_EQ(head.DatNum, 2);
}

TEST_F(SystemTest, SavingUntouchedLocalVariablesDeletesTheirFile) {
    App& app = RunTank([](const WorkFolder& work) {
        PutFile(work.Path("tank.var"), std::string(sizeof(V_V), 'v'));
        std::string bytes = FileContent(work.Path("tank.lse"));
        SystemHead head;
        std::memcpy(&head, bytes.data(), sizeof head);
        SetText(head.VarName, work.Path("tank.var"));
        PutFile(work.Path("tank.lse"),
                std::string(BytesOf(head)).append(bytes.substr(sizeof head)));
    });
    TextRows rows = TankRows(app);
    rows.push_back("System Local Var");
    rows.push_back(Item(app.Path("tank.var")));
    EXPECT_EQ(app.Rows(kSystem), rows);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_FALSE(FileExists(app.Path("tank.var")));
}

TEST_F(SystemTest, ARulesFlagCarriesOverToTheNextSystem) {
    App& app =
        RunTank([](const WorkFolder& work) { PutFile(work.Path("bare.lse"), SystemBytes({})); });
    app.Command(CM_CLOSE_SYSTEM);
    Open(app, "bare.lse");
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("bare.lse"))}));
    app.Start(CM_ADD_RULES);
    app.ExpectBox("There is An Opened Rule File", "Add Rules");
    app.Finish();
    // A new system starts clean.
    app.Command(CM_CLOSE_SYSTEM);
    app.Command(CM_NEW_SYSTEM);
    AddRules(app, "tank.rul");
    EXPECT_EQ(app.Rows(kSystem).size(), 4u);
}

TEST_F(SystemTest, DamagedFilesOpenWithTheirWholeItems) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutSampleProject(work);
        const std::string bytes = FileContent(work.Path("tank.lse"));
        PutFile(work.Path("cut.lse"), bytes.substr(0, 1797 + sizeof(Dat) + 100));
    });
    app.Start(CM_OPEN_SYSTEM);
    app.ChooseFile(kOpenTitle, app.Path("cut.lse"));
    app.ExpectBox("Open Error", "Open Engine");
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).at(4), "Facts Base");
    EXPECT_EQ(app.Rows(kSystem).at(5), "\tLevel");
}

TEST_F(SystemTest, AFileShorterThanItsFixedPartDoesNotOpen) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutFile(work.Path("short.lse"), std::string(1796, 'x'));
    });
    app.Start(CM_OPEN_SYSTEM);
    app.ChooseFile(kOpenTitle, app.Path("short.lse"));
    app.ExpectBox("Open Error", "Open Engine");
    app.Finish();
    app.Start(CM_SAVE_SYSTEM);
    app.ExpectBox("There is not Opened MORV System", "Save MORV System");
    app.Finish();
}

TEST_F(SystemTest, InitialFactsNeedFacts) {
    App& app = RunNew();
    app.Start(CM_INIT_FACTS);
    app.ExpectBox("There is not Facts", "Init Knowledge Base");
    app.Finish();
}

TEST_F(SystemTest, InitialFactsAskForADdeFile) {
    App& app = RunTank();
    app.CommandWithCancel(CM_INIT_FACTS, "Open DDE File");
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(SystemTest, TheRuleEditorClosesTextWindowsFirst) {
    App& app = RunNew();
    app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("main.cpp"));
    app.Type("x");
    app.Start(CM_RULES);
    app.ExpectBox("File Has been change. Save before Closing?", "Close notification",
                  Buttons::YesNoCancel, Icon::None, Answer::No);
    Dialog rules = app.WaitDialog("Rules");
    EXPECT_EQ(GetWindow(rules.Window(), GW_OWNER), nullptr);
    EXPECT_TRUE(IsWindowEnabled(app.Frame()));
    ASSERT_EQ(app.Children(kEditor).size(), 1u);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled.rul");
    // While the rule editor is open its text window cannot be closed.
    app.StartClose(app.Child(kEditor));
    app.Finish();
    app.Command(CM_CLOSE_FILE);
    EXPECT_TRUE(app.HasChild(kEditor));
}

} // namespace

} // namespace gui
