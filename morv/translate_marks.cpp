#include "translate_marks.h"

#include "language/rule_blocks.h"

#include <sstream>

namespace morv {

std::string LineMark(int line, const std::string& name) {
    return "#line " + std::to_string(line) + " " + Quoted(name);
}

std::string Sum(const std::string& text) {
    unsigned long long sum = 14695981039346656037ull;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    std::ostringstream name;
    name << std::hex << sum;
    return name.str();
}

std::string RuleLabel(const std::string& system, const Part& rule) {
    return system + ".rule-" + Sum(rule.code);
}

std::string Marks::At(const std::string& label, int line, const std::string& system,
                      const Part* rule) {
    if (labels_.insert(label).second)
        places_.push_back({label, line, system, rule != nullptr ? rule->number : "",
                           rule != nullptr ? rule->title : ""});
    return "\n" + LineMark(1, label) + "\n";
}

} // namespace morv
