// The initial values of a system's facts as C++.
#pragma once

#include "language/extern_code.h"
#include "translate_facts.h"

#include <string>
#include <unordered_set>

namespace morv {

// The statements that take them up; they stand on the lines that they have in the source.
std::string InitialValues(const TranslatedSystem& system, Marks& marks);

// Whether a source of their own is worth it and means the same.
bool HasInitialSource(const TranslatedSystem& system, const ExternCode& code);

// A call of the function in that source, and the source. `defines` are the macros of the systems
// before; those of the system itself come behind its initial values.
std::string InitialCall(const TranslatedSystem& system);
std::string InitialSource(const TranslatedSystem& system,
                          const std::unordered_set<std::string>& results, const ExternCode& code,
                          const std::string& defines, Marks& marks);

} // namespace morv
