// Measures the shipped program from outside: how long a user waits. Prints a table; the exit code
// is 1 when something took longer than it may.
#include "project/project_file.h"
#include "shell/ZENTRIK.h"
#include "system/rule_index.h"
#include "system/system_file.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"

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
        std::printf("   limit %.0f s%s", limit, late ? "  TOO SLOW" : "");
    std::printf("\n");
    std::fflush(stdout);
}

// A rules file of `count` sound rules of about 100 bytes each, its index and its system.
void PutRules(const gui::WorkFolder& work, const std::string& base, int count) {
    std::string text;
    std::string index;
    for (int number = 1; number <= count; ++number) {
        const std::string name = "Rule " + std::to_string(number);
        const std::string rule = name + "\r\nIf ( Level.IsHigh() && Valve.IsOpen() )\r\nThen\r\n" +
                                 "    deduce(&Overflow); // at once\r\nEndIf\r\nEndRule\r\n";
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

void BenchStart() {
    const double seconds = Seconds([] { gui::App app; });
    Report("Start to the end of the About box", 1, seconds);
}

} // namespace

int main() {
    try {
        BenchStart();
        for (int rules : {1000, 2000, 4000, 8000})
            BenchDebug(rules);
        BenchDebug(10000, 3);
        for (int facts : {1000, 2000, 4000, 8000})
            BenchOpenSystem(facts);
        BenchOpenSystem(10000, 1);
        for (int results : {1000, 2000, 4000, 8000})
            BenchOpenProject(results, results == 1000 ? 1 : kAnyTime);
    } catch (const std::exception& failure) {
        std::printf("failed: %s\n", failure.what());
        return 1;
    }
    return all_in_time ? 0 : 1;
}
