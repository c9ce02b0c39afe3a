#include "build/core/own_sources.h"

#include "build/core/project_lists.h"
#include "system/core/system_file.h"

#include <algorithm>

namespace {

std::vector<std::string> SourcesOf(const ProjectRecord& project) {
    std::vector<std::string> sources{Text(project.MainName)};
    const int externs = ExternCount(project);
    for (int i = 1; i <= externs; ++i)
        sources.push_back(Text(project.ExternFiles[i]));
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i) {
        SystemFile system;
        ReadSystem(Text(project.EngineNames[i]).c_str(), system); // a missing one is shown later
        sources.push_back(Text(system.head.HeaderName));
        sources.push_back(Text(system.head.RuleName));
    }
    return sources;
}

} // namespace

Overwritten WouldOverwrite(const ProjectRecord& project, const BuildNames& names,
                           const std::string& morv_path, const std::string& work_path) {
    const std::vector<std::string> sources = SourcesOf(project);
    // Not by the names: one file has several, in capitals, relative, by a link.
    auto is_source = [&](const std::string& made) {
        return files::Exists(made.c_str()) && std::ranges::any_of(sources, [&](const auto& source) {
                   return files::SameFile(made.c_str(), source.c_str());
               });
    };
    if (is_source(names.rules_h))
        return Overwritten::RulesHeader;
    if (is_source(names.rules_cpp))
        return Overwritten::RulesSource;
    const bool support = is_source(names.ddecom_h) || is_source(names.ddecom_cpp) ||
                         is_source(names.consts_h) || is_source(morv_path + "\\MorvApi.h") ||
                         is_source(work_path + "\\Ktype.tmp");
    return support ? Overwritten::SupportFile : Overwritten::Nothing;
}
