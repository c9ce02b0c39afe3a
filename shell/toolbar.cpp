#include "shell/toolbar.h"

#include "build/compile.h"
#include "build/debug.h"
#include "build/execute.h"
#include "build/tools.h"
#include "project/project_commands.h"
#include "shell/services/editor.h"
#include "shell/services/guarded.h"
#include "shell/services/handles.h"
#include "shell/services/mdi.h"
#include "shell/services/menu.h"
#include "shell/services/ZENTRIK.h"
#include "system/system_commands.h"

#include <iterator>

namespace {

constexpr int kButtonSize = 25;
constexpr int kPictureSize = 64;

// The menu's command enables the items for a text; this one leaves them as they were, so what the
// new editor's activation does to them is taken back.
void NewFileFromToolbar(HWND frame) {
    const UINT state = GetMenuState(GetMenu(frame), CM_SAVE_FILE, MF_BYCOMMAND);
    OpenEdit("untitled");
    ((state & MF_GRAYED) != 0 ? GrayMenu : EnableMenu)(frame, kTextOnTop);
}

// A failed compile has shown why; the toolbar adds nothing.
void CompileFromToolbar(HWND frame) {
    CompileMORV(frame);
}

struct Button {
    int id;
    int x;
    int picture;
    int pressed;
    void (*run)(HWND frame);
};

constexpr Button kButtons[] = {
    {TB_NEW_MORV, 10, BMP_NEW_MORV, BMP_NEW_MORV_PRESSED, NewMORV},
    {TB_OPEN_MORV, 35, BMP_OPEN_MORV, BMP_OPEN_MORV_PRESSED, OpenMORV},
    {TB_NEW_SYSTEM, 70, BMP_NEW_SYSTEM, BMP_NEW_SYSTEM_PRESSED, NewEngine},
    {TB_OPEN_SYSTEM, 95, BMP_OPEN_SYSTEM, BMP_OPEN_SYSTEM_PRESSED, OpenEngine},
    {TB_NEW_FILE, 130, BMP_NEW_FILE, BMP_NEW_FILE_PRESSED, NewFileFromToolbar},
    {TB_DEBUG, 165, BMP_DEBUG, BMP_DEBUG_PRESSED, DebugMORV},
    {TB_COMPILE, 190, BMP_COMPILE, BMP_COMPILE_PRESSED, CompileFromToolbar},
    {TB_EXECUTE, 215, BMP_EXECUTE, BMP_EXECUTE_PRESSED, ExecMORV},
};

struct Pictures {
    HBITMAP normal;
    HBITMAP pressed;
};
Pictures g_pictures[std::size(kButtons)];

// The index of a button, or -1.
int IndexOf(UINT id) {
    for (std::size_t i = 0; i < std::size(kButtons); ++i)
        if (static_cast<UINT>(kButtons[i].id) == id)
            return static_cast<int>(i);
    return -1;
}

HBITMAP LoadPicture(int number) {
    return LoadBitmapA(hInst, MAKEINTRESOURCEA(number));
}

void CreateButtons(HWND hwnd) {
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        const Button& button = kButtons[i];
        CreateWindowExA(0, "BUTTON", "", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, button.x, 0,
                        kButtonSize, kButtonSize, hwnd,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(button.id)), hInst, nullptr);
        g_pictures[i] = {LoadPicture(button.picture), LoadPicture(button.pressed)};
    }
}

void DrawButton(const DRAWITEMSTRUCT& item) {
    const int index = IndexOf(item.CtlID);
    if (index < 0)
        return;
    const Pictures& pictures = g_pictures[index];
    const HDC picture = CreateCompatibleDC(item.hDC);
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const HGDIOBJ before = SelectObject(picture, pressed ? pictures.pressed : pictures.normal);
    const RECT& to = item.rcItem;
    SetStretchBltMode(item.hDC, COLORONCOLOR);
    StretchBlt(item.hDC, to.left, to.top, to.right - to.left, to.bottom - to.top, picture, 0, 0,
               kPictureSize, kPictureSize, SRCCOPY);
    SelectObject(picture, before);
    DeleteDC(picture);
}

// On 16-bit Windows the upper half of lParam was the notification code, 0 for a click. Now lParam
// is the button's handle, whose upper half is 0 on the systems that have the toolbar. Where handles
// are longer, the code and the button itself tell a click.
void RunButton(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    const int index = IndexOf(LOWORD(wParam));
    const bool own =
        index >= 0 && reinterpret_cast<HWND>(lParam) == GetDlgItem(hwnd, kButtons[index].id);
    const bool clicked = HIWORD(wParam) == BN_CLICKED && own;
    if (index >= 0 && ((lParam >> 16) == 0 || clicked))
        kButtons[index].run(GetFrame());
}

void DeletePictures() {
    for (Pictures& pictures : g_pictures) {
        DeleteObject(pictures.normal);
        DeleteObject(pictures.pressed);
        pictures = {};
    }
}

// The handle of the messages window stays as it is: the Debug command owns it.
void CloseToolbar(HWND hwnd) {
    DestroyWindow(TopChild(hwnd));
    SendMessageA(hMdiC, WM_MDIDESTROY, reinterpret_cast<WPARAM>(hwnd), 0);
}

LRESULT ToolbarProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        CreateButtons(hwnd);
        return 0;
    case WM_DRAWITEM:
        DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_COMMAND:
        RunButton(hwnd, wParam, lParam);
        return 0;
    case WM_SYSCOMMAND:
        if ((wParam & 0xFFF0) == SC_CLOSE) {
            CloseToolbar(hwnd);
            return 0;
        }
        break;
    case WM_DESTROY:
        DeletePictures();
        return 0;
    }
    return DefMDIChildProcA(hwnd, message, wParam, lParam);
}

} // namespace

LRESULT CALLBACK MdiFunc5(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return ToolbarProc(hwnd, message, wParam, lParam); });
}
