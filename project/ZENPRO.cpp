#include "project/ZENPRO.h"

#include "project/core/results_file.h"
#include "shell/core/file_helpers.h"
#include "shell/core/record_text.h"
#include "shell/services/mdi.h"
#include "shell/services/section_rows.h"

ZKPROJECT Project;

namespace {

// `name`, cut to what a field holds.
std::string Cut(const char* name) {
    return std::string(name, strnlen(name, kNameSize - 1));
}

// Removes the first of `count` names that equals `name`; the names behind it move up.
void RemoveName(char (*names)[kNameSize], int count, const std::string& name) {
    int t = 0;
    while (t <= count && Text(names[t]) != name)
        ++t;
    for (; t < count; ++t)
        std::memcpy(names[t], names[t + 1], kNameSize);
}

} // namespace

ZKPROJECT::ZKPROJECT() : hwndPro(nullptr), hwndList(nullptr) {
    Init();
}

int ZKPROJECT::Init() {
    PMain = PRes = PEng = PExt = Pdde = -1;
    MORState = MainState = DDEState = MORVmod = 0;
    SetText(MORVName, "");
    SetText(MainName, "");
    SetText(DDEName, "");
    SetText(ResAux, "");
    SetText(OldResAux, "");
    SetText(ResName, "");
    std::memset(EngineNames, 0, sizeof EngineNames);
    std::memset(ExternFiles, 0, sizeof ExternFiles);
    EngNum = ExtNum = ResNum = 0;
    DatHisLen = 4;
    return 0;
}

WindowHandle ZKPROJECT::List() {
    hwndList = ListOf(hwndPro, hwndList);
    return hwndList;
}

int ZKPROJECT::NamePro(const char* name) {
    SetText(MORVName, name);
    return 0;
}

int ZKPROJECT::CreatePro() {
    hwndPro = CrearMdiCh("Projec", "MORV Project");
    UpdateWindow(hwndPro);
    return ShowPro();
}

int ZKPROJECT::ShowPro() {
    ListRows rows(List());
    rows.Insert(0, "MORVName");
    rows.Insert(1, ItemRow(Text(MORVName)));
    return 0;
}

int ZKPROJECT::IsUntitled() const {
    return Text(MORVName) == "untitled.mrv";
}

int ZKPROJECT::DestroyPro() {
    if (List())
        DestroyWindow(hwndList);
    hwndList = nullptr;
    MORState = 0;
    return 0;
}

int ZKPROJECT::DestroyMdi() {
    if (IsWindow(hwndPro))
        DestroyMdiCh(hwndPro);
    hwndPro = nullptr;
    return 0;
}

int ZKPROJECT::GetPos(int Nvar) {
    int row = MainState == 1 ? kFirstItem + 2 : kFirstItem;
    if (Nvar >= kResults && Pdde != -1)
        row = Pdde + 2;
    else if (Nvar >= kDde && PExt != -1)
        row = PExt + ExtNum + 1;
    else if (Nvar >= kExterns && PEng != -1)
        row = PEng + EngNum + 1;
    switch (Nvar) {
    case kSystems:
        PEng = row;
        break;
    case kExterns:
        PExt = row;
        break;
    case kDde:
        Pdde = row;
        break;
    case kResults:
        PRes = row;
        break;
    }
    return 0;
}

int ZKPROJECT::RePos(int Nvar, int Nlin) {
    auto shift = [Nlin](std::int32_t& position) {
        if (position != -1)
            position += Nlin;
    };
    if (Nvar < kSystemsSection)
        shift(PEng);
    if (Nvar < kExternsSection)
        shift(PExt);
    if (Nvar < kDdeSection)
        shift(Pdde);
    if (Nvar <= kDdeSection)
        shift(PRes);
    return 0;
}

int ZKPROJECT::NameMain(const char* name) {
    PMain = kFirstItem;
    SetText(MainName, name);
    ListRows rows(List());
    rows.Insert(PMain - 1, "Main");
    rows.Insert(PMain, ItemRow(Text(MainName)));
    MainState = 1;
    MORVmod = 1;
    return RePos(kMainSection, 2);
}

ZKPROJECT::Names ZKPROJECT::Systems() {
    return {kSystems, kSystemsSection, PEng, EngNum, EngineNames, kMaxSystems, "System"};
}

ZKPROJECT::Names ZKPROJECT::Externs() {
    return {kExterns, kExternsSection, PExt, ExtNum, ExternFiles, kMaxExterns, "Extern"};
}

int ZKPROJECT::AddTo(const Names& section, char* name) {
    if (section.count >= section.most)
        return -1;
    GetPos(section.placed);
    const int n = section.count;
    ListRows rows(List());
    if (n == 0)
        rows.Insert(section.first - 1, section.heading);
    section.count += 1;
    SetText(section.names[n + 1], name);
    AddTab(name);
    rows.Insert(section.first + n, ItemRow(Text(section.names[n + 1])));
    MORVmod = 1;
    return RePos(section.changed, n > 0 ? 1 : 2);
}

int ZKPROJECT::NameSys(char* name) {
    return AddTo(Systems(), name);
}

int ZKPROJECT::NameExt(char* name) {
    return AddTo(Externs(), name);
}

int ZKPROJECT::NameDde(char* name) {
    SetText(DDEName, name);
    GetPos(kDde);
    AddTab(name);
    ListRows rows(List());
    rows.Insert(Pdde - 1, "DDE");
    rows.Insert(Pdde, ItemRow(Text(DDEName)));
    MORVmod = 1;
    RePos(kDdeSection, 2);
    DDEState = 1;
    return 0;
}

