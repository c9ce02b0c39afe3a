// The Compile and Execute commands: boxes in order for each failure, the generated files, and what
// the compiler and the built program are started with.
#include "build/core/tools_file.h"
#include "tests/core/build_disk.h"
#include "tests/gui/blocked_files.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr char kCompile[] = "Compile MORV";
constexpr char kRule[] = "Rule.Cpp";
constexpr char kGetErr[] = "WARNING";
constexpr char kMissing[] = "No such file or directory";
constexpr char kDenied[] = "Permison denied";

struct ShownBox {
    std::string text;
    std::string caption;
};

class CompileTest : public GuiTest {
protected:
    // The program with the sample project open; `change` is applied to its files before.
    App& RunSample(const App::Setup& change = {}, const std::string& com = "",
                   Kind kind = Kind::Nt) {
        App& app = Run(kind, [&](const WorkFolder& work) {
            PutSampleProject(work);
            PutTools(work, com.empty() ? "" : work.Path(com));
            if (change)
                change(work);
        });
        app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
        return app;
    }

    static void Expect(App& app, const std::vector<ShownBox>& boxes) {
        for (const ShownBox& box : boxes)
            app.ExpectBox(box.text, box.caption, Buttons::Ok,
                          box.caption == kGetErr ? Icon::Stop : Icon::None);
    }

    // Something done to a file of the sample, and what takes it back.
    struct Change {
        App::Setup make, undo;
    };

    // A build fails with these boxes while the change is there.
    void ExpectFailure(const Change& change, const std::vector<ShownBox>& boxes) {
        if (!app_)
            app_ = &RunSample();
        change.make(app_->Work());
        app_->Start(CM_COMPILE);
        Expect(*app_, boxes);
        Expect(*app_, {{"Error de Compilacio", "Zentrik 2.0a"}});
        app_->Finish();
        change.undo(app_->Work());
    }

    static Change Missing(const std::string& name) {
        const auto move = [name](const std::string& from, const std::string& to) {
            return [=](const WorkFolder& work) {
                MoveFileA(work.Path(name + from).c_str(), work.Path(name + to).c_str());
            };
        };
        return {move("", ".away"), move(".away", "")};
    }

    // A folder in the place of a file that is to be made.
    static Change Blocked(const std::string& name) {
        return {[name](const WorkFolder& work) {
                    DeleteFileA(work.Path(name).c_str());
                    MakeFolders(work.Path(name));
                },
                [name](const WorkFolder& work) { RemoveDirectoryA(work.Path(name).c_str()); }};
    }

    // Answers the dialog of the rule check that Execute starts with.
    static void AnswerDebug(App& app) {
        Dialog debug = app.WaitDialog("Debug");
        debug.Press(DEBUG_START);
        app.ExpectBox("Debug Finalitzat", "Debug");
        app.Finish();
    }

    static std::string Args(App& app, const std::string& name) {
        const std::string path = app.Path(name + ".args");
        app.Process().WaitFor("the start of " + name, [&] { return FileExists(path); });
        return FileContent(path);
    }

    static void PutRecorder(const WorkFolder& work, const std::string& name) {
        CopyTo(OwnFolder() + "\\record_args.exe", work.Path(name + ".exe"));
    }

private:
    App* app_ = nullptr;
};

