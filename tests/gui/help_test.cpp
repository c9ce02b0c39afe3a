// The help file, and the guide beside the program in the browser, for which a program stands in
// that notes its start.
#include "tests/gui/driver/input.h"
#include "tests/gui/foreign_folder.h"
#include "tests/gui/gui_test.h"

#include <set>

namespace gui {

namespace {

// Makes a program the one that opens pages.
class Browser {
public:
    explicit Browser(const std::string& program) {
        SetKey(".html", "zentrik-test-page");
        SetKey("zentrik-test-page\\shell\\open\\command", "\"" + program + "\" \"%1\"");
    }
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    ~Browser() {
        RegDeleteTreeA(HKEY_CLASSES_ROOT, ".html");
        RegDeleteTreeA(HKEY_CLASSES_ROOT, "zentrik-test-page");
    }

private:
    static void SetKey(const std::string& key, const std::string& value) {
        ASSERT_EQ(RegSetKeyValueA(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                                  static_cast<DWORD>(value.size() + 1)),
                  ERROR_SUCCESS);
    }
};

// With the name that the program has: zentrik98.exe sees Windows 98.
class HelpTest : public testing::TestWithParam<const char*> {
protected:
    HelpTest() {
        MakeFolders(work_.Path("bin\\help"));
        CopyTo(BinFolder() + "\\zentrik.exe", Exe());
        CopyTo(OwnFolder() + "\\record_args.exe", work_.Path("browser.exe"));
        for (const char* page : {"index", "words", "the-runtime-and-the-compiler"})
            PutFile(Page(page), "");
    }

    std::string Exe() const { return work_.Path(std::string("bin\\") + GetParam()); }
    std::string Page(const std::string& name) const {
        return work_.Path("bin\\help\\" + name + ".html");
    }

    // Waits until the browser was started, with this page.
    void ExpectPage(App& app, const std::string& name) const {
        const std::string started = work_.Path("browser.args");
        app.Process().WaitFor("the browser", [&] { return FileExists(started); });
        EXPECT_NE(FileContent(started).find("\"" + Page(name) + "\""), std::string::npos)
            << FileContent(started);
        ASSERT_TRUE(DeleteFileA(started.c_str()));
    }

    const WorkFolder work_;
    const Browser browser_{work_.Path("browser.exe")};
};

TEST_P(HelpTest, TheGuideOpensInTheBrowser) {
    Program program(Exe(), work_.Folder());
    App app(program);
    app.Command(CM_HELP_CONTENTS);
    ExpectPage(app, "index");
    app.Command(CM_HELP_INDEX);
    ExpectPage(app, "words");
    app.Start(CM_TOOLS);
    Dialog tools = app.WaitDialog("Compile Tools");
    tools.Click(TOOL_HELP);
    ExpectPage(app, "the-runtime-and-the-compiler");
    program.WaitFor("the focus in the dialog", [&] {
        // The browser that ends may take it away again.
        if (GetForegroundWindow() != tools.Window())
            SetForegroundWindow(tools.Window());
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(program.ThreadId(), &info) &&
               IsChild(tools.Window(), info.hwndFocus);
    });
    Key(VK_F1);
    ExpectPage(app, "the-runtime-and-the-compiler");
    tools.Click(IDCANCEL);
    app.Finish();
    app.Exit();
}

// As in the profile of a user whose name has such a letter.
TEST_P(HelpTest, TheGuideOpensBesideAProgramWhoseFolderHasALetterOutsideTheCodePage) {
    const ForeignFolder folder(work_);
    CopyTo(Exe(), GetParam());
    MakeFolders("help");
    PutFile("help\\index.html", "");
    ASSERT_TRUE(DeleteFileA(Page("index").c_str()));
    Program program(GetParam(), work_.Folder());
    App app(program);
    app.Command(CM_HELP_CONTENTS);
    const std::string started = work_.Path("browser.args");
    program.WaitFor("the browser", [&] { return FileExists(started); });
    EXPECT_NE(FileContent(started).find("\\help\\index.html\""), std::string::npos)
        << FileContent(started);
    app.Exit();
}

BOOL CALLBACK TakeVisible(HWND window, LPARAM windows) {
    if (IsWindowVisible(window))
        reinterpret_cast<std::set<HWND>*>(windows)->insert(window);
    return TRUE;
}

// The windows of all programs.
std::set<HWND> AllWindows() {
    std::set<HWND> windows;
    EnumWindows(TakeVisible, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

// The help file here is none, which its viewer, another program, says in a box.
TEST_P(HelpTest, TheHelpFileOfTheWorkFolderComesFirst) {
    PutFile(work_.Path("zkhelp.hlp"), "");
    Program program(Exe(), work_.Folder());
    App app(program);
    const std::set<HWND> before = AllWindows();
    app.Start(CM_HELP_CONTENTS);
    HWND viewer = nullptr;
    program.WaitFor("the viewer of help files", [&] {
        for (HWND window : AllWindows()) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (!before.contains(window) && process != program.ProcessId())
                viewer = window;
        }
        return viewer != nullptr;
    });
    EXPECT_FALSE(FileExists(work_.Path("browser.args")));
    PostMessageA(viewer, WM_CLOSE, 0, 0);
    app.Finish();
    app.Exit();
}

INSTANTIATE_TEST_SUITE_P(Kinds, HelpTest, testing::Values("zentrik.exe", "zentrik98.exe"));

} // namespace

} // namespace gui
