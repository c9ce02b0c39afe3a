#include "console/made_program.h"

#include "build/core/build_names.h"
#include "console/build.h"
#include "console/form/drives.h"
#include "morv/run_tool.h"
#include "morv/zkcc_build.h"
#include "morv/zkcc_files.h"

#include <cstdlib>

namespace console {

namespace fs = std::filesystem;

namespace {

// What makes a folder a starter runtime with a program for the console.
constexpr char kMark[] = "console_main.cpp";

// The runtime beside this program, in the source tree that it was built in, or where it was
// installed; empty when there is none.
fs::path OwnRuntime() {
    std::error_code error;
    for (fs::path folder = morv::OwnProgram().parent_path();; folder = folder.parent_path()) {
        for (const char* below : {"morv", "share/zentrik/morv"})
            if (fs::exists(folder / below / kMark, error))
                return folder / below;
        if (folder == folder.parent_path())
            return {};
    }
}

fs::path CacheFolder() {
#ifdef _WIN32
    if (const wchar_t* local = _wgetenv(L"LOCALAPPDATA"); local != nullptr && *local != L'\0')
        return fs::path(local) / "zentrik";
#else
    if (const char* cache = std::getenv("XDG_CACHE_HOME"); cache != nullptr && *cache != '\0')
        return fs::path(cache) / "zentrik";
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
        return fs::path(home) / ".cache" / "zentrik";
#endif
    return fs::temp_directory_path() / "zentrik";
}

} // namespace

fs::path HostFile(const std::string& path) {
    const std::string text = FullHostText(path);
    return std::u8string(text.begin(), text.end());
}

int MakeProgram(const morv::Job& job, const Report& report) {
    morv::Screen screen(true);
    morv::Faults faults;
    if (morv::BuildProgram(job, screen, &faults))
        return kNothingFound;
    if (faults.project.empty())
        return report.Stop("", faults.others.empty() ? "the program cannot be made"
                                                     : OneLine(faults.others.front()));
    for (const std::string& fault : faults.project)
        report.out << fault << "\n";
    return kFound;
}

int MakeConsoleProgram(const std::string& project, const std::string& morv, const Report& report,
                       ConsoleProgram& program) {
    const fs::path runtime = morv.empty() ? OwnRuntime() : HostFile(morv);
    std::error_code error;
    if (runtime.empty())
        return report.Stop("", "no runtime found: name its folder with --morv");
    if (!fs::exists(runtime / kMark, error))
        return report.Stop(morv, "it has no console_main.cpp: programs for the console need the "
                                 "starter runtime");
    // Before there is a folder for it.
    const std::string own = ProjectPath(runtime.string());
    if (const int code = CheckBuildable(LoadProject(project), own, report); code != kNothingFound)
        return code;
    const BuildNames names(project.c_str());
    // Each project has its own for each runtime.
    std::string folder = names.base;
    folder.append("-").append(morv::Fingerprint(project + '\n' + runtime.string()));
    program.folder = CacheFolder() / folder;
    const std::string into = ProjectPath(program.folder.string());
    fs::create_directories(program.folder, error);
    if (error)
        return report.Stop(into, error.message());
    // Two runs at a time would write the same files.
    morv::Lock lock;
    if (!lock.Take(program.folder / "lock", [] {}))
        return report.Stop(into, "cannot write there");
    BuildOptions options{project, own, into, into, false, "", ""};
    if (const int code = Generate(options, report); code != kNothingFound)
        return code;
    morv::Job job;
    job.rules = names.rules_cpp_name;
    job.dde = "ddecom.cpp";
    job.runtime = runtime;
    job.project = program.folder;
    job.include = HostFile(names.folder); // for what the project's own sources include
    job.program = names.base;
    job.console = true;
    program.file = morv::ProgramOf(job);
    return MakeProgram(job, report);
}

} // namespace console