void ZKPROJECT::CountResults() {
    GetPos(kResults);
    // The results editor counts each name it adds to a results file as a result of the project.
    ResNum = std::clamp(ResNum, 0, std::max(0, ListRows(List()).Count() - PRes));
}

int ZKPROJECT::NameRes(const char* name, int a) {
    CountResults();
    MORVmod = 1;
    ListRows rows(List());
    const std::string wanted = Cut(name);
    int found = -1;
    // Letter case counts here, so the list's own search does not do.
    for (int i = 0; i < ResNum && found == -1; ++i)
        if (ItemText(rows, PRes + i) == wanted)
            found = i;
    if (a != 0 && found == -1) {
        if (ResNum == 0)
            rows.Insert(PRes - 1, "Results");
        rows.Insert(PRes + ResNum, ItemRow(wanted));
        ResNum += 1;
    } else if (a == 0 && found != -1) {
        rows.Delete(PRes + found);
        ResNum -= 1;
        if (ResNum == 0)
            rows.Delete(PRes - 1); // PRes stays: it is set anew before its next use
    }
    return 0;
}

int ZKPROJECT::EditItem(char* nom) {
    ListRows rows(List());
    const int index = rows.Selected();
    const std::string text = rows.RowText(index).substr(0, kNameSize);
    std::memcpy(nom, text.c_str(), text.size() + 1);
    if (index < 0)
        return 0;
    if (index == PMain)
        return 1;
    if (IsSys(index) == 2)
        return 2;
    if (IsExt(index) == 2)
        return 3;
    if (index == Pdde)
        return 4;
    return IsRes(index) == 2 ? 5 : 0;
}

int ZKPROJECT::GetIndex() {
    return ListRows(List()).Selected();
}

int ZKPROJECT::IsMain(int index) const {
    return PartOf(index, PMain, 1) != 0;
}
int ZKPROJECT::IsDde(int index) const {
    return PartOf(index, Pdde, 1) != 0;
}
int ZKPROJECT::IsSys(int index) const {
    return PartOf(index, PEng, EngNum);
}
int ZKPROJECT::IsExt(int index) const {
    return PartOf(index, PExt, ExtNum);
}
int ZKPROJECT::IsRes(int index) const {
    return PartOf(index, PRes, ResNum);
}

int ZKPROJECT::DeleteMain() {
    if (PMain == -1)
        return 0;
    DeleteSection(List(), PMain, 1);
    MainState = 0; // the name stays and is saved with the project
    PMain = -1;
    return RePos(kMainSection, -2);
}

int ZKPROJECT::DeleteDde() {
    if (Pdde == -1)
        return 0;
    DeleteSection(List(), Pdde, 1);
    DDEState = 0; // the name stays and is saved with the project
    Pdde = -1;
    return RePos(kDdeSection, -2);
}

void ZKPROJECT::DeleteFrom(const Names& section, int index) {
    const WindowHandle list = List();
    const bool all = index == -1 && section.first != -1;
    if (!all && PartOf(index, section.first, section.count) != 2)
        return;
    ListRows rows(list);
    if (!all)
        RemoveName(section.names, section.count, ItemText(rows, index));
    if (all || section.count == 1) {
        RePos(section.changed, -(section.count + 1));
        DeleteSection(list, section.first, section.count);
        section.count = 0;
        section.first = -1;
    } else {
        rows.Delete(index);
        section.count -= 1;
        RePos(section.changed, -1);
    }
}

int ZKPROJECT::DeleteSys(int index) {
    if (index == -1 && PEng != -1)
        for (int t = 0; t <= EngNum; ++t)
            SetText(EngineNames[t], "");
    DeleteFrom(Systems(), index);
    return 0;
}

int ZKPROJECT::DeleteExt(int index) {
    // The count of 0 hides the names before the last one; they are saved with the project.
    if (index == -1 && PExt != -1)
        SetText(ExternFiles[ExtNum], "");
    DeleteFrom(Externs(), index);
    return 0;
}

int ZKPROJECT::DeleteRes(int index) {
    if (PRes == -1)
        return 0;
    CountResults();
    const bool all = index == -1;
    if (!all && IsRes(index) != 2)
        return 0;
    const WindowHandle list = List();
    ListRows rows(list);
    // A working file that was never written has no names to take out.
    const char* auxiliary = files::Exists(ResName) ? ResName : ResAux;
    const bool written =
        all ? EmptyResults(auxiliary) : PruneResults(auxiliary, ItemText(rows, index).c_str());
    if (!written) {
        SaveErr();
        return -1;
    }
    if (all || ResNum == 1) {
        DeleteSection(list, PRes, ResNum);
        ResNum = 0;
        PRes = -1;
    } else {
        rows.Delete(index);
        ResNum -= 1;
    }
    return 0;
}

int ZKPROJECT::IsDup(const char* name) {
    return ListRows(List()).FindExact(ItemRow(Cut(name)));
}

int ZKPROJECT::ChName(const char* name) {
    ListRows rows(List());
    rows.Delete(0);
    rows.Delete(0);
    NamePro(name);
    return ShowPro();
}

int ZKPROJECT::IsProWin(WindowHandle hwnd) const {
    return hwnd == hwndPro;
}

WindowHandle ZKPROJECT::GetHwnd() const {
    return hwndPro;
}

int ZKPROJECT::ReDraw() {
    RestoreMdiCh(hwndPro);
    UpdateWindow(hwndPro);
    return 0;
}

int ZKPROJECT::AddTab(char* nom) const {
    PutTab(nom);
    return 0;
}

int ZKPROJECT::ResTab(char* nom) const {
    DropFirst(nom);
    return 0;
}
