#include "names.h"

#include "explain.h"

#include <unordered_set>
#include <vector>

namespace morv {

namespace {

// A word may hold points: a fact may be told with its system, "steam.Pressure".
bool IsOfName(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

} // namespace

std::string SmallLetters(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string MeantName(const std::string& typed) {
    const std::string small = SmallLetters(typed);
    std::string meant = typed;
    for (const std::string& name : Names()) {
        if (name == typed)
            return typed;
        if (meant == typed && SmallLetters(name) == small)
            meant = name;
    }
    return meant;
}

std::string NameIn(const std::string& line) {
    const std::vector<std::string> all = Names();
    const std::unordered_set<std::string> names(all.begin(), all.end());
    for (std::size_t at = 0; at < line.size(); ++at) {
        const std::size_t first = at;
        while (at < line.size() && IsOfName(line[at]))
            ++at;
        const std::string word = line.substr(first, at - first);
        if (names.count(word) > 0)
            return word;
    }
    return {};
}

} // namespace morv
