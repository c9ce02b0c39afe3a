#include "shell/services/mdi.h"
#include "shell/core/record_text.h"
#include "shell/services/handles.h"

int EDC_ID = 50;

namespace {

bool IsOfClass(HWND hwnd, const char* type) {
    char name[16] = "";
    return GetClassNameA(hwnd, name, sizeof name) != 0 && lstrcmpiA(name, type) == 0;
}

} // namespace

HWND CrearMdiCh(const char* typ, const char* nom) {
    MDICREATESTRUCTA child{};
    child.szClass = typ;
    child.szTitle = nom;
    child.hOwner = hInst;
    child.x = child.y = child.cx = child.cy = CW_USEDEFAULT;
    child.style = WS_VISIBLE | WS_CLIPSIBLINGS | WS_OVERLAPPEDWINDOW;
    return reinterpret_cast<HWND>(
        SendMessageA(hMdiC, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&child)));
}

LRESULT DestroyMdiCh(HWND hwnd) {
    // Any kind of child counts down, but only the editors count up, so identifiers may repeat.
    EDC_ID -= 1;
    // Asked for the child after a window that is gone, the client would take the maximised state
    // from another child.
    if (!IsWindow(hwnd))
        return 0;
    SetActiveWindow(GetFrame());
    NextMdi(hwnd);
    return SendMessageA(hMdiC, WM_MDIDESTROY, reinterpret_cast<WPARAM>(hwnd), 0);
}

void RestoreMdiCh(HWND hwnd) {
    SendMessageA(hMdiC, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(hwnd), 0);
    SendMessageA(hMdiC, WM_MDIRESTORE, reinterpret_cast<WPARAM>(hwnd), 0);
}

int TextState(HWND& edit) {
    edit = TextHwnd();
    return static_cast<int>(SendMessageA(edit, EM_GETMODIFY, 0, 0));
}

HWND TextHwnd() {
    return TopChild(GetMdi());
}

HWND GetMdi() {
    return TopChild(hMdiC);
}

void NextMdi(HWND hwnd) {
    SendMessageA(hMdiC, WM_MDINEXT, reinterpret_cast<WPARAM>(hwnd), 0);
}

HWND GetFrame() {
    return GetParent(hMdiC);
}

HWND TopChild(HWND hwnd) {
    // Without a window the system would answer with the topmost window of the desktop.
    return hwnd ? GetTopWindow(hwnd) : nullptr;
}

HWND ListOf(HWND child, HWND known) {
    const bool there = child && IsWindow(known) && GetParent(known) == child;
    return there ? known : TopChild(child);
}

std::string ChildTitle(HWND child) {
    char title[kNameSize] = "";
    GetWindowTextA(child, title, sizeof title);
    return title;
}

bool IsEditor(HWND hwnd) {
    return IsOfClass(hwnd, "Main");
}

bool IsDocument(HWND hwnd) {
    return IsOfClass(hwnd, "Projec") || IsOfClass(hwnd, "Dial");
}
