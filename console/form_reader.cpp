#include "console/code_page.h"
#include "console/project_form.h"

#include "shell/core/line_ends.h"
#include "shell/core/paths.h"
#include "system/core/rule_text.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace console {

namespace {

struct FormLine {
    int number;
    std::string_view text;
};

struct FormSettingLine {
    int number;
    std::string key;
    std::string_view value;
};

struct FormSection {
    int number;
    std::string kind;
    std::string_view name;
    std::vector<FormSettingLine> settings;
    std::vector<FormLine> rows;
};

bool HasSettings(const std::string& kind) {
    return kind == "project" || kind == "system" || kind == "dde" || kind == "files";
}

// What stands before the '=' of a setting; nothing for a row.
std::optional<std::string> KeyOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == line.npos)
        return std::nullopt;
    const std::string_view key = Trimmed(line.substr(0, equals));
    const auto in_key = [](char c) { return (c >= 'a' && c <= 'z') || c == ' '; };
    return !key.empty() && std::all_of(key.begin(), key.end(), in_key)
               ? std::optional<std::string>(key)
               : std::nullopt;
}

std::vector<FormSection> SectionsOf(std::string_view text, Failure& failure, int& line_number) {
    static const std::set<std::string, std::less<>> kinds = {
        "project", "results", "chosen",    "tags",      "dde",     "system",  "types", "index",
        "facts",   "used",    "opposites", "variables", "initial", "entries", "files"};
    std::vector<FormSection> sections;
    for (int number = 1; !text.empty() && failure.text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        line_number = number;
        if (line.empty() || line[0] == ';')
            continue;
        if (line[0] == '[') {
            const std::size_t blank = line.find(' ');
            if (blank == line.npos || line.back() != ']') {
                failure.Note("a section is [kind name]");
                break;
            }
            FormSection section{number,
                                std::string(line.substr(1, blank - 1)),
                                Trimmed(line.substr(blank + 1, line.size() - blank - 2)),
                                {},
                                {}};
            if (!kinds.contains(section.kind))
                failure.Note("no such kind of section: " + section.kind);
            sections.push_back(std::move(section));
        } else if (sections.empty()) {
            failure.Note("no row belongs here");
        } else if (const auto key =
                       HasSettings(sections.back().kind) ? KeyOf(line) : std::nullopt) {
            sections.back().settings.push_back(
                {number, *key, Trimmed(line.substr(line.find('=') + 1))});
        } else if (HasSettings(sections.back().kind) && sections.back().kind != "dde") {
            failure.Note("no row belongs here");
        } else {
            sections.back().rows.push_back({number, line});
        }
    }
    return sections;
}

class FormReader {
public:
    FormReader(const SourceReader& source, const std::string& work, Failure& failure)
        : source_(source), failure_(failure) {
        folder_.work = work;
    }

    ProjectFolder Run(std::string_view text) {
        sections_ = SectionsOf(text, failure_, line_);
        if (Ok())
            Folder();
        if (Ok())
            Contents();
        if (Ok())
            Systems();
        if (Ok())
            Project();
        if (Ok())
            Unowned();
        if (!Ok() && line_ > 0)
            failure_.text = "line " + std::to_string(line_) + ": " + failure_.text;
        return std::move(folder_);
    }

private:
    bool Ok() const { return failure_.text.empty(); }

    std::string FieldOf(std::string_view text) {
        const std::optional<Field> field = FieldIn(text);
        if (!field || (field->text.empty() && !field->quoted))
            failure_.Note("no field: " + std::string(text));
        return field ? field->text : "";
    }

    std::int32_t NumberAt(std::string_view text) {
        const std::optional<std::int32_t> number = WholeNumberOf(text);
        if (!number)
            failure_.Note("not a whole number: " + std::string(text));
        return number.value_or(0);
    }

    // A name below the folder; `extension` goes behind a bare one without a '.'.
    std::string OwnOf(std::string_view text, std::string_view extension) {
        const std::optional<Field> field = FieldIn(text);
        if (!field || field->text.empty()) {
            failure_.Note("no name: " + std::string(text));
            return {};
        }
        std::string own = field->text;
        if (!field->quoted && own.find('.') == own.npos)
            own += extension;
        if (!StaysBelow(own))
            failure_.Note("not a file below the project's folder: " + std::string(text));
        return own;
    }

    std::string PathOf(std::string_view text, std::string_view extension = "") {
        if (text.starts_with('@'))
            return FieldOf(text.substr(1));
        return text == "\"\"" ? "" : folder_.Home() + OwnOf(text, extension);
    }

