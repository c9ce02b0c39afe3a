// Initial facts: their dialog, their working copy and the file beside the system.
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "tests/gui/blocked_files.h"
#include "tests/gui/system_steps.h"

namespace gui {

namespace {

struct Initial {
    std::string name, value, certainty;
};

std::string Bytes(const std::vector<Initial>& initial) {
    std::vector<I_K> records;
    for (const auto& [name, value, certainty] : initial) {
        I_K& record = records.emplace_back();
        SetText(record.K_Name, name);
        SetText(record.K_Val, value);
        SetText(record.Pres, certainty);
    }
    return std::string(BytesOf(records));
}

std::string Row(const std::string& name, const std::string& value, const std::string& certainty) {
    return name + " \t " + value + " \t " + certainty;
}

// The working copy of tank.lse.
constexpr char kWorking[] = "temp\\tank.ikw";

class InitialFactsTest : public SystemGuiTest {
protected:
    // The program with the sample's system open, which has these initial facts.
    App& RunStored(const std::string& bytes) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            PutSampleProject(work);
            PutFile(work.Path("tank.ikw"), bytes);
            SystemFile system;
            ASSERT_EQ(ReadSystem(work.Path("tank.lse").c_str(), system), ReadResult::Ok);
            SetText(system.head.InitName, work.Path("tank.ikw"));
            PutFile(work.Path("tank.lse"), SystemBytes(system));
        });
        Open(app, "tank.lse");
        return app;
    }

    static Dialog OpenInitial(App& app) {
        return OpenWithFile(app, CM_INIT_FACTS, "Open DDE File", "link.dde", "Init Facts");
    }

    static void Add(Dialog& dialog, const Initial& initial) {
        const TextRows words = dialog.ComboRows(INIT_CERTAINTY);
        const auto word = std::find(words.begin(), words.end(), initial.certainty) - words.begin();
        ASSERT_LT(static_cast<std::size_t>(word), words.size());
        dialog.SelectCombo(INIT_CERTAINTY, static_cast<int>(word));
        dialog.SetText(INIT_FACT, initial.name);
        dialog.SetText(INIT_VALUE, initial.value);
        dialog.Click(IDOK);
    }
};

TEST_F(InitialFactsTest, EveryFactHasARow) {
    App& app = RunSample();
    Dialog dialog = OpenInitial(app);
    EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(dialog.Rows(INIT_FACTS), (TextRows{Row("Level", " ", " "), Row("Valve", " ", " ")}));
    EXPECT_EQ(dialog.Rows(INIT_VARS), TextRows{"DDEinfo.level"});
    EXPECT_EQ(dialog.ComboRows(INIT_CERTAINTY),
              (TextRows{"FULL", "VERYHIGH", "HIGH", "NOTVERYHIGH", "NORMAL", "NOTVERYLOW", "LOW",
                        "VERYLOW", "NULL"}));
    EXPECT_EQ(dialog.Text(INIT_CERTAINTY), "");
    Add(dialog, {"Valve", "50", "FULL"});
    EXPECT_EQ(dialog.Rows(INIT_FACTS),
              (TextRows{Row("Level", " ", " "), Row("Valve", "50", "FULL")}));
    EXPECT_FALSE(FileExists(app.Path(kWorking)));
    End(app, dialog, INIT_CLOSE);
    const std::string bytes = Bytes({{"Level", "", "  "}, {"Valve", "50", "FULL"}});
    EXPECT_EQ(FileContent(app.Path(kWorking)), bytes);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.ikw")), bytes);
    EXPECT_FALSE(FileExists(app.Path(kWorking)));
    EXPECT_EQ(Text(Stored(app, "tank.lse").head.InitName), app.Path("tank.ikw"));
}

TEST_F(InitialFactsTest, AnUntitledSystemsCopyStandsBesideTheFolder) {
    App& app = RunNew();
    AddFacts(app, "tank.fac", {1});
    Dialog dialog = OpenInitial(app);
    End(app, dialog, INIT_CLOSE);
    EXPECT_EQ(FileContent(app.Path("tempuntitled.ikw")), Bytes({{"Valve", "", "  "}}));
    SaveAs(app, "new.lse");
    EXPECT_EQ(FileContent(app.Path("new.ikw")), Bytes({{"Valve", "", "  "}}));
    EXPECT_FALSE(FileExists(app.Path("tempuntitled.ikw")));
}

