// The macros that the text around the rules defines.
#pragma once

#include "language/extern_code.h"
#include "language/rule_blocks.h"

#include <set>
#include <string>
#include <vector>

namespace morv {

// The text around the rules. What it defines in front of the first rule stands apart: those lines
// may stand in front of each rule as well.
struct TextAround {
    std::string defines; // its lines "#define"
    std::string rest;    // with ";" for each rule
};

TextAround ReadAround(const std::vector<Part>& parts);

// Makes the macros known. Returns the first one that would change more than the text of the rules;
// empty when there is none. `known` are the names of facts, results and variables.
std::string AddMacros(const std::string& defines, const std::set<std::string>& known,
                      ExternCode& code);

} // namespace morv
