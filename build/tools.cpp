#include "build/tools.h"

#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/help.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

#include <algorithm>

char Path[kNameSize];
char Com[kNameSize];
char P_Com[kNameSize];
char Tool_P[kNameSize];

namespace {

void UseTools(const ToolsFile& tools) {
    SetText(Path, tools.path);
    SetText(Com, tools.com);
    SetText(P_Com, tools.p_com);
    SetText(Tool_P, tools.tool_p);
}

HWND Combo(HWND dialog) {
    return GetDlgItem(dialog, TOOL_COMMAND);
}

void AddToList(HWND dialog, const std::string& command) {
    SendMessageA(Combo(dialog), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(command.c_str()));
}

std::string ListEntry(HWND dialog, int index) {
    const auto length = SendMessageA(Combo(dialog), CB_GETLBTEXTLEN, index, 0);
    if (length < 0)
        return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(Combo(dialog), CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void Open(HWND dialog) {
    for (int id : {TOOL_MORV_PATH, TOOL_INCLUDE, TOOL_COMPILER_PATH})
        SendDlgItemMessageA(dialog, id, EM_LIMITTEXT, kNameSize - 1, 0);
    SendMessageA(Combo(dialog), CB_LIMITTEXT, kNameSize - 1, 0);
    ToolsFile tools;
    if (ReadTools(ToolsFileName(WorkPath).c_str(), tools)) {
        UseTools(tools);
        SetWindowTextA(Combo(dialog), Com);
        for (const std::string& compiler : tools.compilers)
            AddToList(dialog, compiler);
    }
    SetDlgItemTextA(dialog, TOOL_MORV_PATH, Path);
    SetDlgItemTextA(dialog, TOOL_INCLUDE, P_Com);
    SetDlgItemTextA(dialog, TOOL_COMPILER_PATH, Tool_P);
}

void AddCompiler(HWND dialog) {
    char name[kNameSize];
    if (OpenDlg(" Compilers Files (*.exe)\0*.exe\0", "Add Compiler File", ".cpp", name, 0) == 0)
        AddToList(dialog, name);
}

std::vector<std::string> ListEntries(HWND dialog) {
    std::vector<std::string> entries;
    const auto count = static_cast<int>(SendMessageA(Combo(dialog), CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
        entries.push_back(ListEntry(dialog, i));
    return entries;
}

// The combo box would find an entry in any letter case; only the very same one goes.
void RemoveCompiler(HWND dialog) {
    const std::string text = ControlText(dialog, TOOL_COMMAND, kNameSize);
    const std::vector<std::string> entries = ListEntries(dialog);
    const auto entry = std::ranges::find(entries, text);
    if (entry == entries.end())
        return;
    const auto index = static_cast<WPARAM>(entry - entries.begin());
    if (SendMessageA(Combo(dialog), CB_DELETESTRING, index, 0) != CB_ERR)
        SetWindowTextA(Combo(dialog), "");
}

void Accept(HWND dialog) {
    ToolsFile tools;
    tools.path = ControlText(dialog, TOOL_MORV_PATH, kNameSize);
    tools.com = ControlText(dialog, TOOL_COMMAND, kNameSize);
    tools.p_com = ControlText(dialog, TOOL_INCLUDE, kNameSize);
    tools.tool_p = ControlText(dialog, TOOL_COMPILER_PATH, kNameSize);
    tools.compilers = ListEntries(dialog);
    if (!WriteTools(ToolsFileName(WorkPath).c_str(), tools))
        ShowMessage(dialog, "Creation Tool file error", "Compile Tools");
    // Also when they could not be stored: then they hold until the program ends.
    UseTools(tools);
    CloseDialog(dialog);
}

constexpr DialogAction kActions[] = {
    {TOOL_ADD, BN_CLICKED, AddCompiler},
    {TOOL_REMOVE, BN_CLICKED, RemoveCompiler},
    {TOOL_HELP, BN_CLICKED, [](HWND dialog) { TopicHelp(dialog, HELP_TOPIC_TOOLS); }},
    {IDOK, BN_CLICKED, Accept},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = Open, .actions = kActions};

INT_PTR CALLBACK ToolDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}

} // namespace

ToolsFile CurrentTools() {
    return {Path, Com, P_Com, Tool_P, {}};
}

void LoadTools() {
    ToolsFile tools;
    if (ReadTools(ToolsFileName(WorkPath).c_str(), tools))
        UseTools(tools);
}

void CompileTools(HWND hwnd) {
    RunDialog(hwnd, "Tool_Box", ToolDlg);
}
