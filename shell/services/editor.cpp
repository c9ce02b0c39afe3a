#include "shell/services/editor.h"

#include "shell/core/file_helpers.h"
#include "shell/core/files.h"
#include "shell/core/messages.h"
#include "shell/core/record_text.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/mdi.h"

#include <algorithm>
#include <vector>

int EditState;
int EditRule;
std::optional<bool> (*SaveRuleText)(HWND child);

namespace {

bool IsModified(HWND edit) {
    return SendMessageA(edit, EM_GETMODIFY, 0, 0) != 0;
}

bool AskForName(std::string& path) {
    char name[kNameSize];
    if (SaveDlg("Files (*.cpp)\0*.cpp\0All Files (*.*)\0*.*\0", "Save File As ...", ".cpp", name,
                OFN_OVERWRITEPROMPT) != 0)
        return false;
    path = name;
    return true;
}

Answer AskToSave(HWND edit) {
    return ShowMessage(edit, "File Has been change. Save before Closing?", "Close notification",
                       Buttons::YesNoCancel);
}

// Saves an editor's text at exit. False when it is not safe on disk.
bool SaveAtExit(HWND child) {
    if (SaveRuleText)
        if (const std::optional<bool> saved = SaveRuleText(child))
            return *saved;
    std::string path = ChildTitle(child);
    if (path == "untitled" && !AskForName(path))
        return false;
    if (WriteEdit(TopChild(child), path.c_str()))
        return true;
    SaveErr();
    return false;
}

std::vector<HWND> Editors() {
    std::vector<HWND> editors;
    for (HWND child = GetMdi(); child; child = GetWindow(child, GW_HWNDNEXT))
        if (IsEditor(child))
            editors.push_back(child);
    return editors;
}

// An editor whose edit control is gone is about to close.
bool AnyTextOpen() {
    return std::ranges::any_of(Editors(), [](HWND child) { return TopChild(child) != nullptr; });
}

void WarnNoFile() {
    ShowMessage(nullptr, "There is no File Open", "WARNING", Buttons::Ok, Icon::Stop);
}

} // namespace

int IsRule() {
    return EditRule;
}

void OpenEdit(const char* nom) {
    const HWND child = CrearMdiCh("Main", nom);
    if (!child)
        ShowMessage(nullptr, "Impossible crear finestra del editor", "zentrik");
    const HWND edit = TopChild(child);
    SendMessageA(edit, EM_LIMITTEXT, 0, 0);
    std::string text;
    if (files::ReadWhole(nom, files::Mode::Read, text))
        SetWindowTextA(edit, text.c_str());
    EditState = 1;
}

void OpenFile() {
    char name[kNameSize];
    if (OpenDlg(" Files (*.cpp)\0*.cpp\0", "Open File", ".cpp", name, OFN_CREATEPROMPT) != 0)
        return;
    OpenEdit(name);
}

void SaveFile(HWND hwnd) {
    if (EditRule)
        return;
    if (!IsEditor(hwnd)) {
        // On Windows NT the item stays enabled while a project or system is on top.
        WarnNoFile();
        return;
    }
    const std::string path = ChildTitle(hwnd);
    if (path == "untitled") {
        SaveFileAs(hwnd);
        return;
    }
    if (!WriteEdit(TopChild(hwnd), path.c_str())) {
        ShowMessage(nullptr, "No Va be", "");
        SaveErr();
    }
}

void SaveFileAs(HWND hwnd) {
    if (EditRule)
        return;
    if (!IsEditor(hwnd)) {
        WarnNoFile();
        return;
    }
    std::string path;
    if (!AskForName(path))
        return;
    SetWindowTextA(hwnd, path.c_str());
    if (!WriteEdit(TopChild(hwnd), path.c_str()))
        SaveErr();
}

int CloseFile(HWND hwnd) {
    if (EditRule)
        return 0;
    const HWND edit = TopChild(hwnd);
    const Answer answer = IsModified(edit) ? AskToSave(edit) : Answer::No;
    if (answer == Answer::Cancel)
        return 1;
    std::string path = ChildTitle(hwnd);
    // A cancelled name dialog closes too and drops the text.
    if (answer == Answer::Yes && (path != "untitled" || AskForName(path)) &&
        !WriteEdit(edit, path.c_str())) {
        SaveErr();
        return 1;
    }
    DestroyWindow(edit);
    // The exit asks for the texts of the other editors only while this says there are some.
    EditState = AnyTextOpen() ? 1 : 0;
    return 0;
}

int DestroyMdiE() {
    HWND candidate = GetMdi();
    // There is one project and one system window, so the third child is neither.
    for (int passed = 0; passed < 2 && candidate && IsDocument(candidate); ++passed) {
        NextMdi(candidate);
        candidate = GetMdi();
    }
    if (!candidate || IsDocument(candidate)) {
        WarnNoFile();
        return 0;
    }
    if (CloseFile(candidate) != 0)
        return 1;
    DestroyMdiCh(candidate);
    return 0;
}

bool SaveEditors() {
    const std::vector<HWND> editors = Editors();
    for (HWND child : editors) {
        const HWND edit = TopChild(child);
        if (!IsModified(edit))
            continue;
        const Answer answer = AskToSave(edit);
        if (answer == Answer::Cancel || (answer == Answer::Yes && !SaveAtExit(child)))
            return false;
    }
    EditState = 0;
    for (HWND child : editors)
        DestroyWindow(TopChild(child));
    return true;
}

bool WriteEdit(HWND edit, const char* path) {
    if (!files::ReplaceWhole(path, EditText(edit)))
        return false;
    SendMessageA(edit, EM_SETMODIFY, FALSE, 0);
    return true;
}

std::string EditText(HWND edit) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(edit)), '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(edit, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}
