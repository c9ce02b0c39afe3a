// The command "show": any record file as text.
#pragma once

#include "console/form/report.h"

namespace console {

// Prints the file `path`, a project path, by its kind, which its extension tells. A damaged one
// is shown as far as it goes; what is wrong with it stands in lines that begin with '!'. Returns
// kNothingFound for every file that could be read, for git shows nothing of a file otherwise.
int Show(const std::string& path, const Report& report);

} // namespace console
