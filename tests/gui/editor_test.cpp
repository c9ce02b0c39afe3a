// The text editor: opening, saving and closing files, and what is asked at exit.
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr char kOpen[] = "Open File";
constexpr char kSaveAs[] = "Save File As ...";
constexpr char kChanged[] = "File Has been change. Save before Closing?";
constexpr char kCloseCaption[] = "Close notification";

class EditorTest : public GuiTest {
protected:
    // The program with an editor on this file.
    App& RunWith(const std::string& name, const std::string& content) {
        App& app =
            Run(Kind::Nt, [&](const WorkFolder& work) { PutFile(work.Path(name), content); });
        app.CommandWithFile(CM_OPEN_FILE, kOpen, app.Path(name));
        return app;
    }

    static bool Modified(App& app) {
        return app.Process().Send(app.Inner(kEditor), EM_GETMODIFY) != 0;
    }

    static void Ask(App& app, Answer answer) {
        app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, answer);
    }
};

TEST_F(EditorTest, ANewFileIsEmptyAndUntitled) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled");
    EXPECT_EQ(app.EditorText(), "");
    const LONG style = GetWindowLongA(app.Inner(kEditor), GWL_STYLE);
    const LONG wanted = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
                        ES_AUTOHSCROLL | ES_WANTRETURN;
    EXPECT_EQ(style & wanted, wanted);
}

TEST_F(EditorTest, TheEditControlFillsItsWindow) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    HWND child = app.Child(kEditor);
    SetWindowPos(child, nullptr, 0, 0, 321, 234, SWP_NOMOVE | SWP_NOZORDER);
    RECT client{};
    GetClientRect(child, &client);
    const RECT edit = PlaceIn(child, app.Inner(kEditor));
    EXPECT_TRUE(EqualRect(&client, &edit));
}

TEST_F(EditorTest, OpensAFile) {
    App& app = RunWith("a.cpp", "one\r\ntwo\r\n");
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("a.cpp"));
    EXPECT_EQ(app.EditorText(), "one\r\ntwo\r\n");
    EXPECT_FALSE(Modified(app));
    for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
        EXPECT_FALSE(app.IsGrey(id));
}

TEST_F(EditorTest, OpensNothingWhenCancelled) {
    App& app = Run();
    app.CommandWithCancel(CM_OPEN_FILE, kOpen);
    EXPECT_TRUE(app.Children().empty());
    // The menu is enabled all the same.
    EXPECT_FALSE(app.IsGrey(CM_SAVE_FILE));
}

TEST_F(EditorTest, APathThatIsTooLongIsReported) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("text");
    const auto path_of = [&](std::size_t size) {
        const std::string path = app.Path("");
        return path + std::string(size - path.size() - 4, 'n') + ".cpp";
    };
    app.Start(CM_SAVE_FILE_AS);
    app.ChooseFile(kSaveAs, path_of(255));
    EXPECT_EQ(app.ExpectBox("It can not read the file", "WARNING", Buttons::Ok, Icon::Stop).owner,
              nullptr);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled");
    app.CommandWithFile(CM_SAVE_FILE_AS, kSaveAs, path_of(254));
    EXPECT_EQ(FileContent(path_of(254)), "text");
    PutFile(path_of(255), "text");
    app.Start(CM_OPEN_FILE);
    app.ChooseFile(kOpen, path_of(255));
    app.ExpectError("It can not read the file");
    app.Finish();
    EXPECT_EQ(app.Children(kEditor).size(), 1u);
}

TEST_F(EditorTest, ADoubleClickedFileEnablesTheEditItems) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    EXPECT_TRUE(app.IsGrey(CM_SAVE_FILE));
    app.StartDoubleClick(kProject, 3);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("main.cpp"));
    for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
        EXPECT_FALSE(app.IsGrey(id)) << id;
}

TEST_F(EditorTest, AZeroLengthFileIsAnEmptyEditor) {
    App& app = RunWith("empty.cpp", "");
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("empty.cpp"));
    EXPECT_EQ(app.EditorText(), "");
}

