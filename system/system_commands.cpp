#include "system/system_commands.h"

#include "resources/initial_facts.h"
#include "resources/local_variables.h"
#include "resources/opposites.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"
#include "shell/services/dialog.h"
#include "shell/services/document_save.h"
#include "shell/services/editor.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/handles.h"
#include "shell/services/mdi.h"
#include "shell/services/menu.h"
#include "shell/services/VARMORV.h"
#include "system/add_resource.h"
#include "system/rule_editor.h"
#include "system/ZENSYS.h"

namespace {

const SavedDocument kDocument{
    .state = System.EngineState,
    .modified = System.Engmod,
    .window = System.hwndSys,
    .name = System.EngineName,
    .untitled = [] { return System.NeedsName(); },
    .rename = [](const char* name) { System.ChangeName(name); },
    .save = [] { return System.SaveSys(); },
    .filter = "MORV System Files (*.lse)\0*.lse\0 All Files (*.*)\0*.*\0",
    .title = "Save MORV System As...",
    .extension = ".lse",
    .forgets_when_cancelled = true,
};

// Shows that no system is open, unless one is.
bool Opened(HWND hwnd, const char* caption) {
    if (System.EngineState == 1)
        return true;
    ShowMessage(hwnd, "There is not Opened MORV System", caption);
    return false;
}

// Shows a refusal when the reason for it is there.
bool Refused(HWND hwnd, bool reason, const char* text, const char* caption) {
    if (reason)
        ShowMessage(hwnd, text, caption);
    return reason;
}

bool HasResources() {
    return System.RuleState != 0 || System.DatNum > 0 || System.OppNum > 0 ||
           System.HeadState != 0 || System.VarState != 0;
}

// Asks for a resource file. `may_add`, which shows why not, is asked again afterwards: another of
// these dialogs may have been used meanwhile.
template <class MayAdd>
bool ChooseResource(MayAdd may_add, const char* filter, const char* title, const char* extension,
                    char* name, unsigned flags = 0) {
    const auto still_open = StillOpen(kDocument);
    return may_add() && OpenDlg(filter, title, extension, name, flags) == 0 && still_open() &&
           may_add();
}

} // namespace

void NewEngine(HWND hwnd) {
    if (Refused(hwnd, System.EngineState != 0, "There is a Opened MORV System", "New MORV System"))
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
    auto refused = [hwnd] {
        return Refused(hwnd, System.EngineState != 0, "There is Opened MORV System",
                       "Open MORV System");
    };
    char name[kNameSize];
    if (refused() ||
        OpenDlg("MORV Systems Files (*.lse)\0*.lse\0 All Files (*.*)\0*.*\0", "Open MORV System",
                ".lse", name, 0) != 0 ||
        refused()) // the dialog leaves New usable
        return;
    System.NameSys(name);
    System.CreateSys();
    System.OpenSys(System.EngineName); // when it fails the window stays with its name rows
    EnableSystemMenus(hwnd);
}

void SaveEngine(HWND hwnd) {
    if (Opened(hwnd, "Save MORV System"))
        SaveDocument(kDocument);
}

void SaveAsEngine(HWND hwnd) {
    if (Opened(hwnd, "Save MORV System As..."))
        SaveDocumentAs(kDocument);
}

bool MayCloseEngine(HWND owner, const char* text, const char* caption) {
    return MayCloseDocument(kDocument, owner, text, caption);
}

int CloseEngine(HWND hwnd) {
    if (!Opened(hwnd, "Close MORV System As..."))
        return 0;
    if (!MayCloseEngine(nullptr, "   Save Current MORV System", "Close MORV System"))
        return 1;
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
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add Header") &&
               !Refused(hwnd, System.HeadState != 0, "There is An System Header", "Add Header");
    };
    char name[kNameSize];
    if (!ChooseResource(may_add, "Files (*.cpp)\0*.cpp\0 All Files (*.*)\0*.*\0",
                        "Add System Header", ".cpp", name))
        return;
    System.NameHeader(name);
    EnableMenu(hwnd, 6);
}

void AddOpposite(HWND hwnd) {
    auto may_add = [hwnd] { return Opened(hwnd, "Add Opposite"); };
    char name[kNameSize] = "";
    const bool chosen =
        ChooseResource(may_add, "MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0",
                       "Add Opposites", ".rst", name);
    SetText(ResultFileName, name);
    if (!chosen)
        return;
    AddType = kAddResults;
    RunDialog(hwnd, "Result_Box", OppAdd);
    EnableMenu(hwnd, 6);
}

void AddKnow(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add Facts Base") &&
               !Refused(hwnd, System.KnowState != 0, "There is an Opened Facts Base",
                        "Add Facts Base");
    };
    char name[kNameSize];
    if (!ChooseResource(may_add, "MORV Know Files (*.fac)\0*.fac\0 All Files (*.*)\0*.*\0",
                        "Open MORV Facts", ".fac", name))
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
    auto may_add = [hwnd] {
        return Opened(hwnd, "Add Rules") &&
               !Refused(hwnd, System.RuleState != 0, "There is An Opened Rule File", "Add Rules");
    };
    char name[kNameSize];
    if (!ChooseResource(may_add, "MORV Rule Files (*.rul)\0*.rul\0 All Files (*.*)\0*.*\0",
                        "Open MORV Rules", ".rul", name))
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
    auto may_set = [hwnd] {
        constexpr char kCaption[] = "Init Knowledge Base";
        return Opened(hwnd, kCaption) &&
               !Refused(hwnd, !System.KnwBool(), "There is not Facts", kCaption);
    };
    char name[kNameSize] = "";
    const bool chosen = ChooseResource(may_set, " DDE Files (*.dde)\0*.dde\0All Files (*.*)\0*.*\0",
                                       "Open DDE File", ".dde", name, OFN_CREATEPROMPT);
    SetText(DDEIKnw, name);
    if (!chosen)
        return;
    System.GetInitName(WorkPath);
    RunDialog(hwnd, "Init_Box", InitKnw);
}

void DestroyMdiS() {
    if (IsWindow(System.hwndSys))
        DestroyMdiCh(System.hwndSys);
    System.hwndSys = nullptr;
}
