#include "core_test.h"

#include "resources/core/record_files.h"

#include <cerrno>

namespace {

using zentrik_test::TempFolder;

TEST(RecordFiles, NamesAreWrittenAsRecordsAndReadBack) {
    TempFolder temp;
    const std::string path = temp.Path("a.tag");
    ASSERT_TRUE(
        WriteNames(path.c_str(), std::vector<std::string>{"one", std::string(60, 'x'), ""}));
    const std::string bytes = temp.Content("a.tag");
    ASSERT_EQ(bytes.size(), 150u);
    EXPECT_EQ(bytes.substr(0, 50), "one" + std::string(47, '\0'));
    EXPECT_EQ(NamesIn(path.c_str()), (std::vector<std::string>{"one", std::string(49, 'x'), ""}));
    temp.Put("a.tag", bytes + "rest");
    EXPECT_EQ(NamesIn(path.c_str()).size(), 3u);
    EXPECT_TRUE(NamesIn(temp.Path("none").c_str()).empty());
}

TEST(RecordFiles, AMissingFileIsCreatedEmpty) {
    TempFolder temp;
    std::vector<TagRecord> records;
    EXPECT_TRUE(ReadOrCreate(temp.Path("a.tag").c_str(), records));
    EXPECT_TRUE(records.empty());
    EXPECT_TRUE(files::Exists(temp.Path("a.tag").c_str()));
    EXPECT_FALSE(ReadOrCreate(temp.Path("none/a.tag").c_str(), records));
}

TEST(StoreWhole, SaysWhatCameOfIt) {
    TempFolder temp;
    const std::string path = temp.Path("a.var");
    EXPECT_EQ(StoreWhole(path.c_str(), "old"), Stored::Yes);
    files::FailWritesAfter(1);
    EXPECT_EQ(StoreWhole(path.c_str(), "newer"), Stored::NotWritten);
    EXPECT_EQ(files::LastError(), ENOSPC);
    EXPECT_EQ(StoreWhole(temp.Path("b.var").c_str(), "newer"), Stored::NotWritten);
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp.Content("a.var"), "old");
    EXPECT_FALSE(files::Exists(temp.Path("b.var").c_str()));
    EXPECT_EQ(StoreWhole(temp.Path("none/a.var").c_str(), "x"), Stored::NotCreated);
    EXPECT_EQ(files::LastError(), ENOENT);
    EXPECT_EQ(StoreWhole("", "x"), Stored::NotCreated);
}

} // namespace
