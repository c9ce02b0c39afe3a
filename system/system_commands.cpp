#include "system/system_commands.h"

#include "resources/initial_facts.h"
#include "resources/local_variables.h"
#include "resources/opposites.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"
#include "shell/services/dialog.h"
#include "shell/services/document.h"
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

const Document kDocument{
    .state = System.EngineState,
    .modified = System.Engmod,
    .window = System.hwndSys,
    .name = System.EngineName,
    .untitled = [] { return System.NeedsName(); },
    .rename = [](const char* name) { System.ChangeName(name); },
    .save = [] { return System.SaveSys(); },
    .question = {"MORV System Files (*.lse)\0*.lse\0 All Files (*.*)\0*.*\0",
                 "Save MORV System As...", ".lse"},
    .forgets_when_cancelled = true,
    .not_open = "There is not Opened MORV System",
};

bool HasResources() {
    return System.RuleState != 0 || System.DatNum > 0 || System.OppNum > 0 ||
           System.HeadState != 0 || System.VarState != 0;
}

} // namespace

void NewEngine(HWND hwnd) {
    if (Refused(hwnd, System.EngineState != 0, "There is a Opened MORV System", "New MORV System"))
        return;
    System.Init();
    System.NameSys("untitled.lse");
    System.CreateSys();
    System.EngineState = 1;
    EnableMenu(hwnd, kOpenSystem);
}

void EnableSystemMenus(HWND hwnd) {
    if (HasResources())
        EnableMenu(hwnd, kSystemResources);
    EnableMenu(hwnd, kOpenSystem);
    if (System.DatNum > 0)
        EnableMenu(hwnd, kSystemFacts);
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
    if (Opened(kDocument, hwnd, "Save MORV System"))
        SaveDocument(kDocument);
}

void SaveAsEngine(HWND hwnd) {
    if (Opened(kDocument, hwnd, "Save MORV System As..."))
        SaveDocumentAs(kDocument);
}

bool MayCloseEngine(HWND owner, const char* text, const char* caption) {
    return MayCloseDocument(kDocument, owner, text, caption);
}

int CloseEngine(HWND hwnd) {
    if (!Opened(kDocument, hwnd, "Close MORV System As..."))
        return 0;
    if (!MayCloseEngine(nullptr, "   Save Current MORV System", "Close MORV System"))
        return 1;
    System.DestroySys();
    for (const MenuGroup group : kSystemGroups)
        GrayMenu(hwnd, group);
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

bool EditVariables(HWND owner) {
    if (System.GetVarName(WorkPath) != 0) {
        SaveErr();
        return false;
    }
    RunDialog(owner, "Var_Box", VarNew);
    return true;
}

void AddLocalVar(HWND hwnd) {
    if (!Opened(kDocument, hwnd, "Add System Local Var"))
        return;
    if (!EditVariables(hwnd))
        return;
    EnableMenu(hwnd, kSystemResources);
}

void AddHeader(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add Header") &&
               !Refused(hwnd, System.HeadState != 0, "There is An System Header", "Add Header");
    };
    char name[kNameSize];
    if (!ChooseFile(kDocument, may_add,
                    {"Files (*.cpp)\0*.cpp\0 All Files (*.*)\0*.*\0", "Add System Header", ".cpp"},
                    name))
        return;
    System.NameHeader(name);
    EnableMenu(hwnd, kSystemResources);
}

void AddOpposite(HWND hwnd) {
    auto may_add = [hwnd] { return Opened(kDocument, hwnd, "Add Opposite"); };
    char name[kNameSize] = "";
    const bool chosen = ChooseFile(
        kDocument, may_add,
        {"MORV Result Files (*.rst)\0*.rst\0 All Files (*.*)\0*.*\0", "Add Opposites", ".rst"},
        name);
    SetText(ResultFileName, name);
    if (!chosen)
        return;
    AddType = kAddResults;
    RunDialog(hwnd, "Result_Box", OppAdd);
    EnableMenu(hwnd, kSystemResources);
}

void AddKnow(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add Facts Base") &&
               !Refused(hwnd, System.KnowState != 0, "There is an Opened Facts Base",
                        "Add Facts Base");
    };
    char name[kNameSize];
    if (!ChooseFile(
            kDocument, may_add,
            {"MORV Know Files (*.fac)\0*.fac\0 All Files (*.*)\0*.*\0", "Open MORV Facts", ".fac"},
            name))
        return;
    // The two names stay when the dialog is cancelled.
    if (!SetMadeName(System.KTypeName, WithExtension(name, ".typ"))) {
        SaveErr();
        return;
    }
    SetText(System.KnowName, name);
    AddType = kAddFacts;
    RunDialog(hwnd, "Add_Box", SystemAdd);
    EnableMenu(hwnd, kSystemResources);
    if (System.DatNum > 0)
        EnableMenu(hwnd, kSystemFacts);
}

void AddRules(HWND hwnd) {
    auto may_add = [hwnd] {
        return Opened(kDocument, hwnd, "Add Rules") &&
               !Refused(hwnd, System.RuleState != 0, "There is An Opened Rule File", "Add Rules");
    };
    char name[kNameSize];
    if (!ChooseFile(
            kDocument, may_add,
            {"MORV Rule Files (*.rul)\0*.rul\0 All Files (*.*)\0*.*\0", "Open MORV Rules", ".rul"},
            name))
        return;
    System.NameRule(name);
    EnableMenu(hwnd, kSystemResources);
}

namespace {

// Removes what row `i` shows. False when the row belongs to no section.
bool RemoveResource(int i) {
    const RowSection sections[] = {
        {System.RuleState == 1 && System.IsRule(i), [](int) { return System.DeleteRule(); }},
        {System.DatNum >= 1 ? System.IsKnw(i) : 0, [](int row) { return System.DeleteKnw(row); }},
        {System.OppNum >= 1 ? System.IsOpp(i) : 0, [](int row) { return System.DeleteOpp(row); }},
        {System.HeadState != 0 && System.IsHead(i), [](int) { return System.DeleteHead(); }},
        {System.VarState != 0 && System.IsVar(i), [](int) { return System.DeleteVar(); }},
    };
    return RemoveRow(i, sections);
}

} // namespace

void ResRemove(HWND hwnd) {
    if (RemoveResource(System.GetIndex()))
        System.Engmod = 1;
    if (!HasResources())
        GrayMenu(hwnd, kSystemResources);
    if (System.DatNum == 0)
        GrayMenu(hwnd, kSystemFacts);
}

void KnowValue(HWND hwnd) {
    auto may_set = [hwnd] {
        constexpr char kCaption[] = "Init Knowledge Base";
        return Opened(kDocument, hwnd, kCaption) &&
               !Refused(hwnd, !System.KnwBool(), "There is not Facts", kCaption);
    };
    char name[kNameSize] = "";
    const bool chosen =
        ChooseFile(kDocument, may_set,
                   {" DDE Files (*.dde)\0*.dde\0All Files (*.*)\0*.*\0", "Open DDE File", ".dde"},
                   name, OFN_CREATEPROMPT);
    SetText(DDEIKnw, name);
    if (!chosen)
        return;
    if (System.GetInitName(WorkPath) != 0)
        SaveErr();
    else
        RunDialog(hwnd, "Init_Box", InitKnw);
}

void DestroyMdiS() {
    if (IsWindow(System.hwndSys))
        DestroyMdiCh(System.hwndSys);
    System.hwndSys = nullptr;
}
