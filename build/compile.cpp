#include "build/compile.h"

#include "build/core/own_sources.h"
#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "build/tools.h"
#include "project/ZENPRO.h"
#include "shell/core/file_helpers.h"
#include "shell/core/files.h"
#include "shell/core/messages.h"
#include "shell/services/editor.h"
#include "shell/services/menu.h"
#include "shell/services/process.h"
#include "shell/services/VARMORV.h"
#include "shell/services/wait_cursor.h"
#include "system/ZENSYS.h"

#include <cerrno>

namespace {

constexpr char kCaption[] = "Compile MORV";

int Refuse(HWND hwnd, const char* text) {
    ShowMessage(hwnd, text, kCaption);
    return -1;
}

int SourceFailed(HWND hwnd, const BuildNames& names) {
    Refuse(hwnd, "Rules.cpp creation error");
    // The half-written source shows how far it got.
    EnableMenu(hwnd, kTextOnTop);
    OpenEdit(names.rules_cpp.c_str());
    return -1;
}

int WriteRulesSource(HWND hwnd, const ProjectRecord& project, const BuildNames& names,
                     SystemHead& last_read) {
    const int done = CrearRulesCpp(project, last_read, names.rules_cpp.c_str(),
                                   names.rules_h_name.c_str(), hwnd);
    return done == 0 ? 0 : SourceFailed(hwnd, names);
}

// A file that the project is made from must not be written over. It counts as one that cannot be
// created, before anything else is.
int RefuseToOverwrite(HWND hwnd, const BuildNames& names, Overwritten what) {
    files::SetLastError(EACCES);
    if (what == Overwritten::RulesSource)
        ShowMessage(hwnd, "Creation file error", "Rule.Cpp");
    GetErr();
    if (what == Overwritten::RulesHeader)
        return Refuse(hwnd, "Rules.h creation error");
    return what == Overwritten::RulesSource ? SourceFailed(hwnd, names) : -1;
}

int WriteFiles(HWND hwnd, const BuildNames& names) {
    const WaitCursor wait;
    const ProjectRecord project = Project.Record();
    if (CrearRulesH(project, names.rules_h.c_str(), hwnd) != 0)
        return Refuse(hwnd, "Rules.h creation error");
    // The build reads system files into the names and counts of the open system document, which
    // keep what was read last.
    SystemHead last_read = System.Head();
    const SupportInput support{project, names, Path, WorkPath, hwnd};
    const bool done = WriteRulesSource(hwnd, project, names, last_read) == 0 &&
                      WriteDdecom(support) == 0 && WriteConsts(support, last_read) == 0 &&
                      WriteMorvApi(support) == 0;
    System.TakeHead(last_read);
    return done ? 0 : -1;
}

} // namespace

int CompileMORV(HWND hwnd) {
    if (Project.MORState != 1)
        return Refuse(hwnd, "There is no MORV Project Open");
    if (Project.IsUntitled())
        return Refuse(hwnd, "Save Project before compile");
    const BuildNames names(Project.MORVName);
    const Overwritten what = WouldOverwrite(Project.Record(), names, Path, WorkPath);
    if (what != Overwritten::Nothing)
        return RefuseToOverwrite(hwnd, names, what);
    if (WriteFiles(hwnd, names) != 0)
        return -1;
    if (Com[0] != '\0')
        StartProcess("", CompilerLine(names, CurrentTools(), WorkPath));
    return 0;
}
