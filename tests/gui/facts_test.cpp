// The facts base and its knowledge types: what the dialogs show, say and write.
#include "tests/gui/blocked_files.h"
#include "tests/gui/fact_fields.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr char kSaveTitle[] = "Save Facts Base As...";
const TextRows kFirstTypes{"DETECTION", "DIAGNOSTIC", "ACTION"};

Dat Fact(const std::string& name, int ident) {
    Dat fact{};
    SetText(fact.Name, name);
    SetText(fact.Description, "what " + name + " means");
    SetText(fact.KnowType, "ACTION");
    SetText(fact.Units, "m");
    fact.inf_limit = -2.5;
    fact.sup_limit = 120;
    fact.Step = 0.25;
    fact.lowest = 1;
    fact.low = 2;
    fact.normal = 3;
    fact.high = 4;
    fact.highest = 5.125;
    fact.Interval = 60;
    fact.Ident = ident;
    return fact;
}

std::string Bytes(const std::vector<Dat>& facts) {
    return std::string(BytesOf(facts));
}

class FactsTest : public GuiTest {
protected:
    // The program with base.fac holding these facts.
    App& RunBase(const std::vector<Dat>& facts) {
        return Run(Kind::Nt,
                   [&](const WorkFolder& work) { PutFile(work.Path("base.fac"), Bytes(facts)); });
    }

    static Dialog Open(App& app, const std::string& name = "base.fac") {
        app.Start(CM_OPEN_RESOURCE);
        app.ChooseFile("Open Resource", app.Path(name));
        return app.WaitDialog("Facts Base");
    }

    static Dialog New(App& app, const std::string& name) {
        app.Start(CM_NEW_FACTS_BASE);
        app.ChooseFile(kSaveTitle, app.Path(name));
        return app.WaitDialog("Facts Base");
    }

    static void Close(App& app, Dialog& dialog) {
        dialog.Click(KNOW_CLOSE);
        app.Finish();
    }

    static std::string Base(const App& app) { return FileContent(app.Path("base.fac")); }

    static void Add(Dialog& dialog, const Dat& fact) {
        TypeFact(dialog, fact);
        dialog.Click(IDOK);
    }

    // Presses Add, which must be refused with this box of the dialog.
    static void ExpectRefused(App& app, Dialog& dialog, const std::string& text) {
        dialog.Press(IDOK);
        const Box box = app.ExpectBox(text, "New Fact", Buttons::Ok, Icon::Exclamation);
        EXPECT_EQ(box.owner, dialog.Window());
        app.Finish();
    }

    static void AddOverListed(App& app, Dialog& dialog, const Dat& fact, Answer answer) {
        TypeFact(dialog, fact);
        dialog.Press(IDOK);
        app.ExpectBox("Fats already exist, modify?", "New Fact", Buttons::YesNo, Icon::Exclamation,
                      answer);
    }
};

TEST_F(FactsTest, ProposesTheIdentifierAfterTheLastFact) {
    const std::vector<std::pair<std::vector<Dat>, std::string>> bases{
        {{}, "2"},
        {{Fact("a", 20)}, "2"},
        {{Fact("a", 20), Fact("b", 7)}, "8"},
        {{Fact("a", 1), Fact("b", 90), Fact("c", -5)}, "-4"}};
    App& app = RunBase({});
    for (const auto& [facts, ident] : bases) {
        PutFile(app.Path("base.fac"), Bytes(facts));
        Dialog dialog = Open(app);
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), app.Frame());
        EXPECT_FALSE(IsWindowEnabled(app.Frame()));
        EXPECT_EQ(dialog.Rows(KNOW_FACTS).size(), facts.size());
        EXPECT_EQ(dialog.Text(KNOW_IDENT), ident);
        EXPECT_EQ(dialog.Rows(KNOW_TYPES), kFirstTypes);
        Close(app, dialog);
        EXPECT_EQ(Base(app), Bytes(facts));
    }
}

