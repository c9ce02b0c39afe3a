// Makes the program of what was compiled.
#pragma once

#include "zkcc_units.h"
#include "zkcc_workplace.h"

#include <filesystem>
#include <vector>

namespace morv {

// Links the units and puts the program in its place, unless the one that is there was made from
// them. Returns whether it is there; what was there before stays otherwise.
bool Link(Workplace& place, const std::filesystem::path& compiler, const std::vector<Unit>& units);

} // namespace morv
