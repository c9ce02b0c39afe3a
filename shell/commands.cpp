#include "shell/commands.h"

#include "build/compile.h"
#include "build/debug.h"
#include "build/execute.h"
#include "build/tools.h"
#include "project/project_commands.h"
#include "resources/dde_items.h"
#include "resources/facts_base.h"
#include "resources/names_lists.h"
#include "shell/core/messages.h"
#include "shell/services/editor.h"
#include "shell/services/handles.h"
#include "shell/services/help.h"
#include "shell/services/mdi.h"
#include "shell/services/menu.h"
#include "shell/services/ZENTRIK.h"
#include "system/system_commands.h"

namespace {

// After a close only the window goes: the document keeps its names and counts until the next New.
void CloseProject(HWND frame) {
    if (CloseMORV(frame) != 1)
        DestroyMdiP();
}

void CloseSystem(HWND frame) {
    if (CloseEngine(frame) != 1)
        DestroyMdiS();
}

void RemoveItem(HWND frame) {
    Remove(frame);
}

void Compile(HWND frame) {
    if (CompileMORV(frame) == -1)
        ShowMessage(frame, "Error de Compilacio", "Zentrik 2.0a");
}

void Undo(HWND) {
    const HWND edit = TextHwnd();
    if (SendMessageA(edit, EM_CANUNDO, 0, 0) == 0)
        ShowMessage(edit, "Nothing to undo.", "Undo notification");
    else
        SendMessageA(edit, EM_UNDO, 0, 0);
}

void Cut(HWND) {
    SendMessageA(TextHwnd(), WM_CUT, 0, 0);
}

void Copy(HWND) {
    SendMessageA(TextHwnd(), WM_COPY, 0, 0);
}

void Paste(HWND) {
    SendMessageA(TextHwnd(), WM_PASTE, 0, 0);
}

void NewTextFile(HWND frame) {
    EnableMenu(frame, kTextOnTop);
    OpenEdit("untitled");
}

void OpenTextFile(HWND frame) {
    OpenFile();
    EnableMenu(frame, kTextOnTop);
}

void SaveTextFile(HWND) {
    SaveFile(GetMdi());
}

void SaveTextFileAs(HWND) {
    SaveFileAs(GetMdi());
}

void CloseTextFile(HWND) {
    if (!IsRule())
        DestroyMdiE();
}

void Cascade(HWND) {
    SendMessageA(hMdiC, WM_MDICASCADE, MDITILE_SKIPDISABLED, 0);
}

void TileHorizontal(HWND) {
    SendMessageA(hMdiC, WM_MDITILE, MDITILE_HORIZONTAL, 0);
}

void TileVertical(HWND) {
    SendMessageA(hMdiC, WM_MDITILE, MDITILE_VERTICAL, 0);
}

void ArrangeIcons(HWND) {
    SendMessageA(hMdiC, WM_MDIICONARRANGE, 0, 0);
}

constexpr Command kCommands[] = {
    {CM_NEW_MORV, NewMORV},
    {CM_OPEN_MORV, OpenMORV},
    {CM_SAVE_MORV, SaveMORV},
    {CM_SAVE_AS_MORV, SaveAsMORV},
    {CM_CLOSE_MORV, CloseProject},
    {CM_EXIT, ExitZentrik},
    {CM_HISTORY_LENGTH, DataLength},
    {CM_ADD_RESULTS, AddResult},
    {CM_ADD_FACTS, AddKnow},
    {CM_RESOURCE_REMOVE, ResRemove},
    {CM_NEW_SYSTEM, NewEngine},
    {CM_ADD_RULES, AddRules},
    {CM_RULES, Rules},
    {CM_TILE_HORIZONTAL, TileHorizontal},
    {CM_CASCADE, Cascade},
    {CM_OPEN_SYSTEM, OpenEngine},
    {CM_TILE_VERTICAL, TileVertical},
    {CM_OPEN_RESOURCE, OpenResource},
    {CM_NEW_TAGS, NewTag},
    {CM_NEW_RESULTS, NewResult},
    {CM_SAVE_SYSTEM, SaveEngine},
    {CM_SAVE_AS_SYSTEM, SaveAsEngine},
    {CM_CLOSE_SYSTEM, CloseSystem},
    {CM_ARRANGE_ICONS, ArrangeIcons},
    {CM_TOOLS, CompileTools},
    {CM_NEW_FACTS_BASE, NewKnowledge},
    {CM_COMPILE, Compile},
    {CM_ADD_OPPOSITES, AddOpposite},
    {CM_ADD_HEADER, AddHeader},
    {CM_ADD_LOCAL_VARS, AddLocalVar},
    {CM_NEW_DDE, NewDDE},
    {CM_LOAD_DDE, LoadDDE},
    {CM_DEBUG, DebugMORV},
    {CM_HELP_INDEX, IndexHelp},
    {CM_ABOUT, AboutZentrik},
    {CM_HELP_CONTENTS, ContentsHelp},
    {CM_NEW_FILE, NewTextFile},
    {CM_ADD_MAIN, AddMain},
    {CM_ADD_SYSTEM, AddEngine},
    {CM_ADD_EXTERN, AddExtern},
    {CM_REMOVE_ITEM, RemoveItem},
    {CM_ADD_DDE, AddDDE},
    {CM_UNDO, Undo},
    {CM_CUT, Cut},
    {CM_COPY, Copy},
    {CM_PASTE, Paste},
    {CM_OPEN_FILE, OpenTextFile},
    {CM_SAVE_FILE, SaveTextFile},
    {CM_SAVE_FILE_AS, SaveTextFileAs},
    {CM_CLOSE_FILE, CloseTextFile},
    {CM_INIT_FACTS, KnowValue},
    {CM_EXECUTE, ExecMORV},
};

} // namespace

std::span<const Command> Commands() {
    return kCommands;
}
