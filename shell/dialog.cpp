#include "shell/dialog.h"

#include "shell/VARMORV.h"

INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure) {
    return DialogBoxParamA(hInst, name, owner, procedure, 0);
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

bool Notified(WPARAM wParam, int id, int code) {
    return LOWORD(wParam) == id && HIWORD(wParam) == code;
}
