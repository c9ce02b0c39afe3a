#include "project/project_commands.h"

#include "project/ZENPRO.h"
#include "shell/core/messages.h"
#include "shell/services/asking.h"
#include "shell/services/dialog.h"
#include "shell/services/document.h"
#include "shell/services/editor.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/menu.h"
#include "shell/services/VARMORV.h"
#include "system/add_resource.h"
#include "system/system_commands.h"
#include "system/ZENSYS.h"

namespace {

constexpr char kProjectFilter[] = "MORV Project Files (*.mrv)\0*.mrv\0 All Files (*.*)\0*.*\0";

const Document kDocument{
    .state = Project.MORState,
    .modified = Project.MORVmod,
    .window = Project.hwndPro,
    .name = Project.MORVName,
    .untitled = [] { return Project.NeedsName(); },
    .rename = [](const char* name) { Project.ChName(name); },
    .save = [] { return Project.SavePro(); },
    .question = {kProjectFilter, "Save MORV Project As...", ".mrv"},
    .forgets_when_cancelled = false,
    .not_open = "There is not Opened MORV Project",
};

// A chosen path; the document puts a TAB in front of some.
using ChosenName = char[kNameSize + 1];

// Shows that a project is open, if one is.
bool AlreadyOpened(HWND hwnd, const char* caption) {
    return Refused(hwnd, Project.MORState != 0, "There is Opened MORV Project", caption);
}

void EnableProjectMenus(HWND hwnd) {
    for (const MenuGroup group : {kAddProjectItem, kOpenProject, kBuildProject})
        EnableMenu(hwnd, group);
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
        EnableMenu(hwnd, kProjectItems);
    EnableProjectMenus(hwnd); // also when the project could not be opened
}

void SaveMORV(HWND hwnd) {
    if (Opened(kDocument, hwnd, "Save MORV Project"))
        SaveDocument(kDocument);
}

void SaveAsMORV(HWND hwnd) {
    if (Opened(kDocument, hwnd, "Save MORV Project As..."))
        SaveDocumentAs(kDocument);
}

int CloseMORV(HWND hwnd) {
    if (Project.MORState == 0)
        return 0;
    if (!MayClose(hwnd))
        return 1;
    Project.DestroyPro();
    for (const MenuGroup group : kProjectGroups)
        GrayMenu(hwnd, group);
    return 0;
}

void AddMain(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.MainState != 0, "There is Opened MORV Main", "Add MORV Main");
    };
    char name[kNameSize];
    if (!ChooseFile(kDocument, may_add,
                    {"MORV Main Files (*.cpp)\0*.cpp\0", "Add MORV Main", ".cpp"}, name))
        return;
    Project.NameMain(name);
    EnableMenu(hwnd, kProjectItems);
}

void AddEngine(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.EngNum >= kMaxSystems, "There is too much Systems",
                        "Add MORV System");
    };
    ChosenName name;
    if (!ChooseFile(kDocument, may_add,
                    {"MORV System Files (*.lse)\0*.lse\0", "Add MORV System", ".lse"}, name) ||
        Project.IsDup(name) != -1)
        return;
    Project.NameSys(name);
    EnableMenu(hwnd, kProjectItems);
}

void AddExtern(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.ExtNum >= kMaxExterns, "There is too much Extern Files",
                        "Add MORV Externs");
    };
    ChosenName name;
    if (!ChooseFile(kDocument, may_add,
                    {"MORV Extern Files (*.cpp)\0*.cpp\0", "Add MORV Extern", "*.cpp"}, name) ||
        Refused(hwnd, Project.IsDup(name) != -1, "Duplicate Extern", "Add Externs"))
        return;
    Project.NameExt(name);
    EnableMenu(hwnd, kProjectItems);
}

void AddDDE(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add MORV Main") &&
               !Refused(hwnd, Project.DDEState != 0, "There is Opened DDE", "Add MORV Main");
    };
    ChosenName name;
    if (!ChooseFile(kDocument, may_add, {"MORV DDE Files (*.dde)\0*.dde\0", "Add MORV DDE", ".dde"},
                    name))
        return;
    Project.NameDde(name);
    EnableMenu(hwnd, kProjectItems);
}

