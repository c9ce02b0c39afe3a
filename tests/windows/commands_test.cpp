#include "shell/commands.h"

#include "../core/core_test.h"
#include "frame_window.h"
#include "shell/services/editor.h"
#include "shell/services/menu.h"
#include "shell/services/process.h"
#include "shell/services/ZENTRIK.h"
#include "shell/toolbar.h"

#include <set>

namespace {

using zentrik_test::Boxes;
using zentrik_test::FrameWindow;
using zentrik_test::TempFolder;

void RunCommand(int id) {
    for (const Command& command : Commands())
        if (command.id == id)
            command.run(hFrame);
}

TEST(Commands, EveryIdentifierIsThereOnce) {
    std::set<int> ids;
    for (const Command& command : Commands())
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
    EXPECT_EQ(ids.size(), 52u);
    EXPECT_EQ(*ids.begin(), 100);
    EXPECT_EQ(*ids.rbegin(), 151);
}

TEST(Commands, EditCommandsReachTheActiveText) {
    FrameWindow frame;
    nt = 1; // so that only the command changes the menu
    GrayMenu(hFrame, 7);
    RunCommand(CM_NEW_FILE);
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_FILE));
    const HWND edit = TextHwnd();
    Boxes boxes;
    RunCommand(CM_UNDO);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"Undo notification: Nothing to undo."});
    EXPECT_EQ(boxes.messages[0].owner, edit);
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("word"));
    SendMessageA(edit, EM_SETSEL, 0, -1);
    RunCommand(CM_CUT);
    EXPECT_EQ(EditText(edit), "");
    RunCommand(CM_PASTE);
    RunCommand(CM_PASTE);
    EXPECT_EQ(EditText(edit), "wordword");
    RunCommand(CM_UNDO);
    EXPECT_NE(EditText(edit), "wordword");
    EXPECT_EQ(boxes.shown.size(), 1u);
    EditState = 0;
}

TEST(Commands, CloseFileDoesNothingWhileTheRuleEditorHasTheText) {
    FrameWindow frame;
    RunCommand(CM_NEW_FILE);
    EditRule = 1;
    RunCommand(CM_CLOSE_FILE);
    EXPECT_NE(GetMdi(), nullptr);
    EditRule = 0;
    RunCommand(CM_CLOSE_FILE);
    EXPECT_EQ(GetMdi(), nullptr);
}

// While it lives, what the MDI client is told is noted first.
class ClientMessages {
public:
    ClientMessages() : before_(SetProcedure(Note)) { current_ = this; }
    ClientMessages(const ClientMessages&) = delete;
    ClientMessages& operator=(const ClientMessages&) = delete;
    ~ClientMessages() { SetProcedure(before_); }

    // The first argument of each message of this kind.
    std::vector<WPARAM> Of(UINT message) const {
        std::vector<WPARAM> arguments;
        for (const auto& [kind, argument] : noted_)
            if (kind == message)
                arguments.push_back(argument);
        return arguments;
    }

private:
    static WNDPROC SetProcedure(WNDPROC procedure) {
        return reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(hMdiC, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    }
    static LRESULT CALLBACK Note(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        current_->noted_.emplace_back(message, wParam);
        return CallWindowProcA(current_->before_, hwnd, message, wParam, lParam);
    }

    static inline ClientMessages* current_ = nullptr;
    WNDPROC before_;
    std::vector<std::pair<UINT, WPARAM>> noted_;
};

TEST(Commands, WindowCommandsArrangeTheChildren) {
    FrameWindow frame;
    const ClientMessages messages;
    for (int id : {CM_CASCADE, CM_TILE_HORIZONTAL, CM_TILE_VERTICAL, CM_ARRANGE_ICONS})
        RunCommand(id);
    // Disabled children stay where they are.
    EXPECT_EQ(messages.Of(WM_MDICASCADE), std::vector<WPARAM>{MDITILE_SKIPDISABLED});
    EXPECT_EQ(messages.Of(WM_MDITILE), (std::vector<WPARAM>{MDITILE_HORIZONTAL, MDITILE_VERTICAL}));
    EXPECT_EQ(messages.Of(WM_MDIICONARRANGE).size(), 1u);
}

// A memory picture of the size of a button.
class Picture {
public:
    Picture() {
        const HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, kSize, kSize);
        ReleaseDC(nullptr, screen);
        SelectObject(dc_, bitmap_);
        SetStretchBltMode(dc_, COLORONCOLOR);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }

