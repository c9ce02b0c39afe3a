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

constexpr DialogAction kAboutActions[] = {
    {IDOK, BN_CLICKED, LeaveDialog},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kAbout = {.open = [](HWND) {}, .actions = kAboutActions};

INT_PTR CALLBACK AboutDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kAbout, hwnd, message, wParam);
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
