// "HL_Box": the project's value history length.
#include "project/project_commands.h"
#include "project/ZENPRO.h"
#include "shell/services/dialog.h"
#include "shell/services/ZENTRIK.h"

#include <cstdlib>

namespace {

constexpr int kLongest = 20; // characters read, with the NUL

// A text that is no number gives 0, one out of range the nearest number there is.
std::int32_t Number(const std::string& text) {
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(number, INT32_MIN, INT32_MAX));
}

} // namespace

INT_PTR CALLBACK HistoryDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        SetDlgItemTextA(hwnd, HL_LENGTH, std::to_string(Project.DatHisLen).c_str());
        return TRUE;
    }
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
        // A new length alone does not make the project ask to be saved.
        Project.DatHisLen = Number(ControlText(hwnd, HL_LENGTH, kLongest));
        EndDialog(hwnd, IDOK);
        return TRUE;
    }
    const bool closed = message == WM_SYSCOMMAND && (wParam & 0xfff0) == SC_CLOSE;
    if (closed || (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)) {
        EndDialog(hwnd, IDCANCEL);
        return TRUE;
    }
    return DialogColours(message, wParam);
}
