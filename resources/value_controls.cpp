#include "resources/value_controls.h"

#include "resources/core/value_entries.h"
#include "shell/services/dialog.h"
#include "shell/services/list_rows.h"

void FillTypes(HWND dialog, int id, int size) {
    for (const char* type : kValueTypes)
        SendDlgItemMessageA(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(type));
    SendDlgItemMessageA(dialog, id, CB_LIMITTEXT, static_cast<WPARAM>(size - 1), 0);
    SetDlgItemTextA(dialog, id, kFirstValueType);
}

void AppendSelected(HWND dialog, int list_id, int value_id) {
    const std::string item =
        ListRows(GetDlgItem(dialog, list_id)).SelectedText().value_or(std::string());
    SetDlgItemTextA(dialog, value_id,
                    AppendedValue(ControlText(dialog, value_id, kNameSize), item).c_str());
}
