#include "console/file_set.h"

#include "shell/core/files.h"

#include <utility>

namespace console {

namespace {

// Makes the folders above a file.
void MakeFolders(const std::string& path) {
    const std::size_t slash = path.rfind('\\');
    if (slash == path.npos || slash == 0 || path[slash - 1] == ':')
        return;
    const std::string folder = path.substr(0, slash);
    if (files::Exists(folder.c_str()))
        return;
    MakeFolders(folder);
    files::MakeFolder(folder.c_str());
}

} // namespace

void FileSet::Add(const std::string& path, std::string bytes) {
    files_.insert_or_assign(path, std::move(bytes));
}

bool FileSet::Write(const Report& report) const {
    Kept kept;
    for (const auto& [path, bytes] : files_) {
        kept.Keep(path);
        MakeFolders(path);
        if (files::ReplaceWhole(path.c_str(), bytes))
            continue;
        report.Stop(path, LastReason());
        kept.PutBack();
        return false;
    }
    return true;
}

void Kept::Keep(const std::string& path) {
    std::string bytes;
    const bool there = files::ReadWhole(path.c_str(), files::Mode::Read, bytes);
    files_.try_emplace(path, there, std::move(bytes));
}

void Kept::PutBack() const {
    for (const auto& [path, content] : files_) {
        if (content.first)
            files::ReplaceWhole(path.c_str(), content.second);
        else
            files::Remove(path.c_str());
    }
}

} // namespace console
