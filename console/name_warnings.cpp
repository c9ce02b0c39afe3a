#include "console/warnings.h"

#include "build/core/build_names.h"
#include "console/cpp_words.h"
#include "console/local_names.h"
#include "console/made_program.h"
#include "language/names.h"
#include "morv/zkcc_includes.h"
#include "shell/core/paths.h"

#include <array>
#include <set>
#include <unordered_map>
#include <unordered_set>

namespace console {

namespace {

using Names = std::unordered_set<std::string>;

// What the generated files and the runtime declare by themselves.
const Names& KnownNames() {
    static const Names names = {
        "PF", "DDEinfo", "Items", "hora", "ActivatSB", "si", "no", "TRUE", "FALSE", "NULL", "FULL",
        "VERYHIGH", "HIGH", "NOTVERYHIGH", "NORMAL", "NOTVERYLOW", "LOW", "VERYLOW", "DETECTION",
        "DIAGNOSTIC", "ACTION", "NOTYPE", "MAXNUMTICKS", "DATAFACT", "DATAFACTRESULT",
        // of C++ itself
        "EOF", "INFINITY", "NAN", "HUGE_VAL", "M_PI", "M_PI_2", "M_PI_4", "M_E", "M_SQRT2", "M_LN2",
        "M_LN10", "INT_MAX", "INT_MIN", "LONG_MAX", "LONG_MIN", "UINT_MAX", "DBL_MAX", "DBL_MIN",
        "DBL_EPSILON", "FLT_MAX", "FLT_MIN", "FLT_EPSILON", "RAND_MAX", "CLOCKS_PER_SEC", "stdin",
        "stdout", "stderr", "errno", "std"};
    return names;
}

// What is asked of a fact, and of a result.
const Names& FactMembers() {
    static const Names names = {"value",  "certainty",  "known",       "level", "outside",
                                "assign", "fact_value", "description", "age"};
    return names;
}

bool OpensBlock(std::string_view word) {
    return word == "If" || word == "IfOr" || word == "IfXor" || word == "IfAny" || word == "ForAll";
}

bool ClosesBlock(std::string_view word) {
    return word == "EndIf" || word == "EndIfOr" || word == "EndIfXor" || word == "EndIfAny" ||
           word == "EndForAll";
}

std::vector<std::string> TagNames(const std::string& bytes) {
    std::vector<std::string> names;
    for (const TagRecord& record : RecordsIn<TagRecord>(bytes))
        names.push_back(Text(record.name));
    return names;
}

// What the project declares for all of its systems, and what its sources use.
class NameCheck {
public:
    explicit NameCheck(const LoadedProject& project) : project_(project) {}

    std::vector<Finding> Run();

private:
    struct SystemNames {
        Names facts, variables, types;
        Names used;       // words of the rules and the header
        Names used_types; // in ForAll and IfAny
        Names declared;   // in the rules and the header, as C++
    };

    void Say(const std::string& file, const char* id, std::string text) {
        Finding finding;
        finding.file = file;
        finding.warning = true;
        finding.id = id;
        finding.text = std::move(text);
        findings_.push_back(std::move(finding));
    }

    // In the rules that are looked at.
    void SayAt(std::size_t offset, const char* id, std::string text) {
        Say(system_->rules.path, id, std::move(text));
        findings_.back().rule = spans_->RuleAt(offset);
        lines_->Locate(offset, findings_.back());
    }

    void DeclareProject();
    void Headers();
    void CppNames(const std::string& file, const char* kind, const std::vector<std::string>& names);
    SystemNames Declared(const LoadedSystem& system);
    void Source(const std::string& text, Names& words);
    void MayConclude(const Signs& signs, std::ptrdiff_t i);
    void System(const LoadedSystem& system);
    void Rules(const LoadedSystem& system, SystemNames& names);
    void Word(const Signs& signs, std::ptrdiff_t i, bool declares, SystemNames& names);
    void Item(std::size_t offset, const std::string& name);
    void Undeclared(std::size_t offset, const char* id, const char* kind, const std::string& name);
    bool IsDeclared(const std::string& name, const SystemNames& names) const;
    void Branches(const Signs& signs, const LoadedSystem& system);
    void UnusedOf(const LoadedSystem& system, const SystemNames& names);
    void UnusedResults();

    const LoadedProject& project_;
    std::vector<Finding> findings_;
    Names results_, items_;
    Names source_words_; // of the main file and the extern files
    Names used_;         // words of all systems
    Names concluded_;
    bool all_told_ = true; // whether every text is known that may declare something

