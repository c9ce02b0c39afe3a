// DDE items: their editor and their file.
#include "resources/core/dde_item.h"
#include "tests/gui/blocked_files.h"
#include "tests/gui/gui_test.h"

namespace gui {

namespace {

constexpr char kOpenTitle[] = "Open DDE File";
constexpr char kNewItemTitle[] = "New DDE Item";

std::string Bytes(const std::string& name,
                  const std::vector<std::pair<std::string, std::string>>& items) {
    DdeFile file{name, {}};
    for (const auto& [item, type] : items) {
        SetText(file.items.emplace_back().DName, item);
        SetText(file.items.back().DType, type);
    }
    return DdeBytes(file);
}

class DdeTest : public GuiTest {
protected:
    static Dialog New(App& app) {
        app.Start(CM_NEW_DDE);
        return app.WaitDialog("DDE");
    }

    static Dialog Load(App& app, const std::string& name) {
        app.Start(CM_LOAD_DDE);
        app.ChooseFile(kOpenTitle, app.Path(name));
        return app.WaitDialog("DDE");
    }

    static void Add(Dialog& dialog, const std::string& name, const std::string& type) {
        dialog.SetText(DDE_ITEM_NAME, name);
        dialog.SetText(DDE_TYPE, type);
        dialog.Click(IDOK);
    }

    // Types a new DDE name over the shown one: only a user's keys count as a change.
    static void TypeName(App& app, Dialog& dialog, const std::string& keys) {
        app.Process().Send(dialog.Control(DDE_NAME), EM_SETSEL, 0, -1);
        for (char c : keys)
            app.Process().Send(dialog.Control(DDE_NAME), WM_CHAR, static_cast<unsigned char>(c), 1);
    }

    static void ExpectRefused(App& app, Dialog& dialog, int button, const std::string& text) {
        dialog.Press(button);
        const Box box = app.ExpectBox(text, "New Dde", Buttons::Ok, Icon::Exclamation);
        EXPECT_EQ(box.owner, dialog.Window());
        app.Finish();
        EXPECT_TRUE(dialog.Open());
    }

    static void Close(App& app, Dialog& dialog) {
        dialog.Click(DDE_CLOSE);
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }

    static void Leave(App& app, Dialog& dialog) {
        dialog.Click(IDCANCEL);
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }
};

TEST_F(DdeTest, ANewListIsPutTogetherBesideTheFrame) {
    App& app = Run();
    Dialog dialog = New(app);
    EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), nullptr);
    EXPECT_TRUE(IsWindowEnabled(app.Frame()));
    EXPECT_EQ(dialog.ComboRows(DDE_TYPE), (TextRows{"int", "long", "char", "double"}));
    EXPECT_EQ(dialog.Text(DDE_TYPE), "long");
    dialog.SetText(DDE_NAME, "PLC");
    Add(dialog, "level", "double");
    Add(dialog, "Level", "own type"); // letter case counts, and any type is taken
    Add(dialog, "level", "int");      // nothing is said
    EXPECT_EQ(dialog.Text(DDE_ITEM_NAME), "");
    EXPECT_EQ(dialog.Rows(DDE_ITEMS), (TextRows{"level\tdouble", "Level\town type"}));
    dialog.Press(DDE_CLOSE);
    app.ChooseFile(kNewItemTitle, app.Path("plc"));
    app.Finish();
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("plc.dde")),
              Bytes("PLC", {{"level", "double"}, {"Level", "own type"}}));
}

TEST_F(DdeTest, RefusesWhatIsNotWhole) {
    App& app = Run();
    Dialog dialog = New(app);
    ExpectRefused(app, dialog, IDOK, "Name must be defined");
    dialog.SetText(DDE_ITEM_NAME, "level");
    dialog.SetText(DDE_TYPE, "");
    ExpectRefused(app, dialog, IDOK, "Type must be defined");
    EXPECT_EQ(dialog.Text(DDE_ITEM_NAME), "level");
    Add(dialog, "level", "int");
    ExpectRefused(app, dialog, DDE_CLOSE, "Items Name must be defined");
    dialog.SetText(DDE_NAME, "PLC");
    dialog.Press(DDE_CLOSE);
    app.CancelFile(kNewItemTitle);
    app.Finish();
    EXPECT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.Rows(DDE_ITEMS), TextRows{"level\tint"});
    dialog.Close();
    app.Finish();
    EXPECT_FALSE(FileExists(app.Path("untitled.dde")));
}

TEST_F(DdeTest, AnUnchangedListIsNotWritten) {
    App& app = Run();
    Dialog untitled = New(app);
    Close(app, untitled);
    std::string before = Bytes("PLC", {{"a", "int"}, {"b", "long"}});
    before[20] = 'x'; // behind the terminator
    before += std::string(149, 'x');
    PutFile(app.Path("l.dde"), before);
    Dialog loaded = Load(app, "l.dde");
    EXPECT_EQ(GetWindow(loaded.Window(), GW_OWNER), app.Frame());
    EXPECT_FALSE(IsWindowEnabled(app.Frame()));
    EXPECT_EQ(loaded.Text(DDE_NAME), "PLC");
    EXPECT_EQ(loaded.Text(DDE_TYPE), "long");
    EXPECT_EQ(loaded.Rows(DDE_ITEMS), (TextRows{"a\tint", "b\tlong"}));
    Close(app, loaded);
    EXPECT_EQ(FileContent(app.Path("l.dde")), before);
}

