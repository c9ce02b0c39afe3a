// Writes a sample project as the work folder that Zentrik opens, and the starter runtime.
#pragma once

#include <string>

namespace sample {

// Writes the project whose source stands in `folder` (X\X.txt for a folder named X, with the files
// it names; the runtime stands two folders up, in "morv") to the work folder `work`, an absolute
// path without a '.' that need not exist. The tools file there names `compiler`; when that is empty,
// the utility that was copied with the runtime, if one was. The same source gives the same bytes. A rules file whose rules are not numbered and closed
// is refused. Returns an empty text, or what went wrong.
std::string WriteSample(const std::string& folder, const std::string& work,
                        const std::string& compiler);

// Whether `work` is a work folder already, with a tools file.
bool IsWorkFolder(const std::string& work);

// Writes the runtime that belongs to the source in `folder` to a work folder that is there already,
// and leaves everything else in it alone. Returns an empty text, or what went wrong.
std::string UpdateRuntime(const std::string& folder, const std::string& work);

// Writes the starter runtime, which stands in the folder `from`, to the folder `to`, as a site would
// install it: the templates, the sources that a project is compiled with, and the compiler utility
// for Windows where `from` has it. Returns an empty text, or what went wrong.
std::string WriteRuntime(const std::string& from, const std::string& to);

} // namespace sample
