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

// A condition of a rule, and a conclusion; where in the rule they stand.
struct ConditionText {
    std::string kind, text; // "If", and what is in its brackets without comments
    int outer;              // the condition around it, -1 for none,
    bool otherwise;         // and whether it stands in that one's second branch
};
struct ConclusionText {
    std::string name; // of the fact or the result; "PF" for a fact that is not said
    int outer;
    bool otherwise;
};

// A rule, or the text between two rules.
struct Part {
    bool rule = false;
    int line = 0;     // where it starts
    std::string text; // as it stands
    std::string code; // as C++, with the same line ends; of a rule without its outer braces
    std::string number, title;
    int first_condition = 0; // between rules: how many conditions the parts before it have
    std::vector<ConditionText> conditions;
    std::vector<ConclusionText> conclusions;
};

// Translates the text between a Begin line and its EndSystem, whose first line has the number
// `line`. The code refers to `morv_rule`, the rule's entry in the tables of the runtime, and to
// `morv_site`, its conditions. `system` is named in complaints.
std::vector<Part> TranslateBlocks(const std::string& text, int line, const std::string& system,
                                  std::vector<Complaint>& complaints);

// "steam, rule 3, line 2", the line counted within the rule.
std::string RulePlace(const std::string& system, const std::string& rule, int line);

// `text` as a C++ string literal, on one line with single blanks.
std::string Quoted(const std::string& text);

} // namespace morv
