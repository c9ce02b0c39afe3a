#include "system/open_row.h"

#include "project/ZENPRO.h"
#include "resources/dde_items.h"
#include "shell/core/paths.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/handles.h"
#include "shell/services/mdi.h"
#include "shell/services/VARMORV.h"
#include "system/add_resource.h"
#include "system/rule_editor.h"
#include "system/system_commands.h"
#include "system/ZENSYS.h"

namespace {

// The rows a document's EditItem tells apart.
constexpr int kMainRow = 1;
constexpr int kSystemRow = 2;
constexpr int kExternRow = 3;
constexpr int kDdeRow = 4;
constexpr int kResultRow = 5;
constexpr int kRulesRow = 1;
constexpr int kHeaderRow = 4;
constexpr int kVariablesRow = 5;

// The selected row of a document without its TAB, and its kind.
template <class Document> int SelectedRow(Document& document, std::string& name) {
    char text[kNameSize + 1] = "";
    const int kind = document.EditItem(text);
    name = text[0] ? text + 1 : "";
    return kind;
}

void EditDde(const std::string& name) {
    DDEType = 1;
    SetText(DDEFileName, name);
    RunDialog(GetFrame(), "Dde_Box", DDEDlg);
}

void EditResults(const std::string& name) {
    SetText(ResulFile, name);
    ChooseResults(GetFrame());
}

} // namespace

void OpenSystem(const std::string& name) {
    if (System.EngineState == 1) {
        if (lstrcmpiA(System.EngineName, name.c_str()) == 0)
            ActivateMdiCh(System.hwndSys);
        return;
    }
    System.NameSys(name.c_str());
    System.CreateSys();
    System.OpenSys(name.c_str());
    EnableSystemMenus(GetFrame());
}

void EditItem() {
    std::string name;
    switch (SelectedRow(Project, name)) {
    case kMainRow:
    case kExternRow:
        OpenEdit(name.c_str());
        break;
    case kSystemRow:
        OpenSystem(name);
        break;
    case kDdeRow:
        EditDde(name);
        break;
    case kResultRow:
        EditResults(name);
        break;
    }
}

void EditItem2() {
    std::string name;
    int kind = SelectedRow(System, name);
    if (kind == kRulesRow) {
        const bool running = IsRule() != 0;
        RunRuleEditor(name.c_str());
        if (running || !IsWindow(hMdiC))
            return; // it keeps the rules it has; or the program was left while it was open
        // From here on the place of the path's first '.' counts as the kind: with 4 the rules have
        // always opened once more, with 5 the variables.
        kind = static_cast<int>(std::min<std::size_t>(name.find('.'), kNameSize));
    }
    if (kind == kHeaderRow)
        OpenEdit(name.c_str());
    if (kind == kVariablesRow)
        EditVariables(GetFrame());
}
