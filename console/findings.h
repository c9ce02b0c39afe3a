// What `check` lists, and the forms it is printed in.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace console {

struct Finding {
    std::string file; // a project path
    int line = 0;     // from 1; 0 in a file that has no lines
    int column = 0;   // from 1
    int rule = 0;     // from 1; 0 when it is about no rule
    bool warning = false;
    const char* id = "";
    std::string text; // in the code page
};

enum class Format { Text, Json, Sarif };

void Print(const std::vector<Finding>& findings, Format format, std::ostream& out);

// Where in a text an offset lies. Lines end at LF.
class Lines {
public:
    explicit Lines(std::string_view text);

    // Puts line and column of `offset` into `finding`.
    void Locate(std::size_t offset, Finding& finding) const;

private:
    std::vector<std::size_t> starts_;
};

} // namespace console
