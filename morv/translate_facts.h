// A system as the translation knows it, and its facts as C++.
#pragma once

#include "language/rule_blocks.h"
#include "language/system_text.h"
#include "translate_marks.h"

#include <set>
#include <string>
#include <vector>

namespace morv {

struct TranslatedSystem {
    std::string engine, number, name, space; // Inference_Engine_1, 1, steam, morv_1
    SystemText text;
    std::vector<Part> parts;
    std::set<std::string> facts, variables;
    bool changes_settings = false; // of its facts
    bool repeats = false;          // its rules may run more than once in a call
};

// What the warnings of generated texts are about is no fault of theirs.
std::string Warnings();

// The facts of a system and the table of their settings, which stay as they are unless code
// changes them.
std::string FactsSource(const TranslatedSystem& system, bool with_variables, Marks& marks);

// Declares the facts and variables of a system that occur among `words`; all without them.
void Declare(const TranslatedSystem& system, bool with_variables,
             const std::set<std::string>* words, std::string& text);

// The lines that make facts and variables among `words` known in a function. A declaration of
// their names in there hides them, as it hides those of a function.
std::string Using(const TranslatedSystem& system, bool with_variables,
                  const std::set<std::string>& words);

} // namespace morv
