#include "system/system_commands.h"

#include "resources/initial_facts.h"
#include "resources/local_variables.h"
#include "resources/opposites.h"
#include "shell/dialog.h"
#include "shell/editor.h"
#include "shell/file_dialogs.h"
#include "shell/mdi.h"
#include "shell/menu.h"
#include "shell/messages.h"
#include "shell/paths.h"
#include "shell/VARMORV.h"
#include "system/add_resource.h"
#include "system/rule_editor.h"

namespace {

// Shows that no system is open, unless one is.
bool Opened(HWND hwnd, const char* caption) {
    if (System.EngineState == 1)
        return true;
    ShowMessage(hwnd, "There is not Opened MORV System", caption);
    return false;
}

// Shows a refusal when the system has such a resource already.
bool Has(HWND hwnd, std::int32_t state, const char* text, const char* caption) {
    if (state == 0)
        return false;
    ShowMessage(hwnd, text, caption);
    return true;
}

bool HasResources() {
    return System.RuleState != 0 || System.DatNum > 0 || System.OppNum > 0 ||
           System.HeadState != 0 || System.VarState != 0;
}

enum class Saved { Done, Cancelled, Failed };

Saved SaveAs() {
    char name[kNameSize];
    if (SaveDlg("MORV System Files (*.lse)\0*.lse\0 All Files (*.*)\0*.*\0",
                "Save MORV System As...", ".lse", name, OFN_OVERWRITEPROMPT) != 0)
        return Saved::Cancelled;
    const std::string before = Text(System.EngineName);
    System.NameSys(name);
    System.ChangeName(name);
    if (System.SaveSys() != 0) {
        System.ChangeName(before.c_str());
        return Saved::Failed;
    }
    System.Engmod = 0;
    return Saved::Done;
}

// Saves under the system's name. A cancelled file dialog gives the changes up, a failed write does
// not.
Saved Save() {
    if (System.IsUntitled()) {
        const Saved saved = SaveAs();
        if (saved == Saved::Cancelled)
            System.Engmod = 0;
        return saved;
    }
    if (System.SaveSys() != 0)
        return Saved::Failed;
    System.Engmod = 0;
    return Saved::Done;
}

} // namespace

void NewEngine(HWND hwnd) {
    if (Has(hwnd, System.EngineState, "There is a Opened MORV System", "New MORV System"))
        return;
    System.Init();
    System.NameSys("untitled.lse");
    System.CreateSys();
    System.EngineState = 1;
    EnableMenu(hwnd, 5);
}

void EnableSystemMenus(HWND hwnd) {
    if (HasResources())
        EnableMenu(hwnd, 6);
    EnableMenu(hwnd, 5);
    if (System.DatNum > 0)
        EnableMenu(hwnd, 8);
}

void OpenEngine(HWND hwnd) {
    if (Has(hwnd, System.EngineState, "There is Opened MORV System", "Open MORV System"))
        return;
    char name[kNameSize];
    if (OpenDlg("MORV Systems Files (*.lse)\0*.lse\0 All Files (*.*)\0*.*\0", "Open MORV System",
                ".lse", name, 0) != 0)
        return;
    System.NameSys(name);
    System.CreateSys();
    System.OpenSys(System.EngineName); // when it fails the window stays with its name rows
    EnableSystemMenus(hwnd);
}

void SaveEngine(HWND hwnd) {
    if (Opened(hwnd, "Save MORV System"))
        Save();
}

void SaveAsEngine(HWND hwnd) {
    if (Opened(hwnd, "Save MORV System As..."))
        SaveAs();
}

int CloseEngine(HWND hwnd) {
    if (!Opened(hwnd, "Close MORV System As..."))
        return 0;
    if (System.Engmod == 1) {
        const Answer answer = ShowMessage(nullptr, "   Save Current MORV System",
                                          "Close MORV System", Buttons::YesNoCancel);
        if (answer == Answer::Cancel || (answer == Answer::Yes && Save() == Saved::Failed))
            return 1;
    }
    System.DestroySys();
    GrayMenu(hwnd, 5);
    GrayMenu(hwnd, 6);
    return 0;
}

namespace {

HWND TopEditor() {
    HWND child = GetMdi();
    while (child && !IsEditor(child))
        child = GetWindow(child, GW_HWNDNEXT);
    return child;
}

// Closes every text window with its own question. False when the user keeps one.
bool CloseEditors() {
    while (const HWND editor = TopEditor()) {
        SendMessageA(hMdiC, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(editor), 0);
        if (CloseFile(editor) != 0)
            return false;
        DestroyMdiCh(editor);
        if (IsWindow(editor))
            return false;
    }
    return true;
}

} // namespace

