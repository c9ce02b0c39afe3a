// What the help viewer is asked for.
#include "dialog_test.h"
#include "frame_window.h"

#include "build/tools.h"
#include "shell/services/help.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

namespace {

using zentrik_test::DialogHandle;
using zentrik_test::DialogSteps;
using zentrik_test::FrameWindow;
using zentrik_test::RegisterTestClass;

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

class HelpTest : public testing::Test {
protected:
    HelpTest() { SetText(WorkPath, "C:\\somewhere"); }
    ~HelpTest() override { SetText(WorkPath, ""); }

    static void ExpectAsked(HWND asker, WORD command, LONG data) {
        EXPECT_EQ(Viewer::asker, asker);
        EXPECT_EQ(Viewer::request.command, command);
        EXPECT_EQ(Viewer::request.data, data);
        EXPECT_EQ(Viewer::file, "C:\\somewhere\\zkhelp.hlp");
    }

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
    HWND tools = nullptr;
    DialogSteps steps;
    steps.When("Compile Tools", [&](const DialogHandle& dialog) {
        tools = dialog.Window();
        dialog.Press(TOOL_HELP);
        dialog.Press(IDCANCEL);
    });
    CompileTools(hFrame);
    ExpectAsked(tools, HELP_CONTEXT, 93);
}

} // namespace
