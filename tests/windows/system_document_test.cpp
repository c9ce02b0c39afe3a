// The system document over a real list box: its rows and their positions.
#include "document_test.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;

class SystemDocument : public DocumentTest {
protected:
    SystemDocument() {
        System.NameSys("untitled.lse");
        System.CreateSys();
        System.EngineState = 1;
    }

    static RowTexts Rows() { return RowsOf(System.hwndSys); }

    // As the facts dialog does it: the items first, their heading last.
    static void SetFacts(const RowTexts& facts) {
        if (System.DatNum > 0)
            System.DelKnw();
        for (const std::string& fact : facts) {
            System.NameKnw(NameBuffer(fact));
            System.DatNum += 1;
        }
        if (System.DatNum > 0)
            System.TitleKnw();
    }

    static void SetOpposites(const RowTexts& opposites) {
        if (System.OppNum > 0)
            System.DelOpp();
        for (const std::string& opposite : opposites) {
            System.NameOpp(NameBuffer(opposite));
            System.OppNum += 1;
        }
        if (System.OppNum > 0)
            System.TitleOpp();
    }

    // Every position is where the section's heading stands, and says when there is none.
    static void ExpectPositions() {
        const RowTexts rows = Rows();
        auto first = [&rows](const char* heading) {
            const auto at = std::ranges::find(rows, heading);
            return at == rows.end() ? -1 : static_cast<int>(at - rows.begin()) + 1;
        };
        EXPECT_EQ(System.PRul, first("Rules"));
        EXPECT_EQ(System.PKnw, first("Facts Base"));
        EXPECT_EQ(System.POpp, first("Opossites"));
        EXPECT_EQ(System.PHead, first("System Header"));
        EXPECT_EQ(System.PVar, first("System Locar Var"));
    }
};

TEST_F(SystemDocument, StartsWithItsNameOnly) {
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
    EXPECT_TRUE(System.IsUntitled());
    EXPECT_EQ(System.GetIndex(), -1);
    EXPECT_FALSE(System.KnwBool());
    EXPECT_TRUE(System.IsSysWin(System.hwndSys));
    EXPECT_FALSE(System.IsSysWin(hMdiC));
    EXPECT_EQ(System.GetHwnd(), System.hwndSys);
    System.ChangeName("C:\\w\\a.lse");
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tC:\\w\\a.lse"}));
    EXPECT_FALSE(System.IsUntitled());
}

TEST_F(SystemDocument, ShowsEverySectionInItsPlaceWhateverTheOrder) {
    System.NameVar("C:\\run");
    System.NameHeader("h.cpp");
    SetOpposites({"hot\tcold", "up\tdown"});
    SetFacts({"fever", "cough"});
    System.NameRule("C:\\w\\a.rul");
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "Rules", "\tC:\\w\\a.rul",
                                "Facts Base", "\tfever", "\tcough", "Opossites", "\thot\tcold",
                                "\tup\tdown", "System Header", "\th.cpp", "System Locar Var",
                                "\tC:\\run\\untitled.var"}));
    ExpectPositions();
    EXPECT_EQ(System.PRul, 3);
    EXPECT_STREQ(System.RuleSizeName, "C:\\w\\a.siz");
    EXPECT_EQ(System.Engmod, 1);
    char name[kNameSize];
    System.GetKnw(1, name);
    EXPECT_STREQ(name, "cough");
    EXPECT_EQ(System.GetOpp(0), "hot\tcold");
    EXPECT_EQ(System.GetOpp(77), "");
    System.GetKnw(77, name);
    EXPECT_STREQ(name, "");
}

TEST_F(SystemDocument, RulesMoveTheFactsDown) {
    SetFacts({"fever"});
    EXPECT_EQ(Rows()[2], "Facts Base");
    System.NameRule("a.rul");
    EXPECT_EQ(Rows()[4], "Facts Base");
    EXPECT_EQ(System.PKnw, 5);
    System.DeleteRule();
    EXPECT_EQ(Rows()[2], "Facts Base");
    EXPECT_EQ(System.PKnw, 3);
    EXPECT_EQ(System.RuleState, 0);
    EXPECT_STREQ(System.RuleName, "");
    EXPECT_STREQ(System.RuleSizeName, "");
}

TEST_F(SystemDocument, CutsDerivedNamesAtTheFirstDot) {
    System.NameRule("C:\\my.dir\\a.rul");
    EXPECT_STREQ(System.RuleSizeName, "C:\\my.siz");
    System.NameSys("C:\\my.dir\\a.lse");
    System.NameVar("C:\\run");
    EXPECT_EQ(Rows().back(), "\tC:\\my.var");
}

TEST_F(SystemDocument, LastFactTakesTheHeadingAlong) {
    SetFacts({"fever", "cough"});
    SetOpposites({"a\tb"});
    System.NameHeader("h.cpp");
    System.NameVar("C:\\run");
    const int head = System.PHead;
    System.DeleteKnw(3);
    EXPECT_EQ(System.PHead, head - 1);
    EXPECT_EQ(Rows()[3], "\tcough");
    ExpectPositions();
    System.KnowState = 1;
    System.DeleteKnw(3);
    EXPECT_EQ(System.PHead, head - 3);
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_EQ(System.PKnw, -1);
    EXPECT_EQ(System.KnowState, 0);
    EXPECT_EQ(Rows()[2], "Opossites");
    ExpectPositions();
}

TEST_F(SystemDocument, LastOppositeTakesTheHeadingAlong) {
    SetFacts({"fever"});
    SetOpposites({"a\tb", "c\td"});
    System.NameHeader("h.cpp");
    System.DeleteOpp(5);
    EXPECT_EQ(Rows()[5], "\tc\td");
    ExpectPositions();
    System.DeleteOpp(5);
    EXPECT_EQ(System.OppNum, 0);
    EXPECT_EQ(System.POpp, -1);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "Facts Base", "\tfever",
                                "System Header", "\th.cpp"}));
    ExpectPositions();
}

