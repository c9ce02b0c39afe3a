#include "resources/opposites.h"

#include "resources/core/record_files.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/list_columns.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/mdi.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

// Where a double-clicked result goes: the edit the user was in last, even when that was in an
// earlier dialog.
int CON = -1;

// Registers the dialog's window class again, with a grey background. Dialogs made later have it.
void GreyClass(HWND hwnd) {
    char name[kNameSize];
    WNDCLASSA data;
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(hwnd, GWLP_HINSTANCE));
    if (GetClassNameA(hwnd, name, sizeof name) == 0 || !GetClassInfoA(instance, name, &data))
        return;
    data.lpszClassName = name;
    data.hbrBackground = static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH));
    RegisterClassA(&data);
}

void Open(HWND hwnd) {
    GreyClass(hwnd);
    LimitText(hwnd, OPP_RESULT, kTagSize);
    LimitText(hwnd, OPP_OPPOSITE, kTagSize);
    if (AddType != kAddResults)
        return;
    AddRows(GetDlgItem(hwnd, OPP_RESULTS), NamesIn(ResultFileName));
    const HWND pairs = GetDlgItem(hwnd, OPP_PAIRS);
    const ColumnFill fill(pairs);
    ListRows rows(pairs);
    for (int i = 0; i < System.OppNum; ++i) {
        if (rows.Add(System.GetOpp(i)) < 0)
            break;
    }
}

void TakeResult(HWND hwnd) {
    if (const auto result = ListRows(GetDlgItem(hwnd, OPP_RESULTS)).SelectedText())
        SetDlgItemTextA(hwnd, CON == -1 ? OPP_RESULT : CON, result->c_str());
}

// The text of an edit when it is one of the results. Returns false after saying that it is not.
bool ResultIn(HWND hwnd, int edit, std::string& name) {
    name = ControlText(hwnd, edit, kTagSize);
    if (ListRows(GetDlgItem(hwnd, OPP_RESULTS)).FindExact(name) >= 0)
        return true;
    ShowMessage(hwnd, "Result not defined", "Add Opposites", Buttons::Ok, Icon::Exclamation);
    return false;
}

void Add(HWND hwnd) {
    std::string result;
    std::string opposite;
    if (!ResultIn(hwnd, OPP_RESULT, result) || !ResultIn(hwnd, OPP_OPPOSITE, opposite))
        return;
    const std::string pair = result + '\t' + opposite;
    const HWND pairs = GetDlgItem(hwnd, OPP_PAIRS);
    if (HasRow(pairs, pair))
        return;
    const ColumnFill fill(pairs);
    ListRows(pairs).Add(pair);
    SetDlgItemTextA(hwnd, OPP_RESULT, "");
    SetDlgItemTextA(hwnd, OPP_OPPOSITE, "");
}

void Remove(HWND hwnd) {
    ListRows(GetDlgItem(hwnd, OPP_PAIRS)).DeleteSelected();
}

void Close(HWND hwnd) {
    const ListFill fill(TopChild(System.hwndSys));
    if (System.OppNum > 0)
        System.DelOpp();
    for (const std::string& pair : RowTexts(GetDlgItem(hwnd, OPP_PAIRS))) {
        char text[kNameSize + 1]; // the document puts a TAB in front
        SetText(text, std::string_view(pair).substr(0, kNameSize - 1));
        System.NameOpp(text);
        System.OppNum += 1;
    }
    if (System.OppNum > 0)
        System.TitleOpp();
    System.Engmod = 1; // also when nothing changed
    CloseDialog(hwnd);
}

constexpr DialogAction kActions[] = {
    {OPP_RESULT, EN_SETFOCUS, [](HWND) { CON = OPP_RESULT; }},
    {OPP_OPPOSITE, EN_SETFOCUS, [](HWND) { CON = OPP_OPPOSITE; }},
    {OPP_RESULTS, LBN_DBLCLK, TakeResult},
    {OPP_ADD, BN_CLICKED, Add},
    {OPP_REMOVE, BN_CLICKED, Remove},
    {OPP_CLOSE, BN_CLICKED, Close},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = Open, .actions = kActions, .changed = MayBeChanged};

} // namespace

INT_PTR CALLBACK OppAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
