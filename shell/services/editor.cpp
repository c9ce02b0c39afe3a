#include "shell/services/editor.h"

#include "shell/core/file_helpers.h"
#include "shell/core/files.h"
#include "shell/core/line_ends.h"
#include "shell/core/messages.h"
#include "shell/core/record_text.h"
#include "shell/services/asking.h"
#include "shell/services/mdi.h"
#include "shell/services/text_measure.h"
#include "shell/services/wait_cursor.h"

#include <algorithm>
#include <cerrno>
#include <set>
#include <vector>

int EditState;
int EditRule;
std::optional<Savable> (*RuleTextOf)(HWND child);

namespace {

constexpr char kUntitled[] = "untitled";
constexpr char kCloseCaption[] = "Close notification";
constexpr char kNameTitle[] = "Save File As ...";

// A property of editors that do not show all of their file.
constexpr char kPartial[] = "ZentrikPartial";

// A property of editors whose file has LF alone at the end of every line. An edit control shows
// lines only when they end in CR LF.
constexpr char kLfAlone[] = "ZentrikLfAlone";

bool IsModified(HWND edit) {
    return SendMessageA(edit, EM_GETMODIFY, 0, 0) != 0;
}

Answer AskToSave(HWND edit) {
    return ShowMessage(edit, "File Has been change. Save before Closing?", kCloseCaption,
                       Buttons::YesNoCancel);
}

bool WriteText(HWND edit, const char* path, const std::string& text) {
    if (!files::ReplaceKeeping(path, text))
        return false;
    SendMessageA(edit, EM_SETMODIFY, FALSE, 0);
    return true;
}

// Writes the text of the editor `child` with the line ends of the file it came from. On failure
// returns false and shows nothing.
bool WriteAsRead(HWND child, const std::string& path) {
    const HWND edit = TopChild(child);
    const std::string text = EditText(edit);
    return WriteText(edit, path.c_str(), GetPropA(child, kLfAlone) ? WithLf(text) : text);
}

bool Write(HWND child, const std::string& path) {
    if (!WriteAsRead(child, path)) {
        SaveErr();
        return false;
    }
    RemovePropA(child, kPartial);
    return true;
}

// What can be saved of the editor `child`. It is no longer alive once the window or its edit
// control is gone.
Savable TextOf(HWND child) {
    const HWND edit = TopChild(child);
    const auto save_as = [child](const std::string& path) {
        SetWindowTextA(child, path.c_str());
        return Write(child, path);
    };
    return {
        .subject = child,
        .question = {"Files (*.cpp)\0*.cpp\0All Files (*.*)\0*.*\0", kNameTitle, ".cpp"},
        .alive = [child, edit] { return IsWindow(child) && edit && TopChild(child) == edit; },
        .has_file =
            [child] { return ChildTitle(child) != kUntitled && !GetPropA(child, kPartial); },
        .save_as = save_as,
        .save = [child] { return Write(child, ChildTitle(child)); },
    };
}

bool IsRuleText(HWND child) {
    return RuleTextOf && RuleTextOf(child);
}

// At exit the text of the rule editor is saved as rules.
Savable AtExit(HWND child) {
    const std::optional<Savable> rules = RuleTextOf ? RuleTextOf(child) : std::nullopt;
    return rules ? *rules : TextOf(child);
}

std::vector<HWND> Editors() {
    std::vector<HWND> editors;
    for (HWND child = GetMdi(); child; child = GetWindow(child, GW_HWNDNEXT))
        if (IsEditor(child))
            editors.push_back(child);
    return editors;
}

// An editor whose edit control is gone is about to close.
bool AnyTextOpen() {
    return std::ranges::any_of(Editors(), [](HWND child) { return TopChild(child) != nullptr; });
}

void WarnNoFile() {
    ShowMessage(nullptr, "There is no File Open", "WARNING", Buttons::Ok, Icon::Stop);
}

// What save and save as are about. Shows when it is no editor: on Windows NT the items stay enabled
// while a project or system is on top. Nothing while the rule editor uses the text.
bool MaySave(HWND hwnd) {
    if (EditRule)
        return false;
    if (IsEditor(hwnd))
        return true;
    WarnNoFile();
    return false;
}

// Loads a file's text. A file that cannot be read, or has a NUL where the control's text ends,
// shows what it can without a word; but what is shown must not replace it unasked.
void Load(HWND child, const char* path) {
    const WaitCursor wait;
    std::string text;
    const bool read = files::ReadWhole(path, files::Mode::Read, text);
    if (EndsLinesInLf(text)) {
        SetPropA(child, kLfAlone, child);
        text = WithCrLf(text);
    }
    if (read)
        SetWindowTextA(TopChild(child), text.c_str());
    const bool whole = read ? text.find('\0') == text.npos : files::LastError() == ENOENT;
    if (!whole)
        SetPropA(child, kPartial, child);
}

} // namespace

