// The system document's files.
#include "document_test.h"
#include "system/ZENSYS.h"

#include <chrono>

namespace {

using namespace zentrik_test;

Dat Fact(const std::string& name, int ident = 0) {
    Dat fact{};
    SetText(fact.Name, name);
    fact.Ident = ident;
    return fact;
}

std::string FactBytes(const std::vector<Dat>& facts) {
    return std::string(BytesOf(facts));
}

class SystemSave : public DocumentTest {
protected:
    SystemSave() {
        std::filesystem::create_directory(Path("temp"));
        New("a.lse");
    }

    void New(const std::string& name) {
        DestroyWindow(TopChild(System.hwndSys));
        System.Init();
        System.NameSys(Path(name).c_str());
        System.CreateSys();
        System.EngineState = 1;
    }

    // As the open command does it after an earlier system was closed.
    int Reopen(const std::string& name) {
        System.DestroySys();
        System.NameSys(Path(name).c_str());
        System.CreateSys();
        return System.OpenSys(System.EngineName);
    }

    static RowTexts Rows() { return RowsOf(System.hwndSys); }

    void AddFacts(const RowTexts& facts) {
        SetText(System.KnowName, Path("a.fac"));
        for (const std::string& fact : facts) {
            System.NameKnw(NameBuffer(fact));
            System.DatNum += 1;
        }
        System.TitleKnw();
    }

    static void AddOpposites(const RowTexts& opposites) {
        for (const std::string& opposite : opposites) {
            System.NameOpp(NameBuffer(opposite));
            System.OppNum += 1;
        }
        System.TitleOpp();
    }

    // The folder that stands for the one the program was started in.
    std::string Work() const {
        const std::string path = Path("x");
        return path.substr(0, path.size() - 2);
    }

    // As the variables dialog leaves it.
    void EditVariables(const std::string& content) {
        System.GetVarName(Work().c_str());
        std::ofstream(System.VarFile, std::ios::binary) << content;
        System.WroteVariables();
        System.NameVar(Work().c_str());
    }

    // As the initial facts dialog leaves it.
    void EditInitialFacts(const std::string& content) {
        System.GetInitName(Work().c_str());
        std::ofstream(System.IKWFile, std::ios::binary) << content;
        System.WroteInitialFacts();
        System.InitNew = 1;
    }
};

TEST_F(SystemSave, WritesTheWholeLayout) {
    temp_.Put("a.fac", FactBytes({Fact("cough", 1), Fact("fever", 2), Fact("fever", 3)}));
    System.NameRule("r.rul");
    AddFacts({"fever", "cough"});
    AddOpposites({"hot\tcold"});
    System.NameHeader("h.cpp");
    SetText(System.KTypeName, "a.typ");
    System.TypNum = 5;
    EXPECT_EQ(System.SaveSys(), 0);
    std::string expected;
    for (const std::string& name :
         {std::string("a.typ"), std::string("r.rul"), std::string("r.siz"), std::string("h.cpp"),
          std::string(), std::string(), Path("a.fac")})
        expected += Field(name);
    expected += Number(5) + Number(2) + Number(1);
    expected += FactBytes({Fact("fever", 2), Fact("cough", 1)}); // the first of that name
    expected += Field("hot\tcold");
    EXPECT_EQ(temp_.Content("a.lse"), expected);
}

TEST_F(SystemSave, ReopensAsItWas) {
    temp_.Put("a.fac", FactBytes({Fact("cough"), Fact("fever")}));
    System.NameRule("r.rul");
    AddFacts({"fever", "cough"});
    AddOpposites({"hot\tcold"});
    System.NameHeader("h.cpp");
    EditVariables("variables");
    EditInitialFacts("facts");
    RowTexts rows = Rows();
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(rows[7], "Opossites");
    rows[7] = "Opposites"; // the spellings say what came from the file
    EXPECT_EQ(rows[11], "System Locar Var");
    rows[11] = "System Local Var";
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(System.EngineState, 1);
    EXPECT_EQ(System.Engmod, 0);
    EXPECT_EQ(System.VarState, 1);
    EXPECT_EQ(System.InitNew, 1);
    EXPECT_EQ(System.PRul, 3);
    EXPECT_EQ(System.PKnw, 5);
    EXPECT_EQ(System.POpp, 8);
    EXPECT_EQ(System.PHead, 10);
    EXPECT_EQ(System.PVar, 12);
    EXPECT_EQ(System.OldVarName, Path("a.var"));
    EXPECT_EQ(System.OldInitName, Path("a.ikw"));
    EXPECT_STREQ(System.VarFile, "");
    EXPECT_STREQ(System.IKWFile, "");
}

TEST_F(SystemSave, AnEmptySystemHasItsNameOnly) {
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("a.lse").size(), 1797u);
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("a.lse"))}));
    EXPECT_EQ(System.PKnw, -1);
}