TEST_F(FactsTest, ANewBaseIsEmptyOnDiskAtOnce) {
    App& app = RunBase({Fact("old", 4)});
    PutFile(app.Path("base.typ"), TagBytes({"OWN"}));
    app.CommandWithCancel(CM_NEW_FACTS_BASE, kSaveTitle);
    EXPECT_EQ(Base(app), Bytes({Fact("old", 4)}));
    app.Start(CM_NEW_FACTS_BASE);
    app.ChooseFile(kSaveTitle, app.Path("base.fac"));
    app.AnswerSystemQuestion(Answer::Yes); // to overwrite it
    Dialog dialog = app.WaitDialog("Facts Base");
    EXPECT_EQ(Base(app), "");
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), TextRows{});
    EXPECT_EQ(dialog.Rows(KNOW_TYPES), kFirstTypes); // the types beside it are not read
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "1");
    dialog.Close();
    app.Finish();
    EXPECT_TRUE(FileExists(app.Path("base.fac")));
    // The extension is appended to a plain name.
    Dialog plain = New(app, "plain");
    Close(app, plain);
    EXPECT_TRUE(FileExists(app.Path("plain.fac")));
}

TEST_F(FactsTest, EveryAddIsOnDiskAtOnce) {
    App& app = RunBase({});
    Dialog dialog = New(app, "new.fac");
    Add(dialog, Fact("Level", 1));
    EXPECT_EQ(FileContent(app.Path("new.fac")), Bytes({Fact("Level", 1)}));
    for (int id :
         {KNOW_NAME, KNOW_DESCRIPTION, KNOW_TYPE, KNOW_UNIT, KNOW_LOWER_LIMIT, KNOW_HIGHER_LIMIT,
          KNOW_STEP, KNOW_INTERVAL, KNOW_LOWEST, KNOW_LOW, KNOW_NORMAL, KNOW_HIGH, KNOW_HIGHEST})
        EXPECT_EQ(dialog.Text(id), "") << id;
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
    // Another identifier is put back for a new fact.
    dialog.SetText(KNOW_IDENT, "77");
    Add(dialog, Fact("Valve", 2));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "3");
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"Level", "Valve"}));
    EXPECT_EQ(FileContent(app.Path("new.fac")), Bytes({Fact("Level", 1), Fact("Valve", 2)}));
    Close(app, dialog);
    EXPECT_EQ(FileContent(app.Path("new.fac")), Bytes({Fact("Level", 1), Fact("Valve", 2)}));
}

TEST_F(FactsTest, RefusesWhatIsNotWhole) {
    App& app = RunBase({Fact("a", 1)});
    Dialog dialog = Open(app);
    ExpectRefused(app, dialog, "Name must be defined");
    dialog.SetText(KNOW_NAME, "b");
    ExpectRefused(app, dialog, "Type must be defined");
    dialog.SetText(KNOW_TYPE, "ACTIO");
    ExpectRefused(app, dialog, "Fats Type not defined");
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b");
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1)}));
    Close(app, dialog);
}

TEST_F(FactsTest, TheTypeIsStoredAsItIsTyped) {
    App& app = RunBase({});
    Dialog dialog = New(app, "new.fac");
    Dat fact = Fact("x", 1);
    SetText(fact.KnowType, "detection");
    Add(dialog, fact);
    EXPECT_EQ(FileContent(app.Path("new.fac")), Bytes({fact}));
    dialog.DoubleClick(KNOW_TYPES, 1);
    EXPECT_EQ(dialog.Text(KNOW_TYPE), "DIAGNOSTIC");
    Close(app, dialog);
}

TEST_F(FactsTest, WhatIsNoNumberIsZero) {
    App& app = RunBase({});
    Dialog dialog = New(app, "new.fac");
    TypeFact(dialog, Fact("x", 1));
    dialog.SetText(KNOW_LOW, "word");
    dialog.SetText(KNOW_HIGH, "12abc");
    dialog.SetText(KNOW_STEP, "");
    dialog.SetText(KNOW_INTERVAL, "-7.9");
    dialog.SetText(KNOW_LOWER_LIMIT, "1e3");
    dialog.Click(IDOK);
    Dat fact = Fact("x", 1);
    fact.low = fact.Step = 0;
    fact.high = 12;
    fact.Interval = -7;
    fact.inf_limit = 1000;
    EXPECT_EQ(FileContent(app.Path("new.fac")), Bytes({fact}));
    Close(app, dialog);
}

