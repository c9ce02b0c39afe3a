// How long the console program takes for large projects, against the limits of what is waited for.
#include "console/check.h"
#include "console/export.h"
#include "console/form/drives.h"
#include "project/core/project_file.h"
#include "shell/core/files.h"
#include "system/core/rule_text.h"
#include "system/core/system_file.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <sstream>

namespace {

const std::string kHome = "C:\\zkbench\\";

void Put(const std::string& name, std::string_view bytes) {
    if (!files::ReplaceWhole((kHome + name).c_str(), bytes))
        std::printf("cannot write %s\n", name.c_str());
}

// A project of one system with this many rules and facts.
void PutProject(int rules, int facts) {
    ProjectFile project;
    SetText(project.head.EngineNames[1], kHome + "a.lse");
    SetText(project.head.ResAux, kHome + "a.aux");
    project.head.EngNum = 1;
    WriteProject((kHome + "a.mrv").c_str(), project);
    SystemFile system;
    SetText(system.head.RuleName, kHome + "a.rul");
    SetText(system.head.RuleSizeName, kHome + "a.siz");
    SetText(system.head.KnowName, kHome + "a.fac");
    std::string results, text;
    for (int i = 1; i <= facts; ++i) {
        Dat& fact = system.facts.emplace_back();
        fact = {};
        SetText(fact.Name, "Fact" + std::to_string(i));
        SetText(fact.KnowType, "DETECTION");
        SetText(fact.Description, "A value of the plant, number " + std::to_string(i));
        fact.sup_limit = i * 0.37;
        fact.Ident = i;
    }
    for (int i = 1; i <= rules; ++i) {
        const std::string number = std::to_string(i);
        TagRecord result;
        SetText(result.name, "RESULT" + number);
        results += BytesOf(result);
        text += "Rule " + number + "\r\n  // Whether the plant is at its limit.\r\n  If (Fact" +
                std::to_string(1 + i % std::max(facts, 1)) +
                ".value() > 12.5)\r\n  Then\r\n    deduce(&RESULT" + number +
                ", HIGH);\r\n  EndIf\r\nEndRule\r\n";
    }
    system.head.DatNum = facts;
    Put("a.aux", results);
    Put("a.fac", BytesOf(system.facts));
    Put("a.rul", text);
    Put("a.siz", IndexBytes(Renumber(text).sizes));
    Put("a.lse", SystemBytes(system));
}

// The best of five runs, in milliseconds.
double Best(const std::function<void()>& run) {
    double best = 1e9;
    for (int i = 0; i < 5; ++i) {
        const auto start = std::chrono::steady_clock::now();
        run();
        best = std::min(best, std::chrono::duration<double, std::milli>(
                                  std::chrono::steady_clock::now() - start)
                                  .count());
    }
    return best;
}

// Returns whether the largest size stays within its limit.
bool Measure(const char* title, double limit, const std::function<void(int)>& put,
             const std::function<void()>& run) {
    std::printf("\n%s\n%8s %12s %8s\n", title, "items", "ms", "ratio");
    double before = 0;
    for (const int count : {1250, 2500, 5000, 10000}) {
        put(count);
        const double time = Best(run);
        std::printf("%8d %12.1f %8.2f\n", count, time, before > 0 ? time / before : 0.0);
        before = time;
    }
    std::printf("limit: %.0f ms%s\n", limit, before <= limit ? "" : ": EXCEEDED");
    return before <= limit;
}

} // namespace

int main() {
    const auto drive = std::filesystem::temp_directory_path() / "zentrik_console_bench";
    std::filesystem::create_directories(drive / "zkbench");
    console::UseDrives({{'C', drive.string()}}, {});
    std::ostringstream out, err;
    const console::Report report{out, err};
    bool ok = Measure(
        "check (rules, with names)", 100, [](int count) { PutProject(count, 1000); },
        [&] { console::Check({kHome + "a.mrv"}, report); });
    ok &= Measure(
        "export (facts)", 200, [](int count) { PutProject(10, count); },
        [&] { console::Export(kHome + "a.mrv", "C:\\text", report); });
    std::printf("%s", err.str().c_str());
    std::error_code ignored;
    std::filesystem::remove_all(drive, ignored);
    return ok ? 0 : 1;
}
