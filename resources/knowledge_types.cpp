#include "resources/knowledge_types.h"

#include "resources/core/record_files.h"
#include "shell/core/file_helpers.h"
#include "shell/services/dialog.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

char KTypeFileName[kNameSize];

namespace {

// A facts base stays usable while its types are edited, so one more dialog may open for it or for
// another base: each keeps its own.
struct TypesEditor {
    std::string path;
    bool KTypemod = false; // the list has changes that are not in the file
    bool refused = false;  // the last Close could not write them
};
using State = DialogState<TypesEditor>;

// Without a file that can be opened there is no editing: Close would put the names of an empty list
// in the place of those it has, or would fail again and again.
void Open(HWND hwnd) {
    State::Make(hwnd, {KTypeFileName});
    LimitText(hwnd, KTYPE_NAME, kTagSize);
    std::vector<TagRecord> types;
    if (!ReadOrCreate(KTypeFileName, types)) {
        GetErr();
        LeaveDialog(hwnd);
        return;
    }
    AddRows(GetDlgItem(hwnd, KTYPE_LIST), NamesOf(types));
}

void Add(HWND hwnd) {
    const std::string name = ControlText(hwnd, KTYPE_NAME, kTagSize);
    SetDlgItemTextA(hwnd, KTYPE_NAME, "");
    ListRows(GetDlgItem(hwnd, KTYPE_LIST)).Add(name);
    System.TypNum += 1;
    State::Of(hwnd).KTypemod = true;
}

void Remove(HWND hwnd) {
    ListRows(GetDlgItem(hwnd, KTYPE_LIST)).DeleteSelected();
    State::Of(hwnd).KTypemod = true;
}

void Close(HWND hwnd) {
    TypesEditor& editor = State::Of(hwnd);
    if (editor.KTypemod) {
        editor.refused = !WriteNames(editor.path.c_str(), RowTexts(GetDlgItem(hwnd, KTYPE_LIST)));
        if (editor.refused) {
            SaveErr();
            return;
        }
        editor.KTypemod = false;
    }
    EndDialog(hwnd, 0);
}

// There is no Cancel, so a file that can not be written for good needs this way out.
void CloseBox(HWND hwnd) {
    if (State::Of(hwnd).refused)
        EndDialog(hwnd, 0);
    else
        Close(hwnd);
}

constexpr DialogAction kActions[] = {
    {IDOK, BN_CLICKED, Add},
    {KTYPE_REMOVE, BN_CLICKED, Remove},
    {IDCANCEL, BN_CLICKED, Close},
};
constexpr DialogTable kTable = {
    .open = Open, .actions = kActions, .close_box = CloseBox, .destroyed = State::Drop};

} // namespace

INT_PTR CALLBACK TypeKnowledge(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
