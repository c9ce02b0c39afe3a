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

void Open(HWND dialog) {
    SetDlgItemTextA(dialog, HL_LENGTH, std::to_string(Project.DatHisLen).c_str());
}

void Accept(HWND dialog) {
    // A new length alone does not make the project ask to be saved.
    Project.DatHisLen = Number(ControlText(dialog, HL_LENGTH, kLongest));
    CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {IDOK, BN_CLICKED, Accept},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = Open, .actions = kActions, .close_box = LeaveDialog};

} // namespace

INT_PTR CALLBACK HistoryDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
