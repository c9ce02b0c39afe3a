#include "shell/services/text_keys.h"

#include "shell/services/editor.h"
#include "shell/services/find_text.h"
#include "shell/services/go_to_line.h"
#include "shell/services/guarded.h"

namespace {

WNDPROC edit_procedure; // of the system's class

// The character that Ctrl and a letter make.
constexpr WPARAM WithCtrl(char letter) {
    return static_cast<WPARAM>(letter - 'A' + 1);
}

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool TakeCharacter(HWND edit, WPARAM character) {
    switch (character) {
    case WithCtrl('A'):
        SendMessageA(edit, EM_SETSEL, 0, -1);
        return true;
    case WithCtrl('F'):
        AskWhatToFind(edit);
        return true;
    case WithCtrl('G'):
        GoToLine(edit);
        return true;
    case WithCtrl('H'):
        // The Backspace key makes the same character.
        if (!IsDown(VK_CONTROL))
            return false;
        AskWhatToReplace(edit);
        return true;
    case WithCtrl('S'):
        SaveFile(GetParent(edit));
        return true;
    default:
        return false;
    }
}

bool Take(HWND edit, UINT message, WPARAM wParam) {
    if (message == WM_CHAR)
        return TakeCharacter(edit, wParam);
    if (message == WM_KEYDOWN && wParam == VK_F3) {
        FindAgain(edit, IsDown(VK_SHIFT));
        return true;
    }
    return TakeFindMessage(edit, message);
}

LRESULT CALLBACK TextProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&]() -> LRESULT {
        if (Take(edit, message, wParam))
            return 0;
        if (message == WM_DESTROY)
            EndFinding(edit);
        return CallWindowProcA(edit_procedure, edit, message, wParam, lParam);
    });
}

} // namespace

void UseTextKeys(HWND edit) {
    if (!edit)
        return;
    edit_procedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TextProc)));
}
