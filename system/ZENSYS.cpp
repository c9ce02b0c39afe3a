#include "system/ZENSYS.h"

#include "shell/core/file_helpers.h"
#include "shell/core/paths.h"
#include "shell/core/record_text.h"
#include "shell/services/mdi.h"
#include "shell/services/section_rows.h"

ZKSYSTEMS System;

ZKSYSTEMS::ZKSYSTEMS() : hwndSys(nullptr), hwndList(nullptr) {
    Init();
}

int ZKSYSTEMS::Init() {
    PRul = PKnw = POpp = PHead = PVar = -1;
    RuleState = KnowState = HeadState = VarState = InitNew = Engmod = EngineState = 0;
    TypNum = DatNum = OppNum = 0;
    for (auto* name : {&KTypeName, &RuleName, &RuleSizeName, &HeaderName, &VarName, &InitName,
                       &KnowName, &EngineName, &OldVarName, &OldInitName, &IKWFile, &VarFile})
        SetText(*name, "");
    written_variables_.clear();
    written_facts_.clear();
    cut_short_ = false;
    return 0;
}

WindowHandle ZKSYSTEMS::List() {
    hwndList = ListOf(hwndSys, hwndList);
    return hwndList;
}

int ZKSYSTEMS::NameSys(const char* name) {
    SetText(EngineName, name);
    return 0;
}

int ZKSYSTEMS::CreateSys() {
    // The window of a system that could not be opened stays until the next one takes its place.
    if (IsWindow(hwndSys))
        DestroyMdiCh(hwndSys);
    hwndSys = CrearMdiCh("Dial", "System");
    return ShowSys();
}

int ZKSYSTEMS::ShowSys() {
    ListRows rows(List());
    rows.Insert(0, "System Name");
    rows.Insert(1, ItemRow(Text(EngineName)));
    return 0;
}

bool ZKSYSTEMS::IsUntitled() const {
    return Text(EngineName) == "untitled.lse";
}

bool ZKSYSTEMS::NeedsName() const {
    return IsUntitled() || cut_short_;
}

int ZKSYSTEMS::ChangeName(const char* name) {
    ListRows rows(List());
    rows.Delete(0);
    rows.Delete(0);
    NameSys(name);
    return ShowSys();
}

int ZKSYSTEMS::DestroySys() {
    if (List())
        DestroyWindow(hwndList);
    hwndList = nullptr;
    EngineState = 0; // the rest stays: the next system that is opened goes on from it
    return 0;
}

bool ZKSYSTEMS::IsSysWin(WindowHandle hwnd) const {
    return hwnd == hwndSys;
}

WindowHandle ZKSYSTEMS::GetHwnd() const {
    return hwndSys;
}

int ZKSYSTEMS::GetIndex() {
    return ListRows(List()).Selected();
}

int ZKSYSTEMS::AddTab(char* text) const {
    PutTab(text);
    return 0;
}

int ZKSYSTEMS::ResTab(char* text) const {
    DropFirst(text);
    return 0;
}

int ZKSYSTEMS::GetPos(int section) {
    int row = section >= kFacts && RuleState == 1 ? kFirstItem + 2 : kFirstItem;
    if (section >= kOpposites && PKnw != -1)
        row = PKnw + DatNum + 1;
    if (section >= kHeader && POpp != -1)
        row = POpp + OppNum + 1;
    if (section == kVariables && PHead != -1)
        row = PHead + 2;
    switch (section) {
    case kFacts:
        PKnw = row;
        break;
    case kOpposites:
        POpp = row;
        break;
    case kHeader:
        PHead = row;
        break;
    case kVariables:
        PVar = row;
        break;
    }
    return 0;
}

int ZKSYSTEMS::RePos(int section, int delta) {
    auto shift = [delta](std::int32_t& position) {
        if (position != -1)
            position += delta;
    };
    if (section < kOpposites)
        shift(PKnw);
    if (section < kHeader)
        shift(POpp);
    if (section < kVariables)
        shift(PHead);
    if (section <= kVariables)
        shift(PVar);
    return 0;
}

int ZKSYSTEMS::NameRule(const char* name) {
    if (!SetMadeName(RuleSizeName, WithExtension(name, ".siz"))) {
        SaveErr();
        return -1;
    }
    PRul = kFirstItem;
    SetText(RuleName, name);
    ListRows rows(List());
    rows.Insert(PRul - 1, "Rules");
    rows.Insert(PRul, ItemRow(Text(RuleName)));
    RuleState = 1;
    Engmod = 1;
    return RePos(kFacts, 2);
}

ZKSYSTEMS::ItemSection ZKSYSTEMS::Facts() {
    return {kFacts, PKnw, DatNum};
}

ZKSYSTEMS::ItemSection ZKSYSTEMS::Opposites() {
    return {kOpposites, POpp, OppNum};
}

int ZKSYSTEMS::AddRow(const ItemSection& items, char* name) {
    GetPos(items.section);
    AddTab(name);
    // The heading comes last, so until then the items stand one row higher.
    ListRows(List()).Insert(items.first - 1 + items.count, name);
    return RePos(items.section + 1, 1);
}

int ZKSYSTEMS::AddHeading(const ItemSection& items, const char* heading) {
    GetPos(items.section);
    ListRows(List()).Insert(items.first - 1, heading);
    return RePos(items.section + 1, 1);
}

