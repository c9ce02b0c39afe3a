// What each block of the rule language means: the rules of blocks/ run tick by tick.
#include "blocks/ddecom.h"
#include "morv/explain.h"
#include "morv/inf_eng.h"
#include "morv/state.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

Informacio DDEinfo;

// The header defines the results, so it is for the rules source alone.
extern DATAFACTRESULT IF_TRUE, IF_FALSE, OR_TRUE, OR_FALSE, XOR_TRUE, XOR_FALSE, UP, DOWN, ROSE,
    NESTED, LATE;

namespace {

std::vector<std::string> g_lines;
std::vector<std::string> g_boxes;

} // namespace

void morv::Output(const std::string& line) {
    g_lines.push_back(line);
}

void put_box(const char* text) {
    g_boxes.emplace_back(text);
}

void put_box(char* text) {
    put_box(static_cast<const char*>(text));
}

namespace {

// One tick with the values A and B and their certainties. Returns what holds.
std::string Tick(double a, double ca, double b, double cb) {
    DDEinfo.A = a;
    DDEinfo.CA = ca;
    DDEinfo.B = b;
    DDEinfo.CB = cb;
    g_lines.clear();
    g_boxes.clear();
    morv::Tick();
    std::string holding = ", ";
    for (const DATAFACTRESULT* result : morv::Now().results)
        if (result->certainty() > 0)
            holding +=
                std::string(result->text) + " (" + morv::CertaintyWord(result->certainty()) + "), ";
    return holding;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return all;
}

#define EXPECT_HOLDS(text, holding)                                                                \
    EXPECT_NE((text).find(", " holding ", "), std::string::npos) << (text)
#define EXPECT_NOT(text, name) EXPECT_EQ((text).find(", " name " ("), std::string::npos) << (text)

// The runtime keeps what it knows for the life of the program: each test begins with two ticks in
// which nothing is certain and all that can be taken back is.
class Blocks : public testing::Test {
protected:
    void SetUp() override {
        morv::SetTrace(false);
        DDEinfo.W1 = DDEinfo.W2 = 0;
        for (DATAFACTRESULT* result : {&IF_TRUE, &IF_FALSE, &OR_TRUE, &OR_FALSE, &XOR_TRUE,
                                       &XOR_FALSE, &UP, &DOWN, &ROSE, &NESTED, &LATE})
            retract(result);
        Tick(0, 0, 0, 0);
        Tick(0, 0, 0, 0);
        Tick(0, 0, 0, 0);
    }
};

TEST_F(Blocks, AnUnknownConditionRunsNeitherBranch) {
    const std::string text = Tick(90, 0, 16, 0);
    for (const char* name : {"IF_TRUE", "IF_FALSE", "OR_TRUE", "OR_FALSE", "XOR_TRUE", "XOR_FALSE"})
        EXPECT_EQ(text.find(name), std::string::npos) << text;
}

TEST_F(Blocks, IfIsAsCertainAsWhatItReadsAndItsConclusionAsTheLeastOfBoth) {
    EXPECT_HOLDS(Tick(90, FULL, 0, 0), "IF_TRUE (VERYHIGH)");
    EXPECT_EQ(g_boxes, std::vector<std::string>{"A is high: EndIf"});
    EXPECT_HOLDS(Tick(90, LOW, 0, 0), "IF_TRUE (LOW)");
    EXPECT_HOLDS(Tick(10, NORMAL, 0, 0), "IF_FALSE (NORMAL)");
    EXPECT_TRUE(g_boxes.empty());
}

TEST_F(Blocks, IfOrHoldsWhenOneDoesHoweverUnknownTheOthersAre) {
    EXPECT_HOLDS(Tick(60, LOW, 0, 0), "OR_TRUE (LOW)");
    EXPECT_HOLDS(Tick(60, LOW, 9, HIGH), "OR_TRUE (HIGH)");
    retract(&OR_TRUE);
    EXPECT_NOT(Tick(10, FULL, 0, 0), "OR_FALSE");
    EXPECT_HOLDS(Tick(10, NORMAL, 1, HIGH), "OR_FALSE (NORMAL)");
}

TEST_F(Blocks, IfXorHoldsWhenExactlyOneDoes) {
    EXPECT_NOT(Tick(60, FULL, 9, 0), "XOR_TRUE");
    EXPECT_HOLDS(Tick(60, HIGH, 1, LOW), "XOR_TRUE (LOW)");
    EXPECT_HOLDS(Tick(60, HIGH, 9, NORMAL), "XOR_FALSE (NORMAL)");
    retract(&XOR_FALSE);
    EXPECT_HOLDS(Tick(6, HIGH, 1, NORMAL), "XOR_FALSE (NORMAL)");
}

TEST_F(Blocks, IfAnyFindsTheFirstFactOfTheType) {
    EXPECT_HOLDS(Tick(0, 0, 0, 0), "NONE_WORN (NORMAL)"); // the least certain of both
    DDEinfo.W2 = 9;
    std::string text = Tick(0, 0, 0, 0);
    EXPECT_HOLDS(text, "ANY_WORN (FULL)");
    EXPECT_NOT(text, "NONE_WORN");
    EXPECT_EQ(g_boxes, std::vector<std::string>{"Second"});
    DDEinfo.W1 = 9; // the first one, less certain than the second
    EXPECT_HOLDS(Tick(0, 0, 0, 0), "ANY_WORN (NORMAL)");
    EXPECT_EQ(g_boxes, std::vector<std::string>{"First"});
}

TEST_F(Blocks, ForAllVisitsEveryFactOfTheType) {
    DDEinfo.W1 = 11;
    DDEinfo.W2 = 12;
    morv::SetTrace(true);
    Tick(0, 0, 0, 0);
    const std::string trace = Joined(g_lines);
    EXPECT_NE(trace.find("assign W1 = 10 h, highest (NORMAL)"), std::string::npos) << trace;
    EXPECT_NE(trace.find("assign W2 = 10 h, highest (FULL)"), std::string::npos) << trace;
    EXPECT_EQ(trace.find("ForAll: PF is A"), std::string::npos) << trace;
}

TEST_F(Blocks, NestedBlocksAreAsCertainAsTheLeastOfAll) {
    EXPECT_HOLDS(Tick(60, NORMAL, 9, HIGH), "NESTED (NORMAL)");
    EXPECT_HOLDS(Tick(60, HIGH, 9, LOW), "NESTED (LOW)");
    EXPECT_EQ(morv::StateText("V"), "80 HIGH");
}

TEST_F(Blocks, AnAssignedValueRestsOnWhatItWasComputedFrom) {
    morv::SetTrace(true);
    Tick(60, FULL, 9, LOW);
    EXPECT_NE(Joined(g_lines).find("assign Sum = 69, lowest (LOW)"), std::string::npos)
        << Joined(g_lines);
    Tick(60, FULL, 9, FULL);
    EXPECT_NE(Joined(g_lines).find("assign Sum = 69, lowest (HIGH)"), std::string::npos)
        << Joined(g_lines);
}

TEST_F(Blocks, HistoryReachesBackMaxNumTicks) {
    EXPECT_NOT(Tick(10, FULL, 0, 0), "ROSE"); // the tick before was unknown
    EXPECT_HOLDS(Tick(80, FULL, 0, 0), "ROSE (FULL)");
    EXPECT_NOT(Tick(70, FULL, 0, 0), "ROSE");
    EXPECT_HOLDS(Tick(70, FULL, 0, 0), "LATE (VERYHIGH)"); // IF_TRUE held two ticks ago
    EXPECT_EQ(MAXNUMTICKS, 2);
    EXPECT_GT(IF_TRUE.certainty(2), 0);
    EXPECT_EQ(IF_TRUE.certainty(3), 0);
    EXPECT_EQ(IF_TRUE.certainty(-1), 0);
}

TEST_F(Blocks, OfTwoOppositesInATickTheSurerHolds) {
    std::string text = Tick(0, 0, 6, FULL); // UP NORMAL, then DOWN LOW
    EXPECT_HOLDS(text, "UP (NORMAL)");
    EXPECT_NOT(text, "DOWN");
    DDEinfo.W2 = 6; // DOWN VERYHIGH
    text = Tick(0, 0, 6, FULL);
    EXPECT_HOLDS(text, "DOWN (VERYHIGH)");
    EXPECT_NOT(text, "UP");
    // What was concluded earlier gives way to anything newer.
    text = Tick(0, 0, 13, LOW);
    EXPECT_HOLDS(text, "UP (LOW)");
    EXPECT_NOT(text, "DOWN");
}

TEST_F(Blocks, TheTraceTellsWhyARuleFiredOrDidNot) {
    morv::SetTrace(true);
    Tick(90, HIGH, 0, 0);
    const std::string trace = Joined(g_lines);
    for (const char* line :
         {"initial A = 90 %, highest (HIGH)\n",
          "Rule 1 of blocks: If and Else, with EndIf in a comment and in a text\n"
          "  If A.value() > A.fact_value.high : true (HIGH)  [A = 90 %, highest (HIGH)]\n"
          "  Then\n"
          "    deduce IF_TRUE (HIGH)\n",
          "  IfOr B.value() > 8.0 : unknown (NULL)  [B unknown]\n"
          "  IfOr is true (HIGH)\n",
          "  IfXor is unknown (NULL): neither branch runs\n"
          "  nothing concluded\n"})
        EXPECT_NE(trace.find(line), std::string::npos) << line << "in:\n" << trace;
    morv::SetTrace(false);
    Tick(90, HIGH, 0, 0);
    EXPECT_EQ(g_lines, std::vector<std::string>{}); // nothing changes
}

TEST_F(Blocks, TheTraceTellsWhatAnUnknownValueWasComputedFrom) {
    morv::SetTrace(true);
    Tick(60, FULL, 9, 0);
    EXPECT_NE(Joined(g_lines).find(
                  "assign Sum = 69, lowest (NULL)  [A = 60 %, normal (FULL); B unknown]\n"),
              std::string::npos)
        << Joined(g_lines);
}

TEST_F(Blocks, TheTraceTellsWhichOppositeIsTakenBack) {
    Tick(0, 0, 6, FULL); // UP
    morv::SetTrace(true);
    DDEinfo.W2 = 6; // DOWN
    Tick(0, 0, 6, FULL);
    EXPECT_NE(Joined(g_lines).find("    retract UP: it is the opposite of DOWN\n"
                                   "    deduce DOWN (VERYHIGH)\n"),
              std::string::npos)
        << Joined(g_lines);
}

TEST_F(Blocks, WhyGoesDownToTheItem) {
    Tick(10, HIGH, 0, 0);
    morv::NoteInput("A", "90");
    Tick(90, HIGH, 0, 0);
    const std::string tick = std::to_string(morv::hot.tick);
    EXPECT_EQ(Joined(morv::Why("IF_TRUE")),
              "IF_TRUE holds (HIGH)\n"
              "  deduced in tick " +
                  tick +
                  " by rule 1 of blocks: If and Else, with EndIf in a comment and in a text\n"
                  "    If A.value() > A.fact_value.high : true (HIGH)\n"
                  "      A = 90 %, highest (HIGH)\n"
                  "        from item A = 90, poked in tick " +
                  tick + "\n");
    EXPECT_EQ(morv::Why("NOSUCH"),
              std::vector<std::string>{"there is no fact and no result NOSUCH"});
}

TEST_F(Blocks, WhyTellsWhatAValueWasComputedFrom) {
    Tick(60, FULL, 9, FULL);
    const std::string why = Joined(morv::Why("Sum"));
    EXPECT_NE(why.find("assigned in tick"), std::string::npos) << why;
    EXPECT_NE(why.find("    computed from\n      A = 60 %, normal (FULL)\n"), std::string::npos)
        << why;
}

TEST_F(Blocks, WhyNotTellsTheFirstConditionThatFailedOrIsUnknown) {
    Tick(60, FULL, 9, 0);
    EXPECT_EQ(Joined(morv::WhyNot("NESTED")),
              "NESTED does not hold\n"
              "  rule 6 of blocks, If B.value() > 8.0 is unknown [B unknown]\n");
    Tick(10, FULL, 9, FULL);
    EXPECT_EQ(Joined(morv::WhyNot("NESTED")),
              "NESTED does not hold\n"
              "  rule 6 of blocks, If A.value() > 50.0 is false [A = 10 %, lowest (FULL)]\n");
}

TEST_F(Blocks, ATickTellsWhatBeginsAndEndsToHoldAndActionsThatChange) {
    Tick(10, FULL, 0, 0);
    Tick(60, FULL, 0, 0);
    const std::string tick = "Tick " + std::to_string(morv::hot.tick) + ": ";
    const std::string told = Joined(g_lines);
    EXPECT_NE(told.find(tick + "OR_TRUE holds (FULL)\n"), std::string::npos) << told;
    EXPECT_NE(told.find(tick + "V = 80 %, high (FULL)\n"), std::string::npos) << told;
    EXPECT_EQ(g_lines.size(), morv::Changes().size());
    Tick(60, FULL, 0, 0);
    EXPECT_EQ(told.find("ANY_WORN"), std::string::npos);
}

TEST_F(Blocks, WhatIsLessCertainDoesNotTakeBack) {
    DATAFACTRESULT result;
    deduce(&result, HIGH);
    morv::hot.path = LOW;
    retract(&result);
    EXPECT_EQ(result.certainty(), HIGH);
    morv::hot.path = FULL;
    retract(&result);
    EXPECT_EQ(result.certainty(), 0);
}

TEST_F(Blocks, AValueThatIsNoNumberIsUnknown) {
    EXPECT_NOT(Tick(std::nan(""), FULL, 0, 0), "IF_TRUE");
    EXPECT_EQ(morv::StateText("A"), "nan NULL");
}

TEST_F(Blocks, AFactKnowsHowLongAgoItWasGivenAValue) {
    DATAFACT fact;
    EXPECT_GT(fact.age(), 1000000000);
    fact.assign(1, FULL);
    EXPECT_EQ(fact.age(), 0);
    Tick(0, 0, 0, 0);
    EXPECT_EQ(fact.age(), 1);
}

TEST_F(Blocks, AnItemThatWasNeverPokedReadsAsUnknown) {
    morv::Read();
    EXPECT_FALSE(morv::Poked("never"));
    EXPECT_EQ(morv::hot.rests_on, 0);
    morv::NoteInput("sometimes", "3");
    morv::Read();
    EXPECT_TRUE(morv::Poked("sometimes"));
    EXPECT_EQ(morv::hot.rests_on, FULL);
    morv::hot.reading = false;
    morv::hot.read_count = 0;
}

TEST_F(Blocks, NamesAreAllFactsAndThenAllResults) {
    const std::vector<std::string> names = morv::Names();
    ASSERT_EQ(names.size(), 6u + 13);
    EXPECT_EQ(names[0], "A");
    EXPECT_EQ(names[6], "IF_TRUE");
}

TEST_F(Blocks, TheTraceTellsAReadingOnceAndOneWhoseNameIsPartOfAnotherToo) {
    static DATAFACT w1, w12;
    w1.Register("W1", nullptr);
    w12.Register("W12", nullptr);
    morv::Read();
    w12.value();
    for (int twice = 0; twice < 2; ++twice)
        w1.value();
    EXPECT_EQ(morv::ReadText(), "  [W12 unknown; W1 unknown]");
    EXPECT_EQ(morv::hot.rests_on, 0);
    morv::hot.reading = false;
    morv::hot.read_count = 0;
}

TEST(Fact, TellsItsLevelAndWhetherItIsOutsideItsLimits) {
    DATAFACT fact;
    fact.fact_value.inf_limit = -5;
    fact.fact_value.sup_limit = 5;
    fact.fact_value.lowest = -4;
    fact.fact_value.low = -2;
    fact.fact_value.high = 2;
    fact.fact_value.highest = 4;
    EXPECT_FALSE(fact.known());
    for (const auto& [value, level] : {std::pair{-6.0, "lowest"},
                                       {-4.0, "lowest"},
                                       {-3.0, "low"},
                                       {0.0, "normal"},
                                       {2.0, "high"},
                                       {4.0, "highest"}}) {
        fact.assign(value, FULL);
        EXPECT_EQ(fact.level(), level) << value;
        EXPECT_EQ(fact.outside(), value == -6.0);
    }
    fact.assign(1, 99);
    EXPECT_EQ(fact.certainty(), FULL);
    fact.assign(1, -3);
    EXPECT_EQ(fact.certainty(), 0);
    EXPECT_FALSE(fact.known());
}

TEST(FieldText, TakesUsersTextsAsTheyAreAndCutsLongOnes) {
    DATAFACT fact;
    sprintf(fact.description, "100 %s %n");
    EXPECT_STREQ(fact.description, "100 %s %n");
    sprintf(fact.fact_value.units, std::string(300, 'u').c_str());
    EXPECT_EQ(std::string(fact.fact_value.units), std::string(MAXUNITS - 1, 'u'));
}

TEST(Certainty, HasAWordForEveryNumber) {
    EXPECT_STREQ(morv::CertaintyWord(0), "NULL");
    EXPECT_STREQ(morv::CertaintyWord(4.9), "NORMAL");
    EXPECT_STREQ(morv::CertaintyWord(FULL), "FULL");
    EXPECT_STREQ(morv::CertaintyWord(1e9), "FULL");
    EXPECT_STREQ(morv::CertaintyWord(-1), "NULL");
    EXPECT_STREQ(morv::CertaintyWord(std::nan("")), "NULL");
}

TEST(Certainty, ThatIsNoNumberIsNone) {
    DATAFACT fact;
    fact.assign(1, std::nan(""));
    EXPECT_EQ(fact.certainty(), 0);
    DATAFACTRESULT result;
    deduce(&result, std::nan(""));
    EXPECT_EQ(result.certainty(), 0);
    deduce(&result, LOW);
    EXPECT_EQ(result.certainty(), LOW);
}

TEST(IfAnyAndForAll, WithoutAFactOfTheTypeAreFalseAndNothing) {
    morv::Site site{morv::Kind::IfAny, "", -1, false};
    morv::Condition any(site);
    DATAFACT* fact = nullptr;
    for (morv::Any each(any, fact, {}); each.Next();)
        any.Take("", (morv::Read(), true));
    any.Decide();
    EXPECT_TRUE(any.Fails());
    EXPECT_EQ(any.Certainty(), FULL);
    EXPECT_EQ(fact, morv::NoFact());
}

} // namespace
