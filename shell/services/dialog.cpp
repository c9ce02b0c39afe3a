#include "shell/services/dialog.h"
#include "shell/core/guide_pages.h"
#include "shell/services/guarded.h"
#include "shell/services/guide.h"
#include "shell/services/handles.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

const char* opening = ""; // the name of the dialog that RunDialog is about to make

constexpr char kEnded[] = "ZentrikEnded"; // a property of dialogs
constexpr UINT_PTR kFrontTimer = 1;       // runs from TellFrontChanged until the dialog was told

struct OpenDialog {
    HWND window;
    std::string_view name;
    const DialogTable* table;
};
std::vector<OpenDialog> open_dialogs;

void Opened(const DialogTable& table, HWND dialog) {
    open_dialogs.push_back({dialog, std::exchange(opening, ""), &table});
    table.open(dialog);
}

bool Destroyed(const DialogTable& table, HWND dialog) {
    std::erase_if(open_dialogs, [&](const OpenDialog& open) { return open.window == dialog; });
    RemovePropA(dialog, kEnded);
    if (table.destroyed)
        table.destroyed(dialog);
    return table.destroyed != nullptr;
}

// Opens the page of the guide about this dialog, when there is one.
bool ShowPage(HWND dialog) {
    const auto open = std::ranges::find(open_dialogs, dialog, &OpenDialog::window);
    if (open == open_dialogs.end())
        return false;
    const std::string_view page = GuidePageOf(open->name);
    return !page.empty() && OpenGuide(dialog, page);
}

bool RunAction(std::span<const DialogAction> actions, HWND dialog, WPARAM wParam) {
    for (const DialogAction& action : actions) {
        if (Notified(wParam, action.id, action.code)) {
            action.run(dialog);
            return true;
        }
    }
    return false;
}

INT_PTR Answer(const DialogTable& table, HWND dialog, UINT message, WPARAM wParam) {
    switch (message) {
    case WM_INITDIALOG:
        Opened(table, dialog);
        return TRUE;
    case WM_COMMAND:
        return RunAction(table.actions, dialog, wParam);
    case WM_CLOSE:
        if (!table.close_box)
            return FALSE;
        table.close_box(dialog);
        return TRUE;
    case WM_ACTIVATEAPP:
        if (!table.program_activated)
            return FALSE;
        table.program_activated(dialog, wParam != 0);
        return TRUE;
    case WM_ACTIVATE:
        TellFrontChanged();
        return FALSE;
    case WM_TIMER:
        if (wParam != kFrontTimer || !table.front_changed)
            return FALSE;
        KillTimer(dialog, kFrontTimer);
        if (IsDialogOpen(dialog))
            table.front_changed(dialog);
        return TRUE;
    case WM_HELP:
        return ShowPage(dialog);
    case WM_DESTROY:
        return Destroyed(table, dialog);
    default:
        return DialogColours(message, wParam);
    }
}

} // namespace

INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure) {
    opening = name;
    return DialogBoxParamA(hInst, name, owner, procedure, 0);
}

INT_PTR RunDialogTable(const DialogTable& table, HWND dialog, UINT message, WPARAM wParam) {
    return Guarded([&] { return Answer(table, dialog, message, wParam); });
}

void CloseDialog(HWND dialog) {
    SetPropA(dialog, kEnded, dialog);
    EndDialog(dialog, 0);
}

void LeaveDialog(HWND dialog) {
    CloseDialog(dialog);
}

bool IsDialogOpen(HWND dialog) {
    return IsWindow(dialog) && !GetPropA(dialog, kEnded);
}

bool ShowUnsavedDialog(Dialogs among) {
    const auto unsaved = std::ranges::find_if(open_dialogs, [&](const OpenDialog& open) {
        return (among == Dialogs::All || !GetWindow(open.window, GW_OWNER)) &&
               IsDialogOpen(open.window) && open.table->changed && open.table->changed(open.window);
    });
    if (unsaved == open_dialogs.end())
        return false;
    SetForegroundWindow(unsaved->window);
    FlashWindow(unsaved->window, TRUE);
    return true;
}

void TellFrontChanged() {
    // A timer, for a posted message would be lost: the loop of a dialog that ends drops one.
    for (const OpenDialog& open : open_dialogs)
        if (open.table->front_changed)
            SetTimer(open.window, kFrontTimer, 0, nullptr);
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
