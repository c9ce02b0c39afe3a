// What a build compiles.
#pragma once

#include "translate.h"
#include "zkcc_cache.h"
#include "zkcc_tools.h"
#include "zkcc_workplace.h"

#include <filesystem>
#include <string>
#include <vector>

namespace morv {

// A file to be compiled.
struct Unit {
    std::string made;   // in the cache
    std::string source; // as the command names it
    std::filesystem::path tool, folder;
    std::vector<std::string> options;        // all but source and target
    std::string text;                        // of the source, where only the text counts
    std::vector<std::filesystem::path> from; // what it is made from, for a tool that does not tell
    bool precompiled = false;                // made with the precompiled header
    std::string key;
    Kept kept;

    bool IsResource() const { return !from.empty(); }
    bool IsHeader() const;
};

// The resource script and what it names of its folder.
std::vector<std::filesystem::path> ResourceFiles(const Job& job);

// The precompiled header comes first, and what is linked in its order.
std::vector<Unit> ListUnits(Workplace& place, const Tools& tools, const Translation& translation);

} // namespace morv
