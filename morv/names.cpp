#include "names.h"

#include "explain.h"

#include <unordered_set>
#include <vector>

namespace morv {

namespace {

void SkipWord(const std::string& line, std::size_t& at) {
    while (at < line.size() && IsOfName(line[at]))
        ++at;
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

// A fact may be told with its system, as "steam.Pressure".
std::string NameIn(const std::string& line) {
    const std::vector<std::string> all = Names();
    const std::unordered_set<std::string> names(all.begin(), all.end());
    for (std::size_t at = 0; at < line.size(); ++at) {
        const std::size_t first = at;
        SkipWord(line, at);
        const std::size_t end = at;
        if (at < line.size() && line[at] == '.')
            SkipWord(line, ++at);
        for (const std::string& word :
             {line.substr(first, at - first), line.substr(first, end - first)})
            if (names.count(word) > 0)
                return word;
        at = end;
    }
    return {};
}

} // namespace morv
