// The controls of every dialog by the numbers that macros and drivers of the program know them by,
// which is why they stand here as numbers.

#include "shell/services/handles.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

struct Expected {
    int id;
    std::string type;
    std::string caption; // a button's own, else that of the label beside or above it
    LONG mask = 0;       // the style bits that matter, and what they are
    LONG style = 0;
};

constexpr LONG kOrder = LBS_SORT | LBS_USETABSTOPS | LBS_EXTENDEDSEL;
constexpr LONG kComboType = 3; // the bits that tell the kinds of combo boxes apart

Expected Edit(int id, const std::string& label) {
    return {id, "Edit", label};
}

Expected Button(int id, const std::string& caption) {
    return {id, "Button", caption, BS_TYPEMASK, BS_PUSHBUTTON};
}

Expected Default(int id, const std::string& caption) {
    return {id, "Button", caption, BS_TYPEMASK, BS_DEFPUSHBUTTON};
}

// A list with the given ones of the styles kOrder.
Expected List(int id, const std::string& label, LONG style = 0) {
    return {id, "ListBox", label, kOrder, style};
}

Expected Combo(int id, const std::string& label, LONG kind) {
    return {id, "ComboBox", label, kComboType | CBS_SORT, kind};
}

Expected Field(int id, const std::string& label) {
    return {id, "Static", label};
}

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

std::string CaptionOf(HWND hwnd) {
    char caption[100] = "";
    GetWindowTextA(hwnd, caption, sizeof caption);
    return caption;
}

std::string TypeOf(HWND hwnd) {
    char type[50] = "";
    GetClassNameA(hwnd, type, sizeof type);
    return type;
}

std::vector<HWND> ChildrenOf(HWND dialog) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

int IdOf(HWND control) {
    return static_cast<short>(GetDlgCtrlID(control));
}

RECT PlaceOf(HWND hwnd) {
    RECT place;
    GetWindowRect(hwnd, &place);
    return place;
}

// How far `label` is to the left of `control` on its line; -1 when it is not there.
int ToTheLeft(HWND label, HWND control) {
    const RECT from = PlaceOf(label);
    const RECT to = PlaceOf(control);
    const bool same_line = from.top < to.bottom && to.top < from.bottom;
    return same_line && from.right <= to.left ? static_cast<int>(to.left - from.right) : -1;
}

// How far `label` is above `list`; -1 when it is not there, or has a field beside it.
int Above(HWND label, HWND list) {
    for (HWND other : ChildrenOf(GetParent(list))) {
        const std::string type = TypeOf(other);
        if ((type == "Edit" || type == "ComboBox") && ToTheLeft(label, other) >= 0)
            return -1;
    }
    const RECT from = PlaceOf(label);
    const RECT to = PlaceOf(list);
    return from.left == to.left && from.bottom <= to.top ? static_cast<int>(to.top - from.bottom)
                                                         : -1;
}

// True when `field`, one that only shows a text, is right under `label`.
bool StandsOn(HWND field, HWND label) {
    const LONG gap = PlaceOf(field).top - PlaceOf(label).bottom;
    return TypeOf(field) == "Static" && gap >= 0 && gap < 8;
}

// A button's caption, or that of the label nearest to a control.
std::string Named(HWND control) {
    const std::string type = TypeOf(control);
    if (type == "Button")
        return CaptionOf(control);
    std::string nearest;
    int least = 10000;
    for (HWND label : ChildrenOf(GetParent(control))) {
        if (TypeOf(label) != "Static" || IdOf(label) != -1)
            continue;
        int distance = type == "ListBox" ? -1 : ToTheLeft(label, control);
        if (distance < 0 && (type == "ListBox" || StandsOn(control, label)))
            distance = Above(label, control);
        if (distance < 0 || distance > least)
            continue;
        least = distance;
        nearest = CaptionOf(label);
    }
    return nearest;
}

void CheckControls(HWND dialog, const std::vector<Expected>& expected) {
    std::map<int, HWND> there; // those that have a number
    for (HWND child : ChildrenOf(dialog)) {
        if (IdOf(child) != -1) {
            EXPECT_TRUE(there.try_emplace(IdOf(child), child).second) << IdOf(child) << " twice";
        }
    }
    EXPECT_EQ(there.size(), expected.size());
    for (const Expected& want : expected) {
        const HWND control = there[want.id];
        ASSERT_NE(control, nullptr) << want.id;
        EXPECT_EQ(TypeOf(control), want.type) << want.id;
        EXPECT_EQ(Named(control), want.caption) << want.id;
        EXPECT_EQ(GetWindowLongA(control, GWL_STYLE) & want.mask, want.style) << want.id;
    }
}

void CheckDialog(const char* name, const char* title, const std::vector<Expected>& expected) {
    SCOPED_TRACE(name);
    const HWND dialog = CreateDialogParamA(hInst, name, nullptr, NoProcedure, 0);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(CaptionOf(dialog), title);
    CheckControls(dialog, expected);
    DestroyWindow(dialog);
}

