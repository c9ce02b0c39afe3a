#include "language/rule_places.h"

#include "language/generated_lines.h"
#include "language/tokens.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace morv {

namespace {

constexpr char kMain[] = "//////////      MORV  Main       ////////////";
constexpr std::size_t kLinesToMain = 4; // the frame's end, the function's head, its brace

} // namespace

RulePlaces::RulePlaces(const std::string& source) {
    const std::vector<std::string> lines = LinesOf(source);
    std::map<std::string, std::string> systems;
    starts_.push_back({1, "", false});
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const auto number = static_cast<int>(at) + 1;
        if (IsSystemDeclaration(lines[at])) {
            const SystemDeclaration system = ReadSystemDeclaration(lines[at]);
            systems[system.engine] = system.name;
        } else if (IsBegin(lines[at])) {
            const auto from = lines.begin() + static_cast<std::ptrdiff_t>(at) + 1;
            const auto end = static_cast<std::size_t>(
                std::distance(lines.begin(), std::find(from, lines.end(), kEndSystem)));
            ReadSystem(lines, at, end, systems[EngineOfBegin(lines[at])]);
            starts_.push_back({static_cast<int>(end) + 1, "", false});
            at = end;
        } else if (lines[at] == kMain) {
            starts_.push_back({number + static_cast<int>(kLinesToMain), "main", true});
        }
    }
}

void RulePlaces::ReadSystem(const std::vector<std::string>& lines, std::size_t first,
                            std::size_t end, const std::string& system) {
    std::string text;
    for (std::size_t at = first; at < end; ++at)
        text += lines[at] + "\n";
    starts_.push_back({static_cast<int>(first) + 1, system, false});
    const std::vector<Token> tokens = Tokens(text);
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].kind != Token::Word)
            continue;
        const int line = static_cast<int>(first) + tokens[at].line;
        if (tokens[at].text == "Rule" && at + 2 < tokens.size() && IsNumber(tokens[at + 2].text))
            starts_.push_back({line, system + ", rule " + tokens[at + 2].text, true});
        else if (tokens[at].text == "EndRule")
            starts_.push_back({line + 1, system, false});
    }
}

std::string RulePlaces::At(int line) const {
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), line,
                                        [](int l, const Start& start) { return l < start.line; });
    if (after == starts_.begin())
        return "";
    const Start& start = *std::prev(after);
    return start.counts ? start.name + ", line " + std::to_string(line - start.line + 1)
                        : start.name;
}

} // namespace morv
