#include "project/project_commands.h"

#include "shell/dialog.h"
#include "shell/editor.h"
#include "shell/file_dialogs.h"
#include "shell/menu.h"
#include "shell/messages.h"
#include "shell/VARMORV.h"
#include "system/add_resource.h"
#include "system/system_commands.h"

namespace {

constexpr char kProjectFilter[] = "MORV Project Files (*.mrv)\0*.mrv\0 All Files (*.*)\0*.*\0";

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

enum class Saved { Done, Cancelled, Failed };

Saved SaveAs() {
    char name[kNameSize];
    if (SaveDlg(kProjectFilter, "Save MORV Project As...", ".mrv", name, OFN_OVERWRITEPROMPT) != 0)
        return Saved::Cancelled;
    const std::string before = Text(Project.MORVName);
    Project.NamePro(name);
    Project.ChName(name);
    if (Project.SavePro() != 0) {
        Project.ChName(before.c_str());
        return Saved::Failed;
    }
    Project.MORVmod = 0;
    return Saved::Done;
}

Saved Save() {
    if (Project.IsUntitled())
        return SaveAs();
    if (Project.SavePro() != 0)
        return Saved::Failed;
    Project.MORVmod = 0;
    return Saved::Done;
}

// Asks whether to save a changed project. False when the project must stay open: the user
// cancelled, or what was to be saved could not be. A cancelled file dialog gives the changes up.
bool MayClose(HWND hwnd) {
    if (Project.MORVmod != 1)
        return true;
    const Answer answer = ShowMessage(hwnd, "MORV Project has been changed. Save before Close?",
                                      "Close MORV Project", Buttons::YesNoCancel);
    if (answer == Answer::Yes)
        return Save() != Saved::Failed;
    return answer != Answer::Cancel;
}

// The same for a changed system at the program's end.
bool MayCloseSystem(HWND hwnd) {
    if (System.Engmod != 1)
        return true;
    const Answer answer =
        ShowMessage(hwnd, "Save Current MORV System", "Close MORV Project", Buttons::YesNoCancel);
    if (answer != Answer::Yes)
        return answer != Answer::Cancel;
    SaveEngine(hwnd);
    return System.Engmod == 0; // stays set when the system could not be written
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
    if (AlreadyOpened(hwnd, "Open MORV Project"))
        return;
    char name[kNameSize];
    if (OpenDlg(kProjectFilter, "Open MORV Project", ".mrv", name, 0) != 0)
        return;
    Project.OpenPro(name);
    if (AnyItems())
        EnableMenu(hwnd, 1);
    EnableProjectMenus(hwnd); // also when the project could not be opened
}

void SaveMORV(HWND hwnd) {
    if (Opened(hwnd, "Save MORV Project"))
        Save();
}

void SaveAsMORV(HWND hwnd) {
    if (Opened(hwnd, "Save MORV Project As..."))
        SaveAs();
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
    if (!Opened(hwnd, "Add MORV Main"))
        return;
    if (Project.MainState != 0) {
        ShowMessage(hwnd, "There is Opened MORV Main", "Add MORV Main");
        return;
    }
    char name[kNameSize];
    if (OpenDlg("MORV Main Files (*.cpp)\0*.cpp\0", "Add MORV Main", ".cpp", name, 0) != 0)
        return;
    Project.NameMain(name);
    EnableMenu(hwnd, 1);
}

void AddEngine(HWND hwnd) {
    if (!Opened(hwnd, "Add MORV Main"))
        return;
    if (Project.EngNum >= kMaxSystems) {
        ShowMessage(hwnd, "There is too much Systems", "Add MORV System");
        return;
    }
    ChosenName name;
    if (OpenDlg("MORV System Files (*.lse)\0*.lse\0", "Add MORV System", ".lse", name, 0) != 0 ||
        Project.IsDup(name) != -1)
        return;
    Project.NameSys(name);
    EnableMenu(hwnd, 1);
}

void AddExtern(HWND hwnd) {
    if (!Opened(hwnd, "Add MORV Main"))
        return;
    if (Project.ExtNum >= kMaxExterns) {
        ShowMessage(hwnd, "There is too much Extern Files", "Add MORV Externs");
        return;
    }
    ChosenName name;
    if (OpenDlg("MORV Extern Files (*.cpp)\0*.cpp\0", "Add MORV Extern", "*.cpp", name, 0) != 0)
        return;
    if (Project.IsDup(name) != -1) {
        ShowMessage(hwnd, "Duplicate Extern", "Add Externs");
        return;
    }
    Project.NameExt(name);
    EnableMenu(hwnd, 1);
}

void AddDDE(HWND hwnd) {
    if (!Opened(hwnd, "Add MORV Main"))
        return;
    if (Project.DDEState != 0) {
        ShowMessage(hwnd, "There is Opened DDE", "Add MORV Main");
        return;
    }
    ChosenName name;
    if (OpenDlg("MORV DDE Files (*.dde)\0*.dde\0", "Add MORV DDE", ".dde", name, 0) != 0)
        return;
    Project.NameDde(name);
    EnableMenu(hwnd, 1);
}

void AddResult(HWND hwnd) {
    SetText(ResulFile, "");
    if (!Opened(hwnd, "Add Result"))
        return;
    if (OpenDlg("MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0", "Open MORV Result",
                ".rst", ResulFile, 0) == 0) {
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
        if (!MayCloseSystem(hwnd))
            return;
        System.DestroySys();
        DestroyMdiS();
    }
    if (EditState == 1 && !SaveEditors())
        return;
    DestroyWindow(hwnd);
}
