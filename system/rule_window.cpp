#include "system/rule_window.h"

#include "shell/editor.h"
#include "shell/mdi.h"
#include "system/rule_editor.h"

namespace {

HWND held_child;
HWND held_edit;

std::string Title(HWND hwnd) {
    char title[kNameSize] = "";
    GetWindowTextA(hwnd, title, sizeof title);
    return title;
}

void SetModified(HWND edit, bool modified) {
    SendMessageA(edit, EM_SETMODIFY, modified ? TRUE : FALSE, 0);
}

} // namespace

void HoldRuleWindow() {
    const HWND child = GetMdi();
    const bool found = child && IsEditor(child) && Title(child) == Text(RuleFile);
    held_child = found ? child : nullptr;
    held_edit = found ? TextHwnd() : nullptr;
}

HWND RuleEdit() {
    return IsWindow(held_edit) ? held_edit : nullptr;
}

HWND RuleChild() {
    return IsWindow(held_child) ? held_child : nullptr;
}

void PutRuleText(const std::string& text) {
    const HWND edit = RuleEdit();
    if (!edit)
        return;
    // The control takes every text set for an unchanged one.
    const bool changed = SendMessageA(edit, EM_GETMODIFY, 0, 0) != 0 || EditText(edit) != text;
    SetWindowTextA(edit, text.c_str());
    SetModified(edit, changed);
}

void LoadRuleText(const std::string& text) {
    SetWindowTextA(RuleEdit(), text.c_str());
    SetModified(RuleEdit(), false);
}

void SetRuleTextChanged() {
    SetModified(RuleEdit(), true);
}

void ScrollToRuleTextEnd() {
    const HWND edit = RuleEdit();
    const auto end = static_cast<WPARAM>(GetWindowTextLengthA(edit));
    const LRESULT line = SendMessageA(edit, EM_LINEFROMCHAR, end, 0);
    // The count has 16 bits: in the first three lines it wraps and goes as far as it can.
    SendMessageA(edit, EM_LINESCROLL, 0, static_cast<WORD>(line - 3));
}

void DestroyRuleWindow() {
    const HWND child = RuleChild();
    if (!child)
        return;
    DestroyWindow(RuleEdit());
    DestroyMdiCh(child);
    held_child = held_edit = nullptr;
}
