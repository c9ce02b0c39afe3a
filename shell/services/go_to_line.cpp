#include "shell/services/go_to_line.h"

#include "shell/services/dialog.h"
#include "shell/services/mdi.h"
#include "shell/services/ZENTRIK.h"

#include <algorithm>

namespace {

constexpr int kDigits = 9;

HWND asked_edit; // whose line is asked for; the dialog is modal

void Open(HWND dialog) {
    const LRESULT line = SendMessageA(asked_edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0);
    LimitText(dialog, GOTO_LINE, kDigits + 1);
    SetDlgItemInt(dialog, GOTO_LINE, static_cast<UINT>(line + 1), FALSE);
    SendDlgItemMessageA(dialog, GOTO_LINE, EM_SETSEL, 0, -1);
}

void Go(HWND dialog) {
    const auto lines = static_cast<UINT>(SendMessageA(asked_edit, EM_GETLINECOUNT, 0, 0));
    const UINT line = GetDlgItemInt(dialog, GOTO_LINE, nullptr, FALSE);
    const UINT there = std::clamp(line, 1u, std::max(lines, 1u));
    const LRESULT at = SendMessageA(asked_edit, EM_LINEINDEX, there - 1, 0);
    SendMessageA(asked_edit, EM_SETSEL, static_cast<WPARAM>(at), at);
    SendMessageA(asked_edit, EM_SCROLLCARET, 0, 0);
    CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {IDOK, BN_CLICKED, Go},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = Open, .actions = kActions, .close_box = LeaveDialog};

} // namespace

void GoToLine(HWND edit) {
    asked_edit = edit;
    RunDialog(GetFrame(), "Goto_Box", GotoDlg);
}

INT_PTR CALLBACK GotoDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
