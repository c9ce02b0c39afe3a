#include "translate.h"

#include "language/header_macros.h"
#include "language/quiet_rules.h"
#include "language/rule_blocks.h"
#include "language/splitting.h"
#include "language/system_text.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <unordered_set>

namespace morv {

namespace {

// How many rules go into a source: at least, and at most. Between the two a source ends with a rule
// whose text says so, so that a new rule does not move all rules behind it to other sources.
constexpr std::size_t kLeastRules = 192, kMostRules = 448;

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::string WithoutCr(std::string line) {
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(WithoutCr(line));
    return lines;
}

// The rules header: what other sources can include, and the results that it defines, which are the
// names after its last line "DATAFACTRESULT".
struct Header {
    explicit Header(const std::string& text) {
        const std::vector<std::string> lines = LinesOf(text);
        const auto heading = std::find(lines.rbegin(), lines.rend(), "DATAFACTRESULT");
        const auto from = heading == lines.rend() ? lines.end() : heading.base() - 1;
        for (auto line = lines.begin(); line != from; ++line) {
            shared += *line + "\n";
            HasOwnInclude(*line);
        }
        std::string declaration;
        auto line = from == lines.end() ? from : from + 1;
        for (; line != lines.end() && !StartsWith(*line, "#"); ++line)
            declaration += *line + "\n";
        for (; line != lines.end(); ++line)
            shared += *line + "\n";
        results = NamesIn(declaration);
    }

    // What a project's own header defines is not known.
    void HasOwnInclude(const std::string& line) {
        static const char* const known[] = {"consts.h", "shell.h", "datafact.h", "dfactres.h",
                                            "inf_eng.h"};
        const std::size_t quote = line.find('"');
        if (line.find("#include") == line.npos || quote == line.npos)
            return;
        const std::string name = line.substr(quote + 1, line.rfind('"') - quote - 1);
        if (std::find(std::begin(known), std::end(known), name) == std::end(known))
            own_include = name;
    }

    std::string shared;
    std::vector<std::string> results;
    std::string own_include; // empty when there is none
};

std::string Named(const std::vector<std::string>& names) {
    std::string list = "{";
    for (const std::string& name : names)
        list += (list.size() > 1 ? ", {&" : "{&") + name + ", " + Quoted(name) + "}";
    return list + "}";
}

// A short name for a text, the same on every machine.
std::string Sum(const std::string& text) {
    unsigned long long sum = 14695981039346656037ull;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    std::ostringstream name;
    name << std::hex << sum;
    return name.str();
}

bool IsBlank(const Part& part) {
    const std::vector<Token> tokens = Tokens(part.text);
    return std::all_of(tokens.begin(), tokens.end(), [](const Token& token) {
        return token.kind == Token::Blank || token.kind == Token::Comment;
    });
}

// The last of a text that is no blank and no comment.
std::string LastSolid(const std::string& text) {
    std::string last;
    for (const Token& token : Tokens(text))
        if (token.kind != Token::Blank && token.kind != Token::Comment)
            last = token.text;
    return last;
}

class Translator {
public:
    Translator(const std::string& source, std::string name, const std::string& header)
        : lines_(LinesOf(source)), name_(std::move(name)), header_(header),
          results_(header_.results.begin(), header_.results.end()),
          quiet_(source, AfterSystems(source), header_.results) {}

    Translation All() {
        CheckResults();
        Out(LineMark(1, name_));
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_++];
            Out(line);
            if (included_ && systems_.empty() && !StartsWith(line, "Begin "))
                shared_ += line + "\n";
            if (!included_ && StartsWith(line, "#include \""))
                AfterHeader();
            else if (line == "//- System Declaration")
                ReadSystems();
            else if (line == "//- Extern Functions")
                ReadExtern();
            else if (StartsWith(line, "Begin Inference_Engine_"))
                OneSystem(line);
        }
        result_.headers.push_back({"rules.h", SharedHeader()});
        result_.sources.insert(result_.sources.begin(), {"rules.cpp", std::move(text_)});
        return std::move(result_);
    }

private:
    static std::string AfterSystems(const std::string& source) {
        const std::size_t end = source.rfind("\nEndSystem");
        return end == std::string::npos ? source : source.substr(end);
    }

