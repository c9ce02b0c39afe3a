// The command "move": a project whose folder has moved.
#pragma once

#include "console/form/report.h"

namespace console {

struct MoveOptions {
    std::string project;  // where the project file is now
    std::string from, to; // folders
};

// Puts `to` in the place of `from` in the paths inside the project, its systems and the tools file
// in its folder or the one above. All are project paths.
int Move(const MoveOptions& options, const Report& report);

} // namespace console
