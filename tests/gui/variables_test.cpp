// Local variables: their dialog, their working copy and the file beside the system.
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "tests/gui/blocked_files.h"
#include "tests/gui/system_steps.h"

namespace gui {

namespace {

struct Variable {
    std::string name, type, value;
};

std::string Bytes(const std::vector<Variable>& variables) {
    std::vector<V_V> records;
    for (const auto& [name, type, value] : variables) {
        V_V& record = records.emplace_back();
        SetText(record.Name, name);
        SetText(record.Type, type);
        SetText(record.Val, value);
    }
    return std::string(BytesOf(records));
}

const std::vector<Variable> kStored{{"A", "int", "1"}, {"B", "long", "2"}, {"C", "char", "3"}};
const TextRows kStoredRows{"C \t char \t 3", "B \t long \t 2", "A \t int \t 1"};

class VariablesTest : public SystemGuiTest {
protected:
    // The program with the sample's system open, which has the variables above.
    App& RunStored() {
        App& app = Run(Kind::Nt, [](const WorkFolder& work) {
            PutSampleProject(work);
            PutFile(work.Path("tank.var"), Bytes(kStored));
            SystemFile system;
            ASSERT_EQ(ReadSystem(work.Path("tank.lse").c_str(), system), ReadResult::Ok);
            SetText(system.head.VarName, work.Path("tank.var"));
            PutFile(work.Path("tank.lse"), SystemBytes(system));
        });
        Open(app, "tank.lse");
        return app;
    }

    static Dialog OpenVariables(App& app) {
        app.Start(CM_ADD_LOCAL_VARS);
        return app.WaitDialog("Local Vars");
    }

    static void Add(Dialog& dialog, const Variable& variable) {
        dialog.SetText(VAR_NAME, variable.name);
        dialog.SetText(VAR_TYPE, variable.type);
        dialog.SetText(VAR_VALUE, variable.value);
        dialog.Click(VAR_ADD);
    }

    static void ExpectRefused(App& app, Dialog& dialog, const std::string& text) {
        dialog.Press(VAR_ADD);
        const Box box = app.ExpectBox(text, "New Var", Buttons::Ok, Icon::Exclamation);
        EXPECT_EQ(box.owner, dialog.Window());
        app.Finish();
    }

    static std::string Working(const App& app, const std::string& name) {
        return FileContent(app.Path("temp\\" + name));
    }
};

TEST_F(VariablesTest, ANewSystemsAreKeptAsAWorkingCopyUntilItIsSaved) {
    App& app = RunNew();
    Dialog dialog = OpenVariables(app);
    EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(dialog.Rows(VAR_LIST), TextRows{});
    EXPECT_EQ(dialog.ComboRows(VAR_TYPE), (TextRows{"int", "long", "char", "double"}));
    EXPECT_EQ(dialog.Text(VAR_TYPE), "long");
    Add(dialog, {"x", "long", "1"});
    Add(dialog, {"y", "own", "2 words"}); // any type, any value
    EXPECT_EQ(dialog.Rows(VAR_LIST), (TextRows{"y \t own \t 2 words", "x \t long \t 1"}));
    EXPECT_FALSE(FileExists(app.Path("temp\\untitled.var")));
    End(app, dialog, VAR_CLOSE);
    const std::string bytes = Bytes({{"y", "own", "2 words"}, {"x", "long", "1"}});
    EXPECT_EQ(Working(app, "untitled.var"), bytes);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse", "System Locar Var",
                                           Item(app.Path("untitled.var"))}));
    SaveAs(app, "new.lse");
    EXPECT_EQ(FileContent(app.Path("new.var")), bytes);
    EXPECT_FALSE(FileExists(app.Path("temp\\untitled.var")));
    EXPECT_EQ(app.Rows(kSystem).at(3), Item(app.Path("new.var")));
    EXPECT_EQ(Text(Stored(app, "new.lse").head.VarName), app.Path("new.var"));
}

TEST_F(VariablesTest, RefusesWhatIsNotWhole) {
    App& app = RunNew();
    Dialog dialog = OpenVariables(app);
    ExpectRefused(app, dialog, "Name must be defined");
    dialog.SetText(VAR_NAME, "x");
    dialog.SetText(VAR_TYPE, "");
    ExpectRefused(app, dialog, "Type must be defined");
    dialog.SetText(VAR_TYPE, "int");
    ExpectRefused(app, dialog, "Value must be assigned");
    EXPECT_EQ(dialog.Rows(VAR_LIST), TextRows{});
    End(app, dialog, IDCANCEL);
}

