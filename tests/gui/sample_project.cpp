#include "tests/gui/sample_project.h"

#include "build/core/tools_file.h"
#include "resources/core/dde_item.h"
#include "system/core/rule_index.h"
#include "system/core/system_file.h"
#include "tests/gui/driver/failure.h"

namespace gui {

namespace {

Dat Fact(const char* name, int ident) {
    Dat fact{};
    SetText(fact.Name, name);
    SetText(fact.Description, std::string(name) + " of the tank");
    SetText(fact.KnowType, "PROCESS");
    SetText(fact.Units, "m");
    fact.sup_limit = 10;
    fact.Step = 0.5;
    fact.low = 2;
    fact.normal = 5;
    fact.high = 8;
    fact.highest = 9.25;
    fact.Ident = ident;
    return fact;
}

void PutRules(const WorkFolder& work, const std::string& base,
              const std::vector<std::string>& rules) {
    std::string text;
    std::string index;
    int number = 0;
    for (const std::string& rule : rules) {
        RuleIndexRecord record{};
        record.size = static_cast<std::int32_t>(rule.size());
        SetText(record.name, "Rule " + std::to_string(++number));
        text += rule;
        index += BytesOf(record);
    }
    PutFile(work.Path(base + ".rul"), text);
    PutFile(work.Path(base + ".siz"), index);
}

SystemFile SystemWithRules(const WorkFolder& work, const std::string& base) {
    SystemFile system;
    SetText(system.head.RuleName, work.Path(base + ".rul"));
    SetText(system.head.RuleSizeName, work.Path(base + ".siz"));
    return system;
}

} // namespace

std::string TagBytes(const std::vector<std::string>& names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return std::string(BytesOf(records));
}

void PutSystem(const WorkFolder& work, const std::string& base,
               const std::vector<std::string>& rules) {
    PutRules(work, base, rules);
    PutFile(work.Path(base + ".lse"), SystemBytes(SystemWithRules(work, base)));
}

void PutTools(const WorkFolder& work, const std::string& com) {
    MakeFolders(work.Path("morv"));
    for (const char* name :
         {"ddecom1", "ddecom2", "ddecom3", "ddecom4", "consts1", "consts2", "consts3"})
        PutFile(work.Path(std::string("morv\\") + name + ".dat"),
                std::string("// ") + name + "\r\n\x1a");
    if (!WriteTools(work.Path("toolfile.tol").c_str(),
                    {work.Path("morv"), com, "C:\\inc", "C:\\cc", {com}}))
        Fail("cannot write the tools file");
}

ProjectFile MakeProject(const ProjectSpec& spec) {
    ProjectFile project;
    SetText(project.head.MainName, spec.main);
    for (std::size_t i = 0; i < spec.systems.size(); ++i)
        SetText(project.head.EngineNames[i + 1], spec.systems[i]);
    for (std::size_t i = 0; i < spec.externs.size(); ++i)
        SetText(project.head.ExternFiles[i + 1], spec.externs[i]);
    SetText(project.head.DDEName, spec.dde);
    SetText(project.head.ResAux, spec.aux);
    project.head.EngNum = static_cast<std::int32_t>(spec.systems.size());
    project.head.ExtNum = static_cast<std::int32_t>(spec.externs.size());
    project.head.ResNum = static_cast<std::int32_t>(spec.results.size());
    project.head.DatHisLen = 4;
    for (const std::string& result : spec.results) {
        project.results.emplace_back();
        SetText(project.results.back().name, result);
    }
    return project;
}

void PutProject(const std::string& path, const ProjectSpec& spec) {
    if (!WriteProject(path.c_str(), MakeProject(spec)))
        Fail("cannot write " + path);
}

ProjectRecord ProjectHead(const std::string& path) {
    ProjectRecord head{};
    const std::string bytes = FileContent(path);
    if (bytes.size() >= sizeof head)
        std::memcpy(&head, bytes.data(), sizeof head);
    return head;
}

void PutSampleProject(const WorkFolder& work) {
    PutRules(work, "tank",
             {"Rule 1\r\nIf Level.IsHigh()\r\nThen deduce(&Valve);\r\nEndIf\r\nEndRule\r\n",
              "Rule 2\r\nForAll\r\nEndForAll\r\nEndRule"});
    SystemFile system = SystemWithRules(work, "tank");
    SetText(system.head.KTypeName, work.Path("tank.typ"));
    SetText(system.head.HeaderName, work.Path("head.cpp"));
    SetText(system.head.KnowName, work.Path("tank.fac"));
    system.facts = {Fact("Level", 1), Fact("Valve", 2)};
    system.head.DatNum = 2;
    system.opposites.emplace_back();
    SetText(system.opposites.back().name, "HIGH\tLOW");
    system.head.OppNum = 1;
    PutFile(work.Path("tank.lse"), SystemBytes(system));
    PutFile(work.Path("tank.fac"), BytesOf(system.facts));
    PutFile(work.Path("tank.typ"), TagBytes({"PROCESS"}));
    PutFile(work.Path("head.cpp"), "// before\r\nZkRules\r\n// after\r\n");
    PutFile(work.Path("main.cpp"), "\tstart();\r\n");
    PutFile(work.Path("help.cpp"), "#include <math.h>\r\nint twice(int a) { return 2 * a; }\r\n");
    PutFile(work.Path("names.rst"), TagBytes({"HIGH", "LOW"}));
    PutFile(work.Path("plant.aux"), TagBytes({"HIGH", "LOW"}));
    DdeFile dde{"PLC", {}};
    dde.items.emplace_back();
    SetText(dde.items.back().DName, "level");
    SetText(dde.items.back().DType, "float");
    PutFile(work.Path("link.dde"), DdeBytes(dde));
    PutProject(work.Path("plant.mrv"), {work.Path("main.cpp"),
                                        {work.Path("tank.lse")},
                                        {work.Path("help.cpp")},
                                        work.Path("link.dde"),
                                        work.Path("plant.aux"),
                                        {work.Path("names.rst")}});
}

} // namespace gui
