// The system document's files: the system file and the working copies of the local variables and
// the initial facts.
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"
#include "shell/core/working_copy.h"
#include "shell/services/mdi.h"
#include "shell/services/section_rows.h"
#include "system/ZENSYS.h"

#include <unordered_map>

namespace {

// The texts of a section's items, without their TAB.
std::vector<std::string> Items(const ListRows& rows, int first, int count) {
    std::vector<std::string> items;
    const int there = std::min(count, rows.Count() - first);
    for (int i = 0; i < there; ++i)
        items.push_back(ItemText(rows, first + i));
    return items;
}

// Finds each name's record in a facts base, which is created when missing; a name that is no
// longer there has none. Returns false when the facts base cannot be read.
bool FindFacts(const char* base, const std::vector<std::string>& names, std::vector<Dat>& facts) {
    std::vector<Dat> records;
    if (!ReadRecords(base, files::Mode::UpdateOrCreate, records) &&
        !ReadRecords(base, files::Mode::Read, records))
        return false;
    std::unordered_map<std::string, const Dat*> first;
    for (const Dat& record : records)
        first.emplace(Text(record.Name), &record);
    for (const std::string& name : names)
        if (const auto found = first.find(name); found != first.end())
            facts.push_back(*found->second);
    return true;
}

} // namespace

SystemHead ZKSYSTEMS::Head() const {
    SystemHead head{};
    SetText(head.KTypeName, Text(KTypeName));
    SetText(head.RuleName, Text(RuleName));
    SetText(head.RuleSizeName, Text(RuleSizeName));
    SetText(head.HeaderName, Text(HeaderName));
    SetText(head.VarName, Text(VarName));
    SetText(head.InitName, Text(InitName));
    SetText(head.KnowName, Text(KnowName));
    head.TypNum = TypNum;
    head.DatNum = DatNum;
    head.OppNum = OppNum;
    return head;
}

void ZKSYSTEMS::TakeHead(const SystemHead& head) {
    SetText(KTypeName, Text(head.KTypeName));
    SetText(RuleName, Text(head.RuleName));
    SetText(RuleSizeName, Text(head.RuleSizeName));
    SetText(HeaderName, Text(head.HeaderName));
    SetText(VarName, Text(head.VarName));
    SetText(InitName, Text(head.InitName));
    SetText(KnowName, Text(head.KnowName));
    TypNum = head.TypNum;
    DatNum = head.DatNum;
    OppNum = head.OppNum;
}

int ZKSYSTEMS::GetVarName(const char* WPath) {
    SetText(OldVarName, VarFile[0] != '\0' ? Text(VarFile) : Text(VarName));
    const std::string name = std::string(WPath) + "\\temp\\" + Stem(EngineName, true) + ".var";
    return SetMadeName(VarFile, name) ? 0 : -1;
}

int ZKSYSTEMS::GetInitName(const char* WPath) {
    SetText(OldInitName, IKWFile[0] != '\0' ? Text(IKWFile) : Text(InitName));
    // "temp" has no separator behind it here, so an untitled system's copy gets into the work
    // folder.
    const std::string name = std::string(WPath) + "\\temp" + Stem(EngineName, true) + ".ikw";
    return SetMadeName(IKWFile, name) ? 0 : -1;
}

void ZKSYSTEMS::WroteVariables() {
    written_variables_ = Text(VarFile);
}

void ZKSYSTEMS::WroteInitialFacts() {
    written_facts_ = Text(IKWFile);
}

// A copy that was named and never written is no source: what lies there is of another system.
std::string ZKSYSTEMS::VariablesSource() const {
    const bool unwritten = Text(OldVarName) == Text(VarFile) && OldVarName != written_variables_;
    return Text(unwritten ? VarName : OldVarName);
}

std::string ZKSYSTEMS::InitialFactsSource() const {
    const bool unwritten = Text(OldInitName) == Text(IKWFile) && OldInitName != written_facts_;
    return Text(unwritten ? InitName : OldInitName);
}

std::string ZKSYSTEMS::VariablesInForce() const {
    return VarFile[0] != '\0' && VarFile == written_variables_ ? written_variables_ : Text(VarName);
}

// What is moved when the system is saved as `name`.
SystemCopies ZKSYSTEMS::Copies(const char* name) const {
    SystemCopies copies;
    const std::string target = WithExtension(name, ".var");
    if (VarState != 0 && VarFile[0] != '\0')
        copies.variables = {VarFile, VarName, target, VarFile == written_variables_};
    // A system that is opened and saved with no edit of its variables in between has always lost
    // the file: there is no copy to put in its place.
    else if (VarState != 0)
        copies.lost_variables = target;
    if (InitNew != 0 && IKWFile[0] != '\0')
        copies.initial_facts = {IKWFile, InitName, WithExtension(name, ".ikw"),
                                IKWFile == written_facts_};
    return copies;
}

