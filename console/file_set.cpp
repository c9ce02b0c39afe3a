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

// A rename would also replace a file that is marked read-only, so ask for write access first.
bool MayReplace(const std::string& path) {
    if (!files::Exists(path.c_str()))
        return true;
    const int han = files::Open(path.c_str(), files::Mode::Update);
    return han != -1 && files::Close(han);
}

std::string FreeNameBeside(const std::string& path) {
    std::string name = path + ".new~";
    for (int number = 1; files::Exists(name.c_str()); ++number)
        name = path + ".new~" + std::to_string(number);
    return name;
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

// The new files are written beside the old ones first: when the disk is full, nothing has changed
// yet, and names change hands without room.
bool FileSet::Write(const Report& report) const {
    std::map<std::string, std::string> beside; // by the path it is for
    const auto stop = [&](const std::string& path) {
        report.Stop(path, LastReason());
        for (const auto& [target, name] : beside)
            files::Remove(name.c_str());
        return false;
    };
    for (const auto& [path, bytes] : files_) {
        MakeFolders(path);
        if (!MayReplace(path))
            return stop(path);
        const std::string name = FreeNameBeside(path);
        if (!files::ReplaceWhole(name.c_str(), bytes))
            return stop(path);
        beside.emplace(path, name);
    }
    Kept kept;
    for (const auto& [path, name] : beside) {
        kept.Keep(path);
        if (files::RenameOver(name.c_str(), path.c_str()))
            continue;
        stop(path);
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
