// Measures the shipped program from outside: how long a user waits. Prints a table; the exit code
// is 1 when something took longer than it may.
#include "project/core/project_file.h"
#include "shell/services/ZENTRIK.h"
#include "system/core/rule_index.h"
#include "system/core/system_file.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/rule_box.h"

#include <cstdio>
#include <functional>
#include <string>

namespace {

constexpr int kAnyTime = 0;
bool all_in_time = true;

double Seconds(const std::function<void()>& action) {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER start{};
    LARGE_INTEGER end{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    action();
    QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart);
}

// One line of the table. A limit of kAnyTime is none.
void Report(const std::string& what, int size, double seconds, double limit = kAnyTime) {
    const bool late = limit != kAnyTime && seconds > limit;
    all_in_time = all_in_time && !late;
    std::printf("%-42s %7d %9.3f s", what.c_str(), size, seconds);
    if (limit != kAnyTime)
        std::printf("   limit %.1f s%s", limit, late ? "  TOO SLOW" : "");
    std::printf("\n");
    std::fflush(stdout);
}

// What stands in a rule, which has about 100 bytes with it.
constexpr char kFourLines[] = "If ( Level.IsHigh() && Valve.IsOpen() )\r\nThen\r\n"
                              "    deduce(&Overflow); // at once\r\nEndIf\r\n";
constexpr char kOneLine[] =
    "If the level is high and the valve is open then tell the operator at once\r\n";

// A rules file of `count` sound rules, its index and its system.
void PutRules(const gui::WorkFolder& work, const std::string& base, int count,
              const std::string& body = kFourLines) {
    std::string text;
    std::string index;
    for (int number = 1; number <= count; ++number) {
        const std::string name = "Rule " + std::to_string(number);
        const std::string rule = name + "\r\n" + body + "EndRule\r\n";
        RuleIndexRecord record{};
        record.size = static_cast<std::int32_t>(rule.size());
        SetText(record.name, name);
        text += rule;
        index += BytesOf(record);
    }
    SystemFile system;
    SetText(system.head.RuleName, work.Path(base + ".rul"));
    SetText(system.head.RuleSizeName, work.Path(base + ".siz"));
    gui::PutFile(work.Path(base + ".rul"), text);
    gui::PutFile(work.Path(base + ".siz"), index);
    gui::PutFile(work.Path(base + ".lse"), SystemBytes(system));
}

void PutFacts(const gui::WorkFolder& work, const std::string& base, int count) {
    SystemFile system;
    system.facts.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        SetText(system.facts[static_cast<std::size_t>(i)].Name, "Fact" + std::to_string(i));
    system.head.DatNum = count;
    SetText(system.head.KnowName, work.Path(base + ".fac"));
    gui::PutFile(work.Path(base + ".fac"), BytesOf(system.facts));
    gui::PutFile(work.Path(base + ".lse"), SystemBytes(system));
}

void PutProject(const gui::WorkFolder& work, const std::string& base, bool with_system,
                int results) {
    ProjectFile project;
    if (with_system)
        SetText(project.head.EngineNames[1], work.Path(base + ".lse"));
    project.head.EngNum = with_system ? 1 : 0;
    project.head.ResNum = results;
    project.results.resize(static_cast<std::size_t>(results));
    for (int i = 0; i < results; ++i)
        SetText(project.results[static_cast<std::size_t>(i)].name,
                work.Path(std::to_string(i) + ".rst"));
    if (!WriteProject(work.Path(base + ".mrv").c_str(), project))
        gui::Fail("cannot write the project " + base);
}

void ExpectRows(const gui::App& app, const char* window, int count) {
    const LRESULT rows = SendMessageA(app.Inner(window), LB_GETCOUNT, 0, 0);
    if (rows != count)
        gui::Fail("there are " + std::to_string(rows) + " rows instead of " +
                  std::to_string(count));
}

// Seconds from choosing the file in the dialog to the end of the command.
double OpenSeconds(gui::App& app, int command, const std::string& title, const std::string& name) {
    app.Start(command);
    return Seconds([&] {
        app.ChooseFile(title, app.Path(name));
        app.Finish();
    });
}

void BenchDebug(int rules, double limit = kAnyTime) {
    gui::App app(gui::Kind::Nt, [&](const gui::WorkFolder& work) {
        PutRules(work, "big", rules);
        PutProject(work, "big", true, 0);
    });
    OpenSeconds(app, CM_OPEN_MORV, "Open MORV Project", "big.mrv");
    app.Start(CM_DEBUG);
    gui::Dialog dialog = app.WaitDialog("Debug");
    std::optional<gui::Box> done;
    const double seconds = Seconds([&] {
        dialog.Press(DEBUG_START);
        app.Process().WaitFor(
            "the end of the check",
            [&] {
                const auto dialogs = gui::Dialogs(app.Process());
                done = dialogs.empty() ? std::nullopt : gui::ReadBox(dialogs.front());
                return done && done->caption == "Debug";
            },
            120000);
    });
    app.Press(*done);
    app.Finish();
    app.Finish();
    ExpectRows(app, gui::kMessages, rules + 1);
    Report("Debug, rules of 100 bytes", rules, seconds, limit);
}

void BenchOpenSystem(int facts, double limit = kAnyTime) {
    gui::App app(gui::Kind::Nt, [&](const gui::WorkFolder& work) { PutFacts(work, "big", facts); });
    const double seconds = OpenSeconds(app, CM_OPEN_SYSTEM, "Open MORV System", "big.lse");
    ExpectRows(app, gui::kSystem, facts + 3);
    Report("Open a system, facts", facts, seconds, limit);
}

void BenchOpenProject(int results, double limit = kAnyTime) {
    gui::App app(gui::Kind::Nt,
                 [&](const gui::WorkFolder& work) { PutProject(work, "big", false, results); });
    const double seconds = OpenSeconds(app, CM_OPEN_MORV, "Open MORV Project", "big.mrv");
    ExpectRows(app, gui::kProject, results + 3);
    Report("Open a project, results", results, seconds, limit);
}

gui::App WithFacts(int facts) {
    return gui::App(gui::Kind::Nt, [&](const gui::WorkFolder& work) {
        PutFacts(work, "big", facts);
        gui::PutFile(work.Path("items.dde"), BytesOf(NameRecord{}));
    });
}

// Opening the facts base, and adding and removing one fact in the full list.
void BenchFactsBase(int facts, double limit = kAnyTime) {
    gui::App app = WithFacts(facts);
    app.Start(CM_OPEN_RESOURCE);
    std::optional<gui::Dialog> dialog;
    const double open = Seconds([&] {
        app.ChooseFile("Open Resource", app.Path("big.fac"));
        dialog.emplace(app.WaitDialog("Facts Base"));
    });
    Report("Open a facts base, facts", facts, open, limit);
    dialog->SetText(KNOW_NAME, "One more");
    dialog->SetText(KNOW_TYPE, "ACTION");
    Report("Add a fact to it", facts, Seconds([&] { dialog->Click(IDOK); }));
    dialog->Select(KNOW_FACTS, 0);
    Report("Remove its first fact", facts, Seconds([&] { dialog->Click(KNOW_REMOVE); }));
    dialog->Click(KNOW_CLOSE);
    app.Finish();
}

// The system has every fact of its base: all are listed as chosen, and put back by "Ok".
void BenchAddResource(int facts, double limit = kAnyTime) {
    gui::App app = WithFacts(facts);
    OpenSeconds(app, CM_OPEN_SYSTEM, "Open MORV System", "big.lse");
    app.Start(CM_ADD_FACTS);
    const double seconds = Seconds([&] {
        app.ChooseFile("Open MORV Facts", app.Path("big.fac"));
        gui::Dialog dialog = app.WaitDialog("Add Resource");
        dialog.Click(ADD_OK);
        app.Finish();
    });
    ExpectRows(app, gui::kSystem, facts + 3);
    Report("Add Resource, facts", facts, seconds, limit);
    Report("Save that system", facts, Seconds([&] { app.Command(CM_SAVE_SYSTEM); }), limit);
}

void BenchInitialFacts(int facts, double limit = kAnyTime) {
    gui::App app = WithFacts(facts);
    OpenSeconds(app, CM_OPEN_SYSTEM, "Open MORV System", "big.lse");
    app.Start(CM_INIT_FACTS);
    const double seconds = Seconds([&] {
        app.ChooseFile("Open DDE File", app.Path("items.dde"));
        gui::Dialog dialog = app.WaitDialog("Init Facts");
        dialog.Click(INIT_CLOSE);
        app.Finish();
    });
    Report("Initial facts, opened and closed", facts, seconds, limit);
}

// Where every number changes, the edit control lays out each line of the text anew, which takes
// nearly all of the time. So the time is that of the lines rather than of the rules, and longer for
// lines full of signs.
void BenchRenumber(int rules, double limit = kAnyTime) {
    for (const std::string body : {kOneLine, kFourLines}) {
        gui::App app(gui::Kind::Nt,
                     [&](const gui::WorkFolder& work) { PutRules(work, "big", rules, body); });
        app.Start(CM_RULES);
        gui::RuleBox box(app);
        box.CommandWithFile(RM_OPEN_RULES, gui::kRulesTitle, app.Path("big.rul"));
        const std::string what =
            body == kOneLine ? "Renumber, 3 lines a rule" : "Renumber, 6 lines";
        Report(what, rules, Seconds([&] { box.Click(RULE_END_RULE); }), limit);
        // A rule more at the front gives every rule another number.
        box.TypeAt(0, "Rule EndRule");
        Report(what + ", all changed", rules, Seconds([&] { box.Click(RULE_END_RULE); }),
               body == kOneLine ? limit : kAnyTime);
    }
}

// An edit control of ours as large as the program's, on the screen with this text.
double BareEditSeconds(const gui::App& app, const std::string& text) {
    RECT place{};
    GetClientRect(app.Inner(gui::kEditor), &place);
    const LONG style = GetWindowLongA(app.Inner(gui::kEditor), GWL_STYLE);
    const HWND edit =
        CreateWindowExA(0, "EDIT", "", (static_cast<DWORD>(style) & ~WS_CHILD) | WS_POPUP, 0, 0,
                        place.right, place.bottom, nullptr, nullptr, nullptr, nullptr);
    SendMessageA(edit, EM_LIMITTEXT, 0, 0);
    const double seconds = Seconds([&] { SetWindowTextA(edit, text.c_str()); });
    DestroyWindow(edit);
    return seconds;
}

// At most twice the time that an edit control takes for the text alone.
void BenchOpenText(int megabytes) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(megabytes) * 1'000'000)
        text += "    deduce(&Overflow); // a line of text that is nothing special\r\n";
    gui::App app(gui::Kind::Nt,
                 [&](const gui::WorkFolder& work) { gui::PutFile(work.Path("big.cpp"), text); });
    app.Command(CM_NEW_FILE);
    const double bare = BareEditSeconds(app, text);
    Report("An edit control alone, MB of text", megabytes, bare);
    Report("Open a text, MB", megabytes, OpenSeconds(app, CM_OPEN_FILE, "Open File", "big.cpp"),
           2 * bare);
    if (app.EditorText() != text)
        gui::Fail("the editor shows another text");
}

