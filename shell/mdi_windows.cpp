#include "shell/mdi_windows.h"

#include "build/debug.h"
#include "project/project_commands.h"
#include "shell/core/messages.h"
#include "shell/services/editor.h"
#include "shell/services/fonts.h"
#include "shell/services/guarded.h"
#include "shell/services/handles.h"
#include "shell/services/mdi.h"
#include "shell/services/menu.h"
#include "shell/services/text_keys.h"
#include "system/open_row.h"
#include "system/system_commands.h"

#include <span>

namespace {

// A selection stays visible without the focus, which the find dialog has when it has found
// something.
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                             ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN | ES_NOHIDESEL;
// Not sorted: a list keeps the order in which its document puts the rows.
constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY |
                             LBS_HASSTRINGS | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT;

// What the project and the system window have in common.
struct DocumentWindow {
    std::span<const MenuGroup> groups; // menu groups that follow its activation
    int (*close)(HWND frame);          // 1 when the user cancelled
    void (*open_row)();
    UINT order; // SWP_NOZORDER, or 0 to start on top
};

constexpr MenuGroup kEditorGroups[] = {kTextOnTop};
constexpr DocumentWindow kProject{kProjectGroups, CloseMORV, EditItem, SWP_NOZORDER};
constexpr DocumentWindow kSystem{kSystemGroups, CloseEngine, EditItem2, 0};

bool IsClose(UINT message, WPARAM wParam) {
    return message == WM_SYSCOMMAND && (wParam & 0xFFF0) == SC_CLOSE;
}

LRESULT PaintNothing(HWND hwnd) {
    PAINTSTRUCT paint;
    BeginPaint(hwnd, &paint);
    EndPaint(hwnd, &paint);
    return 0;
}

// The menu follows the active child, except on Windows NT. The message is read as 16-bit Windows
// sent it: a first argument of 1 for activation, or the activated window in the low 16 bits of the
// second. Those 16 bits tell the windows apart, however long their handles are.
LRESULT FollowActivation(HWND hwnd, WPARAM wParam, LPARAM lParam,
                         std::span<const MenuGroup> groups) {
    if (nt != 0)
        return 0;
    const bool active = wParam == 1 || LOWORD(reinterpret_cast<UINT_PTR>(hwnd)) == LOWORD(lParam);
    for (const MenuGroup group : groups)
        (active ? EnableMenu : GrayMenu)(GetFrame(), group);
    return 0;
}

HWND CreateControl(HWND hwnd, const char* type, DWORD style, int id) {
    const HWND control =
        CreateWindowExA(0, type, "", style, 0, 0, 0, 0, hwnd,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), hInst, nullptr);
    ShowWindow(control, SW_SHOW);
    return control;
}

void FillWith(HWND control, LPARAM size) {
    MoveWindow(control, 0, 0, LOWORD(size), HIWORD(size), TRUE);
}

// A list window starts as a strip at the bottom of the desktop's width.
void CreateList(HWND hwnd, UINT order) {
    RECT desktop;
    GetWindowRect(GetDesktopWindow(), &desktop);
    SetWindowPos(hwnd, HWND_TOP, desktop.left, desktop.bottom - 230, desktop.right - desktop.left,
                 156, SWP_SHOWWINDOW | order);
    UseDialogFont(CreateControl(hwnd, "LISTBOX", kListStyle, 0));
}

// The messages of every list window; all others go to the default.
LRESULT ListWindow(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT order) {
    switch (message) {
    case WM_CREATE:
        CreateList(hwnd, order);
        break;
    case WM_SIZE:
        FillWith(TopChild(hwnd), lParam);
        break;
    case WM_SETFOCUS:
        SetFocus(TopChild(hwnd));
        break;
    case WM_PAINT:
        return PaintNothing(hwnd);
    case WM_DESTROY:
        DestroyWindow(TopChild(hwnd));
        return 0;
    }
    return DefMDIChildProcA(hwnd, message, wParam, lParam);
}

void DocumentCommand(const DocumentWindow& document, WPARAM wParam) {
    if (HIWORD(wParam) == LBN_DBLCLK)
        document.open_row();
    else if (HIWORD(wParam) == EN_ERRSPACE)
        ShowMessage(hMdiC, "Text Memory excided", "Edit");
}

LRESULT DocumentProc(const DocumentWindow& document, HWND hwnd, UINT message, WPARAM wParam,
                     LPARAM lParam) {
    if (IsClose(message, wParam) && document.close(GetFrame()) == 1)
        return 0;
    if (message == WM_COMMAND) {
        DocumentCommand(document, wParam);
        return 0;
    }
    if (message == WM_MDIACTIVATE)
        return FollowActivation(hwnd, wParam, lParam, document.groups);
    return ListWindow(hwnd, message, wParam, lParam, document.order);
}

WNDPROC list_procedure; // the system's own

// Enter on a row does what a double-click does there; a list tells its window of the latter only.
LRESULT CALLBACK MessagesList(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && wParam == VK_RETURN) {
        const int id = GetDlgCtrlID(list);
        SendMessageA(GetParent(list), WM_COMMAND, MAKEWPARAM(id, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(list));
        return 0;
    }
    return CallWindowProcA(list_procedure, list, message, wParam, lParam);
}

void WatchEnter(HWND list) {
    list_procedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(MessagesList)));
}

LRESULT MessagesProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        if (HIWORD(wParam) == LBN_DBLCLK)
            OpenFinding();
        return 0;
    }
    if (message == WM_CREATE) {
        const LRESULT answer = ListWindow(hwnd, message, wParam, lParam, 0);
        WatchEnter(TopChild(hwnd));
        return answer;
    }
    // The Debug command keeps the handle of the window closed here: its next run asks to destroy
    // a window that is gone, which does nothing.
    if (IsClose(message, wParam))
        DestroyWindow(TopChild(hwnd));
    return ListWindow(hwnd, message, wParam, lParam, 0);
}

void CreateEdit(HWND hwnd) {
    EnableMenu(GetFrame(), kTextOnTop);
    const HWND edit = CreateControl(hwnd, "EDIT", kEditStyle, EDC_ID);
    UseTextFont(edit);
    UseTextKeys(edit);
    EDC_ID += 1;
}

// The keys go to the text of the editor that has the focus, not to the one created last.
void FocusEdit(HWND hwnd) {
    const HWND hwndEdit = TopChild(hwnd);
    SetFocus(hwndEdit);
}

LRESULT EditorProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsClose(message, wParam) && (IsRule() || CloseFile(hwnd) != 0))
        return 0;
    switch (message) {
    case WM_CREATE:
        CreateEdit(hwnd);
        break;
    case WM_SIZE:
        FillWith(TopChild(hwnd), lParam);
        break;
    case WM_SETFOCUS:
        FocusEdit(hwnd);
        break;
    case WM_MDIACTIVATE:
        return FollowActivation(hwnd, wParam, lParam, kEditorGroups);
    case WM_PAINT:
        return PaintNothing(hwnd);
    }
    return DefMDIChildProcA(hwnd, message, wParam, lParam);
}

} // namespace

LRESULT CALLBACK MdiFunc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return EditorProc(hwnd, message, wParam, lParam); });
}

LRESULT CALLBACK MdiFunc2(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return DocumentProc(kProject, hwnd, message, wParam, lParam); });
}

LRESULT CALLBACK MdiFunc3(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return DocumentProc(kSystem, hwnd, message, wParam, lParam); });
}

LRESULT CALLBACK MdiFunc4(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return MessagesProc(hwnd, message, wParam, lParam); });
}
