// A project with no items, results, facts and types: all its generated files.
#include "build_disk.h"

#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::Disk;
using zentrik_test::ExpectGolden;

ProjectRecord PutBareProject(const Disk& disk) {
    SystemFile system;
    SetText(system.head.RuleName, disk.Path("alone.rul"));
    disk.Put("alone.lse", SystemBytes(system));
    disk.Put("alone.rul", "Rule 1\r\nput_box(\"round\");\r\nEndRule");
    disk.Put("main.cpp", "\talone.engine();");
    disk.Put("none.dde", std::string(255, '\0'));
    disk.Put("bare.aux", "");
    ProjectRecord project{};
    SetText(project.MainName, disk.Path("main.cpp"));
    SetText(project.EngineNames[1], disk.Path("alone.lse"));
    SetText(project.DDEName, disk.Path("none.dde"));
    SetText(project.ResAux, disk.Path("bare.aux"));
    project.EngNum = 1;
    project.DatHisLen = 4;
    return project;
}

TEST(BareProject, GivesTheGoldenFiles) {
    const Disk disk;
    Boxes boxes;
    disk.MakeFolder("work");
    zentrik_test::PutRuntimeTemplates(disk);
    const ProjectRecord project = PutBareProject(disk);
    const BuildNames names(disk.Path("bare.mrv").c_str());
    const SupportInput in{project, names, disk.Path("morv"), disk.Path("work"), nullptr};
    SystemHead head{};
    EXPECT_EQ(CrearRulesH(project, names.rules_h.c_str(), nullptr), 0);
    EXPECT_EQ(
        CrearRulesCpp(project, head, names.rules_cpp.c_str(), names.rules_h_name.c_str(), nullptr),
        0);
    EXPECT_EQ(WriteDdecom(in), 0);
    EXPECT_EQ(WriteConsts(in, head), 0);
    EXPECT_EQ(WriteMorvApi(in), 0);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"Compile MORV: Zero"});
    for (const char* name : {"bareR.h", "bareR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"})
        ExpectGolden(name, disk.Content(name), "bare");
    ExpectGolden("MorvApi.h", disk.Content("morv\\MorvApi.h"), "bare");
}

} // namespace
