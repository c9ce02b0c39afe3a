// Files that are written together: all of them, or none.
#pragma once

#include "console/form/report.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace console {

class FileSet {
public:
    void Add(const std::string& path, std::string bytes);

    // The first of these files that is there already.
    std::optional<std::string> FirstThere() const;

    // Whether one of them is this file, also by another path.
    bool Holds(const std::string& path) const;

    // Writes the files, with the folders that they need. On a failure those written before it are
    // as they were, and the failure was said; returns whether all was well.
    bool Write(const Report& report) const;

private:
    std::map<std::string, std::string> files_; // by project path
};

// The files of these paths as they are, to be put back.
class Kept {
public:
    // Returns false when what is there cannot be read, so that it could not be put back.
    bool Keep(const std::string& path);
    void PutBack() const;

private:
    std::map<std::string, std::pair<bool, std::string>>
        files_; // whether it is there, and its bytes
};

} // namespace console