TEST_F(SystemSave, AFactGoneFromTheBaseIsCountedButNotWritten) {
    temp_.Put("a.fac", FactBytes({Fact("fever")}));
    AddFacts({"fever", "gone"});
    EXPECT_EQ(System.SaveSys(), 0);
    const std::string bytes = temp_.Content("a.lse");
    EXPECT_EQ(bytes.size(), 1797u + 287);
    EXPECT_EQ(bytes.substr(1789, 4), Number(2));
    EXPECT_EQ(System.DatNum, 2);
    Boxes boxes;
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Engine: Open Error"});
    EXPECT_EQ(System.DatNum, 1);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("a.lse")), "Facts Base", "\tfever"}));
}

TEST_F(SystemSave, CopiesTheFactsAnewFromTheirBase) {
    temp_.Put("a.fac", FactBytes({Fact("fever", 1)}));
    AddFacts({"fever"});
    EXPECT_EQ(System.SaveSys(), 0);
    const std::string before = temp_.Content("a.lse");
    EXPECT_TRUE(before.ends_with(FactBytes({Fact("fever", 1)})));
    temp_.Put("a.fac", FactBytes({Fact("fever", 9)}));
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(temp_.Content("a.lse"), before);
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_TRUE(temp_.Content("a.lse").ends_with(FactBytes({Fact("fever", 9)})));
}

TEST_F(SystemSave, AFactGoneFromTheBaseTakesNoOppositeAlong) {
    temp_.Put("a.fac", FactBytes({Fact("fever")}));
    AddFacts({"fever", "gone"});
    AddOpposites({"hot\tcold", "up\tdown"});
    EXPECT_EQ(System.SaveSys(), 0);
    const RowTexts whole{"System Name", ItemRow(Path("a.lse")), "Facts Base", "\tfever",
                         "Opposites",   "\thot\tcold",          "\tup\tdown"};
    Boxes boxes;
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(boxes.shown, RowTexts{"Open Engine: Open Error"});
    EXPECT_EQ(Rows(), whole);
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_EQ(boxes.shown.size(), 1u); // whole again
    EXPECT_EQ(Rows(), whole);
}

TEST_F(SystemSave, WritesNothingWithoutItsRows) {
    temp_.Put("a.fac", FactBytes({Fact("fever")}));
    AddFacts({"fever"});
    System.SaveSys();
    const std::string before = temp_.Content("a.lse");
    System.DestroySys();
    EXPECT_EQ(System.SaveSys(), -1);
    EXPECT_EQ(temp_.Content("a.lse"), before);
}

TEST_F(SystemSave, ThatCannotMoveAWorkingCopyIsShownAndLosesNothing) {
    EditVariables("new variables");
    EditInitialFacts("new facts");
    const std::string variables = System.VarFile;
    const std::string facts = System.IKWFile;
    Boxes boxes;
    std::filesystem::create_directory(Path("a.var"));
    EXPECT_EQ(System.SaveSys(), -1);
    std::filesystem::remove(Path("a.var"));
    temp_.Put("a.var", "old variables");
    SetFileAttributesA(Path("a.var").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(System.SaveSys(), -1);
    SetFileAttributesA(Path("a.var").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(boxes.shown, RowTexts(2, "WARNING: Permison denied"));
    EXPECT_EQ(temp_.Content("a.var"), "old variables");
    EXPECT_EQ(System.VarFile, variables);
    EXPECT_EQ(System.IKWFile, facts);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("a.var"), "new variables");
    EXPECT_EQ(temp_.Content("a.ikw"), "new facts");
    EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(SystemSave, CutsTheNamesOfTheCopiesAtTheFirstDot) {
    std::filesystem::create_directory(Path("my.dir"));
    System.ChangeName(Path("my.dir\\a.lse").c_str());
    EditInitialFacts("facts");
    EXPECT_EQ(System.IKWFile, Work() + "\\temp\\my.ikw");
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("my.ikw"), "facts");
    EXPECT_EQ(temp_.Content("my.dir\\a.lse").substr(1275, 255), Field(Path("my.ikw")));
}

TEST_F(SystemSave, BearsAPathOf254Characters) {
    const std::string folder = Path("");
    const std::string name = std::string(254 - folder.size() - 4, 'n') + ".lse";
    ASSERT_EQ(Path(name).size(), 254u);
    System.ChangeName(Path(name).c_str());
    System.NameHeader("h.cpp");
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(Reopen(name), 0);
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path(name)), "System Header", "\th.cpp"}));
}