TEST_F(VariablesTest, EveryOpeningAndClosingTurnsTheFileRound) {
    App& app = RunStored();
    EXPECT_EQ(app.Rows(kSystem).at(11), "System Local Var");
    EXPECT_EQ(app.Rows(kSystem).at(12), Item(app.Path("tank.var")));
    Dialog dialog = OpenVariables(app);
    EXPECT_EQ(dialog.Rows(VAR_LIST), kStoredRows);
    End(app, dialog, VAR_CLOSE);
    EXPECT_EQ(app.Rows(kSystem).at(11), "System Locar Var");
    const std::vector<Variable> turned(kStored.rbegin(), kStored.rend());
    EXPECT_EQ(Working(app, "tank.var"), Bytes(turned));
    EXPECT_EQ(FileContent(app.Path("tank.var")), Bytes(kStored));
    Dialog again = OpenVariables(app); // from the working copy
    EXPECT_EQ(again.Rows(VAR_LIST), TextRows(kStoredRows.rbegin(), kStoredRows.rend()));
    End(app, again, VAR_CLOSE);
    EXPECT_EQ(Working(app, "tank.var"), Bytes(kStored));
    Dialog third = OpenVariables(app);
    End(app, third, VAR_CLOSE);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.var")), Bytes(turned));
    EXPECT_FALSE(FileExists(app.Path("temp\\tank.var")));
}

TEST_F(VariablesTest, AKnownNameIsReplacedAndMovesToTheTop) {
    App& app = RunStored();
    Dialog dialog = OpenVariables(app);
    Add(dialog, {"AB", "int", "9"});
    Add(dialog, {"b", "double", "7"}); // in any letter case
    EXPECT_EQ(dialog.Rows(VAR_LIST),
              (TextRows{"b \t double \t 7", "AB \t int \t 9", "C \t char \t 3", "A \t int \t 1"}));
    Add(dialog, {"A", "int", "5"}); // not the longer name
    EXPECT_EQ(dialog.Rows(VAR_LIST),
              (TextRows{"A \t int \t 5", "b \t double \t 7", "AB \t int \t 9", "C \t char \t 3"}));
    dialog.Click(VAR_REMOVE); // nothing is selected
    dialog.Select(VAR_LIST, 1);
    dialog.Click(VAR_REMOVE);
    End(app, dialog, VAR_CLOSE);
    EXPECT_EQ(Working(app, "tank.var"),
              Bytes({{"A", "int", "5"}, {"AB", "int", "9"}, {"C", "char", "3"}}));
}

TEST_F(VariablesTest, ADoubleClickSplitsTheRow) {
    App& app = RunNew();
    Dialog dialog = OpenVariables(app);
    Add(dialog, {"level", "double", "1 + 2"});
    Add(dialog, {"two words", "int", "3"});
    dialog.DoubleClick(VAR_LIST, 1);
    EXPECT_EQ(dialog.Text(VAR_NAME), "level");
    EXPECT_EQ(dialog.Text(VAR_TYPE), "double");
    EXPECT_EQ(dialog.Text(VAR_VALUE), "1 + 2");
    dialog.DoubleClick(VAR_LIST, 0);
    EXPECT_EQ(dialog.Text(VAR_NAME), "two");
    End(app, dialog, IDCANCEL);
}

TEST_F(VariablesTest, DdeItemsAreAppendedToTheValue) {
    App& app = RunNew();
    DdeFile dde{"PLC", std::vector<DDE_ITEM>(2)};
    SetText(dde.items[0].DName, "b");
    SetText(dde.items[1].DName, "a");
    PutFile(app.Path("two.dde"), DdeBytes(dde) + "rest");
    Dialog dialog = OpenVariables(app);
    dialog.Press(VAR_LOAD);
    app.CancelFile("Open DDE File");
    app.Finish();
    EXPECT_EQ(dialog.Rows(VAR_DDE), TextRows{});
    for (const char* name : {"two.dde", "link.dde"}) {
        dialog.Press(VAR_LOAD);
        app.ChooseFile("Open DDE File", app.Path(name));
        app.Finish();
    }
    EXPECT_EQ(dialog.Rows(VAR_DDE), (TextRows{"DDEinfo.b", "DDEinfo.a", "DDEinfo.level"}));
    dialog.SetText(VAR_VALUE, "1+");
    dialog.DoubleClick(VAR_DDE, 0);
    dialog.DoubleClick(VAR_DDE, 0);
    EXPECT_EQ(dialog.Text(VAR_VALUE), "1+DDEinfo.bDDEinfo.b");
    dialog.SetText(VAR_VALUE, std::string(250, 'v'));
    dialog.DoubleClick(VAR_DDE, 2);
    EXPECT_EQ(dialog.Text(VAR_VALUE), std::string(250, 'v') + "DDEi");
    End(app, dialog, IDCANCEL);
}

