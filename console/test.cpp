#include "console/test.h"

#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/file_set.h"
#include "console/loaded_project.h"
#include "console/scenario_run.h"

#include <algorithm>

namespace console {

namespace {

struct ScenarioFile {
    std::string path;
    std::vector<Scenario> scenarios;
    std::vector<Outcome> outcomes; // of the scenarios
};

std::string At(const std::string& path, int line) {
    return HostText(path) + ":" + std::to_string(line);
}

// The scenario files beside a project.
std::vector<std::string> FilesBeside(const std::string& project) {
    const std::string folder = project.substr(0, project.rfind('\\'));
    std::vector<std::string> files;
    for (const std::string& name : NamesIn(folder, ".scenario"))
        files.push_back(folder + "\\" + name);
    return files;
}

// One line: the file, the line in it, and what is wrong there.
int StopAt(const std::string& path, const BadLine& bad, const Report& report) {
    report.err << "zentrikc: " << OneLine(At(path, bad.line) + ": " + bad.why) << "\n";
    return kStopped;
}

std::string Headline(const ScenarioFile& file, const Unmet& unmet) {
    return At(file.path, unmet.line) + ": " + AsUtf8(unmet.text) + ": " + AsUtf8(unmet.instead);
}

void TellTap(const std::vector<ScenarioFile>& files, const Report& report) {
    std::size_t count = 0, number = 0;
    for (const ScenarioFile& file : files)
        count += file.scenarios.size();
    report.out << "TAP version 13\n1.." << count << "\n";
    for (const ScenarioFile& file : files)
        for (std::size_t i = 0; i < file.scenarios.size(); ++i) {
            const std::vector<Unmet>& unmet = file.outcomes[i].unmet;
            std::string name = OneLine(AsUtf8(file.scenarios[i].name));
            std::replace(name.begin(), name.end(), '#', ' '); // it would begin a directive
            report.out << (unmet.empty() ? "ok " : "not ok ") << ++number << " - " << name << "\n";
            for (const Unmet& each : unmet) {
                report.out << "# " << OneLine(Headline(file, each)) << "\n";
                for (const std::string& line : each.why)
                    report.out << "#   " << OneLine(AsUtf8(line)) << "\n";
            }
        }
}

std::string Xml(const std::string& text) {
    std::string written;
    for (const char c : text) {
        switch (c) {
        case '&':
            written += "&amp;";
            break;
        case '<':
            written += "&lt;";
            break;
        case '>':
            written += "&gt;";
            break;
        case '"':
            written += "&quot;";
            break;
        default:
            written += static_cast<unsigned char>(c) < ' ' && c != '\n' ? ' ' : c;
        }
    }
    return written;
}

std::string JunitOf(const ScenarioFile& file) {
    std::string cases;
    std::size_t failures = 0;
    const std::string name = Xml(HostText(file.path));
    for (std::size_t i = 0; i < file.scenarios.size(); ++i) {
        const std::vector<Unmet>& unmet = file.outcomes[i].unmet;
        cases += "    <testcase classname=\"" + name + "\" name=\"" +
                 Xml(AsUtf8(file.scenarios[i].name)) + "\"";
        if (unmet.empty()) {
            cases += "/>\n";
            continue;
        }
        ++failures;
        cases += ">\n      <failure message=\"" + Xml(Headline(file, unmet.front())) + "\">";
        for (const Unmet& each : unmet) {
            cases += Xml(Headline(file, each)) + "\n";
            for (const std::string& line : each.why)
                cases += "  " + Xml(AsUtf8(line)) + "\n";
        }
        cases += "</failure>\n    </testcase>\n";
    }
    return "  <testsuite name=\"" + name + "\" tests=\"" + std::to_string(file.scenarios.size()) +
           "\" failures=\"" + std::to_string(failures) + "\">\n" + cases + "  </testsuite>\n";
}

bool WriteJunit(const std::vector<ScenarioFile>& files, const std::string& path,
                const Report& report) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n";
    for (const ScenarioFile& file : files)
        text += JunitOf(file);
    FileSet written;
    written.Add(path, text + "</testsuites>\n");
    return written.Write(report);
}

// Reads the files; returns kNothingFound when all of them can be read.
int ReadFiles(const TestOptions& options, const Report& report, std::vector<ScenarioFile>& files) {
    const std::vector<std::string> paths =
        options.scenarios.empty() ? FilesBeside(options.project) : options.scenarios;
    if (paths.empty())
        return report.Stop(options.project, "there is no scenario file beside it");
    for (const std::string& path : paths) {
        const NamedFile read = Load(path);
        if (!read.found)
            return report.Stop(path, LastReason());
        std::optional<BadLine> bad;
        files.push_back({path, ReadScenarios(read.bytes, bad), {}});
        if (bad)
            return StopAt(path, *bad, report);
    }
    return kNothingFound;
}

} // namespace

int Test(const TestOptions& options, const Report& report) {
    const NamedFile project = Load(options.project);
    if (!project.found)
        return report.Stop(options.project, LastReason());
    std::vector<ScenarioFile> files;
    if (const int code = ReadFiles(options, report, files); code != kNothingFound)
        return code;
    ConsoleProgram program;
    if (const int code = MakeConsoleProgram(options.project, options.morv, report, program);
        code != kNothingFound)
        return code;
    bool failed = false;
    for (ScenarioFile& file : files)
        for (const Scenario& scenario : file.scenarios) {
            file.outcomes.push_back(RunScenario(scenario, program, options.limit));
            if (file.outcomes.back().bad)
                return StopAt(file.path, *file.outcomes.back().bad, report);
            failed = failed || !file.outcomes.back().unmet.empty();
        }
    if (!options.junit.empty() && !WriteJunit(files, options.junit, report))
        return kStopped;
    TellTap(files, report);
    return failed ? kFound : kNothingFound;
}

} // namespace console
