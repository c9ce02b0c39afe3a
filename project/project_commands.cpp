#include "project/project_commands.h"

#include "project/ZENPRO.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/document_save.h"
#include "shell/services/editor.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/menu.h"
#include "shell/services/VARMORV.h"
#include "system/add_resource.h"
#include "system/system_commands.h"
#include "system/ZENSYS.h"

namespace {

constexpr char kProjectFilter[] = "MORV Project Files (*.mrv)\0*.mrv\0 All Files (*.*)\0*.*\0";

const SavedDocument kDocument{
    .state = Project.MORState,
    .modified = Project.MORVmod,
    .window = Project.hwndPro,
    .name = Project.MORVName,
    .untitled = [] { return Project.NeedsName(); },
    .rename = [](const char* name) { Project.ChName(name); },
    .save = [] { return Project.SavePro(); },
    .filter = kProjectFilter,
    .title = "Save MORV Project As...",
    .extension = ".mrv",
    .forgets_when_cancelled = false,
};

// A chosen path; the document puts a TAB in front of some.
using ChosenName = char[kNameSize + 1];

// Shows that no project is open, unless one is.
bool Opened(HWND hwnd, const char* caption) {
    if (Project.MORState == 1)
        return true;
    ShowMessage(hwnd, "There is not Opened MORV Project", caption);
    return false;
}

// Shows that a project is open, if one is.
bool AlreadyOpened(HWND hwnd, const char* caption) {
    if (Project.MORState == 0)
        return false;
    ShowMessage(hwnd, "There is Opened MORV Project", caption);
    return true;
}

void EnableProjectMenus(HWND hwnd) {
    for (int group : {2, 3, 4})
        EnableMenu(hwnd, group);
}

// Shows that the project has such an item already, if it has.
bool Refused(HWND hwnd, bool refused, const char* text, const char* caption) {
    if (refused)
        ShowMessage(hwnd, text, caption);
    return refused;
}

// Asks for a file to add. `may_add`, which shows why not, is asked again afterwards: another of
// these dialogs may have been used meanwhile.
template <class MayAdd>
bool ChooseItem(MayAdd may_add, const char* filter, const char* title, const char* extension,
                char* name) {
    const auto still_open = StillOpen(kDocument);
    return may_add() && OpenDlg(filter, title, extension, name, 0) == 0 && still_open() &&
           may_add();
}

bool MayClose(HWND hwnd) {
    return MayCloseDocument(kDocument, hwnd, "MORV Project has been changed. Save before Close?",
                            "Close MORV Project");
}

bool AnyItems() {
    return Project.MainName[0] != '\0' || Project.ResNum >= 1 || Project.ExtNum >= 1 ||
           Project.DDEName[0] != '\0' || Project.EngNum >= 1;
}

} // namespace

void NewMORV(HWND hwnd) {
    if (AlreadyOpened(hwnd, "New MORV Project"))
        return;
    Project.Init();
    Project.NamePro("untitled.mrv");
    Project.CreatePro();
    Project.MORState = 1;
    EnableProjectMenus(hwnd);
}

void OpenMORV(HWND hwnd) {
    constexpr char kCaption[] = "Open MORV Project";
    char name[kNameSize];
    if (AlreadyOpened(hwnd, kCaption) || OpenDlg(kProjectFilter, kCaption, ".mrv", name, 0) != 0 ||
        AlreadyOpened(hwnd, kCaption)) // the dialog leaves New usable
        return;
    Project.OpenPro(name);
    if (AnyItems())
        EnableMenu(hwnd, 1);
    EnableProjectMenus(hwnd); // also when the project could not be opened
}

void SaveMORV(HWND hwnd) {
    if (Opened(hwnd, "Save MORV Project"))
        SaveDocument(kDocument);
}

void SaveAsMORV(HWND hwnd) {
    if (Opened(hwnd, "Save MORV Project As..."))
        SaveDocumentAs(kDocument);
}

int CloseMORV(HWND hwnd) {
    if (Project.MORState == 0)
        return 0;
    if (!MayClose(hwnd))
        return 1;
    Project.DestroyPro();
    for (int group : {1, 2, 3, 4})
        GrayMenu(hwnd, group);
    return 0;
}

