// The commands "run" and "test", with programs that are really made and run.
#include "console_test.h"

#include "console/scenario.h"
#include "morv/run_tool.h"

#include <cstdlib>

namespace {

using console::BadLine;
using console::ReadScenarios;
using console::Scenario;
using console::StepKind;
using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;

std::string BadLineIn(const std::string& text) {
    std::optional<BadLine> bad;
    ReadScenarios(text, bad);
    return bad ? std::to_string(bad->line) + ": " + bad->why : "";
}

TEST(Scenarios, AreReadLineByLine) {
    std::optional<BadLine> bad;
    const std::vector<Scenario> read = ReadScenarios(
        "# first\n\nscenario  Two words \r\npoke A 1,5\n\ttick 3\nexpect A = -2.5 +- 0.5\n"
        "expect R holds\nexpect R holds HIGH\nexpect not R\nexpect unknown A\n"
        "expect fired s 1\nexpect not fired s 2\nscenario Empty",
        bad);
    EXPECT_FALSE(bad);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].name, "Two words");
    EXPECT_EQ(read[0].line, 3);
    std::vector<StepKind> kinds;
    for (const console::Step& step : read[0].steps)
        kinds.push_back(step.kind);
    EXPECT_EQ(kinds, (std::vector{StepKind::Poke, StepKind::Tick, StepKind::Value, StepKind::Holds,
                                  StepKind::Holds, StepKind::Not, StepKind::Unknown,
                                  StepKind::Fired, StepKind::NotFired}));
    EXPECT_EQ(read[0].steps[2].value, -2.5);
    EXPECT_EQ(read[0].steps[2].tolerance, 0.5);
    EXPECT_EQ(read[0].steps[4].wanted, "HIGH");
    EXPECT_EQ(read[0].steps[8].name + read[0].steps[8].wanted, "s2");
    EXPECT_EQ(read[0].steps[8].line, 12);
    EXPECT_TRUE(read[1].steps.empty());
}

TEST(Scenarios, AreReadBehindTheMarkOfUtf8) {
    EXPECT_EQ(BadLineIn("\xef\xbb\xbfscenario A\r\ntick\r\n"), "");
}

TEST(Scenarios, SayWhichLineIsWrong) {
    const std::string begin = "scenario A\n";
    EXPECT_EQ(BadLineIn("\ntick"), "2: a scenario begins with the line: scenario NAME");
    EXPECT_EQ(BadLineIn("scenario"), "1: scenario takes a name");
    EXPECT_EQ(BadLineIn(begin + "jump"), "2: no such step: jump");
    EXPECT_EQ(BadLineIn(begin + "poke A"), "2: poke takes an item and a value");
    for (const char* line : {"tick 0", "tick -1", "tick x", "tick 1 2", "tick 100001"})
        EXPECT_EQ(BadLineIn(begin + line), "2: tick takes a number from 1 to 100000") << line;
    EXPECT_EQ(BadLineIn(begin + "expect R holds MUCH"), "2: there is no certainty MUCH");
    EXPECT_EQ(BadLineIn(begin + "expect A = x"), "2: not a number: x");
    EXPECT_EQ(BadLineIn(begin + "expect A = nan"), "2: not a number: nan");
    EXPECT_EQ(BadLineIn(begin + "expect A = 1 +- -1"), "2: not a tolerance: -1");
    EXPECT_EQ(BadLineIn(begin + "tick\x01"), "2: it is no text");
    for (const char* line :
         {"expect", "expect A", "expect A B", "expect A = 1 2", "expect A = 1 +-", "expect fired s",
          "expect A holds HIGH HIGH", "expect not a b"})
        EXPECT_TRUE(BadLineIn(begin + line).starts_with("2: expect takes: ")) << line;
}

// A folder with the samples' projects. All tests of all runs have the same one, one run at a time,
// for what was made of a project at a place is used again.
class Samples : public Console {
protected:
    Samples() : Console(disk_) {
        for (const auto& entry : std::filesystem::directory_iterator(Host("")))
            std::filesystem::remove_all(entry);
    }

    static void SetUpTestSuite() {
        disk_ = new zentrik_test::TempFolder(zentrik_test::TempFolder::Kept{SAMPLES_FOLDER});
        lock_ = new morv::Lock;
        ASSERT_TRUE(lock_->Take(disk_->Path("lock"), [] {}));
        setenv("XDG_CACHE_HOME", disk_->Path("cache").c_str(), 1);
    }
    static void TearDownTestSuite() {
        unsetenv("XDG_CACHE_HOME");
        delete lock_;
        delete disk_;
        disk_ = nullptr;
    }