class OpenTextTest : public EditorTest, public testing::WithParamInterface<Kind> {};

TEST_P(OpenTextTest, AFileWithLfAloneShowsItsLinesAndIsSavedAsItWas) {
    App& app = Run(GetParam(),
                   [](const WorkFolder& work) { PutFile(work.Path("a.cpp"), "one\n\ntwo\n"); });
    app.Inner().WaitCursorSeen(app.Frame()); // forgets what was before
    app.CommandWithFile(CM_OPEN_FILE, kOpen, app.Path("a.cpp"));
    EXPECT_TRUE(app.Inner().WaitCursorSeen(app.Frame()));
    app.Command(CM_TILE_VERTICAL);
    EXPECT_FALSE(app.Inner().WaitCursorSeen(app.Frame()));
    EXPECT_EQ(app.EditorText(), "one\r\n\r\ntwo\r\n");
    EXPECT_FALSE(Modified(app));
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "one\n\ntwo\n");
    app.Type("x\ry"); // the Enter key
    EXPECT_EQ(app.EditorText(), "x\r\nyone\r\n\r\ntwo\r\n");
    app.CommandWithFile(CM_SAVE_FILE_AS, kSaveAs, app.Path("b.cpp"));
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "x\nyone\n\ntwo\n");
    EXPECT_FALSE(Modified(app));
    app.Type("z");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::Yes);
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "x\nyzone\n\ntwo\n");
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "one\n\ntwo\n");
}

INSTANTIATE_TEST_SUITE_P(Kinds, OpenTextTest, testing::Values(Kind::Nt, Kind::Win98));

TEST_F(EditorTest, AFileWithDifferentLineEndsKeepsThem) {
    const std::string mixed = "one\ntwo\r\nthree\rfour\r\r\n";
    App& app = RunWith("a.cpp", mixed);
    EXPECT_EQ(app.EditorText(), mixed);
    app.Type("x");
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "x" + mixed);
}

TEST_F(EditorTest, OpensAndSavesAMegabyte) {
    std::string text;
    while (text.size() < 1'000'000)
        text += "a line of text that is nothing special\r\n";
    App& app = RunWith("big.cpp", text);
    EXPECT_EQ(app.EditorText(), text);
    app.Process().Send(app.Inner(kEditor), EM_SETSEL, 0, 0);
    app.Type("x");
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("big.cpp")), "x" + text);
}

TEST_F(EditorTest, SavesWhatWasTyped) {
    App& app = RunWith("a.cpp", "old");
    app.Type("new ");
    EXPECT_TRUE(Modified(app));
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "new old");
    EXPECT_EQ(FileContent(app.Path("a.cpp.bak")), "old");
    EXPECT_FALSE(Modified(app));
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("a.cpp"));
}

TEST_F(EditorTest, AShorterTextShortensTheFile) {
    App& app = RunWith("a.cpp", "a long text that is cut\r\n");
    app.Process().Send(app.Inner(kEditor), EM_SETSEL, 0, -1);
    app.Type("x");
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "x");
}

TEST_F(EditorTest, SavingAnUntitledTextAsksForAName) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("int a;");
    app.CommandWithFile(CM_SAVE_FILE, kSaveAs, app.Path("named.cpp"));
    EXPECT_EQ(FileContent(app.Path("named.cpp")), "int a;");
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("named.cpp"));
    EXPECT_FALSE(Modified(app));
    // From then on it has a name.
    app.Type("!");
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(FileContent(app.Path("named.cpp")), "int a;!");
}

TEST_F(EditorTest, ACancelledNameSavesNothing) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("text");
    app.CommandWithCancel(CM_SAVE_FILE, kSaveAs);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled");
    EXPECT_TRUE(Modified(app));
}

TEST_F(EditorTest, SaveAsGivesTheTextAnotherName) {
    App& app = RunWith("a.cpp", "text");
    app.CommandWithFile(CM_SAVE_FILE_AS, kSaveAs, app.Path("b.cpp"));
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "text");
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("b.cpp"));
}

