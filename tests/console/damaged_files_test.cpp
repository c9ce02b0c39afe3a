// Whatever the files of a project hold, a command ends with a code, and says in one line why it
// stopped.
#include "../core/sample.h"
#include "console_test.h"

namespace {

using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;

class DamagedProject : public Console {
protected:
    void SetUp() override {
        ASSERT_EQ(zentrik_test::PutSample("C:\\zentrik"), "");
        sound_ = Files("zentrik/boiler");
    }

    std::vector<Ran> RunAll() {
        const std::string project = Host("zentrik/boiler/boiler.mrv");
        std::filesystem::remove_all(temp.Path("text"));
        return {Run({"check", project}), Run({"export", project, temp.Path("text")}),
                Run({"build", project, "--morv", Host("zentrik/morv")})};
    }

    std::map<std::string, std::string> sound_;
};

TEST_F(DamagedProject, StopsEveryCommandWhenAFileIsCutShort) {
    for (const auto& [name, bytes] : sound_) {
        const std::string extension = name.substr(name.find('.'));
        // Sources are texts of any length, and no project names its tags.
        if (extension == ".cpp" || extension == ".rul" || extension == ".tag")
            continue;
        Put("zentrik/boiler/" + name, bytes.substr(0, bytes.size() - 1));
        for (const Ran& ran : RunAll())
            ExpectStopped(ran, "damaged");
        Put("zentrik/boiler/" + name, bytes);
    }
}

TEST_F(DamagedProject, EndsEveryCommandWithACode) {
    std::mt19937 random(5);
    for (int run = 0; run < 150; ++run) {
        for (const auto& [name, bytes] : sound_) {
            std::string damaged = bytes;
            for (auto i = random() % 4; random() % 3 == 0 && i > 0 && !damaged.empty(); --i)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            if (random() % 20 == 0)
                damaged.resize(random() % (damaged.size() + 300));
            Put("zentrik/boiler/" + name, damaged);
        }
        for (const Ran& ran : RunAll()) {
            if (ran.code == 2)
                ExpectStopped(ran, "zentrikc: ");
            else
                EXPECT_EQ(ran.err, "");
        }
        if (HasFailure())
            return;
    }
}

// A start of the fuzz targets in the place of each file of its kind.
TEST_F(DamagedProject, EndsEveryCommandWithACodeOnTheSeedsOfTheFuzzTargets) {
    const std::map<std::string, std::string> kinds = {
        {"project_file", ".mrv"},
        {"system_file", ".lse"},
        {"facts_base", ".fac"},
        {"small_files", ".aux .dde .ikw .mrv .lse .siz .rst .typ .var .fac"}};
    std::size_t tried = 0;
    for (const auto& [target, extensions] : kinds)
        for (const auto& seed : std::filesystem::directory_iterator(
                 std::string(SOURCE_FOLDER) + "/tests/fuzz/corpus/" + target)) {
            std::ostringstream bytes;
            bytes << std::ifstream(seed.path(), std::ios::binary).rdbuf();
            for (const auto& [name, sound] : sound_) {
                if (extensions.find(name.substr(name.find('.'))) == extensions.npos)
                    continue;
                SCOPED_TRACE(seed.path().string() + " as " + name);
                ++tried;
                Put("zentrik/boiler/" + name, bytes.str());
                std::vector<Ran> runs = RunAll();
                runs.push_back(Run({"show", Host("zentrik/boiler/" + name)}));
                for (const Ran& ran : runs) {
                    if (ran.code == 2)
                        ExpectStopped(ran, "zentrikc: ");
                    else
                        EXPECT_EQ(ran.err, "");
                }
                Put("zentrik/boiler/" + name, sound);
            }
        }
    EXPECT_GE(tried, 100u);
}

} // namespace
