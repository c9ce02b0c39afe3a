// The sample project and the starter runtime, written as the console program's import writes them.
#pragma once

#include "console/form/import.h"
#include "console/form/work_folder.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace zentrik_test {

// A path of the sources as the import takes it.
inline std::string SourcePath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// Writes the sample of the sources in `top` with its runtime to the work folder `work`, whatever is
// there; its tools file names `utility`. Returns an empty text, or what went wrong.
inline std::string PutSample(const std::string& work, const std::string& utility = "",
                             const std::string& top = SOURCE_FOLDER) {
    console::ImportOptions options;
    options.source = SourcePath(top + "/examples/boiler");
    options.work = work;
    options.replace = true;
    options.morv = SourcePath(top + "/morv");
    options.utility = utility;
    std::ostringstream out, err;
    console::Import(options, {out, err});
    return err.str();
}

// Writes the runtime alone, to work\morv.
inline std::string PutRuntime(const std::string& work) {
    std::ostringstream out, err;
    const console::Report report{out, err};
    console::FileSet written;
    const console::WorkFolder folder{work, SourcePath(SOURCE_FOLDER "/morv"), ""};
    if (AddRuntime(folder, report, written) == console::kNothingFound)
        written.Write(report);
    return err.str();
}

} // namespace zentrik_test