TEST_F(EditorTest, SaveAsAsksBeforeItOverwrites) {
    App& app = RunWith("a.cpp", "text");
    PutFile(app.Path("b.cpp"), "precious");
    app.Start(CM_SAVE_FILE_AS);
    app.ChooseFile(kSaveAs, app.Path("b.cpp"));
    app.AnswerSystemQuestion(Answer::No);
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "precious");
    app.CancelFile(kSaveAs);
    app.Finish();
    app.Start(CM_SAVE_FILE_AS);
    app.ChooseFile(kSaveAs, app.Path("b.cpp"));
    app.AnswerSystemQuestion(Answer::Yes);
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "text");
}

TEST_F(EditorTest, AFileThatCannotBeWrittenIsNotSaved) {
    App& app = RunWith("a.cpp", "text");
    const LockedFile lock(app.Path("a.cpp"));
    app.Type("more ");
    app.Start(CM_SAVE_FILE);
    app.ExpectBox("No Va be", "");
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "text");
    EXPECT_TRUE(Modified(app));
    EXPECT_EQ(app.EditorText(), "more text");
}

TEST_F(EditorTest, AFolderThatIsGoneIsReported) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        MakeFolders(work.Path("sub"));
        PutFile(work.Path("sub\\a.cpp"), "text");
    });
    app.CommandWithFile(CM_OPEN_FILE, kOpen, app.Path("sub\\a.cpp"));
    DeleteFileA(app.Path("sub\\a.cpp").c_str());
    // The file dialog may have made it the program's current folder, which cannot be removed.
    MoveFileA(app.Path("sub").c_str(), app.Path("moved").c_str());
    app.Start(CM_SAVE_FILE);
    app.ExpectBox("No Va be", "");
    app.ExpectError("No such file or directory");
    app.Finish();
}

TEST_F(EditorTest, AFolderInPlaceOfTheFileIsReported) {
    App& app = RunWith("a.cpp", "text");
    DeleteFileA(app.Path("a.cpp").c_str());
    MakeFolders(app.Path("a.cpp"));
    app.Start(CM_SAVE_FILE);
    app.ExpectBox("No Va be", "");
    app.ExpectError("Permison denied");
    app.Finish();
}

TEST_F(EditorTest, SaveAsReportsOnlyTheReason) {
    App& app = RunWith("a.cpp", "text");
    PutFile(app.Path("b.cpp"), "precious");
    const LockedFile lock(app.Path("b.cpp"));
    app.Type("x");
    app.Start(CM_SAVE_FILE_AS);
    app.ChooseFile(kSaveAs, app.Path("b.cpp"));
    app.AnswerSystemQuestion(Answer::Yes);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "precious");
    EXPECT_TRUE(Modified(app));
}

TEST_F(EditorTest, AnUnchangedTextClosesWithoutAQuestion) {
    App& app = RunWith("a.cpp", "text");
    app.Command(CM_CLOSE_FILE);
    EXPECT_FALSE(app.HasChild(kEditor));
}

TEST_F(EditorTest, ClosingWithNoDropsTheChanges) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::No);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kEditor));
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "text");
}

TEST_F(EditorTest, ClosingWithCancelKeepsTheEditor) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.EditorText(), "xtext");
    EXPECT_TRUE(Modified(app));
}

TEST_F(EditorTest, ClosingWithYesSaves) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::Yes);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kEditor));
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xtext");
}

TEST_F(EditorTest, ClosingAnUntitledTextWithYesAsksForAName) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("text");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::Yes);
    app.ChooseFile(kSaveAs, app.Path("named.cpp"));
    app.Finish();
    EXPECT_FALSE(app.HasChild(kEditor));
    EXPECT_EQ(FileContent(app.Path("named.cpp")), "text");
}

TEST_F(EditorTest, ACancelledNameStillCloses) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("text");
    app.Start(CM_CLOSE_FILE);
    Ask(app, Answer::Yes);
    app.CancelFile(kSaveAs);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kEditor));
}

