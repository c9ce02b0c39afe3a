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

// A facts base stays usable while its types are edited, and another base can be opened beside it
// (by the program's other dialogs): each dialog keeps its own file.
struct TypesEditor {
    std::string path;
    bool KTypemod = false; // the list has changes that are not in the file
    bool refused = false;  // the last Close could not write them
};
using State = DialogState<TypesEditor>;

std::vector<HWND> open_editors;

// The dialog that edits the file of the next one already, or none.
HWND OpenEditor() {
    const auto editor = std::ranges::find_if(open_editors, [](HWND hwnd) {
        return IsDialogOpen(hwnd) && lstrcmpiA(State::Of(hwnd).path.c_str(), KTypeFileName) == 0;
    });
    return editor == open_editors.end() ? nullptr : *editor;
}

// Without a file that can be opened there is no editing: Close would put the names of an empty list
// in the place of those it has, or would fail again and again.
void Open(HWND hwnd) {
    State::Make(hwnd, {KTypeFileName});
    open_editors.push_back(hwnd);
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
    CloseDialog(hwnd);
}

// There is no Cancel, so a file that can not be written for good needs this way out.
void CloseBox(HWND hwnd) {
    if (State::Of(hwnd).refused)
        CloseDialog(hwnd);
    else
        Close(hwnd);
}

void Destroyed(HWND hwnd) {
    std::erase(open_editors, hwnd);
    State::Drop(hwnd);
}

bool Changed(HWND hwnd) {
    return State::Of(hwnd).KTypemod;
}

constexpr DialogAction kActions[] = {
    {IDOK, BN_CLICKED, Add},
    {KTYPE_REMOVE, BN_CLICKED, Remove},
    {IDCANCEL, BN_CLICKED, Close},
};
constexpr DialogTable kTable = {.open = Open,
                                .actions = kActions,
                                .close_box = CloseBox,
                                .destroyed = Destroyed,
                                .changed = Changed};

} // namespace

void EditKnowledgeTypes() {
    if (const HWND editor = OpenEditor())
        SetForegroundWindow(editor);
    else
        RunDialog(nullptr, "KnowType_Box", TypeKnowledge);
}

INT_PTR CALLBACK TypeKnowledge(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
