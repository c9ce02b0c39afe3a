// What the help viewer is asked for.
#include "dialog_test.h"
#include "frame_window.h"
#include "tests/core/core_test.h"

#include "build/tools.h"
#include "shell/services/editor.h"
#include "shell/services/find_text.h"
#include "shell/services/guide.h"
#include "shell/services/help.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

namespace {

using namespace zentrik_test;

// What one call of the system's help function tells the viewer.
struct Request {
    WORD size;
    WORD command;
    LONG data;
    LONG reserved;
    WORD file_at; // offset of the file's name
    WORD data_at;
};

// Stands in for the viewer: the system's help function finds it by its class.
class Viewer {
public:
    Viewer() {
        RegisterTestClass("MS_WINHELP", Receive);
        hwnd_ = CreateWindowExA(0, "MS_WINHELP", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, hInst,
                                nullptr);
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;
    ~Viewer() { DestroyWindow(hwnd_); }

    static inline HWND asker;
    static inline Request request;
    static inline std::string file;

private:
    static LRESULT CALLBACK Receive(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_COPYDATA)
            return DefWindowProcA(hwnd, message, wParam, lParam);
        const auto* copied = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto* bytes = static_cast<const char*>(copied->lpData);
        asker = reinterpret_cast<HWND>(wParam);
        request = *reinterpret_cast<const Request*>(bytes);
        file = bytes + request.file_at;
        return TRUE;
    }

    HWND hwnd_;
};

// A guide with some pages, and no browser: what would be opened is noted.
class Guide {
public:
    explicit Guide(const std::string& folder, bool opens = true)
        : before_(SetGuidePlace({folder, [this, opens](HWND owner, const std::string& file) {
                                     owners.push_back(owner);
                                     opened.push_back(file);
                                     return opens;
                                 }})) {}
    Guide(const Guide&) = delete;
    Guide& operator=(const Guide&) = delete;
    ~Guide() { SetGuidePlace(std::move(before_)); }

    std::vector<HWND> owners;
    std::vector<std::string> opened;

private:
    GuidePlace before_;
};

class HelpTest : public testing::Test {
protected:
    HelpTest() {
        Viewer::asker = nullptr;
        SetText(WorkPath, "C:\\somewhere");
    }
    ~HelpTest() override { SetText(WorkPath, ""); }

    static void ExpectAsked(HWND asker, WORD command, LONG data,
                            const std::string& folder = "C:\\somewhere") {
        EXPECT_EQ(Viewer::asker, asker);
        EXPECT_EQ(Viewer::request.command, command);
        EXPECT_EQ(Viewer::request.data, data);
        EXPECT_EQ(Viewer::file, folder + "\\zkhelp.hlp");
    }

    // Puts pages into the passing folder and returns it.
    std::string PutPages(const std::vector<std::string>& names) const {
        for (const std::string& name : names)
            files_.Put(name + ".html", "");
        return Folder();
    }
    std::string Folder() const {
        const std::string path = files_.Path("x");
        return path.substr(0, path.size() - 2);
    }

    // Opens the tools, does something there, and returns their window.
    static HWND InTools(const std::function<void(const DialogHandle&)>& act) {
        HWND tools = nullptr;
        DialogSteps steps;
        steps.When("Compile Tools", [&](const DialogHandle& dialog) {
            tools = dialog.Window();
            act(dialog);
            dialog.Press(IDCANCEL);
        });
        CompileTools(hFrame);
        return tools;
    }

