#include "console/form/reader.h"

#include "shell/core/paths.h"

#include <algorithm>

namespace console {

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

void FormReader::Scenario(const FormSettingLine& line) {
    const std::string own = OwnOf(line.value, ".scenario");
    if (!IsScenario(own))
        failure_.Note("no name for scenarios: " + std::string(line.value));
    scenarios_.push_back(own);
}

// One that is a source as well is there already.
void FormReader::ReadScenario(const std::string& own) {
    if (folder_.files.contains(own))
        return;
    if (std::optional<std::string> text = source_(own))
        Make(own, std::move(*text));
    else
        failure_.Note("cannot read " + own);
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
    else if (line.key == "scenario")
        Scenario(line);
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
    for (const std::string& own : scenarios_)
        ReadScenario(own);
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

} // namespace console