void AddMain(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.MainState != 0, "There is Opened MORV Main", "Add MORV Main");
    };
    char name[kNameSize];
    if (!ChooseItem(may_add, "MORV Main Files (*.cpp)\0*.cpp\0", "Add MORV Main", ".cpp", name))
        return;
    Project.NameMain(name);
    EnableMenu(hwnd, 1);
}

void AddEngine(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.EngNum >= kMaxSystems, "There is too much Systems",
                        "Add MORV System");
    };
    ChosenName name;
    if (!ChooseItem(may_add, "MORV System Files (*.lse)\0*.lse\0", "Add MORV System", ".lse",
                    name) ||
        Project.IsDup(name) != -1)
        return;
    Project.NameSys(name);
    EnableMenu(hwnd, 1);
}

void AddExtern(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.ExtNum >= kMaxExterns, "There is too much Extern Files",
                        "Add MORV Externs");
    };
    ChosenName name;
    if (!ChooseItem(may_add, "MORV Extern Files (*.cpp)\0*.cpp\0", "Add MORV Extern", "*.cpp",
                    name) ||
        Refused(hwnd, Project.IsDup(name) != -1, "Duplicate Extern", "Add Externs"))
        return;
    Project.NameExt(name);
    EnableMenu(hwnd, 1);
}

void AddDDE(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.DDEState != 0, "There is Opened DDE", "Add MORV Main");
    };
    ChosenName name;
    if (!ChooseItem(may_add, "MORV DDE Files (*.dde)\0*.dde\0", "Add MORV DDE", ".dde", name))
        return;
    Project.NameDde(name);
    EnableMenu(hwnd, 1);
}

void AddResult(HWND hwnd) {
    SetText(ResulFile, "");
    if (!Opened(hwnd, "Add Result"))
        return;
    const auto still_open = StillOpen(kDocument);
    char name[kNameSize];
    const bool chosen = OpenDlg("MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0",
                                "Open MORV Result", ".rst", name, 0) == 0;
    if (!still_open())
        return;
    if (chosen) {
        SetText(ResulFile, name);
        Project.GetResName(WorkPath);
        AddType = kAddResults;
        RunDialog(hwnd, "Add_Box", SystemAdd);
        EnableMenu(hwnd, 1);
    }
    Project.MORVmod = 1; // also when nothing was chosen
}

namespace {

// Removes what the selected row shows: a section by its header, else one item. False when the row
// belongs to no section.
bool RemoveRow(int i) {
    auto row_or_all = [i](int part) { return part == 1 ? -1 : i; };
    if (Project.MainState == 1 && Project.IsMain(i))
        Project.DeleteMain();
    else if (const int part = Project.IsSys(i); Project.EngNum > 0 && part != 0)
        Project.DeleteSys(row_or_all(part));
    else if (const int part = Project.IsExt(i); Project.ExtNum > 0 && part != 0)
        Project.DeleteExt(row_or_all(part));
    else if (Project.DDEState == 1 && Project.IsDde(i))
        Project.DeleteDde();
    else if (const int part = Project.IsRes(i); part != 0)
        Project.DeleteRes(row_or_all(part));
    else
        return false;
    return true;
}

} // namespace

int Remove(HWND hwnd) {
    if (!Opened(hwnd, "Remove MORV Item"))
        return 0;
    Project.MORVmod = 1;
    if (RemoveRow(Project.GetIndex()))
        return 0;
    // The group is greyed by a removal that finds nothing, not by that of the last item.
    if (Project.MainState == 0 && Project.ResNum == 0 && Project.ExtNum == 0 &&
        Project.DDEState == 0 && Project.EngNum == 0)
        GrayMenu(hwnd, 1);
    return 0;
}

void DataLength(HWND hwnd) {
    RunDialog(hwnd, "HL_Box", HistoryDlg);
}

void DestroyMdiP() {
    Project.DestroyMdi();
}

void ExitZentrik(HWND hwnd) {
    if (Project.MORState == 1) {
        if (!MayClose(hwnd))
            return;
        Project.DestroyPro();
        DestroyMdiP();
    }
    if (System.EngineState == 1) {
        if (!MayCloseEngine(hwnd, "Save Current MORV System", "Close MORV Project"))
            return;
        System.DestroySys();
        DestroyMdiS();
    }
    if (EditState == 1 && !SaveEditors())
        return;
    DestroyWindow(hwnd);
}
