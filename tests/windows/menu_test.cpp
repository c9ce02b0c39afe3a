#include "frame_window.h"

#include "shell/services/menu.h"
#include "shell/services/ZENTRIK.h"

#include <algorithm>
#include <map>
#include <vector>

namespace {

using zentrik_test::FrameWindow;

// The commands that each group greys.
const std::map<int, std::vector<int>> kGroups = {
    {1, {CM_REMOVE_ITEM}},
    {2, {}},
    {3, {CM_SAVE_MORV, CM_SAVE_AS_MORV, CM_CLOSE_MORV}},
    {4, {CM_DEBUG, CM_COMPILE}},
    {5, {CM_SAVE_SYSTEM, CM_SAVE_AS_SYSTEM, CM_CLOSE_SYSTEM}},
    {6, {CM_RESOURCE_REMOVE}},
    {7, {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE}},
    {8, {}},
};

bool PopupIsGray(int bar, int position) {
    const HMENU popup = GetSubMenu(GetMenu(hFrame), bar);
    return (GetMenuState(popup, static_cast<UINT>(position), MF_BYPOSITION) & MF_GRAYED) != 0;
}

std::vector<int> GrayCommands() {
    std::vector<int> gray;
    for (int command = CM_NEW_MORV; command <= CM_EXECUTE; ++command)
        if (FrameWindow::IsGray(command))
            gray.push_back(command);
    return gray;
}

TEST(Menu, EachGroupGraysAndEnablesItsOwnItems) {
    FrameWindow frame;
    for (const auto& [group, commands] : kGroups) {
        GrayMenu(hFrame, group);
        std::vector<int> expected = commands;
        std::ranges::sort(expected);
        EXPECT_EQ(GrayCommands(), expected) << group;
        EXPECT_EQ(PopupIsGray(0, 7), group == 2);
        EXPECT_EQ(PopupIsGray(1, 7), group == 5);
        EnableMenu(hFrame, group);
        EXPECT_EQ(GrayCommands(), std::vector<int>()) << group;
        EXPECT_FALSE(PopupIsGray(0, 7));
        EXPECT_FALSE(PopupIsGray(1, 7));
    }
}

TEST(Menu, AMaximisedChildShiftsTheBarButDebugStaysAsItWas) {
    FrameWindow frame;
    const HWND child = CrearMdiCh("Message", "child");
    SendMessageA(hMdiC, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child), 0);
    ASSERT_TRUE(IsZoomed(child));
    for (int group = 1; group <= 8; ++group)
        GrayMenu(hFrame, group);
    EXPECT_FALSE(FrameWindow::IsGray(CM_DEBUG));
    EXPECT_TRUE(FrameWindow::IsGray(CM_COMPILE));
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_MORV));
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_TRUE(FrameWindow::IsGray(CM_SAVE_FILE));
    EXPECT_FALSE(FrameWindow::IsGray(CM_LOAD_DDE));
}

TEST(Menu, AWindowWithoutAMenuIsLeftAlone) {
    FrameWindow frame;
    const HWND child = CrearMdiCh("Message", "child");
    for (int group = 1; group <= 8; ++group) {
        GrayMenu(child, group);
        GrayMenu(nullptr, group);
    }
    EXPECT_EQ(GrayCommands(), std::vector<int>());
}

} // namespace