    void Out(const std::string& line) { text_ += line + "\n"; }

    // Says that the next line is number `line` of the file `name`.
    static std::string LineMark(int line, const std::string& name) {
        return "#line " + std::to_string(line) + " " + Quoted(name);
    }

    // Begins a text that starts in line `line` of the source and may move.
    std::string Mark(const std::string& label, int line, const std::string& system = {},
                     const Part* rule = nullptr) {
        if (labels_.insert(label).second)
            result_.places.push_back({label, line, system, rule != nullptr ? rule->number : "",
                                      rule != nullptr ? rule->title : ""});
        return "\n" + LineMark(1, label) + "\n";
    }

    void Complain(int line, const std::string& text) {
        result_.errors.push_back(name_ + ":" + std::to_string(line) + ": " + text);
    }

    void CheckResults() {
        static const char* const words[] = {"VERYLOW",  "LOW",         "NOTVERYLOW",
                                            "NORMAL",   "NOTVERYHIGH", "HIGH",
                                            "VERYHIGH", "FULL",        "NULL"};
        for (const std::string& result : header_.results)
            if (std::find(std::begin(words), std::end(words), result) != std::end(words))
                Complain(1, "the result " + result + " is called like a certainty");
    }

    void AfterHeader() {
        included_ = true;
        // Without results the declaration in the header is not ended.
        if (header_.results.empty())
            Out("morv_no_result;");
        else
            Out("static const morv::ResultNames morv_results(" + Named(header_.results) + ");");
        Out(LineMark(static_cast<int>(at_) + 1, name_));
    }

    // Lines like "Inference_Engine_1 steam;".
    void ReadSystems() {
        for (; at_ < lines_.size() && StartsWith(lines_[at_], "Inference_Engine_"); ++at_) {
            const std::vector<std::string> words = NamesIn(lines_[at_]);
            if (words.size() == 2) {
                systems_[words[0]] = words[1];
                shared_ += "extern " + lines_[at_] + "\n";
            }
            Out(lines_[at_]);
        }
    }

    void ReadExtern() {
        std::string text;
        while (at_ < lines_.size() && lines_[at_] != "//- Systems Implementation")
            text += lines_[at_++] + "\n";
        extern_ = ReadExternCode(text);
        text_ += extern_.code;
    }

    // What all sources but the first include.
    std::string SharedHeader() const {
        return "#ifndef MORV_RULES\n#define MORV_RULES\n" + header_.shared + shared_ +
               extern_.declarations + "#undef NULL\n#define NULL 0\n#endif\n";
    }

    struct System {
        std::string engine, number, name, space; // Inference_Engine_1, 1, steam, morv_1
        SystemText text;
        std::vector<Part> parts;
        std::set<std::string> facts, variables;
        bool changes_settings = false; // of its facts
        bool repeats = false;          // its rules may run more than once in a call
    };

    void OneSystem(const std::string& begin) {
        text_.resize(text_.size() - begin.size() - 1);
        System system = Read(begin);
        std::set<std::string> known = system.facts;
        known.insert(system.variables.begin(), system.variables.end());
        known.insert(results_.begin(), results_.end());
        known.insert({"PF", "DDEinfo", "hora", "Items", "ActivatSB"});
        const TextAround around = ReadAround(system.parts);
        const std::string taken = AddMacros(around.defines, known, extern_);
        defines_ += around.defines;
        system.repeats = !quiet_.IsCalm(around.rest);
        std::string whole = WhyWhole(system.parts, known, extern_);
        if (whole.empty() && !taken.empty())
            whole = "it defines " + taken;
        if (!header_.own_include.empty())
            whole = "its header " + header_.own_include + " may define something";
        if (macros_)
            whole = "a system before it has lines for the preprocessor";
        if (whole.empty() && extern_.code.find("engine") != std::string::npos)
            whole = "the extern code says engine";
        const std::string together = WhyTogether(system.parts, extern_);
        if (!whole.empty())
            result_.notes.push_back(system.name + " is built whole: " + whole);
        else if (!together.empty())
            result_.notes.push_back(system.name + " is built in one piece: " + together);
        macros_ = macros_ || !taken.empty() || around.rest.find('#') != std::string::npos ||
                  std::any_of(system.parts.begin(), system.parts.end(), [](const Part& part) {
                      return part.rule && part.text.find('#') != std::string::npos;
                  });

        // The certainty NULL is a number here. A system may declare more than its rules use.
        Out("#undef NULL");
        Out("#define NULL 0");
        Out("#pragma GCC diagnostic push");
        const bool shared = header_.own_include.empty();
        const std::string facts = FactsSource(system, whole.empty());
        if (shared && !system.facts.empty() && !extern_.unclear)
            result_.sources.push_back(
                {"facts" + system.number + ".cpp", "#include \"rules.h\"\n" + Warnings() + facts});
        else
            text_ += facts;
        text_ += Warnings();
        Declare(system, whole.empty(), nullptr, text_);
        text_ += "namespace " + system.space + " { extern const morv::FactRow morv_rows[]; }\n";
        groups_.clear();
        if (whole.empty())
            PutPieces(system, together.empty());
        else
            PutWholeTables(system);
        PutEngine(system, whole.empty());
        Out("#pragma GCC diagnostic pop");
        ++at_;
        text_ += Mark(name_ + ".end-" + system.number, static_cast<int>(at_) + 1);
    }

