#include "console/form/import.h"

#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/file_set.h"
#include "console/form/project_form.h"
#include "console/form/work_folder.h"

namespace console {

namespace {

constexpr char kText[] = ".txt";

bool IsText(const std::string& name) {
    return Folded(name).ends_with(kText);
}

// The text that `source` names: itself, or in a folder X the file X.txt or else the only text.
std::string TextOf(std::string source, Failure& failure) {
    if (IsText(source))
        return source;
    while (source.ends_with('\\'))
        source.pop_back();
    const std::string own = source + "\\" + source.substr(source.rfind('\\') + 1) + ".txt";
    if (files::Exists(own.c_str()))
        return own;
    std::string found;
    for (const std::string& name : NamesIn(source, kText)) {
        if (!found.empty())
            failure.Note("several texts are there: name one of them");
        found = source + "\\" + name;
    }
    if (found.empty())
        failure.Note("there is no text form of a project");
    return found;
}

std::string FolderOfText(const std::string& text) {
    return text.substr(0, text.rfind('\\') + 1);
}

// Adds the files of the project that the text describes.
int AddProject(const ImportOptions& options, const Report& report, FileSet& written) {
    Failure failure;
    const std::string name = TextOf(options.source, failure);
    if (!failure.text.empty())
        return report.Stop(options.source, failure.text);
    std::string text;
    if (!files::ReadWhole(name.c_str(), files::Mode::Read, text))
        return report.Stop(name, LastReason());
    const SourceReader source = [&](const std::string& own) -> std::optional<std::string> {
        std::string bytes;
        const std::string path = FolderOfText(name) + own;
        return files::ReadWhole(path.c_str(), files::Mode::Read, bytes) ? std::optional(bytes)
                                                                        : std::nullopt;
    };
    const ProjectFolder folder = FolderOfForm(text, source, options.work, failure);
    if (!failure.text.empty())
        return report.Stop(name, failure.text);
    for (const auto& [own, bytes] : folder.files)
        written.Add(folder.Home() + own, bytes);
    return kNothingFound;
}

// Adds all that is asked for.
int AddAll(const ImportOptions& options, const Report& report, FileSet& written) {
    const WorkFolder folder{options.work, options.morv, options.utility};
    if (options.update && IsWorkFolder(options.work))
        return AddRuntime(folder, report, written);
    if (const int code = AddProject(options, report, written); code != kNothingFound)
        return code;
    if (!options.morv.empty())
        for (const auto add : {AddRuntime, AddTools})
            if (const int code = add(folder, report, written); code != kNothingFound)
                return code;
    const std::optional<std::string> there = written.FirstThere();
    if (there && !options.replace)
        return report.Stop(*there, "it is there already, and only --replace replaces it");
    return kNothingFound;
}

} // namespace

int Import(const ImportOptions& options, const Report& report) {
    // Zentrik cuts paths at their first '.' to name the files beside them.
    if (options.work.find('.') != options.work.npos)
        return report.Stop(options.work, "a work folder has no '.' in its path");
    FileSet written;
    if (const int code = AddAll(options, report, written); code != kNothingFound)
        return code;
    return written.Write(report) ? kNothingFound : kStopped;
}

} // namespace console