    // Draws a bitmap of the resources.
    void Draw(int number) {
        const HBITMAP bitmap = LoadBitmapA(hInst, MAKEINTRESOURCEA(number));
        ASSERT_NE(bitmap, nullptr) << number;
        const HDC from = CreateCompatibleDC(dc_);
        const HGDIOBJ before = SelectObject(from, bitmap);
        StretchBlt(dc_, 0, 0, kSize, kSize, from, 0, 0, 64, 64, SRCCOPY);
        SelectObject(from, before);
        DeleteDC(from);
        DeleteObject(bitmap);
    }
    // Has the toolbar draw a button.
    void DrawButton(int id, bool pressed) {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.CtlID = static_cast<UINT>(id);
        item.itemState = pressed ? ODS_SELECTED : 0;
        item.hDC = dc_;
        item.rcItem = {0, 0, kSize, kSize};
        SendMessageA(hTool, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    }
    std::vector<COLORREF> Pixels() const {
        std::vector<COLORREF> pixels;
        for (int i = 0; i < kSize * kSize; ++i)
            pixels.push_back(GetPixel(dc_, i % kSize, i / kSize));
        return pixels;
    }

private:
    static constexpr int kSize = 25;
    HDC dc_;
    HBITMAP bitmap_;
};

class ToolbarTest : public testing::Test {
protected:
    ToolbarTest() {
        zentrik_test::RegisterTestClass("Buttons", MdiFunc5);
        hTool = CreateWindowExA(0, "Buttons", "", WS_CHILD | WS_VISIBLE, 0, 0, 800, 33, hFrame,
                                nullptr, hInst, nullptr);
    }
    ~ToolbarTest() override {
        DestroyWindow(hTool);
        hTool = nullptr;
        EditState = 0;
    }

    FrameWindow frame_;
};

TEST_F(ToolbarTest, HasEightButtonsInTheirPlaces) {
    const int x[] = {10, 35, 70, 95, 130, 165, 190, 215};
    for (int i = 0; i < 8; ++i) {
        const HWND button = GetDlgItem(hTool, TB_NEW_MORV + i);
        ASSERT_NE(button, nullptr);
        RECT at;
        GetWindowRect(button, &at);
        MapWindowPoints(nullptr, hTool, reinterpret_cast<POINT*>(&at), 2);
        EXPECT_EQ(at.left, x[i]);
        EXPECT_EQ(at.top, 0);
        EXPECT_EQ(at.right - at.left, 25);
        EXPECT_EQ(at.bottom - at.top, 25);
    }
    EXPECT_EQ(GetDlgItem(hTool, 18), nullptr);
}

TEST_F(ToolbarTest, HasAPictureForEachButtonAndOneForItHeldDown) {
    struct Pictures {
        int button, normal, pressed;
    };
    constexpr Pictures kPictures[] = {{10, 8, 9},   {11, 15, 16}, {12, 13, 14}, {13, 17, 18},
                                      {14, 19, 20}, {15, 23, 24}, {16, 21, 22}, {17, 10, 11}};
    std::set<std::vector<COLORREF>> different;
    for (const Pictures& pictures : kPictures) {
        for (bool pressed : {false, true}) {
            Picture expected;
            Picture drawn;
            expected.Draw(pressed ? pictures.pressed : pictures.normal);
            drawn.DrawButton(pictures.button, pressed);
            EXPECT_TRUE(drawn.Pixels() == expected.Pixels()) << pictures.button << pressed;
            different.insert(drawn.Pixels());
        }
    }
    EXPECT_EQ(different.size(), 16u);
}

TEST_F(ToolbarTest, ActsOnTheOlderNotificationOfItsButtons) {
    SendMessageA(hTool, WM_COMMAND, TB_NEW_FILE, 0x10000);
    EXPECT_EQ(GetMdi(), nullptr);
    SendMessageA(hTool, WM_COMMAND, 18, 0);
    EXPECT_EQ(GetMdi(), nullptr);
    SendMessageA(hTool, WM_COMMAND, TB_NEW_FILE, 0xFFFF);
    EXPECT_TRUE(IsEditor(GetMdi()));
}

TEST_F(ToolbarTest, ItsNewFileLeavesTheEditItemsAsTheyWere) {
    for (int platform : {0, 1}) {
        for (bool gray : {true, false}) {
            nt = platform;
            (gray ? GrayMenu : EnableMenu)(hFrame, 7);
            SendMessageA(hTool, WM_COMMAND, TB_NEW_FILE, 0);
            EXPECT_TRUE(IsEditor(GetMdi()));
            for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
                EXPECT_EQ(FrameWindow::IsGray(id), gray) << platform << " " << id;
        }
    }
}

TEST_F(ToolbarTest, ItsCloseCommandIsThatOfAChild) {
    const ClientMessages messages;
    const HWND top = TopChild(hTool);
    SendMessageA(hTool, WM_SYSCOMMAND, SC_CLOSE | 2, 0);
    EXPECT_FALSE(IsWindow(top));
    EXPECT_EQ(messages.Of(WM_MDIDESTROY), std::vector<WPARAM>{reinterpret_cast<WPARAM>(hTool)});
}

TEST(Process, RunsTheLineWithoutWaiting) {
    TempFolder temp;
    const std::string file = temp.Path("out.txt");
    const HANDLE changed = FindFirstChangeNotificationA(
        temp.Path("").c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_SIZE);
    ASSERT_NE(changed, INVALID_HANDLE_VALUE);
    StartProcess("", "cmd /c echo done>" + file);
    // A change may be told before the text can be read, so each wait is short and looked at again.
    for (int tries = 0; tries < 100 && temp.Content("out.txt") != "done\r\n"; ++tries) {
        WaitForSingleObject(changed, 100);
        FindNextChangeNotification(changed);
    }
    FindCloseChangeNotification(changed);
    EXPECT_EQ(temp.Content("out.txt"), "done\r\n");
}

} // namespace
