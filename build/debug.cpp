#include "build/debug.h"

#include "build/core/rule_checker.h"
#include "project/ZENPRO.h"
#include "shell/core/messages.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/list_rows.h"
#include "shell/services/mdi.h"
#include "shell/services/VARMORV.h"
#include "shell/services/wait_cursor.h"
#include "shell/services/ZENTRIK.h"
#include "system/open_row.h"

#include <optional>
#include <string>
#include <vector>

namespace {

HWND hwndMes; // the messages child of the last run; it may be gone

// Kept between the runs: a comment or string that is left open goes on in the next run.
Lexical Anul = Lexical::Code;

constexpr ULONGLONG kRepaintEvery = 40; // milliseconds; quicker than that nobody can see

// What a row of the messages window leads to.
struct RowPlace {
    std::string file; // the rules file, or of an opposite the system file
    int line = 0;     // from 0
    bool system = false;
};
std::vector<RowPlace> row_places; // of every row

// Shows the check in the dialog and its findings in the messages window. The fields that change
// with every rule are set and painted only at the pace a person can follow, and at the end.
class DebugView : public CheckView {
public:
    DebugView(HWND dialog, HWND list) : dialog_(dialog), list_(list) {}

    void SystemFile(const char* path) override {
        // A box may come next; the findings so far can then be read behind it.
        fill_.reset();
        system_ = path;
        Set(DEBUG_SYSTEM, path);
        Paint();
    }

    void RulesFile(const char* path) override {
        rules_ = path;
        Set(DEBUG_RULES_FILE, path);
        Paint();
    }

    void RuleName(const std::string& name) override { rule_ = name; }

    void Progress(char c) override {
        character_[0] = c;
        if (GetTickCount64() - painted_ >= kRepaintEvery)
            Paint();
    }

    void Finding(const std::string& line) override { AddRow(line, {rules_}); }

    void RuleFinding(const std::string& line, const RulePlace& place) override {
        AddRow(line, {rules_, place.line});
    }

    void OppositeFinding(const std::string& line) override { AddRow(line, {system_, 0, true}); }

    // The check looks names up in the results that were in force before GetResName, and puts that
    // name back as the one in force.
    std::string ResultsFile() override {
        Project.GetResName(WorkPath);
        SetText(Project.ResName, Text(Project.OldResAux));
        SetText(Project.OldResAux, "");
        return Project.ResultsInForce();
    }

    // Paints what is pending.
    void Finish() {
        fill_.reset();
        Paint();
    }

private:
    void AddRow(const std::string& line, RowPlace place) {
        if (!fill_)
            fill_.emplace(list_);
        ListRows(list_).Add(line);
        row_places.push_back(std::move(place));
    }

    void Set(int id, const char* text) {
        // The default procedure stores the text; the control's own would paint it each time.
        DefWindowProcA(GetDlgItem(dialog_, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    }

    void Paint() {
        Set(DEBUG_RULE, rule_.c_str());
        Set(DEBUG_PROGRESS, character_);
        for (int id : {DEBUG_RULE, DEBUG_SYSTEM, DEBUG_RULES_FILE, DEBUG_PROGRESS}) {
            const HWND field = GetDlgItem(dialog_, id);
            InvalidateRect(field, nullptr, TRUE);
            UpdateWindow(field);
        }
        painted_ = GetTickCount64();
    }

    HWND dialog_;
    HWND list_;
    std::optional<ListFill> fill_;
    std::string system_;
    std::string rules_;
    std::string rule_;
    char character_[2] = "";
    ULONGLONG painted_ = 0;
};

bool Check(HWND hwnd) {
    const WaitCursor wait;
    DebugView view(hwnd, TopChild(hwndMes));
    const bool done = CheckProject(Project.Record(), Anul, view, hwnd);
    view.Finish();
    return done;
}

void RunCheck(HWND hwnd) {
    SetDlgItemTextA(hwnd, DEBUG_PROJECT, Project.MORVName);
    const bool done = Check(hwnd);
    if (!done)
        return; // the dialog stays open
    ShowMessage(hwnd, "Debug Finalitzat", "Debug");
    CloseDialog(hwnd);
}

constexpr DialogAction kActions[] = {
    {DEBUG_START, BN_CLICKED, RunCheck},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kTable = {.open = [](HWND) {}, .actions = kActions};

INT_PTR CALLBACK InfoBox(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kTable, hwnd, message, wParam);
}

} // namespace

void DebugMORV(HWND hwnd) {
    if (Project.MORState != 1) {
        ShowMessage(hwnd, "There is not Opened MORV System", "MORV Debug");
        return;
    }
    if (hwndMes) {
        // When it was closed by hand this only counts the identifiers of the editors down.
        DestroyWindow(TopChild(hwndMes));
        DestroyMdiCh(hwndMes);
    }
    row_places.clear();
    hwndMes = CrearMdiCh("Message", "Debug Errors");
    RunDialog(hwnd, "Debug_Box", InfoBox);
}

void OpenFinding() {
    const int row = ListRows(TopChild(hwndMes)).Selected();
    if (row < 0 || row >= std::ssize(row_places))
        return;
    const RowPlace place = row_places[static_cast<std::size_t>(row)];
    if (place.system)
        OpenSystem(place.file);
    else
        ShowLine(place.file.c_str(), place.line);
}
