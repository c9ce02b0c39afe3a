// How long the compiler utility takes to make the program of a project: from nothing, with nothing
// changed, and with one rule changed. Fails where a limit is not kept.
//     build_bench [rules...]
#include "tests/morv/generated.h"

#include "shell/core/files.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;

const std::string kTop = SOURCE_FOLDER;
constexpr double kNothing = 0.5, kOneRule = 3, kSample = 1.5, kMemory = 500, kRatio = 2.2;

bool g_kept = true; // all limits

// A time or another figure, marked where it is beyond its limit.
std::string Told(double figure, double limit) {
    const bool kept = limit == 0 || figure <= limit;
    g_kept = g_kept && kept;
    char text[40];
    std::snprintf(text, sizeof text, "%8.2f%s", figure, kept ? "  " : " !");
    return text;
}

int Run(const std::string& line) {
    return std::system((line + " >/dev/null 2>&1").c_str());
}

std::string Content(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// The seconds of the processors that all processes so far took.
double Processors() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// The seconds of one run of the utility in a project folder.
double Build(const std::string& line, const fs::path& project) {
    const auto start = std::chrono::steady_clock::now();
    Run(line);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const std::string log = Content(project / "zkcc.log");
    if (log.find("zkcc: made ") == std::string::npos) {
        std::printf("%s", log.c_str());
        std::exit(1);
    }
    return taken.count();
}

// The largest process so far, in MB.
double Memory() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void MakeProject(int rules, const fs::path& project, int changed) {
    if (Run(kTop + "/tests/bench/build/make_project " + std::to_string(rules) + " " +
            project.string() + " " + std::to_string(changed)) != 0)
        std::exit(1);
}

// Returns the seconds from nothing.
double Project(const fs::path& work, int rules, double limit, double before) {
    const fs::path project = work / std::to_string(rules);
    const std::string morv = (work / "morv").string();
    const std::string line = morv + "/zkcc apimorv apimorv.rc plantR.cpp ddecom.cpp " + morv + " " +
                             project.string() + " " + work.string();
    MakeProject(rules, project, 0);
    const double before_cold = Processors();
    const double cold = Build(line, project), of_processors = Processors() - before_cold;
    const double nothing = Build(line, project);
    MakeProject(rules, project, rules / 2);
    const double one = Build(line, project);
    std::printf("%8d %s %s %s %s %s %s\n", rules, Told(cold, limit).c_str(),
                Told(of_processors, 0).c_str(),
                before > 0 ? Told(cold / before, kRatio).c_str() : "         -",
                Told(nothing, kNothing).c_str(), Told(one, kOneRule).c_str(),
                Told(Memory(), kMemory).c_str());
    std::fflush(stdout);
    return cold;
}

void Sample(const fs::path& drives) {
    fs::create_directories(drives / "dosdevices");
    fs::create_directories(drives / "c");
    fs::create_directory_symlink("../c", drives / "dosdevices" / "c:");
    files::SetDriveRoot(drives.string());
    setenv("WINEPREFIX", drives.c_str(), 1);
    std::string line;
    for (const char c : morv_test::GenerateSample("C:\\zentrik", kTop + "/morv/zkcc"))
        line += c == '\\' ? std::string("\\\\") : std::string(1, c);
    const fs::path project = drives / "c" / "zentrik" / "boiler";
    const double before = Processors();
    const double cold = Build(line, project), of_processors = Processors() - before;
    const double nothing = Build(line, project);
    std::string rules = Content(project / "boilerR.cpp");
    const std::string old = "deduce(&LOCKOUT, FULL);";
    rules.replace(rules.find(old), old.size(), "deduce(&LOCKOUT, HIGH);");
    std::ofstream(project / "boilerR.cpp", std::ios::binary) << rules;
    const double one = Build(line, project);
    std::printf("  sample %s %s           %s %s\n", Told(cold, 0).c_str(),
                Told(of_processors, 0).c_str(), Told(nothing, kNothing).c_str(),
                Told(one, kSample).c_str());
    std::fflush(stdout);
}

} // namespace

int main(int count, char** words) {
    const fs::path work = fs::temp_directory_path() / ("build_bench" + std::to_string(getpid()));
    fs::create_directories(work);
    fs::copy(kTop + "/morv", work / "morv", fs::copy_options::recursive);
    fs::copy(kTop + "/language", work / "language", fs::copy_options::recursive);
    std::ofstream(work / "morv" / "MorvApi.h")
        << "char ApZk[255]={\"apiplant\"};\nchar ItemZk[255]={\"plant\"};\n";
    setenv("ZKCC_SHOW", "", 1);
    setenv("ZKCC_CACHE", (work / "utility").c_str(), 1);
    Run((work / "morv" / "zkcc").string()); // it builds itself

    std::printf("Seconds to make a program, those of all processors, and MB of the largest "
                "process. \"!\": beyond the limit.\n"
                "   rules  from none processors   ratio  no change  one rule    memory\n");
    Sample(work / "drives");
    std::vector<int> sizes;
    for (int i = 1; i < count; ++i)
        sizes.push_back(std::atoi(words[i]));
    if (sizes.empty())
        sizes = {1000, 2000, 10000};
    double before = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const bool doubled = i > 0 && sizes[i] == 2 * sizes[i - 1];
        const double limit = sizes[i] <= 1000 ? 6 : sizes[i] == 10000 ? 50 : 0;
        before = Project(work, sizes[i], limit, doubled ? before : 0);
    }
    std::error_code ignored;
    fs::remove_all(work, ignored);
    return g_kept ? 0 : 1;
}
