#include "core_test.h"

#include "resources/core/fact_texts.h"
#include "resources/core/facts_file.h"
#include "shell/core/record_text.h"

#include <chrono>
#include <filesystem>

namespace {

using zentrik_test::TempFolder;

Dat Fact(const std::string& name, int ident) {
    Dat fact{};
    SetText(fact.Name, name);
    fact.Ident = ident;
    return fact;
}

std::vector<Dat> FactsOf(const TempFolder& temp, const std::string& name) {
    std::vector<Dat> facts;
    ReadRecords(temp.Path(name).c_str(), files::Mode::Read, facts);
    return facts;
}

std::string NamesText(const std::vector<Dat>& facts) {
    std::string text;
    for (const Dat& fact : facts)
        text += Text(fact.Name) + ' ';
    return text;
}

// A base of the facts "a", "b" and "c".
class FactsFile : public testing::Test {
protected:
    FactsFile() {
        facts_ = {Fact("a", 20), Fact("b", 5), Fact("c", 7)};
        temp_.Put("base.fac", BytesOf(facts_));
        path_ = temp_.Path("base.fac");
    }

    TempFolder temp_;
    std::vector<Dat> facts_;
    std::string path_;
};

TEST(NextIdent, IsTheLastOnePlusOneAndNeverLooksAtTheFirst) {
    EXPECT_EQ(NextIdent({}), 2);
    EXPECT_EQ(NextIdent({Fact("a", 41)}), 2);
    EXPECT_EQ(NextIdent({Fact("a", 20), Fact("b", 7)}), 8);
    EXPECT_EQ(NextIdent({Fact("a", 1), Fact("b", 20), Fact("c", 7)}), 8);
    EXPECT_EQ(IdentAfter(2147483647), -2147483647 - 1);
}

TEST(TypesFileOf, CutsAtTheFirstDot) {
    EXPECT_EQ(TypesFileOf("C:\\w\\base.fac"), "C:\\w\\base.typ");
    EXPECT_EQ(TypesFileOf("C:\\my.dir\\base.fac"), "C:\\my.typ");
    EXPECT_EQ(TypesFileOf("base"), "base.typ");
}

TEST_F(FactsFile, ReadsEachFactByItsIndex) {
    Dat fact = Fact("untouched", 1);
    ASSERT_TRUE(ReadFact(path_.c_str(), 2, fact));
    EXPECT_EQ(Text(fact.Name), "c");
    EXPECT_EQ(int{fact.Ident}, 7);
    EXPECT_FALSE(ReadFact(path_.c_str(), 3, fact));
    EXPECT_EQ(Text(fact.Name), "c");
    EXPECT_FALSE(ReadFact(temp_.Path("none.fac").c_str(), 0, fact));
    EXPECT_FALSE(files::Exists(temp_.Path("none.fac").c_str()));
}

TEST_F(FactsFile, AppendsAtTheEndAndCreatesAMissingFile) {
    EXPECT_EQ(AppendFact(path_.c_str(), Fact("d", 8)), 3);
    facts_.push_back(Fact("d", 8));
    EXPECT_EQ(temp_.Content("base.fac"), BytesOf(facts_));
    EXPECT_EQ(AppendFact(temp_.Path("new.fac").c_str(), Fact("first", 1)), 0);
    EXPECT_EQ(NamesText(FactsOf(temp_, "new.fac")), "first ");
}

TEST_F(FactsFile, ANewFactTakesThePlaceOfADamagedRest) {
    temp_.Put("base.fac", std::string(BytesOf(facts_)) + std::string(100, '#'));
    EXPECT_EQ(AppendFact(path_.c_str(), Fact("d", 8)), 3);
    facts_.push_back(Fact("d", 8));
    EXPECT_EQ(temp_.Content("base.fac"), BytesOf(facts_));
}

TEST_F(FactsFile, ReplacesOneRecordInPlace) {
    EXPECT_EQ(ReplaceFact(path_.c_str(), 1, Fact("B", 6)), 1);
    EXPECT_EQ(NamesText(FactsOf(temp_, "base.fac")), "a B c ");
    EXPECT_EQ(int{FactsOf(temp_, "base.fac")[1].Ident}, 6);
    EXPECT_EQ(ReplaceFact(path_.c_str(), 9, Fact("d", 8)), 3); // there is no fact 9
    EXPECT_EQ(NamesText(FactsOf(temp_, "base.fac")), "a B c d ");
    EXPECT_EQ(ReplaceFact(temp_.Path("none.fac").c_str(), 0, Fact("a", 1)), -1);
    EXPECT_FALSE(files::Exists(temp_.Path("none.fac").c_str()));
}

TEST_F(FactsFile, RemovesOneRecordAndKeepsTheOthersInOrder) {
    EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::Done);
    EXPECT_EQ(NamesText(FactsOf(temp_, "base.fac")), "b c ");
    EXPECT_EQ(RemoveFact(path_.c_str(), 1), Removal::Done);
    EXPECT_EQ(NamesText(FactsOf(temp_, "base.fac")), "b ");
}

