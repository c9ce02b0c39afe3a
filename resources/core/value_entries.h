// The rows of the dialogs for local variables, initial facts and DDE items, and their records.
#pragma once

#include "resources/core/dde_item.h"
#include "resources/core/variable.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The types offered for a variable and for a DDE item, and the one chosen at first. Any other text
// may be typed.
inline constexpr std::array kValueTypes{"int", "long", "char", "double"};
inline constexpr const char* kFirstValueType = "long";

// How sure an initial fact is.
inline constexpr std::array kCertainties{
    "FULL", "VERYHIGH", "HIGH", "NOTVERYHIGH", "NORMAL", "NOTVERYLOW", "LOW", "VERYLOW", "NULL"};

// The text before the first blank of a row: the name it is about.
std::string FirstWord(std::string_view row);

// `value` with `text` behind it, cut to what a value field holds.
std::string AppendedValue(std::string_view value, std::string_view text);

// A row is "Name", "Type" and "Val" with blank, TAB, blank between them. Reading one back ends the
// name and the type at their first blank, so a name or type with a blank does not survive.
std::string VariableRow(const V_V& variable);
V_V VariableIn(std::string_view row);

// What to tell the user about the first empty field, or null when none is empty.
const char* MissingIn(const V_V& variable);

// The rows of the variables file `path`, the last record first; none when it cannot be opened.
std::vector<std::string> VariableRows(const char* path);

// The names in the variables file `path` in file order; none when it cannot be opened.
std::vector<std::string> VariableNames(const char* path);

// A row is name, value and certainty, parted as in a variable's row.
std::string InitialFactRow(const I_K& fact);
I_K InitialFactIn(std::string_view row);

// The row of a fact that has no initial value.
std::string UnsetFactRow(std::string_view name);

// The records of an initial-facts file, found by the name of their fact.
class InitialValues {
public:
    // Reads `path`; there are no values when it cannot be opened.
    explicit InitialValues(const char* path);

    // The row of fact `name` (letter case counts): with the values of its first record, or unset.
    std::string Row(const std::string& name) const;

private:
    std::vector<I_K> records_;
    std::unordered_map<std::string, std::size_t> first_; // record of each name
};

// A row is the name and the type with a TAB between them.
std::string DdeRow(const DDE_ITEM& item);
DDE_ITEM DdeItemIn(std::string_view row);
const char* MissingIn(const DDE_ITEM& item);

// The names under which the items of the DDE items file `path` stand in values; none when it
// cannot be opened.
std::vector<std::string> OfferedItems(const char* path);

// The bytes of the records that `rows` stand for, made by VariableIn or InitialFactIn.
template <class Record>
std::string RecordBytes(const std::vector<std::string>& rows,
                        Record (*record_in)(std::string_view)) {
    std::string bytes;
    bytes.reserve(rows.size() * sizeof(Record));
    for (const std::string& row : rows)
        bytes += BytesOf(record_in(row));
    return bytes;
}
