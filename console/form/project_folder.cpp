#include "console/form/project_folder.h"

#include "build/core/project_lists.h"
#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/report.h"
#include "shell/core/files.h"

#include <algorithm>

namespace console {

namespace {

enum class Kind { Text, Names, Facts, Variables, Initial, Index, Dde, System, Project };

constexpr char kNoEnd[] = "a text fills its field and has no end";

// Puts zeros behind the end of a field; returns false when it has none.
template <std::size_t N> bool Clean(char (&field)[N]) {
    const bool ends = std::memchr(field, '\0', N) != nullptr;
    SetText(field, Text(field));
    return ends;
}

// Each field is cleaned, also behind one without an end.
template <typename... Fields> bool CleanAll(Fields&... fields) {
    bool ends = true;
    ((ends = Clean(fields) && ends), ...);
    return ends;
}

bool CleanRecord(TagRecord& record) {
    return Clean(record.name);
}
bool CleanRecord(NameRecord& record) {
    return Clean(record.name);
}
bool CleanRecord(Dat& fact) {
    return CleanAll(fact.Name, fact.Description, fact.KnowType, fact.Units);
}
bool CleanRecord(V_V& variable) {
    return CleanAll(variable.Name, variable.Type, variable.Val);
}
bool CleanRecord(I_K& initial) {
    return CleanAll(initial.K_Name, initial.K_Val, initial.Pres);
}
bool CleanRecord(RuleIndexRecord& record) {
    return Clean(record.name);
}
bool CleanRecord(DDE_ITEM& item) {
    return CleanAll(item.DName, item.DType);
}
bool CleanRecord(SystemHead& head) {
    return CleanAll(head.KTypeName, head.RuleName, head.RuleSizeName, head.HeaderName, head.VarName,
                    head.InitName, head.KnowName);
}
bool CleanRecord(ProjectRecord& head) {
    bool ends = CleanAll(head.MainName, head.DDEName, head.ResAux);
    for (auto& name : head.EngineNames)
        ends = Clean(name) && ends;
    for (auto& name : head.ExternFiles)
        ends = Clean(name) && ends;
    return ends;
}

// Cleans the records of `bytes` from `at` on, `most` at most. Returns where they end; a text
// without an end makes `ends` false.
template <class Record>
std::size_t CleanRecords(std::string& bytes, std::size_t at, bool& ends,
                         std::size_t most = SIZE_MAX) {
    Record record;
    for (std::size_t i = 0; i < most && at + sizeof record <= bytes.size(); ++i) {
        std::memcpy(&record, bytes.data() + at, sizeof record);
        ends &= CleanRecord(record);
        std::memcpy(bytes.data() + at, &record, sizeof record);
        at += sizeof record;
    }
    return at;
}

// Cleans the bytes of a file; returns what is wrong with them, or an empty text.
std::string CleanBytes(std::string& bytes, Kind kind) {
    bool ends = true;
    std::size_t end = 0;
    switch (kind) {
    case Kind::Text:
        return {};
    case Kind::Names:
        end = CleanRecords<TagRecord>(bytes, 0, ends);
        break;
    case Kind::Facts:
        end = CleanRecords<Dat>(bytes, 0, ends);
        break;
    case Kind::Variables:
        end = CleanRecords<V_V>(bytes, 0, ends);
        break;
    case Kind::Initial:
        end = CleanRecords<I_K>(bytes, 0, ends);
        break;
    case Kind::Index:
        end = CleanRecords<RuleIndexRecord>(bytes, 0, ends);
        break;
    case Kind::Dde:
        if (bytes.size() < kNameSize)
            return "damaged: shorter than its head";
        CleanRecords<NameRecord>(bytes, 0, ends, 1);
        end = CleanRecords<DDE_ITEM>(bytes, kNameSize, ends);
        break;
    case Kind::System: {
        if (bytes.size() < sizeof(SystemHead))
            return "damaged: shorter than a system file";
        const SystemFile system = SystemIn(bytes);
        end = CleanRecords<SystemHead>(bytes, 0, ends, 1);
        end = CleanRecords<Dat>(bytes, end, ends, system.facts.size());
        end = CleanRecords<NameRecord>(bytes, end, ends, system.opposites.size());
        break;
    }
    case Kind::Project: {
        if (bytes.size() < sizeof(ProjectRecord))
            return "damaged: shorter than a project file";
        ProjectRecord head;
        std::memcpy(&head, bytes.data(), sizeof head);
        const std::int32_t results = head.ResNum;
        if (head.EngNum != SystemCount(head) || head.ExtNum != ExternCount(head) || results < 0 ||
            (bytes.size() - sizeof head) / kNameSize < static_cast<std::size_t>(results))
            return "damaged: it holds less than it counts";
        end = CleanRecords<ProjectRecord>(bytes, 0, ends, 1);
        end = CleanRecords<NameRecord>(bytes, end, ends, static_cast<std::size_t>(results));
        break;
    }
    }
    if (!ends)
        return kNoEnd;
    return end == bytes.size() ? "" : "damaged: bytes stand behind its last record";
}

class FolderLoader {
public:
    FolderLoader(const std::string& path, Refusal& refusal) : path_(path), refusal_(refusal) {
        const std::size_t name = path.rfind('\\') + 1; // 0 without one
        folder_.project = path.substr(name);
        const std::string above = path.substr(0, name ? name - 1 : 0);
        const std::size_t slash = above.rfind('\\');
        folder_.work = above.substr(0, slash == above.npos ? above.size() : slash);
        folder_.folder = slash == above.npos ? "" : above.substr(slash + 1);
        folded_home_ = Plain(folder_.Home());
    }

