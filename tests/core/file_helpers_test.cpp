#include "core_test.h"

#include "shell/core/file_helpers.h"
#include "shell/core/files.h"

#include <cerrno>
#include <limits>

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

TEST(FindStr, FindsNoEmptyNameAndNothingBeforeTheText) {
    EXPECT_EQ(FindStr("", "ab", 2, 0), -1);
    EXPECT_EQ(FindStr(std::string_view(), "ab"), -1);
    EXPECT_EQ(FindStr("ab", "ab", 2, -1), -1);
    EXPECT_EQ(FindStr(std::string_view("ab"), std::string_view("ab"), -1), -1);
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

TEST(ReadWhole, AFileTooLargeForATextIsNotRead) {
    TempFolder temp;
    const std::string path = temp.Path("large");
    const int han = files::Open(path.c_str(), files::Mode::Create);
    // Only its end is written, so it takes no room.
    files::Seek(han, std::numeric_limits<int>::max(), files::Origin::Start);
    ASSERT_EQ(files::Write(han, "x", 1), 1);
    files::Close(han);
    std::string text = "before";
    EXPECT_FALSE(files::ReadWhole(path.c_str(), files::Mode::Read, text));
    EXPECT_EQ(text, "");
    EXPECT_EQ(files::LastError(), EFBIG);
}

TEST(RenameOver, SaysThatAFolderOrFileIsMissing) {
    TempFolder temp;
    temp.Put("a", "text");
    EXPECT_FALSE(files::RenameOver(temp.Path("a").c_str(), temp.Path("gone/a").c_str()));
    EXPECT_EQ(files::LastError(), ENOENT);
    EXPECT_FALSE(files::RenameOver(temp.Path("none").c_str(), temp.Path("b").c_str()));
    EXPECT_EQ(files::LastError(), ENOENT);
}

} // namespace
