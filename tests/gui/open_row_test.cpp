// What a double-click on a row of the project or of the system opens.
#include "system/core/system_file.h"
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <algorithm>

namespace gui {

namespace {

constexpr char kOneRule[] = "Rule 1\r\nEndRule\r\n";

// A folder with a name of its own, which is removed at the end.
class NamedFolder {
public:
    explicit NamedFolder(const std::string& path) : path_(path) { MakeFolders(path); }
    NamedFolder(const NamedFolder&) = delete;
    NamedFolder& operator=(const NamedFolder&) = delete;
    ~NamedFolder() {
        for (const std::string& file : files_)
            DeleteFileA(file.c_str());
        RemoveDirectoryA(path_.c_str());
    }

    std::string Put(const std::string& name, const std::string& content) {
        files_.push_back(path_ + "\\" + name);
        PutFile(files_.back(), content);
        return files_.back();
    }

private:
    std::string path_;
    std::vector<std::string> files_;
};

class GuiOpenRowTest : public GuiTest {
protected:
    // The program with the sample project open.
    App& RunProject() {
        App& app = Run(Kind::Nt, PutSampleProject);
        app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
        return app;
    }

    // The program with the sample's system open, to which local variables are added.
    App& RunSystem() {
        App& app = Run(Kind::Nt, [](const WorkFolder& work) {
            PutSampleProject(work);
            SystemFile system;
            if (ReadSystem(work.Path("tank.lse").c_str(), system) != ReadResult::Ok)
                Fail("cannot read the sample's system");
            SetText(system.head.VarName, work.Path("tank.var"));
            PutFile(work.Path("tank.lse"), SystemBytes(system));
            PutFile(work.Path("tank.var"), "");
        });
        OpenSystem(app, "tank.lse");
        return app;
    }

    // The program with an open system that has nothing but this rules file.
    App& RunRules(const std::string& path) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            SystemFile system;
            SetText(system.head.RuleName, path.find('\\') == path.npos ? work.Path(path) : path);
            PutFile(work.Path("s.lse"), SystemBytes(system));
        });
        OpenSystem(app, "s.lse");
        return app;
    }

    static void OpenSystem(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path(name));
    }

    static int Row(App& app, const std::string& window, const std::string& text) {
        const TextRows rows = app.Rows(window);
        const auto row = std::find(rows.begin(), rows.end(), text);
        if (row == rows.end())
            Fail("no row " + text);
        return static_cast<int>(row - rows.begin());
    }

    static void StartItem(App& app, const std::string& window, const std::string& path) {
        app.StartDoubleClick(window, Row(app, window, Item(path)));
    }

    static void OpenItem(App& app, const std::string& window, const std::string& path) {
        StartItem(app, window, path);
        app.Finish();
    }

    static TextRows Editors(const App& app) {
        TextRows titles;
        for (HWND child : app.Children(kEditor))
            titles.push_back(TextOf(child));
        return titles;
    }
};

TEST_F(GuiOpenRowTest, MainAndExternFilesOpenInTheTextEditor) {
    App& app = RunProject();
    OpenItem(app, kProject, app.Path("main.cpp"));
    EXPECT_EQ(Editors(app), TextRows{app.Path("main.cpp")});
    EXPECT_EQ(app.EditorText(), FileContent(app.Path("main.cpp")));
    OpenItem(app, kProject, app.Path("help.cpp"));
    EXPECT_EQ(Editors(app), (TextRows{app.Path("help.cpp"), app.Path("main.cpp")}));
    EXPECT_EQ(app.EditorText(), FileContent(app.Path("help.cpp")));
    // Each double-click opens a window of its own.
    OpenItem(app, kProject, app.Path("help.cpp"));
    EXPECT_EQ(Editors(app).size(), 3u);
}

