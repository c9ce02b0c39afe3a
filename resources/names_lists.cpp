#include "resources/names_lists.h"

#include "project/ZENPRO.h"
#include "resources/core/record_files.h"
#include "resources/facts_base.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/services/ask_and_save.h"
#include "shell/services/dialog.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

int TagNum;
int TagType;
int ResultType;

namespace {

char TagsFileName[kNameSize];

// What sets the tags and the results editor apart.
struct NamesEditor {
    int edit;
    int list;
    char (&file)[kNameSize];
    const char* untitled;
    NameQuestion question;
    int& type;
    int modified = 0;
};

NamesEditor g_tags = {
    .edit = TAGS_NAME,
    .list = TAGS_LIST,
    .file = TagsFileName,
    .untitled = "untitled.tag",
    .question = {"MORV Tag Resource (*.tag)\0*.tag\0 All Files (*.*)\0*.*\0", "Save Tags As...",
                 ".tag"},
    .type = TagType,
};

NamesEditor g_results = {
    .edit = RES_NAME,
    .list = RES_LIST,
    .file = ResultFileName,
    .untitled = "untitled.rst",
    .question = {"MORV Result Resource (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0",
                 "Save Resource As...", ".rst"},
    .type = ResultType,
};

void Open(HWND hwnd, NamesEditor& editor) {
    editor.modified = 0;
    LimitText(hwnd, editor.edit, kTagSize);
    if (editor.type != 1)
        return;
    std::vector<TagRecord> names;
    // A list that is there and cannot be read is not edited: Close would put the names of an empty
    // one in the place of its own. One that cannot be created may still be written elsewhere.
    if (!ReadOrCreate(editor.file, names) && files::Exists(editor.file)) {
        GetErr();
        LeaveDialog(hwnd);
        return;
    }
    AddRows(GetDlgItem(hwnd, editor.list), NamesOf(names));
}

void AddTag(HWND hwnd) {
    const std::string name = ControlText(hwnd, TAGS_NAME, kTagSize);
    if (name.empty()) {
        ShowMessage(hwnd, "Name must be defined", "New Tag", Buttons::Ok, Icon::Exclamation);
        return;
    }
    // A tag that is refused as listed already is taken out of the edit, too.
    SetDlgItemTextA(hwnd, TAGS_NAME, "");
    const HWND list = GetDlgItem(hwnd, TAGS_LIST);
    if (HasRow(list, name))
        return;
    ListRows(list).Add(name);
    TagNum += 1;
    g_tags.modified = 1;
}

void AddResultName(HWND hwnd) {
    g_results.modified = 1; // also when the name is refused
    const std::string name = ControlText(hwnd, RES_NAME, kTagSize);
    if (name.empty()) {
        ShowMessage(hwnd, "Name must be defined", "New Result", Buttons::Ok, Icon::Exclamation);
        return;
    }
    const HWND list = GetDlgItem(hwnd, RES_LIST);
    if (HasRow(list, name))
        return;
    SetDlgItemTextA(hwnd, RES_NAME, "");
    ListRows(list).Add(name);
    Project.ResNum += 1;
}

void RemoveName(HWND hwnd, NamesEditor& editor) {
    ListRows(GetDlgItem(hwnd, editor.list)).DeleteSelected();
    editor.modified = 1;
}

bool Write(HWND hwnd, NamesEditor& editor) {
    if (!WriteNames(editor.file, RowTexts(GetDlgItem(hwnd, editor.list)))) {
        SaveErr();
        return false;
    }
    editor.modified = 0;
    return true;
}

Savable ListOf(HWND hwnd, NamesEditor& editor) {
    const auto save_as = [hwnd, &editor](const std::string& path) {
        const std::string before = Text(editor.file);
        SetText(editor.file, path);
        if (Write(hwnd, editor))
            return true;
        SetText(editor.file, before); // an untitled list asks for another file
        return false;
    };
    return {
        .subject = hwnd,
        .question = editor.question,
        .alive = [hwnd] { return IsDialogOpen(hwnd); },
        .has_file = [&editor] { return Text(editor.file) != editor.untitled; },
        .save_as = save_as,
        .save = [hwnd, &editor] { return Write(hwnd, editor); },
    };
}

void Close(HWND hwnd, NamesEditor& editor) {
    if (editor.modified != 1 || Save(ListOf(hwnd, editor)) == Saved::Done)
        CloseDialog(hwnd);
}

constexpr DialogAction kTagActions[] = {
    {IDOK, BN_CLICKED, AddTag},
    {TAGS_REMOVE, BN_CLICKED, [](HWND hwnd) { RemoveName(hwnd, g_tags); }},
    {TAGS_CLOSE, BN_CLICKED, [](HWND hwnd) { Close(hwnd, g_tags); }},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTagTable = {.open = [](HWND hwnd) { Open(hwnd, g_tags); },
                                   .actions = kTagActions,
                                   .changed = [](HWND) { return g_tags.modified == 1; }};

constexpr DialogAction kResultActions[] = {
    {IDOK, BN_CLICKED, AddResultName},
    {RES_REMOVE, BN_CLICKED, [](HWND hwnd) { RemoveName(hwnd, g_results); }},
    {RES_CLOSE, BN_CLICKED, [](HWND hwnd) { Close(hwnd, g_results); }},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kResultTable = {.open = [](HWND hwnd) { Open(hwnd, g_results); },
                                      .actions = kResultActions,
                                      .changed = [](HWND) { return g_results.modified == 1; }};

} // namespace

INT_PTR CALLBACK TagNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTagTable, hwnd, message, wParam);
}

INT_PTR CALLBACK ResultNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kResultTable, hwnd, message, wParam);
}

void NewTag(HWND hwnd) {
    SetText(TagsFileName, g_tags.untitled);
    RunDialog(hwnd, "Tags_Box", TagNew);
}

void NewResult(HWND hwnd) {
    SetText(ResultFileName, g_results.untitled);
    RunDialog(hwnd, "Res_Box", ResultNew);
}

void OpenResource(HWND hwnd) {
    char name[kNameSize];
    if (OpenDlg("Tags (*.tag)\0*.tag\0 Results (*.rst)\0*.rst\0 Facts Base (*.fac)\0*.fac\0"
                "All files(*.*)\0*.*\0",
                "Open Resource", ".tag", name, 0) != 0)
        return;
    const std::string path = name;
    const std::string extension = path.substr(std::min(path.find('.'), path.size()));
    if (extension == ".tag") {
        SetText(TagsFileName, path);
        TagType = 1;
        RunDialog(hwnd, "Tags_Box", TagNew);
    } else if (extension == ".rst") {
        SetText(ResultFileName, path);
        ResultType = 1;
        RunDialog(hwnd, "Res_Box", ResultNew);
    } else if (extension == ".fac") {
        SetText(KnowFileName, path);
        KTyp = 1;
        RunDialog(hwnd, "Knowledge_Box", KnowledgeNew);
    }
}