    template <std::size_t N> void Put(char (&field)[N], const std::string& text) {
        Store(field, text, failure_);
    }

    void Make(const std::string& own, std::string bytes) {
        const auto [file, is_new] = folder_.files.try_emplace(own, std::move(bytes));
        if (!is_new && file->second != bytes)
            failure_.Note("two sections make the file " + own);
    }

    // The bytes of a section's rows.
    template <class Record>
    std::string RowBytes(const FormSection& section, Record (*read)(std::string_view, Failure&)) {
        std::string bytes;
        bytes.reserve(section.rows.size() * sizeof(Record));
        for (const FormLine& row : section.rows) {
            line_ = row.number;
            bytes += BytesOf(read(row.text, failure_));
            if (!Ok())
                break;
        }
        return bytes;
    }

    static std::string_view ExtensionOf(const std::string& kind) {
        static const std::map<std::string, std::string_view> extensions = {
            {"project", ".mrv"}, {"results", ".rst"},   {"chosen", ".aux"}, {"tags", ".tag"},
            {"dde", ".dde"},     {"types", ".typ"},     {"index", ".siz"},  {"facts", ".fac"},
            {"entries", ".ikw"}, {"variables", ".var"}, {"files", ".mrv"}};
        const auto found = extensions.find(kind);
        return found == extensions.end() ? ".lse" : found->second;
    }

    std::string OwnOf(const FormSection& section) {
        line_ = section.number;
        if (!section.name.starts_with('"') &&
            section.name.find_first_of(".\\/: ") != section.name.npos)
            failure_.Note("no name for files: " + std::string(section.name));
        return OwnOf(section.name, ExtensionOf(section.kind));
    }

    void Folder();
    void Contents();
    void Content(const FormSection& section, const std::string& own);
    std::string FactsBytes(const FormSection& section);
    std::string DdeContent(const FormSection& section);
    void Systems();
    void System(const FormSection& section);
    void SystemSetting(const FormSettingLine& line, SystemHead& head);
    void SystemFacts(SystemFile& file, const FormSection* used,
                     const std::unordered_set<std::string>& without);
    void Index(const SystemHead& head, const std::string& usual);
    void Initial(const std::string& own, const SystemFile& file);
    void Default(const std::string& path, const std::string& own, std::string bytes);
    void Project();
    void ProjectSetting(const FormSettingLine& line, ProjectFile& project);
    void Unused(const FormSettingLine& line, char (*rows)[kNameSize], int count);
    void Row(char (*rows)[kNameSize], std::int32_t& count, int most, const std::string& path,
             const char* what);
    void Unowned();
    void Source(const std::string& path);

    // The section of this kind that belongs to a file; null without one.
    const FormSection* SectionOf(const std::string& kind, const std::string& own) {
        const auto found = by_kind_.find(kind + " " + own);
        if (found == by_kind_.end())
            return nullptr;
        taken_.insert(found->second);
        return found->second;
    }

    std::size_t CountIn(const std::string& path, std::size_t size) const {
        const std::string* const content = folder_.Content(path);
        return content ? content->size() / size : 0;
    }

    const SourceReader& source_;
    Failure& failure_;
    int line_ = 0; // being read; 0 when nothing is
    ProjectFolder folder_;
    std::vector<FormSection> sections_;
    std::map<std::string, const FormSection*> by_kind_; // by kind and own name
    std::set<const FormSection*> taken_;
    std::set<std::string> missing_, exact_; // own names
    std::vector<std::string> results_;      // own names, in the order of their sections
};

// The project's name and folder, on which all paths depend, and what is known of its files.
void FormReader::Folder() {
    const auto is_project = [](const FormSection& each) { return each.kind == "project"; };
    const auto project = std::find_if(sections_.begin(), sections_.end(), is_project);
    if (project == sections_.end()) {
        line_ = 0;
        return failure_.Note("no project");
    }
    folder_.project = OwnOf(*project);
    folder_.folder = CutAtDot(folder_.project);
    for (const FormSettingLine& line : project->settings)
        if (line.key == "folder") {
            line_ = line.number;
            const std::optional<Field> field = FieldIn(line.value);
            folder_.folder = field ? field->text : "";
            if (!field || (!field->text.empty() && (!StaysBelow(field->text) ||
                                                    field->text.find('\\') != field->text.npos)))
                failure_.Note("no name for a folder: " + std::string(line.value));
        }
    if (!Ok())
        return;
    for (const FormSection& section : sections_) {
        const auto [found, is_new] =
            by_kind_.try_emplace(section.kind + " " + OwnOf(section), &section);
        if (!is_new)
            failure_.Note("the section is there twice");
        if (!Ok())
            return;
        if (section.kind == "files")
            for (const FormSettingLine& line : section.settings) {
                line_ = line.number;
                if (line.key != "missing" && line.key != "exact")
                    failure_.Note("no such setting: " + line.key);
                (line.key == "exact" ? exact_ : missing_).insert(OwnOf(line.value, ""));
            }
    }
}

