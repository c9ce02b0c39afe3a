#include "resources/value_controls.h"

#include "resources/value_entries.h"
#include "shell/dialog.h"
#include "shell/list_columns.h"
#include "shell/list_rows.h"

void FillTypes(HWND dialog, int id, int size) {
    for (const char* type : kValueTypes)
        SendDlgItemMessageA(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(type));
    SendDlgItemMessageA(dialog, id, CB_LIMITTEXT, static_cast<WPARAM>(size - 1), 0);
    SetDlgItemTextA(dialog, id, kFirstValueType);
}

void LimitText(HWND dialog, int id, int size) {
    SendDlgItemMessageA(dialog, id, EM_LIMITTEXT, static_cast<WPARAM>(size - 1), 0);
}

void AddRows(HWND list, const std::vector<std::string>& rows) {
    std::size_t bytes = 0;
    for (const std::string& row : rows)
        bytes += row.size() + 1;
    const ListFill fill(list, static_cast<int>(rows.size()), static_cast<int>(bytes));
    ListRows target(list);
    for (const std::string& row : rows)
        target.Add(row);
    AlignColumns(list);
}

std::vector<std::string> AllRows(HWND list) {
    const ListRows source(list);
    std::vector<std::string> rows(static_cast<std::size_t>(source.Count()));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = source.RowText(static_cast<int>(i));
    return rows;
}

void AppendSelected(HWND dialog, int list_id, int value_id) {
    const ListRows rows(GetDlgItem(dialog, list_id));
    const std::string item = rows.RowText(rows.Selected());
    SetDlgItemTextA(dialog, value_id,
                    AppendedValue(ControlText(dialog, value_id, kNameSize), item).c_str());
}
