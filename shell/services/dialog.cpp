#include "shell/services/dialog.h"
#include "shell/services/handles.h"

INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure) {
    return DialogBoxParamA(hInst, name, owner, procedure, 0);
}

namespace {

bool RunAction(std::span<const DialogAction> actions, HWND dialog, WPARAM wParam) {
    for (const DialogAction& action : actions) {
        if (Notified(wParam, action.id, action.code)) {
            action.run(dialog);
            return true;
        }
    }
    return false;
}

bool RunIfAny(void (*step)(HWND), HWND dialog) {
    if (step)
        step(dialog);
    return step != nullptr;
}

} // namespace

INT_PTR RunDialogTable(const DialogTable& table, HWND dialog, UINT message, WPARAM wParam) {
    switch (message) {
    case WM_INITDIALOG:
        table.open(dialog);
        return TRUE;
    case WM_COMMAND:
        return RunAction(table.actions, dialog, wParam);
    case WM_CLOSE:
        return RunIfAny(table.close_box, dialog);
    case WM_DESTROY:
        return RunIfAny(table.destroyed, dialog);
    default:
        return DialogColours(message, wParam);
    }
}

void LeaveDialog(HWND dialog) {
    EndDialog(dialog, 0);
}

INT_PTR DialogColours(UINT message, WPARAM wParam) {
    if (message == WM_CTLCOLORSTATIC)
        SetBkColor(reinterpret_cast<HDC>(wParam), RGB(200, 200, 200));
    else if (message != WM_CTLCOLORDLG)
        return 0;
    return reinterpret_cast<INT_PTR>(GetStockObject(LTGRAY_BRUSH));
}

std::string ControlText(HWND dialog, int id, int size) {
    std::string text(static_cast<std::size_t>(size), '\0');
    text.resize(GetDlgItemTextA(dialog, id, text.data(), size));
    return text;
}

void LimitText(HWND dialog, int id, int size) {
    SendDlgItemMessageA(dialog, id, EM_LIMITTEXT, static_cast<WPARAM>(size - 1), 0);
}

bool Notified(WPARAM wParam, int id, int code) {
    return LOWORD(wParam) == id && HIWORD(wParam) == code;
}
