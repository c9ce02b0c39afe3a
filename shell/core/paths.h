// Names made from the path of a document. What follows the path's first '.' never counts, be it
// an extension or the rest of a folder: existing projects have their side files named so.
#pragma once

#include <string>
#include <string_view>

// `path` before its first '.', or all of it.
std::string CutAtDot(std::string_view path);

// CutAtDot(path) + `extension` (which has its dot).
std::string WithExtension(std::string_view path, std::string_view extension);

// What stands between the last '\' before the first '.' and that '.'; with `keep_backslash` the
// '\' is part of it. Without a '\' it starts at the beginning. "C:\work\a.mrv" gives "a" or "\a".
std::string Stem(std::string_view path, bool keep_backslash = false);

// `path` before the last '\' that stands before its first '.'; empty without one.
std::string FolderOf(std::string_view path);
