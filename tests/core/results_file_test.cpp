#include "core_test.h"

#include "project/core/results_file.h"
#include "shell/core/record_text.h"

#include <chrono>

namespace {

using zentrik_test::TempFolder;

// Records of 50 bytes; what follows a NUL is noise of the record's own.
std::string Names(const std::vector<std::string>& names, char noise = '\0') {
    std::string bytes;
    for (const std::string& name : names) {
        std::string record = name + '\0';
        record.resize(kTagSize, noise);
        bytes += record;
    }
    return bytes;
}

TEST(Results, PruneTakesOutEveryNameOfTheOtherFile) {
    TempFolder temp;
    temp.Put("p.aux", Names({"fire", "smoke", "water", "fire", "Fire"}));
    temp.Put("r.rst", Names({"fire", "water", "ice"}, 'x'));
    EXPECT_TRUE(PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str()));
    EXPECT_EQ(temp.Content("p.aux"), Names({"smoke", "Fire"}));
}

TEST(Results, ThatCannotBeWrittenStayAsTheyWere) {
    TempFolder temp;
    const std::string before = Names({"fire", "smoke", "water"}, 'x');
    temp.Put("p.aux", before);
    temp.Put("r.rst", Names({"fire"}));
    files::FailWritesAfter(60); // in the second record
    EXPECT_FALSE(PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str()));
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp.Content("p.aux"), before);
}

TEST(Results, PruneCanEmptyTheFileAndBearsAnEmptyOne) {
    TempFolder temp;
    temp.Put("p.aux", Names({"fire"}));
    temp.Put("r.rst", Names({"fire"}));
    temp.Put("empty.rst", "");
    PruneResults(temp.Path("p.aux").c_str(), temp.Path("empty.rst").c_str());
    EXPECT_EQ(temp.Content("p.aux"), Names({"fire"}));
    PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str());
    EXPECT_EQ(temp.Content("p.aux"), "");
    PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str());
    EXPECT_EQ(temp.Content("p.aux"), "");
}

TEST(Results, PruneDoesNothingWhenEitherFileIsMissing) {
    TempFolder temp;
    temp.Put("p.aux", Names({"fire"}));
    EXPECT_TRUE(PruneResults(temp.Path("p.aux").c_str(), temp.Path("none.rst").c_str()));
    EXPECT_EQ(temp.Content("p.aux"), Names({"fire"}));
    EXPECT_TRUE(PruneResults(temp.Path("none.aux").c_str(), temp.Path("p.aux").c_str()));
    EXPECT_FALSE(files::Exists(temp.Path("none.aux").c_str()));
}

TEST(Results, PruneIsQuickForManyNames) {
    TempFolder temp;
    std::vector<std::string> names;
    for (int i = 0; i < 20000; ++i)
        names.push_back("result " + std::to_string(i));
    temp.Put("p.aux", Names(names));
    temp.Put("r.rst", Names({names.begin() + 1, names.end()}));
    const auto start = std::chrono::steady_clock::now();
    PruneResults(temp.Path("p.aux").c_str(), temp.Path("r.rst").c_str());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(temp.Content("p.aux"), Names({"result 0"}));
}

TEST(Results, EmptyCutsTheFileAndCreatesNone) {
    TempFolder temp;
    temp.Put("p.aux", Names({"fire", "smoke"}));
    EXPECT_TRUE(EmptyResults(temp.Path("p.aux").c_str()));
    EXPECT_EQ(temp.Content("p.aux"), "");
    EXPECT_TRUE(EmptyResults(temp.Path("none.aux").c_str()));
    EXPECT_FALSE(files::Exists(temp.Path("none.aux").c_str()));
}

} // namespace