TEST_F(FactsTest, AListedNameInAnyLetterCaseIsReplacedOnlyWithYes) {
    const std::vector<Dat> before{Fact("a", 1), Fact("b", 2), Fact("c", 3)};
    App& app = RunBase(before);
    Dialog dialog = Open(app);
    dialog.SetText(KNOW_IDENT, "55");
    AddOverListed(app, dialog, Fact("B", 55), Answer::No);
    app.Finish();
    EXPECT_EQ(Base(app), Bytes(before));
    AddOverListed(app, dialog, Fact("B", 55), Answer::Yes);
    app.Finish();
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("B", 55), Fact("c", 3)}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"a", "B", "c"}));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "4");
    Close(app, dialog);
}

TEST_F(FactsTest, AReplacementStaysPendingWhileTheTypeIsRefused) {
    App& app = RunBase({Fact("a", 1), Fact("b", 2)});
    Dialog dialog = Open(app);
    Dat wrong = Fact("b", 2);
    SetText(wrong.KnowType, "NONE");
    AddOverListed(app, dialog, wrong, Answer::Yes);
    app.ExpectBox("Fats Type not defined", "New Fact", Buttons::Ok, Icon::Exclamation);
    app.Finish();
    // So a fact with a new name takes the place of the one that was agreed to.
    Add(dialog, Fact("n", 3));
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("n", 3)}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"a", "n"}));
    Add(dialog, Fact("m", 4)); // nothing is pending any more
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("n", 3), Fact("m", 4)}));
    Close(app, dialog);
}

TEST_F(FactsTest, ShowingAFactMovesAPendingReplacementToTheFirst) {
    App& app = RunBase({Fact("a", 1), Fact("b", 2)});
    Dialog dialog = Open(app);
    Dat wrong = Fact("b", 2);
    SetText(wrong.KnowType, "NONE");
    AddOverListed(app, dialog, wrong, Answer::Yes);
    app.ExpectBox("Fats Type not defined", "New Fact", Buttons::Ok, Icon::Exclamation);
    app.Finish();
    dialog.DoubleClick(KNOW_FACTS, 1);
    Add(dialog, Fact("n", 3));
    EXPECT_EQ(Base(app), Bytes({Fact("n", 3), Fact("b", 2)}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"n", "b"}));
    Close(app, dialog);
}

TEST_F(FactsTest, AnotherFileForgetsAPendingReplacement) {
    App& app = RunBase({Fact("a", 1), Fact("b", 2)});
    Dialog dialog = Open(app);
    Dat wrong = Fact("a", 1);
    SetText(wrong.KnowType, "NONE");
    AddOverListed(app, dialog, wrong, Answer::Yes);
    app.ExpectBox("Fats Type not defined", "New Fact", Buttons::Ok, Icon::Exclamation);
    app.Finish();
    Close(app, dialog);
    Dialog again = Open(app);
    Add(again, Fact("n", 3));
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("b", 2), Fact("n", 3)}));
    Close(app, again);
}

TEST_F(FactsTest, ADoubleClickShowsTheFactOfTheFile) {
    App& app = RunBase({Fact("a", 1), Fact("b", 2)});
    Dialog dialog = Open(app);
    Dat changed = Fact("other", 1234567);
    changed.sup_limit = 12345.678;
    changed.Interval = -9;
    PutFile(app.Path("base.fac"), Bytes({Fact("a", 1), changed}));
    dialog.DoubleClick(KNOW_FACTS, 1);
    EXPECT_EQ(dialog.Text(KNOW_NAME), "other");
    EXPECT_EQ(dialog.Text(KNOW_DESCRIPTION), "what other means");
    EXPECT_EQ(dialog.Text(KNOW_TYPE), "ACTION");
    EXPECT_EQ(dialog.Text(KNOW_UNIT), "m");
    EXPECT_EQ(dialog.Text(KNOW_HIGHER_LIMIT), "12346");
    EXPECT_EQ(dialog.Text(KNOW_LOWER_LIMIT), "-2.5");
    EXPECT_EQ(dialog.Text(KNOW_STEP), "0.25");
    EXPECT_EQ(dialog.Text(KNOW_INTERVAL), "-9");
    EXPECT_EQ(dialog.Text(KNOW_HIGHEST), "5.125");
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "1.2346e+06");
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"a", "b"}));
    Close(app, dialog);
}

