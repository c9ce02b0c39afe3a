// What holds for the layout of every dialog of the program.

#include "shell/services/handles.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct Control {
    std::string type;
    std::string caption;
    LONG style;
    RECT place;
};

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

std::string Described(const Control& control) {
    return control.type + " \"" + control.caption + "\" at " + std::to_string(control.place.left) +
           "," + std::to_string(control.place.top);
}

bool IsGroup(const Control& control) {
    return control.type == "Button" && (control.style & BS_TYPEMASK) == BS_GROUPBOX;
}

// The controls of a dialog in tab order.
std::vector<Control> ControlsOf(HWND dialog) {
    std::vector<Control> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char type[50] = "";
        char caption[300] = "";
        Control control;
        GetClassNameA(child, type, sizeof type);
        GetWindowTextA(child, caption, sizeof caption);
        control.type = type;
        control.caption = caption;
        control.style = GetWindowLongA(child, GWL_STYLE);
        GetWindowRect(child, &control.place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&control.place), 2);
        controls.push_back(control);
    }
    return controls;
}

void CheckCaption(HDC dc, const Control& control) {
    const bool one_line = control.type == "Button" || control.type == "Static";
    if (!one_line || control.caption.empty() || (control.style & SS_TYPEMASK) == SS_ICON)
        return;
    RECT text{0, 0, control.place.right - control.place.left, 0};
    const UINT format = control.type == "Static" ? DT_CALCRECT | DT_WORDBREAK : DT_CALCRECT;
    DrawTextA(dc, control.caption.c_str(), -1, &text, format);
    const LONG border = control.type == "Button" ? 6 : 0;
    EXPECT_LE(text.right + border, control.place.right - control.place.left) << Described(control);
    if (!IsGroup(control)) {
        EXPECT_LE(text.bottom, control.place.bottom - control.place.top) << Described(control);
    }
}

void CheckApart(const std::vector<Control>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            RECT both;
            if (!IsGroup(controls[i]) && !IsGroup(controls[j])) {
                EXPECT_FALSE(IntersectRect(&both, &controls[i].place, &controls[j].place))
                    << Described(controls[i]) << " and " << Described(controls[j]);
            }
        }
    }
}

// A full list can be scrolled to its end.
void CheckLists(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char type[50] = "";
        GetClassNameA(child, type, sizeof type);
        if (std::string(type) != "ListBox")
            continue;
        for (int i = 0; i < 100; ++i)
            SendMessageA(child, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("row"));
        EXPECT_NE(GetWindowLongA(child, GWL_STYLE) & WS_VSCROLL, 0) << GetDlgCtrlID(child);
    }
}

void CheckDialog(const char* name) {
    SCOPED_TRACE(name);
    const HWND dialog = CreateDialogParamA(hInst, name, nullptr, NoProcedure, 0);
    ASSERT_NE(dialog, nullptr);
    RECT client;
    GetClientRect(dialog, &client);
    const std::vector<Control> controls = ControlsOf(dialog);
    const HDC dc = GetDC(dialog);
    const auto font = reinterpret_cast<HFONT>(SendMessageA(dialog, WM_GETFONT, 0, 0));
    EXPECT_NE(font, nullptr);
    const HGDIOBJ before = SelectObject(dc, font);
    for (const Control& control : controls) {
        RECT inside;
        IntersectRect(&inside, &client, &control.place);
        EXPECT_TRUE(EqualRect(&inside, &control.place)) << Described(control);
        CheckCaption(dc, control);
    }
    SelectObject(dc, before);
    ReleaseDC(dialog, dc);
    CheckApart(controls);
    CheckLists(dialog);
    // The rules dialog stays in its corner, out of the way of the text beside it.
    const bool in_a_corner = std::string(name) == "RULE_BOX";
    EXPECT_EQ((GetWindowLongA(dialog, GWL_STYLE) & DS_CENTER) == 0, in_a_corner);
    DestroyWindow(dialog);
}

BOOL CALLBACK TakeName(HMODULE, LPCSTR, LPSTR name, LONG_PTR names) {
    reinterpret_cast<std::vector<std::string>*>(names)->push_back(name);
    return TRUE;
}

TEST(Layout, CaptionsAreWholeAndControlsStandApart) {
    std::vector<std::string> names;
    EnumResourceNamesA(hInst, RT_DIALOG, TakeName, reinterpret_cast<LONG_PTR>(&names));
    ASSERT_GE(names.size(), 6u);
    for (const std::string& name : names)
        CheckDialog(name.c_str());
}

} // namespace
