// The paths inside projects are Windows paths. Where there are no drives, folders stand for them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

struct Drive {
    char letter; // a capital
    std::string folder;
};

// What "C=FOLDER" says; nothing when it says no such thing or there is no such folder.
std::optional<Drive> DriveIn(std::string_view text);

// From now on the file layer finds the files of these drives, whatever the case of their letters.
// Z: is the root unless it is named; C: is the folder drive_c that one of `hosts` lies in, the
// first that does, unless it is named. On Windows drives are what they are.
void UseDrives(std::vector<Drive> drives, const std::vector<std::string>& hosts);

// Thrown for a path that stands for none inside projects, and why.
struct WrongPath {
    std::string host;
    std::string reason;
};

// A path as the host gives it, as one inside projects: on the drive whose folder it lies deepest
// in. Throws WrongPath when it has letters that are not in the code page.
std::string ProjectPath(const std::string& host);

// The way back, to be shown, as UTF-8: seen from the current folder when it lies in there.
std::string HostText(const std::string& path);

// The same from the root, with '/' throughout.
std::string FullHostText(const std::string& path);

// The names of what a folder holds that end with `extension`, in whatever case, in their order;
// `folder` is a project path. Throws WrongPath as ProjectPath does.
std::vector<std::string> NamesIn(const std::string& folder, std::string_view extension);

} // namespace console
