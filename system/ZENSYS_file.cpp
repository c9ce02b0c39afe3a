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

WorkingCopy Variables(const ZKSYSTEMS& system, const char* name) {
    return {Text(system.VarFile), Text(system.VarName), WithExtension(name, ".var")};
}

WorkingCopy InitialFacts(const ZKSYSTEMS& system, const char* name) {
    return {Text(system.IKWFile), Text(system.InitName), WithExtension(name, ".ikw")};
}

bool MovesVariables(const ZKSYSTEMS& system, const WorkingCopy& copy) {
    return system.VarState != 0 && copy.working != copy.target;
}

bool MovesInitialFacts(const ZKSYSTEMS& system) {
    return system.InitNew != 0 && system.IKWFile[0] != '\0';
}

// The head as it will be once the working copies are moved.
SystemHead HeadAfterMoves(const ZKSYSTEMS& system, const char* name) {
    SystemHead head = system.Head();
    const WorkingCopy variables = Variables(system, name);
    if (MovesVariables(system, variables))
        SetText(head.VarName, NameAfterMove(variables));
    if (MovesInitialFacts(system))
        SetText(head.InitName, NameAfterMove(InitialFacts(system, name)));
    return head;
}

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
    SetText(VarFile, std::string(WPath) + "\\temp\\" + Stem(EngineName, true) + ".var");
    return 0;
}

int ZKSYSTEMS::GetInitName(const char* WPath) {
    SetText(OldInitName, IKWFile[0] != '\0' ? Text(IKWFile) : Text(InitName));
    // "temp" has no separator behind it here, so an untitled system's copy gets into the work
    // folder.
    SetText(IKWFile, std::string(WPath) + "\\temp" + Stem(EngineName, true) + ".ikw");
    return 0;
}

int ZKSYSTEMS::ChName(const char* name) {
    const WorkingCopy variables = Variables(*this, name);
    if (MovesVariables(*this, variables)) {
        const std::string moved = NameAfterMove(variables);
        // A system that is opened and saved with no edit of its variables in between has always
        // lost the file: there is no copy to put in its place.
        if (variables.working.empty())
            files::Remove(variables.target.c_str());
        else if (!MoveToPlace(variables))
            return -1;
        SetText(VarName, moved);
        SetText(VarFile, "");
        if (PVar != -1) {
            ListRows rows(List());
            rows.Delete(PVar);
            rows.Insert(PVar, ItemRow(moved));
        }
    }
    const WorkingCopy facts = InitialFacts(*this, name);
    if (MovesInitialFacts(*this)) {
        const std::string moved = NameAfterMove(facts);
        if (!MoveToPlace(facts))
            return -1;
        SetText(InitName, moved);
        SetText(IKWFile, "");
    }
    return 0;
}

int ZKSYSTEMS::SaveSys() {
    // The rows hold the facts: a file written without them would lose those it has.
    const WindowHandle list = List();
    if (!list)
        return -1;
    // The system file goes first: when it cannot be written, the working copies and the files they
    // replace are all still where they were.
    SystemFile file;
    file.head = HeadAfterMoves(*this, EngineName);
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
    if (!ok || !files::ReplaceWhole(EngineName, SystemBytes(file)) || ChName(EngineName) != 0) {
        SaveErr();
        return -1;
    }
    return 0;
}

int ZKSYSTEMS::OpenSys(const char* name) {
    SystemFile file;
    const ReadResult result = ReadSystem(name, file);
    const bool readable = result == ReadResult::Ok || result == ReadResult::Damaged;
    if (readable)
        Take(name, file);
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
