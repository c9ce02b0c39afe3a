// The Debug command: its dialog, its findings and its failures.
#include "tests/gui/blocked_files.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <algorithm>

namespace gui {

namespace {

class DebugTest : public GuiTest {
protected:
    // The program with a project of systems "s1", "s2"... that have these rules.
    App& RunRules(const std::vector<std::vector<std::string>>& systems, Kind kind = Kind::Nt) {
        App& app = Run(kind, [&](const WorkFolder& work) {
            ProjectSpec spec;
            for (const auto& rules : systems) {
                const std::string base = "s" + std::to_string(spec.systems.size() + 1);
                PutSystem(work, base, rules);
                spec.systems.push_back(work.Path(base + ".lse"));
            }
            PutProject(work.Path("p.mrv"), spec);
        });
        Open(app, "p.mrv");
        return app;
    }

    // The sample project without the results HIGH and LOW, which are opposites in its system.
    static void PutWithUndefinedOpposites(const WorkFolder& work) {
        PutSampleProject(work);
        PutFile(work.Path("plant.aux"), TagBytes({"low"}));
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path(name));
    }

    static TextRows Debug(App& app) {
        app.Start(CM_DEBUG);
        Dialog dialog = app.WaitDialog("Debug");
        dialog.Press(DEBUG_START);
        app.ExpectBox("Debug Finalitzat", "Debug");
        app.Finish();
        app.Finish();
        return app.Rows(kMessages);
    }
};

TEST_F(DebugTest, NeedsAProject) {
    App& app = Run();
    app.Start(CM_DEBUG);
    EXPECT_EQ(app.ExpectBox("There is not Opened MORV System", "MORV Debug").owner, app.Frame());
    app.Finish();
    EXPECT_FALSE(app.HasChild(kMessages));
}

TEST_F(DebugTest, SoundRulesHaveOneLineEach) {
    App& app = Run(Kind::Nt, PutSampleProject);
    Open(app, "plant.mrv");
    EXPECT_EQ(Debug(app), (TextRows{app.Path("tank.rul"), "Rule 1 : Line :5 : Secon Debug:",
                                    "Rule 2 : Line :8 : Secon Debug:"}));
    EXPECT_EQ(TextOf(app.Child(kMessages)), "Debug Errors");
}

TEST_F(DebugTest, ListsWhatIsWrong) {
    App& app = RunRules({{"Rule 1\r\nIf a\r\nEndIf\r\nEndRule\r\n", "Rule 2\r\nElse\r\n"}, {}});
    EXPECT_EQ(Debug(app),
              (TextRows{app.Path("s1.rul"), "Rule 1 : Line :2 : There are If whithout Then",
                        "Rule 1 : Line :3 : There is a If or a For without End",
                        "Rule 1 : Line :4 : Secon Debug:",
                        "Rule 2 : Line :5 : There are Else whithout Then",
                        "Rule 2 : Line :6 : Secon Debug:", "Rule 2 : Line :6 : There is no EndRule",
                        app.Path("s2.rul")}));
}

TEST_F(DebugTest, EveryRunHasAFreshWindow) {
    App& app = RunRules({{"Rule 1\r\nEndRule"}});
    const TextRows rows{app.Path("s1.rul"), "Rule 1 : Line :1 : Secon Debug:"};
    EXPECT_EQ(Debug(app), rows);
    EXPECT_EQ(Debug(app), rows);
    EXPECT_EQ(app.Children(kMessages).size(), 1u);
    // Also after the window was closed by hand.
    app.CloseChild(app.Child(kMessages));
    EXPECT_FALSE(app.HasChild(kMessages));
    EXPECT_EQ(Debug(app), rows);
}

TEST_F(DebugTest, AnOpenCommentReachesIntoTheNextRun) {
    App& app = RunRules({{"Rule 1\r\n/* If\r\nEndRule"}});
    const TextRows open{app.Path("s1.rul"), "Rule 1 : Line :2 : Secon Debug:",
                        "Rule 1 : Line :2 : There are If without EndIf"};
    EXPECT_EQ(Debug(app), open);
    // Nothing but the counts is checked as long as the comment is open.
    PutFile(app.Path("s1.rul"), "Rule 1\r\nThen \r\nEndRule");
    EXPECT_EQ(Debug(app), (TextRows{app.Path("s1.rul"), "Rule 1 : Line :2 : Secon Debug:"}));
}

TEST_F(DebugTest, UndefinedOppositesComeBeforeTheRules) {
    App& app = Run(Kind::Nt, PutWithUndefinedOpposites);
    Open(app, "plant.mrv");
    const TextRows rows = Debug(app);
    ASSERT_GE(rows.size(), 3u);
    EXPECT_EQ(rows[0], "Opposite Result not defined - HIGH");
    EXPECT_EQ(rows[1], "Opposite Result not defined - LOW");
    EXPECT_EQ(rows[2], app.Path("tank.rul"));
}

TEST_F(DebugTest, ATextBesideItIsPaintedAgain) {
    App& app = RunRules({{"Rule 1\r\nEndRule"}});
    Debug(app);
    app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("s1.rul"));
    const HWND edit = app.Inner(kEditor);
    RECT text{};
    GetWindowRect(edit, &text);
    text.right = text.left + 100;
    text.bottom = text.top + 40;
    const auto painted = [&] { return !IsOneColour(ScreenPixels(text)); };
    app.Process().WaitFor("the text on the screen", painted);
    // The new window of findings is brought to the front and takes the place of the old.
    Debug(app);
    app.Process().WaitFor("the text on the screen again", painted);
}

