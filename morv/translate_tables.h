// The tables of rules that the runtime reads.
#pragma once

#include "language/rule_blocks.h"

#include <string>
#include <vector>

namespace morv {

// Rules whose entries stand in one table.
struct RuleGroup {
    std::string name;
    std::vector<std::string> numbers;
};

// The tables of a part: its conditions and conclusions.
std::string Tables(const std::vector<ConditionText>& conditions,
                   const std::vector<ConclusionText>& conclusions, const std::string& suffix);

// A row of the table of rules, without the number, which the first source knows.
std::string Row(const std::string& run, const std::string& title, std::size_t conditions,
                std::size_t conclusions, const std::string& suffix,
                const std::string& sources = "nullptr");

// Makes the conditions of a rule known to its code.
constexpr char kSites[] = "morv::Site* const morv_site = morv_rule.sites;";

} // namespace morv
