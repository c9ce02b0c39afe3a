#include "core_test.h"

#include "system/core/system_file.h"

namespace {

using zentrik_test::TempFolder;

// The counts of a head, which are not aligned in it.
int Facts(const SystemFile& system) {
    return system.head.DatNum;
}

int Opposites(const SystemFile& system) {
    return system.head.OppNum;
}

SystemFile Sample() {
    SystemFile system;
    SetText(system.head.KTypeName, "a.typ");
    SetText(system.head.RuleName, "a.rul");
    SetText(system.head.RuleSizeName, "a.siz");
    SetText(system.head.HeaderName, "a.cpp");
    SetText(system.head.VarName, "a.var");
    SetText(system.head.InitName, "a.ikw");
    SetText(system.head.KnowName, "a.fac");
    system.head.TypNum = 3;
    for (const char* name : {"fever", "cough"}) {
        Dat& fact = system.facts.emplace_back();
        SetText(fact.Name, name);
        fact.highest = 42.5;
        fact.Ident = 9;
    }
    SetText(system.opposites.emplace_back().name, "hot\tcold");
    system.head.DatNum = 2;
    system.head.OppNum = 1;
    return system;
}

TEST(SystemFile, HasEveryFieldAtItsOffset) {
    const std::string bytes = SystemBytes(Sample());
    ASSERT_EQ(bytes.size(), 1797u + 2 * 287 + 255);
    auto field = [&](std::size_t at) { return std::string(bytes.c_str() + at); };
    EXPECT_EQ(field(0), "a.typ");
    EXPECT_EQ(field(255), "a.rul");
    EXPECT_EQ(field(510), "a.siz");
    EXPECT_EQ(field(765), "a.cpp");
    EXPECT_EQ(field(1020), "a.var");
    EXPECT_EQ(field(1275), "a.ikw");
    EXPECT_EQ(field(1530), "a.fac");
    std::int32_t counts[3];
    std::memcpy(counts, bytes.data() + 1785, sizeof counts);
    EXPECT_EQ(counts[0], 3);
    EXPECT_EQ(counts[1], 2);
    EXPECT_EQ(counts[2], 1);
    EXPECT_EQ(field(1797), "fever");
    EXPECT_EQ(field(1797 + 287), "cough");
    EXPECT_EQ(field(1797 + 2 * 287), "hot\tcold");
}

TEST(SystemFile, ReadsBackWhatWasWritten) {
    TempFolder temp;
    temp.Put("a.lse", SystemBytes(Sample()));
    SystemFile system;
    EXPECT_EQ(ReadSystem(temp.Path("a.lse").c_str(), system), ReadResult::Ok);
    EXPECT_EQ(SystemBytes(system), SystemBytes(Sample()));
}

TEST(SystemFile, ThatIsMissingOrTooShortGivesNothing) {
    TempFolder temp;
    SystemFile system;
    EXPECT_EQ(ReadSystem(temp.Path("none.lse").c_str(), system), ReadResult::Missing);
    temp.Put("a.lse", std::string(1796, 'x'));
    EXPECT_EQ(ReadSystem(temp.Path("a.lse").c_str(), system), ReadResult::Useless);
    EXPECT_EQ(Facts(system), 0);
}

TEST(SystemFile, CountsOnlyTheWholeRecordsItHas) {
    TempFolder temp;
    // One fact and a half of another, no opposites.
    temp.Put("a.lse", SystemBytes(Sample()).substr(0, 1797 + 287 + 100));
    SystemFile system;
    EXPECT_EQ(ReadSystem(temp.Path("a.lse").c_str(), system), ReadResult::Damaged);
    EXPECT_EQ(Facts(system), 1);
    EXPECT_EQ(Text(system.facts.at(0).Name), "fever");
    EXPECT_EQ(Opposites(system), 0);
}

TEST(SystemFile, WithCountsThatNoSystemHasIsNoSystem) {
    TempFolder temp;
    SystemFile system;
    auto read = [&](std::int32_t facts, std::int32_t opposites) {
        SystemFile bad = Sample();
        bad.head.DatNum = facts;
        bad.head.OppNum = opposites;
        temp.Put("b.lse", SystemBytes(bad));
        return ReadSystem(temp.Path("b.lse").c_str(), system);
    };
    EXPECT_EQ(read(-1, 1), ReadResult::Useless);
    EXPECT_EQ(Facts(system), 0);
    EXPECT_TRUE(system.facts.empty());
    EXPECT_EQ(read(2, -1), ReadResult::Useless);
    EXPECT_EQ(read(0x20202020, 0), ReadResult::Useless); // a text
    EXPECT_EQ(read(0, 2147483647), ReadResult::Useless);
    EXPECT_EQ(read(1000000, 1), ReadResult::Damaged);
    temp.Put("text.lse", std::string(3000, ' '));
    EXPECT_EQ(ReadSystem(temp.Path("text.lse").c_str(), system), ReadResult::Useless);
}

// A fact that was gone from its base is counted and has no record.
TEST(SystemFile, ThatLacksFactsKeepsItsOpposites) {
    TempFolder temp;
    for (std::size_t there : {1, 0}) {
        SystemFile saved = Sample();
        SetText(saved.opposites.emplace_back().name, "up\tdown");
        saved.head.OppNum = 2;
        saved.facts.resize(there);
        temp.Put("a.lse", SystemBytes(saved));
        SystemFile system;
        EXPECT_EQ(ReadSystem(temp.Path("a.lse").c_str(), system), ReadResult::Damaged);
        EXPECT_EQ(Facts(system), static_cast<int>(there));
        EXPECT_EQ(system.facts.size(), there);
        ASSERT_EQ(Opposites(system), 2);
        EXPECT_EQ(Text(system.opposites[0].name), "hot\tcold");
        EXPECT_EQ(Text(system.opposites[1].name), "up\tdown");
        if (there > 0) {
            EXPECT_EQ(Text(system.facts[0].Name), "fever");
        }
    }
}

// Any bytes at all: bounded, and never more records than there are bytes for.
TEST(SystemFile, BearsAnyBytes) {
    TempFolder temp;
    unsigned seed = 12345;
    for (int round = 0; round < 300; ++round) {
        seed = seed * 1664525 + 1013904223;
        std::string bytes(1700 + seed % 3000, '\0');
        for (char& byte : bytes) {
            seed = seed * 1664525 + 1013904223;
            byte = static_cast<char>(seed >> 24);
        }
        temp.Put("a.lse", bytes);
        SystemFile system;
        ReadSystem(temp.Path("a.lse").c_str(), system);
        EXPECT_EQ(Facts(system), static_cast<int>(system.facts.size()));
        EXPECT_EQ(Opposites(system), static_cast<int>(system.opposites.size()));
        EXPECT_LE(system.facts.size() * sizeof(Dat) + system.opposites.size() * kNameSize,
                  bytes.size());
    }
}

TEST(SplitOpposite, SplitsAtTheFirstTab) {
    EXPECT_EQ(SplitOpposite("hot\tcold").result, "hot");
    EXPECT_EQ(SplitOpposite("hot\tcold").opposite, "cold");
    EXPECT_EQ(SplitOpposite("a\tb\tc").opposite, "b\tc");
    EXPECT_EQ(SplitOpposite("alone").result, "alone");
    EXPECT_EQ(SplitOpposite("alone").opposite, "");
}

} // namespace
