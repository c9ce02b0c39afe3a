#include "console/import.h"

#include "console/code_page.h"
#include "console/drives.h"
#include "console/file_set.h"
#include "console/project_form.h"

namespace console {

namespace {

bool IsText(const std::string& name) {
    return Folded(name).ends_with(".txt");
}

// The text that `source` names: itself, or in a folder X the file X.txt or else the only text.
std::string TextOf(const std::string& source, Failure& failure) {
    if (IsText(source))
        return source;
    const std::string own = source + source.substr(source.rfind('\\')) + ".txt";
    if (files::Exists(own.c_str()))
        return own;
    std::string found;
    for (const std::string& name : NamesIn(source)) {
        if (!IsText(name))
            continue;
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

} // namespace

int Import(const ImportOptions& options, const Report& report) {
    // Zentrik cuts paths at their first '.' to name the files beside them.
    if (options.work.find('.') != options.work.npos)
        return report.Stop(options.work, "a work folder has no '.' in its path");
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
    FileSet written;
    for (const auto& [own, bytes] : folder.files) {
        const std::string path = folder.Home() + own;
        if (!options.replace && files::Exists(path.c_str()))
            return report.Stop(path, "it is there already, and only --replace replaces it");
        written.Add(path, bytes);
    }
    return written.Write(report) ? kNothingFound : kStopped;
}

} // namespace console
