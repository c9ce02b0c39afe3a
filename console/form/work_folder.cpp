#include "console/form/work_folder.h"

#include "build/core/tools_file.h"
#include "morv/runtime_files.h"
#include "shell/core/line_ends.h"

namespace console {

namespace {

// There in what is handed out, not in the sources.
constexpr char kUtility[] = "zkcc.exe";

std::string RuntimeOf(const WorkFolder& folder) {
    return folder.path + "\\morv";
}

} // namespace

bool IsWorkFolder(const std::string& path) {
    return files::Exists(ToolsFileName(path).c_str());
}

int AddRuntime(const WorkFolder& folder, const Report& report, FileSet& written) {
    std::vector<std::string> names(std::begin(morv::kRuntimeSources),
                                   std::end(morv::kRuntimeSources));
    names.insert(names.end(), std::begin(morv::kRuntimeOthers), std::end(morv::kRuntimeOthers));
    if (files::Exists((folder.runtime + "\\" + kUtility).c_str()))
        names.emplace_back(kUtility);
    for (const std::string& name : names) {
        const std::string from = folder.runtime + "\\" + name;
        const std::string to = RuntimeOf(folder) + "\\" + name;
        if (to.size() >= kNameSize)
            return report.Stop(to, "the path is too long");
        std::string bytes;
        if (!files::ReadWhole(from.c_str(), files::Mode::Read, bytes))
            return report.Stop(from, LastReason());
        written.Add(to, name == kUtility ? std::move(bytes) : WithCrLf(bytes));
    }
    return kNothingFound;
}

int AddTools(const WorkFolder& folder, const Report& report, FileSet& written) {
    ToolsFile tools;
    tools.path = RuntimeOf(folder);
    tools.com = folder.utility;
    if (tools.com.empty() && files::Exists((folder.runtime + "\\" + kUtility).c_str()))
        tools.com = '"' + tools.path + "\\" + kUtility + '"'; // the start of a command line
    if (tools.com.size() >= kNameSize)
        return report.Stop("", "the compiler utility's command is too long");
    if (!tools.com.empty())
        tools.compilers.push_back(tools.com);
    written.Add(ToolsFileName(folder.path), ToolsBytes(tools));
    return kNothingFound;
}

} // namespace console
