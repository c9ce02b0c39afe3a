#include "translate_tables.h"

namespace morv {

std::string Tables(const std::vector<ConditionText>& conditions,
                   const std::vector<ConclusionText>& conclusions, const std::string& suffix) {
    std::string text;
    const auto place = [](int outer, bool otherwise) {
        return std::to_string(outer) + ", " + (otherwise ? "true" : "false");
    };
    if (!conditions.empty()) {
        text += "static morv::Site morv_sites" + suffix + "[] = {";
        for (const ConditionText& each : conditions)
            text += "\n{morv::Kind::" + each.kind + ", " + Quoted(each.text) + ", " +
                    place(each.outer, each.otherwise) + "},";
        text += "};\n";
    }
    if (!conclusions.empty()) {
        text += "static const morv::Conclusion morv_acts" + suffix + "[] = {";
        for (const ConclusionText& each : conclusions)
            text += "\n{" + Quoted(each.name) + ", " + place(each.outer, each.otherwise) + "},";
        text += "};\n";
    }
    return text;
}

std::string Row(const std::string& run, const std::string& title, std::size_t conditions,
                std::size_t conclusions, const std::string& suffix, const std::string& sources) {
    return "{" + run + ", " + Quoted(title) + ", " +
           (conditions == 0 ? "nullptr" : "morv_sites" + suffix) + ", " +
           std::to_string(conditions) + ", " +
           (conclusions == 0 ? "nullptr" : "morv_acts" + suffix) + ", " +
           std::to_string(conclusions) + ", " + sources + "},\n";
}

} // namespace morv
