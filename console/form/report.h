// What a command says and how it ends.
#pragma once

#include <ostream>
#include <string>

namespace console {

enum ExitCode : int {
    kNothingFound = 0,
    kFound = 1,
    kStopped = 2, // wrong use, or a file that cannot be read or written
};

struct Report {
    std::ostream& out;
    std::ostream& err;

    // Says in the one line of the error output what stopped the command. `file` is a project path.
    // Returns kStopped.
    int Stop(const std::string& file, const std::string& reason) const;
};

// Why the last call of the file layer failed.
std::string LastReason();

// Whether that was because there is no file of this path.
bool IsNotThere(const std::string& path);

// `text` on one line: every control character is a blank.
std::string OneLine(std::string text);

} // namespace console
