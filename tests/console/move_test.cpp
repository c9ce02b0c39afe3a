#include "../core/sample.h"
#include "console_test.h"

#include "build/core/tools_file.h"

namespace {

using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;

class MoveCommand : public Console {
protected:
    void SetUp() override {
        ASSERT_EQ(zentrik_test::PutSample("C:\\zentrik", "\"C:\\zentrik\\morv\\zkcc.exe\" -q"), "");
    }

    Ran Move(const std::string& project, const std::string& from, const std::string& to) {
        return Run({"move", Host(project), from, to, "--drive", "C=" + Host("")});
    }
};

TEST_F(MoveCommand, MakesTheProjectThatWouldHaveBeenWrittenThere) {
    std::filesystem::create_directory(Host("plants"));
    std::filesystem::rename(Host("zentrik"), Host("plants/north"));
    const Ran ran = Move("plants/north/boiler/boiler.mrv", "c:\\ZENTRIK\\", "C:\\plants\\north");
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(std::count(ran.out.begin(), ran.out.end(), '\n'), 4) << ran.out;
    const auto moved = Files("plants/north");
    ASSERT_EQ(
        zentrik_test::PutSample("C:\\plants\\north", "\"C:\\plants\\north\\morv\\zkcc.exe\" -q"),
        "");
    EXPECT_EQ(Files("plants/north"), moved);
    EXPECT_EQ(Move("plants/north/boiler/boiler.mrv", "C:\\zentrik", "C:\\x").out,
              "no path inside lies in C:\\zentrik\n");
}

TEST_F(MoveCommand, LeavesAllAsItWasWhenAnythingIsWrong) {
    const auto before = Files("zentrik");
    const std::string far = "C:\\" + std::string(240, 'x');
    ExpectStopped(Move("zentrik/boiler/boiler.mrv", "C:\\zentrik", far), "the path gets too long");
    // The system is not where it would be then.
    ExpectStopped(Move("zentrik/boiler/boiler.mrv", "C:\\zentrik", "C:\\y"), "steam.lse");
    files::FailWritesAfter(5000);
    const Ran full =
        Move("zentrik/boiler/boiler.mrv", "C:\\zentrik\\boiler", "C:\\ZENTRIK\\boiler");
    files::FailWritesAfter(-1);
    ExpectStopped(full, "No space left");
    EXPECT_EQ(Files("zentrik"), before);
}

} // namespace
