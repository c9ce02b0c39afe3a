// Turns a generated rules source into C++ that compiles against the runtime.
#pragma once

#include <string>
#include <vector>

namespace morv {

struct Translation {
    std::string text;
    std::vector<std::string> errors; // "file:line: what is wrong"; empty when all went well
};

// Translates `source`, the content of the file `name`, whose first include line names the rules
// header with the content `header`. Between each Begin line and its EndSystem the block words
// become C++; everything else stays as it is. Compilers report the lines of `name`.
Translation Translate(const std::string& source, const std::string& name,
                      const std::string& header);

} // namespace morv
