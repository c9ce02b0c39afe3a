// The block words of the rule language as C++.
#pragma once

#include "language/tokens.h"

#include <string>
#include <vector>

namespace morv {

struct Complaint {
    int line;
    std::string text;
};

// Translates the text between a Begin line and its EndSystem, whose first line has the number
// `line`. Every line end stays where it is. `system` is the name that the rules have in the trace.
std::string TranslateBlocks(const std::string& text, int line, const std::string& system,
                            std::vector<Complaint>& complaints);

// `text` as a C++ string literal, on one line with single blanks.
std::string Quoted(const std::string& text);

} // namespace morv
