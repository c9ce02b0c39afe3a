#include "translate_facts.h"

#include <algorithm>

namespace morv {

std::string Warnings() {
    return "#pragma GCC diagnostic ignored \"-Wunused-variable\"\n"
           "#pragma GCC diagnostic ignored \"-Wunused-but-set-variable\"\n";
}

std::string FactsSource(const TranslatedSystem& system, bool with_variables, Marks& marks) {
    std::string text = "namespace " + system.space + " {\nDATAFACT *PF;\n";
    for (const std::string& fact : system.text.facts)
        text += "DATAFACT " + fact + ";\n";
    if (with_variables)
        for (const Variable& variable : system.text.variables)
            text += variable.type + " " + variable.name + ";\n";
    const std::size_t count = system.text.settings.size();
    text += "extern const morv::FactRow morv_rows[];\nconst morv::FactRow morv_rows[] = {\n";
    for (std::size_t i = 0; i < system.text.facts.size(); ++i) {
        const std::string& fact = system.text.facts[i];
        if (i < count) { // the values stand on the lines that they have in the source
            const std::vector<LineText>& values = system.text.settings[i].values;
            text += marks.At(system.name + ".fact-" + fact, values[0].line - 1, system.name);
            text += "{&" + fact + ", " + Quoted(fact);
            text += ",\n(int)" + values[0].text; // a number of any size
            for (auto value = values.begin() + 1; value != values.end(); ++value)
                text += ",\n" + value->text;
            text += "},\n";
        } else
            text += "{&" + fact + ", " + Quoted(fact) +
                    ", 0, NOTYPE, nullptr, nullptr, 0, 0, 0, 0, 0, 0, 0, 0},\n";
    }
    return text + "{nullptr, nullptr, 0, NOTYPE, nullptr, nullptr, 0, 0, 0, 0, 0, 0, 0, 0}};\n}\n";
}

void Declare(const TranslatedSystem& system, bool with_variables,
             const std::set<std::string>* words, std::string& text) {
    text += "namespace " + system.space + " {\nextern DATAFACT *PF;\n";
    const auto fact = [&](const std::string& name) { text += "extern DATAFACT " + name + ";\n"; };
    if (words == nullptr)
        std::for_each(system.text.facts.begin(), system.text.facts.end(), fact);
    else
        for (const std::string& word : *words)
            if (system.facts.count(word) != 0)
                fact(word);
    if (with_variables)
        for (const Variable& variable : system.text.variables)
            if (words == nullptr || words->count(variable.name) != 0)
                text += "extern " + variable.type + " " + variable.name + ";\n";
    text += "}\n";
}

std::string Using(const TranslatedSystem& system, bool with_variables,
                  const std::set<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        if (word == "PF" || system.facts.count(word) != 0 ||
            (with_variables && system.variables.count(word) != 0))
            text += "using " + system.space + "::" + word + "; ";
    return text;
}

} // namespace morv
