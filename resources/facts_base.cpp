#include "resources/facts_base.h"

#include "resources/core/fact_texts.h"
#include "resources/core/facts_file.h"
#include "resources/core/numbers.h"
#include "resources/core/record_files.h"
#include "resources/knowledge_types.h"
#include "shell/core/file_helpers.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/list_rows.h"
#include "shell/services/list_texts.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

char KnowFileName[kNameSize];
int KTyp;

namespace {

constexpr const char* kCaption = "New Fact";
constexpr int kNumberSize = 15;

std::int32_t nid; // what the identifier field offers for a new fact

// The user said yes to replacing a fact. That holds until it is done: refused fields do not end it,
// nor does leaving the editor for a new facts base.
int Knowrev;
int Knownum; // the fact it replaces

struct Field {
    int id;
    int size; // with the NUL
    std::string FactTexts::*text;
};

constexpr Field kFields[] = {
    {KNOW_NAME, sizeof(Dat::Name), &FactTexts::name},
    {KNOW_DESCRIPTION, sizeof(Dat::Description), &FactTexts::description},
    {KNOW_TYPE, sizeof(Dat::KnowType), &FactTexts::type},
    {KNOW_UNIT, sizeof(Dat::Units), &FactTexts::unit},
    {KNOW_LOWER_LIMIT, kNumberSize, &FactTexts::lower_limit},
    {KNOW_HIGHER_LIMIT, kNumberSize, &FactTexts::higher_limit},
    {KNOW_STEP, kNumberSize, &FactTexts::step},
    {KNOW_INTERVAL, kNumberSize, &FactTexts::interval},
    {KNOW_LOWEST, kNumberSize, &FactTexts::lowest},
    {KNOW_LOW, kNumberSize, &FactTexts::low},
    {KNOW_NORMAL, kNumberSize, &FactTexts::normal},
    {KNOW_HIGH, kNumberSize, &FactTexts::high},
    {KNOW_HIGHEST, kNumberSize, &FactTexts::highest},
    {KNOW_IDENT, kNumberSize, &FactTexts::ident},
};

FactTexts FieldsOf(HWND hwnd) {
    FactTexts texts;
    for (const Field& field : kFields)
        texts.*field.text = ControlText(hwnd, field.id, field.size);
    return texts;
}

void ShowFields(HWND hwnd, const FactTexts& texts) {
    for (const Field& field : kFields)
        SetDlgItemTextA(hwnd, field.id, (texts.*field.text).c_str());
}

// Empties every field and proposes the next identifier.
void ShowNewFact(HWND hwnd) {
    FactTexts texts;
    texts.ident = NumberText(nid);
    ShowFields(hwnd, texts);
}

Answer Tell(HWND hwnd, const char* text, Buttons buttons = Buttons::Ok) {
    return ShowMessage(hwnd, text, kCaption, buttons, Icon::Exclamation);
}

void ListTypes(HWND hwnd, std::span<const std::string> added) {
    const HWND list = GetDlgItem(hwnd, KNOW_TYPES);
    ListRows(list).Clear();
    AddRows(list, std::vector<std::string>{"DETECTION", "DIAGNOSTIC", "ACTION"});
    AddRows(list, added);
}

// Lists the facts of the file again and returns them.
std::vector<Dat> ListFacts(HWND hwnd) {
    std::vector<Dat> facts;
    if (!ReadOrCreate(KnowFileName, facts))
        GetErr();
    std::vector<std::string> names;
    names.reserve(facts.size());
    for (const Dat& fact : facts)
        names.push_back(Text(fact.Name));
    const HWND list = GetDlgItem(hwnd, KNOW_FACTS);
    ListRows(list).Clear();
    AddRows(list, names);
    return facts;
}

void CreateFacts() {
    const int han = files::Open(KnowFileName, files::Mode::Create);
    if (han == -1)
        SaveErr();
    files::Close(han);
}

// A facts base that is itself called .typ, or whose name leaves no room for that extension, has no
// types file: the types would be written over the base or over another file.
void NameTypesFile() {
    const std::string name = TypesFileOf(KnowFileName);
    const bool own = name.size() < kNameSize && lstrcmpiA(name.c_str(), KnowFileName) != 0;
    SetText(KTypeFileName, own ? name : std::string());
}

void Open(HWND hwnd) {
    for (const Field& field : kFields)
        LimitText(hwnd, field.id, field.size);
    KTypeFileName[0] = '\0';
    nid = 1;
    if (KTyp == 1) {
        nid = NextIdent(ListFacts(hwnd));
        Knowrev = 0;
        NameTypesFile();
        ListTypes(hwnd, NamesIn(KTypeFileName));
    } else {
        CreateFacts();
        ListTypes(hwnd, {});
    }
    SetDlgItemTextA(hwnd, KNOW_IDENT, NumberText(nid).c_str());
}

void ShowFact(HWND hwnd) {
    const int row = ListRows(GetDlgItem(hwnd, KNOW_FACTS)).Selected();
    if (row < 0)
        return;
    Dat fact;
    if (ReadFact(KnowFileName, static_cast<std::size_t>(row), fact))
        ShowFields(hwnd, TextsOf(fact));
    // A replacement that is still pending now goes to the first fact.
    Knownum = 0;
}

void TakeType(HWND hwnd) {
    if (const auto type = ListRows(GetDlgItem(hwnd, KNOW_TYPES)).SelectedText())
        SetDlgItemTextA(hwnd, KNOW_TYPE, type->c_str());
}

// Puts the proposed identifier back when another one was typed for a new fact.
void ProposeIdent(HWND hwnd, const FactTexts& texts) {
    if (WholeNumberIn(texts.ident) != nid)
        SetDlgItemTextA(hwnd, KNOW_IDENT, NumberText(nid).c_str());
}

// Asks whether the fact in `row` is replaced, which then is pending.
bool AgreeToReplace(HWND hwnd, int row) {
    if (Tell(hwnd, "Fats already exist, modify?", Buttons::YesNo) != Answer::Yes)
        return false;
    Knowrev = 1;
    Knownum = row;
    return true;
}

bool TypeIsListed(HWND hwnd, const FactTexts& texts) {
    if (texts.type.empty()) {
        Tell(hwnd, "Type must be defined");
        return false;
    }
    if (ListRows(GetDlgItem(hwnd, KNOW_TYPES)).FindExact(texts.type) < 0) {
        Tell(hwnd, "Fats Type not defined");
        return false;
    }
    return true;
}

// Row i of the list is fact i of the file, so a file that was changed behind the list is listed
// again. Returns false when the fact could not be written.
bool Append(HWND hwnd, const Dat& fact) {
    ListRows rows(GetDlgItem(hwnd, KNOW_FACTS));
    const int at = AppendFact(KnowFileName, fact);
    if (at == rows.Count())
        rows.Add(Text(fact.Name));
    else if (at != -1)
        ListFacts(hwnd);
    return at != -1;
}

// Carries out the pending replacement. Returns false when the fact could not be written.
bool Replace(HWND hwnd, const Dat& fact) {
    const HWND list = GetDlgItem(hwnd, KNOW_FACTS);
    ListRows rows(list);
    const int row = std::min(Knownum, rows.Count());
    Knowrev = Knownum = 0;
    const int at = ReplaceFact(KnowFileName, static_cast<std::size_t>(row), fact);
    const ListFill fill(list);
    if (at == row) {
        rows.Delete(row);
        rows.Insert(row, Text(fact.Name));
    } else if (at != -1) {
        ListFacts(hwnd);
    }
    return at != -1;
}

void Add(HWND hwnd) {
    const FactTexts texts = FieldsOf(hwnd);
    if (texts.name.empty()) {
        Tell(hwnd, "Name must be defined");
        return;
    }
    const int known = ListRows(GetDlgItem(hwnd, KNOW_FACTS)).FindExact(texts.name);
    if (known < 0)
        ProposeIdent(hwnd, texts);
    else if (!AgreeToReplace(hwnd, known))
        return;
    if (!TypeIsListed(hwnd, texts))
        return;
    Dat fact = FactOf(texts);
    // Not from its field, which shows 5 digits only.
    if (known < 0)
        fact.Ident = nid;
    if (!(Knowrev == 1 ? Replace(hwnd, fact) : Append(hwnd, fact))) {
        SaveErr();
        return;
    }
    if (fact.Ident == nid)
        nid = IdentAfter(nid);
    ShowNewFact(hwnd);
}

void Remove(HWND hwnd) {
    ListRows rows(GetDlgItem(hwnd, KNOW_FACTS));
    const int row = rows.Selected();
    if (row < 0)
        return;
    switch (RemoveFact(KnowFileName, static_cast<std::size_t>(row))) {
    case Removal::Done:
        rows.Delete(row);
        break;
    case Removal::NoSuchFact:
        ListFacts(hwnd);
        break;
    case Removal::Failed:
        SaveErr();
        break;
    }
}

void AddType(HWND hwnd) {
    NameTypesFile();
    EditKnowledgeTypes();
    ListTypes(hwnd, NamesIn(KTypeFileName));
}

constexpr DialogAction kActions[] = {
    {KNOW_FACTS, LBN_DBLCLK, ShowFact},
    {KNOW_TYPES, LBN_DBLCLK, TakeType},
    {IDOK, BN_CLICKED, Add},
    {KNOW_REMOVE, BN_CLICKED, Remove},
    {KNOW_ADD_TYPE, BN_CLICKED, AddType},
    {KNOW_CLOSE, BN_CLICKED, LeaveDialog},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = Open, .actions = kActions, .changed = MayBeChanged};

} // namespace

INT_PTR CALLBACK KnowledgeNew(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}

void NewKnowledge(HWND hwnd) {
    char name[kNameSize];
    if (SaveDlg("Facts Base Resource (*.fac)\0*.fac\0 All Files (*.*)\0*.*\0",
                "Save Facts Base As...", ".fac", name, OFN_OVERWRITEPROMPT) != 0)
        return;
    KTyp = 0;
    SetText(KnowFileName, name);
    RunDialog(hwnd, "Knowledge_Box", KnowledgeNew);
}