TEST_F(DdeTest, EveryKindOfChangeRewritesTheFile) {
    App& app = Run();
    PutFile(app.Path("l.dde"), Bytes("PLC", {{"a", "int"}, {"b", "long"}}));
    Dialog renamed = Load(app, "l.dde");
    TypeName(app, renamed, "NEW");
    Close(app, renamed);
    EXPECT_EQ(FileContent(app.Path("l.dde")), Bytes("NEW", {{"a", "int"}, {"b", "long"}}));
    Dialog removed = Load(app, "l.dde");
    removed.Select(DDE_ITEMS, 0);
    removed.Click(DDE_REMOVE);
    EXPECT_EQ(FileContent(app.Path("l.dde")).size(), 255u + 300u);
    Close(app, removed);
    EXPECT_EQ(FileContent(app.Path("l.dde")), Bytes("NEW", {{"b", "long"}}));
    // A refused item and an empty Remove change nothing but count: the rest is cut off.
    const std::string rest = Bytes("NEW", {{"b", "long"}});
    for (int button : {IDOK, DDE_REMOVE}) {
        PutFile(app.Path("l.dde"), rest + "rest");
        Dialog dialog = Load(app, "l.dde");
        dialog.SetText(DDE_ITEM_NAME, "b");
        dialog.Click(button);
        Close(app, dialog);
        EXPECT_EQ(FileContent(app.Path("l.dde")), rest);
    }
}

TEST_F(DdeTest, CancelAndTheCloseBoxWriteNothing) {
    App& app = Run();
    const std::string before = Bytes("PLC", {{"a", "int"}});
    PutFile(app.Path("l.dde"), before);
    Dialog cancelled = Load(app, "l.dde");
    Add(cancelled, "b", "int");
    Leave(app, cancelled);
    Dialog closed = Load(app, "l.dde");
    Add(closed, "b", "int");
    closed.Close();
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("l.dde")), before);
    app.CommandWithCancel(CM_LOAD_DDE, kOpenTitle);
    // And a new list does not take over what was loaded.
    Dialog fresh = New(app);
    EXPECT_EQ(fresh.Text(DDE_NAME), "");
    EXPECT_EQ(fresh.Rows(DDE_ITEMS), TextRows{});
    Leave(app, fresh);
}

TEST_F(DdeTest, ShortFilesListNoItems) {
    App& app = Run();
    PutFile(app.Path("head.dde"), Bytes("PLC", {}));
    Dialog head = Load(app, "head.dde");
    EXPECT_EQ(head.Text(DDE_NAME), "PLC");
    EXPECT_EQ(head.Rows(DDE_ITEMS), TextRows{});
    Leave(app, head);
    PutFile(app.Path("short.dde"), "PLC");
    Dialog part = Load(app, "short.dde");
    EXPECT_EQ(part.Text(DDE_NAME), "PLC");
    Leave(app, part);
    PutFile(app.Path("empty.dde"), "");
    Dialog empty = Load(app, "empty.dde");
    EXPECT_EQ(empty.Text(DDE_NAME), "");
    EXPECT_EQ(empty.Rows(DDE_ITEMS), TextRows{});
    Leave(app, empty);
    PutFile(app.Path("full.dde"), std::string(255 + 150, 'x'));
    Dialog full = Load(app, "full.dde");
    EXPECT_EQ(full.Text(DDE_NAME).substr(0, 254), std::string(254, 'x'));
    EXPECT_EQ(full.Rows(DDE_ITEMS).at(0).substr(0, 49), std::string(49, 'x'));
    Leave(app, full);
}

TEST_F(DdeTest, LongTextsAreCutToTheirFields) {
    App& app = Run();
    Dialog dialog = New(app);
    dialog.SetText(DDE_NAME, std::string(400, 'd'));
    Add(dialog, std::string(400, 'n'), std::string(400, 't'));
    dialog.Press(DDE_CLOSE);
    app.ChooseFile(kNewItemTitle, app.Path("long.dde"));
    app.Finish();
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("long.dde")),
              Bytes(std::string(254, 'd'), {{std::string(49, 'n'), std::string(99, 't')}}));
}

TEST_F(DdeTest, AFileThatCannotBeWrittenIsReportedAndTheListStays) {
    App& app = Run();
    const std::string before = Bytes("PLC", {{"a", "int"}});
    PutFile(app.Path("l.dde"), before);
    {
        const ReadOnlyFile mark(app.Path("l.dde"));
        Dialog dialog = Load(app, "l.dde");
        EXPECT_EQ(dialog.Rows(DDE_ITEMS), TextRows{"a\tint"});
        Add(dialog, "b", "int");
        dialog.Press(DDE_CLOSE);
        app.ExpectError("Permison denied");
        app.Finish();
        EXPECT_TRUE(dialog.Open());
        EXPECT_EQ(dialog.Rows(DDE_ITEMS), (TextRows{"a\tint", "b\tint"}));
        Leave(app, dialog);
        EXPECT_EQ(FileContent(app.Path("l.dde")), before);
    }
    Dialog dialog = Load(app, "l.dde");
    Add(dialog, "b", "int");
    PutFolder(app.Path("l.dde"));
    dialog.Press(DDE_CLOSE);
    app.ExpectError("Permison denied");
    app.Finish();
    Leave(app, dialog);
}

} // namespace

} // namespace gui