TEST_F(CompileTest, NeedsASavedProject) {
    App& app = Run();
    app.Start(CM_COMPILE);
    Expect(app,
           {{"There is no MORV Project Open", kCompile}, {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
    app.Command(CM_NEW_MORV);
    app.Start(CM_COMPILE);
    Expect(app,
           {{"Save Project before compile", kCompile}, {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
}

TEST_F(CompileTest, ReportsAHeaderThatCannotBeMade) {
    ExpectFailure(Blocked("plantR.h"), {{kDenied, kGetErr}, {"Rules.h creation error", kCompile}});
    ExpectFailure(
        Missing("help.cpp"),
        {{"Extern File Error", kRule}, {kMissing, kGetErr}, {"Rules.h creation error", kCompile}});
    ExpectFailure(
        Missing("plant.aux"),
        {{"Results File Error", kRule}, {kMissing, kGetErr}, {"Rules.h creation error", kCompile}});
}

TEST_F(CompileTest, ReportsASourceThatCannotBeMade) {
    const ShownBox last{"Rules.cpp creation error", kCompile};
    ExpectFailure(Blocked("plantR.cpp"),
                  {{"Creation file error", kRule}, {kDenied, kGetErr}, last});
    ExpectFailure(Missing("tank.lse"), {{"Open Engine error", kRule}, last});
    ExpectFailure(Missing("head.cpp"), {{"Header file Error", kRule}, {kMissing, kGetErr}, last});
    ExpectFailure(Missing("tank.rul"), {{"Rule File Error", kRule}, {kMissing, kGetErr}, last});
    ExpectFailure(Missing("main.cpp"), {{"Main File Error", kRule}, {kMissing, kGetErr}, last});
}

TEST_F(CompileTest, WritesOverNoSourceOfTheProject) {
    const std::string own = "// the user's work\r\n";
    App& app = RunSample([&](const WorkFolder& work) {
        const std::string path = work.Path("plant.mrv");
        ProjectFile project;
        ReadProject(path.c_str(), project);
        SetText(project.head.MainName, work.Path("plantR.cpp"));
        PutFile(work.Path("plantR.cpp"), own);
        if (!WriteProject(path.c_str(), project))
            Fail("cannot write " + path);
    });
    app.Start(CM_COMPILE);
    Expect(app, {{"Creation file error", kRule},
                 {kDenied, kGetErr},
                 {"Rules.cpp creation error", kCompile},
                 {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("plantR.cpp")), own);
    EXPECT_FALSE(FileExists(app.Path("plantR.h")));
}

TEST_F(CompileTest, ASystemMarkedReadOnlyCannotBeOpened) {
    App& app = RunSample();
    const ReadOnlyFile mark(app.Path("tank.lse"));
    app.Start(CM_COMPILE);
    Expect(app, {{"Open Engine error", kRule},
                 {"Rules.cpp creation error", kCompile},
                 {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
}

class CompileKindTest : public CompileTest, public testing::WithParamInterface<Kind> {};

TEST_P(CompileKindTest, WritesWithTheWaitCursor) {
    App& app = RunSample(Missing("plant.aux").make, "", GetParam());
    app.Inner().WaitCursorSeen(app.Frame());
    app.Start(CM_COMPILE);
    // The boxes are made while the files are written.
    Expect(app, {{"Results File Error", kRule},
                 {kMissing, kGetErr},
                 {"Rules.h creation error", kCompile},
                 {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
    EXPECT_TRUE(app.Inner().WaitCursorSeen(app.Frame()));
    EXPECT_FALSE(app.Inner().WaitCursorSeen(app.Frame()));
}

INSTANTIATE_TEST_SUITE_P(Kinds, CompileKindTest, testing::Values(Kind::Nt, Kind::Win98));

TEST_F(CompileTest, ShowsHowFarTheSourceGot) {
    App& app = RunSample(Missing("main.cpp").make);
    app.Start(CM_COMPILE);
    Expect(app, {{"Main File Error", kRule},
                 {kMissing, kGetErr},
                 {"Rules.cpp creation error", kCompile},
                 {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("plantR.cpp"));
    EXPECT_EQ(app.EditorText(), FileContent(app.Path("plantR.cpp")));
    EXPECT_NE(app.EditorText().find("EndSystem"), std::string::npos);
    EXPECT_FALSE(app.IsGrey(CM_SAVE_FILE));
}

TEST_F(CompileTest, ReportsMissingTemplates) {
    const std::vector<std::pair<std::string, std::string>> templates{
        {"ddecom1", "Ddecom1.dat not found check MORV Path"},
        {"ddecom3", "Ddecom3.dat not found check MORV Path"},
        {"ddecom2", "ddecom2.dat not found check MORV Path"},
        {"ddecom4", "Ddecom4.dat not foud check MORV Path"},
        {"consts1", "Consts1.dat not found check MORV Path"},
        {"consts2", "consts2.dat not found, check MORV Path"},
        {"consts3", "consts3.dat file not found check MORV Path"}};
    for (const auto& [name, text] : templates)
        ExpectFailure(Missing("morv\\" + name + ".dat"), {{text, kCompile}, {kMissing, kGetErr}});
}

TEST_F(CompileTest, ReportsAMissingDdeFile) {
    ExpectFailure(Missing("link.dde"), {{"Dde File not found", kCompile}, {kMissing, kGetErr}});
}

TEST_F(CompileTest, ReportsSupportFilesThatCannotBeMade) {
    for (const char* name : {"ddecom.h", "ddecom.cpp", "consts.h", "morv\\MorvApi.h"})
        ExpectFailure(Blocked(name), {{kDenied, kGetErr}});
}

TEST_F(CompileTest, AProjectWithoutKnowledgeTypesSaysZero) {
    App& app =
        RunSample([](const WorkFolder& work) { PutFile(work.Path("tank.typ"), std::string()); });
    app.Start(CM_COMPILE);
    app.ExpectBox("Zero", kCompile);
    app.Finish();
    EXPECT_TRUE(FileExists(app.Path("morv\\MorvApi.h")));
}

TEST_F(CompileTest, WritesEveryFileWithoutACompiler) {
    App& app = RunSample();
    app.Command(CM_COMPILE);
    for (const char* name : {"plantR.h", "plantR.cpp", "ddecom.h", "ddecom.cpp", "consts.h",
                             "morv\\MorvApi.h", "Ktype.tmp"})
        EXPECT_FALSE(FileContent(app.Path(name)).empty()) << name;
    EXPECT_NE(FileContent(app.Path("consts.h")).find("ACTION ,PROCESS};"), std::string::npos);
    // The rules stand where the header's marker was.
    EXPECT_NE(FileContent(app.Path("plantR.cpp"))
                  .find("// before\r\n" + FileContent(app.Path("tank.rul")) + "\r\n\r\n// after"),
              std::string::npos);
}

TEST_F(CompileTest, GeneratesTheGoldenFiles) {
    const zentrik_test::Disk disk;
    ProjectFile project;
    project.head = zentrik_test::PutSampleProject(disk);
    zentrik_test::PutRuntimeTemplates(disk);
    App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
        ASSERT_TRUE(WriteProject(disk.Path("plant.mrv").c_str(), project));
        ASSERT_TRUE(
            WriteTools(work.Path("toolfile.tol").c_str(), {disk.Path("morv"), "", "", "", {}}));
    });
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", disk.Path("plant.mrv"));
    app.Command(CM_COMPILE);
    for (const char* name : {"plantR.h", "plantR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"})
        zentrik_test::ExpectGolden(name, disk.Content(name));
    zentrik_test::ExpectGolden("MorvApi.h", disk.Content("morv\\MorvApi.h"));
}

TEST_F(CompileTest, StartsTheCompilerWithOneLine) {
    App& app = RunSample([](const WorkFolder& work) { PutRecorder(work, "zkcc"); }, "zkcc.exe");
    app.Command(CM_COMPILE);
    const std::string folder = app.Work().Folder();
    EXPECT_EQ(Args(app, "zkcc"), app.Path("zkcc.exe") +
                                     " apimorv apimorv.rc plantR.cpp ddecom.cpp " +
                                     app.Path("morv") + " " + folder + " C:\\inc C:\\cc " + folder +
                                     "\n" + folder + "\n");
}

// Works the dialog of the compiler tools.
void TakeCompiler(App& app, const std::string& com) {
    app.Start(CM_TOOLS);
    Dialog tools = app.WaitDialog("Compile Tools");
    tools.SetText(TOOL_COMMAND, com);
    tools.Click(IDOK);
    app.Finish();
}

TEST_F(CompileTest, NewToolsHoldAtOnce) {
    App& app = RunSample(
        [](const WorkFolder& work) {
            PutRecorder(work, "old");
            PutRecorder(work, "new");
        },
        "old.exe");
    TakeCompiler(app, "");
    app.Command(CM_COMPILE);
    TakeCompiler(app, app.Path("new.exe"));
    app.Command(CM_COMPILE);
    EXPECT_TRUE(Args(app, "new").starts_with(app.Path("new.exe") + " apimorv "));
    EXPECT_FALSE(FileExists(app.Path("old.args")));
    EXPECT_FALSE(FileExists(app.Path("old.args.part")));
}

class OpenSystemTest : public CompileTest {
protected:
    // The program with the sample project and, open, a system that is none of its own.
    App& RunBoth(const App::Setup& change = {}) {
        App& app = RunSample([&](const WorkFolder& work) {
            PutSystem(work, "other", {"Rule 1\r\nEndRule\r\n"});
            if (change)
                change(work);
        });
        app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("other.lse"));
        return app;
    }

    // What the open system is saved as.
    static SystemFile Saved(App& app) {
        app.Command(CM_SAVE_SYSTEM);
        SystemFile system;
        ReadSystem(app.Path("other.lse").c_str(), system);
        return system;
    }
};

TEST_F(OpenSystemTest, HasTheNamesOfTheSystemCompiledLast) {
    App& app = RunBoth();
    app.Command(CM_COMPILE);
    const SystemFile saved = Saved(app);
    EXPECT_EQ(Text(saved.head.RuleName), app.Path("tank.rul"));
    EXPECT_EQ(Text(saved.head.HeaderName), app.Path("head.cpp"));
    EXPECT_EQ(Text(saved.head.KTypeName), app.Path("tank.typ"));
}

TEST_F(OpenSystemTest, KeepsItsNamesWhenTheHeaderFails) {
    App& app = RunBoth(Blocked("plantR.h").make);
    app.Start(CM_COMPILE);
    Expect(app, {{kDenied, kGetErr},
                 {"Rules.h creation error", kCompile},
                 {"Error de Compilacio", "Zentrik 2.0a"}});
    app.Finish();
    const SystemFile saved = Saved(app);
    EXPECT_EQ(Text(saved.head.RuleName), app.Path("other.rul"));
    EXPECT_EQ(Text(saved.head.HeaderName), "");
}

TEST_F(CompileTest, ACompilerThatIsNotThereIsNotReported) {
    App& app = RunSample({}, "nowhere.exe");
    app.Command(CM_COMPILE);
    EXPECT_TRUE(app.Process().Alive());
}

TEST_F(CompileTest, ExecuteChecksCompilesAndStartsTheProgram) {
    App& app = RunSample(
        [](const WorkFolder& work) {
            PutRecorder(work, "zkcc");
            PutRecorder(work, "Apiplant");
        },
        "zkcc.exe");
    app.Start(CM_EXECUTE);
    AnswerDebug(app);
    app.Finish();
    EXPECT_EQ(app.Rows(kMessages).size(), 3u);
    EXPECT_NE(Args(app, "zkcc").find("plantR.cpp"), std::string::npos);
    EXPECT_EQ(Args(app, "Apiplant"),
              "\"" + app.Path("Apiplant.exe") + "\" \"\"\n" + app.Work().Folder() + "\n");
}

TEST_F(CompileTest, ExecuteGoesOnWhenTheCheckWasLeftOut) {
    App& app = RunSample([](const WorkFolder& work) { PutRecorder(work, "Apiplant"); });
    app.Start(CM_EXECUTE);
    app.WaitDialog("Debug").Close();
    app.Finish();
    EXPECT_EQ(app.Rows(kMessages), TextRows{});
    EXPECT_NE(Args(app, "Apiplant"), "");
}

TEST_F(CompileTest, ExecuteGoesOnToTheBuildAfterAFailedCheck) {
    App& app = RunSample([](const WorkFolder& work) {
        PutRecorder(work, "Apiplant");
        DeleteFileA(work.Path("tank.lse").c_str());
    });
    app.Start(CM_EXECUTE);
    Dialog debug = app.WaitDialog("Debug");
    debug.Press(DEBUG_START);
    app.ExpectBox("Open System Error", "Debug");
    app.Finish();
    debug.Close();
    Expect(app, {{"Open Engine error", kRule}, {"Rules.cpp creation error", kCompile}});
    app.Finish();
    EXPECT_FALSE(FileExists(app.Path("Apiplant.args")));
}

TEST_F(CompileTest, ExecuteStopsWhenTheBuildFails) {
    App& app = RunSample([](const WorkFolder& work) {
        PutRecorder(work, "Apiplant");
        DeleteFileA(work.Path("link.dde").c_str());
    });
    app.Start(CM_EXECUTE);
    AnswerDebug(app);
    // No "Error de Compilacio" from here.
    Expect(app, {{"Dde File not found", kCompile}, {kMissing, kGetErr}});
    app.Finish();
    EXPECT_FALSE(FileExists(app.Path("Apiplant.args")));
}

TEST_F(CompileTest, ExecuteWithoutABuiltProgramSaysNothing) {
    App& app = RunSample();
    app.Start(CM_EXECUTE);
    AnswerDebug(app);
    app.Finish();
    EXPECT_TRUE(FileExists(app.Path("plantR.cpp")));
}

TEST_F(CompileTest, ExecuteWithoutAProjectReportsBothSteps) {
    App& app = Run();
    app.Start(CM_EXECUTE);
    Expect(app, {{"There is not Opened MORV System", "MORV Debug"},
                 {"There is no MORV Project Open", kCompile}});
    app.Finish();
}

} // namespace

} // namespace gui
