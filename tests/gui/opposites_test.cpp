// Opposites: their dialog, the rows they are in the system and its file.
#include "tests/gui/system_steps.h"

namespace gui {

namespace {

class OppositesTest : public SystemGuiTest {
protected:
    static Dialog OpenPairs(App& app, const std::string& results = "names.rst") {
        return OpenWithFile(app, CM_ADD_OPPOSITES, "Add Opposites", results, "Result/Opposite ");
    }

    static void Add(Dialog& pairs, const std::string& result, const std::string& opposite) {
        pairs.SetText(OPP_RESULT, result);
        pairs.SetText(OPP_OPPOSITE, opposite);
        pairs.Click(OPP_ADD);
    }

    static void ExpectRefused(App& app, Dialog& pairs, const std::string& result,
                              const std::string& opposite) {
        pairs.SetText(OPP_RESULT, result);
        pairs.SetText(OPP_OPPOSITE, opposite);
        pairs.Press(OPP_ADD);
        const Box box =
            app.ExpectBox("Result not defined", "Add Opposites", Buttons::Ok, Icon::Exclamation);
        EXPECT_EQ(box.owner, pairs.Window());
        app.Finish();
        EXPECT_EQ(pairs.Text(OPP_RESULT), result);
        EXPECT_EQ(pairs.Text(OPP_OPPOSITE), opposite);
    }

    static void Focus(App& app, Dialog& dialog, int id) {
        app.Process().Send(dialog.Window(), WM_NEXTDLGCTL,
                           reinterpret_cast<WPARAM>(dialog.Control(id)), TRUE);
    }
};

TEST_F(OppositesTest, BecomeASectionOfTheSystem) {
    App& app = RunNew();
    Dialog pairs = OpenPairs(app);
    EXPECT_EQ(GetWindow(pairs.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(pairs.Rows(OPP_RESULTS), (TextRows{"HIGH", "LOW"}));
    EXPECT_EQ(pairs.Rows(OPP_PAIRS), TextRows{});
    Add(pairs, "high", "LOW"); // in any letter case, and stored as typed
    EXPECT_EQ(pairs.Text(OPP_RESULT), "");
    EXPECT_EQ(pairs.Text(OPP_OPPOSITE), "");
    Add(pairs, "LOW", "high"); // the reverse is another pair
    Add(pairs, "HIGH", "HIGH");
    Add(pairs, "LOW", "high"); // and this one is there already
    EXPECT_EQ(pairs.Text(OPP_RESULT), "LOW");
    EXPECT_EQ(pairs.Text(OPP_OPPOSITE), "high");
    EXPECT_EQ(pairs.Rows(OPP_PAIRS), (TextRows{"high\tLOW", "LOW\thigh", "HIGH\tHIGH"}));
    End(app, pairs, OPP_CLOSE);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse", "Opossites",
                                           "\thigh\tLOW", "\tLOW\thigh", "\tHIGH\tHIGH"}));
    SaveAs(app, "new.lse");
    EXPECT_EQ(Opposites(Stored(app, "new.lse")),
              (TextRows{"high\tLOW", "LOW\thigh", "HIGH\tHIGH"}));
}

TEST_F(OppositesTest, RefusesUnknownResults) {
    App& app = RunNew();
    Dialog pairs = OpenPairs(app);
    ExpectRefused(app, pairs, "", "");
    ExpectRefused(app, pairs, "HIG", "LOW");
    ExpectRefused(app, pairs, "HIGH", "LOWER");
    EXPECT_EQ(pairs.Rows(OPP_PAIRS), TextRows{});
    End(app, pairs, IDCANCEL);
    // A results file without a whole name offers none.
    PutFile(app.Path("short.rst"), "HIGH");
    Dialog none = OpenPairs(app, "short.rst");
    EXPECT_EQ(none.Rows(OPP_RESULTS), TextRows{});
    ExpectRefused(app, none, "HIGH", "HIGH");
    End(app, none, IDCANCEL);
}

TEST_F(OppositesTest, CloseMarksTheSystemChangedAndCancelDoesNot) {
    App& app = RunSample();
    const TextRows before = app.Rows(kSystem);
    Dialog cancelled = OpenPairs(app);
    EXPECT_EQ(cancelled.Rows(OPP_PAIRS), TextRows{"HIGH\tLOW"});
    Add(cancelled, "LOW", "HIGH");
    End(app, cancelled, IDCANCEL);
    Dialog closed = OpenPairs(app);
    EXPECT_EQ(closed.Rows(OPP_PAIRS), TextRows{"HIGH\tLOW"});
    closed.Select(OPP_PAIRS, 0);
    closed.Click(OPP_REMOVE);
    EndByCloseBox(app, closed);
    EXPECT_EQ(app.Rows(kSystem), before);
    EXPECT_FALSE(CloseAsks(app));
    Open(app, "tank.lse");
    Dialog kept = OpenPairs(app);
    End(app, kept, OPP_CLOSE);
    TextRows renamed = before;
    *std::find(renamed.begin(), renamed.end(), "Opposites") = "Opossites";
    EXPECT_EQ(app.Rows(kSystem), renamed);
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(OppositesTest, AnEmptyListRemovesTheSection) {
    App& app = RunSample();
    Dialog pairs = OpenPairs(app);
    pairs.Click(OPP_REMOVE); // nothing is selected
    EXPECT_EQ(pairs.Rows(OPP_PAIRS).size(), 1u);
    pairs.Select(OPP_PAIRS, 0);
    pairs.Click(OPP_REMOVE);
    End(app, pairs, OPP_CLOSE);
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", Item(app.Path("tank.lse")), "Rules",
                        Item(app.Path("tank.rul")), "Facts Base", "\tLevel", "\tValve",
                        "System Header", Item(app.Path("head.cpp"))}));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(Stored(app, "tank.lse").head.OppNum, 0);
    EXPECT_EQ(FileContent(app.Path("tank.lse")).size(), 1797u + 2 * 287u);
    // What is below still fits its rows.
    RemoveRow(app, 8);
    EXPECT_EQ(app.Rows(kSystem).size(), 7u);
}

