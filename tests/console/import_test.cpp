// The command "import" where it makes a whole work folder.
#include "../core/sample.h"
#include "console_test.h"

#include "build/core/tools_file.h"
#include "morv/runtime_files.h"

namespace {

using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;

const std::string kTop = SOURCE_FOLDER;

class ImportCommand : public Console {
protected:
    // The boiler with the runtime of the sources, to C:\zentrik.
    Ran Import(const std::vector<std::string>& more,
               const std::string& morv = kTop + "/morv") const {
        std::vector<std::string> words = {
            "import",       kTop + "/examples/boiler", "C:\\zentrik", "--morv", morv, "--drive",
            "C=" + Host("")};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }

    static ToolsFile Tools() {
        ToolsFile tools;
        EXPECT_TRUE(ReadTools("C:\\zentrik\\toolfile.tol", tools));
        return tools;
    }
};

TEST_F(ImportCommand, MakesAWorkFolderWithRuntimeAndTools) {
    const Ran ran = Import({});
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(ran.out + ran.err, "");
    EXPECT_EQ(Files("zentrik/boiler").size(), 23u);
    EXPECT_EQ(Files("zentrik/morv").size(),
              std::size(morv::kRuntimeSources) + std::size(morv::kRuntimeOthers));
    EXPECT_TRUE(Content("zentrik/morv/consts1.dat").ends_with("\r\n\x1a"));
    EXPECT_EQ(Tools().path, "C:\\zentrik\\morv");
    EXPECT_EQ(Tools().com, ""); // the sources have no utility for Windows
    EXPECT_TRUE(Tools().compilers.empty());
}

TEST_F(ImportCommand, RegistersTheUtilityThatIsNamedOrComesWithTheRuntime) {
    const std::string bytes("MZ\n\0\r", 5);
    std::filesystem::copy(kTop + "/morv", Host("morv"));
    Put("morv/zkcc.exe", bytes);
    EXPECT_EQ(Import({}, Host("morv")).code, 0);
    EXPECT_EQ(Tools().com, "\"C:\\zentrik\\morv\\zkcc.exe\"");
    EXPECT_EQ(Tools().compilers, std::vector{Tools().com});
    EXPECT_EQ(Content("zentrik/morv/zkcc.exe"), bytes);
    EXPECT_EQ(Import({"--utility", "cc.exe -q", "--replace"}, Host("morv")).code, 0);
    EXPECT_EQ(Tools().com, "cc.exe -q");
    ExpectStopped(Import({"--utility", std::string(255, 'x'), "--replace"}), "too long");
    EXPECT_EQ(Tools().com, "cc.exe -q");
}

TEST_F(ImportCommand, WritesOverNothingUnlessTold) {
    Put("zentrik/toolfile.tol", "mine");
    ExpectStopped(Import({}), "toolfile.tol: it is there already");
    EXPECT_EQ(Files("zentrik").size(), 1u);
    EXPECT_EQ(Import({"--replace"}).code, 0);
    EXPECT_EQ(Tools().path, "C:\\zentrik\\morv");
}

TEST_F(ImportCommand, UpdatesTheRuntimeAndLeavesProjectsAndToolsAlone) {
    EXPECT_EQ(Import({"--update", "--utility", "mine"}).code, 0); // nothing is there yet
    auto expected = Files("zentrik");
    for (const char* name : {"boiler/steam.rul", "toolfile.tol", "morv/own.h"})
        Put(std::string("zentrik/") + name, expected[name] = "changed");
    Put("zentrik/morv/names.h", "of the version before");
    std::filesystem::remove(Host("zentrik/boiler/steam.fac"));
    expected.erase("boiler/steam.fac");
    const Ran ran = Import({"--update", "--replace", "--utility", "other"});
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(Files("zentrik"), expected);
}

TEST_F(ImportCommand, LeavesNothingHalfWritten) {
    files::FailWritesAfter(60000); // some of the runtime fits
    const Ran full = Import({});
    files::FailWritesAfter(-1);
    ExpectStopped(full, "No space left");
    EXPECT_TRUE(Files("").empty());
    ASSERT_EQ(Import({}).code, 0);
    auto before = Files("zentrik");
    Put("zentrik/morv/names.h", before["morv/names.h"] = "of the version before");
    files::FailWritesAfter(60000);
    const Ran update = Import({"--update"});
    files::FailWritesAfter(-1);
    ExpectStopped(update, "No space left");
    EXPECT_EQ(Files("zentrik"), before);
}

TEST_F(ImportCommand, NeedsARuntimeThatIsWhole) {
    ExpectStopped(Import({}, Host("none")), "No such file");
    std::filesystem::copy(kTop + "/morv", Host("morv"));
    std::filesystem::remove(Host("morv/state.h"));
    ExpectStopped(Import({}, Host("morv")), "morv/state.h: No such file");
    EXPECT_FALSE(std::filesystem::exists(Host("zentrik")));
    for (const char* option : {"--update", "--utility=x"})
        ExpectStopped(Run({"import", kTop + "/examples/boiler", "C:\\zentrik", option}),
                      "requires --morv");
}

// A path in the tools file and in the generated files has so much room.
TEST_F(ImportCommand, RefusesPathsThatAreTooLong) {
    const std::string work = "C:\\" + std::string(240, 'w');
    ExpectStopped(Run({"import", kTop + "/examples/boiler", work, "--morv", kTop + "/morv",
                       "--drive", "C=" + Host("")}),
                  "too long");
    EXPECT_TRUE(std::filesystem::is_empty(Host("")));
}

} // namespace
