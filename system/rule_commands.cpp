#include "system/rule_commands.h"

#include "shell/core/file_helpers.h"
#include "shell/core/line_ends.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/file_dialogs.h"
#include "shell/services/list_rows.h"
#include "shell/services/ZENTRIK.h"
#include "system/core/rule_files.h"
#include "system/core/rule_text.h"
#include "system/rule_window.h"

int RuleNum;
int mod;

namespace {

constexpr char kUntitled[] = "untitled.rul";
constexpr char kFilter[] = "MORV Rules Files (*.rul)\0*.rul\0";
constexpr char kTitle[] = "Save MORV Rules As..."; // of the open dialogs, too

bool IsUntitled() {
    return Text(RuleFile) == kUntitled;
}

void NameFiles(const std::string& path) {
    SetText(RuleFile, path);
    SetText(RuleSize, WithExtension(path, ".siz"));
    SetWindowTextA(RuleChild(), RuleFile);
}

ListRows RulesList(HWND dialog) {
    return ListRows(GetDlgItem(dialog, RULE_RULES));
}

void FillRules(HWND dialog, const std::vector<std::string>& names) {
    const ListFill fill(GetDlgItem(dialog, RULE_RULES), static_cast<int>(names.size()),
                        static_cast<int>(names.size() * sizeof "Rule 10000"));
    ListRows rules = RulesList(dialog);
    rules.Clear();
    for (const std::string& name : names)
        rules.Add(name);
}

void ShowCount(HWND dialog) {
    SetDlgItemTextA(dialog, RULE_COUNT, RuleName(RuleNum).c_str());
}

void SetChanged() {
    mod = 1;
    SetRuleTextChanged();
}

void AppendText(const std::string& string) {
    std::string text = EditText(RuleEdit());
    InsText(text, string, text.size(), 0);
    PutRuleText(text);
    SetChanged();
    ShowRuleTextEnd();
}

// The path of the index file. Empty when the rules file is itself called .siz: an index would be
// written over it.
std::string IndexPath() {
    const std::string path = WithExtension(Text(RuleFile), ".siz");
    return lstrcmpiA(path.c_str(), RuleFile) == 0 ? std::string() : path;
}

// False when there is no index file. For new rules there is one only when rules were saved before
// as untitled.rul.
bool ReadIndex(std::string& index) {
    const std::string path = IndexPath();
    if (IsUntitled() && !files::Exists(RuleFile))
        return false;
    return !path.empty() && files::ReadWhole(path.c_str(), files::Mode::Update, index);
}

// False when it failed, which is shown.
bool WriteIndex(const std::vector<std::int32_t>& sizes) {
    const std::string path = IndexPath();
    if (path.empty() || StoreIndex(path, IndexBytes(sizes)))
        return true;
    SaveErr();
    return false;
}

// Writes rules and index as they stand. A failure is shown; that of the index alone does not keep
// the rules from being written.
bool WriteRules(HWND dialog) {
    const std::string text = EditText(RuleEdit());
    const std::string index = IndexBytes(Renumber(text).sizes);
    switch (StoreRules(RuleFile, text, IndexPath(), index)) {
    case StoredRules::Yes:
        return true;
    case StoredRules::NotRules:
        break;
    case StoredRules::NotIndex:
        SaveErr();
        // The box leaves the text window usable, so the text may be another now, or gone.
        ReNumRules(dialog, 0);
        if (!RuleEdit())
            return false;
        if (StoreRules(RuleFile, EditText(RuleEdit()), {}, {}) == StoredRules::Yes)
            return true;
        break;
    }
    SaveErr();
    return false;
}

// When the dialog for the name is cancelled, they are saved under the name they have: untitled.rul.
bool SaveBeforeLeaving(HWND dialog) {
    const Savable rules = RulesOf(dialog);
    const Saved saved = Save(rules);
    return saved == Saved::Done || (saved == Saved::Cancelled && rules.save());
}

// Asks to save a changed text before it is left. False when that was cancelled, or when the text
// was to be saved and could not be.
bool Leave(HWND dialog) {
    if (!RuleEdit())
        return true;
    if (mod != 1)
        mod = SendMessageA(RuleEdit(), EM_GETMODIFY, 0, 0) != 0 ? 1 : 0;
    if (mod != 1)
        return true;
    switch (ShowMessage(dialog, "Rules File has been changed. Save before Close?", "Rules",
                        Buttons::YesNoCancel)) {
    case Answer::Yes:
        return SaveBeforeLeaving(dialog);
    case Answer::No:
        return true;
    default:
        return false;
    }
}

void CountAfter(HWND dialog, Saved saved) {
    if (saved != Saved::Done && saved != Saved::Failed)
        return;
    RuleNum = RulesList(dialog).Count();
    ShowCount(dialog);
}

} // namespace

void ListIndex(HWND dialog) {
    RuleNum = 0;
    std::string index;
    if (!ReadIndex(index))
        return;
    const IndexedRules rules = FirstRules(index);
    FillRules(dialog, rules.names);
    RuleNum = rules.count;
}

int ReNumRules(HWND dialog, int write) {
    if (!RuleEdit())
        return -1;
    const int selected = RulesList(dialog).Selected();
    RenumberedRules rules = Renumber(EditText(RuleEdit()));
    // The box about the failure leaves the text window usable, so the text may be another after it.
    if (write == 1 && !WriteIndex(rules.sizes))
        rules = Renumber(EditText(RuleEdit()));
    PutRuleText(rules.text);
    // Renumbering goes through the rules down to the last, and always shows the end of the text
    // then.
    ScrollToRuleTextEnd();
    RuleNum = static_cast<int>(rules.sizes.size());
    std::vector<std::string> names;
    for (int n = 1; n <= RuleNum; ++n)
        names.push_back(RuleName(n));
    FillRules(dialog, names);
    return rules.numbers_changed ? -1 : selected;
}

