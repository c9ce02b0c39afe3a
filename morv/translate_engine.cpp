#include "translate_engine.h"

#include "language/splitting.h"
#include "language/tokens.h"
#include "translate_initial.h"

#include <algorithm>

namespace morv {

namespace {

bool IsBlank(const Part& part) {
    return SolidTokens(part.text).empty();
}

// The last of a text that is no blank and no comment.
std::string LastSolid(const std::string& text) {
    const std::vector<Token> tokens = SolidTokens(text);
    return tokens.empty() ? "" : tokens.back().text;
}

} // namespace

void EngineText::PutSplit(std::vector<RuleGroup> groups, bool initial_apart) {
    groups_ = std::move(groups);
    initial_apart_ = initial_apart;
    PutEngine(true);
}

void EngineText::PutWhole() {
    PutTables();
    PutEngine(false);
}

// The tables of rules that stay within engine().
void EngineText::PutTables() {
    std::string rows;
    RuleGroup group{"morv_rules" + system_.number, {}};
    for (const Part& rule : system_.parts) {
        if (!rule.rule)
            continue;
        const std::string suffix = system_.number + "_" + std::to_string(group.numbers.size());
        text_ += Tables(rule.conditions, rule.conclusions, suffix);
        rows += Row("nullptr", rule.title, rule.conditions.size(), rule.conclusions.size(), suffix);
        group.numbers.push_back(rule.number);
    }
    if (group.numbers.empty())
        return;
    text_ += "static morv::Rule " + group.name + "[] = {\n" + rows + "};\n";
    groups_.push_back(std::move(group));
}

// The table of the blocks between the rules.
void EngineText::PutTextTable() {
    std::vector<ConditionText> conditions;
    std::vector<ConclusionText> conclusions;
    for (const Part& part : system_.parts)
        if (!part.rule) {
            conditions.insert(conditions.end(), part.conditions.begin(), part.conditions.end());
            conclusions.insert(conclusions.end(), part.conclusions.begin(), part.conclusions.end());
        }
    const std::string suffix = system_.number + "_text";
    text_ += Tables(conditions, conclusions, suffix);
    text_ += "static morv::Rule morv_text" + system_.number + "[] = {" +
             Row("nullptr", "", conditions.size(), conclusions.size(), suffix) + "};\n";
}

void EngineText::PutEngine(bool split) {
    PutTextTable();
    const std::string object = "morv_system" + system_.number;
    text_ += "static morv::System " + object + "(" + Quoted(system_.name) + ");\n";
    std::string tables;
    for (const RuleGroup& group : groups_) {
        tables += "{" + group.name + ", " + group.name + "_numbers, " +
                  std::to_string(group.numbers.size()) + "}, ";
        text_ += (split ? "extern morv::Rule " + group.name + "[];\n" : "") +
                 "static const char* const " + group.name + "_numbers[] = {";
        for (const std::string& number : group.numbers)
            text_ += "\"" + number + "\", ";
        text_ += "};\n";
    }
    // What there is is known before the first tick.
    text_ += "static const morv::Known morv_known" + system_.number + "(" + object + ", " +
             system_.space + "::morv_rows, {" + tables + "{morv_text" + system_.number +
             ", nullptr, 1}});\n";
    if (initial_apart_)
        text_ += "namespace " + system_.space + " { void morv_initial(); }\n";
    text_ += marks_.At(system_.name + ".begin", system_.text.rest.line, system_.name);
    std::set<std::string> words = split ? WordsAround() : system_.facts;
    words.insert("PF");
    text_ += "int " + system_.engine + "::engine() { " + Using(system_, split, words);
    if (!split)
        for (const Variable& variable : system_.text.variables)
            text_ += variable.type + " " + variable.name + "; ";
    if (system_.changes_settings)
        text_ += object + ".Set(" + system_.space + "::morv_rows); ";
    text_ += "if (" + object + ".First()) {";
    PutLines(".opposites", system_.text.opposites);
    text_ += "\n} morv::Run morv_run(" + object + "); " + system_.space + "::PF = morv::NoFact();";
    PutLines(".variables", system_.text.values);
    PutInitial();
    text_ += "\nmorv::Rule& morv_rule = *morv_text" + system_.number +
             "; morv::Site* const morv_site = morv_rule.sites; (void)morv_site;";
    if (split)
        PutCalls();
    else
        PutRules();
    text_ += "\nreturn morv_run.Changed(); }\n";
}

// The words of what stays in engine().
std::set<std::string> EngineText::WordsAround() const {
    std::string text;
    for (const LineText& each : system_.text.opposites)
        text += each.text + "\n";
    for (const LineText& each : system_.text.values)
        text += each.text + "\n";
    for (const InitialFact& each : system_.text.initial)
        if (!initial_apart_)
            text += each.fact + " " + each.value + " " + each.certainty + "\n";
    for (const Part& part : system_.parts)
        if (!part.rule)
            text += part.text + "\n";
    return WithMacros(WordsOf(text, false), code_);
}

void EngineText::PutLines(const std::string& label, const std::vector<LineText>& lines) {
    if (lines.empty())
        return;
    text_ += marks_.At(system_.name + label, lines[0].line, system_.name);
    int line = lines[0].line;
    for (const LineText& each : lines) {
        text_.append(static_cast<std::size_t>(each.line - line), '\n');
        line = each.line;
        text_ += each.text;
    }
}

void EngineText::PutInitial() {
    if (!system_.text.initial.empty())
        text_ += "\nif (morv_run.FirstOfTick()) {" +
                 (initial_apart_ ? InitialCall(system_) : InitialValues(system_, marks_)) + "\n}";
}

// The text around the rules, and in it calls of the rules.
void EngineText::PutCalls() {
    std::size_t group = 0, at = 0, between = 0, waiting = 0;
    bool alone = false; // one rule is the body of a statement in front of it
    const auto call = [&] {
        while (waiting > 0) {
            const std::size_t count =
                alone ? 1 : std::min(waiting, groups_[group].numbers.size() - at);
            text_ += "\n{ const morv::Left morv_left = morv::RunRules(" + groups_[group].name +
                     " + " + std::to_string(at) + ", " + std::to_string(count) +
                     "); if (morv_left.left) return morv_left.value; }";
            alone = false;
            at += count;
            waiting -= count;
            if (at == groups_[group].numbers.size()) {
                ++group;
                at = 0;
            }
        }
    };
    for (const Part& part : system_.parts) {
        if (part.rule) {
            ++waiting;
            continue;
        }
        if (IsBlank(part))
            continue;
        call();
        text_ += marks_.At(system_.name + ".text-" + std::to_string(++between), part.line,
                           system_.name) +
                 part.code;
        const std::string last = LastSolid(part.text);
        alone = last != ";" && last != "{" && last != "}";
    }
    call();
}

// The text with its rules in it.
void EngineText::PutRules() {
    const bool marks = system_.text.rest.text.find('#') == std::string::npos;
    text_ += marks_.At(system_.name + ".text", system_.text.rest.line, system_.name);
    std::size_t number = 0, between = 0;
    for (const Part& part : system_.parts) {
        if (marks)
            text_ += part.rule
                         ? marks_.At(RuleLabel(system_.name, part), part.line, system_.name, &part)
                         : marks_.At(system_.name + ".text-" + std::to_string(++between), part.line,
                                     system_.name);
        if (part.rule)
            text_ += "{ morv::Rule& morv_rule = morv_rules" + system_.number + "[" +
                     std::to_string(number++) + "]; const morv::Entered morv_entered(morv_rule); " +
                     (part.conditions.empty() ? "" : kSites) + part.code + "}";
        else
            text_ += part.code;
    }
}

} // namespace morv
