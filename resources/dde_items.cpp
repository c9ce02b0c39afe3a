#include "resources/dde_items.h"

#include "resources/core/value_entries.h"
#include "resources/value_controls.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/services/ask_and_save.h"
#include "shell/services/dialog.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/list_columns.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/ZENTRIK.h"

char DDEFileName[kNameSize];
int DDEType;

namespace {

constexpr const char* kUntitled = "untitled.dde";

// What one open dialog edits. A new file's dialog leaves the frame enabled, so another dialog can
// be opened beside it: each keeps its own file.
struct Editing {
    std::string file;
    int DDEmod = 0; // 1 = changed since opening
};
using State = DialogState<Editing>;

HWND Items(HWND dialog) {
    return GetDlgItem(dialog, DDE_ITEMS);
}

// Lists the items of the file. One that is there and cannot be read is not edited: Close would put
// the items of an empty list in the place of its own.
void Load(HWND dialog) {
    DdeFile dde;
    if (!ReadDde(DDEFileName, files::Mode::Read, dde)) {
        if (files::Exists(DDEFileName)) {
            GetErr();
            LeaveDialog(dialog);
        }
        return;
    }
    SetDlgItemTextA(dialog, DDE_NAME, dde.name.c_str());
    std::vector<std::string> rows(dde.items.size());
    std::transform(dde.items.begin(), dde.items.end(), rows.begin(), DdeRow);
    const ColumnFill fill(Items(dialog));
    AddRows(Items(dialog), rows);
}

void Open(HWND dialog) {
    State::Make(dialog, {Text(DDEFileName)});
    LimitText(dialog, DDE_NAME, kNameSize);
    LimitText(dialog, DDE_ITEM_NAME, sizeof(DDE_ITEM::DName));
    FillTypes(dialog, DDE_TYPE, sizeof(DDE_ITEM::DType));
    if (DDEType == 1)
        Load(dialog);
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
        const ColumnFill fill(Items(dialog));
        ListRows(Items(dialog)).Add(DdeRow(item));
    }
    SetDlgItemTextA(dialog, DDE_ITEM_NAME, "");
    State::Of(dialog).DDEmod = 1;
}

void Remove(HWND dialog) {
    ListRows(Items(dialog)).DeleteSelected();
    State::Of(dialog).DDEmod = 1;
}

// Writes the items under `path`, which is the edited file from then on. A failure, which is shown,
// leaves everything as it was: a new list can be given another place.
bool Write(HWND dialog, const std::string& path) {
    DdeFile dde;
    dde.name = ControlText(dialog, DDE_NAME, kNameSize);
    for (const std::string& row : RowTexts(Items(dialog)))
        dde.items.push_back(DdeItemIn(row));
    if (!files::ReplaceWhole(path.c_str(), DdeBytes(dde))) {
        SaveErr();
        return false;
    }
    State::Of(dialog) = {path, 0};
    SetText(DDEFileName, path);
    return true;
}

Savable ListOf(HWND dialog) {
    return {
        .subject = dialog,
        .question = {"MORV DDE File (*.dde)\0*.dde\0 All Files (*.*)\0*.*\0", "New DDE Item",
                     ".dde"},
        .alive = [dialog] { return IsDialogOpen(dialog); },
        .has_file = [dialog] { return State::Of(dialog).file != kUntitled; },
        .save_as = [dialog](const std::string& path) { return Write(dialog, path); },
        .save = [dialog] { return Write(dialog, State::Of(dialog).file); },
    };
}

bool Changed(HWND dialog) {
    return State::Of(dialog).DDEmod == 1 ||
           SendDlgItemMessageA(dialog, DDE_NAME, EM_GETMODIFY, 0, 0) != 0;
}

void Close(HWND dialog) {
    if (!Changed(dialog)) {
        CloseDialog(dialog);
        return;
    }
    State::Of(dialog).DDEmod = 1;
    if (ControlText(dialog, DDE_NAME, kNameSize).empty())
        Ask(dialog, "Items Name must be defined");
    else if (Save(ListOf(dialog)) == Saved::Done)
        CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {IDOK, BN_CLICKED, Add},
    {DDE_REMOVE, BN_CLICKED, Remove},
    {DDE_CLOSE, BN_CLICKED, Close},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {
    .open = Open,
    .actions = kActions,
    .close_box = LeaveDialog,
    .destroyed = State::Drop,
    .changed = Changed,
};

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
    return RunDialogTable(kTable, hwnd, message, wParam);
}
