// A project's own files: those in and below the folder of its project file. It is what the text
// form holds; of files elsewhere a project has only the paths.
#pragma once

#include "console/form/rows.h"
#include "project/core/project_file.h"
#include "system/core/system_file.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace console {

struct ProjectFolder {
    std::string work;                         // the folder above, without a last '\'
    std::string folder;                       // the folder's name; empty at the root of a drive
    std::string project;                      // the project file's name
    std::map<std::string, std::string> files; // by their paths below the folder

    std::string Home() const; // the folder's path with its last '\'

    // The path of a file below the folder; nothing for one that lies elsewhere.
    std::optional<std::string> OwnName(const std::string& path) const;

    // The content of the file with this full path; null when it is none of the project's or
    // missing.
    const std::string* Content(const std::string& path) const;
};

// Whether a name stays below the folder that it is put behind.
bool StaysBelow(std::string_view name);

// Whether a file of this name below the folder has scenarios of the project.
bool IsScenario(std::string_view name);

// What a project cannot be taken for, and the file that it lies at.
struct Refusal {
    std::string file, reason;

    bool Is() const { return !reason.empty(); }
    void Note(const std::string& in, const std::string& what) {
        if (!Is()) {
            file = in;
            reason = what;
        }
    }
};

// Reads a project's own files. What follows the end of a text is zeros in the result; files whose
// records do not fit, and paths that lead to the folder by another spelling, are refused.
ProjectFolder LoadFolder(const std::string& path, Refusal& refusal);

// A project and a system with nothing left out, as their bytes hold them; the bytes must be whole.
ProjectFile ProjectIn(std::string_view bytes);
SystemHead HeadIn(std::string_view bytes);

} // namespace console
