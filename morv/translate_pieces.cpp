#include "translate_pieces.h"

#include "language/splitting.h"

#include <set>

namespace morv {

namespace {

// How many rules go into a source: at least, and at most. Between the two a source ends with a rule
// whose text says so, so that a new rule does not move all rules behind it to other sources.
constexpr std::size_t kLeastRules = 192, kMostRules = 448;

bool EndsPiece(const Part& part) {
    const std::string sum = Sum(part.code);
    return sum.size() > 1 && sum.back() == '0' && sum[sum.size() - 2] < '4';
}

} // namespace

std::vector<RuleGroup> RulePieces::Put(const TranslatedSystem& system, std::vector<Piece>* sources,
                                       std::string& text) {
    std::vector<RuleGroup> groups;
    std::vector<const Part*> rules;
    const auto put = [&] {
        if (!rules.empty())
            groups.push_back(PutPiece(system, rules, sources, text));
        rules.clear();
    };
    for (const Part& part : system.parts) {
        if (!part.rule)
            continue;
        rules.push_back(&part);
        if (sources != nullptr &&
            (rules.size() >= kMostRules || (rules.size() >= kLeastRules && EndsPiece(part))))
            put();
    }
    put();
    return groups;
}

RuleGroup RulePieces::PutPiece(const TranslatedSystem& system,
                               const std::vector<const Part*>& rules, std::vector<Piece>* sources,
                               std::string& text) {
    std::string body, rows;
    std::set<std::string> all;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const Part& rule = *rules[i];
        const std::string suffix = system.number + "_" + std::to_string(i);
        std::set<std::string> words = WithMacros(WordsOf(rule.text, false), code_);
        words.insert("PF");
        body += Tables(rule.conditions, rule.conclusions, suffix);
        body += "static morv::Left morv_run" + suffix +
                "([[maybe_unused]] morv::Rule& morv_rule) { " + Using(system, true, words) +
                (rule.conditions.empty() ? "" : kSites) +
                marks_.At(RuleLabel(system.name, rule), rule.line, system.name, &rule) + "{" +
                rule.code + "}\nreturn {}; }\n";
        all.merge(words);
        const std::string reads = Sources(system, rule);
        if (!reads.empty())
            body += "static const morv::Source morv_from" + suffix + "[] = {" + reads +
                    "{nullptr, nullptr}};\n";
        rows +=
            Row("morv_run" + suffix, rule.title, rule.conditions.size(), rule.conclusions.size(),
                suffix, reads.empty() ? "nullptr" : "morv_from" + suffix);
    }
    RuleGroup group{PieceName(system, *rules[0]), {}};
    for (const Part* rule : rules)
        group.numbers.push_back(rule->number);
    std::string piece;
    if (sources != nullptr) {
        piece = "#include \"rules.h\"\n" + Warnings();
        for (const std::string& word : all)
            if (results_.count(word) != 0)
                piece += "extern DATAFACTRESULT " + word + ";\n";
        Declare(system, true, &all, piece);
    }
    piece += defines_ + body + "extern morv::Rule " + group.name + "[];\nmorv::Rule " + group.name +
             "[] = {\n" + rows + "};\n";
    if (sources != nullptr)
        sources->push_back({group.name + ".cpp", std::move(piece)});
    else
        text += piece;
    return group;
}

// What a rule reads that needs not run while nothing of it changes; empty for others.
std::string RulePieces::Sources(const TranslatedSystem& system, const Part& rule) const {
    std::set<std::string> facts, results;
    if (system.changes_settings || system.repeats ||
        !quiet_.IsQuiet(rule.text, system.facts, code_, facts, results))
        return "";
    std::string text;
    for (const std::string& fact : facts)
        text += "{&" + system.space + "::" + fact + ", nullptr}, ";
    for (const std::string& result : results)
        text += "{nullptr, &" + result + "}, ";
    return text;
}

// Named after its first rule, to keep its name when pieces before it come or go.
std::string RulePieces::PieceName(const TranslatedSystem& system, const Part& first) {
    const std::string name = "rules" + system.number + "_" + Sum(first.code);
    std::string unique = name;
    for (int i = 2; !names_.insert(unique).second; ++i)
        unique = name + "_" + std::to_string(i);
    return unique;
}

} // namespace morv
