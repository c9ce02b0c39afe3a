#include "system/rule_editor.h"

#include "shell/core/paths.h"
#include "shell/services/asking.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/ZENTRIK.h"
#include "system/rule_commands.h"
#include "system/rule_window.h"

#include <algorithm>

namespace {

HWND rule_box;     // the dialog while it is open
bool busy = false; // a command runs: it may show boxes, and they leave the dialog usable

// Keeps the dialog above the frame, which would hide it otherwise, but not above other programs.
void StayAbove(HWND dialog, bool active) {
    SetWindowPos(dialog, active ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// Wine shows the frame above the dialog once the frame or a dialog of the frame has become active,
// although this one still counts as topmost. It comes into sight when it becomes topmost anew.
void ComeIntoSight(HWND dialog) {
    const HWND active = GetActiveWindow();
    if (busy || !active || active == dialog)
        return;
    StayAbove(dialog, false);
    StayAbove(dialog, true);
}

// Runs a command. Its boxes and file dialogs have no owner, so the dialog must not stay above them.
template <void (*command)(HWND)> void Run(HWND dialog) {
    if (busy) {
        BringDialogToFront();
        return;
    }
    busy = true;
    StayAbove(dialog, false);
    command(dialog);
    StayAbove(dialog, GetActiveWindow() != nullptr);
    busy = false;
}

// Puts the dialog to the right edge, half way down: the beginning of the text stays free.
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

// Enter in the list of tags does what a double-click does there.
void TakeEnter(HWND dialog) {
    if (GetFocus() == GetDlgItem(dialog, RULE_TAGS))
        Run<InsertTag>(dialog);
}

constexpr DialogAction kActions[] = {
    {RULE_RULE, BN_CLICKED, Run<AddRule>},
    {RULE_END_RULE, BN_CLICKED, Run<EndRule>},
    {RULE_TAGS, LBN_DBLCLK, Run<InsertTag>},
    {RULE_RULES, LBN_SELCHANGE, ShowSelectedRule},
    {IDOK, BN_CLICKED, TakeEnter},
    // Menu commands come as clicks do.
    {RM_OPEN_RULES, BN_CLICKED, Run<OpenRules>},
    {RM_NEW_FILE, BN_CLICKED, Run<NewRules>},
    {RM_SAVE_FILE, BN_CLICKED, Run<SaveRulesFile>},
    {RM_SAVE_FILE_AS, BN_CLICKED, Run<SaveRulesFileAs>},
    {RM_CLOSE, BN_CLICKED, Run<CloseRules>},
    {RM_MOVE_RULE, BN_CLICKED, Run<MoveRule>},
    {RM_REMOVE_RULE, BN_CLICKED, Run<RemoveRule>},
    {RM_OPEN_TAGS, BN_CLICKED, Run<OpenTags>},
    {RM_CLOSE_TAGS, BN_CLICKED, Run<CloseTags>},
    {IDCANCEL, BN_CLICKED, Run<CloseRules>},
};
constexpr DialogTable kTable = {.open = Start,
                                .actions = kActions,
                                .close_box = Run<CloseRules>,
                                .program_activated = StayAbove,
                                .front_changed = ComeIntoSight};

std::optional<Savable> RulesAtExit(HWND child) {
    if (!EditRule || child != RuleChild())
        return std::nullopt;
    return RulesOf(rule_box);
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
    RuleTextOf = RulesAtExit;
    RunDialog(nullptr, "Rule_Box", RuleDlg);
    // Also when the program ends or the dialog could not be made.
    rule_box = nullptr;
    busy = false;
    EditRule = 0;
}

INT_PTR CALLBACK RuleDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
