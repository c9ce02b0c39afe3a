// The compiler tools: their dialog and their file.
#include "build/core/tools_file.h"
#include "tests/gui/gui_test.h"

namespace gui {

namespace {

constexpr char kFile[] = "toolfile.tol";

class ToolsTest : public GuiTest {
protected:
    App& RunTools(const ToolsFile& tools) {
        return Run(Kind::Nt, [&](const WorkFolder& work) {
            ASSERT_TRUE(WriteTools(work.Path(kFile).c_str(), tools));
        });
    }

    static Dialog Open(App& app) {
        app.Start(CM_TOOLS);
        return app.WaitDialog("Compile Tools");
    }

    static ToolsFile Stored(const App& app) {
        ToolsFile tools;
        ReadTools(app.Path(kFile).c_str(), tools);
        return tools;
    }
};

TEST_F(ToolsTest, WithoutAFileEverythingIsEmpty) {
    App& app = Run();
    Dialog tools = Open(app);
    for (int id : {TOOL_MORV_PATH, TOOL_INCLUDE, TOOL_COMPILER_PATH, TOOL_COMMAND})
        EXPECT_EQ(tools.Text(id), "") << id;
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), TextRows{});
    tools.Click(IDCANCEL);
    app.Finish();
    EXPECT_FALSE(FileExists(app.Path(kFile)));
}

TEST_F(ToolsTest, ShowsTheFile) {
    App& app = RunTools({"C:\\morv", "cc.exe", "C:\\inc", "C:\\cc", {"zz.exe", "cc.exe"}});
    Dialog tools = Open(app);
    EXPECT_EQ(tools.Text(TOOL_MORV_PATH), "C:\\morv");
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "cc.exe");
    EXPECT_EQ(tools.Text(TOOL_INCLUDE), "C:\\inc");
    EXPECT_EQ(tools.Text(TOOL_COMPILER_PATH), "C:\\cc");
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"zz.exe", "cc.exe"}));
    tools.Close();
    app.Finish();
}

TEST_F(ToolsTest, ExactlyFourSlotsGiveAnEmptyList) {
    App& app = RunTools({"C:\\morv", "cc.exe", "C:\\inc", "C:\\cc", {}});
    ASSERT_EQ(FileContent(app.Path(kFile)).size(), 1020u);
    Dialog tools = Open(app);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), TextRows{});
    tools.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ToolsTest, OkWritesTheFile) {
    App& app = RunTools({"", "", "", "", {"a.exe", "b.exe"}});
    Dialog tools = Open(app);
    tools.SetText(TOOL_MORV_PATH, "C:\\m");
    tools.SetText(TOOL_COMMAND, "c.exe");
    tools.SetText(TOOL_INCLUDE, "C:\\i");
    tools.SetText(TOOL_COMPILER_PATH, "C:\\p");
    tools.Click(IDOK);
    app.Finish();
    const ToolsFile stored = Stored(app);
    EXPECT_EQ(stored.path, "C:\\m");
    EXPECT_EQ(stored.com, "c.exe");
    EXPECT_EQ(stored.p_com, "C:\\i");
    EXPECT_EQ(stored.tool_p, "C:\\p");
    EXPECT_EQ(stored.compilers, (TextRows{"a.exe", "b.exe"}));
    EXPECT_EQ(FileContent(app.Path(kFile)).size(), 6 * 255u);
}

TEST_F(ToolsTest, CancelChangesNothing) {
    App& app = RunTools({"C:\\morv", "cc.exe", "", "", {"cc.exe"}});
    const std::string before = FileContent(app.Path(kFile));
    Dialog tools = Open(app);
    tools.SetText(TOOL_MORV_PATH, "C:\\other");
    tools.Click(IDCANCEL);
    app.Finish();
    EXPECT_EQ(FileContent(app.Path(kFile)), before);
    Dialog again = Open(app);
    EXPECT_EQ(again.Text(TOOL_MORV_PATH), "C:\\morv");
    again.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ToolsTest, AddsACompilerWithoutSelectingIt) {
    App& app = RunTools({"", "cc.exe", "", "", {"cc.exe"}});
    PutFile(app.Path("new.exe"), "");
    Dialog tools = Open(app);
    tools.Press(TOOL_ADD);
    app.CancelFile("Add Compiler File");
    app.Finish();
    tools.Press(TOOL_ADD);
    app.ChooseFile("Add Compiler File", app.Path("new.exe"));
    app.Finish();
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"cc.exe", app.Path("new.exe")}));
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "cc.exe");
    tools.Click(IDOK);
    app.Finish();
    EXPECT_EQ(Stored(app).compilers, (TextRows{"cc.exe", app.Path("new.exe")}));
}

