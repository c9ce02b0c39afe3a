// The records of project files as rows of the text form, and back.
#pragma once

#include "console/form/fields.h"
#include "resources/core/dde_item.h"
#include "resources/core/fact.h"
#include "resources/core/variable.h"
#include "system/core/rule_index.h"

#include <string>
#include <vector>

namespace console {

// A fact, with its number behind the rest unless it is `number`.
std::string FactRow(const Dat& fact, std::int32_t number);
std::string VariableLine(const V_V& variable);
std::string InitialLine(const I_K& initial);
std::string ItemRow(const DDE_ITEM& item);
std::string OppositeRow(std::string_view entry);
std::string IndexRow(const RuleIndexRecord& record);
std::string NameRow(std::string_view name);

// The first failure of reading stays.
struct Failure {
    std::string text;

    void Note(const std::string& what) {
        if (text.empty())
            text = what;
    }
};

// The fields of a row, of which there must be `least` to `most`. A field that stands bare cannot be
// empty.
std::vector<std::string> Fields(std::string_view line, std::size_t least, std::size_t most,
                                Failure& failure);

// Puts a text into a field of a record, which must hold it whole.
template <std::size_t N> void Store(char (&field)[N], const std::string& text, Failure& failure) {
    if (text.size() >= N)
        failure.Note("too long: " + text);
    SetText(field, text);
}

Dat FactOfRow(std::string_view line, std::int32_t number, Failure& failure);
V_V VariableOfRow(std::string_view line, Failure& failure);
I_K InitialOfRow(std::string_view line, Failure& failure);
DDE_ITEM ItemOfRow(std::string_view line, Failure& failure);
NameRecord OppositeOfRow(std::string_view line, Failure& failure);
RuleIndexRecord IndexOfRow(std::string_view line, Failure& failure);
TagRecord NameOfRow(std::string_view line, Failure& failure);

} // namespace console
