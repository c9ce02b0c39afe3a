// The command "import": the project of a text form.
#pragma once

#include "console/report.h"

namespace console {

struct ImportOptions {
    std::string source; // the text, or the folder that it stands in
    std::string work;   // where the project's folder goes
    bool replace = false;
};

// Writes the project; the paths are project paths.
int Import(const ImportOptions& options, const Report& report);

} // namespace console
