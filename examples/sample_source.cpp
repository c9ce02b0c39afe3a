#include "examples/sample_source.h"

#include "project/core/project_file.h"
#include "resources/core/dde_item.h"

#include <algorithm>
#include <charconv>

namespace sample {

namespace {

using Fields = std::vector<std::string>;

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r") + 1 - first));
}

Fields SplitAt(std::string_view text, char separator) {
    Fields fields;
    for (;;) {
        const std::size_t end = text.find(separator);
        fields.push_back(Trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return fields;
        text.remove_prefix(end + 1);
    }
}

// What is wrong: the first failure stays.
struct Failure {
    std::string text;

    void Note(const std::string& what) {
        if (text.empty())
            text = what;
    }
};

// The fields of a row, of which there must be `count`.
Fields Row(std::string_view line, std::size_t count, Failure& failure) {
    Fields fields = SplitAt(line, '|');
    if (fields.size() != count)
        failure.Note("a row here has " + std::to_string(count) + " fields");
    fields.resize(count);
    return fields;
}

double Number(const std::string& text, Failure& failure) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        failure.Note("not a number: " + text);
    return value;
}

std::vector<double> Numbers(const std::string& text, std::size_t count, Failure& failure) {
    std::vector<double> numbers;
    for (const std::string& word : SplitAt(text, ' '))
        if (!word.empty())
            numbers.push_back(Number(word, failure));
    if (numbers.size() != count)
        failure.Note("numbers needed, " + std::to_string(count) + ": " + text);
    numbers.resize(count);
    return numbers;
}

// `text`, which must be one that a field of `size` bytes holds whole.
const std::string& Fitting(const std::string& text, std::size_t size, Failure& failure) {
    if (text.empty() || text.size() >= size)
        failure.Note("empty or too long: " + text);
    return text;
}

Dat FactIn(std::string_view line, std::int32_t ident, Failure& failure) {
    const Fields fields = Row(line, 7, failure);
    const std::vector<double> limits = Numbers(fields[4], 3, failure);
    const std::vector<double> levels = Numbers(fields[5], 5, failure);
    Dat fact{};
    SetText(fact.Name, Fitting(fields[0], sizeof fact.Name, failure));
    SetText(fact.KnowType, Fitting(fields[1], sizeof fact.KnowType, failure));
    SetText(fact.Description, Fitting(fields[2], sizeof fact.Description, failure));
    SetText(fact.Units, Fitting(fields[3], sizeof fact.Units, failure));
    fact.inf_limit = limits[0];
    fact.sup_limit = limits[1];
    fact.Step = limits[2];
    fact.lowest = levels[0];
    fact.low = levels[1];
    fact.normal = levels[2];
    fact.high = levels[3];
    fact.highest = levels[4];
    fact.Interval = static_cast<std::int32_t>(Number(fields[6], failure));
    fact.Ident = ident;
    return fact;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<std::string> FactNames(const std::vector<Dat>& facts) {
    std::vector<std::string> names;
    for (const Dat& fact : facts)
        names.push_back(Text(fact.Name));
    return names;
}

// Reads line after line into a source.
class Reader {
public:
    Reader(Source& source, Failure& failure) : source_(source), failure_(failure) {}

    void Line(const std::string& line) {
        if (line.empty() || line[0] == ';')
            return;
        if (line[0] == '[')
            return Section(line);
        const std::size_t equals = line.find('=');
        if (HasSettings() && equals != std::string::npos)
            return Setting(Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
        Rows(line);
    }

private:
    bool HasSettings() const { return kind_ == "project" || kind_ == "system" || kind_ == "dde"; }

    void Section(const std::string& line) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string::npos || line.back() != ']')
            return failure_.Note("a section is [kind name]");
        kind_ = line.substr(1, blank - 1);
        const std::string name = Trimmed(line.substr(blank + 1, line.size() - blank - 2));
        if (name.empty() || name.find_first_of(".\\/: ") != std::string::npos)
            failure_.Note("no name for files: " + name);
        if (kind_ == "project")
            source_.name = name;
        else if (kind_ == "results")
            source_.results.push_back({name, {}});
        else if (kind_ == "tags")
            source_.tags.push_back({name, {}});
        else if (kind_ == "dde")
            source_.dde_files.push_back({name, {}, {}});
        else if (kind_ == "system")
            source_.systems.emplace_back().name = name;
        else if (kind_ == "facts" || kind_ == "opposites" || kind_ == "variables" ||
                 kind_ == "initial")
            FindSystem(name);
        else
            failure_.Note("no such kind of section: " + kind_);
    }

    void FindSystem(const std::string& name) {
        auto& systems = source_.systems;
        const auto found = std::find_if(systems.begin(), systems.end(),
                                        [&](const System& each) { return each.name == name; });
        if (found == systems.end())
            return failure_.Note("no such system: " + name);
        system_ = static_cast<std::size_t>(found - systems.begin());
    }

    void Setting(const std::string& key, const std::string& value) {
        const std::string which = kind_ + " " + key;
        if (which == "project main")
            source_.main = value;
        else if (which == "project extern")
            source_.externs.push_back(value);
        else if (which == "project dde")
            source_.dde = value;
        else if (which == "project history")
            source_.history = static_cast<std::int32_t>(Number(value, failure_));
        else if (which == "dde conversation")
            source_.dde_files.back().conversation = Fitting(value, kNameSize, failure_);
        else if (which == "system rules")
            source_.systems.back().rules = value;
        else if (which == "system header")
            source_.systems.back().header = value;
        else if (which == "system types")
            source_.systems.back().types.push_back(Fitting(value, kTagSize, failure_));
        else if (which == "system without")
            source_.systems.back().without.push_back(value);
        else
            failure_.Note("no such setting: " + key);
    }

    void Rows(const std::string& line) {
        if (kind_ == "results")
            return source_.results.back().rows.push_back(Fitting(line, kTagSize, failure_));
        if (kind_ == "tags")
            return source_.tags.back().rows.push_back(Fitting(line, kTagSize, failure_));
        if (kind_ == "dde") {
            const Fields fields = Row(line, 2, failure_);
            source_.dde_files.back().items.emplace_back(
                Fitting(fields[0], sizeof(DDE_ITEM::DName), failure_),
                Fitting(fields[1], sizeof(DDE_ITEM::DType), failure_));
        } else if (kind_ == "facts" || kind_ == "opposites" || kind_ == "variables" ||
                   kind_ == "initial") {
            SystemRow(source_.systems[system_], line);
        } else {
            failure_.Note("no row belongs here");
        }
    }

    void SystemRow(System& system, const std::string& line) {
        if (kind_ == "facts") {
            system.base.push_back(
                FactIn(line, static_cast<std::int32_t>(system.base.size()) + 1, failure_));
        } else if (kind_ == "opposites") {
            const Fields fields = Row(line, 2, failure_);
            system.opposites.emplace_back(Fitting(fields[0], kTagSize, failure_),
                                          Fitting(fields[1], kTagSize, failure_));
        } else {
            const Fields fields = Row(line, 3, failure_);
            for (const std::string& field : fields)
                Fitting(field, kNameSize, failure_);
            if (kind_ == "variables")
                system.variables.push_back({fields[0], fields[1], fields[2]});
            else
                system.initial.push_back({fields[0], fields[1], fields[2]});
        }
    }

    Source& source_;
    Failure& failure_;
    std::string kind_;
    std::size_t system_ = 0;
};

void CheckSystem(const System& system, const std::vector<std::string>& results, Failure& failure) {
    const std::vector<std::string> base = FactNames(system.base);
    const std::vector<std::string> used = FactNames(system.UsedFacts());
    std::vector<std::string> types = {"DETECTION", "DIAGNOSTIC", "ACTION"};
    types.insert(types.end(), system.types.begin(), system.types.end());
    for (const Dat& fact : system.base)
        if (!Contains(types, Text(fact.KnowType)))
            failure.Note("no such knowledge type: " + Text(fact.KnowType));
    for (const std::string& name : system.without)
        if (!Contains(base, name))
            failure.Note("no such fact: " + name);
    for (const InitialFact& initial : system.initial)
        if (!Contains(used, initial.fact))
            failure.Note("no such fact: " + initial.fact);
    for (const auto& [result, opposite] : system.opposites)
        if (!Contains(results, result) || !Contains(results, opposite))
            failure.Note("no such result: " + result + " or " + opposite);
    if (system.rules.empty())
        failure.Note("no rules file for system " + system.name);
}

void Check(const Source& source, Failure& failure) {
    std::vector<std::string> results;
    for (const NameList& list : source.results)
        results.insert(results.end(), list.rows.begin(), list.rows.end());
    if (source.name.empty() || source.main.empty())
        failure.Note("no project or no main file");
    if (source.systems.size() > kMaxSystems || source.externs.size() > kMaxExterns)
        failure.Note("too many systems or extern files");
    const bool has_dde = std::any_of(source.dde_files.begin(), source.dde_files.end(),
                                     [&](const Dde& dde) { return dde.name == source.dde; });
    if (!has_dde)
        failure.Note("no such dde section: " + source.dde);
    for (const System& system : source.systems)
        CheckSystem(system, results, failure);
}

} // namespace

std::vector<Dat> System::UsedFacts() const {
    std::vector<Dat> used;
    for (const Dat& fact : base)
        if (!Contains(without, Text(fact.Name)))
            used.push_back(fact);
    return used;
}

std::string ReadSource(std::string_view text, Source& source) {
    source = {};
    Failure failure;
    Reader reader(source, failure);
    int number = 0;
    for (const std::string& line : SplitAt(text, '\n')) {
        ++number;
        reader.Line(line);
        if (!failure.text.empty())
            return "line " + std::to_string(number) + ": " + failure.text;
    }
    Check(source, failure);
    return failure.text;
}

} // namespace sample
