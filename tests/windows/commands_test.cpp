#include "shell/commands.h"

#include "../core/core_test.h"
#include "frame_window.h"
#include "shell/editor.h"
#include "shell/menu.h"
#include "shell/process.h"
#include "shell/toolbar.h"
#include "shell/ZENTRIK.h"

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

TEST_F(ToolbarTest, ItsNewFileLeavesTheMenuAlone) {
    nt = 1; // so that the new child's activation leaves it alone as well
    GrayMenu(hFrame, 7);
    SendMessageA(hTool, WM_COMMAND, TB_NEW_FILE, 0x10000);
    EXPECT_EQ(GetMdi(), nullptr);
    SendMessageA(hTool, WM_COMMAND, 18, 0);
    EXPECT_EQ(GetMdi(), nullptr);
    SendMessageA(hTool, WM_COMMAND, TB_NEW_FILE, 0xFFFF);
    EXPECT_TRUE(IsEditor(GetMdi()));
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
