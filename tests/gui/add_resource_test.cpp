// "Add Resource": facts of the system and results of the project.
#include "tests/gui/blocked_files.h"
#include "tests/gui/system_steps.h"

#include <numeric>

namespace gui {

namespace {

std::vector<int> FirstRows(int count) {
    std::vector<int> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

// A facts base with these names.
std::string Facts(const TextRows& names) {
    std::vector<Dat> facts(names.size());
    int ident = 0;
    for (Dat& fact : facts) {
        SetText(fact.Name, names[static_cast<std::size_t>(ident)]);
        fact.Ident = ++ident;
    }
    return std::string(BytesOf(facts));
}

class AddResourceTest : public SystemGuiTest {
protected:
    static Dialog OpenResults(App& app, const std::string& name = "names.rst") {
        return OpenWithFile(app, CM_ADD_RESULTS, "Open MORV Result", name, "Add Resource");
    }

    static void Take(Dialog& add, const std::vector<int>& rows) {
        add.SelectRows(ADD_OFFERED, rows);
        add.Click(ADD_ADD);
    }

    static void GiveBack(Dialog& add, const std::vector<int>& rows) {
        add.SelectRows(ADD_CHOSEN, rows);
        add.Click(ADD_REMOVE);
    }
};

TEST_F(AddResourceTest, FactsMoveBetweenTheLists) {
    App& app = RunNew();
    PutFile(app.Path("base.fac"), Facts({"a", "b", "c", "a", "d"}));
    Dialog add = OpenAddFacts(app, "base.fac");
    EXPECT_EQ(GetWindow(add.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"a", "b", "c", "a", "d"}));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{});
    add.Click(ADD_ADD); // nothing is selected
    add.Click(ADD_REMOVE);
    Take(add, {0, 2, 3}); // the same name twice is taken once
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"b", "d"}));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"a", "c"}));
    Take(add, {0, 1});
    GiveBack(add, {1, 3});
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"c", "d"}));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"a", "b"}));
    EXPECT_EQ(app.Rows(kSystem).size(), 2u); // not before Ok
    End(app, add, ADD_OK);
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", "\tuntitled.lse", "Facts Base", "\ta", "\tb"}));
    EXPECT_FALSE(app.IsGrey(CM_RESOURCE_REMOVE));
    SaveAs(app, "new.lse");
    const SystemFile stored = Stored(app, "new.lse");
    EXPECT_EQ(Text(stored.head.KnowName), app.Path("base.fac"));
    EXPECT_EQ(Text(stored.head.KTypeName), app.Path("base.typ"));
    EXPECT_EQ(BytesOf(stored.facts), Facts({"a", "b"}));
}

TEST_F(AddResourceTest, TheSystemsOwnFactsAreNotOffered) {
    App& app = RunSample();
    PutFile(app.Path("tank.fac"), FileContent(app.Path("tank.fac")) + Facts({"level", "New"}));
    Dialog add = OpenAddFacts(app, "tank.fac");
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"Level", "Valve"}));
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"level", "New"})); // letter case counts
    Take(add, {1});
    GiveBack(add, {0});
    End(app, add, ADD_OK);
    EXPECT_EQ(app.Rows(kSystem),
              (TextRows{"System Name", Item(app.Path("tank.lse")), "Rules",
                        Item(app.Path("tank.rul")), "Facts Base", "\tValve", "\tNew", "Opposites",
                        "\tHIGH\tLOW", "System Header", Item(app.Path("head.cpp"))}));
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(AddResourceTest, OkWithNothingChosenRemovesTheFacts) {
    App& app = RunSample();
    Dialog add = OpenAddFacts(app, "tank.fac");
    GiveBack(add, {0, 1});
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{});
    End(app, add, ADD_OK);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("tank.lse")), "Rules",
                                           Item(app.Path("tank.rul")), "Opposites", "\tHIGH\tLOW",
                                           "System Header", Item(app.Path("head.cpp"))}));
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(Stored(app, "tank.lse").head.DatNum, 0);
}

TEST_F(AddResourceTest, CancelKeepsTheFactsButNotTheNameOfTheBase) {
    App& app = RunSample();
    PutFile(app.Path("other.fac"), Facts({"x"}));
    const TextRows before = app.Rows(kSystem);
    Dialog add = OpenAddFacts(app, "other.fac");
    Take(add, {0});
    End(app, add, ADD_CANCEL);
    EXPECT_EQ(app.Rows(kSystem), before);
    Dialog closed = OpenAddFacts(app, "other.fac");
    Take(closed, {0});
    EndByCloseBox(app, closed);
    EXPECT_EQ(app.Rows(kSystem), before);
    app.CommandWithCancel(CM_ADD_FACTS, "Open MORV Facts");
    app.Command(CM_SAVE_SYSTEM);
    // The facts are not in the base that is named now, so none is stored.
    SystemFile stored;
    EXPECT_EQ(ReadSystem(app.Path("tank.lse").c_str(), stored), ReadResult::Damaged);
    EXPECT_EQ(Text(stored.head.KnowName), app.Path("other.fac"));
    EXPECT_EQ(Text(stored.head.KTypeName), app.Path("other.typ"));
}

