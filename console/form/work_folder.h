// What a work folder has beside its projects: the runtime and the tools file that names it.
#pragma once

#include "console/form/file_set.h"

namespace console {

struct WorkFolder {
    std::string path;    // without a last '\'
    std::string runtime; // the folder that the starter runtime is taken from
    std::string utility; // the compiler utility's command; empty: the one of the runtime, if any
};

// Whether there is a work folder, which its tools file makes it.
bool IsWorkFolder(const std::string& path);

// Adds the runtime: the templates, what programs are compiled from, and the compiler utility for
// Windows where `runtime` has it. Returns kNothingFound, or what Stop returned.
int AddRuntime(const WorkFolder& folder, const Report& report, FileSet& written);

// Adds the tools file.
int AddTools(const WorkFolder& folder, const Report& report, FileSet& written);

} // namespace console
