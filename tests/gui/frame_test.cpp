// The frame: start, title, layout, edit and window commands, and the end of the program.
#include "tests/gui/gui_test.h"

#include "build/core/tools_file.h"
#include "tests/gui/foreign_folder.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

class FrameTest : public GuiTest {
protected:
    static RECT ClientPlace(const App& app) { return PlaceIn(app.Frame(), app.Client()); }

    static bool IsLaidOut(const App& app) {
        RECT desktop{};
        GetWindowRect(GetDesktopWindow(), &desktop);
        const RECT client = ClientPlace(app);
        return client.left == desktop.left && client.top == desktop.top + 34 &&
               client.right - client.left == desktop.right - desktop.left &&
               client.bottom - client.top == desktop.bottom - (desktop.top + 73);
    }

    // Opens two editors and returns them, the older one first.
    static std::vector<HWND> TwoEditors(App& app) {
        app.Command(CM_NEW_FILE);
        app.Command(CM_NEW_FILE);
        const std::vector<HWND> editors = app.Children(kEditor);
        return {editors.at(1), editors.at(0)};
    }

    static RECT Place(HWND hwnd) {
        RECT place{};
        GetWindowRect(hwnd, &place);
        return place;
    }
};

std::vector<std::string> StaticTexts(HWND dialog) {
    std::vector<std::string> texts;
    for (HWND child : ChildrenOf(dialog))
        if (ClassOf(child) == "Static")
            texts.push_back(TextOf(child));
    return texts;
}

// Windows stretches the windows of a program that does not say that it knows the screen's
// resolution, and takes one that does not say so for an installer that needs more rights.
TEST_F(FrameTest, TheManifestAsksForNoMoreThanItNeeds) {
    const HMODULE program =
        LoadLibraryExA((BinFolder() + "\\zentrik.exe").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(program, nullptr);
    const HRSRC found = FindResourceA(program, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(24));
    ASSERT_NE(found, nullptr);
    const std::string manifest(static_cast<const char*>(LockResource(LoadResource(program, found))),
                               SizeofResource(program, found));
    FreeLibrary(program);
    EXPECT_NE(manifest.find("level=\"asInvoker\""), manifest.npos);
    EXPECT_NE(manifest.find("WindowsSettings\">true</dpiAware>"), manifest.npos);
    EXPECT_EQ(manifest.find("Common-Controls"), manifest.npos); // no visual styles
}

TEST_F(FrameTest, ShowsTheAboutBoxBeforeItCanBeUsed) {
    WorkFolder work;
    CopyTo(BinFolder() + "\\zentrik.exe", work.Path("zentrik.exe"));
    Program program(work.Path("zentrik.exe"), work.Folder());
    HWND about = nullptr;
    program.WaitFor("the About box", [&] {
        const auto dialogs = Dialogs(program);
        about = dialogs.empty() ? nullptr : dialogs.front();
        return about != nullptr;
    });
    EXPECT_EQ(TextOf(about), "About Zentrik");
    HWND frame = GetWindow(about, GW_OWNER);
    ASSERT_EQ(ClassOf(frame), "ZentrikWin");
    EXPECT_FALSE(IsWindowEnabled(frame));
    // The work folder is ready by then.
    EXPECT_TRUE(FileExists(work.Path("temp")));
    PostMessageA(about, WM_COMMAND, IDOK, 0);
    program.WaitFor("a usable frame", [&] { return IsWindowEnabled(frame) && !IsWindow(about); });
}

TEST_F(FrameTest, TheAboutBoxNamesTheProgram) {
    App& app = Run();
    app.Start(CM_ABOUT);
    Dialog about = app.WaitDialog("About Zentrik");
    EXPECT_EQ(GetWindow(about.Window(), GW_OWNER), app.Frame());
    const auto texts = StaticTexts(about.Window());
    EXPECT_NE(std::find(texts.begin(), texts.end(), "Zentrik"), texts.end());
    EXPECT_NE(std::find(texts.begin(), texts.end(), "Version 2.0a"), texts.end());
    EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
        return text.find("1999") != std::string::npos;
    }));
    EXPECT_EQ(about.Text(IDOK), "OK");
    about.Click(IDOK);
    app.Finish();
    app.Start(CM_ABOUT);
    app.WaitDialog("About Zentrik").Close();
    app.Finish();
}

