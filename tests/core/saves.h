// Every kind of save, over files that are whole before: what it may leave behind whatever happens.
#pragma once

#include "core_test.h"

#include <functional>
#include <map>

namespace zentrik_test {

// File names and contents; a name without a content is a file that is not there.
using Contents = std::map<std::string, std::optional<std::string>>;

struct Save {
    std::string name;
    Contents before;
    Contents after;
    std::function<bool(const TempFolder&)> run;
    // A failure leaves all files as they were, or one of them may be new already.
    bool all_or_nothing = true;
};

std::vector<Save> AllSaves();

void PutAll(const TempFolder& temp, const Contents& contents);
Contents ContentsOf(const TempFolder& temp, const Contents& names);

// Fails unless each of the files is as before the save or as after it.
void ExpectOldOrNew(const Save& save, const Contents& found);

} // namespace zentrik_test
