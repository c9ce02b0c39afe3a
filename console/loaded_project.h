// A project with everything that its files name, read for a command that looks at all of it.
#pragma once

#include "project/core/project_file.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "system/core/rule_index.h"
#include "system/core/system_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

// A file that is named somewhere.
struct NamedFile {
    std::string path; // empty: none is named
    bool found = false;
    std::string bytes;

    bool Missing() const { return !path.empty() && !found; }
};

NamedFile Load(const std::string& path);

struct LoadedSystem {
    std::string path;
    SystemFile file;
    NamedFile types, rules, index, header, variables, initial, base;
};

struct LoadedProject {
    std::string path;
    ProjectFile file;
    NamedFile main, dde, chosen; // `chosen` is the auxiliary results file
    std::vector<NamedFile> externs;
    std::vector<NamedFile> results;
    std::vector<LoadedSystem> systems; // those whose files can be read

    // The first file that cannot be read at all, and why: nothing else holds then.
    std::string unreadable;
    std::string reason;
    // The first file that is damaged and what is wrong with it.
    std::string damaged;
    std::string wrong;
};

// Reads a project. What cannot be read or is damaged is named in the result.
LoadedProject LoadProject(const std::string& path);

} // namespace console
