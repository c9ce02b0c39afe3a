#include "console/build.h"

#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "console/form/file_set.h"
#include "console/form/project_folder.h"
#include "console/loaded_project.h"
#include "console/made_program.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"

#include <utility>

namespace console {

namespace {

// While it lives, what the generators would show in boxes collects in one text.
class BoxTexts {
public:
    BoxTexts()
        : before_(SetMessageShower([this](const Message& message) {
              text.append(text.empty() ? "" : "; ").append(message.text);
              return Answer::Ok;
          })) {}
    BoxTexts(const BoxTexts&) = delete;
    BoxTexts& operator=(const BoxTexts&) = delete;
    ~BoxTexts() { SetMessageShower(std::move(before_)); }

    std::string text;

private:
    MessageShower before_;
};

constexpr char kNotThere[] = "No such file or directory";

// The first file that a build needs and that is not there, or is not named.
Refusal FirstMissing(const LoadedProject& project, const std::string& morv) {
    Refusal missing;
    const auto need = [&](const NamedFile& file, const std::string& named_in, const char* what) {
        if (file.path.empty())
            missing.Note(named_in, std::string("it names no ") + what);
        else if (!file.found)
            missing.Note(file.path, kNotThere);
    };
    need(project.main, project.path, "main file");
    need(project.dde, project.path, "DDE items");
    need(project.chosen, project.path, "results");
    for (const NamedFile& file : project.externs)
        need(file, project.path, "extern file");
    for (const LoadedSystem& system : project.systems) {
        need(system.rules, system.path, "rules");
        if (system.header.Missing())
            missing.Note(system.header.path, kNotThere);
    }
    for (const char* name : {"ddecom1.dat", "ddecom2.dat", "ddecom3.dat", "ddecom4.dat",
                             "consts1.dat", "consts2.dat", "consts3.dat"})
        if (const std::string path = morv + "\\" + name; !files::Exists(path.c_str()))
            missing.Note(path, kNotThere);
    return missing;
}

struct Step {
    std::string file;
    int code;
};

// Writes every file, up to the first that fails.
Step WriteFiles(const ProjectRecord& project, const BuildNames& names, const SupportInput& support,
                bool api) {
    SystemHead last_read{};
    if (CrearRulesH(project, names.rules_h.c_str(), nullptr) != 0)
        return {names.rules_h, -1};
    if (CrearRulesCpp(project, last_read, names.rules_cpp.c_str(), names.rules_h_name.c_str(),
                      nullptr) != 0)
        return {names.rules_cpp, -1};
    if (WriteDdecom(support) != 0)
        return {names.ddecom_cpp, -1};
    if (WriteConsts(support, last_read) != 0)
        return {names.consts_h, -1};
    if (api && WriteMorvApi(support) != 0)
        return {support.morv_path + "\\MorvApi.h", -1};
    return {"", 0};
}

// The names of the generated files, in the folder that was asked for.
BuildNames NamesOf(const BuildOptions& options) {
    BuildNames names(options.project.c_str());
    if (options.into.empty())
        return names;
    names.rules_h = options.into + "\\" + names.rules_h_name;
    names.rules_cpp = options.into + "\\" + names.rules_cpp_name;
    names.ddecom_h = options.into + "\\ddecom.h";
    names.ddecom_cpp = options.into + "\\ddecom.cpp";
    names.consts_h = options.into + "\\consts.h";
    return names;
}

} // namespace

int CheckBuildable(const LoadedProject& project, const std::string& morv, const Report& report) {
    if (!project.unreadable.empty())
        return report.Stop(project.unreadable, project.reason);
    if (!project.damaged.empty())
        return report.Stop(project.damaged, project.wrong);
    const Refusal missing = FirstMissing(project, morv);
    return missing.Is() ? report.Stop(missing.file, missing.reason) : kNothingFound;
}

int Generate(const BuildOptions& options, const Report& report) {
    const LoadedProject project = LoadProject(options.project);
    if (const int code = CheckBuildable(project, options.morv, report); code != kNothingFound)
        return code;
    const BuildNames names = NamesOf(options);
    const std::string work = options.work.empty() ? FolderOf(names.folder) : options.work;
    const SupportInput support{project.file.head, names, options.morv, work, nullptr};
    const bool api = options.into.empty();
    Kept kept;
    std::vector<std::string> written = {names.rules_h,    names.rules_cpp, names.ddecom_h,
                                        names.ddecom_cpp, names.consts_h,  work + "\\Ktype.tmp"};
    if (api)
        written.push_back(options.morv + "\\MorvApi.h");
    for (const std::string& path : written)
        if (!kept.Keep(path))
            return report.Stop(path, LastReason());
    const BoxTexts boxes;
    const Step failed = WriteFiles(project.file.head, names, support, api);
    if (failed.code == 0)
        return kNothingFound;
    kept.PutBack();
    return report.Stop(failed.file, boxes.text);
}

int Build(const BuildOptions& options, const Report& report) {
    const int code = Generate(options, report);
    if (code != kNothingFound || !options.program)
        return code;
    const BuildNames names(options.project.c_str());
    const auto host = [](const std::string& path) {
        return path.empty() ? std::filesystem::path() : HostFile(path);
    };
    morv::Job job;
    job.api = "apimorv";
    job.resource = "apimorv.rc";
    job.rules = names.rules_cpp_name;
    job.dde = "ddecom.cpp";
    job.runtime = host(options.morv);
    job.project = host(names.folder);
    job.include = host(options.include);
    job.compiler = host(options.compiler);
    job.work = host(options.work.empty() ? FolderOf(names.folder) : options.work);
    job.program = "Api" + names.base;
    return MakeProgram(job, report);
}

} // namespace console