TEST_F(FrameTest, IsMaximisedAndTitled) {
    App& app = Run();
    EXPECT_EQ(TextOf(app.Frame()), "Zentrik 2.0a");
    EXPECT_TRUE(IsZoomed(app.Frame()));
    EXPECT_EQ(ClassOf(app.Frame()), "ZentrikWin");
}

TEST_F(FrameTest, EveryDocumentHasItsClass) {
    App& app = Run(Kind::Win98);
    app.Command(CM_NEW_MORV);
    app.Command(CM_NEW_SYSTEM);
    app.Command(CM_NEW_FILE);
    app.Start(CM_DEBUG);
    Dialog debug = app.WaitDialog("Debug");
    debug.Press(DEBUG_START);
    app.ExpectBox("Debug Finalitzat", "Debug");
    app.Finish();
    app.Finish();
    EXPECT_EQ(TextOf(app.Child("Projec")), "MORV Project");
    EXPECT_EQ(TextOf(app.Child("Dial")), "System");
    EXPECT_EQ(TextOf(app.Child("Main")), "untitled");
    EXPECT_EQ(TextOf(app.Child("Message")), "Debug Errors");
    const auto parts = ChildrenOf(app.Frame());
    EXPECT_TRUE(std::any_of(parts.begin(), parts.end(),
                            [](HWND part) { return ClassOf(part) == "Buttons"; }));
}

TEST_F(FrameTest, TheClientStartsBelowTheToolbarBandOnBothPlatforms) {
    for (Kind kind : {Kind::Nt, Kind::Win98}) {
        App& app = Run(kind);
        EXPECT_TRUE(IsLaidOut(app)) << "top " << ClientPlace(app).top;
    }
}