    static void PressHelp(const DialogHandle& dialog) { dialog.Press(TOOL_HELP); }
    // As the window system does it for the control that has the keyboard.
    static void PressF1(const DialogHandle& dialog) {
        HELPINFO info{};
        info.cbSize = sizeof info;
        info.iContextType = HELPINFO_WINDOW;
        info.iCtrlId = TOOL_COMPILER_PATH;
        info.hItemHandle = dialog.Item(TOOL_COMPILER_PATH);
        SendMessageA(dialog.Item(TOOL_COMPILER_PATH), WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    }

    TempFolder files_;
    FrameWindow frame_;
    const Viewer viewer_;
};

TEST_F(HelpTest, ContentsAndIndexAreAskedForTheFrame) {
    ContentsHelp(hFrame);
    ExpectAsked(hFrame, HELP_CONTENTS, 1);
    IndexHelp(hFrame);
    ExpectAsked(hFrame, HELP_CONTEXT, 110);
}

TEST_F(HelpTest, TheCompilerToolsHaveATopicOfTheirOwn) {
    const HWND tools = InTools(PressHelp);
    ExpectAsked(tools, HELP_CONTEXT, 93);
}

TEST_F(HelpTest, TheGuideStandsInForTheHelpFile) {
    const Guide guide(PutPages({"index", "words", "the-runtime-and-the-compiler"}));
    ContentsHelp(hFrame);
    IndexHelp(hFrame);
    const HWND tools = InTools(PressHelp);
    EXPECT_EQ(guide.opened,
              (std::vector<std::string>{files_.Path("index.html"), files_.Path("words.html"),
                                        files_.Path("the-runtime-and-the-compiler.html")}));
    EXPECT_EQ(guide.owners, (std::vector<HWND>{hFrame, hFrame, tools}));
    EXPECT_EQ(Viewer::asker, nullptr);
}

TEST_F(HelpTest, AHelpFileGoesBeforeTheGuide) {
    const Guide guide(PutPages({"index", "words"}));
    files_.Put("zkhelp.hlp", "");
    SetText(WorkPath, Folder());
    ContentsHelp(hFrame);
    ExpectAsked(hFrame, HELP_CONTENTS, 1, Folder());
    IndexHelp(hFrame);
    ExpectAsked(hFrame, HELP_CONTEXT, 110, Folder());
    EXPECT_TRUE(guide.opened.empty());
}

TEST_F(HelpTest, APageThatIsMissingOrThatNothingOpensIsNoHelp) {
    {
        const Guide guide(PutPages({"words"}));
        ContentsHelp(hFrame);
        ExpectAsked(hFrame, HELP_CONTENTS, 1);
        EXPECT_TRUE(guide.opened.empty());
    }
    const Guide guide(Folder(), false);
    IndexHelp(hFrame);
    ExpectAsked(hFrame, HELP_CONTEXT, 110);
    EXPECT_EQ(guide.opened.size(), 1u);
}

TEST_F(HelpTest, F1OpensThePageOfTheDialog) {
    const Guide guide(PutPages({"index", "the-runtime-and-the-compiler"}));
    HWND tools = InTools(PressF1);
    EXPECT_EQ(guide.opened,
              std::vector<std::string>{files_.Path("the-runtime-and-the-compiler.html")});
    EXPECT_EQ(guide.owners, std::vector<HWND>{tools});
    DialogSteps steps;
    steps.When("About Zentrik", [](const DialogHandle& dialog) {
        SendMessageA(dialog.Window(), WM_HELP, 0, 0);
        dialog.Press(IDOK);
    });
    AboutZentrik(hFrame);
    EXPECT_EQ(guide.opened.back(), files_.Path("index.html"));
}

TEST_F(HelpTest, F1OpensThePageOfTheSystemsDialogsForFinding) {
    const Guide guide(PutPages({"rules"}));
    OpenEdit("untitled");
    AskWhatToFind(TextHwnd());
    const HWND find = FindWindowA("#32770", "Find");
    SendMessageA(find, WM_HELP, 0, 0);
    AskWhatToReplace(TextHwnd());
    const HWND replace = FindWindowA("#32770", "Replace");
    SendMessageA(replace, WM_HELP, 0, 0);
    EXPECT_EQ(guide.opened, std::vector<std::string>(2, files_.Path("rules.html")));
    EXPECT_EQ(guide.owners, (std::vector<HWND>{find, replace}));
    EditState = 0;
}

TEST_F(HelpTest, F1WithoutAGuideDoesNothing) {
    const Guide guide(Folder());
    InTools(PressF1);
    EXPECT_TRUE(guide.opened.empty());
    EXPECT_EQ(Viewer::asker, nullptr);
}

} // namespace
