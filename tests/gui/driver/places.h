// Where the driver finds the program and leaves things. Each has an environment variable and,
// without it, a place worked out from the path of the running test program
// (out/<preset>/tests/x.exe).
#pragma once

#include <string>
#include <string_view>

namespace gui {

std::string BinFolder();    // ZENTRIK_BIN: the folder of zentrik.exe
std::string SourceFolder(); // ZENTRIK_SOURCE: the checkout
std::string OutFolder();    // ZENTRIK_OUT: for screenshots and the like
std::string OwnFolder();    // the folder of the running program

// Whole files by their Windows paths. ReadFile of a missing one is an empty text.
std::string FileContent(const std::string& path);
void PutFile(const std::string& path, std::string_view content);
bool FileExists(const std::string& path);
void CopyTo(const std::string& from, const std::string& to);
void MakeFolders(const std::string& path);

// While it lives, nobody else can write the file.
class LockedFile {
public:
    explicit LockedFile(const std::string& path);
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile();

private:
    void* handle_;
};

// A fresh folder below C:\t that is removed, with all in it, at the end. No '.' stands in its path,
// for the program cuts paths at their first one.
class WorkFolder {
public:
    WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder();

    const std::string& Folder() const { return folder_; }
    std::string Path(const std::string& name) const { return folder_ + "\\" + name; }

private:
    std::string folder_;
};

} // namespace gui
