#include "resources/knowledge_types.h"

#include "resources/list_texts.h"
#include "resources/record_files.h"
#include "shell/dialog.h"
#include "shell/file_helpers.h"
#include "shell/list_rows.h"
#include "shell/VARMORV.h"
#include "shell/ZENTRIK.h"

#include <utility>

char KTypeFileName[kNameSize];

namespace {

// A facts base stays usable while its types are edited, so one more dialog may open for it or for
// another base: each keeps its own.
struct TypesEditor {
    std::string path = KTypeFileName;
    bool KTypemod = false; // the list changed since it was last written
};

TypesEditor& EditorOf(HWND hwnd) {
    return *reinterpret_cast<TypesEditor*>(GetWindowLongPtrA(hwnd, DWLP_USER));
}

void Open(HWND hwnd) {
    SetWindowLongPtrA(hwnd, DWLP_USER, reinterpret_cast<LONG_PTR>(new TypesEditor));
    SendDlgItemMessageA(hwnd, KTYPE_NAME, EM_SETLIMITTEXT, kTagSize - 1, 0);
    std::vector<TagRecord> types;
    ReadOrCreate(KTypeFileName, types);
    AddRows(GetDlgItem(hwnd, KTYPE_LIST), NamesOf(types));
}

void Add(HWND hwnd) {
    const std::string name = ControlText(hwnd, KTYPE_NAME, kTagSize);
    SetDlgItemTextA(hwnd, KTYPE_NAME, "");
    ListRows(GetDlgItem(hwnd, KTYPE_LIST)).Add(name);
    System.TypNum += 1;
    EditorOf(hwnd).KTypemod = true;
}

void Remove(HWND hwnd) {
    ListRows rows(GetDlgItem(hwnd, KTYPE_LIST));
    rows.Delete(rows.Selected());
    EditorOf(hwnd).KTypemod = true;
}

void Close(HWND hwnd) {
    TypesEditor& editor = EditorOf(hwnd);
    // Cleared first: there is no Cancel, so after a failed write a second Close leaves.
    const bool changed = std::exchange(editor.KTypemod, false);
    if (changed && !WriteNames(editor.path.c_str(), RowTexts(GetDlgItem(hwnd, KTYPE_LIST)))) {
        SaveErr();
        return;
    }
    EndDialog(hwnd, 0);
}

void Command(HWND hwnd, WPARAM wParam) {
    if (Notified(wParam, IDOK, BN_CLICKED))
        Add(hwnd);
    else if (Notified(wParam, KTYPE_REMOVE, BN_CLICKED))
        Remove(hwnd);
    else if (Notified(wParam, IDCANCEL, BN_CLICKED))
        Close(hwnd);
}

} // namespace

INT_PTR CALLBACK TypeKnowledge(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        Open(hwnd);
        return TRUE;
    case WM_COMMAND:
        Command(hwnd, wParam);
        return TRUE;
    case WM_DESTROY:
        delete &EditorOf(hwnd);
        return TRUE;
    default:
        return DialogColours(message, wParam);
    }
}
