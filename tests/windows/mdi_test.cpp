#include "../core/core_test.h"
#include "frame_window.h"

#include "shell/services/editor.h"
#include "shell/services/menu.h"
#include "shell/services/ZENTRIK.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::FrameWindow;

std::string ClassOf(HWND hwnd) {
    char name[32] = "";
    GetClassNameA(hwnd, name, sizeof name);
    return name;
}

TEST(Mdi, WithoutWindowsThereIsNoTopmostChild) {
    EXPECT_EQ(TopChild(nullptr), nullptr);
    FrameWindow frame;
    EXPECT_EQ(GetMdi(), nullptr);
    EXPECT_EQ(TextHwnd(), nullptr);
    HWND edit = hFrame;
    EXPECT_EQ(TextState(edit), 0);
    EXPECT_EQ(edit, nullptr);
}

TEST(Mdi, EditorsAreNumberedAndEveryDestroyTakesOneBack) {
    FrameWindow frame;
    const HWND first = CrearMdiCh("Main", "a");
    const HWND second = CrearMdiCh("Main", "b");
    EXPECT_EQ(GetDlgCtrlID(TopChild(first)), 50);
    EXPECT_EQ(GetDlgCtrlID(TopChild(second)), 51);
    EXPECT_EQ(GetMdi(), second);
    EXPECT_EQ(GetFrame(), hFrame);
    const HWND project = CrearMdiCh("Projec", "MORV Project");
    DestroyMdiCh(project);
    EXPECT_FALSE(IsWindow(project));
    const HWND third = CrearMdiCh("Main", "c");
    EXPECT_EQ(GetDlgCtrlID(TopChild(third)), 51);
}

TEST(Mdi, DestroyingAChildThatIsGoneOnlyCounts) {
    FrameWindow frame;
    CrearMdiCh("Main", "a");
    const HWND gone = CrearMdiCh("Message", "Debug Errors");
    SendMessageA(gone, WM_SYSCOMMAND, SC_CLOSE, 0);
    const HWND second = CrearMdiCh("Main", "b");
    SendMessageA(hMdiC, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(second), 0);
    const int number = EDC_ID;
    EXPECT_EQ(DestroyMdiCh(gone), 0);
    EXPECT_EQ(EDC_ID, number - 1);
    EXPECT_EQ(GetMdi(), second);
    EXPECT_TRUE(IsZoomed(second));
}

TEST(Mdi, DestroyingAChildActivatesTheNext) {
    FrameWindow frame;
    const HWND first = CrearMdiCh("Main", "a");
    const HWND second = CrearMdiCh("Main", "b");
    DestroyMdiCh(second);
    EXPECT_EQ(GetMdi(), first);
}

TEST(Mdi, RestoreBringsAMinimisedChildBack) {
    FrameWindow frame;
    const HWND first = CrearMdiCh("Main", "a");
    CrearMdiCh("Main", "b");
    ShowWindow(first, SW_MINIMIZE);
    RestoreMdiCh(first);
    EXPECT_FALSE(IsIconic(first));
    EXPECT_EQ(GetMdi(), first);
}

TEST(Mdi, TheControlFillsItsChild) {
    FrameWindow frame;
    for (const char* type : {"Main", "Projec", "Dial", "Message"}) {
        const HWND child = CrearMdiCh(type, "child");
        const HWND control = TopChild(child);
        EXPECT_EQ(ClassOf(control), std::string(type) == "Main" ? "Edit" : "ListBox");
        for (int width : {300, 400}) {
            SetWindowPos(child, nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER);
            RECT inside;
            RECT of_control;
            GetClientRect(child, &inside);
            GetWindowRect(control, &of_control);
            EXPECT_EQ(of_control.right - of_control.left, inside.right);
            EXPECT_EQ(of_control.bottom - of_control.top, inside.bottom);
        }
    }
}

