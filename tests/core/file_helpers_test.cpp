#include "core_test.h"

#include "shell/file_helpers.h"
#include "shell/files.h"

namespace {

using zentrik_test::TempFolder;

TEST(FindStr, FindsForwardWithoutBackTracking) {
    EXPECT_EQ(FindStr("ab", "xab", 3, 0), 1);
    EXPECT_EQ(FindStr("ab", "aab", 3, 0), -1);
    EXPECT_EQ(FindStr("aab", "aaab", 4, 0), -1);
    EXPECT_EQ(FindStr("ab", "abab", 4, 1), 2);
    EXPECT_EQ(FindStr("ab", "ab", 2, 2), -1);
    EXPECT_EQ(FindStr("ab", "ab", 2, 7), -1);
    EXPECT_EQ(FindStr("ab", "ab", 1, 0), -1);
    EXPECT_EQ(FindStr("ab", "", 0, 0), -1);
}

TEST(WriteFile, WritesUpTo256CharactersAndDropsLongerOnes) {
    TempFolder temp;
    const std::string path = temp.Path("out.txt");
    OutputFile han;
    ASSERT_TRUE(han.Create(path.c_str()));
    WriteFile(han, std::string(256, 'a'), 1);
    WriteFile(han, std::string(257, 'b'), 1);
    WriteFile(han, "", 1);
    WriteFile(han, "c", 0);
    EXPECT_TRUE(han.Close());
    EXPECT_EQ(temp.Content("out.txt"), std::string(256, 'a') + "\r\n\r\n\r\nc");
}

TEST(OutputFile, SaysWhenTheDiskIsFull) {
    TempFolder temp;
    OutputFile han;
    ASSERT_TRUE(han.Create(temp.Path("out.txt").c_str()));
    files::FailWritesAfter(10);
    han.Add(std::string(200000, 'a'));
    EXPECT_FALSE(han.Close());
    files::FailWritesAfter(-1);
}

TEST(ReplaceWhole, LeavesTheOldFileWhenTheDiskIsFull) {
    TempFolder temp;
    temp.Put("a.txt", "old");
    files::FailWritesAfter(2);
    EXPECT_FALSE(files::ReplaceWhole(temp.Path("a.txt").c_str(), "newer"));
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp.Content("a.txt"), "old");
    EXPECT_FALSE(files::Exists(temp.Path("a.txt.tmp~").c_str()));
    EXPECT_TRUE(files::ReplaceWhole(temp.Path("a.txt").c_str(), "newer"));
    EXPECT_EQ(temp.Content("a.txt"), "newer");
}

} // namespace
