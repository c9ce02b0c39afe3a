#include "console/form/code_page.h"
#include "console/form/drives.h"

#include <algorithm>
#include <windows.h>

namespace console {

std::optional<Drive> DriveIn(std::string_view) {
    return std::nullopt;
}

void UseDrives(std::vector<Drive>, const std::vector<std::string>&) {}

std::string ProjectPath(const std::string& host) {
    const DWORD size = GetFullPathNameA(host.c_str(), 0, nullptr, nullptr);
    std::string path(size, '\0');
    path.resize(GetFullPathNameA(host.c_str(), size, path.data(), nullptr));
    return path.empty() ? host : path;
}

std::vector<std::string> NamesIn(const std::string& folder, std::string_view extension) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do
        if (Folded(found.cFileName).ends_with(extension))
            names.emplace_back(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

std::string HostText(const std::string& path) {
    return ToUtf8(path);
}

std::string FullHostText(const std::string& path) {
    std::string full = ToUtf8(ProjectPath(path));
    std::replace(full.begin(), full.end(), '\\', '/');
    return full;
}

} // namespace console
