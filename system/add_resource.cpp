#include "system/add_resource.h"

#include "project/ZENPRO.h"
#include "resources/core/record_files.h"
#include "shell/core/file_helpers.h"
#include "shell/services/dialog.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/mdi.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

#include <array>
#include <unordered_set>

namespace {

constexpr int kMostSelected = 20; // of one Add or Remove

// The names of the facts the system has.
std::vector<std::string> SystemFacts() {
    std::vector<std::string> names;
    for (int i = 0; i < System.DatNum; ++i) {
        char name[kNameSize + 1] = "";
        System.GetKnw(i, name);
        names.push_back(Text(name));
    }
    return names;
}

// The names of the facts the system's facts base offers.
std::vector<std::string> BaseFacts() {
    std::vector<Dat> facts;
    ReadOrCreate(System.KnowName, facts);
    std::vector<std::string> names;
    names.reserve(facts.size());
    for (const Dat& fact : facts)
        names.push_back(Text(fact.Name));
    return names;
}

void Open(HWND hwnd) {
    std::vector<std::string> chosen;
    std::vector<std::string> offered;
    if (AddType == kAddFacts) {
        chosen = SystemFacts();
        offered = BaseFacts();
    } else {
        chosen = NamesIn(Project.ResultsSource().c_str());
        offered = NamesIn(ResulFile);
    }
    const std::unordered_set<std::string> taken(chosen.begin(), chosen.end());
    std::erase_if(offered, [&](const std::string& name) { return taken.contains(name); });
    AddRows(GetDlgItem(hwnd, ADD_CHOSEN), chosen);
    AddRows(GetDlgItem(hwnd, ADD_OFFERED), offered);
}

// The first selected rows of a list. Rows the selection does not set are -1.
struct Selection {
    int count = 0;
    std::array<int, kMostSelected + 1> rows;
};

Selection Selected(HWND list) {
    Selection selection;
    selection.rows.fill(-1);
    const LRESULT got = SendMessageA(list, LB_GETSELITEMS, kMostSelected,
                                     reinterpret_cast<LPARAM>(selection.rows.data()));
    selection.count = std::clamp(static_cast<int>(got), 0, kMostSelected);
    return selection;
}

// Deletes the first `count` rows of a selection from top to bottom.
void DeleteRows(HWND list, const Selection& selection, int count) {
    ListRows rows(list);
    for (int deleted = 0; deleted < count; ++deleted)
        rows.Delete(selection.rows[static_cast<std::size_t>(deleted)] - deleted);
}

void AddSelected(HWND hwnd) {
    const HWND offered = GetDlgItem(hwnd, ADD_OFFERED);
    const HWND chosen = GetDlgItem(hwnd, ADD_CHOSEN);
    const Selection selection = Selected(offered);
    const std::vector<std::string> there = RowTexts(chosen);
    std::unordered_set<std::string> taken(there.begin(), there.end());
    const ListFill fill_offered(offered);
    const ListFill fill_chosen(chosen);
    for (int i = 0; i < selection.count; ++i) {
        const std::string name =
            ListRows(offered).RowText(selection.rows[static_cast<std::size_t>(i)]);
        if (taken.insert(name).second)
            ListRows(chosen).Add(name);
    }
    DeleteRows(offered, selection, selection.count);
}

void RemoveSelected(HWND hwnd) {
    const HWND offered = GetDlgItem(hwnd, ADD_OFFERED);
    const HWND chosen = GetDlgItem(hwnd, ADD_CHOSEN);
    const Selection selection = Selected(chosen);
    const ListFill fill_offered(offered);
    const ListFill fill_chosen(chosen);
    for (int i = 0; i < selection.count; ++i)
        ListRows(offered).Add(
            ListRows(chosen).RowText(selection.rows[static_cast<std::size_t>(i)]));
    // One delete more than there are rows selected, as it always was: the row behind the selection
    // is -1, which no list has, so it takes nothing with it.
    DeleteRows(chosen, selection, selection.count + 1);
}

void StoreFacts(const std::vector<std::string>& names) {
    const ListFill fill(TopChild(System.hwndSys), static_cast<int>(names.size()));
    if (System.DatNum > 0)
        System.DelKnw();
    for (const std::string& name : names) {
        char text[kNameSize + 1]; // the document puts a TAB in front
        SetText(text, std::string_view(name).substr(0, kNameSize - 1));
        System.NameKnw(text);
        System.DatNum += 1;
    }
    if (System.DatNum > 0)
        System.TitleKnw();
}

// Returns false, with the project as it was, when the working results file cannot be written.
bool StoreResults(const std::vector<std::string>& names) {
    if (!WriteWorkingNames(Project.ResName, names))
        return false;
    Project.WroteResults();
    Project.NameRes(ResulFile, static_cast<int>(names.size()));
    return true;
}

void Accept(HWND hwnd) {
    const std::vector<std::string> names = RowTexts(GetDlgItem(hwnd, ADD_CHOSEN));
    if (AddType == kAddFacts) {
        StoreFacts(names);
    } else if (!StoreResults(names)) {
        SaveErr();
        return;
    }
    System.Engmod = 1; // the system's flag for the project's results, too
    CloseDialog(hwnd);
}

// Also when the facts of the system were offered, the project goes back to its results file.
void Cancel(HWND hwnd) {
    SetText(Project.ResName, Text(Project.OldResAux));
    SetText(Project.OldResAux, "");
    CloseDialog(hwnd);
}

constexpr DialogAction kActions[] = {
    {ADD_ADD, BN_CLICKED, AddSelected}, {ADD_REMOVE, BN_CLICKED, RemoveSelected},
    {ADD_OK, BN_CLICKED, Accept},       {ADD_CANCEL, BN_CLICKED, Cancel},
    {IDCANCEL, BN_CLICKED, Cancel},
};
// Unlike Cancel and Esc the close box leaves the project's results file.
constexpr DialogTable kTable = {
    .open = Open, .actions = kActions, .close_box = LeaveDialog, .changed = MayBeChanged};

} // namespace

void ChooseResults(HWND owner) {
    if (Project.GetResName(WorkPath) != 0) {
        SaveErr();
        return;
    }
    AddType = kAddResults;
    RunDialog(owner, "Add_Box", SystemAdd);
}

INT_PTR CALLBACK SystemAdd(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}