bool SaveRules(HWND dialog) {
    if (!RuleEdit())
        return false;
    ReNumRules(dialog, 0);
    if (!WriteRules(dialog)) {
        SetChanged();
        return false;
    }
    SendMessageA(RuleEdit(), EM_SETMODIFY, FALSE, 0);
    mod = 0;
    return true;
}

Savable RulesOf(HWND dialog) {
    const HWND edit = RuleEdit();
    const auto save_as = [dialog](const std::string& path) {
        const std::string before = Text(RuleFile);
        NameFiles(path);
        if (SaveRules(dialog))
            return true;
        NameFiles(before);
        return false;
    };
    return {
        .subject = RuleChild(),
        .question = {kFilter, kTitle, ".rul"},
        .alive = [edit] { return edit && RuleEdit() == edit; },
        .has_file = [] { return !IsUntitled(); },
        .save_as = save_as,
        .save = [dialog] { return SaveRules(dialog); },
    };
}

void AddRule(HWND dialog) {
    if (!RuleEdit())
        return;
    RuleNum += 1;
    AppendText(RuleName(RuleNum));
    ShowCount(dialog);
}

void EndRule(HWND dialog) {
    ReNumRules(dialog, 0);
    SetChanged();
}

void InsertTag(HWND dialog) {
    const ListRows tags(GetDlgItem(dialog, RULE_TAGS));
    if (RuleEdit() && tags.Selected() >= 0)
        AppendText(tags.RowText(tags.Selected()));
}

void ShowSelectedRule(HWND dialog) {
    const std::string text = EditText(RuleEdit());
    if (const std::optional<RuleSpan> rule = FindRule(text, RulesList(dialog).Selected()))
        ShowRuleTextLine(text, rule->begin);
}

void CloseRules(HWND dialog) {
    if (!Leave(dialog))
        return;
    DestroyRuleWindow();
    mod = 0;
    EditRule = 0;
    CloseDialog(dialog);
}

void NewRules(HWND dialog) {
    if (!Leave(dialog))
        return;
    DestroyRuleWindow();
    NameFiles(kUntitled);
    EditRule = 1;
    RulesList(dialog).Clear();
    OpenEdit(RuleFile);
    HoldRuleWindow();
    FlashWindow(RuleChild(), TRUE);
    mod = 0;
    RuleNum = 0;
    ShowCount(dialog);
}

void OpenRules(HWND dialog) {
    if (!Leave(dialog))
        return;
    const std::string left = EditText(RuleEdit());
    char name[kNameSize];
    if (OpenDlg(kFilter, kTitle, ".rul", name, 0) != 0)
        return;
    // The file dialog leaves the text window usable; what was typed meanwhile is asked for, too.
    if (EditText(RuleEdit()) != left && !Leave(dialog))
        return;
    NameFiles(name);
    std::string index, text;
    ReadIndex(index);
    const IndexedRules rules = AllRules(index);
    FillRules(dialog, rules.names);
    RuleNum = rules.count;
    files::ReadWhole(RuleFile, files::Mode::Read, text);
    LoadRuleText(WithCrLf(text));
    mod = 0;
    ShowCount(dialog);
}

void SaveRulesFile(HWND dialog) {
    if (RuleEdit())
        CountAfter(dialog, Save(RulesOf(dialog)));
}

void SaveRulesFileAs(HWND dialog) {
    if (RuleEdit())
        CountAfter(dialog, AskAndSave(RulesOf(dialog)));
}

void RemoveRule(HWND dialog) {
    const int row = ReNumRules(dialog, 0);
    if (row == -1)
        return;
    std::string text = EditText(RuleEdit());
    CutRule(text, row);
    PutRuleText(text);
    ReNumRules(dialog, 1);
    SetChanged();
}

void MoveRule(HWND dialog) {
    const int row = ReNumRules(dialog, 0);
    if (row == -1)
        return;
    // The file dialog leaves the text window usable: what was selected is what goes.
    const std::string rule = RuleBytes(EditText(RuleEdit()), row);
    char name[kNameSize];
    if (OpenDlg(kFilter, kTitle, ".rul", name, 0) != 0)
        return;
    std::string file;
    if (!files::ReadWhole(name, files::Mode::Update, file) ||
        !files::ReplaceKeeping(name, WithRule(file, rule)))
        SaveErr();
}

void OpenTags(HWND dialog) {
    char name[kNameSize];
    if (OpenDlg("MORV Tags Files (*.tag)\0*.tag\0", "Open Tags Files", ".tag", name, 0) != 0)
        return;
    std::vector<TagRecord> records;
    if (!ReadRecords(name, files::Mode::Update, records))
        GetErr();
    const HWND list = GetDlgItem(dialog, RULE_TAGS);
    const ListFill fill(list, static_cast<int>(records.size()),
                        static_cast<int>(records.size()) * kTagSize);
    ListRows tags(list);
    for (const TagRecord& record : records)
        tags.Add(Text(record.name));
}

void CloseTags(HWND dialog) {
    ListRows(GetDlgItem(dialog, RULE_TAGS)).Clear();
}