    ProjectFolder Run() {
        if (!Take(path_, Kind::Project)) {
            refusal_.Note(path_, LastReason());
            return {};
        }
        if (refusal_.Is())
            return {};
        Project(ProjectIn(folder_.files[folder_.project]));
        Beside();
        return std::move(folder_);
    }

private:
    static std::string Plain(std::string_view path) {
        std::string plain = Folded(path);
        std::replace(plain.begin(), plain.end(), '/', '\\');
        return plain;
    }

    // Reads the file of this path when it is one of the project's own; returns whether it is there.
    bool Take(const std::string& path, Kind kind) {
        if (path.empty())
            return false;
        const std::optional<std::string> name = folder_.OwnName(path);
        if (!name) {
            if (Plain(path).starts_with(folded_home_))
                refusal_.Note(path, "the path spells the project's folder in another way than " +
                                        folder_.Home());
            return false;
        }
        const auto [spelt, is_new] = spelt_.try_emplace(Folded(*name), *name, kind);
        if (spelt->second.first != *name)
            refusal_.Note(path, "the file is also named " + spelt->second.first);
        if (spelt->second.second != kind)
            refusal_.Note(path, "the file is named as two kinds of file");
        if (!is_new)
            return folder_.files.contains(*name);
        std::string bytes;
        if (!files::ReadWhole(path.c_str(), files::Mode::Read, bytes)) {
            // One that is there and cannot be read must not be left out.
            if (!IsNotThere(path))
                refusal_.Note(path, LastReason());
            return false;
        }
        const std::string wrong = CleanBytes(bytes, kind);
        if (!wrong.empty())
            refusal_.Note(path, wrong);
        folder_.files.emplace(*name, std::move(bytes));
        return true;
    }

    void Project(const ProjectFile& project) {
        Take(Text(project.head.MainName), Kind::Text);
        for (int i = 1; i <= ExternCount(project.head); ++i)
            Take(Text(project.head.ExternFiles[i]), Kind::Text);
        Take(Text(project.head.DDEName), Kind::Dde);
        Take(Text(project.head.ResAux), Kind::Names);
        for (const NameRecord& record : project.results)
            Take(Text(record.name), Kind::Names);
        for (int i = 1; i <= SystemCount(project.head); ++i) {
            const std::string path = Text(project.head.EngineNames[i]);
            if (Take(path, Kind::System) && !refusal_.Is())
                System(HeadIn(*folder_.Content(path)));
        }
    }

    void System(const SystemHead& head) {
        Take(Text(head.KTypeName), Kind::Names);
        Take(Text(head.RuleName), Kind::Text);
        Take(Text(head.RuleSizeName), Kind::Index);
        Take(Text(head.HeaderName), Kind::Text);
        Take(Text(head.VarName), Kind::Variables);
        Take(Text(head.InitName), Kind::Initial);
        Take(Text(head.KnowName), Kind::Facts);
    }

    // No file names the tags, which are opened by hand, and the scenarios: those beside the project
    // are its own.
    void Beside() {
        for (const std::string& name : NamesIn(folder_.Home(), ".tag"))
            Take(folder_.Home() + name, Kind::Names);
        for (const std::string& name : NamesIn(folder_.Home(), ".scenario"))
            Take(folder_.Home() + name, Kind::Text);
    }

    const std::string path_;
    Refusal& refusal_;
    ProjectFolder folder_;
    std::string folded_home_;
    std::map<std::string, std::pair<std::string, Kind>> spelt_; // by the folded name
};

} // namespace

std::string ProjectFolder::Home() const {
    return folder.empty() ? work + "\\" : work + "\\" + folder + "\\";
}

std::optional<std::string> ProjectFolder::OwnName(const std::string& path) const {
    const std::string home = Home();
    if (!path.starts_with(home) || !StaysBelow(std::string_view(path).substr(home.size())))
        return std::nullopt;
    return path.substr(home.size());
}

const std::string* ProjectFolder::Content(const std::string& path) const {
    const std::optional<std::string> name = OwnName(path);
    const auto found = name ? files.find(*name) : files.end();
    return found == files.end() ? nullptr : &found->second;
}

bool StaysBelow(std::string_view name) {
    if (name.find_first_of("/:") != name.npos)
        return false;
    for (;;) {
        const std::string_view part = name.substr(0, name.find('\\'));
        // Windows drops blanks and dots at the end of a name, which would make it another.
        if (part.empty() || part.back() == '.' || part.back() == ' ')
            return false;
        if (part.size() == name.size())
            return true;
        name.remove_prefix(part.size() + 1);
    }
}

bool IsScenario(std::string_view name) {
    return Folded(name).ends_with(".scenario") && name.find('\\') == name.npos;
}

ProjectFolder LoadFolder(const std::string& path, Refusal& refusal) {
    return FolderLoader(path, refusal).Run();
}

ProjectFile ProjectIn(std::string_view bytes) {
    ProjectFile project;
    std::memcpy(&project.head, bytes.data(), sizeof project.head);
    project.results = RecordsIn<NameRecord>(bytes, sizeof project.head);
    return project;
}

SystemHead HeadIn(std::string_view bytes) {
    SystemHead head;
    std::memcpy(&head, bytes.data(), sizeof head);
    return head;
}

} // namespace console
