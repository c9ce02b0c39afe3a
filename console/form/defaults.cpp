#include "console/form/project_form.h"

#include "shell/core/paths.h"

#include <unordered_map>

namespace console::form {

std::string NamesBytes(const std::vector<std::string>& names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return std::string(BytesOf(records));
}

std::string InitialBytes(const std::vector<Dat>& facts, const std::vector<I_K>& given) {
    std::unordered_map<std::string, const I_K*> values;
    for (const I_K& initial : given)
        values.insert_or_assign(Text(initial.K_Name), &initial);
    std::vector<I_K> records(facts.size());
    for (std::size_t i = 0; i < facts.size(); ++i) {
        const std::string name = Text(facts[i].Name);
        const auto found = values.find(name);
        if (found != values.end()) {
            records[i] = *found->second;
            continue;
        }
        SetText(records[i].K_Name, name);
        SetText(records[i].K_Val, "");
        SetText(records[i].Pres, "  ");
    }
    return std::string(BytesOf(records));
}

DefaultNames::DefaultNames(const std::string& name, const std::string& rules) {
    const std::string base_name = CutAtDot(name);
    types = base_name + ".typ";
    variables = base_name + ".var";
    initial = base_name + ".ikw";
    base = base_name + ".fac";
    if (rules.empty())
        return;
    // Only the rules file's own name is cut: that its folder has a '.' must not matter here.
    const std::size_t slash = rules.rfind('\\') + 1;
    index = rules.substr(0, slash) + CutAtDot(rules.substr(slash)) + ".siz";
}

} // namespace console::form
