// Names made from the path of a document. What follows the path's first '.' never counts, be it
// an extension or the rest of a folder: existing projects have their side files named so.
#pragma once

#include <string>
#include <string_view>

// `path` before its first '.', or all of it.
std::string CutAtDot(std::string_view path);

// CutAtDot(path) + `extension` (which has its dot).
std::string WithExtension(std::string_view path, std::string_view extension);

// CutAtDot(path) without its folder: "C:\work\a.mrv" gives "a", or "\a" with `keep_backslash`.
std::string Stem(std::string_view path, bool keep_backslash = false);

// The folder of CutAtDot(path), without a last '\'; empty when it has none.
std::string FolderOf(std::string_view path);
