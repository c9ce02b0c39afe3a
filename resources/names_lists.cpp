#include "resources/names_lists.h"

#include "resources/facts_base.h"
#include "resources/list_texts.h"
#include "resources/record_files.h"
#include "shell/dialog.h"
#include "shell/file_dialogs.h"
#include "shell/file_helpers.h"
#include "shell/list_rows.h"
#include "shell/messages.h"
#include "shell/VARMORV.h"
#include "shell/ZENTRIK.h"

int TagNum;

namespace {

char TagsFileName[kNameSize];

// What sets the tags and the results editor apart.
struct NamesEditor {
    int edit;
    int list;
    char (&file)[kNameSize];
    const char* untitled;
    const char* save_filter;
    const char* save_title;
    const char* extension;
    // 1 = the file is loaded when the dialog opens. It stays set for the rest of the run, so once
    // a resource was opened a new list loads the untitled file of the current folder.
    int type;
    int modified;
};

NamesEditor g_tags = {TAGS_NAME,
                      TAGS_LIST,
                      TagsFileName,
                      "untitled.tag",
                      "MORV Tag Resource (*.tag)\0*.tag\0 All Files (*.*)\0*.*\0",
                      "Save Tags As...",
                      ".tag",
                      0,
                      0};

NamesEditor g_results = {RES_NAME,
                         RES_LIST,
                         ResultFileName,
                         "untitled.rst",
                         "MORV Result Resource (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0",
                         "Save Resource As...",
                         ".rst",
                         0,
                         0};

void Open(HWND hwnd, NamesEditor& editor) {
    editor.modified = 0;
    SendDlgItemMessageA(hwnd, editor.edit, EM_SETLIMITTEXT, kTagSize - 1, 0);
    if (editor.type != 1)
        return;
    std::vector<TagRecord> names;
    ReadOrCreate(editor.file, names);
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
    ListRows rows(GetDlgItem(hwnd, editor.list));
    rows.Delete(rows.Selected());
    editor.modified = 1;
}

// Asks for a file when the list has none yet. Returns false when the user cancels.
bool NameFile(NamesEditor& editor) {
    if (Text(editor.file) != editor.untitled)
        return true;
    char name[kNameSize];
    if (SaveDlg(editor.save_filter, editor.save_title, editor.extension, name,
                OFN_OVERWRITEPROMPT) != 0)
        return false;
    SetText(editor.file, name);
    return true;
}

void Close(HWND hwnd, NamesEditor& editor) {
    if (editor.modified == 1) {
        const std::string before = Text(editor.file);
        if (!NameFile(editor))
            return;
        if (!WriteNames(editor.file, RowTexts(GetDlgItem(hwnd, editor.list)))) {
            SaveErr();
            SetText(editor.file, before); // an untitled list asks for another file
            return;
        }
        editor.modified = 0;
    }
    EndDialog(hwnd, 0);
}

} // namespace

INT_PTR CALLBACK TagNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        Open(hwnd, g_tags);
    else if (message != WM_COMMAND)
        return DialogColours(message, wParam);
    else if (Notified(wParam, IDOK, BN_CLICKED))
        AddTag(hwnd);
    else if (Notified(wParam, TAGS_REMOVE, BN_CLICKED))
        RemoveName(hwnd, g_tags);
    else if (Notified(wParam, TAGS_CLOSE, BN_CLICKED))
        Close(hwnd, g_tags);
    else if (Notified(wParam, IDCANCEL, BN_CLICKED))
        EndDialog(hwnd, 0);
    return TRUE;
}

INT_PTR CALLBACK ResultNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        Open(hwnd, g_results);
    else if (message != WM_COMMAND)
        return DialogColours(message, wParam);
    else if (Notified(wParam, IDOK, BN_CLICKED))
        AddResultName(hwnd);
    else if (Notified(wParam, RES_REMOVE, BN_CLICKED))
        RemoveName(hwnd, g_results);
    else if (Notified(wParam, RES_CLOSE, BN_CLICKED))
        Close(hwnd, g_results);
    else if (Notified(wParam, IDCANCEL, BN_CLICKED))
        EndDialog(hwnd, 0);
    return TRUE;
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
        g_tags.type = 1;
        RunDialog(hwnd, "Tags_Box", TagNew);
    } else if (extension == ".rst") {
        SetText(ResultFileName, path);
        g_results.type = 1;
        RunDialog(hwnd, "Res_Box", ResultNew);
    } else if (extension == ".fac") {
        SetText(KnowFileName, path);
        KTyp = 1;
        RunDialog(hwnd, "Knowledge_Box", KnowledgeNew);
    }
}