void AddResult(HWND hwnd) {
    SetText(ResulFile, "");
    if (!Opened(kDocument, hwnd, "Add Result"))
        return;
    const auto still_open = StillOpen(kDocument);
    char name[kNameSize];
    const bool chosen = OpenDlg("MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0",
                                "Open MORV Result", ".rst", name, 0) == 0;
    if (!still_open())
        return;
    if (chosen) {
        SetText(ResulFile, name);
        ChooseResults(hwnd);
        EnableMenu(hwnd, kProjectItems);
    }
    Project.MORVmod = 1; // also when nothing was chosen
}

namespace {

// Removes what row `i` shows. False when the row belongs to no section.
bool RemoveItem(int i) {
    const RowSection sections[] = {
        {Project.MainState == 1 ? Project.IsMain(i) : 0, [](int) { return Project.DeleteMain(); }},
        {Project.EngNum > 0 ? Project.IsSys(i) : 0, [](int row) { return Project.DeleteSys(row); }},
        {Project.ExtNum > 0 ? Project.IsExt(i) : 0, [](int row) { return Project.DeleteExt(row); }},
        {Project.DDEState == 1 ? Project.IsDde(i) : 0, [](int) { return Project.DeleteDde(); }},
        {Project.IsRes(i), [](int row) { return Project.DeleteRes(row); }},
    };
    return RemoveRow(i, sections);
}

} // namespace

int Remove(HWND hwnd) {
    if (!Opened(kDocument, hwnd, "Remove MORV Item"))
        return 0;
    Project.MORVmod = 1;
    if (RemoveItem(Project.GetIndex()))
        return 0;
    // The group is greyed by a removal that finds nothing, not by that of the last item.
    if (Project.MainState == 0 && Project.ResNum == 0 && Project.ExtNum == 0 &&
        Project.DDEState == 0 && Project.EngNum == 0)
        GrayMenu(hwnd, kProjectItems);
    return 0;
}

void DataLength(HWND hwnd) {
    RunDialog(hwnd, "HL_Box", HistoryDlg);
}

void DestroyMdiP() {
    Project.DestroyMdi();
}

namespace {

bool MayCloseSystem(HWND hwnd) {
    return MayCloseEngine(hwnd, "Save Current MORV System", "Close MORV Project");
}

// Asks for everything that is open in turn and closes it. False when the user keeps something.
bool CloseAll(HWND hwnd) {
    if (Project.MORState == 1) {
        if (!MayClose(hwnd))
            return false;
        Project.DestroyPro();
        for (const MenuGroup group : kProjectGroups)
            GrayMenu(hwnd, group);
        DestroyMdiP();
    }
    if (System.EngineState == 1) {
        if (!MayCloseSystem(hwnd))
            return false;
        System.DestroySys();
        for (const MenuGroup group : kSystemGroups)
            GrayMenu(hwnd, group);
        DestroyMdiS();
    }
    return EditState != 1 || SaveEditors();
}

} // namespace

void ExitZentrik(HWND hwnd) {
    const Asking asking(hwnd, Question::Close, {});
    // A dialog without an owner leaves the exit usable, but has no question of its own.
    if (asking.Refused() || ShowUnsavedDialog(Dialogs::WithoutOwner))
        return;
    // While a name is asked for, something else can be opened, or such a dialog be changed.
    do
        if (!CloseAll(hwnd) || ShowUnsavedDialog(Dialogs::WithoutOwner))
            return;
    while (Project.MORState == 1 || System.EngineState == 1);
    DestroyEditors();
    DestroyWindow(hwnd);
}

bool MayEndSession(HWND hwnd) {
    const Asking asking(hwnd, Question::Close, {});
    return !asking.Refused() && !ShowUnsavedDialog(Dialogs::All) &&
           (Project.MORState != 1 || MayClose(hwnd)) &&
           (System.EngineState != 1 || MayCloseSystem(hwnd)) && SaveEditors();
}
