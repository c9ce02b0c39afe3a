// The words of the command line, and the command that they name.
#pragma once

#include "console/form/report.h"

#include <string>
#include <vector>

namespace console {

// Runs the command that `words` name (without the program's own name). Returns the exit code.
int Run(const std::vector<std::string>& words, const Report& report);

} // namespace console
