// The names of a project, and what is wrong with them, said before a compiler sees them.
#pragma once

#include <string>
#include <vector>

namespace morv {

struct Name {
    std::string text;
    std::string place; // "file:line"; may be empty
};

struct SystemNames {
    Name name;
    std::vector<Name> facts;
    std::vector<Name> variables; // "count", "*next", "table[10]"
    // All other text of the system: initial values, opposites, header, rules.
    std::string text;
    std::string file;   // where that text stands,
    int first_line = 1; // from this line on
};

struct ProjectNames {
    std::vector<SystemNames> systems;
    std::vector<Name> results;
    std::vector<Name> items;
    // Everything else that may declare something: extern files, the main file, headers. A word that
    // stands here is never called undeclared.
    std::string others;
    bool others_are_all = true; // otherwise no name is called undeclared
};

struct NameFault {
    std::string place; // "file:line"
    std::string where; // "steam", or empty
    std::string text;  // "the fact class is a keyword of C++"
};

// What a declaration like "*next" or "table[10]" names.
std::string DeclaredName(const std::string& declarator);

// Finds names that are no names of C++ or mean something else in rules, names that are there twice,
// results called like a certainty, and facts and results that a rule uses and nobody declares. What
// may be sound is left to the compiler.
std::vector<NameFault> CheckNames(const ProjectNames& project);

// The names in the files that Zentrik generates: the rules source `source` with its name
// `source_file`, the rules header, and "ddecom.cpp". `headers` are the texts of the headers that
// the extern files include.
ProjectNames ReadNames(const std::string& source, const std::string& source_file,
                       const std::string& header, const std::string& header_file,
                       const std::string& dde, const std::string& headers);

} // namespace morv
