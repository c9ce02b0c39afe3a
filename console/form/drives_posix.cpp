#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "shell/core/files.h"

#include <algorithm>
#include <climits>
#include <dirent.h>
#include <filesystem>
#include <unistd.h>

namespace console {

namespace {

namespace fs = std::filesystem;

std::vector<Drive> g_drives;

// An absolute path without "." and "..", and without a last '/'.
std::string Plain(const std::string& host) {
    std::error_code ignored;
    std::string plain = fs::absolute(host, ignored).lexically_normal().string();
    while (plain.size() > 1 && plain.back() == '/')
        plain.pop_back();
    return plain;
}

char Capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

const Drive* DriveOf(char letter) {
    const auto found = std::find_if(g_drives.begin(), g_drives.end(), [&](const Drive& drive) {
        return drive.letter == Capital(letter);
    });
    return found == g_drives.end() ? nullptr : &*found;
}

bool Exists(const std::string& local) {
    return access(local.c_str(), F_OK) == 0;
}

// Whether two names that begin so may be the same but for the case of their letters. Most names are
// told apart without a look at their letters beyond ASCII.
bool MayBeSame(char there, char wanted) {
    const auto is_ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    return !is_ascii(there) || !is_ascii(wanted) || Capital(there) == Capital(wanted);
}

// How the folder spells `name` (in the code page), in whatever case; as it is when it has no such
// file.
std::string SpeltIn(const std::string& folder, const std::string& name) {
    const std::string utf8 = ToUtf8(name);
    DIR* const dir = opendir(folder.empty() ? "." : folder.c_str());
    if (!dir)
        return utf8;
    const std::string wanted = Folded(name);
    std::string found = utf8;
    while (const dirent* entry = readdir(dir)) {
        if (!MayBeSame(entry->d_name[0], name[0]))
            continue;
        const std::optional<std::string> there = FromUtf8(entry->d_name);
        // Of several the first in order, so that every run takes the same.
        if (there && Folded(*there) == wanted && (found == utf8 || entry->d_name < found))
            found = entry->d_name;
    }
    closedir(dir);
    return found;
}

// Where `rest`, names between '/', is below `local`. Most files are there as they are spelt; for
// another one, or a new one, its folder is looked for in the same way.
std::string Below(const std::string& local, std::string_view rest) {
    const std::string straight = local + ToUtf8(rest);
    if (rest.empty() || straight.size() > PATH_MAX || Exists(straight))
        return straight;
    const std::size_t name = rest.rfind('/') + 1;
    const std::string folder = name == 0 ? local : Below(local, rest.substr(0, name - 1)) + '/';
    return name == rest.size() ? folder : folder + SpeltIn(folder, std::string(rest.substr(name)));
}

// Whether a path without a drive is one of the host itself, where a link led to: in UTF-8 already.
bool IsOfHost(const std::string& path) {
    return path.starts_with('/') && ToUtf8(path) != path && AsUtf8(path) == path;
}

std::string LocalName(const char* path) {
    std::string local = path;
    std::replace(local.begin(), local.end(), '\\', '/');
    if (local.size() < 2 || local[1] != ':')
        return IsOfHost(local) ? local : Below("", local);
    const Drive* const drive = DriveOf(local[0]);
    if (!drive)
        return local; // there is no such file
    const std::string folder = drive->folder == "/" ? "" : drive->folder;
    local.erase(0, 2);
    if (local.empty() || local[0] != '/')
        local.insert(local.begin(), '/');
    return Below(folder, local);
}

// `name` as projects have it; `host` is the path that it is of.
std::string InCodePage(const std::string& name, const std::string& host) {
    std::optional<std::string> bytes = FromUtf8(name);
    if (!bytes)
        throw WrongPath{host,
                        "projects cannot name it: it has letters that are not in Windows-1252"};
    return *std::move(bytes);
}

bool LiesIn(const std::string& path, const std::string& folder) {
    return folder == "/" || path == folder || path.starts_with(folder + '/');
}

// The folder drive_c of the Wine prefix that `path` lies in; empty without one.
std::string DriveCOf(const std::string& path) {
    const std::string with_end = path + '/';
    const std::size_t at = with_end.rfind("/drive_c/");
    return at == with_end.npos ? "" : with_end.substr(0, at + 8);
}

} // namespace

std::optional<Drive> DriveIn(std::string_view text) {
    if (text.size() < 3 || text[1] != '=' || Capital(text[0]) < 'A' || Capital(text[0]) > 'Z')
        return std::nullopt;
    Drive drive{Capital(text[0]), Plain(std::string(text.substr(2)))};
    std::error_code ignored;
    if (!fs::is_directory(drive.folder, ignored))
        return std::nullopt;
    return drive;
}

void UseDrives(std::vector<Drive> drives, const std::vector<std::string>& hosts) {
    g_drives = std::move(drives);
    for (const std::string& host : hosts) {
        const std::string drive_c = DriveCOf(Plain(host));
        if (!drive_c.empty() && !DriveOf('C'))
            g_drives.push_back({'C', drive_c});
    }
    if (!DriveOf('Z'))
        g_drives.push_back({'Z', "/"});
    files::SetPathMap(LocalName);
}

std::string ProjectPath(const std::string& host) {
    const std::string plain = Plain(host);
    const Drive* best = nullptr;
    for (const Drive& drive : g_drives)
        if (LiesIn(plain, drive.folder) && (!best || drive.folder.size() > best->folder.size()))
            best = &drive;
    const std::string rest = !best                 ? plain
                             : best->folder == "/" ? plain
                                                   : plain.substr(best->folder.size());
    std::string path = InCodePage(rest, host);
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.empty())
        path += '\\';
    return best ? std::string{best->letter, ':'} + path : path;
}

std::vector<std::string> NamesIn(const std::string& folder, std::string_view extension) {
    const std::string local = LocalName(folder.c_str());
    std::vector<std::string> there, names;
    DIR* const dir = opendir(local.c_str());
    if (!dir)
        return names;
    while (const dirent* entry = readdir(dir))
        if (Folded(entry->d_name).ends_with(extension))
            there.emplace_back(entry->d_name);
    closedir(dir);
    for (const std::string& name : there)
        names.push_back(InCodePage(name, local + "/" + name));
    std::sort(names.begin(), names.end());
    return names;
}

std::string FullHostText(const std::string& path) {
    return Plain(LocalName(path.c_str()));
}

std::string HostText(const std::string& path) {
    if (path.size() > 1 && path[1] == ':' && !DriveOf(path[0]))
        return ToUtf8(path); // a drive that is nowhere
    const std::string full = FullHostText(path);
    std::error_code failed;
    const std::string here = fs::current_path(failed).string();
    const bool inside = !failed && here != "/" && full != here && LiesIn(full, here);
    return AsUtf8(inside ? full.substr(here.size() + 1) : full);
}

} // namespace console