TEST(ControlIds, OfTheFrame) {
    CheckDialog("About", "About Zentrik", {Default(1, "OK")});
}

TEST(ControlIds, OfTheTextEditor) {
    CheckDialog("Goto_Box", "Go to Line",
                {Edit(354, "Line :"), Default(1, "OK"), Button(2, "Cancel")});
}

TEST(ControlIds, OfTheProject) {
    CheckDialog("HL_Box", "History Length",
                {Edit(313, "Len :"), Default(1, "OK"), Button(2, "Cancel")});
}

TEST(ControlIds, OfTheSystem) {
    CheckDialog("Add_Box", "Add Resource",
                {List(344, "Resource", LBS_EXTENDEDSEL), List(339, "System", LBS_EXTENDEDSEL),
                 Button(329, "Add"), Button(304, "Remove"), Default(305, "Ok"),
                 Button(316, "Cancel")});
}

TEST(ControlIds, OfTheRules) {
    CheckDialog("Rule_Box", "Rules",
                {List(340, "Rules"), List(318, "Tags", LBS_SORT), Field(333, ""),
                 Button(336, "Rule"), Button(325, "EndRule")});
}

TEST(ControlIds, OfTheBuild) {
    CheckDialog("Debug_Box", "Debug",
                {Field(300, ""), Field(303, "MORV Project:"), Field(343, "Rules File:"),
                 Field(321, "System File:"), Field(319, "Progres:"), Default(317, "Ok")});
    CheckDialog("Tool_Box", "Compile Tools",
                {Edit(315, "MORV Path :"), Edit(11, "Compiler Include:"),
                 Edit(12, "Compiler Path:"), Combo(312, "ZK Compiler Utility:", CBS_DROPDOWN),
                 Button(19, "Add Compiler"), Button(328, "Remove "), Default(1, "OK"),
                 Button(2, "Cancel"), Button(29, "Help")});
}

TEST(ControlIds, OfTheFacts) {
    CheckDialog("Knowledge_Box", "Facts Base",
                {Edit(322, "Name"),
                 Edit(320, "Description:"),
                 Edit(307, "Fact Ident.:"),
                 List(306, ""),
                 Edit(312, "Knowledge Type:"),
                 List(345, ""),
                 Button(308, "Add Type"),
                 Edit(310, "Unit:"),
                 Edit(342, "Lower Limit:"),
                 Edit(353, "Higher Limit:"),
                 Edit(352, "Step:"),
                 Edit(351, "Interval Validity:"),
                 Edit(348, "lowest:"),
                 Edit(347, "low:"),
                 Edit(350, "normal:"),
                 Edit(349, "high"),
                 Edit(332, "highest"),
                 Default(1, "Add "),
                 Button(311, "Remove"),
                 Button(309, "Close")});
    CheckDialog("KnowType_Box", "Knowledge Type",
                {Edit(346, "Type"), List(345, "", LBS_SORT), Default(1, "Add"),
                 Button(328, "Remove"), Button(2, "Close")});
}

TEST(ControlIds, OfTheNames) {
    CheckDialog("Tags_Box", "Tags",
                {Edit(326, "Tag:"), List(327, "", LBS_SORT), Default(1, "Add"),
                 Button(328, "Remove"), Button(309, "Close"), Button(2, "Cancel")});
    CheckDialog("Res_Box", "Results",
                {Edit(331, "Result"), List(337, ""), Default(1, "Add"), Button(328, "Remove"),
                 Button(309, "Close"), Button(2, "Cancel")});
    CheckDialog("Result_Box", "Result/Opposite ",
                {Edit(338, ""), Edit(302, ""), List(334, ""),
                 List(301, "Opposites:", LBS_USETABSTOPS), Default(307, "Add"),
                 Button(311, "Remove"), Button(309, "Close"), Button(2, "Cancel")});
}

TEST(ControlIds, OfTheValues) {
    CheckDialog("Var_Box", "Local Vars",
                {Edit(204, "Name :"), Combo(200, "TYPE :", CBS_DROPDOWN), Edit(202, "Value :"),
                 List(10, "Vars:", LBS_USETABSTOPS), List(29, "DDE:"), Button(30, "Load"),
                 Default(19, "Add"), Button(328, "Remove"), Button(8, "Close"),
                 Button(2, "Cancel")});
    CheckDialog("Init_Box", "Init Facts",
                {List(10, "Vars:"), List(11, "Facts Base :", LBS_USETABSTOPS), Edit(13, "Facts:"),
                 Edit(12, "Value:"), Combo(666, "Certainty:", CBS_DROPDOWNLIST), Default(1, "Add"),
                 Button(19, "Remove"), Button(8, "Close"), Button(2, "Cancel")});
    CheckDialog("Dde_Box", "DDE",
                {Edit(310, "Dde Name:"), Edit(330, "name :"), Combo(346, "Type :", CBS_DROPDOWN),
                 List(335, "DDE Items", LBS_USETABSTOPS), Default(1, "Add"), Button(328, "Remove"),
                 Button(309, "Close"), Button(2, "Cancel")});
}

} // namespace
