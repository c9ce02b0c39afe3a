// The text of a system in the generated rules source: what Zentrik writes before the rules.
#pragma once

#include <string>
#include <vector>

namespace morv {

struct LineText {
    int line;
    std::string text;
};

struct Variable {
    std::string type, name;
};

// What the lines about a fact say, in their order: number, type, description, units, limits, step
// and levels.
struct FactSettings {
    std::string fact;
    std::vector<LineText> values;
};

struct InitialFact {
    int line;
    std::string fact, value, certainty;
};

struct SystemText {
    std::vector<std::string> facts;
    std::vector<Variable> variables;
    std::string own_type; // of one of them, when it is not one of the language's own, like int
    std::vector<LineText> opposites;
    std::vector<FactSettings> settings;
    std::vector<LineText> values; // what the variables start with
    std::vector<InitialFact> initial;
    LineText rest; // the header and the rules, and whatever of the above is not as expected
};

// Reads the lines between Begin and EndSystem, of which the first has the number `first`.
SystemText ReadSystemText(const std::vector<std::string>& lines, int first);

// The names in a declaration up to its end.
std::vector<std::string> NamesIn(const std::string& declaration);

} // namespace morv
