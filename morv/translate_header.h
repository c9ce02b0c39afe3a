// The rules header of a project, as the translation reads it.
#pragma once

#include <string>
#include <vector>

namespace morv {

struct RulesHeader {
    explicit RulesHeader(const std::string& text);

    std::string shared;               // what other sources can include
    std::vector<std::string> results; // that it defines: the names after its last "DATAFACTRESULT"
    std::string own_include;          // a header of the project's own; empty when there is none
};

} // namespace morv