TEST_F(AddResourceTest, AtMostTwentyRowsMoveAtOnce) {
    App& app = RunNew();
    TextRows names;
    for (int i = 0; i < 25; ++i)
        names.push_back("f" + std::to_string(100 + i));
    PutFile(app.Path("base.fac"), Facts(names));
    Dialog add = OpenAddFacts(app, "base.fac");
    Take(add, FirstRows(25));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows(names.begin(), names.begin() + 20));
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows(names.begin() + 20, names.end()));
    Take(add, FirstRows(5));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), names);
    GiveBack(add, FirstRows(25));
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows(names.begin(), names.begin() + 20));
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows(names.begin() + 20, names.end()));
    End(app, add, ADD_CANCEL);
    EXPECT_FALSE(CloseAsks(app));
}

TEST_F(AddResourceTest, OnlyWholeFactsOfABaseAreOffered) {
    App& app = RunNew();
    PutFile(app.Path("base.fac"), Facts({"a", "b"}) + std::string(286, 'x'));
    const std::string before = FileContent(app.Path("base.fac"));
    Dialog add = OpenAddFacts(app, "base.fac");
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"a", "b"}));
    End(app, add, ADD_CANCEL);
    EXPECT_EQ(FileContent(app.Path("base.fac")), before);
    const ReadOnlyFile mark(app.Path("base.fac"));
    AddFacts(app, "base.fac", {1});
    SaveAs(app, "new.lse");
    EXPECT_EQ(Text(Stored(app, "new.lse").facts.at(0).Name), "b");
}

TEST_F(AddResourceTest, ResultsAreKeptInAWorkingFile) {
    App& app = Run(Kind::Nt, PutSampleProject);
    PutFile(app.Path("more.rst"), TagBytes({"LOW", "low", "MORE"}));
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    Dialog add = OpenResults(app, "more.rst");
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"HIGH", "LOW"}));
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"low", "MORE"}));
    Take(add, {1});
    GiveBack(add, {0});
    End(app, add, ADD_OK);
    EXPECT_EQ(FileContent(app.Path("temp\\plant.aux")), TagBytes({"LOW", "MORE"}));
    EXPECT_EQ(FileContent(app.Path("plant.aux")), TagBytes({"HIGH", "LOW"}));
    // The next opening starts from the working file.
    Dialog again = OpenResults(app, "more.rst");
    EXPECT_EQ(again.Rows(ADD_CHOSEN), (TextRows{"LOW", "MORE"}));
    GiveBack(again, {0});
    End(app, again, ADD_CANCEL);
    EXPECT_EQ(FileContent(app.Path("temp\\plant.aux")), TagBytes({"LOW", "MORE"}));
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(FileContent(app.Path("plant.aux")), TagBytes({"LOW", "MORE"}));
    EXPECT_FALSE(FileExists(app.Path("temp\\plant.aux")));
    EXPECT_EQ(ProjectHead(app.Path("plant.mrv")).ResNum, 2);
}

TEST_F(AddResourceTest, NoResultChosenTakesTheFileOutOfTheProject) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    Dialog add = OpenResults(app);
    GiveBack(add, {0, 1});
    EXPECT_EQ(add.Rows(ADD_OFFERED), (TextRows{"HIGH", "LOW"}));
    End(app, add, ADD_OK);
    EXPECT_EQ(app.Rows(kProject).size(), 10u);
    EXPECT_EQ(FileContent(app.Path("temp\\plant.aux")), "");
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(FileContent(app.Path("plant.aux")), "");
    EXPECT_EQ(ProjectHead(app.Path("plant.mrv")).ResNum, 0);
}

TEST_F(AddResourceTest, ResultsLeftByCancelOrTheCloseBoxStayAsSaved) {
    for (const bool cancel : {true, false}) {
        App& app = Run(Kind::Nt, PutSampleProject);
        app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
        const TextRows before = app.Rows(kProject);
        Dialog add = OpenResults(app);
        GiveBack(add, {0});
        if (cancel)
            End(app, add, ADD_CANCEL);
        else
            EndByCloseBox(app, add);
        EXPECT_EQ(app.Rows(kProject), before);
        EXPECT_FALSE(FileExists(app.Path("temp\\plant.aux")));
        app.Command(CM_SAVE_MORV);
        EXPECT_EQ(FileContent(app.Path("plant.aux")), TagBytes({"HIGH", "LOW"}));
        EXPECT_EQ(Text(ProjectHead(app.Path("plant.mrv")).ResAux), app.Path("plant.aux"));
    }
}

TEST_F(AddResourceTest, OkMarksTheSystemChangedForResultsToo) {
    App& app = RunSample();
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    Dialog add = OpenResults(app);
    End(app, add, ADD_OK);
    app.Activate(app.Child(kSystem));
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(AddResourceTest, AWorkingFileThatCannotBeWrittenIsReported) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    const TextRows before = app.Rows(kProject);
    PutFolder(app.Path("temp\\plant.aux"));
    Dialog add = OpenResults(app);
    GiveBack(add, {0, 1});
    add.Press(ADD_OK);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_TRUE(add.Open());
    EXPECT_EQ(add.Rows(ADD_CHOSEN), TextRows{});
    End(app, add, ADD_CANCEL);
    EXPECT_EQ(app.Rows(kProject), before);
}

} // namespace

} // namespace gui