    static std::string Warnings() {
        return "#pragma GCC diagnostic ignored \"-Wunused-variable\"\n"
               "#pragma GCC diagnostic ignored \"-Wunused-but-set-variable\"\n";
    }

    // The system whose Begin line was just read.
    System Read(const std::string& begin) {
        System system;
        const std::vector<std::string> words = NamesIn(begin);
        system.engine = words.size() > 1 ? words[1] : "";
        system.number = system.engine.substr(std::min<std::size_t>(system.engine.size(), 17));
        system.name = systems_[system.engine];
        system.space = "morv_" + system.number;
        const std::size_t first = at_;
        while (at_ < lines_.size() && lines_[at_] != "EndSystem")
            ++at_;
        if (at_ == lines_.size())
            Complain(static_cast<int>(first), "Begin without EndSystem");
        system.text = ReadSystemText({lines_.begin() + static_cast<std::ptrdiff_t>(first),
                                      lines_.begin() + static_cast<std::ptrdiff_t>(at_)},
                                     static_cast<int>(first) + 1);
        system.facts.insert(system.text.facts.begin(), system.text.facts.end());
        for (const Variable& variable : system.text.variables)
            system.variables.insert(variable.name);
        system.changes_settings =
            ChangesSettings(system.text.rest.text) || ChangesSettings(extern_.code);
        std::vector<Complaint> complaints;
        system.parts =
            TranslateBlocks(system.text.rest.text, system.text.rest.line, system.name, complaints,
                            WordsOf(extern_.code, false).count("Poked") == 0);
        for (const Complaint& complaint : complaints)
            Complain(complaint.line, complaint.text);
        return system;
    }

