// Writes the sample project as a work folder for Zentrik:
//     make_sample [--root <folder>] [--replace] <source folder> <work folder> [compiler command]
// A folder that is a work folder already stays as it is; with --replace its runtime is brought up
// to date, and its projects and tools stay. --root is there on hosts without drives: drive C: is
// its subfolder "c".
#include "examples/sample_writer.h"
#include "shell/core/files.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

// Takes a word out of the arguments; returns whether it was there.
bool Take(std::vector<std::string>& arguments, const char* word) {
    const auto found = std::find(arguments.begin(), arguments.end(), word);
    const bool there = found != arguments.end();
    if (there)
        arguments.erase(found);
    return there;
}

std::string Write(const std::vector<std::string>& arguments, bool replace) {
    const std::string &source = arguments[0], &work = arguments[1];
    if (!sample::IsWorkFolder(work))
        return sample::WriteSample(source, work, arguments.size() == 3 ? arguments[2] : "");
    if (replace)
        return sample::UpdateRuntime(source, work);
    return work + " is a work folder already; --replace brings its runtime up to date and leaves "
                  "its projects alone";
}

} // namespace

int main(int count, char** words) {
    std::vector<std::string> arguments(words + 1, words + count);
#ifndef _WIN32
    if (arguments.size() >= 2 && arguments[0] == "--root") {
        files::SetDriveRoot(arguments[1]);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
#endif
    const bool replace = Take(arguments, "--replace");
    if (arguments.size() != 2 && arguments.size() != 3) {
        std::fputs("make_sample [--root <folder>] [--replace] <source folder> <work folder> "
                   "[compiler]\n",
                   stderr);
        return 2;
    }
    const std::string wrong = Write(arguments, replace);
    if (!wrong.empty()) {
        std::fprintf(stderr, "make_sample: %s\n", wrong.c_str());
        return 1;
    }
    return 0;
}
