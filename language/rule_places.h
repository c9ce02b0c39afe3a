// Where in the rules a line of the generated source stands.
#pragma once

#include <string>
#include <vector>

namespace morv {

class RulePlaces {
public:
    // Reads a generated rules source.
    explicit RulePlaces(const std::string& source);

    // The place of line `line` as users call it: "steam, rule 3, line 12" with the line counted
    // from that of "Rule"; "steam" outside its rules; "main, line 2"; empty elsewhere.
    std::string At(int line) const;

private:
    struct Start {
        int line;         // from here on
        std::string name; // up to the number of a line, or the whole place when `counts` is not set
        bool counts;
    };

    void ReadSystem(const std::vector<std::string>& lines, std::size_t first, std::size_t end,
                    const std::string& system);

    std::vector<Start> starts_; // in the order of their lines
};

} // namespace morv
