// What the check of the rules does not see: files, indexes and names that do not fit together.
#pragma once

#include "console/findings.h"
#include "console/loaded_project.h"

namespace console {

// Missing files, systems of one name, rules and indexes that do not fit, words that upset the sums.
std::vector<Finding> FileWarnings(const LoadedProject& project);

// Names: not C++ names, not declared, not used, never concluded, concluded with their opposite.
std::vector<Finding> NameWarnings(const LoadedProject& project);

// Which rule of an index an offset of the text lies in, from 1; 0 when in none.
class RuleSpans {
public:
    explicit RuleSpans(const std::vector<RuleIndexRecord>& index);
    int RuleAt(std::size_t offset) const;

    const std::vector<std::size_t>& Ends() const { return ends_; }

private:
    std::vector<std::size_t> ends_;
};

} // namespace console