TEST_F(SystemSave, CreatesAMissingFactsBase) {
    AddFacts({"fever"});
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_TRUE(files::Exists(Path("a.fac").c_str()));
    EXPECT_EQ(temp_.Content("a.lse").size(), 1797u);
}

TEST_F(SystemSave, ReadsAReadOnlyFactsBaseAndRefusesOneThatCannotBeRead) {
    temp_.Put("a.fac", FactBytes({Fact("fever")}));
    SetFileAttributesA(Path("a.fac").c_str(), FILE_ATTRIBUTE_READONLY);
    AddFacts({"fever"});
    EXPECT_EQ(System.SaveSys(), 0);
    SetFileAttributesA(Path("a.fac").c_str(), FILE_ATTRIBUTE_NORMAL);
    const std::string saved = temp_.Content("a.lse");
    EXPECT_EQ(saved.size(), 1797u + 287);
    SetText(System.KnowName, Path("no such folder\\a.fac"));
    Boxes boxes;
    EXPECT_EQ(System.SaveSys(), -1);
    EXPECT_EQ(boxes.shown, RowTexts{"WARNING: No such file or directory"});
    EXPECT_EQ(temp_.Content("a.lse"), saved);
}

TEST_F(SystemSave, ThatFailsIsShownAndLosesNothing) {
    System.SaveSys();
    const std::string before = temp_.Content("a.lse");
    temp_.Put("a.var", "old variables");
    temp_.Put("a.ikw", "old facts");
    EditVariables("new variables");
    EditInitialFacts("new facts");
    const std::string working = System.VarFile;
    Boxes boxes;
    files::FailWritesAfter(100);
    EXPECT_EQ(System.SaveSys(), -1);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(temp_.Content("a.lse"), before);
    EXPECT_EQ(temp_.Content("a.var"), "old variables");
    EXPECT_EQ(temp_.Content("a.ikw"), "old facts");
    EXPECT_EQ(System.VarFile, working);
    EXPECT_STREQ(System.VarName, "");
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("a.var"), "new variables");
    EXPECT_EQ(temp_.Content("a.ikw"), "new facts");
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(SystemSave, NamesTheWorkingCopies) {
    System.NameSys("C:\\w\\a.lse");
    System.GetVarName("C:\\run");
    System.GetInitName("C:\\run");
    EXPECT_STREQ(System.VarFile, "C:\\run\\temp\\\\a.var");
    EXPECT_STREQ(System.IKWFile, "C:\\run\\temp\\a.ikw");
    EXPECT_STREQ(System.OldVarName, "");
    System.NameSys("untitled.lse");
    System.GetVarName("C:\\run");
    System.GetInitName("C:\\run");
    EXPECT_STREQ(System.VarFile, "C:\\run\\temp\\untitled.var");
    EXPECT_STREQ(System.IKWFile, "C:\\run\\tempuntitled.ikw");
    EXPECT_STREQ(System.OldVarName, "C:\\run\\temp\\\\a.var");
    EXPECT_STREQ(System.OldInitName, "C:\\run\\temp\\a.ikw");
    SetText(System.VarFile, "");
    SetText(System.VarName, "C:\\w\\saved.var");
    System.NameSys("C:\\my.dir\\a.lse");
    System.GetVarName("C:\\run");
    EXPECT_STREQ(System.OldVarName, "C:\\w\\saved.var");
    EXPECT_STREQ(System.VarFile, "C:\\run\\temp\\\\my.var");
}

