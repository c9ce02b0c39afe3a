#include "shell/services/help.h"

#include "shell/services/dialog.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

#include <string>

namespace {

void ShowHelp(HWND hwnd, UINT command, ULONG_PTR data) {
    const std::string file = Text(WorkPath) + "\\zkhelp.hlp";
    WinHelpA(hwnd, file.c_str(), command, data);
}

INT_PTR CALLBACK AboutDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        return TRUE;
    case WM_COMMAND:
        // Esc and the close box come as IDCANCEL.
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
            EndDialog(hwnd, 0);
        return FALSE;
    default:
        return DialogColours(message, wParam);
    }
}

} // namespace

void ContentsHelp(HWND hwnd) {
    ShowHelp(hwnd, HELP_CONTENTS, 1);
}

void IndexHelp(HWND hwnd) {
    TopicHelp(hwnd, HELP_TOPIC_INDEX);
}

void TopicHelp(HWND hwnd, DWORD topic) {
    ShowHelp(hwnd, HELP_CONTEXT, topic);
}

void AboutZentrik(HWND hwnd) {
    RunDialog(hwnd, "About", AboutDlg);
}