std::string FormReader::FactsBytes(const FormSection& section) {
    std::string bytes;
    std::int32_t number = 0;
    for (const FormLine& row : section.rows) {
        line_ = row.number;
        bytes += BytesOf(FactOfRow(row.text, ++number, failure_));
        if (!Ok())
            break;
    }
    return bytes;
}

std::string FormReader::DdeContent(const FormSection& section) {
    NameRecord head{};
    for (const FormSettingLine& line : section.settings) {
        line_ = line.number;
        if (line.key != "conversation")
            failure_.Note("no such setting: " + line.key);
        Put(head.name, FieldOf(line.value));
    }
    return std::string(BytesOf(head)) + RowBytes(section, ItemOfRow);
}

void FormReader::Content(const FormSection& section, const std::string& own) {
    const std::string& kind = section.kind;
    if (kind == "results" || kind == "tags" || kind == "types" || kind == "chosen")
        Make(own, RowBytes(section, NameOfRow));
    else if (kind == "facts")
        Make(own, FactsBytes(section));
    else if (kind == "variables")
        Make(own, RowBytes(section, VariableOfRow));
    else if (kind == "entries")
        Make(own, RowBytes(section, InitialOfRow));
    else if (kind == "index")
        Make(own, RowBytes(section, IndexOfRow));
    else if (kind == "dde")
        Make(own, DdeContent(section));
    if (kind == "results")
        results_.push_back(own);
}

// The files that a section holds whole.
void FormReader::Contents() {
    for (const FormSection& section : sections_) {
        const std::string own = OwnOf(section);
        Content(section, own);
        if (!Ok())
            return;
    }
}

// The file with the usual name is made, also an empty one, unless the text says that it is missing.
void FormReader::Default(const std::string& path, const std::string& own, std::string bytes) {
    if (path == folder_.Home() + own && !missing_.contains(own))
        folder_.files.try_emplace(own, std::move(bytes));
}

void FormReader::Source(const std::string& path) {
    const std::optional<std::string> own = folder_.OwnName(path);
    if (!own || missing_.contains(*own) || folder_.files.contains(*own))
        return;
    const std::optional<std::string> text = source_(*own);
    if (!text)
        return failure_.Note("cannot read " + *own);
    Make(*own, exact_.contains(*own) ? *text : WithCrLf(*text));
}

void FormReader::SystemSetting(const FormSettingLine& line, SystemHead& head) {
    line_ = line.number;
    if (line.key == "rules")
        Put(head.RuleName, PathOf(line.value));
    else if (line.key == "header")
        Put(head.HeaderName, PathOf(line.value));
    else if (line.key == "index file")
        Put(head.RuleSizeName, PathOf(line.value, ".siz"));
    else if (line.key == "types file")
        Put(head.KTypeName, PathOf(line.value, ".typ"));
    else if (line.key == "facts file")
        Put(head.KnowName, PathOf(line.value, ".fac"));
    else if (line.key == "variables file")
        Put(head.VarName, PathOf(line.value, ".var"));
    else if (line.key == "initial file")
        Put(head.InitName, PathOf(line.value, ".ikw"));
    else if (line.key == "counted types")
        head.TypNum = NumberAt(line.value);
    else if (line.key == "counted facts")
        head.DatNum = NumberAt(line.value);
    else if (line.key == "counted opposites")
        head.OppNum = NumberAt(line.value);
    else if (line.key != "types" && line.key != "without")
        failure_.Note("no such setting: " + line.key);
}

void FormReader::SystemFacts(SystemFile& file, const FormSection* used,
                             const std::unordered_set<std::string>& without) {
    const std::string* const content = folder_.Content(Text(file.head.KnowName));
    const std::vector<Dat> base = content ? RecordsIn<Dat>(*content) : std::vector<Dat>();
    if (!used) {
        for (const Dat& fact : base)
            if (!without.contains(Text(fact.Name)))
                file.facts.push_back(fact);
        return;
    }
    std::unordered_map<std::string, const Dat*> first;
    for (const Dat& fact : base)
        first.emplace(Text(fact.Name), &fact);
    std::int32_t number = 0;
    for (const FormLine& row : used->rows) {
        line_ = row.number;
        ++number;
        if (RowParts(row.text).size() > 1) {
            file.facts.push_back(FactOfRow(row.text, number, failure_));
        } else {
            const auto found = first.find(Fields(row.text, 1, 1, failure_)[0]);
            if (found == first.end())
                failure_.Note("no such fact: " + std::string(row.text));
            else
                file.facts.push_back(*found->second);
        }
        if (!Ok())
            return;
    }
}

