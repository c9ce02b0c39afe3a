// How long the rule check and the generators take at growing sizes: each table doubles its work
// from line to line, so a ratio near 2 means that the time grows with the work alone.
#include "build/core/rule_checker.h"
#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "shell/core/messages.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>

void BenchRenumber(); // rule_text_bench.cpp

namespace {

const std::string kFolder = "C:\\zkbench";

std::string Path(const std::string& name) {
    return kFolder + "\\" + name;
}

std::filesystem::path Local(const std::string& path) {
#ifdef _WIN32
    return path;
#else
    return files::LocalPath(path.c_str());
#endif
}

// The folder of the measured files, removed at the end.
class BenchFolder {
public:
    BenchFolder() {
#ifndef _WIN32
        drives_ = std::filesystem::temp_directory_path() / "zentrik_core_bench";
        files::SetDriveRoot(drives_.string());
#endif
        std::filesystem::create_directories(Local(kFolder));
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;
    ~BenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Local(kFolder), ignored);
        if (!drives_.empty())
            std::filesystem::remove_all(drives_, ignored);
    }

private:
    std::filesystem::path drives_;
};

void Put(const std::string& name, std::string_view content) {
    std::ofstream(Local(Path(name)), std::ios::binary) << content;
}

std::string Tags(const char* prefix, int count) {
    std::vector<TagRecord> names(count);
    for (int i = 0; i < count; ++i)
        SetText(names[i].name, prefix + std::to_string(i));
    return std::string(BytesOf(names));
}

// Rules of some 600 bytes, with their index.
void PutRules(int count) {
    std::string text;
    std::vector<RuleIndexRecord> index(count);
    for (int i = 0; i < count; ++i) {
        const std::string name = "Rule " + std::to_string(i + 1);
        const std::size_t begin = text.size();
        text += name + "\r\n// Looks after one part of the plant.\r\nForAll boiler\r\n";
        for (int part = 0; part < 4; ++part)
            text += "    IfAny pressure > 40 && temperature > \"HIGH\"\r\n    Then\r\n"
                    "        valve = open; /* let steam off */\r\n    Otherwise\r\n"
                    "        valve = closed;\r\n    EndIfAny\r\n";
        text += "EndForAll\r\nEndRule\r\n";
        SetText(index[i].name, name);
        index[i].size = static_cast<std::int32_t>(text.size() - begin);
    }
    Put("a.rul", text);
    Put("a.siz", BytesOf(index));
}

void PutSystem(int count) {
    SystemFile system;
    SetText(system.head.KTypeName, Path("a.typ"));
    SetText(system.head.RuleName, Path("a.rul"));
    SetText(system.head.RuleSizeName, Path("a.siz"));
    SetText(system.head.VarName, Path("a.var"));
    SetText(system.head.InitName, Path("a.ikw"));
    system.facts.resize(count);
    system.opposites.resize(count);
    std::vector<V_V> variables(count);
    std::vector<I_K> initial(count);
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        SetText(system.facts[i].Name, "Fact" + number);
        SetText(system.facts[i].Description, "What fact " + number + " tells about the plant");
        SetText(system.facts[i].KnowType, "TYPE1");
        SetText(system.facts[i].Units, "Celsius");
        system.facts[i].high = i * 1.37;
        SetText(system.opposites[i].name, "RESULT" + number + "\tRESULT0");
        SetText(variables[i].Name, "variable" + number);
        SetText(variables[i].Type, "double");
        SetText(variables[i].Val, "1.5");
        SetText(initial[i].K_Name, "Fact" + number);
        SetText(initial[i].K_Val, number);
        SetText(initial[i].Pres, "FULL");
    }
    system.head.DatNum = count;
    system.head.OppNum = count;
    Put("a.lse", SystemBytes(system));
    Put("a.var", BytesOf(variables));
    Put("a.ikw", BytesOf(initial));
    Put("a.typ", Tags("TYPE", count));
}

void PutOthers(int count) {
    DdeFile dde;
    dde.name = "Plant";
    dde.items.resize(count);
    std::string includes;
    for (int i = 0; i < count; ++i) {
        SetText(dde.items[i].DName, "Item" + std::to_string(i));
        SetText(dde.items[i].DType, "double");
        includes += "#include \"part" + std::to_string(i) + ".h\"\r\nint part();\r\n";
    }
    Put("a.dde", DdeBytes(dde));
    Put("a.aux", Tags("RESULT", count));
    Put("extern.cpp", includes);
    Put("main.cpp", "\tRun();\r\n");
    for (const char* name : {"ddecom1.dat", "ddecom2.dat", "ddecom3.dat", "ddecom4.dat",
                             "consts1.dat", "consts2.dat", "consts3.dat"})
        Put(name, "// template\r\n\x1a");
}

