// The lines of the text form, sorted into its sections.
#pragma once

#include "console/form/rows.h"

#include <string>
#include <string_view>
#include <vector>

namespace console {

struct FormLine {
    int number;
    std::string_view text;
};

struct FormSettingLine {
    int number;
    std::string key;
    std::string_view value;
};

struct FormSection {
    int number;
    std::string kind;
    std::string_view name;
    std::vector<FormSettingLine> settings;
    std::vector<FormLine> rows;
};

// Sorts the lines of a text, which the result looks into. What is wrong is noted; `line_number` is
// that of the line then.
std::vector<FormSection> SectionsOf(std::string_view text, Failure& failure, int& line_number);

} // namespace console
