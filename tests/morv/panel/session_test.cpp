// Pokes and ticks: which texts an item takes, and what is told.
#include "ddecom.h"
#include "morv/session.h"
#include "morv/shell.h"
#include "panel_test.h"

namespace {

using namespace panel_test;

class Session : public Panel {
protected:
    void SetUp() override {
        Panel::SetUp();
        DDEinfo = {};
        hora[0] = '\0';
        // A value is told when it differs from the last one, also of another test.
        for (const char* item : {"Label", "Level", "Rate", "Count", "Ticks"})
            morv::PokeItem(item, "0");
        Told();
        TheEngine() = {};
    }
};

TEST_F(Session, ANumberMayHaveADecimalComma) {
    EXPECT_TRUE(morv::PokeItem("Rate", "3,5"));
    EXPECT_EQ(DDEinfo.Rate, 3.5);
    EXPECT_TRUE(morv::PokeItem("Level", " -0.25e1 "));
    EXPECT_EQ(DDEinfo.Level, -2.5F);
    EXPECT_EQ(Told(), (Lines{"Poke: Rate = 3.5", "Poke: Level = -0.25e1"}));
    EXPECT_EQ(TheEngine().inputs, (Lines{"Rate = 3.5", "Level = -0.25e1"}));
    EXPECT_STRNE(hora, "");
}

TEST_F(Session, ATextThatIsNoNumberIsRefusedAndTheItemKeepsItsValue) {
    morv::PokeItem("Rate", "7");
    Told();
    for (const char* text : {"", " ", "x", "3 5", "3.5.1", "1.234,5", "nan", "inf", "0x10", "1e",
                             "e5", "+", ".", "--1", "5bar"}) {
        EXPECT_FALSE(morv::PokeItem("Rate", text)) << text;
        EXPECT_EQ(Told(), Lines{"Poke refused: Rate = " + std::string(text) + ": not a number"});
        EXPECT_FALSE(morv::PokeItem("Ticks", text)) << text;
        Told();
    }
    EXPECT_EQ(DDEinfo.Rate, 7);
    EXPECT_EQ(DDEinfo.Ticks, 0);
    EXPECT_FALSE(morv::PokeItem("Rate", "1e999"));
    EXPECT_EQ(Told(), Lines{"Poke refused: Rate = 1e999: too large a number"});
}

TEST_F(Session, AnIntegerTakesWhatFitsAndDropsWhatIsBehindThePoint) {
    for (const auto& [text, value] :
         {std::pair{"12", 12}, {"1e3", 1000}, {"-3,9", -3}, {"2147483647", 2147483647}}) {
        EXPECT_TRUE(morv::PokeItem("Count", text)) << text;
        EXPECT_EQ(DDEinfo.Count, value);
    }
    for (const char* text : {"2147483648", "-1e10", "99999999999999999999999"})
        EXPECT_FALSE(morv::PokeItem("Count", text)) << text;
    EXPECT_EQ(DDEinfo.Count, 2147483647);
    EXPECT_TRUE(morv::PokeItem("Ticks", "2147483647"));
    EXPECT_EQ(DDEinfo.Ticks, 2147483647);
    EXPECT_FALSE(morv::PokeItem("Ticks", "9223372036854775808"));
}

TEST_F(Session, ACharacterTakesTheFirstOfAnyText) {
    EXPECT_TRUE(morv::PokeItem("Label", "x7"));
    EXPECT_EQ(DDEinfo.Label, 'x');
}

TEST_F(Session, AnUnknownItemIsToldAndTheCaseOfAKnownOneDoesNotMatter) {
    EXPECT_FALSE(morv::PokeItem("Pressure", "1"));
    EXPECT_EQ(Told(), Lines{"Poke refused: there is no item Pressure"});
    EXPECT_TRUE(morv::PokeItem("RATE", "4"));
    EXPECT_EQ(DDEinfo.Rate, 4);
}

TEST_F(Session, WhatIsRepeatedIsToldOnce) {
    for (int twice = 0; twice < 2; ++twice)
        morv::PokeItem("Count", "5");
    for (int twice = 0; twice < 2; ++twice)
        morv::PokeItem("Count", "five");
    EXPECT_EQ(Told(), (Lines{"Poke: Count = 5", "Poke refused: Count = five: not a number"}));
    EXPECT_EQ(TheEngine().inputs.size(), 2u) << "the item was poked again all the same";
    morv::PokeItem("Count", "5");
    morv::PokeItem("Count", "five");
    EXPECT_EQ(Told(), Lines{"Poke refused: Count = five: not a number"});
}

TEST_F(Session, WhatRulesSayInEveryTickIsToldWhenItBegins) {
    TheEngine().rules = [] {
        put_box("Hot");
        put_box("Hot");
    };
    morv::RunTick();
    morv::RunTick();
    EXPECT_EQ(Told(), Lines{"> Hot"});
    TheEngine().rules = [] {};
    morv::RunTick();
    TheEngine().rules = [] { put_box("Hot"); };
    morv::RunTick();
    EXPECT_EQ(Told(), Lines{"> Hot"});
    put_box("outside");
    put_box(static_cast<const char*>(nullptr));
    EXPECT_EQ(Told(), (Lines{"> outside", "> "}));
}

// A box that user code opens runs a message loop: the clock and other programs get their turn in
// it.
TEST_F(Session, InATickNoOtherBeginsAndAPokeIsForTheNext) {
    TheEngine().rules = [] {
        EXPECT_TRUE(morv::InTick());
        morv::RunTick();
        EXPECT_TRUE(morv::PokeItem("Rate", "9"));
        EXPECT_FALSE(morv::PokeItem("Rate", "nine"));
        EXPECT_EQ(DDEinfo.Rate, 0);
    };
    morv::RunTick();
    EXPECT_EQ(TheEngine().ticks, 1);
    EXPECT_FALSE(morv::InTick());
    EXPECT_EQ(DDEinfo.Rate, 9);
    EXPECT_EQ(TheEngine().inputs, Lines{"Rate = 9"});
}

} // namespace