    static std::string Source(const std::string& path) {
        return std::string(SOURCE_FOLDER) + "/" + path;
    }

    // Makes the project of a sample beside this source.
    Ran Import(const std::string& sample) const {
        return Run({"import", Source("examples/" + sample), Host(""), "--drive", Drive()});
    }

    std::string Drive() const { return "C=" + Host(""); }

    Ran Test(const std::string& project, const std::vector<std::string>& more) const {
        std::vector<std::string> words = {"test",         Host(project), "--morv",
                                          Source("morv"), "--drive",     Drive()};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }

    // Runs the boiler over the file "commands" to the file "said"; returns the exit code.
    int RunProgram(const std::string& more) const {
        const std::string line = std::string("'" ZENTRIKC "' run '") + Host("boiler/boiler.mrv") +
                                 "' --morv '" SOURCE_FOLDER "/morv' --drive '" + Drive() + "' " +
                                 more + " <'" + Host("commands") + "' >'" + Host("said") + "'";
        return std::system(line.c_str()) / 256;
    }

    // Changes the first rule of the boiler's drum: its statements come after `statement`.
    void BeginFirstRule(const std::string& statement) const {
        std::string rules = Content("boiler/steam.rul");
        rules.insert(rules.find("deduce(&HIGH_PRESSURE"), statement + "\r\n");
        Put("boiler/steam.rul", rules);
    }

    static inline zentrik_test::TempFolder* disk_ = nullptr;
    static inline morv::Lock* lock_ = nullptr;
};

TEST_F(Samples, TheBoilerDoesWhatItsScenariosSay) {
    ASSERT_EQ(Import("boiler").code, 0);
    const Ran ran = Test("boiler/boiler.mrv", {Source("examples/boiler/boiler.scenario")});
    EXPECT_EQ(ran.code, 0) << ran.out << ran.err;
    EXPECT_TRUE(ran.out.starts_with("TAP version 13\n1..7\nok 1 - Nothing is done")) << ran.out;
}

TEST_F(Samples, TheDistillationDoesWhatItsScenariosSay) {
    ASSERT_EQ(Import("distillation").code, 0);
    const Ran checked = Run({"check", Host("distillation/distillation.mrv"), "--drive", Drive()});
    EXPECT_EQ(checked.code, 0) << checked.out << checked.err;
    const Ran ran = Test("distillation/distillation.mrv",
                         {Source("examples/distillation/distillation.scenario")});
    EXPECT_EQ(ran.code, 0) << ran.out << ran.err;
    EXPECT_NE(ran.out.find("\nok 8 - "), std::string::npos) << ran.out;
}

TEST_F(Samples, AFailureTellsWhatWasInsteadAndWhy) {
    ASSERT_EQ(Import("boiler").code, 0);
    Put("boiler/a.scenario", "scenario Wrong <one>\npoke DrumLevel 50\npoke Pressure 11.5\ntick\n"
                             "expect HIGH_PRESSURE holds FULL\nexpect LOW_PRESSURE holds\n"
                             "expect ReliefValve = 26 +- 0.5\nexpect not fired steam 1\n"
                             "expect fired steam 4\n");
    Put("boiler/b.SCENARIO", "scenario Right\npoke Pressure 11.5\ntick\nexpect fired steam 1\n");
    const auto before = Files("boiler");
    const Ran ran = Test("boiler/boiler.mrv", {"--junit", Host("report.xml")});
    EXPECT_EQ(ran.code, 1) << ran.err;
    EXPECT_EQ(Files("boiler"), before);
    for (const char* text :
         {"1..2\nnot ok 1 - Wrong <one>\n",
          "a.scenario:5: expect HIGH_PRESSURE holds FULL: HIGH_PRESSURE 1 HIGH\n"
          "#     deduced in tick 1 by rule 1 of steam: Pressure of the drum\n",
          "Pressure.value() > Pressure.fact_value.high : true (VERYHIGH)\n",
          "a.scenario:6: expect LOW_PRESSURE holds: LOW_PRESSURE 0 NULL\n"
          "#     rule 1 of steam: Pressure of the drum, If ",
          "a.scenario:7: expect ReliefValve = 26 +- 0.5: ReliefValve 25 VERYHIGH\n",
          "a.scenario:8: expect not fired steam 1: rule 1 of steam: Pressure of the drum fired\n",
          "a.scenario:9: expect fired steam 4: rule 4 of steam: Foam did not fire\n#     If ",
          "\nok 2 - Right\n"})
        EXPECT_NE(ran.out.find(text), std::string::npos) << text << "\nin\n" << ran.out;
    const std::string report = Content("report.xml");
    for (const char* text : {"tests=\"1\" failures=\"1\"", "name=\"Wrong &lt;one&gt;\"",
                             "HIGH_PRESSURE holds FULL: HIGH_PRESSURE 1 HIGH\">"})
        EXPECT_NE(report.find(text), std::string::npos) << text << "\nin\n" << report;
}

