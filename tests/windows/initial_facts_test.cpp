#include "dialog_test.h"
#include "system_window.h"
#include "tests/core/core_test.h"

#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "resources/initial_facts.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

constexpr int kFull = 0; // rows of the certainty list
constexpr int kHigh = 2;

std::string InitialBytes(const std::vector<Texts>& facts) {
    std::string bytes;
    for (const Texts& texts : facts) {
        I_K fact;
        SetText(fact.K_Name, texts[0]);
        SetText(fact.K_Val, texts[1]);
        SetText(fact.Pres, texts[2]);
        bytes += BytesOf(fact);
    }
    return bytes;
}

class InitialFacts : public testing::Test {
protected:
    InitialFacts() {
        SetText(System.OldInitName, temp.Path("old.ikw"));
        SetText(System.IKWFile, temp.Path("new.ikw"));
        SetText(DDEIKnw, temp.Path("a.dde"));
    }

    static void Add(const DialogHandle& dialog, const std::string& fact, const std::string& value,
                    int certainty) {
        dialog.Put(INIT_FACT, fact);
        dialog.Put(INIT_VALUE, value);
        dialog.Choose(INIT_CERTAINTY, certainty);
        dialog.Press(IDOK);
    }

    TempFolder temp;
    SystemWindow system;
    Boxes boxes;
};

