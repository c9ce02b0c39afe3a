// The command "build": the files that Compile writes.
#pragma once

#include "console/form/report.h"
#include "console/loaded_project.h"

namespace console {

struct BuildOptions {
    std::string project; // the project file
    std::string morv;    // the MORV Path
    std::string work;    // the work folder; empty: the one above the project's
    std::string into; // where the generated files go; empty: beside the project, and MorvApi.h too
    bool program = false;          // make the program as well
    std::string include, compiler; // of the compiler utility; may be empty
};

// Looks whether all is there that the generated files are made of; `morv` is the MORV Path.
int CheckBuildable(const LoadedProject& project, const std::string& morv, const Report& report);

// Writes the generated files alone, with nothing made of them.
int Generate(const BuildOptions& options, const Report& report);

// Writes the generated files; the paths are project paths. On a failure those that were there
// before are there again.
int Build(const BuildOptions& options, const Report& report);

} // namespace console
