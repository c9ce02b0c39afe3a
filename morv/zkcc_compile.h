// Compiles what changed.
#pragma once

#include "zkcc_units.h"
#include "zkcc_workplace.h"

#include <vector>

namespace morv {

// Takes what is in the cache and compiles the rest. Returns whether all are there then; what the
// compilers said goes to the messages.
bool Compile(Workplace& place, std::vector<Unit>& units);

} // namespace morv