TEST_F(InitialFacts, ListEveryFactOfTheSystemWithItsValue) {
    system.AddFacts({"level", "flow", "Flow", "speed"});
    temp.Put("old.ikw", InitialBytes({{"Flow", "3", "HIGH"},
                                      {"gone", "1", "FULL"},
                                      {"level", "5", ""},
                                      {"level", "6", "LOW"}}));
    ShownDialog dialog("Init_Box", InitKnw);
    EXPECT_EQ(dialog.Rows(INIT_FACTS),
              (Texts{"level \t 5 \t  ", "flow \t   \t  ", "Flow \t 3 \t HIGH", "speed \t   \t  "}));
    EXPECT_EQ(dialog.Text(INIT_FACT), "");
    EXPECT_EQ(dialog.Text(INIT_VALUE), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(InitialFacts, OfferTheCertaintiesAndChooseNone) {
    ShownDialog dialog("Init_Box", InitKnw);
    EXPECT_EQ(dialog.Choices(INIT_CERTAINTY),
              (Texts{"FULL", "VERYHIGH", "HIGH", "NOTVERYHIGH", "NORMAL", "NOTVERYLOW", "LOW",
                     "VERYLOW", "NULL"}));
    EXPECT_EQ(SendMessageA(dialog.Item(INIT_CERTAINTY), CB_GETCURSEL, 0, 0), CB_ERR);
}

TEST_F(InitialFacts, OfferVariablesAndThenDdeItems) {
    V_V variables[2]{};
    SetText(variables[0].Name, "b");
    SetText(variables[1].Name, "a");
    temp.Put("name.var", std::string(BytesOf(variables[0])) + std::string(BytesOf(variables[1])));
    SetText(variables[0].Name, "working");
    temp.Put("file.var", BytesOf(variables[0]));
    DdeFile dde{"plant", std::vector<DDE_ITEM>(1)};
    SetText(dde.items[0].DName, "Level");
    temp.Put("a.dde", DdeBytes(dde));
    SetText(System.VarName, temp.Path("name.var"));
    {
        ShownDialog dialog("Init_Box", InitKnw);
        EXPECT_EQ(dialog.Rows(INIT_VARS), (Texts{"b", "a", "DDEinfo.Level"}));
        dialog.Put(INIT_VALUE, "1+");
        dialog.DoubleClick(INIT_VARS, 0);
        dialog.DoubleClick(INIT_VARS, 2);
        EXPECT_EQ(dialog.Text(INIT_VALUE), "1+bDDEinfo.Level");
    }
    // The working copy comes before the saved file.
    SetText(System.VarFile, temp.Path("file.var"));
    System.WroteVariables();
    ShownDialog dialog("Init_Box", InitKnw);
    EXPECT_EQ(dialog.Rows(INIT_VARS), (Texts{"working", "DDEinfo.Level"}));
}

TEST_F(InitialFacts, TakeShortDdeFilesAsWithoutItems) {
    temp.Put("a.dde", "plant");
    ShownDialog dialog("Init_Box", InitKnw);
    EXPECT_TRUE(dialog.Rows(INIT_VARS).empty());
}

TEST_F(InitialFacts, ReturnTheNameToItsFieldOnADoubleClick) {
    system.AddFacts({"level", "flow"});
    ShownDialog dialog("Init_Box", InitKnw);
    dialog.Put(INIT_VALUE, "left from before");
    dialog.DoubleClick(INIT_FACTS, 1);
    EXPECT_EQ(dialog.Text(INIT_FACT), "flow");
    EXPECT_EQ(dialog.Text(INIT_VALUE), "");
    dialog.Put(INIT_VALUE, "1");
    dialog.DoubleClick(INIT_FACTS, -1);
    EXPECT_EQ(dialog.Text(INIT_VALUE), "1");
}

TEST_F(InitialFacts, NeedACertainty) {
    system.AddFacts({"level"});
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, "level", "1", -1);
    ASSERT_EQ(boxes.shown, (Texts{"Init Knowledge Base: Certainty needed"}));
    EXPECT_EQ(boxes.messages[0].owner, dialog.Window());
    EXPECT_EQ(boxes.messages[0].icon, Icon::None);
    EXPECT_EQ(boxes.messages[0].buttons, Buttons::Ok);
    EXPECT_EQ(dialog.Rows(INIT_FACTS), (Texts{"level \t   \t  "}));
}

TEST_F(InitialFacts, AreSetInTheirPlace) {
    system.AddFacts({"level", "flow", "speed"});
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, "flow", "12", kHigh);
    Add(dialog, "nothing", "12", kHigh);
    Add(dialog, "", "12", kHigh);
    EXPECT_EQ(dialog.Rows(INIT_FACTS),
              (Texts{"level \t   \t  ", "flow \t 12 \t HIGH", "speed \t   \t  "}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(InitialFacts, AreFoundByTheStartOfTheirNameInAnyLetterCase) {
    system.AddFacts({"speed", "Level1", "level2"});
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, "lev", "12", kFull);
    EXPECT_EQ(dialog.Rows(INIT_FACTS),
              (Texts{"speed \t   \t  ", "lev \t 12 \t FULL", "level2 \t   \t  "}));
}

TEST_F(InitialFacts, AreClearedByRemoveAndStayListed) {
    system.AddFacts({"level", "flow"});
    temp.Put("old.ikw", InitialBytes({{"level", "1", "LOW"}, {"flow", "2", "LOW"}}));
    ShownDialog dialog("Init_Box", InitKnw);
    dialog.Press(INIT_REMOVE);
    dialog.Select(INIT_FACTS, 0);
    dialog.Press(INIT_REMOVE);
    EXPECT_EQ(dialog.Rows(INIT_FACTS), (Texts{"level \t   \t  ", "flow \t 2 \t LOW"}));
    dialog.Press(INIT_CLOSE);
    EXPECT_EQ(temp.Content("new.ikw"), InitialBytes({{"level", "", "  "}, {"flow", "2", "LOW"}}));
}

TEST_F(InitialFacts, AreWrittenOnClose) {
    system.AddFacts({"level", "flow", "speed"});
    temp.Put("old.ikw", InitialBytes({{"flow", "2", "LOW"}, {"gone", "1", "FULL"}}));
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, "level", "7", kFull);
    EXPECT_EQ(System.Engmod, 0);
    dialog.Press(INIT_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.ikw"),
              InitialBytes({{"level", "7", "FULL"}, {"flow", "2", "LOW"}, {"speed", "", "  "}}));
    EXPECT_EQ(System.InitNew, 1);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(InitialFacts, KeepOnlyTheFirstWordOfAValue) {
    system.AddFacts({"level"});
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, "level", "two words", kFull);
    dialog.Press(INIT_CLOSE);
    EXPECT_EQ(temp.Content("new.ikw"), InitialBytes({{"level", "two", "words \t FULL"}}));
}

TEST_F(InitialFacts, OfASystemWithoutFactsAreAnEmptyFile) {
    temp.Put("new.ikw", "old content");
    ShownDialog dialog("Init_Box", InitKnw);
    EXPECT_TRUE(dialog.Rows(INIT_FACTS).empty());
    dialog.Press(INIT_CLOSE);
    EXPECT_TRUE(files::Exists(temp.Path("new.ikw").c_str()));
    EXPECT_EQ(temp.Content("new.ikw"), "");
    EXPECT_EQ(System.InitNew, 1);
}

TEST_F(InitialFacts, OfFullLengthAreWrittenWhole) {
    const std::string name(69, 'n'), value(254, 'v');
    system.AddFacts({name});
    ShownDialog dialog("Init_Box", InitKnw);
    Add(dialog, name, value + "more", kFull);
    EXPECT_GT(SendMessageA(dialog.Item(INIT_FACTS), LB_GETHORIZONTALEXTENT, 0, 0), 254 * 2);
    dialog.Press(INIT_CLOSE);
    EXPECT_EQ(temp.Content("new.ikw"), InitialBytes({{name, value, "FULL"}}));
}

TEST_F(InitialFacts, SayWhenTheirFileCannotBeCreatedAndClose) {
    system.AddFacts({"level"});
    SetText(System.IKWFile, temp.Path("none\\new.ikw"));
    ShownDialog dialog("Init_Box", InitKnw);
    dialog.Press(INIT_CLOSE);
    ASSERT_EQ(boxes.shown, (Texts{"Init Fats: Init File Error"}));
    EXPECT_EQ(boxes.messages[0].owner, nullptr);
    EXPECT_EQ(boxes.messages[0].icon, Icon::Exclamation);
    EXPECT_EQ(boxes.messages[0].buttons, Buttons::Ok);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(System.InitNew, 0);
    EXPECT_EQ(System.Engmod, 1);
}

TEST_F(InitialFacts, StayInTheDialogWhenTheDiskIsFull) {
    system.AddFacts({"level"});
    temp.Put("new.ikw", "old content");
    ShownDialog dialog("Init_Box", InitKnw);
    files::FailWritesAfter(100);
    dialog.Press(INIT_CLOSE);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: No space left on the disk"}));
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.ikw"), "old content");
    EXPECT_EQ(System.InitNew, 0);
    dialog.Press(INIT_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.ikw"), InitialBytes({{"level", "", "  "}}));
}

TEST_F(InitialFacts, CancelGoesBackToTheFileBefore) {
    system.AddFacts({"level"});
    ShownDialog dialog("Init_Box", InitKnw);
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(System.IKWFile), temp.Path("old.ikw"));
    EXPECT_EQ(Text(System.OldInitName), "");
    EXPECT_EQ(System.InitNew, 0);
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_FALSE(files::Exists(temp.Path("new.ikw").c_str()));
}

TEST_F(InitialFacts, TheCloseBoxForgetsTheWorkingCopy) {
    system.AddFacts({"level"});
    ShownDialog dialog("Init_Box", InitKnw);
    dialog.CloseBox();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(System.IKWFile), "");
    EXPECT_EQ(Text(System.OldInitName), temp.Path("old.ikw"));
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_FALSE(files::Exists(temp.Path("new.ikw").c_str()));
}

TEST_F(InitialFacts, OfManyFactsOpenAndCloseQuickly) {
    Texts names;
    std::vector<Texts> facts;
    for (int i = 0; i < 10000; ++i) {
        names.push_back("fact_with_a_name_" + std::to_string(i));
        facts.push_back({names.back(), std::to_string(i), "NOTVERYHIGH"});
    }
    system.AddFacts(names);
    const std::string bytes = InitialBytes(facts);
    temp.Put("old.ikw", bytes);
    const auto start = Clock::now();
    ShownDialog dialog("Init_Box", InitKnw);
    const auto open = Clock::now();
    EXPECT_LT(open - start, std::chrono::seconds(20));
    dialog.Press(INIT_CLOSE);
    EXPECT_LT(Clock::now() - open, std::chrono::seconds(20));
    EXPECT_EQ(temp.Content("new.ikw"), bytes);
}

} // namespace
