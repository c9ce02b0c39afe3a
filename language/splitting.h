// Whether the rules of a system can be functions of their own.
#pragma once

#include "language/extern_code.h"
#include "language/rule_blocks.h"

#include <set>
#include <string>
#include <vector>

namespace morv {

// The words of C++ text. Names of members, behind "." and "->", are left out when `free` is set.
std::set<std::string> WordsOf(const std::string& text, bool free);

// `words` and what the macros among them stand for.
std::set<std::string> WithMacros(std::set<std::string> words, const ExternCode& code);

// Why the rules among `parts` mean something else, or nothing, outside of the function that the
// text around them is part of; empty when they mean the same. `known` are the names of variables.
std::string WhyWhole(const std::vector<Part>& parts, const std::set<std::string>& known,
                     const ExternCode& code);

// Why the rules cannot be compiled apart from the extern code; empty when they can.
std::string WhyTogether(const std::vector<Part>& parts, const ExternCode& code);

// Whether expressions mean the same in a source apart from the extern code.
bool StandsApart(const std::string& text, const ExternCode& code);

// Whether the text may change what facts are set to: their limits, levels, types and texts.
bool ChangesSettings(const std::string& text);

} // namespace morv
