#include "tests/gui/sample_parts.h"

#include "build/core/project_lists.h"
#include "console/form/project_form.h"
#include "shell/core/paths.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"

#include <algorithm>

namespace gui {

namespace {

using console::ProjectFolder;

// A file's name without its folder.
std::string NameIn(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

// And without its extension.
std::string StemIn(const std::string& path) {
    return CutAtDot(NameIn(path));
}

template <std::size_t N>
const std::string& ContentOf(const ProjectFolder& folder, const char (&path)[N]) {
    const std::string* const content = folder.Content(Text(path));
    if (!content)
        Fail("the sample does not have " + Text(path));
    return *content;
}

std::vector<std::string> NamesIn(std::string_view bytes) {
    std::vector<std::string> names;
    for (const TagRecord& record : RecordsIn<TagRecord>(bytes))
        names.push_back(Text(record.name));
    return names;
}

DdeParts DdeOf(const std::string& name, std::string_view bytes) {
    DdeParts dde{name, Text(RecordsIn<NameRecord>(bytes.substr(0, kNameSize))[0].name), {}};
    for (const DDE_ITEM& item : RecordsIn<DDE_ITEM>(bytes, kNameSize))
        dde.items.emplace_back(Text(item.DName), Text(item.DType));
    return dde;
}

SystemParts SystemOf(const ProjectFolder& folder, const std::string& path) {
    const SystemFile file = SystemIn(*folder.Content(path));
    const SystemHead& head = file.head;
    SystemParts system;
    system.name = StemIn(path);
    system.rules = NameIn(Text(head.RuleName));
    system.header = NameIn(Text(head.HeaderName));
    system.types = NamesIn(ContentOf(folder, head.KTypeName));
    system.base = RecordsIn<Dat>(ContentOf(folder, head.KnowName));
    for (const Dat& fact : system.base) {
        const std::string name = Text(fact.Name);
        if (std::ranges::none_of(file.facts,
                                 [&](const Dat& used) { return Text(used.Name) == name; }))
            system.without.push_back(name);
    }
    for (const NameRecord& record : file.opposites) {
        const OppositePair pair = SplitOpposite(Text(record.name));
        system.opposites.emplace_back(pair.result, pair.opposite);
    }
    for (const V_V& variable : RecordsIn<V_V>(ContentOf(folder, head.VarName)))
        system.variables.push_back({Text(variable.Name), Text(variable.Type), Text(variable.Val)});
    for (const I_K& initial : RecordsIn<I_K>(ContentOf(folder, head.InitName)))
        if (initial.K_Val[0] != '\0')
            system.initial.push_back(
                {Text(initial.K_Name), Text(initial.K_Val), Text(initial.Pres)});
    return system;
}

SampleParts PartsOf(const ProjectFolder& folder) {
    const ProjectFile project = console::ProjectIn(folder.files.at(folder.project));
    const ProjectRecord& head = project.head;
    SampleParts parts;
    parts.name = CutAtDot(folder.project);
    parts.main = NameIn(Text(head.MainName));
    for (int i = 1; i <= ExternCount(head); ++i)
        parts.externs.push_back(NameIn(Text(head.ExternFiles[i])));
    parts.history = head.DatHisLen;
    parts.dde = DdeOf(StemIn(Text(head.DDEName)), ContentOf(folder, head.DDEName));
    for (const NameRecord& record : project.results)
        parts.results.push_back(
            {StemIn(Text(record.name)), NamesIn(ContentOf(folder, record.name))});
    for (const auto& [name, bytes] : folder.files)
        if (name.ends_with(".tag"))
            parts.tags.push_back({CutAtDot(name), NamesIn(bytes)});
    for (int i = 1; i <= SystemCount(head); ++i)
        parts.systems.push_back(SystemOf(folder, Text(head.EngineNames[i])));
    return parts;
}

} // namespace

SampleParts PartsOfSample(const std::string& folder) {
    console::Failure failure;
    const console::SourceReader source = [&](const std::string& name) {
        return std::optional(FileContent(folder + "\\" + name));
    };
    const std::string text = FileContent(folder + "\\" + NameIn(folder) + ".txt");
    const ProjectFolder read = console::FolderOfForm(text, source, "C:\\zentrik", failure);
    if (!failure.text.empty())
        Fail("the sample cannot be read: " + failure.text);
    return PartsOf(read);
}

} // namespace gui
