// The fields of the text form: names, texts and numbers as a person reads and writes them.
//
// A field stands as it is, or between double quotes when it is empty, begins or ends with a blank,
// or has characters that would be taken for something else. In quotes a '\' goes before '"' and
// '\', and \t \r \n \xHH stand for characters that cannot be seen. The text is UTF-8, the fields
// are in the code page.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

// A field as text. One of the characters `reserved` puts it between quotes.
std::string FieldText(std::string_view field, std::string_view reserved);

// Always between quotes.
std::string QuotedField(std::string_view field);

// A field as it was written.
struct Field {
    std::string text;
    bool quoted = false;
};

// What the text of one field says; nothing when quotes do not close or a character is not in the
// code page.
std::optional<Field> FieldIn(std::string_view text);

// Cuts a row at each '|' that is not between quotes, without the blanks around.
std::vector<std::string_view> RowParts(std::string_view line);

std::string_view Trimmed(std::string_view text);

// Without the mark that some editors put in front of a text in UTF-8.
std::string_view WithoutMark(std::string_view text);

// The shortest text that is read as the very same number. What is no number has its bits in it.
std::string NumberField(double value);
std::optional<double> NumberOf(std::string_view text);
std::optional<std::int32_t> WholeNumberOf(std::string_view text);

} // namespace console