TEST_F(GuiOpenRowTest, TheMouseOpensTheRowUnderIt) {
    App& app = RunProject();
    const HWND list = app.Inner(kProject);
    const LRESULT height = app.Process().Send(list, LB_GETITEMHEIGHT);
    const LRESULT top = app.Process().Send(list, LB_GETTOPINDEX);
    const LRESULT y = (Row(app, kProject, Item(app.Path("main.cpp"))) - top) * height + height / 2;
    for (UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
        app.Process().Send(list, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                           MAKELPARAM(20, y));
    EXPECT_EQ(Editors(app), TextRows{app.Path("main.cpp")});
}

TEST_F(GuiOpenRowTest, ASystemOpensWithItsMenus) {
    App& app = RunProject();
    EXPECT_TRUE(app.IsGrey(CM_SAVE_SYSTEM));
    OpenItem(app, kProject, app.Path("tank.lse"));
    ASSERT_TRUE(app.HasChild(kSystem));
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("tank.lse")));
    EXPECT_FALSE(app.IsGrey(CM_SAVE_SYSTEM));
    EXPECT_FALSE(app.IsGrey(CM_RESOURCE_REMOVE));
    app.Command(CM_CLOSE_SYSTEM); // it is not changed
    EXPECT_FALSE(app.HasChild(kSystem));
}

TEST_F(GuiOpenRowTest, ASystemWithoutResourcesLeavesRemoveGreyed) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        PutFile(work.Path("e.lse"), SystemBytes(SystemFile()));
        PutProject(work.Path("p.mrv"), {"", {work.Path("e.lse")}, {}, "", "", {}});
    });
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("p.mrv"));
    OpenItem(app, kProject, app.Path("e.lse"));
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", Item(app.Path("e.lse"))}));
    EXPECT_FALSE(app.IsGrey(CM_SAVE_SYSTEM));
    EXPECT_TRUE(app.IsGrey(CM_RESOURCE_REMOVE));
}

TEST_F(GuiOpenRowTest, ASystemDoesNotOpenBesideAnother) {
    App& app = RunProject();
    app.Command(CM_NEW_SYSTEM);
    OpenItem(app, kProject, app.Path("tank.lse"));
    EXPECT_EQ(app.Children(kSystem).size(), 1u);
    EXPECT_EQ(app.Rows(kSystem).at(1), "\tuntitled.lse");
}

TEST_F(GuiOpenRowTest, AMissingSystemIsReported) {
    App& app = RunProject();
    DeleteFileA(app.Path("tank.lse").c_str());
    StartItem(app, kProject, app.Path("tank.lse"));
    app.ExpectBox("Open Error", "Open Engine");
    app.Finish();
    // Its window stays, and the system does not count as open.
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("tank.lse")));
    app.Start(CM_SAVE_SYSTEM);
    app.ExpectBox("There is not Opened MORV System", "Save MORV System");
    app.Finish();
}

TEST_F(GuiOpenRowTest, TheDdeFileOpensItsDialog) {
    App& app = RunProject();
    StartItem(app, kProject, app.Path("link.dde"));
    Dialog dde = app.WaitDialog("DDE");
    EXPECT_EQ(GetWindow(dde.Window(), GW_OWNER), app.Frame());
    EXPECT_EQ(dde.Text(DDE_NAME), "PLC");
    EXPECT_EQ(dde.Rows(DDE_ITEMS).size(), 1u);
    dde.Close();
    app.Finish();
}

TEST_F(GuiOpenRowTest, AResultsFileOpensTheChoiceOfResults) {
    App& app = RunProject();
    PutFile(app.Path("names.rst"), TagBytes({"HIGH", "LOW", "NEW"}));
    StartItem(app, kProject, app.Path("names.rst"));
    Dialog add = app.WaitDialog("Add Resource");
    EXPECT_EQ(add.Rows(ADD_CHOSEN), (TextRows{"HIGH", "LOW"}));
    EXPECT_EQ(add.Rows(ADD_OFFERED), TextRows{"NEW"});
    add.SelectRows(ADD_OFFERED, {0});
    add.Click(ADD_ADD);
    add.Click(ADD_OK);
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("temp\\plant.aux")), TagBytes({"HIGH", "LOW", "NEW"}));
}

