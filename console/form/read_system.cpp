#include "console/form/reader.h"

#include "system/core/rule_text.h"

#include <limits>
#include <unordered_map>

namespace console {

void FormReader::SystemSetting(const FormSettingLine& line, SystemHead& head) {
    line_ = line.number;
    if (line.key == "rules")
        Put(head.RuleName, PathOf(line.value));
    else if (line.key == "header")
        Put(head.HeaderName, PathOf(line.value));
    else if (line.key == "index file")
        Put(head.RuleSizeName, PathOf(line.value, ".siz"));
    else if (line.key == "types file")
        Put(head.KTypeName, PathOf(line.value, ".typ"));
    else if (line.key == "facts file")
        Put(head.KnowName, PathOf(line.value, ".fac"));
    else if (line.key == "variables file")
        Put(head.VarName, PathOf(line.value, ".var"));
    else if (line.key == "initial file")
        Put(head.InitName, PathOf(line.value, ".ikw"));
    else if (line.key == "counted types")
        head.TypNum = NumberAt(line.value);
    else if (line.key == "counted facts")
        head.DatNum = NumberAt(line.value);
    else if (line.key == "counted opposites")
        head.OppNum = NumberAt(line.value);
    else if (line.key != "types" && line.key != "without")
        failure_.Note("no such setting: " + line.key);
}

void FormReader::SystemFacts(SystemFile& file, const FormSection* used,
                             const std::unordered_set<std::string>& without) {
    const std::string* const content = folder_.Content(Text(file.head.KnowName));
    const std::vector<Dat> base = content ? RecordsIn<Dat>(*content) : std::vector<Dat>();
    if (!used) {
        for (const Dat& fact : base)
            if (!without.contains(Text(fact.Name)))
                file.facts.push_back(fact);
        return;
    }
    std::unordered_map<std::string, const Dat*> first;
    for (const Dat& fact : base)
        first.emplace(Text(fact.Name), &fact);
    std::int32_t number = 0;
    for (const FormLine& row : used->rows) {
        line_ = row.number;
        ++number;
        if (RowParts(row.text).size() > 1) {
            file.facts.push_back(FactOfRow(row.text, number, failure_));
        } else {
            const auto found = first.find(Fields(row.text, 1, 1, failure_)[0]);
            if (found == first.end())
                failure_.Note("no such fact: " + std::string(row.text));
            else
                file.facts.push_back(*found->second);
        }
        if (!Ok())
            return;
    }
}

void FormReader::Index(const SystemHead& head, const std::string& usual) {
    const std::optional<std::string> own = folder_.OwnName(usual);
    const std::string* const rules = folder_.Content(Text(head.RuleName));
    if (!own || !rules || Text(head.RuleSizeName) != usual || missing_.contains(*own) ||
        folder_.files.contains(*own))
        return;
    const RenumberedRules sound = Renumber(*rules);
    if (sound.text != *rules)
        return failure_.Note("the rules are not numbered and closed: " + Text(head.RuleName));
    Make(*own, IndexBytes(sound.sizes));
}

// The initial facts of a system with the usual file.
void FormReader::Initial(const std::string& own, const SystemFile& file) {
    const FormSection* const section = SectionOf("initial", own);
    const form::DefaultNames names(own, "");
    std::string given;
    if (section) {
        given = RowBytes(*section, InitialOfRow);
        std::unordered_set<std::string> facts;
        for (const Dat& fact : file.facts)
            facts.insert(Text(fact.Name));
        line_ = section->number;
        for (const I_K& initial : RecordsIn<I_K>(given))
            if (!facts.contains(Text(initial.K_Name)))
                failure_.Note("no such fact: " + Text(initial.K_Name));
        if (Text(file.head.InitName) != folder_.Home() + names.initial)
            failure_.Note("its file has another name: [entries ...]");
    }
    Default(Text(file.head.InitName), names.initial,
            form::InitialBytes(file.facts, RecordsIn<I_K>(given)));
}

void FormReader::System(const FormSection& section) {
    const std::string own = OwnOf(section);
    SystemFile file;
    SystemHead& head = file.head;
    for (const FormSettingLine& line : section.settings)
        if (line.key == "rules") {
            line_ = line.number;
            Put(head.RuleName, PathOf(line.value));
        }
    const form::DefaultNames names(own, Text(head.RuleName));
    const std::string home = folder_.Home();
    Put(head.KTypeName, home + names.types);
    Put(head.RuleSizeName, names.index);
    Put(head.VarName, home + names.variables);
    Put(head.InitName, home + names.initial);
    Put(head.KnowName, home + names.base);
    constexpr std::int32_t kNone = std::numeric_limits<std::int32_t>::min();
    head.TypNum = head.DatNum = head.OppNum = kNone;
    std::string types;
    std::unordered_set<std::string> without;
    for (const FormSettingLine& line : section.settings) {
        SystemSetting(line, head);
        if (line.key == "types")
            types += BytesOf(NameOfRow(line.value, failure_));
        else if (line.key == "without")
            without.insert(FieldOf(line.value));
        if (!Ok())
            return;
    }
    if (!types.empty())
        Make(names.types, types);
    Default(Text(head.KTypeName), names.types, "");
    Default(Text(head.KnowName), names.base, "");
    Default(Text(head.VarName), names.variables, "");
    Source(Text(head.RuleName));
    Source(Text(head.HeaderName));
    Index(head, names.index);
    SystemFacts(file, SectionOf("used", own), without);
    if (const FormSection* opposites = SectionOf("opposites", own))
        file.opposites = RecordsIn<NameRecord>(RowBytes(*opposites, OppositeOfRow));
    Initial(own, file);
    const auto count = [](std::int32_t counted, std::size_t there) {
        return counted == kNone ? static_cast<std::int32_t>(there) : counted;
    };
    head.TypNum = count(head.TypNum, CountIn(Text(head.KTypeName), sizeof(TagRecord)));
    head.DatNum = count(head.DatNum, file.facts.size());
    head.OppNum = count(head.OppNum, file.opposites.size());
    Make(own, SystemBytes(file));
}

void FormReader::Systems() {
    for (const FormSection& section : sections_) {
        if (section.kind == "system")
            System(section);
        if (!Ok())
            return;
    }
}

} // namespace console
