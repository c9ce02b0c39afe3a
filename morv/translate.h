// Turns a generated rules source into C++ that compiles against the runtime.
#pragma once

#include <string>
#include <vector>

namespace morv {

// A file of C++.
struct Piece {
    std::string name; // without a folder
    std::string text;
};

// Where a name that stands in a #line of the pieces comes from. A line n that a compiler tells of
// the file `label` is line `line` + n - 1 of the rules source. A label without a place is a file.
struct Place {
    std::string label;
    int line;
    std::string system, rule, title; // empty outside systems and rules; the title of a rule may be
};

struct Translation {
    std::vector<Piece> headers;      // written beside the sources, which include them by name
    std::vector<Piece> sources;      // each is compiled to an object of its own, in any order
    std::vector<Place> places;       // of all labels
    std::vector<std::string> errors; // "file:line: what is wrong"; empty when all went well
    std::vector<std::string> notes;  // for the log, such as why a system is built whole
};

// Translates `source`, the content of the file `name`, whose first include line names the rules
// header with the content `header`. Between each Begin line and its EndSystem the block words
// become C++; everything else stays as it is. The text of a source changes only when what it
// holds does: not when something before it gets another line.
Translation Translate(const std::string& source, const std::string& name,
                      const std::string& header);

} // namespace morv