// Scenarios are mostly UTF-8, the rules of the code page; a report is UTF-8 throughout.
TEST_F(Samples, ReportsHaveTheirLetters) {
    ASSERT_EQ(Import("boiler").code, 0);
    std::string rules = Content("boiler/steam.rul");
    rules.replace(rules.find("Pressure of the drum"), 8,
                  "\xdc"
                  "berdruck");
    Put("boiler/steam.rul", rules);
    Put("boiler/\xc3\xa9.scenario", "scenario \xce\x94p, \xc3\xa9\ntick\nexpect fired steam 1\n");
    Put("boiler/z.scenario", "scenario of the code page: \xe9\n");
    const Ran ran = Test("boiler/boiler.mrv", {"--junit", Host("report.xml")});
    EXPECT_EQ(ran.code, 1) << ran.err;
    for (const std::string& report : {ran.out, Content("report.xml")})
        for (const char* text : {"\xce\x94p, \xc3\xa9", "/\xc3\xa9.scenario:3: ",
                                 "rule 1 of steam: \xc3\x9c"
                                 "berdruck of the drum did not",
                                 "of the code page: \xc3\xa9"})
            EXPECT_NE(report.find(text), std::string::npos) << text << "\nin\n" << report;
}

TEST_F(Samples, WhatCannotBeTestedStops) {
    ASSERT_EQ(Import("boiler").code, 0);
    ExpectStopped(Test("boiler/boiler.mrv", {}), "boiler.mrv: there is no scenario file beside it");
    ExpectStopped(Test("boiler/none.mrv", {}), "none.mrv: No such file");
    // Nothing is left of a project that cannot be read.
    const auto made = [] {
        return std::distance(std::filesystem::directory_iterator(disk_->Path("cache/zentrik")), {});
    };
    const auto before = made();
    Put("p/a.scenario", "scenario A\n");
    Put("p/damaged.mrv", "x");
    ExpectStopped(Test("p/damaged.mrv", {}), "damaged.mrv: damaged");
    Put("p/bare.mrv", std::string(4096, '\0'));
    ExpectStopped(Test("p/bare.mrv", {}), "bare.mrv: it names no main file");
    EXPECT_EQ(made(), before);
    ExpectStopped(Test("boiler/boiler.mrv", {Host("none.scenario")}),
                  "none.scenario: No such file");
    Put("boiler/a.scenario", "scenario A\n\npoke Presure 1\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}), "a.scenario:3: there is no item Presure");
    Put("boiler/a.scenario", "scenario A\npoke Pressure much\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}), "a.scenario:2: Pressure = much: not a number");
    Put("boiler/a.scenario", "scenario A\ntick\nexpect not NOTHING\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}),
                  "a.scenario:3: there is no fact or result NOTHING\n");
    Put("boiler/a.scenario", "scenario A\ntick\nexpect fired steam 99\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}), "a.scenario:3: there is no rule 99 of steam\n");
    Put("boiler/a.scenario", "scenario A\nexpect not fired steam 99\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}), "a.scenario:2: there is no rule 99 of steam\n");
    Put("boiler/a.scenario", "scenario A\nhop\n");
    ExpectStopped(Test("boiler/boiler.mrv", {}), "a.scenario:2: no such step: hop");
}

TEST_F(Samples, FactsAndRulesAreThereBeforeTheFirstTick) {
    ASSERT_EQ(Import("boiler").code, 0);
    Put("boiler/a.scenario",
        "scenario A\nexpect unknown Pressure\nexpect not LOCKOUT\nexpect not fired steam 1\n");
    const Ran ran = Test("boiler/boiler.mrv", {});
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(ran.out, "TAP version 13\n1..1\nok 1 - A\n");
}

// Rules are C++ and may hold loops that do not end, silent ones and such as tell something.
TEST_F(Samples, AStepWithoutEndFailsItsScenarioAlone) {
    ASSERT_EQ(Import("boiler").code, 0);
    BeginFirstRule(
        "for (volatile bool on = Pressure.value() > 14 && Pressure.value() < 15; on;) {}\r\n"
        "for (long i = 0; Pressure.value() > 15; ++i) put_box(std::to_string(i).c_str());");
    const std::string begin = "poke DrumLevel 50\npoke Pressure ";
    Put("boiler/a.scenario", "scenario Silent\n" + begin + "14.5\ntick\nexpect not LOW_PRESSURE\n" +
                                 "scenario Right\n" + begin + "11.5\ntick\nexpect fired steam 1\n");
    const Ran silent = Test("boiler/boiler.mrv", {"--limit", "2", "--junit", Host("report.xml")});
    EXPECT_EQ(silent.code, 1) << silent.err;
    for (const char* text :
         {"1..2\nnot ok 1 - Silent\n",
          "a.scenario:4: tick: ended: a command took longer than 2 s\nok 2 - Right\n"})
        EXPECT_NE(silent.out.find(text), std::string::npos) << text << "\nin\n" << silent.out;
    EXPECT_NE(Content("report.xml").find("tests=\"2\" failures=\"1\""), std::string::npos);
    Put("boiler/a.scenario", "scenario Loud\n" + begin + "15.5\ntick\n");
    const Ran loud = Test("boiler/boiler.mrv", {});
    EXPECT_EQ(loud.code, 1) << loud.err;
    EXPECT_NE(loud.out.find("a.scenario:4: tick: ended: a command told more than 1000000 lines"),
              std::string::npos)
        << loud.out;
    // And in front of the user.
    Put("commands", begin + "14.5\ntick\nshow\n");
    EXPECT_EQ(RunProgram("--limit 1"), 1);
    EXPECT_TRUE(Content("said").ends_with("\nended: a command took longer than 1 s\n"))
        << Content("said");
    ExpectStopped(Test("boiler/boiler.mrv", {"--limit", "-1"}), "--limit");
}

TEST_F(Samples, ARuleThatIsNoCppIsAFindingAtItsPlace) {
    ASSERT_EQ(Import("boiler").code, 0);
    std::string rules = Content("boiler/steam.rul");
    const std::string name = "&HIGH_PRESSURE";
    rules.replace(rules.find(name), name.size(), "&HIHG_PRESSURE");
    Put("boiler/steam.rul", rules);
    Put("boiler/a.scenario", "scenario A\n");
    const Ran ran = Test("boiler/boiler.mrv", {});
    EXPECT_EQ(ran.code, 1) << ran.err;
    EXPECT_NE(ran.out.find("steam, rule 1, line 5: HIHG_PRESSURE"), std::string::npos) << ran.out;
}

// With tools that only make what they are told to.
TEST_F(Samples, BuildMakesTheProgramToo) {
    namespace fs = std::filesystem;
    ASSERT_EQ(Import("boiler").code, 0);
    fs::copy(Source("morv"), Host("morv"));
    for (const char* tool : {"g++", "windres"}) {
        Put(std::string("bin/") + tool, "#!/bin/sh\nfor last; do :; done\necho made >\"$last\"\n");
        fs::permissions(Host(std::string("bin/") + tool), fs::perms::all);
    }
    const auto build = [this](const std::string& compiler) {
        return Run({"build", Host("boiler/boiler.mrv"), "--morv", Host("morv"), "--drive", Drive(),
                    "--program", "--compiler", Host(compiler)});
    };
    const Ran made = build("bin");
    EXPECT_EQ(made.code, 0) << made.out << made.err;
    EXPECT_EQ(Content("boiler/Apiboiler.exe"), "made\n");
    Put("boiler/burner.rul", "Rule 1\r\n  deduce(&NOTHING, FULL);\r\nEndRule\r\n");
    const Ran failed = build("bin");
    EXPECT_EQ(failed.code, 1) << failed.err;
    EXPECT_NE(failed.out.find("burner, rule 1, line 2: NOTHING"), std::string::npos) << failed.out;
}

TEST_F(Samples, RunAnswersItsInput) {
    ASSERT_EQ(Import("boiler").code, 0);
    Put("commands", "poke Pressure 11.5\ntick\nwhy HIGH_PRESSURE\n");
    EXPECT_EQ(RunProgram(""), 0);
    EXPECT_TRUE(Content("said").starts_with("Poke: Pressure = 11.5\n")) << Content("said");
    EXPECT_NE(Content("said").find("\nHIGH_PRESSURE holds (HIGH)\n"), std::string::npos);
    EXPECT_EQ(Content("said").find("Rule 1 of steam"), std::string::npos);
    Put("commands", "tick\nfly\n");
    EXPECT_EQ(RunProgram("--trace"), 1);
    EXPECT_NE(Content("said").find("there is no command fly"), std::string::npos);
    Put("commands", "poke Pressure 11.5\ntick\n");
    EXPECT_EQ(RunProgram("--trace"), 0);
    EXPECT_NE(Content("said").find("Rule 1 of steam: Pressure of the drum\n"), std::string::npos);
}

} // namespace
