// Writes a sample project as the work folder that Zentrik opens.
#pragma once

#include "resources/fact.h"
#include "system/rule_index.h"

#include <string>
#include <string_view>
#include <vector>

namespace sample {

// The index of a rules text: a record for each rule, which reaches to the start of the next one
// and the last to the end of its "EndRule". The text starts with its first rule.
std::vector<RuleIndexRecord> IndexOf(std::string_view rules);

// Writes the project whose source stands in `folder` (X\X.txt for a folder named X, with the files
// it names and the runtime's templates in X\morv) to the work folder `work`, an absolute path
// without a '.' that need not exist. The tools file there names `compiler`, which may be empty. The
// same source gives the same bytes. Returns an empty text, or what went wrong.
std::string WriteSample(const std::string& folder, const std::string& work,
                        const std::string& compiler);

} // namespace sample