// The head as it will be once the copies are moved.
SystemHead ZKSYSTEMS::HeadAfter(const SystemCopies& copies) const {
    SystemHead head = Head();
    if (!copies.lost_variables.empty())
        SetText(head.VarName, copies.lost_variables);
    else if (copies.variables.working != copies.variables.target)
        SetText(head.VarName, NameAfterMove(copies.variables));
    if (!copies.initial_facts.working.empty())
        SetText(head.InitName, NameAfterMove(copies.initial_facts));
    return head;
}

// Takes over what HeadAfter said, with the copies moved.
void ZKSYSTEMS::TakeMoved(const SystemCopies& copies, const SystemHead& head) {
    if (!copies.lost_variables.empty() || copies.variables.working != copies.variables.target) {
        SetText(VarName, Text(head.VarName));
        SetText(VarFile, "");
        written_variables_.clear();
        if (PVar != -1) {
            ListRows rows(List());
            rows.Delete(PVar);
            rows.Insert(PVar, ItemRow(Text(VarName)));
        }
    }
    if (!copies.initial_facts.working.empty()) {
        SetText(InitName, Text(head.InitName));
        SetText(IKWFile, "");
        written_facts_.clear();
    }
}

int ZKSYSTEMS::ChName(const char* name) {
    const SystemCopies copies = Copies(name);
    const SystemHead head = HeadAfter(copies);
    files::Replacement files;
    if (!AddCopies(files, copies) || !files.CarryOut())
        return -1;
    TakeMoved(copies, head);
    RemoveMoved(copies);
    return 0;
}

int ZKSYSTEMS::SaveSys() {
    // The rows hold the facts: a file written without them would lose those it has.
    const WindowHandle list = List();
    if (!list)
        return -1;
    const SystemCopies copies = Copies(EngineName);
    SystemFile file;
    file.head = HeadAfter(copies);
    const ListRows rows(list);
    bool ok = true;
    if (DatNum > 0) {
        GetPos(kFacts);
        ok = FindFacts(KnowName, Items(rows, PKnw, DatNum), file.facts);
    }
    if (OppNum > 0) {
        GetPos(kOpposites);
        for (const std::string& name : Items(rows, POpp, OppNum))
            SetText(file.opposites.emplace_back().name, name);
    }
    if (!ok || !SaveSystem(EngineName, file, copies)) {
        SaveErr();
        return -1;
    }
    TakeMoved(copies, file.head);
    cut_short_ = false;
    return 0;
}

int ZKSYSTEMS::OpenSys(const char* name) {
    SystemFile file;
    const ReadResult result = ReadSystem(name, file);
    const bool readable = result == ReadResult::Ok || result == ReadResult::Damaged;
    if (readable) {
        Take(name, file);
        cut_short_ = result == ReadResult::Damaged;
    }
    // Last: the box has no owner, so it leaves the menus usable.
    if (result != ReadResult::Ok)
        ShowMessage(nullptr, "Open Error", "Open Engine");
    return readable ? 0 : -1;
}

// Makes what a file holds the open system.
void ZKSYSTEMS::Take(const char* name, const SystemFile& file) {
    TakeHead(file.head);
    ChangeName(name);
    PRul = PKnw = POpp = PHead = PVar = -1;
    EngineState = 1;
    // RuleState, HeadState and KnowState carry over from the system that was open before.
    VarState = 0;
    InitNew = InitName[0] != '\0';
    Engmod = 0;
    SetText(OldVarName, Text(VarName));
    SetText(OldInitName, Text(InitName));
    SetText(IKWFile, "");
    SetText(VarFile, "");
    written_variables_.clear();
    written_facts_.clear();
    AppendRows(file);
}

void ZKSYSTEMS::AppendRows(const SystemFile& file) {
    const WindowHandle list = List();
    ListRows rows(list);
    ListFill fill(list, DatNum + OppNum);
    if (RuleName[0] != '\0') {
        RuleState = 1;
        PRul = kFirstItem;
        rows.Add("Rules");
        rows.Add(ItemRow(Text(RuleName)));
    }
    if (DatNum > 0) {
        GetPos(kFacts);
        rows.Add("Facts Base");
        for (const Dat& fact : file.facts)
            rows.Add(ItemRow(Text(fact.Name)));
    }
    if (OppNum > 0) {
        GetPos(kOpposites);
        rows.Add("Opposites");
        for (const NameRecord& opposite : file.opposites)
            rows.Add(ItemRow(Text(opposite.name)));
    }
    if (HeaderName[0] != '\0') {
        GetPos(kHeader);
        HeadState = 1;
        rows.Add("System Header");
        rows.Add(ItemRow(Text(HeaderName)));
    }
    if (VarName[0] != '\0') {
        GetPos(kVariables);
        VarState = 1;
        rows.Add("System Local Var");
        rows.Add(ItemRow(Text(VarName)));
    }
}
