#include "console/form/sections.h"

#include <algorithm>
#include <optional>
#include <set>

namespace console {

namespace {

bool HasSettings(const std::string& kind) {
    return kind == "project" || kind == "system" || kind == "dde" || kind == "files";
}

// What stands before the '=' of a setting; nothing for a row.
std::optional<std::string> KeyOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == line.npos)
        return std::nullopt;
    const std::string_view key = Trimmed(line.substr(0, equals));
    const auto in_key = [](char c) { return (c >= 'a' && c <= 'z') || c == ' '; };
    return !key.empty() && std::all_of(key.begin(), key.end(), in_key)
               ? std::optional<std::string>(key)
               : std::nullopt;
}

} // namespace

std::vector<FormSection> SectionsOf(std::string_view text, Failure& failure, int& line_number) {
    static const std::set<std::string, std::less<>> kinds = {
        "project", "results", "chosen",    "tags",      "dde",     "system",  "types", "index",
        "facts",   "used",    "opposites", "variables", "initial", "entries", "files"};
    std::vector<FormSection> sections;
    text = WithoutMark(text);
    for (int number = 1; !text.empty() && failure.text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        line_number = number;
        if (line.empty() || line[0] == ';')
            continue;
        if (line[0] == '[') {
            const std::size_t blank = line.find(' ');
            if (blank == line.npos || line.back() != ']') {
                failure.Note("a section is [kind name]");
                break;
            }
            FormSection section{number,
                                std::string(line.substr(1, blank - 1)),
                                Trimmed(line.substr(blank + 1, line.size() - blank - 2)),
                                {},
                                {}};
            if (!kinds.contains(section.kind))
                failure.Note("no such kind of section: " + section.kind);
            sections.push_back(std::move(section));
        } else if (sections.empty()) {
            failure.Note("no row belongs here");
        } else if (const auto key =
                       HasSettings(sections.back().kind) ? KeyOf(line) : std::nullopt) {
            sections.back().settings.push_back(
                {number, *key, Trimmed(line.substr(line.find('=') + 1))});
        } else if (HasSettings(sections.back().kind) && sections.back().kind != "dde") {
            failure.Note("no row belongs here");
        } else {
            sections.back().rows.push_back({number, line});
        }
    }
    return sections;
}

} // namespace console