TEST_F(FactsTest, RemoveMovesTheLaterFactsUp) {
    App& app = RunBase({Fact("a", 1), Fact("b", 2), Fact("c", 3)});
    PutFile(app.Path("base.typ"), TagBytes({"OWN"}));
    Dialog dialog = Open(app);
    dialog.Click(KNOW_REMOVE); // nothing is selected
    EXPECT_EQ(dialog.Rows(KNOW_FACTS).size(), 3u);
    dialog.Select(KNOW_FACTS, 1);
    dialog.Click(KNOW_REMOVE);
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("c", 3)}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"a", "c"}));
    dialog.Select(KNOW_FACTS, 1);
    dialog.Click(KNOW_REMOVE);
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1)}));
    // With the last fact go the file and its types.
    dialog.Select(KNOW_FACTS, 0);
    dialog.Click(KNOW_REMOVE);
    EXPECT_FALSE(FileExists(app.Path("base.fac")));
    EXPECT_FALSE(FileExists(app.Path("base.typ")));
    // And a new fact starts it again.
    Add(dialog, Fact("n", 4));
    EXPECT_EQ(Base(app), Bytes({Fact("n", 4)}));
    Close(app, dialog);
}

TEST_F(FactsTest, AFileWithARestBehindItsFactsIsReadAndMended) {
    App& app = RunBase({});
    PutFile(app.Path("base.fac"), Bytes({Fact("a", 1), Fact("b", 6)}) + std::string(100, 'x'));
    Dialog dialog = Open(app);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (TextRows{"a", "b"}));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "7");
    Add(dialog, Fact("c", 7));
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1), Fact("b", 6), Fact("c", 7)}));
    Close(app, dialog);
    PutFile(app.Path("base.fac"), std::string(286, 'x'));
    Dialog shorter = Open(app);
    EXPECT_EQ(shorter.Rows(KNOW_FACTS), TextRows{});
    EXPECT_EQ(shorter.Text(KNOW_IDENT), "2");
    Close(app, shorter);
}

TEST_F(FactsTest, FieldsWithoutATerminatorAreCut) {
    App& app = RunBase({});
    PutFile(app.Path("base.fac"), std::string(287 * 2, 'x'));
    Dialog dialog = Open(app);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), TextRows(2, std::string(70, 'x')));
    dialog.DoubleClick(KNOW_FACTS, 1);
    EXPECT_EQ(dialog.Text(KNOW_NAME).substr(0, 69), std::string(69, 'x'));
    EXPECT_EQ(dialog.Text(KNOW_UNIT).substr(0, 24), std::string(24, 'x'));
    dialog.Select(KNOW_FACTS, 0);
    dialog.Click(KNOW_REMOVE);
    EXPECT_EQ(Base(app), std::string(287, 'x'));
    Close(app, dialog);
}

TEST_F(FactsTest, AReadOnlyFileIsShownAndLeftAlone) {
    App& app = RunBase({Fact("a", 1)});
    const ReadOnlyFile mark(app.Path("base.fac"));
    Dialog dialog = Open(app);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), TextRows{"a"});
    TypeFact(dialog, Fact("b", 2));
    dialog.Press(IDOK);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b"); // to try again
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), TextRows{"a"});
    EXPECT_EQ(Base(app), Bytes({Fact("a", 1)}));
    Close(app, dialog);
}

TEST_F(FactsTest, AFolderInPlaceOfTheFileIsReported) {
    App& app = RunBase({Fact("a", 1)});
    Dialog dialog = Open(app);
    PutFolder(app.Path("base.fac"));
    TypeFact(dialog, Fact("b", 2));
    dialog.Press(IDOK);
    app.ExpectError("Permison denied");
    app.Finish();
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    app.ExpectError("Permison denied");
    app.Finish();
    dialog.DoubleClick(KNOW_FACTS, 0); // shows nothing
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), TextRows{"a"});
    Close(app, dialog);
}

} // namespace

} // namespace gui
