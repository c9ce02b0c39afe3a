#include "console/form/rows.h"

#include "console/form/code_page.h"
#include "system/core/system_file.h"

#include <initializer_list>

namespace console {

namespace {

constexpr std::string_view kBar = "|";

std::string Row(std::initializer_list<std::string> parts) {
    std::string row;
    for (const std::string& part : parts)
        row.append(row.empty() ? "" : " | ").append(part);
    return row;
}

std::string NumbersText(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values)
        text.append(text.empty() ? "" : " ").append(NumberField(value));
    return text;
}

// The numbers of a field, of which there must be `count`.
std::vector<double> Numbers(std::string_view text, std::size_t count, Failure& failure) {
    std::vector<double> numbers;
    for (text = Trimmed(text); !text.empty(); text = Trimmed(text)) {
        const std::string_view word = text.substr(0, text.find_first_of(" \t"));
        const std::optional<double> number = NumberOf(word);
        if (!number)
            failure.Note("not a number: " + std::string(word));
        numbers.push_back(number.value_or(0));
        text.remove_prefix(word.size());
    }
    if (numbers.size() != count)
        failure.Note("numbers needed here: " + std::to_string(count));
    numbers.resize(count);
    return numbers;
}

std::int32_t WholeNumber(const std::string& text, Failure& failure) {
    const std::optional<std::int32_t> number = WholeNumberOf(text);
    if (!number)
        failure.Note("not a whole number: " + text);
    return number.value_or(0);
}

// A row of the text fields of a record.
template <class... Texts> std::string TextsRow(std::string_view reserved, const Texts&... texts) {
    return Row({FieldText(Text(texts), reserved)...});
}

// Puts the first fields of a row into those of a record.
template <class... Texts>
void StoreTexts(const std::vector<std::string>& fields, Failure& failure, Texts&... texts) {
    std::size_t i = 0;
    (Store(texts, fields[i++], failure), ...);
}

} // namespace

std::string FactRow(const Dat& fact, std::int32_t number) {
    const std::int32_t ident = fact.Ident;
    std::string row =
        Row({FieldText(Text(fact.Name), kBar), FieldText(Text(fact.KnowType), kBar),
             FieldText(Text(fact.Description), kBar), FieldText(Text(fact.Units), kBar),
             NumbersText({fact.inf_limit, fact.sup_limit, fact.Step}),
             NumbersText({fact.lowest, fact.low, fact.normal, fact.high, fact.highest}),
             std::to_string(fact.Interval)});
    return ident == number ? row : row + " | " + std::to_string(ident);
}

std::string VariableLine(const V_V& variable) {
    return TextsRow(kBar, variable.Name, variable.Type, variable.Val);
}

std::string InitialLine(const I_K& initial) {
    return TextsRow(kBar, initial.K_Name, initial.K_Val, initial.Pres);
}

// A section with items has settings too, which are known by their '='.
std::string ItemRow(const DDE_ITEM& item) {
    return TextsRow("|=", item.DName, item.DType);
}

std::string OppositeRow(std::string_view entry) {
    if (entry.find('\t') == entry.npos)
        return FieldText(entry, kBar);
    const OppositePair pair = SplitOpposite(entry);
    return Row({FieldText(pair.result, kBar), FieldText(pair.opposite, kBar)});
}

std::string IndexRow(const RuleIndexRecord& record) {
    return Row({FieldText(Text(record.name), kBar), std::to_string(record.size),
                std::to_string(record.num), std::to_string(record.bor)});
}

std::string NameRow(std::string_view name) {
    return FieldText(name, "");
}

std::vector<std::string> Fields(std::string_view line, std::size_t least, std::size_t most,
                                Failure& failure) {
    std::vector<std::string> fields;
    for (const std::string_view part : RowParts(line)) {
        const std::optional<Field> field = FieldIn(part);
        if (!field)
            failure.Note("no field: " + std::string(part));
        else if (field->text.empty() && !field->quoted)
            failure.Note("an empty field is \"\"");
        fields.push_back(field ? field->text : "");
    }
    if (fields.size() < least || fields.size() > most)
        failure.Note("a row here has " + std::to_string(most) + " fields");
    fields.resize(std::max(fields.size(), least));
    return fields;
}

Dat FactOfRow(std::string_view line, std::int32_t number, Failure& failure) {
    const std::vector<std::string> fields = Fields(line, 7, 8, failure);
    const std::vector<double> limits = Numbers(fields[4], 3, failure);
    const std::vector<double> levels = Numbers(fields[5], 5, failure);
    Dat fact{};
    StoreTexts(fields, failure, fact.Name, fact.KnowType, fact.Description, fact.Units);
    fact.inf_limit = limits[0];
    fact.sup_limit = limits[1];
    fact.Step = limits[2];
    fact.lowest = levels[0];
    fact.low = levels[1];
    fact.normal = levels[2];
    fact.high = levels[3];
    fact.highest = levels[4];
    fact.Interval = WholeNumber(fields[6], failure);
    fact.Ident = fields.size() > 7 ? WholeNumber(fields[7], failure) : number;
    return fact;
}

V_V VariableOfRow(std::string_view line, Failure& failure) {
    V_V variable;
    StoreTexts(Fields(line, 3, 3, failure), failure, variable.Name, variable.Type, variable.Val);
    return variable;
}

I_K InitialOfRow(std::string_view line, Failure& failure) {
    I_K initial;
    StoreTexts(Fields(line, 3, 3, failure), failure, initial.K_Name, initial.K_Val, initial.Pres);
    return initial;
}

DDE_ITEM ItemOfRow(std::string_view line, Failure& failure) {
    DDE_ITEM item;
    StoreTexts(Fields(line, 2, 2, failure), failure, item.DName, item.DType);
    return item;
}

NameRecord OppositeOfRow(std::string_view line, Failure& failure) {
    const std::vector<std::string> fields = Fields(line, 1, 2, failure);
    NameRecord entry;
    Store(entry.name, fields.size() > 1 ? fields[0] + "\t" + fields[1] : fields[0], failure);
    return entry;
}

RuleIndexRecord IndexOfRow(std::string_view line, Failure& failure) {
    const std::vector<std::string> fields = Fields(line, 4, 4, failure);
    RuleIndexRecord record;
    Store(record.name, fields[0], failure);
    record.size = WholeNumber(fields[1], failure);
    record.num = WholeNumber(fields[2], failure);
    record.bor = WholeNumber(fields[3], failure);
    return record;
}

TagRecord NameOfRow(std::string_view line, Failure& failure) {
    TagRecord record;
    const std::optional<Field> field = FieldIn(Trimmed(line));
    if (!field)
        failure.Note("no name: " + std::string(line));
    Store(record.name, field ? field->text : "", failure);
    return record;
}

} // namespace console