TEST_F(SystemDocument, RemovesAllFactsAndOppositesAtOnce) {
    SetFacts({"fever", "cough", "pain"});
    SetOpposites({"a\tb", "c\td"});
    System.NameVar("C:\\run");
    System.DeleteKnw(-1);
    ExpectPositions();
    EXPECT_EQ(Rows()[2], "Opossites");
    System.DeleteOpp(-1);
    ExpectPositions();
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse", "System Locar Var",
                                "\tC:\\run\\untitled.var"}));
    // Chosen anew, they find their places.
    SetOpposites({"e\tf"});
    SetFacts({"fever"});
    SetFacts({"cough", "pain"});
    ExpectPositions();
    EXPECT_EQ(Rows()[4], "\tpain");
}

TEST_F(SystemDocument, RemovesHeaderAndVariables) {
    System.NameHeader("h.cpp");
    System.NameVar("C:\\run");
    SetText(System.VarFile, "copy.var");
    SetText(System.VarName, "a.var");
    System.DeleteHead();
    ExpectPositions();
    EXPECT_STREQ(System.HeaderName, "");
    EXPECT_EQ(System.HeadState, 0);
    System.DeleteVar();
    EXPECT_EQ(System.VarState, 0);
    EXPECT_STREQ(System.VarName, "");
    EXPECT_STREQ(System.VarFile, "");
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
}

TEST_F(SystemDocument, NamingTheVariablesAgainReplacesTheirRows) {
    System.NameVar("C:\\run");
    EXPECT_STREQ(System.VarName, ""); // set when the system is saved
    System.NameSys("C:\\w\\a.lse");
    System.NameVar("C:\\run");
    EXPECT_EQ(Rows(),
              (RowTexts{"System Name", "\tuntitled.lse", "System Locar Var", "\tC:\\w\\a.var"}));
}

TEST_F(SystemDocument, SaysWhatTheRowsAre) {
    System.NameRule("a.rul");
    SetFacts({"fever", "cough"});
    SetOpposites({"a\tb"});
    System.NameHeader("h.cpp");
    System.NameVar("C:\\run");
    // 2,3 rules; 4-6 facts; 7,8 opposites; 9,10 header; 11,12 variables
    auto parts = [](auto is) {
        std::string digits;
        for (int i = -2; i < 15; ++i)
            digits += static_cast<char>('0' + is(i));
        return digits;
    };
    EXPECT_EQ(parts([](int i) { return System.IsRule(i); }), "00"
                                                             "001100000000000");
    EXPECT_EQ(parts([](int i) { return System.IsKnw(i); }), "00"
                                                            "000012200000000");
    EXPECT_EQ(parts([](int i) { return System.IsOpp(i); }), "00"
                                                            "000000012000000");
    EXPECT_EQ(parts([](int i) { return System.IsHead(i); }), "00"
                                                             "000000000110000");
    EXPECT_EQ(parts([](int i) { return System.IsVar(i); }), "00"
                                                            "000000000001100");
    std::string codes;
    char text[256];
    for (int i = 0; i < 13; ++i) {
        SelectRow(System.hwndSys, i);
        codes += static_cast<char>('0' + System.EditItem(text));
        EXPECT_EQ(text, Rows()[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(codes, "0001022030405");
}

TEST_F(SystemDocument, AbsentSectionsHaveNoRows) {
    char text[256] = "before";
    EXPECT_EQ(System.EditItem(text), 0);
    EXPECT_STREQ(text, "");
    for (int i = -3; i < 6; ++i)
        EXPECT_EQ(System.IsRule(i) + System.IsKnw(i) + System.IsOpp(i) + System.IsHead(i) +
                      System.IsVar(i),
                  0)
            << i;
    System.DeleteRule();
    System.DeleteHead();
    System.DeleteVar();
    for (int i = -1; i < 4; ++i) {
        System.DeleteKnw(i);
        System.DeleteOpp(i);
    }
    EXPECT_EQ(Rows(), (RowTexts{"System Name", "\tuntitled.lse"}));
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_EQ(System.OppNum, 0);
}

TEST_F(SystemDocument, ClosingKeepsNamesCountsAndFlags) {
    System.NameRule("a.rul");
    SetFacts({"fever"});
    const HWND child = System.hwndSys;
    System.DestroySys();
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_EQ(TopChild(child), nullptr);
    EXPECT_EQ(System.RuleState, 1);
    EXPECT_EQ(System.DatNum, 1);
    EXPECT_STREQ(System.RuleName, "a.rul");
    System.DestroySys(); // without a list nothing happens
    System.Init();
    EXPECT_EQ(System.RuleState, 0);
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_STREQ(System.RuleName, "");
}

TEST_F(SystemDocument, TakesTheHeadThatABuildReadLast) {
    SystemHead head{};
    std::memset(&head, 'x', sizeof head); // no NUL in any name
    head.TypNum = 1;
    head.DatNum = 2;
    head.OppNum = 3;
    System.TakeHead(head);
    EXPECT_EQ(System.KTypeName, std::string(254, 'x'));
    EXPECT_EQ(System.KnowName, std::string(254, 'x'));
    EXPECT_EQ(System.DatNum, 2);
    EXPECT_EQ(System.OppNum, 3);
    EXPECT_STREQ(System.EngineName, "untitled.lse");
    EXPECT_EQ(Rows().size(), 2u);
    System.DelKnw(); // more facts counted than there are rows
    System.DelOpp();
    EXPECT_EQ(Rows().size(), 2u);
}

} // namespace