TEST_F(FactsFile, RemovingAFactThatIsNotThereChangesNothing) {
    temp_.Put("base.typ", std::string(50, 't'));
    EXPECT_EQ(RemoveFact(path_.c_str(), 3), Removal::NoSuchFact);
    EXPECT_EQ(temp_.Content("base.fac"), BytesOf(facts_));
    for (const std::string rest : {"", "a rest that is no fact"}) {
        temp_.Put("base.fac", rest);
        EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::NoSuchFact);
        EXPECT_TRUE(files::Exists(path_.c_str()));
        EXPECT_EQ(temp_.Content("base.fac"), rest);
        EXPECT_TRUE(files::Exists(temp_.Path("base.typ").c_str()));
    }
}

TEST_F(FactsFile, RemovingTheLastFactDeletesTheBaseAndItsTypes) {
    for (const std::string rest : {"", "a rest that is no fact"}) {
        temp_.Put("base.fac", std::string(BytesOf(facts_[0])) + rest);
        temp_.Put("base.typ", std::string(50, 't'));
        EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::Done);
        EXPECT_FALSE(files::Exists(path_.c_str()));
        EXPECT_FALSE(files::Exists(temp_.Path("base.typ").c_str()));
    }
    EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::Failed);
}

TEST_F(FactsFile, AFullDiskLeavesTheFactsAsTheyWere) {
    files::FailWritesAfter(100);
    EXPECT_EQ(AppendFact(path_.c_str(), Fact("d", 8)), -1);
    EXPECT_EQ(ReplaceFact(path_.c_str(), 1, Fact("B", 6)), -1);
    EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::Failed);
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp_.Content("base.fac"), BytesOf(facts_));
}

TEST_F(FactsFile, AddingAndRemovingOneOfManyIsQuick) {
    temp_.Put("base.fac", BytesOf(std::vector<Dat>(10000, Fact("many", 1))));
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(AppendFact(path_.c_str(), Fact("d", 8)), 10000 + i);
    EXPECT_EQ(RemoveFact(path_.c_str(), 0), Removal::Done);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(std::filesystem::file_size(path_), (10000 + 99) * sizeof(Dat));
}

TEST(FactTexts, EveryFieldGoesToItsTextAndBack) {
    Dat fact{};
    SetText(fact.Name, "Temp");
    SetText(fact.Description, "of the oven");
    SetText(fact.KnowType, "DETECTION");
    SetText(fact.Units, "C");
    fact.inf_limit = -1.5;
    fact.sup_limit = 2;
    fact.Step = 0.25;
    fact.lowest = 3;
    fact.low = 4;
    fact.normal = 5;
    fact.high = 6;
    fact.highest = 7;
    fact.Interval = 8;
    fact.Ident = 9;
    const FactTexts texts = TextsOf(fact);
    EXPECT_EQ(texts.name, "Temp");
    EXPECT_EQ(texts.description, "of the oven");
    EXPECT_EQ(texts.type, "DETECTION");
    EXPECT_EQ(texts.unit, "C");
    EXPECT_EQ(texts.lower_limit, "-1.5");
    EXPECT_EQ(texts.higher_limit, "2");
    EXPECT_EQ(texts.step, "0.25");
    EXPECT_EQ(texts.interval, "8");
    EXPECT_EQ(texts.highest, "7");
    EXPECT_EQ(texts.ident, "9");
    const Dat back = FactOf(texts);
    EXPECT_EQ(BytesOf(back), BytesOf(fact));
}

TEST(FactTexts, LongTextsAreCutAndBadNumbersAreZero) {
    FactTexts texts;
    texts.name = std::string(300, 'n');
    texts.unit = std::string(25, 'u');
    texts.lower_limit = "warm";
    texts.interval = "-2.9x";
    texts.ident = "1e99";
    const Dat fact = FactOf(texts);
    EXPECT_EQ(Text(fact.Name), std::string(69, 'n'));
    EXPECT_EQ(Text(fact.Units), std::string(24, 'u'));
    EXPECT_EQ(double{fact.inf_limit}, 0);
    EXPECT_EQ(int{fact.Interval}, -2);
    EXPECT_EQ(int{fact.Ident}, 2147483647);
}

TEST(FactTexts, AFactWithoutTerminatorsEndsAtItsFields) {
    Dat fact;
    std::memset(&fact, 'x', sizeof fact);
    EXPECT_EQ(TextsOf(fact).name.size(), 70u);
    EXPECT_EQ(TextsOf(fact).type.size(), 50u);
}

} // namespace