void BenchStart() {
    const double seconds = Seconds([] { gui::App app; });
    Report("Start to the end of the About box", 1, seconds);
}

} // namespace

int main() {
    try {
        BenchStart();
        BenchOpenText(5);
        for (int rules : {1000, 2000, 4000, 8000})
            BenchDebug(rules);
        BenchDebug(10000, 3);
        for (int facts : {1000, 2000, 4000, 8000})
            BenchOpenSystem(facts);
        BenchOpenSystem(10000, 1);
        for (int results : {1000, 2000, 4000, 8000})
            BenchOpenProject(results, results == 1000 ? 1 : kAnyTime);
        for (int facts : {1000, 2000, 4000, 8000})
            BenchFactsBase(facts);
        BenchFactsBase(10000, 1);
        for (int facts : {1000, 2000, 4000, 8000})
            BenchAddResource(facts);
        BenchAddResource(10000, 2);
        for (int facts : {1000, 2000, 4000, 8000})
            BenchInitialFacts(facts);
        BenchInitialFacts(10000, 2);
        for (int rules : {1000, 2000, 4000, 8000})
            BenchRenumber(rules);
        BenchRenumber(10000, 1);
    } catch (const std::exception& failure) {
        std::printf("failed: %s\n", failure.what());
        return 1;
    }
    return all_in_time ? 0 : 1;
}
