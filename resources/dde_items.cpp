#include "resources/dde_items.h"

#include "resources/value_controls.h"
#include "resources/value_entries.h"
#include "shell/dialog.h"
#include "shell/file_dialogs.h"
#include "shell/file_helpers.h"
#include "shell/list_columns.h"
#include "shell/list_rows.h"
#include "shell/messages.h"
#include "shell/ZENTRIK.h"

char DDEFileName[kNameSize];
int DDEType;

namespace {

constexpr const char* kUntitled = "untitled.dde";

// What one open dialog edits. A new file's dialog leaves the frame enabled, so another dialog can
// be opened beside it: each keeps its own file.
struct Editing {
    std::string file;
    int DDEmod; // 1 = changed since opening
};

Editing& Edited(HWND dialog) {
    return *reinterpret_cast<Editing*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

HWND Items(HWND dialog) {
    return GetDlgItem(dialog, DDE_ITEMS);
}

void Open(HWND dialog) {
    SetWindowLongPtrA(dialog, DWLP_USER,
                      reinterpret_cast<LONG_PTR>(new Editing{Text(DDEFileName), 0}));
    LimitText(dialog, DDE_NAME, kNameSize);
    LimitText(dialog, DDE_ITEM_NAME, sizeof(DDE_ITEM::DName));
    DdeFile dde;
    if (DDEType == 1 && ReadDde(DDEFileName, files::Mode::Read, dde)) {
        SetDlgItemTextA(dialog, DDE_NAME, dde.name.c_str());
        std::vector<std::string> rows(dde.items.size());
        std::transform(dde.items.begin(), dde.items.end(), rows.begin(), DdeRow);
        AddRows(Items(dialog), rows);
    }
    FillTypes(dialog, DDE_TYPE, sizeof(DDE_ITEM::DType));
}

void Ask(HWND dialog, const char* text) {
    ShowMessage(dialog, text, "New Dde", Buttons::Ok, Icon::Exclamation);
}

bool IsListed(HWND list, const std::string& name) {
    const ListRows rows(list);
    const int count = rows.Count();
    for (int i = 0; i < count; ++i) {
        const std::string row = rows.RowText(i);
        if (row.substr(0, row.find('\t')) == name)
            return true;
    }
    return false;
}

void Add(HWND dialog) {
    DDE_ITEM item;
    SetText(item.DName, ControlText(dialog, DDE_ITEM_NAME, sizeof item.DName));
    SetText(item.DType, ControlText(dialog, DDE_TYPE, sizeof item.DType));
    if (const char* missing = MissingIn(item)) {
        Ask(dialog, missing);
        return;
    }
    if (!IsListed(Items(dialog), Text(item.DName))) {
        ListRows(Items(dialog)).Add(DdeRow(item));
        AlignColumns(Items(dialog));
    }
    SetDlgItemTextA(dialog, DDE_ITEM_NAME, "");
    Edited(dialog).DDEmod = 1;
}

void Remove(HWND dialog) {
    ListRows rows(Items(dialog));
    rows.Delete(rows.Selected());
    Edited(dialog).DDEmod = 1;
}

// Where to write: the edited file, or for a new one what the user chooses; empty on cancel.
std::string Target(const Editing& editing) {
    if (editing.file != kUntitled)
        return editing.file;
    char name[kNameSize];
    if (SaveDlg("MORV DDE File (*.dde)\0*.dde\0 All Files (*.*)\0*.*\0", "New DDE Item", ".dde",
                name, OFN_OVERWRITEPROMPT) != 0)
        return {};
    return name;
}

void Close(HWND dialog) {
    Editing& editing = Edited(dialog);
    if (SendDlgItemMessageA(dialog, DDE_NAME, EM_GETMODIFY, 0, 0))
        editing.DDEmod = 1;
    if (editing.DDEmod != 1) {
        EndDialog(dialog, 0);
        return;
    }
    DdeFile dde;
    dde.name = ControlText(dialog, DDE_NAME, kNameSize);
    if (dde.name.empty()) {
        Ask(dialog, "Items Name must be defined");
        return;
    }
    const std::string target = Target(editing);
    if (target.empty())
        return;
    for (const std::string& row : AllRows(Items(dialog)))
        dde.items.push_back(DdeItemIn(row));
    if (StoreWhole(target.c_str(), DdeBytes(dde)) != Stored::Yes) {
        // Still changed and, when new, still untitled: the user can choose another place.
        SaveErr();
        return;
    }
    editing = {target, 0};
    SetText(DDEFileName, target);
    ListRows(Items(dialog)).Clear();
    EndDialog(dialog, 0);
}

BOOL Command(HWND dialog, WPARAM wParam) {
    if (Notified(wParam, IDOK, BN_CLICKED))
        Add(dialog);
    else if (Notified(wParam, DDE_REMOVE, BN_CLICKED))
        Remove(dialog);
    else if (Notified(wParam, DDE_CLOSE, BN_CLICKED))
        Close(dialog);
    else if (Notified(wParam, IDCANCEL, BN_CLICKED))
        EndDialog(dialog, 0);
    else
        return FALSE;
    return TRUE;
}

} // namespace

void NewDDE(HWND) {
    DDEType = 0;
    SetText(DDEFileName, kUntitled);
    // Without an owner: the frame can be used while a new list is put together.
    RunDialog(nullptr, "Dde_Box", DDEDlg);
}

void LoadDDE(HWND hwnd) {
    char name[kNameSize];
    if (OpenDlg(" DDE Files (*.dde)\0*.dde\0All Files (*.*)\0*.*\0", "Open DDE File", ".dde", name,
                OFN_CREATEPROMPT) != 0)
        return;
    SetText(DDEFileName, name);
    DDEType = 1;
    RunDialog(hwnd, "Dde_Box", DDEDlg);
}

INT_PTR CALLBACK DDEDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        Open(hwnd);
        return TRUE;
    case WM_COMMAND:
        return Command(hwnd, wParam);
    case WM_CLOSE:
        EndDialog(hwnd, 0);
        return TRUE;
    case WM_DESTROY:
        delete &Edited(hwnd);
        SetWindowLongPtrA(hwnd, DWLP_USER, 0);
        return TRUE;
    default:
        return DialogColours(message, wParam);
    }
}
