#include "core_test.h"

#include "resources/core/value_entries.h"
#include "shell/core/files.h"

#include <chrono>

namespace {

using zentrik_test::TempFolder;

V_V Variable(std::string_view name, std::string_view type, std::string_view value) {
    V_V variable;
    SetText(variable.Name, name);
    SetText(variable.Type, type);
    SetText(variable.Val, value);
    return variable;
}

I_K Fact(std::string_view name, std::string_view value, std::string_view certainty) {
    I_K fact;
    SetText(fact.K_Name, name);
    SetText(fact.K_Val, value);
    SetText(fact.Pres, certainty);
    return fact;
}

DDE_ITEM Item(std::string_view name, std::string_view type) {
    DDE_ITEM item;
    SetText(item.DName, name);
    SetText(item.DType, type);
    return item;
}

std::string Bytes(const std::vector<I_K>& facts) {
    return std::string(BytesOf(facts));
}

TEST(VariableRow, HasBlankTabBlankBetweenItsParts) {
    EXPECT_EQ(VariableRow(Variable("level", "long", "12")), "level \t long \t 12");
}

TEST(VariableIn, GivesBackWhatTheRowWasMadeOf) {
    const V_V variable = VariableIn("level \t long \t a + b");
    EXPECT_EQ(Text(variable.Name), "level");
    EXPECT_EQ(Text(variable.Type), "long");
    EXPECT_EQ(Text(variable.Val), "a + b");
}

TEST(VariableIn, SplitsANameWithABlankWrongly) {
    const V_V variable = VariableIn("my level \t long \t 12");
    EXPECT_EQ(Text(variable.Name), "my");
    EXPECT_EQ(Text(variable.Type), "vel");
    EXPECT_EQ(Text(variable.Val), "long \t 12");
}

TEST(VariableIn, StaysInsideRowsThatAreTooShort) {
    for (const char* row :
         {"", " ", "a", "a ", "a \t", "a \t ", "a \t b", "a \t b ", "a \t b \t"}) {
        const V_V variable = VariableIn(row);
        EXPECT_LE(Text(variable.Name).size(), 1u) << row;
        EXPECT_LE(Text(variable.Type).size(), 1u) << row;
        EXPECT_EQ(Text(variable.Val), "") << row;
    }
}

TEST(VariableIn, KeepsFieldsOfFullLength) {
    const std::string name(254, 'n'), type(254, 't'), value(254, 'v');
    const std::string row = VariableRow(Variable(name, type, value));
    EXPECT_EQ(row.size(), 3u * 254 + 6);
    const V_V variable = VariableIn(row);
    EXPECT_EQ(Text(variable.Name), name);
    EXPECT_EQ(Text(variable.Type), type);
    EXPECT_EQ(Text(variable.Val), value);
}

TEST(VariableRow, TakesAFieldWithoutATerminatorToItsEnd) {
    V_V variable;
    std::memset(&variable, 'x', sizeof variable);
    const std::string row = VariableRow(variable);
    EXPECT_EQ(row.size(), 3u * 255 + 6);
    EXPECT_EQ(Text(VariableIn(row).Val), std::string(254, 'x'));
}

TEST(VariableRow, WritesZerosBehindTheTerminators) {
    const V_V variable = VariableIn("a \t b \t c");
    std::string expected(sizeof(V_V), '\0');
    expected[0] = 'a';
    expected[255] = 'b';
    expected[510] = 'c';
    EXPECT_EQ(BytesOf(variable), expected);
}

TEST(MissingIn, AsksForAVariablesPartsInOrder) {
    EXPECT_STREQ(MissingIn(Variable("", "", "")), "Name must be defined");
    EXPECT_STREQ(MissingIn(Variable("a", "", "")), "Type must be defined");
    EXPECT_STREQ(MissingIn(Variable("a", "b", "")), "Value must be assigned");
    EXPECT_EQ(MissingIn(Variable("a", "b", "c")), nullptr);
}

TEST(VariableRows, AreInReverseOrderOfTheFile) {
    TempFolder temp;
    const std::vector<V_V> variables{Variable("A", "int", "1"), Variable("B", "int", "2"),
                                     Variable("C", "int", "3")};
    temp.Put("a.var", BytesOf(variables));
    const std::string path = temp.Path("a.var");
    EXPECT_EQ(VariableRows(path.c_str()),
              (std::vector<std::string>{"C \t int \t 3", "B \t int \t 2", "A \t int \t 1"}));
    EXPECT_EQ(VariableNames(path.c_str()), (std::vector<std::string>{"A", "B", "C"}));
}

TEST(VariableRows, LeaveOutAPartRecordAndTakeAMissingFileAsEmpty) {
    TempFolder temp;
    const std::vector<V_V> variables{Variable("A", "int", "1")};
    temp.Put("a.var", std::string(BytesOf(variables)) + std::string(764, 'x'));
    EXPECT_EQ(VariableRows(temp.Path("a.var").c_str()),
              (std::vector<std::string>{"A \t int \t 1"}));
    EXPECT_TRUE(VariableRows(temp.Path("none.var").c_str()).empty());
    EXPECT_TRUE(VariableNames(temp.Path("none.var").c_str()).empty());
    EXPECT_TRUE(VariableRows("").empty());
}

TEST(RecordBytes, FollowTheRows) {
    const std::string bytes = RecordBytes({"A \t int \t 1", "B \t int \t 2"}, VariableIn);
    const std::vector<V_V> expected{Variable("A", "int", "1"), Variable("B", "int", "2")};
    EXPECT_EQ(bytes, BytesOf(expected));
    EXPECT_EQ(RecordBytes({}, VariableIn), "");
}

TEST(AppendedValue, IsCutToAValueField) {
    EXPECT_EQ(AppendedValue("1+", "DDEinfo.Level"), "1+DDEinfo.Level");
    EXPECT_EQ(AppendedValue(std::string(250, 'a'), "bcdefg"), std::string(250, 'a') + "bcde");
    EXPECT_EQ(AppendedValue(std::string(300, 'a'), "b").size(), 254u);
}

TEST(FirstWord, EndsAtTheFirstBlank) {
    EXPECT_EQ(FirstWord("level \t 1 \t FULL"), "level");
    EXPECT_EQ(FirstWord("level"), "level");
    EXPECT_EQ(FirstWord(" \t "), "");
    EXPECT_EQ(FirstWord(""), "");
}

TEST(InitialFactIn, ReadsASetFact) {
    const I_K fact = InitialFactIn(InitialFactRow(Fact("level", "12", "HIGH")));
    EXPECT_EQ(Text(fact.K_Name), "level");
    EXPECT_EQ(Text(fact.K_Val), "12");
    EXPECT_EQ(Text(fact.Pres), "HIGH");
}

TEST(InitialFactIn, ReadsAnUnsetFactAsNoValueAndTwoBlanks) {
    EXPECT_EQ(UnsetFactRow("level"), "level \t   \t  ");
    const I_K fact = InitialFactIn(UnsetFactRow("level"));
    EXPECT_EQ(Text(fact.K_Name), "level");
    EXPECT_EQ(Text(fact.K_Val), "");
    EXPECT_EQ(Text(fact.Pres), "  ");
}

TEST(InitialFactIn, CutsAValueAtItsBlankAndLetsTheRestRunIntoTheCertainty) {
    const I_K fact = InitialFactIn("level \t two words \t FULL");
    EXPECT_EQ(Text(fact.K_Val), "two");
    EXPECT_EQ(Text(fact.Pres), "words \t FULL");
}

TEST(InitialFactIn, StaysInsideRowsThatAreTooShort) {
    for (const char* row :
         {"", " ", "a", "a ", "a \t", "a \t ", "a \t b", "a \t b ", "a \t b \t"}) {
        const I_K fact = InitialFactIn(row);
        EXPECT_LE(Text(fact.K_Name).size(), 1u) << row;
        EXPECT_LE(Text(fact.K_Val).size(), 1u) << row;
        EXPECT_EQ(Text(fact.Pres), "") << row;
    }
}

TEST(InitialValues, AreFoundByNameInTheFirstRecordThatHasIt) {
    TempFolder temp;
    temp.Put("a.ikw", Bytes({Fact("level", "1", "FULL"), Fact("Level", "2", "LOW"),
                             Fact("level", "3", "HIGH")}) +
                          "rest");
    const InitialValues values(temp.Path("a.ikw").c_str());
    EXPECT_EQ(values.Row("level"), "level \t 1 \t FULL");
    EXPECT_EQ(values.Row("Level"), "Level \t 2 \t LOW");
    EXPECT_EQ(values.Row("LEVEL"), "LEVEL \t   \t  ");
    EXPECT_EQ(values.Row("lev"), "lev \t   \t  ");
}

TEST(InitialValues, ShowOneBlankForAnEmptyCertainty) {
    TempFolder temp;
    temp.Put("a.ikw", Bytes({Fact("level", "1", ""), Fact("flow", "", "  ")}));
    const InitialValues values(temp.Path("a.ikw").c_str());
    EXPECT_EQ(values.Row("level"), "level \t 1 \t  ");
    EXPECT_EQ(values.Row("flow"), "flow \t  \t   ");
    // Unset facts read back the same however often they are opened and closed.
    EXPECT_EQ(Text(InitialFactIn(values.Row("flow")).Pres), "  ");
}

TEST(InitialValues, OfAMissingFileAreAllUnset) {
    TempFolder temp;
    EXPECT_EQ(InitialValues(temp.Path("none.ikw").c_str()).Row("level"), "level \t   \t  ");
    EXPECT_EQ(InitialValues("").Row("level"), "level \t   \t  ");
}

TEST(InitialValues, AreLookedUpInLinearTime) {
    TempFolder temp;
    constexpr int kMany = 20000;
    std::vector<I_K> facts;
    for (int i = 0; i < kMany; ++i)
        facts.push_back(Fact("fact" + std::to_string(i), "1", "FULL"));
    temp.Put("a.ikw", Bytes(facts));
    const auto start = std::chrono::steady_clock::now();
    const InitialValues values(temp.Path("a.ikw").c_str());
    std::size_t size = 0;
    for (int i = kMany; i-- > 0;)
        size += values.Row("fact" + std::to_string(i)).size();
    EXPECT_GT(size, 20u * kMany / 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(DdeRow, PartsNameAndTypeWithATab) {
    EXPECT_EQ(DdeRow(Item("Level", "int")), "Level\tint");
    const DDE_ITEM item = DdeItemIn("Level\tunsigned\tint");
    EXPECT_EQ(Text(item.DName), "Level");
    EXPECT_EQ(Text(item.DType), "unsigned\tint");
    EXPECT_EQ(Text(DdeItemIn("Level").DName), "Level");
    EXPECT_EQ(Text(DdeItemIn("Level").DType), "");
    EXPECT_EQ(Text(DdeItemIn("").DName), "");
}

TEST(DdeItemIn, CutsTextsThatAreTooLong) {
    const DDE_ITEM item = DdeItemIn(std::string(60, 'n') + "\t" + std::string(120, 't'));
    EXPECT_EQ(Text(item.DName), std::string(49, 'n'));
    EXPECT_EQ(Text(item.DType), std::string(99, 't'));
}

TEST(MissingIn, AsksForAnItemsNameAndType) {
    EXPECT_STREQ(MissingIn(Item("", "")), "Name must be defined");
    EXPECT_STREQ(MissingIn(Item("a", "")), "Type must be defined");
    EXPECT_EQ(MissingIn(Item("a", "b")), nullptr);
}

TEST(OfferedItems, AreNamedAsMembersOfDDEinfo) {
    TempFolder temp;
    DdeFile dde{"plant", {Item("Level", "int"), Item("Flow", "double")}};
    temp.Put("a.dde", DdeBytes(dde) + std::string(149, 'x'));
    EXPECT_EQ(OfferedItems(temp.Path("a.dde").c_str()),
              (std::vector<std::string>{"DDEinfo.Level", "DDEinfo.Flow"}));
}

TEST(OfferedItems, OfAMissingShortOrHeadOnlyFileAreNone) {
    TempFolder temp;
    temp.Put("short.dde", "plant");
    temp.Put("head.dde", DdeBytes({"plant", {}}));
    for (const char* name : {"none.dde", "short.dde", "head.dde"})
        EXPECT_TRUE(OfferedItems(temp.Path(name).c_str()).empty()) << name;
}

} // namespace