int IsRule() {
    return EditRule;
}

void OpenEdit(const char* nom) {
    const HWND child = CrearMdiCh("Main", nom);
    if (!child)
        ShowMessage(nullptr, "Impossible crear finestra del editor", "zentrik");
    SendMessageA(TopChild(child), EM_LIMITTEXT, 0, 0);
    Load(child, nom);
    EditState = 1;
}

void ShowLine(const char* path, int line) {
    std::vector<HWND> editors = Editors();
    std::ranges::stable_partition(editors, IsRuleText);
    const auto shows = [path](HWND child) {
        return lstrcmpiA(ChildTitle(child).c_str(), path) == 0;
    };
    if (const auto editor = std::ranges::find_if(editors, shows); editor != editors.end())
        ActivateMdiCh(*editor);
    else
        OpenEdit(path);
    const HWND edit = TextHwnd();
    // Windows' edit controls do not count a line that ends in LF alone, Wine's do.
    const std::string text = EditText(edit);
    const LinePlace place = FindLine(text, line);
    const std::size_t begin = CharactersIn(std::string_view(text).substr(0, place.begin));
    const std::size_t size = CharactersIn(std::string_view(text).substr(place.begin, place.size));
    // Backwards: the caret is at the line's beginning, which so comes into sight.
    SendMessageA(edit, EM_SETSEL, begin + size, static_cast<LPARAM>(begin));
    SendMessageA(edit, EM_SCROLLCARET, 0, 0);
    SetFocus(edit);
}

void OpenFile() {
    char name[kNameSize];
    if (OpenDlg(" Files (*.cpp)\0*.cpp\0", "Open File", ".cpp", name, OFN_CREATEPROMPT) != 0)
        return;
    OpenEdit(name);
}

void SaveFile(HWND hwnd) {
    if (!MaySave(hwnd))
        return;
    Savable text = TextOf(hwnd);
    text.save = [hwnd] {
        if (WriteAsRead(hwnd, ChildTitle(hwnd)))
            return true;
        ShowMessage(nullptr, "No Va be", "");
        SaveErr();
        return false;
    };
    Save(text);
}

void SaveFileAs(HWND hwnd) {
    if (MaySave(hwnd))
        AskAndSave(TextOf(hwnd));
}

int CloseFile(HWND hwnd) {
    if (EditRule)
        return 0;
    const Asking asking(hwnd, Question::Close, {kCloseCaption, kNameTitle});
    if (asking.Refused())
        return 1;
    const Savable text = TextOf(hwnd);
    const HWND edit = TopChild(hwnd);
    const Answer answer = IsModified(edit) ? AskToSave(edit) : Answer::No;
    if (answer == Answer::Cancel || (answer == Answer::Yes && !text.alive()))
        return 1;
    if (answer == Answer::Yes) {
        const Saved saved = Save(text);
        // A cancelled name dialog closes too and drops the text.
        if (saved != Saved::Done && saved != Saved::Cancelled)
            return 1;
    }
    DestroyWindow(edit);
    // Other texts may be open still, and the exit asks for them only while EditState is 1.
    EditState = AnyTextOpen() ? 1 : 0;
    return 0;
}

int DestroyMdiE() {
    HWND candidate = GetMdi();
    // There is one project and one system window, so the third child is neither.
    for (int passed = 0; passed < 2 && candidate && IsDocument(candidate); ++passed) {
        NextMdi(candidate);
        candidate = GetMdi();
    }
    if (!candidate || IsDocument(candidate)) {
        WarnNoFile();
        return 0;
    }
    if (CloseFile(candidate) != 0)
        return 1;
    DestroyMdiCh(candidate);
    return 0;
}

bool SaveEditors() {
    // While a name is asked for, other texts can be changed and begun: they are asked for as well.
    std::set<HWND> given_up;
    for (;;) {
        const std::vector<HWND> editors = Editors();
        const auto changed = std::ranges::find_if(editors, [&](HWND child) {
            return IsModified(TopChild(child)) && !given_up.contains(TopChild(child));
        });
        if (changed == editors.end())
            return true;
        const HWND edit = TopChild(*changed);
        const Savable text = AtExit(*changed);
        const Answer answer = AskToSave(edit);
        if (answer == Answer::Cancel)
            return false;
        if (answer == Answer::No)
            given_up.insert(edit);
        else if (!text.alive() || Save(text) != Saved::Done)
            return false;
    }
}

void DestroyEditors() {
    EditState = 0;
    for (HWND child : Editors())
        DestroyWindow(TopChild(child));
}

bool WriteEdit(HWND edit, const char* path) {
    return WriteText(edit, path, EditText(edit));
}

std::string EditText(HWND edit) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(edit)), '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(edit, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}
