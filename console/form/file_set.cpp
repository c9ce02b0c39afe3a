#include "console/form/file_set.h"

#include "shell/core/files.h"
#include "shell/core/replacement.h"

#include <algorithm>
#include <utility>

namespace console {

namespace {

// Makes the folders above a file; those that were not there are added to `made`.
void MakeFolders(const std::string& path, std::vector<std::string>& made) {
    const std::size_t slash = path.rfind('\\');
    if (slash == path.npos || slash == 0 || path[slash - 1] == ':')
        return;
    const std::string folder = path.substr(0, slash);
    if (files::Exists(folder.c_str()))
        return;
    MakeFolders(folder, made);
    if (files::MakeFolder(folder.c_str()))
        made.push_back(folder);
}

} // namespace

void FileSet::Add(const std::string& path, std::string bytes) {
    files_.insert_or_assign(path, std::move(bytes));
}

std::optional<std::string> FileSet::FirstThere() const {
    for (const auto& [path, bytes] : files_)
        if (files::Exists(path.c_str()))
            return path;
    return std::nullopt;
}

bool FileSet::Holds(const std::string& path) const {
    return std::any_of(files_.begin(), files_.end(), [&](const auto& file) {
        return files::SameFile(file.first.c_str(), path.c_str());
    });
}

bool FileSet::Write(const Report& report) const {
    files::Replacement replacement;
    std::vector<std::string> made;
    for (const auto& [path, bytes] : files_) {
        MakeFolders(path, made);
        replacement.Put(path, bytes, files::Before::Dropped);
    }
    if (replacement.CarryOut())
        return true;
    report.Stop(replacement.Failed(), LastReason());
    for (; !made.empty(); made.pop_back())
        files::RemoveFolder(made.back().c_str());
    return false;
}

bool Kept::Keep(const std::string& path) {
    std::string bytes;
    const bool there = files::ReadWhole(path.c_str(), files::Mode::Read, bytes);
    if (!there && !IsNotThere(path))
        return false;
    files_.try_emplace(path, there, std::move(bytes));
    return true;
}

// What was not there goes first, which makes room for the rest.
void Kept::PutBack() const {
    for (const auto& [path, content] : files_)
        if (!content.first)
            files::Remove(path.c_str());
    for (const auto& [path, content] : files_)
        if (content.first)
            files::ReplaceWhole(path.c_str(), content.second);
}

} // namespace console
