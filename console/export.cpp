#include "console/export.h"

#include "console/form/code_page.h"
#include "console/form/file_set.h"
#include "console/form/project_form.h"

namespace console {

int Export(const std::string& project, const std::string& folder, const Report& report) {
    Refusal refusal;
    const ProjectFolder files = LoadFolder(project, refusal);
    if (refusal.Is())
        return report.Stop(refusal.file, refusal.reason);
    const ProjectForm form = FormOf(files, refusal);
    if (refusal.Is())
        return report.Stop(refusal.file, refusal.reason);
    FileSet written;
    written.Add(folder + "\\" + form.name, form.text);
    for (const auto& [name, bytes] : form.beside)
        written.Add(folder + "\\" + name, bytes);
    // The sources beside the text have other line ends than the project needs.
    for (const auto& [name, bytes] : files.files)
        if (const std::string own = files.Home() + name; written.Holds(own))
            return report.Stop(own, "it is of the project itself, which the text form must not "
                                    "replace: name another folder");
    return written.Write(report) ? kNothingFound : kStopped;
}

} // namespace console
