#include "system/rule_editor.h"

#include "shell/core/paths.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/ZENTRIK.h"
#include "system/rule_commands.h"
#include "system/rule_window.h"

#include <algorithm>

namespace {

HWND rule_box;     // the dialog while it is open
bool busy = false; // a command runs: it may show boxes, and they leave the dialog usable

struct Command {
    int id;
    void (*run)(HWND dialog);
};

constexpr Command kCommands[] = {
    {RULE_RULE, AddRule},     {RULE_END_RULE, EndRule},      {RM_OPEN_RULES, OpenRules},
    {RM_NEW_FILE, NewRules},  {RM_SAVE_FILE, SaveRulesFile}, {RM_SAVE_FILE_AS, SaveRulesFileAs},
    {RM_CLOSE, CloseRules},   {RM_MOVE_RULE, MoveRule},      {RM_REMOVE_RULE, RemoveRule},
    {RM_OPEN_TAGS, OpenTags}, {RM_CLOSE_TAGS, CloseTags},    {IDCANCEL, CloseRules},
};

// Above the frame, which it would vanish behind, but not above other programs.
void StayAbove(HWND dialog, bool active) {
    SetWindowPos(dialog, active ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// Below the boxes and file dialogs of the command meanwhile: they have no owner either.
void Run(void (*command)(HWND), HWND dialog) {
    if (busy)
        return;
    busy = true;
    StayAbove(dialog, false);
    command(dialog);
    StayAbove(dialog, GetActiveWindow() != nullptr);
    busy = false;
}

// At the right edge half way down, where it leaves the beginning of the text free.
void Place(HWND dialog) {
    constexpr int kMargin = 24; // leaves a scroll bar at the edge free
    RECT client, box, work;
    if (!GetWindowRect(GetParent(RuleChild()), &client) ||
        !SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0) ||
        !IntersectRect(&work, &work, &client))
        return;
    GetWindowRect(dialog, &box);
    const long x = work.right - (box.right - box.left) - kMargin;
    const long y = (work.top + work.bottom - (box.bottom - box.top)) / 2;
    SetWindowPos(dialog, nullptr, std::max(x, work.left), std::max(y, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
}

void Start(HWND dialog) {
    rule_box = dialog;
    mod = 0;
    HoldRuleWindow();
    EndLinesWithCrLf();
    Place(dialog);
    ListIndex(dialog);
    EditRule = 1;
}

void OnCommand(HWND dialog, WPARAM wParam) {
    // Enter in the list of tags does what a double-click does there.
    const bool enter = LOWORD(wParam) == IDOK && GetFocus() == GetDlgItem(dialog, RULE_TAGS);
    if (enter || Notified(wParam, RULE_TAGS, LBN_DBLCLK)) {
        Run(InsertTag, dialog);
        return;
    }
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& c) { return c.id == LOWORD(wParam); });
    if (found != std::end(kCommands))
        Run(found->run, dialog);
}

std::optional<bool> SaveAtExit(HWND child) {
    if (!EditRule || child != RuleChild())
        return std::nullopt;
    return SaveRulesAtExit(rule_box);
}

} // namespace

void RunRuleEditor(const char* path) {
    if (EditRule) {
        SetActiveWindow(rule_box);
        return;
    }
    EditRule = 1;
    SetText(RuleFile, path);
    SetText(RuleSize, WithExtension(path, ".siz"));
    OpenEdit(RuleFile);
    SaveRuleText = SaveAtExit;
    RunDialog(nullptr, "Rule_Box", RuleDlg);
    // Also when the program ends or the dialog could not be made.
    rule_box = nullptr;
    busy = false;
    EditRule = 0;
}

INT_PTR CALLBACK RuleDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        Start(hwnd);
        return TRUE;
    case WM_COMMAND:
        OnCommand(hwnd, wParam);
        return TRUE;
    case WM_CLOSE:
        Run(CloseRules, hwnd);
        return TRUE;
    case WM_ACTIVATEAPP:
        StayAbove(hwnd, wParam != 0);
        return TRUE;
    }
    return DialogColours(message, wParam);
}