TEST_F(GuiOpenRowTest, NameAndHeadingsOfAProjectOpenNothing) {
    App& app = RunProject();
    const TextRows rows = app.Rows(kProject);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (row != 1 && rows[row].starts_with('\t'))
            continue;
        app.StartDoubleClick(kProject, static_cast<int>(row));
        app.Finish();
    }
    app.StartDoubleClick(kProject, -1); // nothing is selected
    app.Finish();
    EXPECT_EQ(app.Children(), std::vector<HWND>{app.Child(kProject)});
}

TEST_F(GuiOpenRowTest, RowsOfASystemThatOpenNothing) {
    App& app = RunSystem();
    const TextRows opening{Item(app.Path("tank.rul")), Item(app.Path("head.cpp")),
                           Item(app.Path("tank.var"))};
    const TextRows rows = app.Rows(kSystem);
    std::size_t opened = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (std::find(opening.begin(), opening.end(), rows[row]) != opening.end()) {
            ++opened;
            continue;
        }
        app.StartDoubleClick(kSystem, static_cast<int>(row)); // facts and opposites, too
        app.Finish();
    }
    app.StartDoubleClick(kSystem, -1);
    app.Finish();
    EXPECT_EQ(opened, opening.size());
    EXPECT_EQ(app.Children(), std::vector<HWND>{app.Child(kSystem)});
}

TEST_F(GuiOpenRowTest, TheHeaderOpensInTheTextEditor) {
    App& app = RunSystem();
    OpenItem(app, kSystem, app.Path("head.cpp"));
    EXPECT_EQ(Editors(app), TextRows{app.Path("head.cpp")});
    EXPECT_EQ(app.EditorText(), FileContent(app.Path("head.cpp")));
}

TEST_F(GuiOpenRowTest, TheVariablesOpenTheirDialog) {
    App& app = RunSystem();
    StartItem(app, kSystem, app.Path("tank.var"));
    Dialog variables = app.WaitDialog("Local Vars");
    EXPECT_EQ(GetWindow(variables.Window(), GW_OWNER), app.Frame());
    variables.Close();
    app.Finish();
    EXPECT_TRUE(Editors(app).empty());
}

TEST_F(GuiOpenRowTest, TheRulesOpenInTheRuleEditor) {
    App& app = RunSystem();
    StartItem(app, kSystem, app.Path("tank.rul"));
    RuleBox box(app);
    EXPECT_EQ(Editors(app), TextRows{app.Path("tank.rul")});
    EXPECT_EQ(box.Content(), FileContent(app.Path("tank.rul")));
    EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2"}));
    EXPECT_EQ(box.Count(), "");
    // It saves under that name without asking.
    box.Click(RULE_RULE);
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("tank.rul")), box.Content());
    EXPECT_EQ(FileContent(app.Path("tank.siz")).size(), 3u * 267);
    box.Close();
    EXPECT_TRUE(Editors(app).empty());
}

TEST_F(GuiOpenRowTest, RulesWithAnEmptyIndexListOneEmptyRow) {
    App& app = RunRules("r.rul");
    PutFile(app.Path("r.rul"), kOneRule);
    PutFile(app.Path("r.siz"), "");
    StartItem(app, kSystem, app.Path("r.rul"));
    RuleBox box(app);
    EXPECT_EQ(box.Rules().size(), 1u);
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Count(), "Rule 2");
}

TEST_F(GuiOpenRowTest, RulesWithoutAFileOrAnIndexStartEmpty) {
    App& app = RunRules("r.rul");
    StartItem(app, kSystem, app.Path("r.rul"));
    RuleBox box(app);
    EXPECT_EQ(box.Content(), "");
    EXPECT_EQ(box.Rules(), TextRows{});
    box.Close();
    EXPECT_FALSE(FileExists(app.Path("r.rul")));
    EXPECT_FALSE(FileExists(app.Path("r.siz")));
}

