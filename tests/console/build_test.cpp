#include "../core/build_disk.h"
#include "../core/sample.h"
#include "random_project.h"

#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "console/build.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::Console;
using zentrik_test::Disk;
using zentrik_test::ExpectGolden;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;
using zentrik_test::RandomProject;
using zentrik_test::WithoutRights;

class BuildCommand : public Console {
protected:
    Ran Build(const std::string& project, const std::string& morv) {
        return Run({"build", Host(project), "--morv", Host(morv)});
    }
};

// The same golden files that the tests of Compile in the window compare with.
TEST_F(BuildCommand, WritesTheGoldenFiles) {
    const Disk disk;
    ProjectFile project;
    project.head = PutSampleProject(disk);
    PutRuntimeTemplates(disk);
    ASSERT_TRUE(WriteProject(disk.Path("plant.mrv").c_str(), project));
    const Ran ran = Build("zktest/plant.mrv", "zktest/morv");
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out + ran.err, "");
    for (const char* name : {"plantR.h", "plantR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"})
        ExpectGolden(name, disk.Content(name));
    ExpectGolden("MorvApi.h", disk.Content("morv\\MorvApi.h"));
}

TEST_F(BuildCommand, ReadsWhatMustNotBeWritten) {
    const Disk disk;
    ProjectFile project;
    project.head = PutSampleProject(disk);
    PutRuntimeTemplates(disk);
    ASSERT_TRUE(WriteProject(disk.Path("plant.mrv").c_str(), project));
    for (const auto& [name, bytes] : Files("zktest"))
        SetRights("zktest/" + name, 0444);
    for (const char* folder : {"", "zktest", "zktest/morv"})
        SetRights(folder, 0777);
    {
        const WithoutRights other;
        const Ran ran = Build("zktest/plant.mrv", "zktest/morv");
        EXPECT_EQ(ran.code, 0) << ran.err;
    }
    for (const char* name : {"plantR.h", "plantR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"})
        ExpectGolden(name, disk.Content(name));
}

// What cannot be read could not be put back either.
TEST_F(BuildCommand, LeavesAFileThatItCannotRead) {
    const Disk disk;
    ProjectFile project;
    project.head = PutSampleProject(disk);
    PutRuntimeTemplates(disk);
    ASSERT_TRUE(WriteProject(disk.Path("plant.mrv").c_str(), project));
    disk.Put("plantR.h", "old");
    SetRights("zktest/plantR.h", 0222);
    SetRights("zktest", 0777);
    {
        const WithoutRights other;
        ExpectStopped(Build("zktest/plant.mrv", "zktest/morv"), "plantR.h: Permission denied");
    }
    SetRights("zktest/plantR.h", 0644);
    EXPECT_EQ(disk.Content("plantR.h"), "old");
}

TEST_F(BuildCommand, PutsTheOldFilesBackWhenItFails) {
    const Disk disk;
    ProjectFile project;
    project.head = PutSampleProject(disk);
    ASSERT_TRUE(WriteProject(disk.Path("plant.mrv").c_str(), project));
    disk.Put("plantR.h", "old");
    const auto before = Files("zktest");
    files::FailWritesAfter(4000);
    const Ran full = Build("zktest/plant.mrv", "zktest/morv");
    files::FailWritesAfter(-1);
    ExpectStopped(full, "No space left on the disk");
    EXPECT_EQ(Files("zktest"), before);
    disk.Remove("first.hdr");
    ExpectStopped(Build("zktest/plant.mrv", "zktest/morv"), "first.hdr: No such file");
    disk.Put("first.hdr", "");
    disk.Remove("morv\\consts2.dat");
    ExpectStopped(Build("zktest/plant.mrv", "zktest/morv"), "consts2.dat: No such file");
    EXPECT_EQ(disk.Content("plantR.h"), "old");
}

// The command without its words, which take longer to be read than many of the projects.
TEST_F(BuildCommand, WritesWhatCompileWrites) {
    ASSERT_EQ(zentrik_test::PutRuntime("C:"), "");
    std::ostringstream said;
    int built = 0;
    for (unsigned seed = 1; seed <= 1000 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::filesystem::remove_all(Host("r"));
        for (const auto& [name, content] : RandomProject(seed, true).dirty) {
            std::string host = "r/p/" + name;
            std::replace(host.begin(), host.end(), '\\', '/');
            Put(host, content);
        }
        ProjectFile project;
        ASSERT_EQ(ReadProject("C:\\r\\p\\p.mrv", project), ReadResult::Ok);
        const BuildNames names("C:\\r\\p\\p.mrv");
        const SupportInput support{project.head, names, "C:\\morv", "C:\\r", nullptr};
        SystemHead last{};
        const Boxes boxes;
        const bool compiled =
            CrearRulesH(project.head, names.rules_h.c_str(), nullptr) == 0 &&
            CrearRulesCpp(project.head, last, names.rules_cpp.c_str(), "pR.h", nullptr) == 0 &&
            WriteDdecom(support) == 0 && WriteConsts(support, last) == 0 &&
            WriteMorvApi(support) == 0;
        ASSERT_TRUE(compiled) << testing::PrintToString(boxes.shown);
        const auto expected = Files("r");
        for (const char* name : {"pR.h", "pR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"})
            std::filesystem::remove(Host(std::string("r/p/") + name));
        console::BuildOptions options;
        options.project = "C:\\r\\p\\p.mrv";
        options.morv = "C:\\morv";
        ASSERT_EQ(console::Build(options, {said, said}), 0) << said.str();
        ASSERT_EQ(Files("r"), expected);
        ++built;
    }
    EXPECT_EQ(built, 1000);
}

} // namespace