TEST_F(SystemSave, MovesTheWorkingCopiesBesideTheSystem) {
    temp_.Put("a.var", "old");
    EditVariables("new variables");
    EditInitialFacts("new facts");
    const std::string variables = System.VarFile;
    const std::string facts = System.IKWFile;
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("a.var"), "new variables");
    EXPECT_EQ(temp_.Content("a.ikw"), "new facts");
    EXPECT_FALSE(files::Exists(variables.c_str()));
    EXPECT_FALSE(files::Exists(facts.c_str()));
    EXPECT_EQ(System.VarName, Path("a.var"));
    EXPECT_EQ(System.InitName, Path("a.ikw"));
    EXPECT_STREQ(System.VarFile, "");
    EXPECT_STREQ(System.IKWFile, "");
    EXPECT_EQ(Rows().back(), ItemRow(Path("a.var")));
    EXPECT_EQ(temp_.Content("a.lse").substr(1020, 255), Field(Path("a.var")));
    EXPECT_EQ(temp_.Content("a.lse").substr(1275, 255), Field(Path("a.ikw")));
}

TEST_F(SystemSave, DropsTheVariablesOfAReopenedSystemThatWereNotEdited) {
    EditVariables("variables");
    EditInitialFacts("facts");
    System.SaveSys();
    Reopen("a.lse");
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_FALSE(files::Exists(Path("a.var").c_str()));
    EXPECT_EQ(temp_.Content("a.var.bak"), "variables");
    EXPECT_EQ(System.VarName, Path("a.var"));
    // The initial facts stay: without a working copy they are left alone.
    EXPECT_EQ(temp_.Content("a.ikw"), "facts");
}

TEST_F(SystemSave, KeepsTheVariablesWhenTheirDialogWasCancelled) {
    EditVariables("variables");
    EditInitialFacts("facts");
    System.SaveSys();
    Reopen("a.lse");
    // Cancel makes the file in force the working copy.
    for (const char* name : {"a.lse", "b.lse"}) {
        System.GetVarName(Work().c_str());
        SetText(System.VarFile, Text(System.OldVarName));
        System.GetInitName(Work().c_str());
        SetText(System.IKWFile, Text(System.OldInitName));
        System.ChangeName(Path(name).c_str());
        EXPECT_EQ(System.SaveSys(), 0);
        EXPECT_EQ(temp_.Content("a.var"), "variables");
        EXPECT_EQ(temp_.Content("a.ikw"), "facts");
    }
    EXPECT_EQ(temp_.Content("b.var"), "variables");
    EXPECT_EQ(temp_.Content("b.ikw"), "facts");
    EXPECT_EQ(System.VarName, Path("b.var"));
}

TEST_F(SystemSave, FlagsCarryOverIntoTheNextSystem) {
    temp_.Put("a.fac", FactBytes({Fact("fever")}));
    AddFacts({"fever"});
    System.SaveSys();
    New("b.lse");
    System.NameRule("r.rul");
    System.NameHeader("h.cpp");
    System.SaveSys();
    System.KnowState = 1;
    // A system without rules after one with rules: its facts count as starting at row 5.
    Reopen("a.lse");
    EXPECT_EQ(System.RuleState, 1);
    EXPECT_EQ(System.HeadState, 1);
    EXPECT_EQ(System.KnowState, 1);
    EXPECT_EQ(System.PRul, -1);
    EXPECT_EQ(System.PKnw, 5);
    EXPECT_EQ(Rows()[2], "Facts Base");
}

// A system without rules that is opened after one with rules: its positions are two rows off.
TEST_F(SystemSave, ACarriedOverRuleFlagMovesThePositions) {
    temp_.Put("a.fac", FactBytes({Fact("fever"), Fact("cough")}));
    AddFacts({"fever", "cough"});
    System.NameHeader("h.cpp");
    System.SaveSys();
    const RowTexts rows = Rows(); // 2 the facts, 5 the header
    auto carry_over = [this] {
        System.RuleState = 1;
        EXPECT_EQ(Reopen("a.lse"), 0);
        EXPECT_EQ(System.PKnw, 5);
        EXPECT_EQ(System.PHead, 8);
    };
    carry_over();
    EXPECT_EQ(Rows(), rows);
    // Facts are read from row 5 on: its text is no fact, that of row 6 is the header's.
    EXPECT_EQ(System.SaveSys(), 0);
    const std::string saved = temp_.Content("a.lse");
    EXPECT_EQ(saved.size(), 1797u);
    EXPECT_EQ(saved.substr(1789, 4), Number(2));
    EXPECT_EQ(Rows(), rows);
    System.DeleteKnw(-1); // what stands at the positions goes
    EXPECT_EQ(Rows(), (RowTexts{rows[0], rows[1], rows[2], rows[3]}));
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_EQ(System.PHead, 5);
    System.NameVar("C:\\run"); // no row can be put behind those that are there
    EXPECT_EQ(System.PVar, 7);
    EXPECT_EQ(System.VarState, 1);
    EXPECT_EQ(Rows().size(), 4u);
}