    // The facts of a system and the table of their settings, which stay as they are unless code
    // changes them.
    std::string FactsSource(const System& system, bool with_variables) {
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
                text += Mark(system.name + ".fact-" + fact, values[0].line - 1, system.name);
                text += "{&" + fact + ", " + Quoted(fact);
                text += ",\n(int)" + values[0].text; // a number of any size
                for (auto value = values.begin() + 1; value != values.end(); ++value)
                    text += ",\n" + value->text;
                text += "},\n";
            } else
                text += "{&" + fact + ", " + Quoted(fact) +
                        ", 0, NOTYPE, nullptr, nullptr, 0, 0, 0, 0, 0, 0, 0, 0},\n";
        }
        return text +
               "{nullptr, nullptr, 0, NOTYPE, nullptr, nullptr, 0, 0, 0, 0, 0, 0, 0, 0}};\n}\n";
    }

    // Declares the facts and variables of a system that occur among `words`; all without them.
    static void Declare(const System& system, bool with_variables,
                        const std::set<std::string>* words, std::string& text) {
        text += "namespace " + system.space + " {\nextern DATAFACT *PF;\n";
        for (const std::string& fact : system.text.facts)
            if (words == nullptr || words->count(fact) != 0)
                text += "extern DATAFACT " + fact + ";\n";
        if (with_variables)
            for (const Variable& variable : system.text.variables)
                if (words == nullptr || words->count(variable.name) != 0)
                    text += "extern " + variable.type + " " + variable.name + ";\n";
        text += "}\n";
    }

    // The lines that make facts and variables among `words` known in a function. A declaration of
    // their names in there hides them, as it hides those of a function.
    static std::string Using(const System& system, bool with_variables,
                             const std::set<std::string>& words) {
        std::string text;
        for (const std::string& word : words)
            if (word == "PF" || system.facts.count(word) != 0 ||
                (with_variables && system.variables.count(word) != 0))
                text += "using " + system.space + "::" + word + "; ";
        return text;
    }

    // The tables of a part: its conditions and conclusions.
    static std::string Tables(const std::vector<ConditionText>& conditions,
                              const std::vector<ConclusionText>& conclusions,
                              const std::string& suffix) {
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

    // A row of the table of rules, without the number, which the first source knows.
    static std::string Row(const std::string& run, const std::string& title, std::size_t conditions,
                           std::size_t conclusions, const std::string& suffix,
                           const std::string& sources = "nullptr") {
        return "{" + run + ", " + Quoted(title) + ", " +
               (conditions == 0 ? "nullptr" : "morv_sites" + suffix) + ", " +
               std::to_string(conditions) + ", " +
               (conclusions == 0 ? "nullptr" : "morv_acts" + suffix) + ", " +
               std::to_string(conclusions) + ", " + sources + "},\n";
    }

    // Rules whose entries stand in one table.
    struct Group {
        std::string name;
        std::vector<std::string> numbers;
    };

    static constexpr const char* kSites = "morv::Site* const morv_site = morv_rule.sites;";

    void PutPieces(const System& system, bool own_sources) {
        std::vector<const Part*> rules;
        const auto put = [&] {
            if (!rules.empty())
                PutPiece(system, rules, own_sources);
            rules.clear();
        };
        for (const Part& part : system.parts) {
            if (!part.rule)
                continue;
            rules.push_back(&part);
            if (own_sources &&
                (rules.size() >= kMostRules || (rules.size() >= kLeastRules && EndsPiece(part))))
                put();
        }
        put();
    }

    static bool EndsPiece(const Part& part) {
        const std::string sum = Sum(part.code);
        return sum.size() > 1 && sum.back() == '0' && sum[sum.size() - 2] < '4';
    }

    void PutPiece(const System& system, const std::vector<const Part*>& rules, bool own_source) {
        std::string body, rows;
        std::set<std::string> all;
        for (std::size_t i = 0; i < rules.size(); ++i) {
            const Part& rule = *rules[i];
            const std::string suffix = system.number + "_" + std::to_string(i);
            std::set<std::string> words = WithMacros(WordsOf(rule.text, false), extern_);
            words.insert("PF");
            all.insert(words.begin(), words.end());
            body += Tables(rule.conditions, rule.conclusions, suffix);
            body += "static morv::Left morv_run" + suffix +
                    "([[maybe_unused]] morv::Rule& morv_rule) { " + Using(system, true, words) +
                    (rule.conditions.empty() ? "" : kSites) +
                    Mark(RuleLabel(system, rule), rule.line, system.name, &rule) + "{" + rule.code +
                    "}\nreturn {}; }\n";
            const std::string sources = Sources(system, rule);
            if (!sources.empty())
                body += "static const morv::Source morv_from" + suffix + "[] = {" + sources +
                        "{nullptr, nullptr}};\n";
            rows += Row("morv_run" + suffix, rule.title, rule.conditions.size(),
                        rule.conclusions.size(), suffix,
                        sources.empty() ? "nullptr" : "morv_from" + suffix);
        }
        const std::string name = PieceName(system, *rules[0]);
        std::string text;
        if (own_source) {
            text = "#include \"rules.h\"\n" + Warnings();
            for (const std::string& result : header_.results)
                if (all.count(result) != 0)
                    text += "extern DATAFACTRESULT " + result + ";\n";
            Declare(system, true, &all, text);
        }
        text += defines_ + body + "extern morv::Rule " + name + "[];\nmorv::Rule " + name +
                "[] = {\n" + rows + "};\n";
        groups_.push_back({name, {}});
        for (const Part* rule : rules)
            groups_.back().numbers.push_back(rule->number);
        if (own_source)
            result_.sources.push_back({name + ".cpp", std::move(text)});
        else
            text_ += text;
    }

    // What a rule reads that needs not run while nothing of it changes; empty for others.
    std::string Sources(const System& system, const Part& rule) const {
        std::set<std::string> facts, results;
        if (system.changes_settings || system.repeats ||
            !quiet_.IsQuiet(rule.text, system.facts, extern_, facts, results))
            return "";
        std::string text;
        for (const std::string& fact : facts)
            text += "{&" + system.space + "::" + fact + ", nullptr}, ";
        for (const std::string& result : results)
            text += "{nullptr, &" + result + "}, ";
        return text;
    }

    static std::string RuleLabel(const System& system, const Part& rule) {
        return system.name + ".rule-" + Sum(rule.code);
    }

    // Named after its first rule, to keep its name when pieces before it come or go.
    std::string PieceName(const System& system, const Part& first) {
        const std::string name = "rules" + system.number + "_" + Sum(first.code);
        std::string unique = name;
        for (int i = 2; !pieces_.insert(unique).second; ++i)
            unique = name + "_" + std::to_string(i);
        return unique;
    }

    // The tables of rules that stay within engine().
    void PutWholeTables(const System& system) {
        std::string rows;
        Group group{"morv_rules" + system.number, {}};
        for (const Part& rule : system.parts) {
            if (!rule.rule)
                continue;
            const std::string suffix = system.number + "_" + std::to_string(group.numbers.size());
            text_ += Tables(rule.conditions, rule.conclusions, suffix);
            rows +=
                Row("nullptr", rule.title, rule.conditions.size(), rule.conclusions.size(), suffix);
            group.numbers.push_back(rule.number);
        }
        if (group.numbers.empty())
            return;
        text_ += "static morv::Rule " + group.name + "[] = {\n" + rows + "};\n";
        groups_.push_back(std::move(group));
    }

    // The table of the blocks between the rules.
    void PutTextTable(const System& system) {
        std::vector<ConditionText> conditions;
        std::vector<ConclusionText> conclusions;
        for (const Part& part : system.parts)
            if (!part.rule) {
                conditions.insert(conditions.end(), part.conditions.begin(), part.conditions.end());
                conclusions.insert(conclusions.end(), part.conclusions.begin(),
                                   part.conclusions.end());
            }
        const std::string suffix = system.number + "_text";
        text_ += Tables(conditions, conclusions, suffix);
        text_ += "static morv::Rule morv_text" + system.number + "[] = {" +
                 Row("nullptr", "", conditions.size(), conclusions.size(), suffix) + "};\n";
    }

    void PutEngine(const System& system, bool split) {
        PutTextTable(system);
        const std::string object = "morv_system" + system.number;
        text_ += "static morv::System " + object + "(" + Quoted(system.name) + ");\n";
        for (const Group& group : groups_) {
            text_ += (split ? "extern morv::Rule " + group.name + "[];\n" : "") +
                     "static const char* const " + group.name + "_numbers[] = {";
            for (const std::string& number : group.numbers)
                text_ += "\"" + number + "\", ";
            text_ += "};\n";
        }
        text_ += Mark(system.name + ".begin", system.text.rest.line, system.name);
        std::set<std::string> words = split ? WordsAround(system) : system.facts;
        words.insert("PF");
        text_ += "int " + system.engine + "::engine() { " + Using(system, split, words);
        if (!split)
            for (const Variable& variable : system.text.variables)
                text_ += variable.type + " " + variable.name + "; ";
        text_ += "Facts(" + object + ", " + system.space + "::morv_rows, " +
                 (system.changes_settings ? "true" : "false") + "); if (" + object + ".First()) {";
        for (const Group& group : groups_)
            text_ += "\n" + object + ".Add(" + group.name + ", " + group.name + "_numbers, " +
                     std::to_string(group.numbers.size()) + ");";
        text_ += "\n" + object + ".Add(morv_text" + system.number + ", nullptr, 1);";
        PutLines(system, ".opposites", system.text.opposites);
        text_ +=
            "\n} morv::Run morv_run(" + object + "); " + system.space + "::PF = morv::NoFact();";
        PutLines(system, ".variables", system.text.values);
        PutInitial(system);
        text_ += "\nmorv::Rule& morv_rule = *morv_text" + system.number +
                 "; morv::Site* const morv_site = morv_rule.sites; (void)morv_site;";
        if (split)
            PutCalls(system);
        else
            PutWhole(system);
        text_ += "\nreturn morv_run.Changed(); }\n";
    }

    // The words of what stays in engine().
    std::set<std::string> WordsAround(const System& system) const {
        std::string text;
        for (const LineText& each : system.text.opposites)
            text += each.text + "\n";
        for (const LineText& each : system.text.values)
            text += each.text + "\n";
        for (const InitialFact& each : system.text.initial)
            text += each.fact + " " + each.value + " " + each.certainty + "\n";
        for (const Part& part : system.parts)
            if (!part.rule)
                text += part.text + "\n";
        return WithMacros(WordsOf(text, false), extern_);
    }

    void PutLines(const System& system, const std::string& label,
                  const std::vector<LineText>& lines) {
        if (lines.empty())
            return;
        text_ += Mark(system.name + label, lines[0].line, system.name);
        int line = lines[0].line;
        for (const LineText& each : lines) {
            text_.append(static_cast<std::size_t>(each.line - line), '\n');
            line = each.line;
            text_ += each.text;
        }
    }

    void PutInitial(const System& system) {
        if (system.text.initial.empty())
            return;
        text_ += "\nif (morv_run.FirstOfTick()) {" +
                 Mark(system.name + ".initial", system.text.initial[0].line, system.name);
        int line = system.text.initial[0].line;
        for (const InitialFact& fact : system.text.initial) {
            text_.append(static_cast<std::size_t>(fact.line - line), '\n');
            line = fact.line;
            text_ += "morv::TakeUp(" + fact.fact + ", (double)" + fact.value + ", " +
                     fact.certainty + ", " + Quoted(fact.value) + ");";
        }
        text_ += "\n}";
    }

    // The text around the rules, and in it calls of the rules.
    void PutCalls(const System& system) {
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
        for (const Part& part : system.parts) {
            if (part.rule) {
                ++waiting;
                continue;
            }
            if (IsBlank(part))
                continue;
            call();
            text_ +=
                Mark(system.name + ".text-" + std::to_string(++between), part.line, system.name) +
                part.code;
            const std::string last = LastSolid(part.text);
            alone = last != ";" && last != "{" && last != "}";
        }
        call();
    }

    // The text with its rules in it.
    void PutWhole(const System& system) {
        const bool marks = system.text.rest.text.find('#') == std::string::npos;
        text_ += Mark(system.name + ".text", system.text.rest.line, system.name);
        std::size_t number = 0, between = 0;
        for (const Part& part : system.parts) {
            if (marks)
                text_ += part.rule ? Mark(RuleLabel(system, part), part.line, system.name, &part)
                                   : Mark(system.name + ".text-" + std::to_string(++between),
                                          part.line, system.name);
            if (part.rule)
                text_ += "{ morv::Rule& morv_rule = morv_rules" + system.number + "[" +
                         std::to_string(number++) +
                         "]; const morv::Entered morv_entered(morv_rule); " +
                         (part.conditions.empty() ? "" : kSites) + part.code + "}";
            else
                text_ += part.code;
        }
    }

    const std::vector<std::string> lines_;
    const std::string name_;
    const Header header_;
    const std::unordered_set<std::string> results_;
    const QuietRules quiet_;
    std::map<std::string, std::string> systems_;
    std::size_t at_ = 0; // the next line
    bool included_ = false;
    bool macros_ = false; // a system so far may define some
    std::string text_;    // of the first source
    std::string shared_;  // of its head, for all sources
    std::string defines_; // of the text around the rules so far
    ExternCode extern_;
    std::vector<Group> groups_; // of the system at hand
    std::unordered_set<std::string> labels_, pieces_;
    Translation result_;
};

} // namespace

Translation Translate(const std::string& source, const std::string& name,
                      const std::string& header) {
    return Translator(source, name, header).All();
}

} // namespace morv