TEST_F(VariablesTest, CancelKeepsTheWorkingCopyAndTheCloseBoxForgetsIt) {
    App& app = RunStored();
    Dialog dialog = OpenVariables(app);
    Add(dialog, {"N", "int", "0"});
    End(app, dialog, VAR_CLOSE);
    Dialog cancelled = OpenVariables(app);
    EXPECT_EQ(cancelled.Rows(VAR_LIST).size(), 4u);
    Add(cancelled, {"M", "int", "0"});
    End(app, cancelled, IDCANCEL);
    Dialog closed = OpenVariables(app);
    EXPECT_EQ(closed.Rows(VAR_LIST).size(), 4u);
    EndByCloseBox(app, closed);
    Dialog last = OpenVariables(app); // from the file beside the system again
    EXPECT_EQ(last.Rows(VAR_LIST), kStoredRows);
    End(app, last, IDCANCEL);
}

TEST_F(VariablesTest, NeitherCancelNorTheCloseBoxMakesASection) {
    App& app = RunNew();
    Dialog cancelled = OpenVariables(app);
    Add(cancelled, {"x", "int", "0"});
    End(app, cancelled, IDCANCEL);
    Dialog closed = OpenVariables(app);
    EXPECT_EQ(closed.Rows(VAR_LIST), TextRows{});
    EndByCloseBox(app, closed);
    EXPECT_EQ(app.Rows(kSystem).size(), 2u);
    EXPECT_FALSE(FileExists(app.Path("temp\\untitled.var")));
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(VariablesTest, SavingAReopenedSystemWithoutAnEditDropsItsFile) {
    App& app = RunStored();
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_FALSE(FileExists(app.Path("tank.var")));
    EXPECT_EQ(Text(Stored(app, "tank.lse").head.VarName), app.Path("tank.var"));
}

TEST_F(VariablesTest, SavingAfterACancelledEditKeepsTheFile) {
    App& app = RunStored();
    Dialog dialog = OpenVariables(app);
    End(app, dialog, IDCANCEL);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.var")), Bytes(kStored));
}

TEST_F(VariablesTest, RemovingTheRowLeavesTheFile) {
    App& app = RunStored();
    RemoveRow(app, 12);
    EXPECT_EQ(app.Rows(kSystem).size(), 11u);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.var")), Bytes(kStored));
    EXPECT_EQ(Text(Stored(app, "tank.lse").head.VarName), "");
}

TEST_F(VariablesTest, AFileWithARestAndLongTextsIsRead) {
    App& app = RunStored();
    PutFile(app.Path("tank.var"), Bytes({{"A", "int", "1"}}) + std::string(764, 'x'));
    Dialog dialog = OpenVariables(app);
    EXPECT_EQ(dialog.Rows(VAR_LIST), TextRows{"A \t int \t 1"});
    Add(dialog, {std::string(300, 'n'), std::string(300, 't'), std::string(300, 'v')});
    End(app, dialog, VAR_CLOSE);
    EXPECT_EQ(Working(app, "tank.var"),
              Bytes({{std::string(254, 'n'), std::string(254, 't'), std::string(254, 'v')},
                     {"A", "int", "1"}}));
    Dialog again = OpenVariables(app);
    EXPECT_EQ(again.Rows(VAR_LIST).size(), 2u);
    End(app, again, IDCANCEL);
}

TEST_F(VariablesTest, AFileThatCannotBeCreatedStillMakesTheSection) {
    App& app = RunNew();
    PutFolder(app.Path("temp\\untitled.var"));
    Dialog dialog = OpenVariables(app);
    Add(dialog, {"x", "int", "0"});
    dialog.Press(VAR_CLOSE);
    app.ExpectError("Permison denied");
    app.Finish();
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).at(2), "System Locar Var");
    EXPECT_TRUE(CloseAsks(app));
}

} // namespace

} // namespace gui
