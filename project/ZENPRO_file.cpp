// The project document's files: the project file and the auxiliary results file.
#include "project/ZENPRO.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"
#include "shell/core/record_text.h"
#include "shell/core/working_copy.h"
#include "shell/services/mdi.h"
#include "shell/services/section_rows.h"

namespace {

// Takes over the stored part of a project; its fields need not end with a NUL.
void TakeRecord(ZKPROJECT& project, const ProjectRecord& record) {
    SetText(project.MainName, Text(record.MainName));
    for (int i = 0; i <= kMaxSystems; ++i)
        SetText(project.EngineNames[i], Text(record.EngineNames[i]));
    for (int i = 0; i <= kMaxExterns; ++i)
        SetText(project.ExternFiles[i], Text(record.ExternFiles[i]));
    SetText(project.DDEName, Text(record.DDEName));
    SetText(project.ResAux, Text(record.ResAux));
    project.EngNum = record.EngNum;
    project.ExtNum = record.ExtNum;
    project.ResNum = record.ResNum;
    project.DatHisLen = record.DatHisLen;
}

// Fills the list of a project that was just read, section by section.
void AppendRows(ZKPROJECT& project, WindowHandle list, const std::vector<NameRecord>& results) {
    ListRows rows(list);
    ListFill fill(list);
    auto append = [&rows](const char(&name)[kNameSize]) { rows.Add(ItemRow(Text(name))); };
    rows.Add("MORVName");
    append(project.MORVName);
    if (project.MainName[0] != '\0') {
        project.PMain = ZKPROJECT::kFirstItem;
        rows.Add("Main");
        append(project.MainName);
        project.MainState = 1;
    }
    if (project.EngNum != 0) {
        project.GetPos(ZKPROJECT::kSystems);
        rows.Add("Systems");
        for (int i = 1; i <= project.EngNum; ++i)
            append(project.EngineNames[i]);
    }
    if (project.ExtNum != 0) {
        project.GetPos(ZKPROJECT::kExterns);
        rows.Add("Extern");
        for (int i = 1; i <= project.ExtNum; ++i)
            append(project.ExternFiles[i]);
    }
    if (project.DDEName[0] != '\0') {
        project.GetPos(ZKPROJECT::kDde);
        rows.Add("DDE");
        append(project.DDEName);
        project.DDEState = 1;
    }
    if (project.ResNum > 0) {
        project.GetPos(ZKPROJECT::kResults);
        rows.Add("Results");
        for (const NameRecord& record : results)
            append(record.name);
    }
}

} // namespace

ProjectRecord ZKPROJECT::Record() const {
    ProjectRecord record{};
    SetText(record.MainName, Text(MainName));
    for (int i = 0; i <= kMaxSystems; ++i)
        SetText(record.EngineNames[i], Text(EngineNames[i]));
    for (int i = 0; i <= kMaxExterns; ++i)
        SetText(record.ExternFiles[i], Text(ExternFiles[i]));
    SetText(record.DDEName, Text(DDEName));
    SetText(record.ResAux, Text(ResAux));
    record.EngNum = EngNum;
    record.ExtNum = ExtNum;
    record.ResNum = ResNum;
    record.DatHisLen = DatHisLen;
    return record;
}

int ZKPROJECT::GetResName(const char* WPath) {
    SetText(OldResAux, ResName[0] != '\0' ? Text(ResName) : Text(ResAux));
    const std::string name = std::string(WPath) + "\\temp\\" + Stem(Text(MORVName), true) + ".aux";
    return SetMadeName(ResName, name) ? 0 : -1;
}

void ZKPROJECT::WroteResults() {
    written_results_ = Text(ResName);
}

bool ZKPROJECT::HasWrittenResults() const {
    return !written_results_.empty() && files::Exists(written_results_.c_str());
}

std::string ZKPROJECT::ResultsInForce() const {
    return HasWrittenResults() ? written_results_ : Text(ResAux);
}

// A copy that was named and never written is no source: what lies there is of another project.
std::string ZKPROJECT::ResultsSource() const {
    const bool named = Text(OldResAux) == Text(ResName);
    return named || HasWrittenResults() ? ResultsInForce() : Text(OldResAux);
}

// The results as they are moved when the project is saved as `path`; all empty when they are not.
WorkingCopy ZKPROJECT::Results(const char* path) const {
    const bool written = HasWrittenResults();
    const std::string working = written ? written_results_ : Text(ResName);
    if (working.empty())
        return {};
    return {working, Text(ResAux), WithExtension(path, ".aux"), written};
}

std::string ZKPROJECT::ResAuxAfter(const WorkingCopy& results) const {
    return results.working.empty() ? Text(ResAux) : NameAfterMove(results);
}

int ZKPROJECT::ChangeName(const char* New) {
    const WorkingCopy results = Results(New);
    const std::string saved = ResAuxAfter(results);
    files::Replacement files;
    if (!AddMove(files, results) || !files.CarryOut())
        return -1;
    RemoveMoved(results);
    SetText(ResAux, saved);
    SetText(ResName, "");
    written_results_.clear();
    return 0;
}

int ZKPROJECT::SavePro() {
    // The rows hold the results: a file written without them would lose those it has.
    if (!List())
        return -1;
    if (ResNum > 0)
        CountResults();
    const WorkingCopy auxiliary = Results(MORVName);
    const std::string saved = ResAuxAfter(auxiliary);
    ProjectFile project;
    project.head = Record();
    SetText(project.head.ResAux, saved);
    const ListRows rows(List());
    for (int i = 0; i < ResNum; ++i)
        SetText(project.results.emplace_back().name, ItemText(rows, PRes + i));
    if (!WriteProject(MORVName, project, auxiliary)) {
        SaveErr();
        return -1;
    }
    SetText(ResAux, saved);
    SetText(ResName, "");
    written_results_.clear();
    cut_short_ = false;
    return 0;
}

int ZKPROJECT::OpenPro(const char* nom) {
    const std::string path = nom; // may be this document's own name, which Init empties
    Init();
    SetText(MORVName, path);
    ProjectFile project;
    const ReadResult result = ReadProject(MORVName, project);
    const bool readable = result == ReadResult::Ok || result == ReadResult::Damaged;
    if (readable) {
        TakeRecord(*this, project.head);
        cut_short_ = result == ReadResult::Damaged;
        hwndPro = CrearMdiCh("Projec", "MORV Project");
        MORState = 1;
        AppendRows(*this, List(), project.results);
    }
    // Last: the box leaves the menus usable.
    if (result != ReadResult::Ok)
        ShowMessage(GetDesktopWindow(), "Open Error", "Open Project");
    return readable ? 0 : -1;
}