void Rules(HWND) {
    // The rules dialog leaves the menus usable, so it may be running already.
    if (IsRule() || CloseEditors())
        RunRuleEditor("untitled.rul");
}

void AddLocalVar(HWND hwnd) {
    if (!Opened(hwnd, "Add System Local Var"))
        return;
    System.GetVarName(WorkPath);
    RunDialog(hwnd, "Var_Box", VarNew);
    EnableMenu(hwnd, 6);
}

void AddHeader(HWND hwnd) {
    if (!Opened(hwnd, "Add Header") ||
        Has(hwnd, System.HeadState, "There is An System Header", "Add Header"))
        return;
    char name[kNameSize];
    if (OpenDlg("Files (*.cpp)\0*.cpp\0 All Files (*.*)\0*.*\0", "Add System Header", ".cpp", name,
                0) != 0)
        return;
    System.NameHeader(name);
    EnableMenu(hwnd, 6);
}

void AddOpposite(HWND hwnd) {
    if (!Opened(hwnd, "Add Opposite"))
        return;
    SetText(ResultFileName, "");
    if (OpenDlg("MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0", "Add Opposites",
                ".rst", ResultFileName, 0) != 0)
        return;
    AddType = kAddResults;
    RunDialog(hwnd, "Result_Box", OppAdd);
    EnableMenu(hwnd, 6);
}

void AddKnow(HWND hwnd) {
    if (!Opened(hwnd, "Add Facts Base") ||
        Has(hwnd, System.KnowState, "There is an Opened Facts Base", "Add Facts Base"))
        return;
    char name[kNameSize];
    if (OpenDlg("MORV Know Files (*.fac)\0*.fac\0 All Files (*.*)\0*.*\0", "Open MORV Facts",
                ".fac", name, 0) != 0)
        return;
    // Both stay so when the dialog is cancelled.
    SetText(System.KnowName, name);
    SetText(System.KTypeName, WithExtension(name, ".typ"));
    AddType = kAddFacts;
    RunDialog(hwnd, "Add_Box", SystemAdd);
    EnableMenu(hwnd, 6);
    if (System.DatNum > 0)
        EnableMenu(hwnd, 8);
}

void AddRules(HWND hwnd) {
    if (!Opened(hwnd, "Add Rules") ||
        Has(hwnd, System.RuleState, "There is An Opened Rule File", "Add Rules"))
        return;
    char name[kNameSize];
    if (OpenDlg("MORV Rule Files (*.rul)\0*.rul\0 All Files (*.*)\0*.*\0", "Open MORV Rules",
                ".rul", name, 0) != 0)
        return;
    System.NameRule(name);
    EnableMenu(hwnd, 6);
}

namespace {

// Removes what row `i` shows: facts and opposites by their heading all at once. False when the row
// belongs to no section.
bool RemoveRow(int i) {
    auto row_or_all = [i](int part) { return part == 1 ? -1 : i; };
    if (System.RuleState == 1 && System.IsRule(i))
        System.DeleteRule();
    else if (const int part = System.IsKnw(i); System.DatNum >= 1 && part != 0)
        System.DeleteKnw(row_or_all(part));
    else if (const int part = System.IsOpp(i); System.OppNum >= 1 && part != 0)
        System.DeleteOpp(row_or_all(part));
    else if (System.HeadState != 0 && System.IsHead(i))
        System.DeleteHead();
    else if (System.VarState != 0 && System.IsVar(i))
        System.DeleteVar();
    else
        return false;
    return true;
}

} // namespace

void ResRemove(HWND hwnd) {
    if (RemoveRow(System.GetIndex()))
        System.Engmod = 1;
    if (!HasResources())
        GrayMenu(hwnd, 6);
    if (System.DatNum == 0)
        GrayMenu(hwnd, 8);
}

void KnowValue(HWND hwnd) {
    if (!Opened(hwnd, "Init Knowledge Base"))
        return;
    if (!System.KnwBool()) {
        ShowMessage(hwnd, "There is not Facts", "Init Knowledge Base");
        return;
    }
    if (OpenDlg(" DDE Files (*.dde)\0*.dde\0All Files (*.*)\0*.*\0", "Open DDE File", ".dde",
                DDEIKnw, OFN_CREATEPROMPT) != 0)
        return;
    System.GetInitName(WorkPath);
    RunDialog(hwnd, "Init_Box", InitKnw);
}

void DestroyMdiS() {
    if (IsWindow(System.hwndSys))
        DestroyMdiCh(System.hwndSys);
    System.hwndSys = nullptr;
}
