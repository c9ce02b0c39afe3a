// The names that stand in the #line of what is translated.
#pragma once

#include "translate.h"

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace morv {

struct Part;

// Says that the next line is number `line` of the file `name`.
std::string LineMark(int line, const std::string& name);

// A short name for a text, the same on every machine.
std::string Sum(const std::string& text);

// The label of a rule: named after what it says, it stays when the rule gets another line.
std::string RuleLabel(const std::string& system, const Part& rule);

class Marks {
public:
    // Begins a text that starts in line `line` of the source and may move.
    std::string At(const std::string& label, int line, const std::string& system = {},
                   const Part* rule = nullptr);

    std::vector<Place> Places() { return std::move(places_); }

private:
    std::unordered_set<std::string> labels_;
    std::vector<Place> places_;
};

} // namespace morv