ProjectRecord PutProject(int count) {
    PutRules(count);
    PutSystem(count);
    PutOthers(count);
    ProjectRecord project{};
    SetText(project.MainName, Path("main.cpp"));
    SetText(project.EngineNames[1], Path("a.lse"));
    SetText(project.ExternFiles[1], Path("extern.cpp"));
    SetText(project.DDEName, Path("a.dde"));
    SetText(project.ResAux, Path("a.aux"));
    project.EngNum = 1;
    project.ExtNum = 1;
    project.DatHisLen = 10;
    return project;
}

// A view that only counts.
class CountingView : public CheckView {
public:
    void SystemFile(const char*) override {}
    void RulesFile(const char*) override {}
    void RuleName(const std::string&) override {}
    void Progress(char) override {}
    void Finding(const std::string&) override { findings += 1; }
    std::string ResultsFile() override { return Path("a.aux"); }

    long findings = 0;
};

// The best processor time of several runs, in seconds; other programs do not count in it. A run
// that fails ends the program.
double Best(const std::function<bool()>& run) {
    constexpr int kFewest = 5;
    constexpr double kEnough = 0.2;
    double best = 1e9;
    double all = 0;
    for (int runs = 0; runs < kFewest || all < kEnough; ++runs) {
        const std::clock_t begin = std::clock();
        if (!run()) {
            std::fprintf(stderr, "A measured run failed.\n");
            std::exit(1);
        }
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        // A clock too coarse for one run still moves on.
        all += std::max(seconds, 1e-5);
        best = std::min(best, std::max(seconds, 1e-6));
    }
    return best;
}

// What one line of a table measures, and which files it reads or writes.
struct Measured {
    const char* title;
    std::function<bool(const ProjectRecord&, const SupportInput&)> run;
    std::vector<std::string> files;
};

const std::vector<Measured>& AllMeasured() {
    static const std::vector<Measured> all = {
        {"CheckProject (rules and opposites)",
         [](const ProjectRecord& project, const SupportInput&) {
             CountingView view;
             Lexical anul = Lexical::Code;
             return CheckProject(project, anul, view, nullptr);
         },
         {"a.rul", "a.siz", "a.lse", "a.aux"}},
        {"CrearRulesH (results, includes)",
         [](const ProjectRecord& project, const SupportInput& in) {
             return CrearRulesH(project, in.names.rules_h.c_str(), nullptr) == 0;
         },
         {"extern.cpp", "a.aux"}},
        {"CrearRulesCpp (facts, opposites, variables, rules)",
         [](const ProjectRecord& project, const SupportInput& in) {
             SystemHead last{};
             return CrearRulesCpp(project, last, in.names.rules_cpp.c_str(), "aR.h", nullptr) == 0;
         },
         {"a.lse", "a.var", "a.ikw", "a.rul", "extern.cpp"}},
        {"WriteDdecom (DDE items)",
         [](const ProjectRecord&, const SupportInput& in) { return WriteDdecom(in) == 0; },
         {"a.dde"}},
        {"WriteConsts (knowledge types)",
         [](const ProjectRecord&, const SupportInput& in) {
             SystemHead last{};
             return WriteConsts(in, last) == 0;
         },
         {"a.lse", "a.typ"}},
    };
    return all;
}

void Measure(const Measured& measured) {
    std::printf("\n%s\n%8s %12s %12s %8s\n", measured.title, "items", "ms", "MB/s", "ratio");
    double before = 0;
    for (int count : {1000, 2000, 4000, 8000}) {
        const ProjectRecord project = PutProject(count);
        const BuildNames names(Path("a.mrv").c_str());
        const SupportInput in{project, names, kFolder, kFolder, nullptr};
        const double seconds = Best([&] { return measured.run(project, in); });
        std::uintmax_t bytes = 0;
        for (const std::string& file : measured.files)
            bytes += std::filesystem::file_size(Local(Path(file)));
        std::printf("%8d %12.3f %12.1f ", count, seconds * 1e3, bytes / seconds / 1e6);
        if (before > 0)
            std::printf("%8.2f\n", seconds / before);
        else
            std::printf("%8s\n", "-");
        before = seconds;
    }
}

} // namespace

int main() {
    const BenchFolder folder;
    std::printf("MB/s is of the bytes read; ratio is to the line above, where the work doubled.\n");
    for (const Measured& measured : AllMeasured())
        Measure(measured);
    BenchRenumber();
    return 0;
}