void FormReader::Index(const SystemHead& head, const std::string& usual) {
    const std::optional<std::string> own = folder_.OwnName(usual);
    const std::string* const rules = folder_.Content(Text(head.RuleName));
    if (!own || !rules || Text(head.RuleSizeName) != usual || missing_.contains(*own) ||
        folder_.files.contains(*own))
        return;
    const RenumberedRules sound = Renumber(*rules);
    if (sound.text != *rules)
        return failure_.Note("the rules are not numbered and closed: " + Text(head.RuleName));
    Make(*own, IndexBytes(sound.sizes));
}

// The initial facts of a system with the usual file.
void FormReader::Initial(const std::string& own, const SystemFile& file) {
    const FormSection* const section = SectionOf("initial", own);
    const form::DefaultNames names(own, "");
    std::string given;
    if (section) {
        given = RowBytes(*section, InitialOfRow);
        std::unordered_set<std::string> facts;
        for (const Dat& fact : file.facts)
            facts.insert(Text(fact.Name));
        line_ = section->number;
        for (const I_K& initial : RecordsIn<I_K>(given))
            if (!facts.contains(Text(initial.K_Name)))
                failure_.Note("no such fact: " + Text(initial.K_Name));
        if (Text(file.head.InitName) != folder_.Home() + names.initial)
            failure_.Note("its file has another name: [entries ...]");
    }
    Default(Text(file.head.InitName), names.initial,
            form::InitialBytes(file.facts, RecordsIn<I_K>(given)));
}

void FormReader::System(const FormSection& section) {
    const std::string own = OwnOf(section);
    SystemFile file;
    SystemHead& head = file.head;
    for (const FormSettingLine& line : section.settings)
        if (line.key == "rules") {
            line_ = line.number;
            Put(head.RuleName, PathOf(line.value));
        }
    const form::DefaultNames names(own, Text(head.RuleName));
    const std::string home = folder_.Home();
    Put(head.KTypeName, home + names.types);
    Put(head.RuleSizeName, names.index);
    Put(head.VarName, home + names.variables);
    Put(head.InitName, home + names.initial);
    Put(head.KnowName, home + names.base);
    constexpr std::int32_t kNone = std::numeric_limits<std::int32_t>::min();
    head.TypNum = head.DatNum = head.OppNum = kNone;
    std::string types;
    std::unordered_set<std::string> without;
    for (const FormSettingLine& line : section.settings) {
        SystemSetting(line, head);
        if (line.key == "types")
            types += BytesOf(NameOfRow(line.value, failure_));
        else if (line.key == "without")
            without.insert(FieldOf(line.value));
        if (!Ok())
            return;
    }
    if (!types.empty())
        Make(names.types, types);
    Default(Text(head.KTypeName), names.types, "");
    Default(Text(head.KnowName), names.base, "");
    Default(Text(head.VarName), names.variables, "");
    Source(Text(head.RuleName));
    Source(Text(head.HeaderName));
    Index(head, names.index);
    SystemFacts(file, SectionOf("used", own), without);
    if (const FormSection* opposites = SectionOf("opposites", own))
        file.opposites = RecordsIn<NameRecord>(RowBytes(*opposites, OppositeOfRow));
    Initial(own, file);
    const auto count = [](std::int32_t counted, std::size_t there) {
        return counted == kNone ? static_cast<std::int32_t>(there) : counted;
    };
    head.TypNum = count(head.TypNum, CountIn(Text(head.KTypeName), sizeof(TagRecord)));
    head.DatNum = count(head.DatNum, file.facts.size());
    head.OppNum = count(head.OppNum, file.opposites.size());
    Make(own, SystemBytes(file));
}

void FormReader::Systems() {
    for (const FormSection& section : sections_) {
        if (section.kind == "system")
            System(section);
        if (!Ok())
            return;
    }
}

void FormReader::Row(char (*rows)[kNameSize], std::int32_t& count, int most,
                     const std::string& path, const char* what) {
    if (count == most)
        return failure_.Note(std::string("too many ") + what);
    Put(rows[++count], path);
}

// "5 path": what stands in a row that does not count.
void FormReader::Unused(const FormSettingLine& line, char (*rows)[kNameSize], int count) {
    const std::size_t blank = std::min(line.value.find(' '), line.value.size());
    const std::int32_t row = NumberAt(line.value.substr(0, blank));
    if (row < 0 || row >= count)
        return failure_.Note("no such row: " + std::string(line.value));
    Put(rows[row], PathOf(Trimmed(line.value.substr(blank))));
}