TEST_F(DebugTest, AMissingSystemStopsTheCheck) {
    App& app = RunRules({{"Rule 1\r\nEndRule"}, {}, {}});
    DeleteFileA(app.Path("s2.lse").c_str());
    app.Start(CM_DEBUG);
    Dialog dialog = app.WaitDialog("Debug");
    dialog.Press(DEBUG_START);
    const Box box = app.WaitBox("Debug");
    EXPECT_EQ(box.text, "Open System Error");
    // What was found before can be seen behind the box.
    RECT list{};
    GetWindowRect(app.Inner(kMessages), &list);
    list.right = list.left + 100;
    list.bottom = list.top + 20;
    app.Process().WaitFor("the findings on the screen",
                          [&] { return !IsOneColour(ScreenPixels(list)); });
    app.Press(box);
    app.Finish();
    // The dialog stays, and so do the findings.
    EXPECT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.Text(DEBUG_PROJECT), app.Path("p.mrv"));
    EXPECT_EQ(dialog.Text(DEBUG_SYSTEM), app.Path("s2.lse"));
    EXPECT_EQ(dialog.Text(DEBUG_RULES_FILE), app.Path("s1.rul"));
    EXPECT_EQ(dialog.Text(DEBUG_RULE), "Rule 1");
    EXPECT_EQ(dialog.Text(DEBUG_PROGRESS), "e");
    EXPECT_EQ(app.Rows(kMessages),
              (TextRows{app.Path("s1.rul"), "Rule 1 : Line :1 : Secon Debug:"}));
    dialog.Close();
    app.Finish();
}

TEST_F(DebugTest, ASystemThatCannotBeWrittenStopsItToo) {
    App& app = RunRules({{}});
    const LockedFile lock(app.Path("s1.lse"));
    app.Start(CM_DEBUG);
    Dialog dialog = app.WaitDialog("Debug");
    dialog.Press(DEBUG_START);
    app.ExpectBox("Open System Error", "Debug");
    app.Finish();
    dialog.Close();
    app.Finish();
}

TEST_F(DebugTest, ASystemMarkedReadOnlyStopsItToo) {
    App& app = RunRules({{}});
    const ReadOnlyFile mark(app.Path("s1.lse"));
    app.Start(CM_DEBUG);
    Dialog dialog = app.WaitDialog("Debug");
    dialog.Press(DEBUG_START);
    app.ExpectBox("Open System Error", "Debug");
    app.Finish();
    dialog.Close();
    app.Finish();
}

TEST_F(DebugTest, ResultsNotYetSavedAreDefined) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutSampleProject(work);
        PutFile(work.Path("plant.aux"), std::string());
    });
    Open(app, "plant.mrv");
    EXPECT_EQ(Debug(app).at(0), "Opposite Result not defined - HIGH");
    app.Start(CM_ADD_RESULTS);
    app.ChooseFile("Open MORV Result", app.Path("names.rst"));
    Dialog add = app.WaitDialog("Add Resource");
    add.SelectRows(ADD_OFFERED, {0, 1});
    add.Click(ADD_ADD);
    add.Press(ADD_OK);
    add.WaitGone();
    app.Finish();
    app.Finish();
    // The check leaves the results as they wait to be saved.
    EXPECT_EQ(Debug(app).at(0), app.Path("tank.rul"));
    EXPECT_EQ(FileContent(app.Path("plant.aux")), "");
    app.Command(CM_SAVE_MORV);
    EXPECT_EQ(FileContent(app.Path("plant.aux")), TagBytes({"HIGH", "LOW"}));
}

TEST_F(DebugTest, MissingRulesGiveOnlyTheHeading) {
    App& app = RunRules({{"Rule 1\r\nEndRule"}});
    DeleteFileA(app.Path("s1.rul").c_str());
    DeleteFileA(app.Path("s1.siz").c_str());
    EXPECT_EQ(Debug(app), TextRows{app.Path("s1.rul")});
}

TEST_F(DebugTest, TheDialogCanBeLeftWithoutACheck) {
    App& app = RunRules({{"Rule 1\r\nEndRule"}});
    app.Start(CM_DEBUG);
    app.WaitDialog("Debug").Close();
    app.Finish();
    EXPECT_EQ(app.Rows(kMessages), TextRows{});
}

// Where a row of the findings leads.
class FindingTest : public DebugTest, public testing::WithParamInterface<Kind> {
protected:
    static void OpenRow(App& app, int row) {
        app.StartDoubleClick(kMessages, row);
        app.Finish();
    }

