// The headers that a project's own sources include.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace morv {

struct Included {
    std::string text; // of all of them
    bool all = true;  // whether each one named in quotes was found
};

// Reads the headers that `text` includes, and those that they include, from `folders`. What stands
// in none of them and is named in angle brackets is the compiler's; the runtime's own are left out.
Included ReadIncluded(const std::string& text, const std::vector<std::filesystem::path>& folders);

} // namespace morv
