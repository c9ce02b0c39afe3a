#include "resources/core/value_entries.h"

namespace {

constexpr std::string_view kSeparator = " \t ";

// Takes the text before the next blank off `row`, and the three characters a separator has.
std::string_view TakeWord(std::string_view& row) {
    const std::size_t size = std::min(row.find(' '), row.size());
    const std::string_view word = row.substr(0, size);
    row.remove_prefix(std::min(size + kSeparator.size(), row.size()));
    return word;
}

std::string Joined(std::string_view first, std::string_view second, std::string_view third) {
    std::string row;
    row.reserve(first.size() + second.size() + third.size() + 2 * kSeparator.size());
    return row.append(first).append(kSeparator).append(second).append(kSeparator).append(third);
}

} // namespace

std::string FirstWord(std::string_view row) {
    return std::string(TakeWord(row));
}

std::string AppendedValue(std::string_view value, std::string_view text) {
    return std::string(value).append(text).substr(0, kNameSize - 1);
}

std::string VariableRow(const V_V& variable) {
    return Joined(Text(variable.Name), Text(variable.Type), Text(variable.Val));
}

V_V VariableIn(std::string_view row) {
    V_V variable;
    SetText(variable.Name, TakeWord(row));
    SetText(variable.Type, TakeWord(row));
    SetText(variable.Val, row);
    return variable;
}

const char* MissingIn(const V_V& variable) {
    if (!variable.Name[0])
        return "Name must be defined";
    if (!variable.Type[0])
        return "Type must be defined";
    return variable.Val[0] ? nullptr : "Value must be assigned";
}

std::vector<std::string> VariableRows(const char* path) {
    std::vector<V_V> variables;
    ReadRecords(path, files::Mode::Read, variables);
    std::vector<std::string> rows(variables.size());
    std::transform(variables.rbegin(), variables.rend(), rows.begin(), VariableRow);
    return rows;
}

std::vector<std::string> VariableNames(const char* path) {
    std::vector<V_V> variables;
    ReadRecords(path, files::Mode::Read, variables);
    std::vector<std::string> names(variables.size());
    std::transform(variables.begin(), variables.end(), names.begin(),
                   [](const V_V& variable) { return Text(variable.Name); });
    return names;
}

std::string InitialFactRow(const I_K& fact) {
    return Joined(Text(fact.K_Name), Text(fact.K_Val), Text(fact.Pres));
}

I_K InitialFactIn(std::string_view row) {
    I_K fact;
    SetText(fact.K_Name, TakeWord(row));
    // A value is a single word: what follows its first blank runs into the certainty, whole.
    const std::size_t size = std::min(row.find(' '), row.size());
    const bool more_words = size > 0 && !row.substr(size).starts_with(kSeparator.substr(0, 2));
    SetText(fact.K_Val, row.substr(0, size));
    row.remove_prefix(std::min(size + (more_words ? 1 : kSeparator.size()), row.size()));
    SetText(fact.Pres, row);
    return fact;
}

std::string UnsetFactRow(std::string_view name) {
    return Joined(name, " ", " ");
}

InitialValues::InitialValues(const char* path) {
    ReadRecords(path, files::Mode::Read, records_);
    for (std::size_t i = 0; i < records_.size(); ++i)
        first_.try_emplace(Text(records_[i].K_Name), i);
}

std::string InitialValues::Row(const std::string& name) const {
    const auto found = first_.find(name);
    if (found == first_.end())
        return UnsetFactRow(name);
    I_K fact = records_[found->second];
    if (!fact.Pres[0])
        SetText(fact.Pres, " ");
    return InitialFactRow(fact);
}

std::string DdeRow(const DDE_ITEM& item) {
    return Text(item.DName) + "\t" + Text(item.DType);
}

DDE_ITEM DdeItemIn(std::string_view row) {
    const std::size_t tab = std::min(row.find('\t'), row.size());
    DDE_ITEM item;
    SetText(item.DName, row.substr(0, tab));
    SetText(item.DType, row.substr(std::min(tab + 1, row.size())));
    return item;
}

const char* MissingIn(const DDE_ITEM& item) {
    if (!item.DName[0])
        return "Name must be defined";
    return item.DType[0] ? nullptr : "Type must be defined";
}

std::vector<std::string> OfferedItems(const char* path) {
    DdeFile dde;
    ReadDde(path, files::Mode::Read, dde);
    std::vector<std::string> names(dde.items.size());
    std::transform(dde.items.begin(), dde.items.end(), names.begin(),
                   [](const DDE_ITEM& item) { return "DDEinfo." + Text(item.DName); });
    return names;
}