    // The selected text of the topmost editor.
    static std::string Selected(App& app) {
        const auto selection =
            static_cast<DWORD>(app.Process().Send(app.Inner(kEditor), EM_GETSEL));
        return app.EditorText().substr(LOWORD(selection), HIWORD(selection) - LOWORD(selection));
    }

    static int FirstLine(App& app) {
        return static_cast<int>(app.Process().Send(app.Inner(kEditor), EM_GETFIRSTVISIBLELINE));
    }
};

TEST_P(FindingTest, ADoubleClickAndEnterSelectTheLine) {
    std::string filler;
    for (int i = 0; i < 300; ++i)
        filler += "  x\r\n";
    App& app = RunRules({{"Rule 1\r\n" + filler + "EndRule\r\n"},
                         {"Rule 1\r\n" + filler + "  Else here\r\nEndRule\r\n"}},
                        GetParam());
    app.Inner().WaitCursorSeen(app.Frame());
    const TextRows rows = Debug(app);
    const auto error = std::ranges::find(rows, "Rule 1 : Line :301 : There are Else whithout Then");
    ASSERT_NE(error, rows.end());
    EXPECT_TRUE(app.Inner().WaitCursorSeen(app.Frame()));
    const int row = static_cast<int>(error - rows.begin());
    OpenRow(app, row);
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("s2.rul"));
    EXPECT_EQ(Selected(app), "  Else here");
    EXPECT_GT(FirstLine(app), 200);
    EXPECT_FALSE(app.IsGrey(CM_SAVE_FILE));
    // The same again in the same window, from another one and minimised.
    app.Process().Send(app.Client(), WM_MDIACTIVATE,
                       reinterpret_cast<WPARAM>(app.Child(kMessages)));
    ShowWindow(app.Child(kEditor), SW_MINIMIZE);
    OpenRow(app, row);
    EXPECT_EQ(app.Children(kEditor).size(), 1u);
    EXPECT_EQ(Selected(app), "  Else here");
    EXPECT_FALSE(IsIconic(app.Child(kEditor)));
    // A row that names a file opens it at its top; a whole rule is shown by its beginning.
    OpenRow(app, 0);
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("s1.rul"));
    EXPECT_EQ(FirstLine(app), 0);
    EXPECT_EQ(Selected(app), "Rule 1");
    app.Process().Send(app.Inner(kEditor), EM_LINESCROLL, 0, 200);
    OpenRow(app, 1);
    EXPECT_EQ(Selected(app), "Rule 1");
    EXPECT_EQ(FirstLine(app), 0);
    app.SelectRow(kMessages, row);
    app.Process().Send(app.Inner(kMessages), WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("s2.rul"));
    EXPECT_EQ(Selected(app), "  Else here");
}

TEST_P(FindingTest, AnOppositeLeadsToItsSystemAndRulesToTheRuleEditorsText) {
    App& app = Run(GetParam(), PutWithUndefinedOpposites);
    Open(app, "plant.mrv");
    Debug(app);
    OpenRow(app, 0);
    EXPECT_EQ(TextOf(app.Child(kSystem)), "System");
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("tank.lse")));
    EXPECT_TRUE(app.Children(kEditor).empty());
    app.StartDoubleClick(kSystem, 3);
    RuleBox rules(app);
    Debug(app);
    OpenRow(app, 4);
    EXPECT_EQ(app.Children(kEditor).size(), 1u);
    EXPECT_EQ(Selected(app), "Rule 2");
    rules.Close();
}

TEST_P(FindingTest, ALongLineIsShownFromItsBeginning) {
    const std::string long_line = "  Else " + std::string(600, 'x');
    App& app = RunRules({{"Rule 1\r\n" + long_line + "\r\nEndRule\r\n"}}, GetParam());
    Debug(app);
    OpenRow(app, 1);
    EXPECT_EQ(Selected(app), long_line);
    const HWND edit = app.Inner(kEditor);
    const auto begin = static_cast<WPARAM>(app.EditorText().find(long_line));
    const auto place = app.Process().Send(edit, EM_POSFROMCHAR, begin);
    EXPECT_GE(static_cast<short>(LOWORD(place)), 0);
}

TEST_P(FindingTest, TheRuleEditorsTextGoesBeforeAnotherOfTheSameFile) {
    App& app = RunRules({{"Rule 1\r\n one\n Else two\r\nEndRule\r\n"}}, GetParam());
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("s1.lse"));
    app.StartDoubleClick(kSystem, 3);
    RuleBox rules(app);
    app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("s1.rul"));
    const HWND other = app.Inner(kEditor);
    ASSERT_NE(other, rules.Edit());
    Debug(app);
    OpenRow(app, 1);
    EXPECT_EQ(app.Inner(kEditor), rules.Edit());
    EXPECT_EQ(Selected(app), " Else two");
    // Without it the other one is shown.
    rules.Close();
    OpenRow(app, 1);
    EXPECT_EQ(app.Inner(kEditor), other);
    EXPECT_EQ(Selected(app), " Else two");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FindingTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
