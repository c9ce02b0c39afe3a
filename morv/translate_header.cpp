#include "translate_header.h"

#include "language/generated_lines.h"
#include "language/system_text.h"

#include <algorithm>
#include <iterator>

namespace morv {

namespace {

// The header of the project's own that a line includes; empty when it includes none. What such a
// header defines is not known.
std::string OwnInclude(const std::string& line) {
    static const char* const known[] = {"consts.h", "shell.h", "datafact.h", "dfactres.h",
                                        "inf_eng.h"};
    const std::size_t quote = line.find('"');
    if (line.find("#include") == std::string::npos || quote == std::string::npos)
        return "";
    const std::string name = line.substr(quote + 1, line.rfind('"') - quote - 1);
    const bool of_runtime = std::find(std::begin(known), std::end(known), name) != std::end(known);
    return of_runtime ? "" : name;
}

} // namespace

RulesHeader::RulesHeader(const std::string& text) {
    const std::vector<std::string> lines = LinesOf(text);
    const auto heading = std::find(lines.rbegin(), lines.rend(), "DATAFACTRESULT");
    const auto from = heading == lines.rend() ? lines.end() : heading.base() - 1;
    for (auto line = lines.begin(); line != from; ++line) {
        shared += *line + "\n";
        if (const std::string own = OwnInclude(*line); !own.empty())
            own_include = own;
    }
    std::string declaration;
    auto line = from == lines.end() ? from : from + 1;
    for (; line != lines.end() && !line->starts_with('#'); ++line)
        declaration += *line + "\n";
    for (; line != lines.end(); ++line)
        shared += *line + "\n";
    results = NamesIn(declaration);
}

} // namespace morv