TEST_F(ToolsTest, RemovesTheShownCompiler) {
    App& app = RunTools({"", "b.exe", "", "", {"a.exe", "b.exe"}});
    Dialog tools = Open(app);
    tools.SetText(TOOL_COMMAND, "unknown");
    tools.Click(TOOL_REMOVE);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"a.exe", "b.exe"}));
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "unknown");
    tools.SetText(TOOL_COMMAND, "b.exe");
    tools.Click(TOOL_REMOVE);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), TextRows{"a.exe"});
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "");
    tools.Click(IDOK);
    app.Finish();
    EXPECT_EQ(Stored(app).com, "");
    EXPECT_EQ(Stored(app).compilers, TextRows{"a.exe"});
}

TEST_F(ToolsTest, RemovesAnEmptyEntryLikeAnyOther) {
    App& app = RunTools({"", "", "", "", {"a.exe", "", "b.exe"}});
    Dialog tools = Open(app);
    tools.SetText(TOOL_COMMAND, "");
    tools.Click(TOOL_REMOVE);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"a.exe", "b.exe"}));
    tools.Click(TOOL_REMOVE); // there is no other
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"a.exe", "b.exe"}));
    tools.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ToolsTest, RemovesOnlyTheVerySameCompiler) {
    App& app = RunTools({"", "", "", "", {"CC.exe", "cc.exe", "cc.exe2"}});
    Dialog tools = Open(app);
    tools.SetText(TOOL_COMMAND, "Cc.exe");
    tools.Click(TOOL_REMOVE);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"CC.exe", "cc.exe", "cc.exe2"}));
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "Cc.exe");
    tools.SetText(TOOL_COMMAND, "cc.exe");
    tools.Click(TOOL_REMOVE);
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), (TextRows{"CC.exe", "cc.exe2"}));
    EXPECT_EQ(tools.Text(TOOL_COMMAND), "");
    tools.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ToolsTest, AFileThatIsLockedIsNotRead) {
    std::optional<LockedFile> lock;
    App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
        ASSERT_TRUE(WriteTools(work.Path(kFile).c_str(),
                               {"C:\\morv", "cc.exe", "C:\\inc", "C:\\cc", {"cc.exe"}}));
        lock.emplace(work.Path(kFile));
    });
    Dialog tools = Open(app);
    for (int id : {TOOL_MORV_PATH, TOOL_INCLUDE, TOOL_COMPILER_PATH, TOOL_COMMAND})
        EXPECT_EQ(tools.Text(id), "") << id;
    EXPECT_EQ(tools.ComboRows(TOOL_COMMAND), TextRows{});
    tools.Click(IDCANCEL);
    app.Finish();
    // Once it is free again the dialog reads it.
    lock.reset();
    Dialog again = Open(app);
    EXPECT_EQ(again.Text(TOOL_MORV_PATH), "C:\\morv");
    again.Click(IDCANCEL);
    app.Finish();
}

TEST_F(ToolsTest, AFileThatCannotBeWrittenStillGivesTheNewValues) {
    App& app = RunTools({"C:\\morv", "", "", "", {}});
    const std::string before = FileContent(app.Path(kFile));
    Dialog tools = Open(app);
    tools.SetText(TOOL_MORV_PATH, "C:\\new");
    {
        const LockedFile lock(app.Path(kFile));
        tools.Press(IDOK);
        app.ExpectBox("Creation Tool file error", "Compile Tools");
        app.Finish();
        app.Finish();
        EXPECT_EQ(FileContent(app.Path(kFile)), before);
        Dialog again = Open(app);
        EXPECT_EQ(again.Text(TOOL_MORV_PATH), "C:\\new");
        again.Click(IDCANCEL);
        app.Finish();
    }
}

TEST_F(ToolsTest, LongTextsAreCutToTheirSlots) {
    App& app = Run();
    Dialog tools = Open(app);
    tools.SetText(TOOL_MORV_PATH, std::string(400, 'm'));
    tools.SetText(TOOL_COMMAND, std::string(300, 'c'));
    tools.Click(IDOK);
    app.Finish();
    EXPECT_EQ(Stored(app).path, std::string(254, 'm'));
    EXPECT_EQ(Stored(app).com, std::string(254, 'c'));
}

} // namespace

} // namespace gui