    // Of the rules looked at:
    const LoadedSystem* system_ = nullptr;
    std::optional<Lines> lines_;
    std::optional<RuleSpans> spans_;
    std::set<std::string> told_, told_items_;
    Names settled_; // words found declared, so that each is looked up once
};

// Every word of a text of C++, with the results that it concludes.
void NameCheck::Source(const std::string& text, Names& words) {
    const Signs signs(text);
    for (std::ptrdiff_t i = 0; i < signs.Count(); ++i) {
        if (signs.At(i).word)
            words.insert(signs.TextAt(i));
        MayConclude(signs, i);
    }
}

// Whatever is done with a result may conclude it, unless it is only asked or taken back: it may be
// assigned to, or given to a function.
void NameCheck::MayConclude(const Signs& signs, std::ptrdiff_t i) {
    const bool taken_back = signs.TextAt(i - 3) == "retract" && signs.Concluded(i - 3) == i;
    if (!taken_back && signs.TextAt(i + 1) != "." && !signs.IsMember(i) &&
        results_.contains(signs.TextAt(i)))
        concluded_.insert(signs.TextAt(i));
}

void NameCheck::CppNames(const std::string& file, const char* kind,
                         const std::vector<std::string>& names) {
    for (const std::string& name : names)
        if (!IsCppName(name))
            Say(file, "bad-name", std::string(kind) + " has no C++ name: \"" + name + "\"");
}

void NameCheck::DeclareProject() {
    const std::vector<std::string> results = TagNames(project_.chosen.bytes);
    results_.insert(results.begin(), results.end());
    CppNames(project_.chosen.path, "a result", results);
    std::vector<std::string> items;
    for (const DDE_ITEM& item : RecordsIn<DDE_ITEM>(project_.dde.bytes, kNameSize))
        items.push_back(Text(item.DName));
    items_.insert(items.begin(), items.end());
    CppNames(project_.dde.path, "a DDE item", items);
    std::vector<std::string> systems;
    for (const LoadedSystem& system : project_.systems)
        systems.push_back(Stem(system.path));
    CppNames(project_.path, "a system", systems);
    Source(project_.main.bytes, source_words_);
    for (const NamedFile& file : project_.externs)
        Source(file.bytes, source_words_);
    Headers();
}

// The headers of its own that the project's sources include; the compiler's are not looked into.
void NameCheck::Headers() {
    std::string text = project_.main.bytes;
    for (const NamedFile& file : project_.externs)
        text += "\n" + file.bytes;
    for (const LoadedSystem& system : project_.systems)
        text += "\n" + system.header.bytes;
    const BuildNames names(project_.path.c_str());
    const morv::Included included = morv::ReadIncluded(text, {HostFile(names.folder)});
    Source(included.text, source_words_);
    all_told_ = included.all;
}

NameCheck::SystemNames NameCheck::Declared(const LoadedSystem& system) {
    SystemNames names;
    std::vector<std::string> facts, variables;
    for (const Dat& fact : system.file.facts)
        facts.push_back(Text(fact.Name));
    for (const V_V& variable : RecordsIn<V_V>(system.variables.bytes)) {
        variables.push_back(morv::DeclaredName(Text(variable.Name)));
        Source(Text(variable.Val), names.used);
    }
    for (const I_K& initial : RecordsIn<I_K>(system.initial.bytes))
        Source(Text(initial.K_Val), names.used);
    const std::vector<std::string> types = TagNames(system.types.bytes);
    CppNames(system.path, "a fact", facts);
    CppNames(system.variables.path, "a variable", variables);
    CppNames(system.types.path, "a knowledge type", types);
    names.facts.insert(facts.begin(), facts.end());
    names.variables.insert(variables.begin(), variables.end());
    names.types.insert(types.begin(), types.end());
    Source(system.header.bytes, names.declared);
    names.used.insert(names.declared.begin(), names.declared.end());
    return names;
}

bool NameCheck::IsDeclared(const std::string& name, const SystemNames& names) const {
    return results_.contains(name) || names.facts.contains(name) ||
           names.variables.contains(name) || names.declared.contains(name) ||
           source_words_.contains(name);
}

void NameCheck::Undeclared(std::size_t offset, const char* id, const char* kind,
                           const std::string& name) {
    if (!all_told_ || !told_.insert(name).second)
        return;
    SayAt(offset, id, std::string(kind) + " is not declared: " + name);
}

// A DDE item that the rules name; only the project declares those.
void NameCheck::Item(std::size_t offset, const std::string& name) {
    if (items_.contains(name) || !told_items_.insert(name).second)
        return;
    SayAt(offset, "undeclared-item", "a DDE item is not declared: " + name);
}

// One word of the rules: what it declares, or whether what it uses is declared.
void NameCheck::Word(const Signs& signs, std::ptrdiff_t i, bool declares, SystemNames& names) {
    const std::string& word = signs.TextAt(i);
    const std::size_t offset = signs.At(i).offset;
    if (!signs.IsName(i))
        return;
    if (signs.IsMember(i)) {
        if (signs.TextAt(i - 1) == "." && signs.TextAt(i - 2) == "DDEinfo")
            Item(offset, word);
        return;
    }
    const std::string& before = signs.TextAt(i - 1);
    const std::string& after = signs.TextAt(i + 1);
    if (before == "(" && signs.TextAt(i - 2) == "Poked" && after == ")" &&
        !IsDeclared("Poked", names))
        return Item(offset, word);
    if (settled_.contains(word))
        return;
    if (declares)
        names.declared.insert(word);
    if (declares || IsBlockWord(word) || KnownNames().contains(word) || IsCppKeyword(word) ||
        IsDeclared(word, names) || names.types.contains(word)) {
        settled_.insert(word);
        return;
    }
    if (before == "&" && signs.Concluded(i - 3) == i)
        return Undeclared(offset, "undeclared-result", "a result", word);
    if (after == "." && signs.TextAt(i + 2) == "holds")
        return Undeclared(offset, "undeclared-result", "a result", word);
    if (after == "." && FactMembers().contains(signs.TextAt(i + 2)))
        return Undeclared(offset, "undeclared-fact", "a fact", word);
    // What is called is a function, and what qualifies or is followed by a word is a type.
    if (after != "(" && !(after == ":" && signs.TextAt(i + 2) == ":") && !signs.At(i + 1).word)
        Undeclared(offset, "undeclared-variable", "a variable", word);
}

void NameCheck::Rules(const LoadedSystem& system, SystemNames& names) {
    const Signs signs(system.rules.bytes);
    lines_.emplace(system.rules.bytes);
    spans_.emplace(RecordsIn<RuleIndexRecord>(system.index.bytes));
    told_.clear();
    told_items_.clear();
    settled_.clear();
    LocalNames locals(signs);
    for (std::ptrdiff_t i = 0; i < signs.Count(); ++i) {
        const bool declares = locals.Declares(i);
        if (!signs.At(i).word)
            continue;
        const std::string& word = signs.TextAt(i);
        names.used.insert(word);
        if ((word == "ForAll" || word == "IfAny") && signs.TextAt(i + 1) == "(")
            names.used_types.insert(signs.TextAt(i + 2));
        MayConclude(signs, i);
        Word(signs, i, declares, names);
    }
    Branches(signs, system);
}

// In one branch of a block a result and its opposite take each other back.
void NameCheck::Branches(const Signs& signs, const LoadedSystem& system) {
    std::unordered_map<std::string, std::vector<std::string>> opposites;
    for (const NameRecord& entry : system.file.opposites) {
        const OppositePair pair = SplitOpposite(Text(entry.name));
        opposites[pair.result].push_back(pair.opposite);
        opposites[pair.opposite].push_back(pair.result);
    }
    if (opposites.empty())
        return;
    std::vector<Names> branches(1);
    for (std::ptrdiff_t i = 0; i < signs.Count(); ++i) {
        const std::string& word = signs.TextAt(i);
        if (word == "Rule")
            branches.assign(1, {});
        else if (OpensBlock(word))
            branches.emplace_back();
        else if (ClosesBlock(word) && branches.size() > 1)
            branches.pop_back();
        else if (word == "Then" || word == "Else" || word == "Otherwise")
            branches.back().clear();
        const std::ptrdiff_t at = word == "deduce" ? signs.Concluded(i) : 0;
        const auto found = at ? opposites.find(signs.TextAt(at)) : opposites.end();
        if (found == opposites.end())
            continue;
        for (const std::string& opposite : found->second)
            if (branches.back().contains(opposite)) {
                SayAt(signs.At(at).offset, "opposites-together",
                      "concluded with its opposite in one branch: " + found->first + " and " +
                          opposite);
            }
        branches.back().insert(found->first);
    }
}

void NameCheck::UnusedOf(const LoadedSystem& system, const SystemNames& names) {
    Names told;
    for (const Dat& fact : system.file.facts) {
        const std::string name = Text(fact.Name);
        if (!names.used.contains(name) && !names.used_types.contains(Text(fact.KnowType)) &&
            told.insert(name).second)
            Say(system.path, "unused-fact", "no rule uses the fact " + name);
    }
    for (const V_V& variable : RecordsIn<V_V>(system.variables.bytes)) {
        const std::string name = morv::DeclaredName(Text(variable.Name));
        if (!names.used.contains(name) && told.insert(name).second)
            Say(system.variables.path, "unused-variable", "no rule uses the variable " + name);
    }
}

void NameCheck::UnusedResults() {
    Names told;
    for (const std::string& name : TagNames(project_.chosen.bytes)) {
        if (!told.insert(name).second || concluded_.contains(name))
            continue;
        if (used_.contains(name) || source_words_.contains(name))
            Say(project_.chosen.path, "never-concluded", "no rule concludes the result " + name);
        else
            Say(project_.chosen.path, "unused-result", "no rule uses the result " + name);
    }
}

std::vector<Finding> NameCheck::Run() {
    DeclareProject();
    for (const LoadedSystem& system : project_.systems) {
        system_ = &system;
        SystemNames names = Declared(system);
        if (system.rules.found)
            Rules(system, names);
        UnusedOf(system, names);
        used_.insert(names.used.begin(), names.used.end());
    }
    UnusedResults();
    return std::move(findings_);
}

} // namespace

std::vector<Finding> NameWarnings(const LoadedProject& project) {
    return NameCheck(project).Run();
}

} // namespace console
