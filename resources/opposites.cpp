#include "resources/opposites.h"

#include "resources/list_texts.h"
#include "resources/record_files.h"
#include "shell/dialog.h"
#include "shell/list_rows.h"
#include "shell/mdi.h"
#include "shell/messages.h"
#include "shell/VARMORV.h"
#include "shell/ZENTRIK.h"

namespace {

// The edit that last had the focus, which a double-clicked result fills. It is kept from one
// opening of the dialog to the next.
int CON = -1;

constexpr int kColumn = 130; // where the opposites stand in the list of pairs, in dialog units

// The width in pixels of a pair as the list shows it.
int PairWidth(HWND hwnd, HWND list, const std::string& pair) {
    RECT column{0, 0, kColumn, 0};
    MapDialogRect(hwnd, &column);
    const int stop = column.right;
    const HDC dc = GetDC(list);
    const HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(list, WM_GETFONT, 0, 0)));
    const DWORD extent =
        GetTabbedTextExtentA(dc, pair.c_str(), static_cast<int>(pair.size()), 1, &stop);
    SelectObject(dc, before);
    ReleaseDC(list, dc);
    constexpr int kMargin = 8;
    return LOWORD(extent) + kMargin;
}

// Adds a pair; returns false when the list refuses it.
bool ShowPair(HWND hwnd, const std::string& pair) {
    const HWND list = GetDlgItem(hwnd, OPP_PAIRS);
    if (ListRows(list).Add(pair) < 0)
        return false;
    const int width = PairWidth(hwnd, list, pair);
    if (width > SendMessageA(list, LB_GETHORIZONTALEXTENT, 0, 0))
        SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
    return true;
}

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
    const HWND pairs = GetDlgItem(hwnd, OPP_PAIRS);
    int column = kColumn;
    SendMessageA(pairs, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&column));
    if (AddType != kAddResults)
        return;
    AddRows(GetDlgItem(hwnd, OPP_RESULTS), NamesIn(ResultFileName));
    const ListFill fill(pairs);
    for (int i = 0; i < System.OppNum; ++i) {
        if (!ShowPair(hwnd, System.GetOpp(i)))
            break;
    }
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
    if (HasRow(GetDlgItem(hwnd, OPP_PAIRS), pair))
        return;
    ShowPair(hwnd, pair);
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
