// Which rules need not run again while nothing changes that they read.
#pragma once

#include "language/extern_code.h"

#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace morv {

// What is known of a whole rules source.
class QuietRules {
public:
    // `source` is all of it, `main` what follows its systems.
    QuietRules(const std::string& source, const std::string& main,
               const std::vector<std::string>& results);

    // Whether what stands in the text runs once each time that the text does.
    bool IsCalm(const std::string& text) const;

    // Whether running the rule twice does what running it once does: it asks facts and results what
    // they are now, and concludes and takes back results that nothing else touches. Every other
    // statement may do anything. Sets what it reads.
    bool IsQuiet(const std::string& rule, const std::set<std::string>& facts,
                 const ExternCode& code, std::set<std::string>& read_facts,
                 std::set<std::string>& read_results) const;

private:
    bool calm_ = true; // each system runs once a tick
    const std::unordered_set<std::string> results_, long_macros_;
    std::map<std::string, int> touched_; // how often a result is more than asked
};

} // namespace morv
