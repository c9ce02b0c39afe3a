#include "random_project.h"

#include "console/form/project_folder.h"

#include <cstdlib>

namespace {

using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;
using zentrik_test::RandomProject;

class ShowCommand : public Console {
protected:
    Ran Show(const std::string& name, const std::string& bytes) {
        Put(name, bytes);
        return Run({"show", Host(name)});
    }
};

TEST_F(ShowCommand, PrintsNamesAsRows) {
    std::string bytes = "FULL";
    bytes.resize(50);
    bytes += "two | \xfcs";
    bytes.resize(100);
    const Ran ran = Show("a.rst", bytes);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, "FULL\ntwo | \xc3\xbcs\n");
    EXPECT_EQ(Show("a.TAG", bytes).out, ran.out);
}

TEST_F(ShowCommand, PrintsAProjectWithWhatIsWrongWithIt) {
    ProjectRecord head{};
    SetText(head.MainName, "C:\\p\\main.cpp");
    SetText(head.EngineNames[1], "C:\\p\\a.lse");
    SetText(head.EngineNames[3], "C:\\p\\old.lse");
    head.EngNum = 2;
    head.ResNum = 2;
    head.DatHisLen = 7;
    std::string bytes(BytesOf(head));
    bytes += std::string("C:\\p\\a.rst").append(255 - 10, '\0') + "rest";
    const Ran ran = Show("p.mrv", bytes);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, "main = C:\\p\\main.cpp\n"
                       "system = C:\\p\\a.lse\n"
                       "! system 2 has no name\n"
                       "unused system 3 = C:\\p\\old.lse\n"
                       "history = 7\n"
                       "results = C:\\p\\a.rst\n"
                       "! it counts 2 results files and holds 1\n"
                       "! bytes behind its last whole record: 4\n");
}

TEST_F(ShowCommand, PrintsASystemThatLacksAFact) {
    SystemFile system;
    SetText(system.head.RuleName, "C:\\p\\a.rul");
    system.head.DatNum = 1;
    system.head.OppNum = 1;
    SetText(system.opposites.emplace_back().name, "A\tB");
    EXPECT_EQ(Show("a.lse", SystemBytes(system)).out,
              "rules = C:\\p\\a.rul\nknowledge types = 0\n[facts]\n! it counts 1 facts and holds "
              "0\n[opposites]\nA | B\n");
}

TEST_F(ShowCommand, SaysWhereATextHasNoEnd) {
    SystemFile system;
    std::memset(system.facts.emplace_back().Units, 'u', sizeof system.facts[0].Units);
    system.head.DatNum = 1;
    const std::string wrong = "! the next text fills its field and has no end\n";
    EXPECT_NE(Show("a.lse", SystemBytes(system)).out.find("[facts]\n" + wrong), std::string::npos);
    EXPECT_TRUE(Show("a.fac", std::string(BytesOf(system.facts))).out.starts_with(wrong));
}

// Where a link leads to is a path of the host, which is in UTF-8.
TEST_F(ShowCommand, FollowsLinksToFoldersWithLetters) {
    Put("\xc3\xa9/a.mrv", std::string(4096, '\0').replace(0, 6, "C:\\x\\a"));
    std::filesystem::create_symlink(Host("\xc3\xa9/a.mrv"), Host("a.mrv"));
    EXPECT_EQ(Run({"show", Host("a.mrv")}).out, "main = C:\\x\\a\nhistory = 0\n");
    const Ran ran = Run({"move", Host("a.mrv"), "C:\\x", "C:\\y", "--drive", "C=" + Host("")});
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_TRUE(Content("\xc3\xa9/a.mrv").starts_with("C:\\y\\a"));
}

TEST_F(ShowCommand, StopsWhenTheOutputDoesNotFit) {
    Put("a.rst", std::string(50, 'a'));
    const std::string line = std::string("'" ZENTRIKC "' show '") + Host("a.rst") +
                             "' >/dev/full 2>'" + Host("said") + "'";
    EXPECT_EQ(std::system(line.c_str()) / 256, 2);
    EXPECT_EQ(Content("said"), "zentrikc: the output cannot be written\n");
}

TEST_F(ShowCommand, RefusesOtherFiles) {
    Put("a.cpp", "");
    ExpectStopped(Run({"show", Host("a.cpp")}), "no kind of file");
    ExpectStopped(Run({"show", Host("a.mrv")}), "a.mrv: No such file or directory");
}

// Every kind of file, damaged in every way, is shown; what is cut short is said.
TEST_F(ShowCommand, ShowsDamagedFiles) {
    std::mt19937 random(3);
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const RandomProject project(seed, false);
        for (const auto& [name, sound] : project.dirty) {
            const std::size_t dot = name.find('.');
            if (dot == name.npos || name.ends_with(".cpp") || name.ends_with(".h") ||
                name.starts_with("sub\\") || name.find(".rul") != name.npos ||
                console::IsScenario(name))
                continue;
            std::string bytes = sound;
            for (auto i = random() % 30; i > 0 && !bytes.empty(); --i)
                bytes[random() % bytes.size()] = static_cast<char>(random());
            bytes.resize(random() % (bytes.size() + 60));
            const Ran ran = Show(name.substr(dot - 1), bytes);
            ASSERT_EQ(ran.code, 0) << name;
            ASSERT_EQ(ran.err, "");
            if (name.ends_with(".rst") && bytes.size() % 50 != 0) {
                ASSERT_NE(ran.out.find("! bytes behind"), std::string::npos);
            }
        }
    }
}

} // namespace
