#include "resources/opposites.h"

#include "resources/list_texts.h"
#include "resources/record_files.h"
#include "shell/dialog.h"
#include "shell/list_columns.h"
#include "shell/list_rows.h"
#include "shell/mdi.h"
#include "shell/messages.h"
#include "shell/VARMORV.h"
#include "shell/ZENTRIK.h"

namespace {

// The edit that last had the focus, which a double-clicked result fills. It is kept from one
// opening of the dialog to the next.
int CON = -1;

// Gives the dialog's window class the background of the dialogs, for those that are made later.
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
    SendDlgItemMessageA(hwnd, OPP_RESULT, EM_SETLIMITTEXT, kTagSize - 1, 0);
    SendDlgItemMessageA(hwnd, OPP_OPPOSITE, EM_SETLIMITTEXT, kTagSize - 1, 0);
    if (AddType != kAddResults)
        return;
    AddRows(GetDlgItem(hwnd, OPP_RESULTS), NamesIn(ResultFileName));
    const HWND pairs = GetDlgItem(hwnd, OPP_PAIRS);
    const ListFill fill(pairs);
    ListRows rows(pairs);
    for (int i = 0; i < System.OppNum; ++i) {
        if (rows.Add(System.GetOpp(i)) < 0)
            break;
    }
    AlignColumns(pairs);
}

void TakeResult(HWND hwnd) {
    const ListRows results(GetDlgItem(hwnd, OPP_RESULTS));
    if (results.Selected() >= 0)
        SetDlgItemTextA(hwnd, CON == -1 ? OPP_RESULT : CON,
                        results.RowText(results.Selected()).c_str());
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
    ListRows(pairs).Add(pair);
    AlignColumns(pairs);
    SetDlgItemTextA(hwnd, OPP_RESULT, "");
    SetDlgItemTextA(hwnd, OPP_OPPOSITE, "");
}

void Remove(HWND hwnd) {
    ListRows pairs(GetDlgItem(hwnd, OPP_PAIRS));
    pairs.Delete(pairs.Selected());
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
    EndDialog(hwnd, 0);
}

void Command(HWND hwnd, WPARAM wParam) {
    const int id = LOWORD(wParam);
    if (HIWORD(wParam) == EN_SETFOCUS && (id == OPP_RESULT || id == OPP_OPPOSITE))
        CON = id;
    else if (Notified(wParam, OPP_RESULTS, LBN_DBLCLK))
        TakeResult(hwnd);
    else if (Notified(wParam, OPP_ADD, BN_CLICKED))
        Add(hwnd);
    else if (Notified(wParam, OPP_REMOVE, BN_CLICKED))
        Remove(hwnd);
    else if (Notified(wParam, OPP_CLOSE, BN_CLICKED))
        Close(hwnd);
    else if (Notified(wParam, IDCANCEL, BN_CLICKED))
        EndDialog(hwnd, 0);
}

} // namespace

INT_PTR CALLBACK OppAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        Open(hwnd);
        return TRUE;
    case WM_COMMAND:
        Command(hwnd, wParam);
        return TRUE;
    default:
        return DialogColours(message, wParam);
    }
}
