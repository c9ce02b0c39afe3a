// A frame with the program's menu and an MDI client, for tests that need children.
#pragma once

#include "shell/mdi_windows.h"
#include "shell/services/handles.h"
#include "shell/services/mdi.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace zentrik_test {

inline LRESULT CALLBACK TestFrameProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefFrameProcA(hwnd, hMdiC, message, wParam, lParam);
}

// Registers a window class once. The system has a class "Message" too, so asking it would not do.
inline void RegisterTestClass(const std::string& name, WNDPROC procedure) {
    static std::set<std::string> registered;
    if (!registered.insert(name).second)
        return;
    WNDCLASSA type{};
    type.lpfnWndProc = procedure;
    type.hInstance = hInst;
    type.lpszClassName = name.c_str();
    ASSERT_NE(RegisterClassA(&type), 0);
}

// While it lives hFrame and hMdiC are its windows, and children of the program's classes can be
// created.
class FrameWindow {
public:
    FrameWindow() {
        RegisterTestClass("TestFrame", TestFrameProc);
        RegisterTestClass("Main", MdiFunc);
        RegisterTestClass("Projec", MdiFunc2);
        RegisterTestClass("Dial", MdiFunc3);
        RegisterTestClass("Message", MdiFunc4);
        hFrame = CreateWindowExA(0, "TestFrame", "Frame", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600,
                                 nullptr, LoadMenuA(hInst, "Zentrik_Menu"), hInst, nullptr);
        CLIENTCREATESTRUCT client{};
        client.idFirstChild = MdiChFirstIdent;
        hMdiC = CreateWindowExA(0, "MDICLIENT", nullptr,
                                WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | MDIS_ALLCHILDSTYLES, 0, 0,
                                780, 500, hFrame, nullptr, hInst, &client);
        ShowWindow(hFrame, SW_SHOW);
    }
    FrameWindow(const FrameWindow&) = delete;
    FrameWindow& operator=(const FrameWindow&) = delete;
    ~FrameWindow() {
        DestroyWindow(hFrame);
        hFrame = hMdiC = nullptr;
        EDC_ID = 50;
        nt = 0;
    }

    // True when the menu item of this command is grey.
    static bool IsGray(int command) {
        const UINT state = GetMenuState(GetMenu(hFrame), static_cast<UINT>(command), MF_BYCOMMAND);
        EXPECT_NE(state, static_cast<UINT>(-1)) << command;
        return (state & MF_GRAYED) != 0;
    }
};

} // namespace zentrik_test
