// The resources of a system: Add Resource, removing rows, what is carried over, damaged files.
#include "tests/gui/system_fixture.h"

namespace gui {

namespace {

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
