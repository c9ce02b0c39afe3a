// The system document: new, open, save, close and exit.
#include "tests/gui/system_fixture.h"

namespace gui {

namespace {

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

} // namespace

} // namespace gui