void FormReader::ProjectSetting(const FormSettingLine& line, ProjectFile& project) {
    line_ = line.number;
    ProjectRecord& head = project.head;
    std::int32_t systems = head.EngNum, externs = head.ExtNum;
    if (line.key == "main")
        Put(head.MainName, PathOf(line.value));
    else if (line.key == "extern")
        Row(head.ExternFiles, externs, kMaxExterns, PathOf(line.value), "extern files");
    else if (line.key == "dde")
        Put(head.DDEName, PathOf(line.value, ".dde"));
    else if (line.key == "history")
        head.DatHisLen = NumberAt(line.value);
    else if (line.key == "chosen")
        Put(head.ResAux, PathOf(line.value, ".aux"));
    else if (line.key == "results")
        Put(project.results.emplace_back().name, PathOf(line.value, ".rst"));
    else if (line.key == "system")
        Row(head.EngineNames, systems, kMaxSystems, PathOf(line.value, ".lse"), "systems");
    else if (line.key == "unused system")
        Unused(line, head.EngineNames, kMaxSystems + 1);
    else if (line.key == "unused extern")
        Unused(line, head.ExternFiles, kMaxExterns + 1);
    else if (line.key != "folder")
        failure_.Note("no such setting: " + line.key);
    head.EngNum = systems;
    head.ExtNum = externs;
}

void FormReader::Project() {
    line_ = 0;
    const FormSection& section = *by_kind_.at("project " + folder_.project);
    const std::string home = folder_.Home();
    const std::string chosen = CutAtDot(folder_.project) + ".aux";
    ProjectFile project;
    ProjectRecord& head = project.head;
    head.DatHisLen = 4; // as in a new project
    Put(head.ResAux, home + chosen);
    for (const FormSettingLine& line : section.settings) {
        ProjectSetting(line, project);
        if (!Ok())
            return;
    }
    line_ = section.number;
    std::int32_t systems = head.EngNum;
    if (systems == 0)
        for (const FormSection& each : sections_)
            if (each.kind == "system")
                Row(head.EngineNames, systems, kMaxSystems, home + OwnOf(each), "systems");
    head.EngNum = systems;
    if (project.results.empty())
        for (const std::string& own : results_)
            Put(project.results.emplace_back().name, home + own);
    head.ResNum = static_cast<std::int32_t>(project.results.size());
    line_ = 0;
    Source(Text(head.MainName));
    for (int i = 1; i <= head.ExtNum; ++i)
        Source(Text(head.ExternFiles[i]));
    std::string all;
    for (const NameRecord& record : project.results)
        if (const std::string* content = folder_.Content(Text(record.name)))
            all += *content;
    Default(Text(head.ResAux), chosen, all);
    Make(folder_.project, std::string(BytesOf(head)).append(BytesOf(project.results)));
}

// A section whose file or system nobody names is a slip.
void FormReader::Unowned() {
    std::set<std::string> named = {folder_.project};
    const auto name = [&](const std::string& path) {
        if (const std::optional<std::string> own = folder_.OwnName(path))
            named.insert(*own);
    };
    const ProjectFile project = ProjectIn(folder_.files.at(folder_.project));
    name(Text(project.head.DDEName));
    name(Text(project.head.ResAux));
    for (const NameRecord& record : project.results)
        name(Text(record.name));
    for (int i = 1; i <= project.head.EngNum; ++i)
        name(Text(project.head.EngineNames[i]));
    for (const FormSection& section : sections_) {
        if (section.kind != "system")
            continue;
        const SystemHead head = HeadIn(folder_.files.at(OwnOf(section)));
        for (const auto* path :
             {&head.KTypeName, &head.RuleSizeName, &head.VarName, &head.InitName, &head.KnowName})
            name(Text(*path));
    }
    for (const FormSection& section : sections_) {
        const std::string own = OwnOf(section);
        const bool of_system =
            section.kind == "used" || section.kind == "opposites" || section.kind == "initial";
        if (of_system ? !taken_.contains(&section) : section.kind != "tags" && !named.contains(own))
            return failure_.Note("nothing in the project is named so: " + section.kind + " " +
                                 std::string(section.name));
    }
    line_ = 0;
}

} // namespace

ProjectFolder FolderOfForm(std::string_view text, const SourceReader& source,
                           const std::string& work, Failure& failure) {
    return FormReader(source, work, failure).Run(text);
}

} // namespace console
