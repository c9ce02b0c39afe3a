#include "build_disk.h"
#include "core_test.h"

#include "build/core/own_sources.h"
#include "system/core/system_file.h"

namespace {

using namespace zentrik_test;

// The sample project, with one of its sources at another place.
class OwnSources : public testing::Test {
protected:
    OwnSources() : project_(PutSampleProject(disk_)) {}

    Overwritten Check() const {
        return WouldOverwrite(project_, BuildNames(disk_.Path("plant.mrv").c_str()),
                              disk_.Path("morv"), disk_.Path("work"));
    }
    void Main(const std::string& name) {
        disk_.Put(name, "the user's work");
        SetText(project_.MainName, disk_.Path(name));
    }

    Disk disk_;
    ProjectRecord project_;
};

TEST_F(OwnSources, AreNotWrittenOverUsually) {
    EXPECT_EQ(Check(), Overwritten::Nothing);
    disk_.Put("plantR.h", "of the build before");
    disk_.Put("plantR.cpp", "of the build before");
    EXPECT_EQ(Check(), Overwritten::Nothing);
}

TEST_F(OwnSources, CanBeTheMainFile) {
    Main("plantR.cpp");
    EXPECT_EQ(Check(), Overwritten::RulesSource);
    Main("plantR.h");
    EXPECT_EQ(Check(), Overwritten::RulesHeader);
    for (const char* name : {"ddecom.h", "ddecom.cpp", "consts.h"}) {
        Main(name);
        EXPECT_EQ(Check(), Overwritten::SupportFile) << name;
    }
}

TEST_F(OwnSources, CanBeAnExternFile) {
    disk_.Put("ddecom.cpp", "the user's work");
    project_.ExtNum = 1;
    SetText(project_.ExternFiles[1], disk_.Path("ddecom.cpp"));
    EXPECT_EQ(Check(), Overwritten::SupportFile);
}

TEST_F(OwnSources, CanBeOfASystem) {
    disk_.Put("plantR.cpp", "the user's work");
    SystemFile system;
    const std::string path = Text(project_.EngineNames[1]);
    ASSERT_EQ(ReadSystem(path.c_str(), system), ReadResult::Ok);
    SetText(system.head.HeaderName, disk_.Path("plantR.cpp"));
    ASSERT_TRUE(SaveSystem(path.c_str(), system, {}));
    EXPECT_EQ(Check(), Overwritten::RulesSource);
    SetText(system.head.HeaderName, "");
    SetText(system.head.RuleName, disk_.Path("plantR.cpp"));
    ASSERT_TRUE(SaveSystem(path.c_str(), system, {}));
    EXPECT_EQ(Check(), Overwritten::RulesSource);
}

} // namespace
