#include "console/form/project_form.h"

#include "build/core/project_lists.h"
#include "console/form/code_page.h"
#include "shell/core/line_ends.h"
#include "shell/core/paths.h"
#include "system/core/rule_text.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace console {

namespace {

constexpr std::string_view kFirstLine = "; A Zentrik project as text. zentrikc export writes it, "
                                        "zentrikc import makes the project of it.\n";

class FormWriter {
public:
    FormWriter(const ProjectFolder& folder, Refusal& refusal)
        : folder_(folder), refusal_(refusal), project_(ProjectIn(folder.files.at(folder.project))) {
    }

    ProjectForm Run() {
        form_.name = CutAtDot(folder_.project) + ".txt";
        form_.text = kFirstLine;
        Project();
        Results();
        Tags();
        Dde();
        for (int i = 1; i <= SystemCount(project_.head); ++i)
            System(Text(project_.head.EngineNames[i]));
        Files();
        return std::move(form_);
    }

private:
    void Line(std::string_view line) { form_.text.append(line).append("\n"); }

    void Setting(std::string_view key, std::string_view value) {
        form_.text.append(key).append(" = ").append(value).append("\n");
    }

    void Section(std::string_view kind, const std::string& name) {
        form_.text.append("\n[").append(kind).append(" ").append(name).append("]\n");
    }

    // A section's name: that of the file it makes, without the extension that its kind has.
    static std::string SectionName(const std::string& own, std::string_view extension) {
        if (!own.ends_with(extension))
            return QuotedField(own);
        const std::string stem = own.substr(0, own.size() - extension.size());
        const bool plain = !stem.empty() && stem.find_first_of(".\\/:\" []\t") == stem.npos &&
                           FieldText(stem, "") == ToUtf8(stem);
        return plain ? ToUtf8(stem) : QuotedField(own);
    }

    // A path as a value: below the folder without it, elsewhere whole behind '@'. A name without a
    // '.' stands for one with the extension.
    std::string PathValue(const std::string& path, std::string_view extension = "") const {
        if (path.empty())
            return "\"\"";
        const std::optional<std::string> own = folder_.OwnName(path);
        if (!own)
            return "@" + FieldText(path, "");
        if (extension.empty())
            return FieldText(*own, "");
        const std::string name = SectionName(*own, extension);
        return name.starts_with('"') && own->find('.') != own->npos ? FieldText(*own, "") : name;
    }

    bool IsOwn(const std::string& path) const { return folder_.OwnName(path).has_value(); }

    // Takes a source over, once; returns its value.
    std::string SourceValue(const std::string& path) {
        const std::optional<std::string> own = folder_.OwnName(path);
        const std::string* const content = folder_.Content(path);
        if (own && !content)
            missing_.insert(*own);
        if (!content || form_.beside.contains(*own))
            return PathValue(path);
        if (Folded(*own) == Folded(form_.name))
            refusal_.Note(path, "its name is that of the text form");
        std::string plain;
        for (std::size_t i = 0; i < content->size(); ++i)
            if ((*content)[i] != '\r' || i + 1 == content->size() || (*content)[i + 1] != '\n')
                plain += (*content)[i];
        const bool exact = WithCrLf(plain) != *content;
        if (exact)
            exact_.insert(*own);
        form_.beside.emplace(*own, exact ? *content : std::move(plain));
        return PathValue(path);
    }

    // A file that is made unless the text says that it is missing.
    void Expect(const std::string& own) {
        if (!folder_.files.contains(own))
            missing_.insert(own);
    }

    void Project();
    void Files();
    void ProjectLists();
    void Unused();
    void Scenarios();
    void Results();
    void Tags();
    void Dde();
    void System(const std::string& path);
    void Counts(const SystemHead& head, const SystemFile& file);
    void Opposites(const std::string& system, const SystemFile& file);
    void Variables(const std::string& path);
    void SystemSettings(const SystemHead& head, const form::DefaultNames& names);
    void NamesSection(std::string_view kind, const std::string& path, std::string_view extension);
    void Index(const SystemHead& head, const form::DefaultNames& names);
    void Facts(const std::string& path);
    void Used(const std::string& system, const SystemFile& file, const std::vector<Dat>& base);
    void Initial(const std::string& path, const SystemFile& file, const form::DefaultNames& names);

    // Whether a section for the content of this file is due: it is there and has had none.
    bool Due(const std::string& path, std::string_view kind) {
        return folder_.Content(path) &&
               written_.insert(std::string(kind) + " " + *folder_.OwnName(path)).second;
    }

