// The commands that are typed into a running program.
#include "ddecom.h"
#include "morv/commands.h"
#include "morv/names.h"
#include "panel_test.h"

namespace {

using namespace panel_test;

class Commands : public Panel {
protected:
    void SetUp() override {
        Panel::SetUp();
        TheEngine().states = {{"Flow", "0 NULL"}, {"HOT", "1 FULL"}, {"Pressure", "11.5 HIGH"}};
    }

    bool Do(const std::string& line) {
        return morv::DoCommand(
            line, {[this](long count) { ticks_ += count; }, [this](bool hold) { hold_ = hold; }});
    }

    // A line that cannot be done says so and does nothing.
    void ExpectRefused(const std::string& line, const std::string& why) {
        EXPECT_FALSE(Do(line)) << line;
        EXPECT_EQ(Told(), Lines{why}) << line;
        EXPECT_EQ(ticks_, 0) << line;
        EXPECT_EQ(TheEngine().trace, "") << line;
    }

    long ticks_ = 0;
    bool hold_ = false;
};

TEST_F(Commands, WhyAndWhyNotTakeANameInAnyCase) {
    EXPECT_TRUE(Do("why HOT"));
    EXPECT_TRUE(Do("  WHY not\tpressure \r"));
    EXPECT_EQ(Told(), (Lines{"why HOT", "why not Pressure"}));
    ExpectRefused("why", "why takes the name of a fact or result");
    ExpectRefused("why not", "why takes the name of a fact or result");
    ExpectRefused("why COLD", "there is no fact or result COLD");
}

TEST_F(Commands, OfNamesThatDifferInCaseTheTypedOneIsMeant) {
    TheEngine().states = {{"Hot", "1 FULL"}, {"hot", "1 FULL"}};
    EXPECT_TRUE(Do("why hot"));
    EXPECT_TRUE(Do("why HOT"));
    EXPECT_EQ(Told(), (Lines{"why hot", "why Hot"}));
}

TEST_F(Commands, PokeGivesAnItemTheRestOfTheLine) {
    EXPECT_TRUE(Do("poke Rate 3,5"));
    EXPECT_EQ(DDEinfo.Rate, 3.5);
    EXPECT_TRUE(Do("poke Label \" x\""));
    EXPECT_EQ(DDEinfo.Label, '"');
    Told();
    for (int twice = 0; twice < 2; ++twice) // who types it sees an answer each time
        ExpectRefused("poke Rate 3 5", "Poke refused: Rate = 3 5: not a number");
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_TRUE(Do("poke Rate 4"));
        EXPECT_EQ(Told(), Lines{"Poke: Rate = 4"});
    }
    ExpectRefused("poke", "poke takes an item and a value");
    ExpectRefused("poke Rate", "poke takes an item and a value");
}

TEST_F(Commands, TickRunsOneOrSoMany) {
    EXPECT_TRUE(Do("tick"));
    EXPECT_TRUE(Do("tick 20"));
    EXPECT_EQ(ticks_, 21);
    ticks_ = 0;
    for (const char* line : {"tick 0", "tick -1", "tick x", "tick 3x", "tick 1 2", "tick 100001",
                             "tick 99999999999999999999"})
        ExpectRefused(line, "tick takes a number from 1 to 100000");
}

TEST_F(Commands, TraceIsForAllForASystemOrForARule) {
    for (const auto& [line, asked] : {std::pair{"trace on", "on,,"},
                                      {"trace off", "off,,"},
                                      {"trace on steam", "on,steam,"},
                                      {"trace on steam 3", "on,steam,3"}}) {
        EXPECT_TRUE(Do(line));
        EXPECT_EQ(TheEngine().trace, asked);
        EXPECT_EQ(Told(), Lines{line});
    }
    TheEngine().trace.clear();
    ExpectRefused("trace on steamm", "there is no system steamm");
    ExpectRefused("trace off steam 4", "there is no rule 4 of steam");
    ExpectRefused("trace", "trace takes on or off");
    ExpectRefused("trace maybe", "trace takes on or off");
}

TEST_F(Commands, FiredTellsOfARuleThatThereIs) {
    EXPECT_TRUE(Do("fired steam 3"));
    EXPECT_EQ(Told(), Lines{"steam 3 fired"});
    ExpectRefused("fired steam 4", "there is no rule 4 of steam");
    ExpectRefused("fired steam", "fired takes a system and the number of a rule");
    ExpectRefused("fired", "fired takes a system and the number of a rule");
}

TEST_F(Commands, HoldAndGoAreForTheClock) {
    EXPECT_TRUE(Do("hold"));
    EXPECT_TRUE(hold_);
    EXPECT_TRUE(Do("go"));
    EXPECT_FALSE(hold_);
}

TEST_F(Commands, ShowTellsWhatHoldsAndIsKnown) {
    EXPECT_TRUE(Do("show"));
    EXPECT_EQ(Told(), (Lines{"HOT 1 FULL", "Pressure 11.5 HIGH"}));
    EXPECT_TRUE(Do("show flow"));
    EXPECT_EQ(Told(), Lines{"Flow 0 NULL"});
    ExpectRefused("show COLD", "there is no fact or result COLD");
    TheEngine().states = {{"Flow", "0 NULL"}};
    EXPECT_TRUE(Do("show"));
    EXPECT_EQ(Told(), Lines{"nothing is known"});
}

TEST_F(Commands, OthersAreRefusedAndHelpListsThemAll) {
    ExpectRefused("whyy HOT", "there is no command whyy; help lists them");
    EXPECT_TRUE(Do(""));
    EXPECT_TRUE(Do(" \t"));
    EXPECT_EQ(Told(), Lines{});
    EXPECT_TRUE(Do("help"));
    EXPECT_EQ(Told().size(), 9u);
}

TEST_F(Commands, ANameIsFoundInALine) {
    EXPECT_EQ(morv::NameIn("  deduce HOT (HIGH)"), "HOT");
    EXPECT_EQ(morv::NameIn("Pressure=11"), "Pressure");
    EXPECT_EQ(morv::NameIn("(Pressure.value() > 10)"), "Pressure");
    EXPECT_EQ(morv::NameIn("HOTTER xHOT HOT_1"), "");
    EXPECT_EQ(morv::NameIn(""), "");
    TheEngine().states = {{"steam.Flow", "1 FULL"}, {"HOT", "1 FULL"}};
    EXPECT_EQ(morv::NameIn("the steam.Flow"), "steam.Flow");
    EXPECT_EQ(morv::NameIn("If (steam.HOT.holds())"), "HOT");
    TheEngine().states = {{"HOT", "1 FULL"}, {"HOT\xC3\xA9", "1 FULL"}};
    EXPECT_EQ(morv::NameIn("If (HOT\xC3\xA9.holds())"), "HOT\xC3\xA9");
}

} // namespace