TEST_F(GuiOpenRowTest, RulesWithTheDotAtFourOpenOnceMore) {
    NamedFolder folder("C:\\z.x");
    const std::string path = folder.Put("r.rul", kOneRule);
    App& app = RunRules(path);
    StartItem(app, kSystem, path);
    RuleBox box(app);
    EXPECT_EQ(Editors(app), TextRows{path});
    box.Close();
    // As a text, which the text editor can close.
    EXPECT_EQ(Editors(app), TextRows{path});
    EXPECT_EQ(app.EditorText(), kOneRule);
    app.CloseChild(app.Child(kEditor));
}

TEST_F(GuiOpenRowTest, RulesWithTheDotAtFiveGoOnToTheVariables) {
    NamedFolder folder("C:\\zz.x");
    const std::string path = folder.Put("r.rul", kOneRule);
    App& app = RunRules(path);
    StartItem(app, kSystem, path);
    RuleBox box(app);
    box.Command(RM_CLOSE);
    Dialog variables = app.WaitDialog("Local Vars");
    EXPECT_FALSE(box.Open());
    variables.Close();
    app.Finish();
    EXPECT_TRUE(Editors(app).empty());
}

TEST_F(GuiOpenRowTest, TheDotElsewhereGoesNoFurther) {
    for (const char* name : {"C:\\.x", "C:\\zzz.x"}) {
        NamedFolder folder(name);
        const std::string path = folder.Put("r.rul", kOneRule);
        App& app = RunRules(path);
        StartItem(app, kSystem, path);
        RuleBox(app).Close();
        EXPECT_TRUE(Editors(app).empty()) << path;
        EXPECT_TRUE(Dialogs(app.Process()).empty()) << path;
    }
}

TEST_F(GuiOpenRowTest, RulesOpenNoSecondWindowWhileTheRuleEditorRuns) {
    App& app = RunSystem();
    StartItem(app, kSystem, app.Path("tank.rul"));
    RuleBox box(app);
    box.TypeAtEnd("x");
    const std::string text = box.Content();
    OpenItem(app, kSystem, app.Path("tank.rul"));
    EXPECT_EQ(Editors(app), TextRows{app.Path("tank.rul")});
    EXPECT_EQ(Dialogs(app.Process()), std::vector<HWND>{box.Window()});
    EXPECT_EQ(box.Content(), text);
    // What it edits is still the same file.
    box.Command(RM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("tank.rul")), text);
    box.Close();
}

TEST_F(GuiOpenRowTest, AnotherRulesFileStaysAsItIsInTheRuleEditor) {
    App& app = RunSystem();
    app.Start(CM_RULES);
    RuleBox box(app);
    box.TypeAtEnd("x");
    OpenItem(app, kSystem, app.Path("tank.rul"));
    EXPECT_EQ(Editors(app), TextRows{"untitled.rul"});
    // It is still untitled, so that its name is asked for.
    box.CommandWithFile(RM_SAVE_FILE, kRulesTitle, app.Path("new.rul"));
    EXPECT_EQ(FileContent(app.Path("new.rul")), "x");
    box.Close();
}

TEST_F(GuiOpenRowTest, OtherRowsOpenWhileTheRuleEditorRuns) {
    App& app = RunSystem();
    StartItem(app, kSystem, app.Path("tank.rul"));
    RuleBox box(app);
    OpenItem(app, kSystem, app.Path("head.cpp"));
    EXPECT_EQ(Editors(app), (TextRows{app.Path("head.cpp"), app.Path("tank.rul")}));
    StartItem(app, kSystem, app.Path("tank.var"));
    app.WaitDialog("Local Vars").Close();
    app.Finish();
    EXPECT_TRUE(box.Open());
    box.Close();
    EXPECT_EQ(Editors(app), TextRows{app.Path("head.cpp")});
}

} // namespace

} // namespace gui