TEST_F(FrameTest, SizingFillsTheFrameUntilTheNextPaint) {
    App& app = Run();
    // A hidden frame is not painted.
    ShowWindow(app.Frame(), SW_HIDE);
    app.Process().Send(app.Frame(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(640, 480));
    const RECT filled = ClientPlace(app);
    EXPECT_EQ(filled.left, 0);
    EXPECT_EQ(filled.top, 0);
    EXPECT_EQ(filled.right, 640);
    EXPECT_EQ(filled.bottom, 480);
    ShowWindow(app.Frame(), SW_SHOW);
    app.Process().WaitFor("the layout of the paint", [&] { return IsLaidOut(app); });
}

TEST_F(FrameTest, ExitShowsTheOwnershipNoticeThenTheGroup) {
    App& app = Run();
    app.Start(CM_EXIT);
    const Box notice = app.WaitBox("Zentrik");
    EXPECT_NE(notice.text.find("1999"), std::string::npos);
    EXPECT_EQ(notice.owner, nullptr);
    app.Press(notice);
    app.Finish();
    const Box group = app.WaitBox("Zentrik");
    EXPECT_NE(group.text, notice.text);
    EXPECT_FALSE(group.text.empty());
    EXPECT_EQ(group.owner, nullptr);
    EXPECT_FALSE(IsWindow(app.Frame()));
    app.Press(group);
    EXPECT_EQ(app.Process().ExitCode(), 0u);
}

TEST_F(FrameTest, TheCloseBoxExitsToo) {
    App& app = Run();
    app.Process().Start(app.Frame(), WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_EQ(app.Farewell(), 0u);
}

TEST_F(FrameTest, OtherCommandNumbersDoNothing) {
    App& app = Run();
    const auto before = app.Process().Windows();
    for (int id : {0, 1, 99, 152, 499, 500, 600, 603, 0x7FFF, 0xFFFF})
        app.Command(id);
    EXPECT_EQ(app.Process().Windows(), before);
    EXPECT_TRUE(app.Children().empty());
    app.Command(CM_NEW_MORV);
    EXPECT_TRUE(app.HasChild(kProject));
}

TEST_F(FrameTest, UndoWithNothingToUndoSaysSo) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    app.Start(CM_UNDO);
    app.ExpectBox("Nothing to undo.", "Undo notification");
    app.Finish();
    app.Type("abc");
    app.Command(CM_UNDO);
    EXPECT_EQ(app.EditorText(), "");
}

TEST_F(FrameTest, EditCommandsWithoutAnEditorDoNoHarm) {
    App& app = Run();
    for (int id : {CM_CUT, CM_COPY, CM_PASTE})
        app.Command(id);
    app.Command(CM_NEW_MORV);
    for (int id : {CM_CUT, CM_COPY, CM_PASTE})
        app.Command(id);
    EXPECT_EQ(app.Rows(kProject), (TextRows{"MORVName", "\tuntitled.mrv"}));
}

TEST_F(FrameTest, TextMovesBetweenEditors) {
    App& app = Run();
    const auto editors = TwoEditors(app);
    app.Type("copied text");
    app.Process().Send(app.Inner(kEditor), EM_SETSEL, 0, 6);
    app.Command(CM_COPY);
    EXPECT_EQ(app.EditorText(), "copied text");
    app.Activate(editors[0]);
    app.Command(CM_PASTE);
    EXPECT_EQ(app.EditorText(), "copied");
    app.Activate(editors[1]);
    app.Process().Send(app.Inner(kEditor), EM_SETSEL, 6, 11);
    app.Command(CM_CUT);
    EXPECT_EQ(app.EditorText(), "copied");
    app.Activate(editors[0]);
    app.Command(CM_PASTE);
    EXPECT_EQ(app.EditorText(), "copied text");
}

TEST_F(FrameTest, TilesAndCascades) {
    App& app = Run();
    const auto editors = TwoEditors(app);
    app.Command(CM_TILE_HORIZONTAL);
    EXPECT_EQ(Place(editors[0]).left, Place(editors[1]).left);
    EXPECT_NE(Place(editors[0]).top, Place(editors[1]).top);
    app.Command(CM_TILE_VERTICAL);
    EXPECT_EQ(Place(editors[0]).top, Place(editors[1]).top);
    EXPECT_NE(Place(editors[0]).left, Place(editors[1]).left);
    app.Command(CM_CASCADE);
    EXPECT_NE(Place(editors[0]).top, Place(editors[1]).top);
    EXPECT_NE(Place(editors[0]).left, Place(editors[1]).left);
}

TEST_F(FrameTest, ArrangesIcons) {
    App& app = Run();
    const auto editors = TwoEditors(app);
    for (HWND editor : editors)
        app.Process().Send(editor, WM_SYSCOMMAND, SC_MINIMIZE);
    SetWindowPos(editors[0], nullptr, 300, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT before = Place(editors[0]);
    app.Command(CM_ARRANGE_ICONS);
    EXPECT_EQ(Place(editors[0]).top, Place(editors[1]).top);
    EXPECT_NE(Place(editors[0]).top, before.top);
}

TEST_F(FrameTest, EditControlsAreNumberedFrom50) {
    App& app = Run();
    const auto editors = TwoEditors(app);
    EXPECT_EQ(GetDlgCtrlID(TopChildOf(editors[0])), 50);
    EXPECT_EQ(GetDlgCtrlID(TopChildOf(editors[1])), 51);
}

TEST_F(FrameTest, AnyClosedChildLowersTheNextNumber) {
    App& app = Run();
    TwoEditors(app);
    app.Command(CM_CLOSE_FILE);
    app.Command(CM_NEW_FILE);
    EXPECT_EQ(GetDlgCtrlID(app.Inner(kEditor)), 51);
    app.Command(CM_NEW_MORV);
    app.Command(CM_CLOSE_MORV);
    EXPECT_FALSE(app.HasChild(kProject));
    app.Command(CM_NEW_FILE);
    EXPECT_EQ(GetDlgCtrlID(app.Inner(kEditor)), 51);
}

TEST_F(FrameTest, StartsWithAToolsFileOfAnyLength) {
    for (std::size_t size : {0, 254, 1019, 5000}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            PutFile(work.Path("toolfile.tol"), std::string(size, 'x'));
        });
        // Without the file its dialog shows what was read at the start: the whole slots, each cut
        // to leave room for its end.
        DeleteFileA(app.Path("toolfile.tol").c_str());
        app.Start(CM_TOOLS);
        Dialog tools = app.WaitDialog("Compile Tools");
        const auto slot = [&](std::size_t number) {
            return std::string(size >= 255 * number ? 254 : 0, 'x');
        };
        EXPECT_EQ(tools.Text(TOOL_MORV_PATH), slot(1)) << size;
        EXPECT_EQ(tools.Text(TOOL_INCLUDE), slot(3)) << size;
        EXPECT_EQ(tools.Text(TOOL_COMPILER_PATH), slot(4)) << size;
        EXPECT_EQ(tools.Text(TOOL_COMMAND), "");
        tools.Click(IDCANCEL);
        app.Finish();
    }
}

