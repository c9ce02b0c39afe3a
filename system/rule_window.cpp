#include "system/rule_window.h"

#include "shell/core/line_ends.h"
#include "shell/services/editor.h"
#include "shell/services/mdi.h"
#include "shell/services/text_measure.h"
#include "shell/services/wait_cursor.h"
#include "system/core/rule_files.h"

#include <algorithm>
#include <ranges>

char RuleFile[kNameSize];
char RuleSize[kNameSize];

namespace {

HWND held_child;
HWND held_edit;

// Changes the text of an edit control from `before` to `text`. The control takes long to break a
// text into lines, so only the part that differs is replaced. Where most of it differs, setting the
// whole text is faster, and faster still in an empty control.
void ReplaceDifference(HWND edit, const std::string& before, const std::string& text) {
    const auto [old_begin, new_begin] = std::ranges::mismatch(before, text);
    if (old_begin == before.end() && new_begin == text.end())
        return;
    const std::ranges::subrange old_rest(old_begin, before.end());
    const std::ranges::subrange new_rest(new_begin, text.end());
    const auto same_end =
        std::ranges::mismatch(old_rest | std::views::reverse, new_rest | std::views::reverse);
    const std::string part(new_begin, same_end.in2.base());
    // Positions in an edit control count characters.
    if (part.size() > text.size() / 2 || !OneByteCharacters()) {
        SetWindowTextA(edit, "");
        SetWindowTextA(edit, text.c_str());
        return;
    }
    SendMessageA(edit, EM_SETSEL, static_cast<WPARAM>(old_begin - before.begin()),
                 same_end.in1.base() - before.begin());
    SendMessageA(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(part.c_str()));
}

// Puts the caret there and scrolls it into sight.
void PutCaret(HWND edit, std::size_t character) {
    SendMessageA(edit, EM_SETSEL, character, static_cast<LPARAM>(character));
    SendMessageA(edit, EM_SCROLLCARET, 0, 0);
}

// As in a text that was set anew: caret and view at its start, nothing to undo.
void ShowStart(HWND edit) {
    SendMessageA(edit, EM_EMPTYUNDOBUFFER, 0, 0);
    PutCaret(edit, 0);
}

void SetModified(HWND edit, bool modified) {
    SendMessageA(edit, EM_SETMODIFY, modified ? TRUE : FALSE, 0);
}

} // namespace

void HoldRuleWindow() {
    const HWND child = GetMdi();
    const bool found = child && IsEditor(child) && ChildTitle(child) == Text(RuleFile);
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
    const std::string before = EditText(edit);
    const bool changed = SendMessageA(edit, EM_GETMODIFY, 0, 0) != 0 || before != text;
    ReplaceDifference(edit, before, text);
    ShowStart(edit);
    SetModified(edit, changed);
}

void LoadRuleText(const std::string& text) {
    const WaitCursor wait;
    SetWindowTextA(RuleEdit(), text.c_str());
    SetModified(RuleEdit(), false);
}

void EndLinesWithCrLf() {
    const std::string text = EditText(RuleEdit());
    const std::string lines = WithCrLf(text);
    if (lines != text)
        LoadRuleText(lines);
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

void ShowRuleTextEnd() {
    PutCaret(RuleEdit(), static_cast<std::size_t>(GetWindowTextLengthA(RuleEdit())));
}

void ShowRuleTextLine(const std::string& text, std::size_t at) {
    const HWND edit = RuleEdit();
    PutCaret(edit, CharactersIn(std::string_view(text).substr(0, at)));
    const LRESULT line = SendMessageA(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0);
    const LRESULT top = SendMessageA(edit, EM_GETFIRSTVISIBLELINE, 0, 0);
    SendMessageA(edit, EM_LINESCROLL, 0, line - top);
}

void DestroyRuleWindow() {
    const HWND child = RuleChild();
    if (!child)
        return;
    DestroyWindow(RuleEdit());
    DestroyMdiCh(child);
    held_child = held_edit = nullptr;
}
