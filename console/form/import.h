// The command "import": the project of a text form, and the work folder around it.
#pragma once

#include "console/form/report.h"

namespace console {

struct ImportOptions {
    std::string source;   // the text, or the folder that it stands in
    std::string work;     // where the project's folder goes; without a last '\'
    bool replace = false; // write over the files that are there
    std::string morv;     // the starter runtime that the work folder gets; empty: none
    std::string utility;  // the compiler utility in its tools file; empty: the one of the runtime
    bool update = false;  // a work folder that is there gets the runtime, and nothing else changes
};

// Writes all that is asked for, or nothing; the paths are project paths.
int Import(const ImportOptions& options, const Report& report);

} // namespace console
