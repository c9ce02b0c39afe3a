// The findings of Debug with the places they stand at.
#pragma once

#include "console/findings.h"
#include "console/loaded_project.h"

namespace console {

// What Debug lists of a project, in its order, but for the line that it lists of every rule and the
// heading of each system.
std::vector<Finding> RuleFindings(const LoadedProject& project);

} // namespace console
