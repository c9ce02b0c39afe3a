#include "resources/local_variables.h"

#include "resources/core/record_files.h"
#include "resources/core/value_entries.h"
#include "resources/value_controls.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/list_columns.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

HWND Variables(HWND dialog) {
    return GetDlgItem(dialog, VAR_LIST);
}

void Open(HWND dialog) {
    LimitText(dialog, VAR_NAME, kNameSize);
    LimitText(dialog, VAR_VALUE, kNameSize);
    // The last record comes first, and Close keeps the order of the rows: every opening and closing
    // turns the file round.
    if (System.VarState) {
        const ColumnFill fill(Variables(dialog));
        AddRows(Variables(dialog), VariableRows(System.OldVarName));
    }
    FillTypes(dialog, VAR_TYPE, kNameSize);
}

void EditSelected(HWND dialog) {
    const std::optional<std::string> row = ListRows(Variables(dialog)).SelectedText();
    if (!row)
        return;
    const V_V variable = VariableIn(*row);
    SetDlgItemTextA(dialog, VAR_NAME, variable.Name);
    SetDlgItemTextA(dialog, VAR_TYPE, variable.Type);
    SetDlgItemTextA(dialog, VAR_VALUE, variable.Val);
}

void AppendItem(HWND dialog) {
    AppendSelected(dialog, VAR_DDE, VAR_VALUE);
}

void LoadItems(HWND dialog) {
    if (OpenDlg(" DDE Files (*.dde)\0*.dde\0All Files (*.*)\0*.*\0", "Open DDE File", ".dde",
                DDEIKnw, OFN_CREATEPROMPT) == 0)
        AddRows(GetDlgItem(dialog, VAR_DDE), OfferedItems(DDEIKnw));
}

void Add(HWND dialog) {
    V_V variable;
    SetText(variable.Name, ControlText(dialog, VAR_NAME, kNameSize));
    SetText(variable.Type, ControlText(dialog, VAR_TYPE, kNameSize));
    SetText(variable.Val, ControlText(dialog, VAR_VALUE, kNameSize));
    if (const char* missing = MissingIn(variable)) {
        ShowMessage(dialog, missing, "New Var", Buttons::Ok, Icon::Exclamation);
        return;
    }
    const ColumnFill fill(Variables(dialog));
    ListRows rows(Variables(dialog));
    // The blank keeps a longer name that starts alike from being replaced.
    rows.Delete(rows.FindPrefix(Text(variable.Name) + " "));
    rows.Insert(0, VariableRow(variable));
}

void Remove(HWND dialog) {
    ListRows(Variables(dialog)).DeleteSelected();
}

void Close(HWND dialog) {
    const Stored stored =
        StoreWhole(System.VarFile, RecordBytes(RowTexts(Variables(dialog)), VariableIn));
    if (stored != Stored::Yes)
        SaveErr();
    if (stored == Stored::NotWritten)
        return; // the rows are still there, to try again
    // The system takes the variables on even when their file could not be created.
    System.NameVar(WorkPath);
    System.VarState = 1;
    CloseDialog(dialog);
}

void Cancel(HWND dialog) {
    GoBack(System.VarFile, System.OldVarName);
    CloseDialog(dialog);
}

// Unlike Cancel, the close box forgets an earlier working copy too.
void CloseBox(HWND dialog) {
    SetText(System.VarFile, "");
    CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {VAR_LIST, LBN_DBLCLK, EditSelected}, {VAR_DDE, LBN_DBLCLK, AppendItem},
    {VAR_LOAD, BN_CLICKED, LoadItems},    {VAR_ADD, BN_CLICKED, Add},
    {VAR_REMOVE, BN_CLICKED, Remove},     {VAR_CLOSE, BN_CLICKED, Close},
    {IDCANCEL, BN_CLICKED, Cancel},
};
constexpr DialogTable kTable = {
    .open = Open, .actions = kActions, .close_box = CloseBox, .changed = MayBeChanged};

} // namespace

INT_PTR CALLBACK VarNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