TEST_F(SystemSave, AFileThatCannotBeOpenedChangesNothing) {
    System.NameRule("r.rul");
    const RowTexts rows = Rows();
    Boxes boxes;
    EXPECT_NE(System.OpenSys(Path("none.lse").c_str()), 0);
    temp_.Put("short.lse", std::string(1796, '\0'));
    EXPECT_NE(System.OpenSys(Path("short.lse").c_str()), 0);
    temp_.Put("locked.lse", std::string(1797, '\0'));
    SetFileAttributesA(Path("locked.lse").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_NE(System.OpenSys(Path("locked.lse").c_str()), 0);
    SetFileAttributesA(Path("locked.lse").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(boxes.shown, RowTexts(3, "Open Engine: Open Error"));
    EXPECT_EQ(boxes.messages[0].owner, nullptr);
    EXPECT_EQ(Rows(), rows);
    EXPECT_STREQ(System.RuleName, "r.rul");
    EXPECT_EQ(System.EngineName, Path("a.lse"));
}

TEST_F(SystemSave, TheWindowOfAFailedOpenGivesWayToTheNext) {
    System.SaveSys();
    Boxes boxes;
    EXPECT_NE(Reopen("none.lse"), 0);
    const HWND left = System.hwndSys;
    EXPECT_EQ(Rows(), (RowTexts{"System Name", ItemRow(Path("none.lse"))}));
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_EQ(Reopen("a.lse"), 0);
    EXPECT_FALSE(IsWindow(left));
}

TEST_F(SystemSave, ReadsFieldsUpToTheirNul) {
    SystemFile file;
    std::memset(&file.head, 'z', sizeof file.head);
    file.head.TypNum = 0;
    file.head.DatNum = file.head.OppNum = 1;
    std::memcpy(file.head.HeaderName, "h.cpp", 6);
    Dat fact;
    std::memset(&fact, 'f', sizeof fact);
    NameRecord opposite;
    std::memset(&opposite, 'o', sizeof opposite);
    file.facts.push_back(fact);
    file.opposites.push_back(opposite);
    temp_.Put("z.lse", SystemBytes(file));
    EXPECT_EQ(Reopen("z.lse"), 0);
    const std::string long_name = ItemRow(std::string(254, 'z'));
    const RowTexts rows = Rows();
    ASSERT_EQ(rows.size(), 12u);
    EXPECT_EQ(rows[3], long_name);
    EXPECT_EQ(rows[5], ItemRow(std::string(70, 'f')));
    EXPECT_EQ(rows[7], ItemRow(std::string(255, 'o')));
    EXPECT_EQ(rows[9], "\th.cpp");
    EXPECT_EQ(rows[11], long_name);
    char text[256];
    SelectRow(System.hwndSys, 7);
    EXPECT_EQ(System.EditItem(text), 3);
    EXPECT_EQ(text, ItemRow(std::string(254, 'o')));
}

TEST_F(SystemSave, IsQuickWithTenThousandFacts) {
    constexpr int kCount = 10000;
    SystemFile file;
    SetText(file.head.KnowName, Path("a.fac"));
    file.head.DatNum = kCount;
    for (int i = kCount; i > 0; --i)
        file.facts.push_back(Fact(Numbered("fact number ", i), i));
    std::vector<Dat> base(file.facts.rbegin(), file.facts.rend());
    temp_.Put("a.fac", FactBytes(base));
    temp_.Put("a.lse", SystemBytes(file));
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    EXPECT_EQ(Reopen("a.lse"), 0);
    const auto opened = Clock::now();
    EXPECT_LT(opened - start, std::chrono::seconds(20));
    EXPECT_EQ(System.SaveSys(), 0);
    const auto saved = Clock::now();
    EXPECT_LT(saved - opened, std::chrono::seconds(20));
    EXPECT_EQ(temp_.Content("a.lse"), SystemBytes(file));
    System.DeleteKnw(-1);
    EXPECT_LT(Clock::now() - saved, std::chrono::seconds(20));
    EXPECT_EQ(Rows().size(), 2u);
}

} // namespace