// The files that a program started in the root of drive C: leaves there.
class RootFiles {
public:
    RootFiles() = default;
    RootFiles(const RootFiles&) = delete;
    RootFiles& operator=(const RootFiles&) = delete;
    ~RootFiles() {
        DeleteFileA("C:\\toolfile.tol");
        DeleteFileA("C:\\Ktype.tmp");
        RemoveDirectoryA("C:\\temp");
    }
};

TEST_F(FrameTest, TheRootOfADriveIsAWorkFolderWithoutItsBackslash) {
    const RootFiles files;
    const WorkFolder work;
    PutSampleProject(work);
    PutTools(work, work.Path("zkcc.exe"));
    CopyTo(work.Path("toolfile.tol"), "C:\\toolfile.tol");
    CopyTo(BinFolder() + "\\zentrik.exe", work.Path("zentrik.exe"));
    CopyTo(OwnFolder() + "\\record_args.exe", work.Path("zkcc.exe"));
    Program program(work.Path("zentrik.exe"), "C:\\");
    App app(program);
    EXPECT_TRUE(FileExists("C:\\temp"));
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", work.Path("plant.mrv"));
    app.Command(CM_COMPILE);
    EXPECT_TRUE(FileExists("C:\\Ktype.tmp"));
    const std::string args = work.Path("zkcc.args");
    program.WaitFor("the compiler", [&] { return FileExists(args); });
    const std::string line = FileContent(args).substr(0, FileContent(args).find('\n'));
    EXPECT_TRUE(line.ends_with(" C:\\cc C:")) << line;
}

// With the name that the program has: zentrik98.exe sees Windows 98.
class StartFolderTest : public testing::TestWithParam<const char*> {
protected:
    StartFolderTest() { CopyTo(BinFolder() + "\\zentrik.exe", Exe()); }

    std::string Exe() const { return work_.Path(GetParam()); }

    static void ExpectRefused(const Program& program) {
        std::optional<Box> box;
        program.WaitFor("the box about the folder", [&] {
            for (HWND window : program.Windows())
                if (const auto read = ReadBox(window); read && read->caption == "WARNING")
                    box = read;
            return box.has_value();
        });
        EXPECT_EQ(box->text, "The start folder can not be used");
        EXPECT_EQ(box->buttons, Buttons::Ok);
    }

    const WorkFolder work_;
};

TEST_P(StartFolderTest, ThatIsTooLongIsToldAtOnce) {
    std::string folder = work_.Folder();
    while (folder.size() < 190)
        folder += "\\" + std::string(30, 'f');
    folder += "\\" + std::string(250 - folder.size() - 1, 'g');
    MakeFolders(folder);
    ExpectRefused(Program(Exe(), folder));
}

TEST_P(StartFolderTest, WithALetterOutsideTheCodePageIsToldAtOnce) {
    const ForeignFolder folder(work_);
    ExpectRefused(Program(Exe(), ""));
}

INSTANTIATE_TEST_SUITE_P(Kinds, StartFolderTest, testing::Values("zentrik.exe", "zentrik98.exe"));

TEST_F(FrameTest, OldWorkingCopiesStayWhenTheTempFolderIsNotEmpty) {
    App& app = Run(Kind::Nt, [](const WorkFolder& work) {
        MakeFolders(work.Path("temp"));
        PutFile(work.Path("temp\\old.var"), "old");
    });
    EXPECT_EQ(FileContent(app.Path("temp\\old.var")), "old");
}

} // namespace

} // namespace gui
