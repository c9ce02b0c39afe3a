#include "saves.h"

#include "project/core/project_file.h"
#include "project/core/results_file.h"
#include "resources/core/facts_file.h"
#include "resources/core/record_files.h"
#include "system/core/rule_files.h"
#include "system/core/system_file.h"

namespace zentrik_test {

namespace {

namespace fs = std::filesystem;

std::string NameRecords(const std::vector<std::string>& names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return std::string(BytesOf(records));
}

std::string Facts(const std::vector<std::string>& names) {
    std::vector<Dat> facts(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(facts[i].Name, names[i]);
    return std::string(BytesOf(facts));
}

Dat Fact(const std::string& name) {
    Dat fact{};
    SetText(fact.Name, name);
    return fact;
}

std::string ProjectBytes(const ProjectFile& project) {
    return std::string(BytesOf(project.head)) + std::string(BytesOf(project.results));
}

ProjectFile ProjectWith(std::int32_t results) {
    ProjectFile project;
    SetText(project.head.MainName, "main of " + std::to_string(results));
    project.head.ResNum = results;
    project.results.resize(static_cast<std::size_t>(results));
    return project;
}

SystemFile SystemWith(std::int32_t facts) {
    SystemFile system;
    system.head.DatNum = facts;
    system.facts.resize(static_cast<std::size_t>(facts), Fact("fact of " + std::to_string(facts)));
    return system;
}

Save ProjectSave(const std::string& name, std::optional<std::string> old_project,
                 std::optional<std::string> old_results) {
    const std::string old = NameRecords({"old"});
    const std::string chosen = NameRecords({"new", "newer"});
    return {name,
            {{"p.mrv", old_project}, {"p.aux", old_results}, {"work.aux", chosen}},
            {{"p.mrv", ProjectBytes(ProjectWith(1))}, {"p.aux", chosen}, {"work.aux", {}}},
            [](const TempFolder& temp) {
                return WriteProject(
                    temp.Path("p.mrv").c_str(), ProjectWith(1),
                    {temp.Path("work.aux"), temp.Path("p.aux"), temp.Path("p.aux"), true});
            }};
}

Save SystemSave() {
    return {
        "system",
        {{"s.lse", SystemBytes(SystemWith(3))},
         {"s.var", "old variables"},
         {"s.ikw", "old facts"},
         {"work.var", "new variables"},
         {"work.ikw", "new facts"}},
        {{"s.lse", SystemBytes(SystemWith(1))},
         {"s.var", "new variables"},
         {"s.ikw", "new facts"},
         {"work.var", {}},
         {"work.ikw", {}}},
        [](const TempFolder& temp) {
            auto copy = [&](const std::string& end) -> WorkingCopy {
                return {temp.Path("work" + end), temp.Path("s" + end), temp.Path("s" + end), true};
            };
            return SaveSystem(temp.Path("s.lse").c_str(), SystemWith(1),
                              {copy(".var"), copy(".ikw"), {}});
        }};
}

Save SystemThatLosesItsVariables() {
    return {"lost variables",
            {{"s.lse", SystemBytes(SystemWith(1))}, {"s.var", "variables"}},
            {{"s.lse", SystemBytes(SystemWith(2))}, {"s.var", {}}},
            [](const TempFolder& temp) {
                return SaveSystem(temp.Path("s.lse").c_str(), SystemWith(2),
                                  {{}, {}, temp.Path("s.var")});
            }};
}

Save RulesSave() {
    return {"rules",
            {{"r.rul", "Rule 1\r\nold\r\nEndRule\r\n"}, {"r.siz", "old index"}},
            {{"r.rul", "Rule 1\r\nnew\r\nEndRule\r\n"}, {"r.siz", "the new index"}},
            [](const TempFolder& temp) {
                return StoreRules(temp.Path("r.rul"), "Rule 1\r\nnew\r\nEndRule\r\n",
                                  temp.Path("r.siz"), "the new index") == StoredRules::Yes;
            }};
}

Save NamesSave() {
    const std::vector<std::string> names{"one", "two"};
    return {
        "tags, results, types",
        {{"a.tag", NameRecords({"old", "older", "oldest"})}},
        {{"a.tag", NameRecords(names)}},
        [names](const TempFolder& temp) { return WriteNames(temp.Path("a.tag").c_str(), names); }};
}

Save DdeSave() {
    return {"DDE items",
            {{"a.dde", "old items"}},
            {{"a.dde", "other items"}},
            [](const TempFolder& temp) {
                return files::ReplaceKeeping(temp.Path("a.dde").c_str(), "other items");
            }};
}

Save Pruning() {
    return {"pruned results",
            {{"p.aux", NameRecords({"a", "b"})}, {"r.rst", NameRecords({"a"})}},
            {{"p.aux", NameRecords({"b"})}, {"r.rst", NameRecords({"a"})}},
            [](const TempFolder& temp) {
                return PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str());
            },
            false}; // a file that cannot be opened is left alone, which is no failure
}

Save FactAdded() {
    return {"fact added",
            {{"f.fac", Facts({"a", "b"})}},
            {{"f.fac", Facts({"a", "b", "c"})}},
            [](const TempFolder& temp) {
                return AppendFact(temp.Path("f.fac").c_str(), Fact("c")) == 2;
            },
            false}; // what was flushed stays, whatever closing says
}

Save FactReplaced() {
    return {"fact replaced",
            {{"f.fac", Facts({"a", "b"})}},
            {{"f.fac", Facts({"c", "b"})}},
            [](const TempFolder& temp) {
                return ReplaceFact(temp.Path("f.fac").c_str(), 0, Fact("c")) == 0;
            },
            false};
}

Save FactRemoved() {
    return {"fact removed",
            {{"f.fac", Facts({"a", "b"})}, {"f.typ", "types"}},
            {{"f.fac", Facts({"b"})}, {"f.typ", "types"}},
            [](const TempFolder& temp) {
                return RemoveFact(temp.Path("f.fac").c_str(), 0) == Removal::Done;
            }};
}

Save LastFactRemoved() {
    return {"last fact removed",
            {{"f.fac", Facts({"a"})}, {"f.typ", "types"}},
            {{"f.fac", {}}, {"f.typ", {}}},
            [](const TempFolder& temp) {
                return RemoveFact(temp.Path("f.fac").c_str(), 0) == Removal::Done;
            }};
}

} // namespace

std::vector<Save> AllSaves() {
    return {ProjectSave("project", ProjectBytes(ProjectWith(2)), NameRecords({"old"})),
            ProjectSave("project as", {}, {}),
            SystemSave(),
            SystemThatLosesItsVariables(),
            RulesSave(),
            NamesSave(),
            DdeSave(),
            Pruning(),
            FactAdded(),
            FactReplaced(),
            FactRemoved(),
            LastFactRemoved()};
}

void PutAll(const TempFolder& temp, const Contents& contents) {
    for (const auto& [name, content] : contents) {
        fs::remove(temp.Path(name));
        if (content)
            temp.Put(name, *content);
    }
}

Contents ContentsOf(const TempFolder& temp, const Contents& names) {
    Contents found;
    for (const auto& [name, ignored] : names)
        found[name] = fs::exists(temp.Path(name)) ? std::optional(temp.Content(name))
                                                  : std::optional<std::string>();
    return found;
}

void ExpectOldOrNew(const Save& save, const Contents& found) {
    for (const auto& [name, content] : found)
        EXPECT_TRUE(content == save.before.at(name) || content == save.after.at(name))
            << save.name << ": " << name << " holds "
            << (content ? testing::PrintToString(*content) : "nothing");
}

} // namespace zentrik_test