    template <class Record> std::vector<Record> RecordsOf(const std::string& path) const {
        const std::string* const content = folder_.Content(path);
        return content ? RecordsIn<Record>(*content) : std::vector<Record>();
    }

    const ProjectFolder& folder_;
    Refusal& refusal_;
    const ProjectFile project_;
    ProjectForm form_;
    std::set<std::string> missing_, exact_; // own names
    std::set<std::string> written_;         // the sections written, by kind and own name
};

// What of all this is not there, and which sources are taken as they are.
void FormWriter::Files() {
    if (missing_.empty() && exact_.empty())
        return;
    Section("files", SectionName(folder_.project, ".mrv"));
    for (const std::string& own : missing_)
        Setting("missing", FieldText(own, ""));
    for (const std::string& own : exact_)
        Setting("exact", FieldText(own, ""));
}

void FormWriter::Project() {
    const ProjectRecord& head = project_.head;
    Section("project", SectionName(folder_.project, ".mrv"));
    if (folder_.folder != CutAtDot(folder_.project))
        Setting("folder", FieldText(folder_.folder, ""));
    if (head.MainName[0] != '\0')
        Setting("main", SourceValue(Text(head.MainName)));
    for (int i = 1; i <= ExternCount(head); ++i)
        Setting("extern", SourceValue(Text(head.ExternFiles[i])));
    if (head.DDEName[0] != '\0')
        Setting("dde", PathValue(Text(head.DDEName), ".dde"));
    Setting("history", std::to_string(head.DatHisLen));
    const std::string chosen = CutAtDot(folder_.project) + ".aux";
    if (Text(head.ResAux) != folder_.Home() + chosen)
        Setting("chosen", PathValue(Text(head.ResAux), ".aux"));
    else
        Expect(chosen);
    ProjectLists();
    Unused();
    Scenarios();
}

// They have no line ends that Zentrik asks for, so they stay as they are.
void FormWriter::Scenarios() {
    for (const auto& [own, content] : folder_.files)
        if (IsScenario(own)) {
            Setting("scenario", FieldText(own, ""));
            form_.beside.emplace(own, content);
        }
}

// The lists are those of the sections in their order, unless that says something else.
void FormWriter::ProjectLists() {
    const auto list = [&](std::string_view key, const std::vector<std::string>& paths,
                          std::string_view extension) {
        std::set<std::string> seen;
        const bool plain = std::all_of(paths.begin(), paths.end(), [&](const std::string& path) {
            return folder_.Content(path) && seen.insert(path).second;
        });
        for (const std::string& path : paths)
            if (!plain)
                Setting(key, PathValue(path, extension));
    };
    std::vector<std::string> results, systems;
    for (const NameRecord& record : project_.results)
        results.push_back(Text(record.name));
    for (int i = 1; i <= SystemCount(project_.head); ++i)
        systems.push_back(Text(project_.head.EngineNames[i]));
    list("results", results, ".rst");
    list("system", systems, ".lse");
}

// Rows of the lists that do not count keep their names.
void FormWriter::Unused() {
    const ProjectRecord& head = project_.head;
    const auto row = [&](std::string_view key, int i, const std::string& path) {
        if (!path.empty())
            Setting(key, std::to_string(i) + " " + PathValue(path));
    };
    for (int i = 0; i <= kMaxSystems; ++i)
        if (i == 0 || i > SystemCount(head))
            row("unused system", i, Text(head.EngineNames[i]));
    for (int i = 0; i <= kMaxExterns; ++i)
        if (i == 0 || i > ExternCount(head))
            row("unused extern", i, Text(head.ExternFiles[i]));
}

void FormWriter::NamesSection(std::string_view kind, const std::string& path,
                              std::string_view extension) {
    Section(kind, SectionName(*folder_.OwnName(path), extension));
    for (const TagRecord& record : RecordsOf<TagRecord>(path))
        Line(NameRow(Text(record.name)));
}

void FormWriter::Results() {
    std::string all;
    for (const NameRecord& record : project_.results) {
        const std::string path = Text(record.name);
        if (const std::string* content = folder_.Content(path))
            all += *content;
        if (Due(path, "results"))
            NamesSection("results", path, ".rst");
    }
    const std::string path = Text(project_.head.ResAux);
    const std::string* const chosen = folder_.Content(path);
    const bool plain = path == folder_.Home() + CutAtDot(folder_.project) + ".aux";
    if (chosen && !(plain && *chosen == all))
        NamesSection("chosen", path, ".aux");
}

void FormWriter::Tags() {
    for (const auto& [own, content] : folder_.files)
        if (Folded(own).ends_with(".tag") && own.find('\\') == own.npos)
            NamesSection("tags", folder_.Home() + own, ".tag");
}

void FormWriter::Dde() {
    const std::string path = Text(project_.head.DDEName);
    if (!Due(path, "dde"))
        return;
    const std::string& bytes = *folder_.Content(path);
    Section("dde", SectionName(*folder_.OwnName(path), ".dde"));
    const std::string conversation =
        Text(RecordsIn<NameRecord>(bytes.substr(0, kNameSize))[0].name);
    if (!conversation.empty())
        Setting("conversation", FieldText(conversation, ""));
    for (const DDE_ITEM& item : RecordsIn<DDE_ITEM>(bytes, kNameSize))
        Line(ItemRow(item));
}

void FormWriter::SystemSettings(const SystemHead& head, const form::DefaultNames& names) {
    const auto file = [&](std::string_view key, const std::string& path, const std::string& usual,
                          std::string_view extension) {
        if (path != folder_.Home() + usual)
            Setting(key, PathValue(path, extension));
        else
            Expect(usual);
    };
    if (head.RuleName[0] != '\0')
        Setting("rules", SourceValue(Text(head.RuleName)));
    if (Text(head.RuleSizeName) != names.index)
        Setting("index file", PathValue(Text(head.RuleSizeName), ".siz"));
    if (head.HeaderName[0] != '\0')
        Setting("header", SourceValue(Text(head.HeaderName)));
    file("types file", Text(head.KTypeName), names.types, ".typ");
    file("facts file", Text(head.KnowName), names.base, ".fac");
    file("variables file", Text(head.VarName), names.variables, ".var");
    file("initial file", Text(head.InitName), names.initial, ".ikw");
}

void FormWriter::Index(const SystemHead& head, const form::DefaultNames& names) {
    const std::string path = Text(head.RuleSizeName);
    const std::optional<std::string> own = folder_.OwnName(path);
    if (!own)
        return;
    const std::string* const rules = folder_.Content(Text(head.RuleName));
    const std::string* const content = folder_.Content(path);
    const bool made = path == names.index && rules;
    if (made && !content)
        missing_.insert(*own);
    if (!content)
        return;
    if (made) {
        const RenumberedRules sound = Renumber(*rules);
        if (sound.text == *rules && IndexBytes(sound.sizes) == *content)
            return;
    }
    if (!Due(path, "index"))
        return;
    Section("index", SectionName(*own, ".siz"));
    for (const RuleIndexRecord& record : RecordsIn<RuleIndexRecord>(*content))
        Line(IndexRow(record));
}

// The facts that a system uses are those of its base but for some, unless that says something else.
void FormWriter::Used(const std::string& system, const SystemFile& file,
                      const std::vector<Dat>& base) {
    std::unordered_map<std::string, const Dat*> first;
    for (const Dat& fact : base)
        first.emplace(Text(fact.Name), &fact);
    Section("used", system);
    std::int32_t number = 0;
    for (const Dat& fact : file.facts) {
        ++number;
        const auto found = first.find(Text(fact.Name));
        if (found != first.end() && BytesOf(*found->second) == BytesOf(fact))
            Line(FieldText(Text(fact.Name), "|"));
        else
            Line(FactRow(fact, number));
    }
}

void FormWriter::Facts(const std::string& path) {
    if (!Due(path, "facts"))
        return;
    const std::vector<Dat> base = RecordsOf<Dat>(path);
    Section("facts", SectionName(*folder_.OwnName(path), ".fac"));
    std::int32_t number = 0;
    for (const Dat& fact : base)
        Line(FactRow(fact, ++number));
}

void FormWriter::Initial(const std::string& path, const SystemFile& file,
                         const form::DefaultNames& names) {
    const std::string initial = Text(file.head.InitName);
    if (!Due(initial, "initial"))
        return;
    const std::vector<I_K> records = RecordsOf<I_K>(initial);
    std::vector<I_K> given;
    for (const I_K& record : records)
        if (record.K_Val[0] != '\0' || Text(record.Pres) != "  ")
            given.push_back(record);
    const bool sparse = initial == folder_.Home() + names.initial &&
                        form::InitialBytes(file.facts, given) == *folder_.Content(initial);
    if (sparse && given.empty())
        return;
    Section(sparse ? "initial" : "entries", sparse
                                                ? SectionName(*folder_.OwnName(path), ".lse")
                                                : SectionName(*folder_.OwnName(initial), ".ikw"));
    for (const I_K& record : sparse ? given : records)
        Line(InitialLine(record));
}

// The facts of the base that the system leaves out, when it uses all others as they are.
std::optional<std::vector<std::string>> LeftOut(const std::vector<Dat>& base,
                                                const std::vector<Dat>& facts) {
    std::unordered_set<std::string> used;
    for (const Dat& fact : facts)
        used.insert(Text(fact.Name));
    std::string expected;
    std::vector<std::string> without;
    std::unordered_set<std::string> listed;
    for (const Dat& fact : base) {
        const std::string name = Text(fact.Name);
        if (used.contains(name))
            expected += BytesOf(fact);
        else if (listed.insert(name).second)
            without.push_back(name);
    }
    return expected == BytesOf(facts) ? std::optional(without) : std::nullopt;
}

void FormWriter::Counts(const SystemHead& head, const SystemFile& file) {
    const auto counted = [&](std::string_view key, std::int32_t count, std::size_t there) {
        if (!std::cmp_equal(count, there))
            Setting(key, std::to_string(count));
    };
    counted("counted types", head.TypNum, RecordsOf<TagRecord>(Text(head.KTypeName)).size());
    counted("counted facts", head.DatNum, file.facts.size());
    counted("counted opposites", head.OppNum, file.opposites.size());
}

void FormWriter::Opposites(const std::string& system, const SystemFile& file) {
    if (file.opposites.empty())
        return;
    Section("opposites", system);
    for (const NameRecord& entry : file.opposites)
        Line(OppositeRow(Text(entry.name)));
}

void FormWriter::Variables(const std::string& path) {
    if (!Due(path, "variables"))
        return;
    Section("variables", SectionName(*folder_.OwnName(path), ".var"));
    for (const V_V& variable : RecordsOf<V_V>(path))
        Line(VariableLine(variable));
}

void FormWriter::System(const std::string& path) {
    if (!Due(path, "system"))
        return;
    const std::string& bytes = *folder_.Content(path);
    const std::string own = *folder_.OwnName(path);
    const std::string name = SectionName(own, ".lse");
    const SystemFile file = SystemIn(bytes);
    const SystemHead head = HeadIn(bytes);
    const form::DefaultNames names(own, Text(head.RuleName));
    const std::string types = Text(head.KTypeName);
    const bool usual_types = types == folder_.Home() + names.types;
    const bool types_due = Due(types, "types");
    const std::vector<Dat> base = RecordsOf<Dat>(Text(head.KnowName));
    const auto without = LeftOut(base, file.facts);

    Section("system", name);
    SystemSettings(head, names);
    if (types_due && usual_types)
        for (const TagRecord& type : RecordsOf<TagRecord>(types))
            Setting("types", NameRow(Text(type.name)));
    Counts(head, file);
    if (without)
        for (const std::string& fact : *without)
            Setting("without", FieldText(fact, ""));
    if (types_due && !usual_types)
        NamesSection("types", types, ".typ");
    Index(head, names);
    Facts(Text(head.KnowName));
    if (!without)
        Used(name, file, base);
    Opposites(name, file);
    Variables(Text(head.VarName));
    Initial(path, file, names);
}

} // namespace

ProjectForm FormOf(const ProjectFolder& folder, Refusal& refusal) {
    ProjectForm form = FormWriter(folder, refusal).Run();
    if (refusal.Is())
        return form;
    // What the reader does not make the same of, the form cannot hold.
    Failure failure;
    const SourceReader source = [&](const std::string& name) -> std::optional<std::string> {
        const auto found = form.beside.find(name);
        return found == form.beside.end() ? std::nullopt : std::optional(found->second);
    };
    const ProjectFolder again = FolderOfForm(form.text, source, folder.work, failure);
    const std::string home = folder.Home();
    if (!failure.text.empty())
        refusal.Note(home + folder.project, "the text form cannot hold it: " + failure.text);
    for (const auto& [name, content] : folder.files) {
        const auto found = again.files.find(name);
        if (found == again.files.end() || found->second != content)
            refusal.Note(home + name, "the text form cannot hold it");
    }
    for (const auto& [name, content] : again.files)
        if (!folder.files.contains(name))
            refusal.Note(home + name, "the text form cannot say that it is missing");
    if (again.folder != folder.folder || again.project != folder.project)
        refusal.Note(home + folder.project, "the text form cannot hold its name");
    return form;
}

} // namespace console