TEST(Mdi, ListsKeepTheOrderOfTheirRowsAndTheirHeight) {
    FrameWindow frame;
    for (const char* type : {"Projec", "Dial", "Message"}) {
        const LONG style = GetWindowLongA(TopChild(CrearMdiCh(type, "child")), GWL_STYLE);
        constexpr LONG kWanted = LBS_NOTIFY | LBS_HASSTRINGS | LBS_USETABSTOPS |
                                 LBS_NOINTEGRALHEIGHT | WS_CHILD | WS_VISIBLE;
        EXPECT_EQ(style & kWanted, kWanted) << type;
        EXPECT_EQ(style & LBS_SORT, 0) << type;
    }
}

TEST(Mdi, TheFocusGoesToTheTextOfTheEditorThatHasIt) {
    FrameWindow frame;
    const HWND first = CrearMdiCh("Main", "a");
    CrearMdiCh("Main", "b");
    SendMessageA(first, WM_SETFOCUS, 0, 0);
    EXPECT_EQ(GetFocus(), TopChild(first));
}

TEST(Mdi, AListWithoutRoomForMoreTextSaysSo) {
    FrameWindow frame;
    for (const char* type : {"Projec", "Dial"}) {
        const HWND child = CrearMdiCh(type, "child");
        Boxes boxes;
        SendMessageA(child, WM_COMMAND, MAKEWPARAM(0, 0x500), 0);
        EXPECT_EQ(boxes.shown, std::vector<std::string>{"Edit: Text Memory excided"}) << type;
        EXPECT_EQ(boxes.messages.at(0).owner, hMdiC);
    }
}

TEST(Mdi, ListWindowsAreAStripAtTheBottom) {
    FrameWindow frame;
    RECT desktop;
    GetWindowRect(GetDesktopWindow(), &desktop);
    for (const char* type : {"Projec", "Dial", "Message"}) {
        const HWND child = CrearMdiCh(type, "child");
        RECT at;
        GetWindowRect(child, &at);
        POINT origin{0, 0};
        ClientToScreen(hMdiC, &origin);
        EXPECT_EQ(at.right - at.left, desktop.right - desktop.left) << type;
        EXPECT_EQ(at.bottom - at.top, 156) << type;
        EXPECT_EQ(at.top - origin.y, desktop.bottom - 230) << type;
    }
}

TEST(Mdi, TheMenuFollowsActivationByTheOlderConvention) {
    FrameWindow frame;
    const HWND project = CrearMdiCh("Projec", "MORV Project");
    nt = 0;
    SendMessageA(project, WM_MDIACTIVATE, 0, 0x12340000);
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_MORV));
    EXPECT_TRUE(FrameWindow::IsGray(CM_REMOVE_ITEM));
    SendMessageA(project, WM_MDIACTIVATE, 1, 0);
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_MORV));
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM));
}

TEST(Mdi, OnWindowsNtTheMenuIsNotTouched) {
    FrameWindow frame;
    nt = 1;
    const HWND editor = CrearMdiCh("Main", "a");
    const HWND system = CrearMdiCh("Dial", "System");
    SendMessageA(system, WM_MDIACTIVATE, 0, 0x12340000);
    SendMessageA(editor, WM_MDIACTIVATE, 0, 0x12340000);
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_FILE));
    GrayMenu(hFrame, 7);
    SendMessageA(editor, WM_MDIACTIVATE, 1, 0);
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_FILE));
}

TEST(Mdi, OnWindowsNtTheCreationOfAnEditorEnablesItsItems) {
    FrameWindow frame;
    nt = 1;
    GrayMenu(hFrame, 7);
    CrearMdiCh("Main", "a");
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_FILE));
}

TEST(Mdi, TheMessagesWindowClosesByItsCloseBox) {
    FrameWindow frame;
    const HWND messages = CrearMdiCh("Message", "Debug Errors");
    SendMessageA(messages, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_FALSE(IsWindow(messages));
}

} // namespace
