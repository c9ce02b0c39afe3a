#include "core_test.h"

#include "shell/core/file_helpers.h"
#include "shell/core/files.h"

#include <cerrno>
#include <limits>

namespace {

using zentrik_test::TempFolder;

// A folder on another drive than the temporary one.
class OtherDrive {
public:
    OtherDrive() { std::filesystem::create_directory(folder_); }
    OtherDrive(const OtherDrive&) = delete;
    OtherDrive& operator=(const OtherDrive&) = delete;
    ~OtherDrive() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

private:
#ifdef _WIN32
    const std::filesystem::path shared_ = "Z:\\dev\\shm";
#else
    const std::filesystem::path shared_ = "/dev/shm";
#endif
    const std::filesystem::path folder_ = shared_ / ("zentrik_test_" + std::to_string(std::rand()));
};

std::string ContentOf(const std::string& path) {
    std::string text;
    EXPECT_TRUE(files::ReadWhole(path.c_str(), files::Mode::Read, text)) << path;
    return text;
}

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

TEST(ReplaceWhole, TouchesNoOtherFile) {
    TempFolder temp;
    temp.Put("a.txt", "old");
    temp.Put("a.txt.tmp~", "the user's own");
    temp.Put("a.txt.tmp~1", "another");
    EXPECT_TRUE(files::ReplaceWhole(temp.Path("a.txt").c_str(), "new"));
    EXPECT_EQ(temp.Content("a.txt"), "new");
    EXPECT_EQ(temp.Content("a.txt.tmp~"), "the user's own");
    EXPECT_EQ(temp.Content("a.txt.tmp~1"), "another");
    EXPECT_FALSE(files::Exists(temp.Path("a.txt.tmp~2").c_str()));
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

TEST(RenameOver, ReplacesAFileOnAnotherDrive) {
    TempFolder temp;
    const OtherDrive other;
    temp.Put("working", "new");
    ASSERT_TRUE(files::ReplaceWhole(other.Path("document").c_str(), "the old text"));
    EXPECT_TRUE(files::RenameOver(temp.Path("working").c_str(), other.Path("document").c_str()));
    EXPECT_EQ(ContentOf(other.Path("document")), "new");
    EXPECT_FALSE(files::Exists(temp.Path("working").c_str()));
}

TEST(RenameOver, AFullOtherDriveLosesNeitherFile) {
    TempFolder temp;
    const OtherDrive other;
    temp.Put("working", "the new text");
    ASSERT_TRUE(files::ReplaceWhole(other.Path("document").c_str(), "the old text"));
    files::FailWritesAfter(3);
    EXPECT_FALSE(files::RenameOver(temp.Path("working").c_str(), other.Path("document").c_str()));
    files::FailWritesAfter(-1);
    EXPECT_EQ(files::LastError(), ENOSPC);
    EXPECT_EQ(ContentOf(other.Path("document")), "the old text");
    EXPECT_EQ(temp.Content("working"), "the new text");
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