TEST_F(EditorTest, TheCloseBoxAsksTheSame) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.StartClose(app.Child(kEditor));
    Ask(app, Answer::Cancel);
    app.Finish();
    EXPECT_TRUE(app.HasChild(kEditor));
    app.StartClose(app.Child(kEditor));
    Ask(app, Answer::Yes);
    app.Finish();
    EXPECT_FALSE(app.HasChild(kEditor));
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xtext");
}

TEST_F(EditorTest, CloseFileWithoutAnyWindowWarns) {
    App& app = Run();
    app.Start(CM_CLOSE_FILE);
    EXPECT_EQ(app.ExpectBox("There is no File Open", "WARNING", Buttons::Ok, Icon::Stop).owner,
              nullptr);
    app.Finish();
}

TEST_F(EditorTest, CloseFileWithOnlyTheProjectWarns) {
    App& app = Run();
    app.Command(CM_NEW_MORV);
    app.Start(CM_CLOSE_FILE);
    app.ExpectError("There is no File Open");
    app.Finish();
    EXPECT_TRUE(app.HasChild(kProject));
}

TEST_F(EditorTest, CloseFileWithProjectAndSystemEnds) {
    App& app = Run();
    app.Command(CM_NEW_MORV);
    app.Command(CM_NEW_SYSTEM);
    app.Start(CM_CLOSE_FILE);
    app.ExpectError("There is no File Open");
    app.Finish();
    EXPECT_TRUE(app.HasChild(kProject));
    EXPECT_TRUE(app.HasChild(kSystem));
}

TEST_F(EditorTest, CloseFileReachesTheEditorBehindTheProject) {
    App& app = RunWith("a.cpp", "text");
    app.Command(CM_NEW_MORV);
    app.Activate(app.Child(kProject));
    app.Command(CM_CLOSE_FILE);
    EXPECT_FALSE(app.HasChild(kEditor));
    EXPECT_TRUE(app.HasChild(kProject));
}

TEST_F(EditorTest, ExitWithYesSavesTheText) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_EXIT);
    Ask(app, Answer::Yes);
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xtext");
}

TEST_F(EditorTest, ExitWithYesAsksForANameWhenUntitled) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Type("text");
    app.Start(CM_EXIT);
    Ask(app, Answer::Yes);
    app.ChooseFile(kSaveAs, app.Path("named.cpp"));
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(FileContent(app.Path("named.cpp")), "text");
}

TEST_F(EditorTest, ExitWithNoDropsTheText) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_EXIT);
    Ask(app, Answer::No);
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "text");
}

TEST_F(EditorTest, ExitWithCancelKeepsTheProgram) {
    App& app = RunWith("a.cpp", "text");
    app.Type("x");
    app.Start(CM_EXIT);
    Ask(app, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(app.EditorText(), "xtext");
    app.Command(CM_SAVE_FILE);
    EXPECT_EQ(app.Exit(), 0u);
}

TEST_F(EditorTest, ExitAsksForEveryChangedText) {
    App& app = Run();
    for (const char* name : {"a.cpp", "b.cpp"}) {
        PutFile(app.Path(name), name);
        app.CommandWithFile(CM_OPEN_FILE, kOpen, app.Path(name));
        app.Type("x");
    }
    app.Start(CM_EXIT);
    Ask(app, Answer::Yes);
    Ask(app, Answer::Yes);
    EXPECT_EQ(app.Farewell(), 0u);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xa.cpp");
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "xb.cpp");
}

TEST_F(EditorTest, AFailedSaveAtExitIsReported) {
    App& app = RunWith("a.cpp", "text");
    const LockedFile lock(app.Path("a.cpp"));
    app.Type("x");
    app.Start(CM_EXIT);
    Ask(app, Answer::Yes);
    app.ExpectError("Permison denied");
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "text");
    // Program and text are still there.
    EXPECT_TRUE(IsWindow(app.Frame()));
    EXPECT_EQ(app.EditorText(), "xtext");
    EXPECT_TRUE(Modified(app));
}

} // namespace

} // namespace gui