std::string ZKSYSTEMS::ItemAt(const ItemSection& items, int index) {
    GetPos(items.section);
    return ItemText(ListRows(List()), items.first + index);
}

int ZKSYSTEMS::DeleteAll(const ItemSection& items) {
    if (items.first != -1 && items.count > 0) {
        RePos(items.section + 1, -(items.count + 1));
        DeleteSection(List(), items.first, items.count);
    }
    items.count = 0;
    items.first = -1;
    return 0;
}

bool ZKSYSTEMS::DeleteRows(const ItemSection& items, int index) {
    const bool item = PartOf(index, items.first, items.count) == 2;
    if (index == -1 || (item && items.count == 1)) {
        DeleteAll(items);
        return true;
    }
    if (item) {
        ListRows(List()).Delete(index);
        items.count -= 1;
        RePos(items.section + 1, -1);
    }
    return false;
}

int ZKSYSTEMS::NameKnw(char* name) {
    return AddRow(Facts(), name);
}

int ZKSYSTEMS::TitleKnw() {
    return AddHeading(Facts(), "Facts Base");
}

int ZKSYSTEMS::GetKnw(int index, char* name) {
    const std::string text = ItemAt(Facts(), index).substr(0, kNameSize - 1);
    std::memcpy(name, text.c_str(), text.size() + 1);
    return 0;
}

int ZKSYSTEMS::DelKnw() {
    return DeleteAll(Facts());
}

int ZKSYSTEMS::NameOpp(char* name) {
    return AddRow(Opposites(), name);
}

int ZKSYSTEMS::TitleOpp() {
    return AddHeading(Opposites(), "Opossites");
}

std::string ZKSYSTEMS::GetOpp(int index) {
    return ItemAt(Opposites(), index);
}

int ZKSYSTEMS::DelOpp() {
    return DeleteAll(Opposites());
}

int ZKSYSTEMS::NameHeader(const char* name) {
    GetPos(kHeader);
    SetText(HeaderName, name);
    ListRows rows(List());
    rows.Insert(PHead - 1, "System Header");
    rows.Insert(PHead, ItemRow(Text(HeaderName)));
    HeadState = 1;
    Engmod = 1;
    return RePos(kVariables, 2);
}

int ZKSYSTEMS::NameVar(const char* WPath) {
    GetPos(kVariables);
    std::string base = CutAtDot(Text(EngineName));
    if (base == "untitled")
        base = std::string(WPath) + "\\" + base;
    ListRows rows(List());
    // The rows of an earlier edit; with a new section there are none at that place.
    rows.Delete(PVar - 1);
    rows.Delete(PVar - 1);
    rows.Insert(PVar - 1, "System Locar Var");
    rows.Insert(PVar, ItemRow(base + ".var"));
    VarState = 1;
    Engmod = 1;
    return 0;
}

bool ZKSYSTEMS::KnwBool() const {
    return PKnw != -1;
}
bool ZKSYSTEMS::IsRule(int index) const {
    return PartOf(index, PRul, 1) != 0;
}
bool ZKSYSTEMS::IsHead(int index) const {
    return PartOf(index, PHead, 1) != 0;
}
bool ZKSYSTEMS::IsVar(int index) const {
    return PartOf(index, PVar, 1) != 0;
}
int ZKSYSTEMS::IsKnw(int index) const {
    return PartOf(index, PKnw, DatNum);
}
int ZKSYSTEMS::IsOpp(int index) const {
    return PartOf(index, POpp, OppNum);
}

int ZKSYSTEMS::DeleteRule() {
    if (PRul != -1) {
        DeleteSection(List(), PRul, 1);
        RePos(kFacts, -2);
    }
    RuleState = 0;
    PRul = -1;
    SetText(RuleName, "");
    SetText(RuleSizeName, "");
    return 0;
}

int ZKSYSTEMS::DeleteHead() {
    if (PHead != -1) {
        DeleteSection(List(), PHead, 1);
        RePos(kVariables, -2);
    }
    HeadState = 0;
    PHead = -1;
    SetText(HeaderName, "");
    return 0;
}

int ZKSYSTEMS::DeleteVar() {
    if (PVar != -1)
        DeleteSection(List(), PVar, 1);
    VarState = 0;
    PVar = -1;
    SetText(VarName, "");
    SetText(VarFile, "");
    return 0;
}

int ZKSYSTEMS::DeleteKnw(int index) {
    if (DeleteRows(Facts(), index))
        KnowState = 0;
    return 0;
}

int ZKSYSTEMS::DeleteOpp(int index) {
    DeleteRows(Opposites(), index);
    return 0;
}

int ZKSYSTEMS::EditItem(char* text) {
    ListRows rows(List());
    const int index = rows.Selected();
    const std::string row = rows.RowText(index).substr(0, kNameSize);
    std::memcpy(text, row.c_str(), row.size() + 1);
    if (index < 0)
        return 0;
    if (index == PRul)
        return 1;
    if (IsKnw(index) == 2)
        return 2;
    if (IsOpp(index) == 2)
        return 3;
    if (index == PHead)
        return 4;
    return index == PVar ? 5 : 0;
}