TEST_F(OppositesTest, ADoubleClickFillsTheEditThatHadTheFocus) {
    App& app = RunNew();
    Dialog first = OpenPairs(app);
    first.DoubleClick(OPP_RESULTS, 1); // none had it yet
    EXPECT_EQ(first.Text(OPP_RESULT), "LOW");
    EXPECT_EQ(first.Text(OPP_OPPOSITE), "");
    Focus(app, first, OPP_OPPOSITE);
    Focus(app, first, OPP_RESULTS);
    first.DoubleClick(OPP_RESULTS, 0);
    EXPECT_EQ(first.Text(OPP_OPPOSITE), "HIGH");
    End(app, first, IDCANCEL);
    Dialog second = OpenPairs(app);
    second.DoubleClick(OPP_RESULTS, 0);
    EXPECT_EQ(second.Text(OPP_RESULT), "");
    EXPECT_EQ(second.Text(OPP_OPPOSITE), "HIGH");
    Focus(app, second, OPP_RESULT);
    second.DoubleClick(OPP_RESULTS, 1);
    EXPECT_EQ(second.Text(OPP_RESULT), "LOW");
    End(app, second, IDCANCEL);
}

TEST_F(OppositesTest, LongNamesAreCut) {
    App& app = RunNew();
    PutFile(app.Path("long.rst"), TagBytes({std::string(60, 'r')}));
    Dialog pairs = OpenPairs(app, "long.rst");
    EXPECT_EQ(pairs.Rows(OPP_RESULTS), TextRows{std::string(49, 'r')});
    Add(pairs, std::string(300, 'r'), std::string(49, 'r'));
    End(app, pairs, OPP_CLOSE);
    SaveAs(app, "new.lse");
    EXPECT_EQ(Opposites(Stored(app, "new.lse")),
              TextRows{std::string(49, 'r') + "\t" + std::string(49, 'r')});
}

TEST_F(OppositesTest, ACancelledFileOpensNothing) {
    App& app = RunNew();
    app.CommandWithCancel(CM_ADD_OPPOSITES, "Add Opposites");
    EXPECT_EQ(app.Rows(kSystem).size(), 2u);
    EXPECT_FALSE(CloseAsks(app));
}

} // namespace

} // namespace gui
