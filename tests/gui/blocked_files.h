// Files that the program must leave alone, and things that only look like files.
#pragma once

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/places.h"

#include <string>
#include <windows.h>

namespace gui {

// While it lives, the file is marked read-only.
class ReadOnlyFile {
public:
    explicit ReadOnlyFile(const std::string& path) : path_(path) {
        if (!SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_READONLY))
            Fail("cannot mark " + path_);
    }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;
    ~ReadOnlyFile() { SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_NORMAL); }

private:
    std::string path_;
};

// Puts a folder where a file is or would be.
inline void PutFolder(const std::string& path) {
    DeleteFileA(path.c_str());
    MakeFolders(path);
}

} // namespace gui
