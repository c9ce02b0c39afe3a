#include "resources/initial_facts.h"

#include "resources/core/record_files.h"
#include "resources/core/value_entries.h"
#include "resources/value_controls.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/list_columns.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

HWND Facts(HWND dialog) {
    return GetDlgItem(dialog, INIT_FACTS);
}

// A row for each fact of the system, in its order: what the file says of other facts is dropped.
std::vector<std::string> FactRows() {
    const InitialValues values(System.OldInitName);
    std::vector<std::string> rows;
    for (int i = 0; i < System.DatNum; ++i) {
        char name[kNameSize + 1] = "";
        System.GetKnw(i, name);
        rows.push_back(values.Row(name));
    }
    return rows;
}

void Open(HWND dialog) {
    LimitText(dialog, INIT_FACT, kNameSize);
    LimitText(dialog, INIT_VALUE, kNameSize);
    {
        const ColumnFill fill(Facts(dialog));
        AddRows(Facts(dialog), FactRows());
    }
    std::vector<std::string> parts =
        VariableNames(System.VarFile[0] ? System.VarFile : System.VarName);
    const std::vector<std::string> items = OfferedItems(DDEIKnw);
    parts.insert(parts.end(), items.begin(), items.end());
    AddRows(GetDlgItem(dialog, INIT_VARS), parts);
    for (const char* word : kCertainties)
        SendDlgItemMessageA(dialog, INIT_CERTAINTY, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(word));
}

void EditSelected(HWND dialog) {
    const std::optional<std::string> row = ListRows(Facts(dialog)).SelectedText();
    if (!row)
        return;
    SetDlgItemTextA(dialog, INIT_FACT, FirstWord(*row).c_str());
    SetDlgItemTextA(dialog, INIT_VALUE, "");
}

void AppendVariable(HWND dialog) {
    AppendSelected(dialog, INIT_VARS, INIT_VALUE);
}

void Replace(HWND dialog, int row, const std::string& text) {
    const ColumnFill fill(Facts(dialog));
    ListRows rows(Facts(dialog));
    if (rows.Delete(row))
        rows.Insert(row, text);
}

void Add(HWND dialog) {
    I_K fact;
    SetText(fact.K_Name, ControlText(dialog, INIT_FACT, kNameSize));
    SetText(fact.K_Val, ControlText(dialog, INIT_VALUE, kNameSize));
    SetText(fact.Pres, ControlText(dialog, INIT_CERTAINTY, kNameSize));
    if (!fact.Pres[0]) {
        ShowMessage(dialog, "Certainty needed", "Init Knowledge Base");
        return;
    }
    // The first row that starts with the text is meant, so the start of a name is enough; no text
    // at all means none.
    if (fact.K_Name[0])
        Replace(dialog, ListRows(Facts(dialog)).FindPrefix(Text(fact.K_Name)),
                InitialFactRow(fact));
}

void Remove(HWND dialog) {
    const ListRows rows(Facts(dialog));
    const int row = rows.Selected();
    Replace(dialog, row, UnsetFactRow(FirstWord(rows.RowText(row))));
}

void Close(HWND dialog) {
    System.Engmod = 1;
    // A value with a blank is cut there: values are single words.
    switch (StoreWhole(System.IKWFile, RecordBytes(RowTexts(Facts(dialog)), InitialFactIn))) {
    case Stored::Yes:
        System.InitNew = 1;
        break;
    case Stored::NotCreated:
        ShowMessage(nullptr, "Init File Error", "Init Fats", Buttons::Ok, Icon::Exclamation);
        break;
    case Stored::NotWritten:
        SaveErr();
        return; // the rows are still there, to try again
    }
    CloseDialog(dialog);
}

void Cancel(HWND dialog) {
    GoBack(System.IKWFile, System.OldInitName);
    CloseDialog(dialog);
}

// Unlike Cancel, the close box forgets an earlier working copy too.
void CloseBox(HWND dialog) {
    SetText(System.IKWFile, "");
    CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {INIT_FACTS, LBN_DBLCLK, EditSelected},
    {INIT_VARS, LBN_DBLCLK, AppendVariable},
    {IDOK, BN_CLICKED, Add},
    {INIT_REMOVE, BN_CLICKED, Remove},
    {INIT_CLOSE, BN_CLICKED, Close},
    {IDCANCEL, BN_CLICKED, Cancel},
};
constexpr DialogTable kTable = {
    .open = Open, .actions = kActions, .close_box = CloseBox, .changed = MayBeChanged};

} // namespace

INT_PTR CALLBACK InitKnw(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