TEST_F(InitialFactsTest, StoredValuesAreShownForTheSystemsFactsOnly) {
    App& app = RunStored(Bytes({{"Gone", "1", "FULL"},
                                {"valve", "2", "FULL"},
                                {"Valve", "3", ""},
                                {"Valve", "4", "LOW"}}) +
                         "rest");
    Dialog dialog = OpenInitial(app);
    EXPECT_EQ(dialog.Rows(INIT_FACTS), (TextRows{Row("Level", " ", " "), Row("Valve", "3", " ")}));
    Add(dialog, {"Level", "1", "NULL"});
    End(app, dialog, INIT_CLOSE);
    // Facts that the system does not have are gone.
    EXPECT_EQ(FileContent(app.Path(kWorking)),
              Bytes({{"Level", "1", "NULL"}, {"Valve", "3", " "}}));
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(InitialFactsTest, TheStartOfANameIsEnough) {
    App& app = RunSample();
    Dialog dialog = OpenInitial(app);
    Add(dialog, {"va", "1", "HIGH"}); // in any letter case, and shown as typed
    EXPECT_EQ(dialog.Rows(INIT_FACTS).at(1), Row("va", "1", "HIGH"));
    Add(dialog, {"nothing", "1", "HIGH"}); // nothing is said
    Add(dialog, {"", "1", "HIGH"});
    EXPECT_EQ(dialog.Rows(INIT_FACTS), (TextRows{Row("Level", " ", " "), Row("va", "1", "HIGH")}));
    End(app, dialog, IDCANCEL);
}

TEST_F(InitialFactsTest, ACertaintyIsNeeded) {
    App& app = RunSample();
    Dialog dialog = OpenInitial(app);
    dialog.SetText(INIT_FACT, "Level");
    dialog.SetText(INIT_VALUE, "1");
    dialog.Press(IDOK);
    const Box box = app.ExpectBox("Certainty needed", "Init Knowledge Base");
    EXPECT_EQ(box.owner, dialog.Window());
    app.Finish();
    EXPECT_EQ(dialog.Rows(INIT_FACTS).at(0), Row("Level", " ", " "));
    End(app, dialog, IDCANCEL);
}

TEST_F(InitialFactsTest, RemoveUnsetsTheSelectedFact) {
    App& app = RunStored(Bytes({{"Level", "1", "FULL"}, {"Valve", "2", "LOW"}}));
    Dialog dialog = OpenInitial(app);
    dialog.Click(INIT_REMOVE); // nothing is selected
    dialog.Select(INIT_FACTS, 0);
    dialog.Click(INIT_REMOVE);
    EXPECT_EQ(dialog.Rows(INIT_FACTS),
              (TextRows{Row("Level", " ", " "), Row("Valve", "2", "LOW")}));
    End(app, dialog, INIT_CLOSE);
    EXPECT_EQ(FileContent(app.Path(kWorking)), Bytes({{"Level", "", "  "}, {"Valve", "2", "LOW"}}));
}

TEST_F(InitialFactsTest, AValueIsOneWord) {
    App& app = RunSample();
    Dialog dialog = OpenInitial(app);
    Add(dialog, {"Level", "two words", "FULL"});
    End(app, dialog, INIT_CLOSE);
    EXPECT_EQ(FileContent(app.Path(kWorking)),
              Bytes({{"Level", "two", "words \t FULL"}, {"Valve", "", "  "}}));
}

TEST_F(InitialFactsTest, DoubleClicksComposeAValue) {
    App& app = RunSample();
    app.Start(CM_ADD_LOCAL_VARS);
    Dialog variables = app.WaitDialog("Local Vars");
    for (const char* name : {"second", "first"}) {
        variables.SetText(VAR_NAME, name);
        variables.SetText(VAR_VALUE, "0");
        variables.Click(VAR_ADD);
    }
    End(app, variables, VAR_CLOSE);
    Dialog dialog = OpenInitial(app);
    // The variables of the working copy in its order, then the DDE items.
    EXPECT_EQ(dialog.Rows(INIT_VARS), (TextRows{"first", "second", "DDEinfo.level"}));
    dialog.SetText(INIT_VALUE, "old");
    dialog.DoubleClick(INIT_FACTS, 1);
    EXPECT_EQ(dialog.Text(INIT_FACT), "Valve");
    EXPECT_EQ(dialog.Text(INIT_VALUE), "");
    dialog.DoubleClick(INIT_VARS, 0);
    dialog.DoubleClick(INIT_VARS, 2);
    EXPECT_EQ(dialog.Text(INIT_VALUE), "firstDDEinfo.level");
    End(app, dialog, IDCANCEL);
}

TEST_F(InitialFactsTest, CancelKeepsTheWorkingCopyAndTheCloseBoxForgetsIt) {
    App& app = RunStored(Bytes({{"Level", "1", "FULL"}}));
    Dialog dialog = OpenInitial(app);
    Add(dialog, {"Level", "2", "FULL"});
    End(app, dialog, INIT_CLOSE);
    Dialog cancelled = OpenInitial(app);
    EXPECT_EQ(cancelled.Rows(INIT_FACTS).at(0), Row("Level", "2", "FULL"));
    Add(cancelled, {"Level", "3", "FULL"});
    End(app, cancelled, IDCANCEL);
    Dialog closed = OpenInitial(app);
    EXPECT_EQ(closed.Rows(INIT_FACTS).at(0), Row("Level", "2", "FULL"));
    EndByCloseBox(app, closed);
    Dialog last = OpenInitial(app); // from the file beside the system again
    EXPECT_EQ(last.Rows(INIT_FACTS).at(0), Row("Level", "1", "FULL"));
    EndByCloseBox(app, last);
    app.Command(CM_SAVE_SYSTEM);
    EXPECT_EQ(FileContent(app.Path("tank.ikw")), Bytes({{"Level", "1", "FULL"}}));
}

TEST_F(InitialFactsTest, AFileThatCannotBeCreatedIsReported) {
    App& app = RunSample();
    PutFolder(app.Path(kWorking));
    Dialog dialog = OpenInitial(app);
    dialog.Press(INIT_CLOSE);
    const Box box = app.ExpectBox("Init File Error", "Init Fats", Buttons::Ok, Icon::Exclamation);
    EXPECT_EQ(box.owner, nullptr);
    app.Finish();
    app.Finish();
    EXPECT_FALSE(dialog.Open());
    EXPECT_TRUE(CloseAsks(app));
}

TEST_F(InitialFactsTest, AReadOnlyWorkingCopyIsReported) {
    App& app = RunSample();
    PutFile(app.Path(kWorking), "kept");
    const ReadOnlyFile mark(app.Path(kWorking));
    Dialog dialog = OpenInitial(app);
    dialog.Press(INIT_CLOSE);
    app.ExpectBox("Init File Error", "Init Fats", Buttons::Ok, Icon::Exclamation);
    app.Finish();
    app.Finish();
    EXPECT_EQ(FileContent(app.Path(kWorking)), "kept");
}

TEST_F(InitialFactsTest, NeedsFactsAndADdeFile) {
    App& app = RunNew();
    app.Start(CM_INIT_FACTS);
    EXPECT_EQ(app.ExpectBox("There is not Facts", "Init Knowledge Base").owner, app.Frame());
    app.Finish();
    AddFacts(app, "tank.fac", {0});
    app.CommandWithCancel(CM_INIT_FACTS, "Open DDE File");
    EXPECT_TRUE(Dialogs(app.Process()).empty());
    // A file without a whole item offers nothing.
    PutFile(app.Path("short.dde"), "PLC");
    Dialog dialog = OpenWithFile(app, CM_INIT_FACTS, "Open DDE File", "short.dde", "Init Facts");
    EXPECT_EQ(dialog.Rows(INIT_VARS), TextRows{});
    End(app, dialog, IDCANCEL);
}

} // namespace

} // namespace gui
