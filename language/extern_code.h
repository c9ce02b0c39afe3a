// The code of a project's extern files, for sources of their own that call it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace morv {

struct ExternCode {
    std::string declarations; // of what the code defines; types and macros as they are
    std::string code;         // as it stands, but without the static that hides from other sources
    std::map<std::string, std::set<std::string>> macros; // with the words in each
    std::set<std::string> hidden; // words of what cannot be declared apart from its definition
    bool unclear = false;         // nothing can be said of this code
};

// Reads C++ at file scope. What it is not sure of is hidden.
ExternCode ReadExternCode(const std::string& text);

// Whether the word belongs to C++.
bool IsKeyword(const std::string& word);

} // namespace morv
