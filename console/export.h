// The command "export": a project as text, with its sources beside it.
#pragma once

#include "console/form/report.h"

namespace console {

// Writes the text form of `project` to `folder`; both are project paths.
int Export(const std::string& project, const std::string& folder, const Report& report);

} // namespace console
