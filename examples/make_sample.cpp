// Writes the sample project as a work folder for Zentrik:
//     make_sample [--root <folder>] <source folder> <work folder> [compiler command]
// --root is there on hosts without drives: drive C: is its subfolder "c".
#include "examples/sample_writer.h"
#include "shell/core/files.h"

#include <cstdio>
#include <string>
#include <vector>

int main(int count, char** words) {
    std::vector<std::string> arguments(words + 1, words + count);
#ifndef _WIN32
    if (arguments.size() >= 2 && arguments[0] == "--root") {
        files::SetDriveRoot(arguments[1]);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
#endif
    if (arguments.size() != 2 && arguments.size() != 3) {
        std::fputs("make_sample [--root <folder>] <source folder> <work folder> [compiler]\n",
                   stderr);
        return 2;
    }
    const std::string wrong =
        sample::WriteSample(arguments[0], arguments[1], arguments.size() == 3 ? arguments[2] : "");
    if (!wrong.empty()) {
        std::fprintf(stderr, "make_sample: %s\n", wrong.c_str());
        return 1;
    }
    return 0;
}
