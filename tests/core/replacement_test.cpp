#include "core_test.h"
#include "faults.h"

#include "shell/core/files.h"
#include "shell/core/replacement.h"

#include <cerrno>
#include <set>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;
using namespace zentrik_test;
using files::Before;

class Replacing : public testing::Test {
protected:
    // The names of the files in the folder.
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(temp_.Path(".")))
            names.insert(entry.path().filename().string());
        return names;
    }
    bool Replace(const std::string& name, std::string_view text) const {
        return files::ReplaceKeeping(temp_.Path(name).c_str(), text);
    }

    TempFolder temp_;
};

using Files = std::set<std::string>;

TEST_F(Replacing, LeavesTheOldFileWhenTheDiskIsFull) {
    temp_.Put("a.txt", "old");
    files::FailWritesAfter(2);
    EXPECT_FALSE(Replace("a.txt", "newer"));
    EXPECT_EQ(files::LastError(), ENOSPC);
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp_.Content("a.txt"), "old");
    EXPECT_EQ(Names(), Files{"a.txt"});
    EXPECT_TRUE(Replace("a.txt", "newer"));
    EXPECT_EQ(temp_.Content("a.txt"), "newer");
}

TEST_F(Replacing, KeepsTheContentBefore) {
    EXPECT_TRUE(Replace("a.txt", "first"));
    EXPECT_EQ(Names(), Files{"a.txt"});
    EXPECT_TRUE(Replace("a.txt", "second"));
    EXPECT_EQ(temp_.Content("a.txt.bak"), "first");
    EXPECT_TRUE(Replace("a.txt", "third"));
    EXPECT_EQ(temp_.Content("a.txt.bak"), "second");
    EXPECT_TRUE(Replace("a.txt", "third")); // nothing changes
    EXPECT_EQ(temp_.Content("a.txt.bak"), "second");
    EXPECT_TRUE(Replace("a.txt", ""));
    EXPECT_TRUE(Replace("a.txt", "fourth")); // nothing is not worth keeping
    EXPECT_EQ(temp_.Content("a.txt.bak"), "third");
    EXPECT_EQ(Names(), (Files{"a.txt", "a.txt.bak"}));
}

TEST_F(Replacing, KeepsNothingOfWorkingCopies) {
    temp_.Put("a.txt", "old");
    EXPECT_TRUE(files::ReplaceWhole(temp_.Path("a.txt").c_str(), "new"));
    EXPECT_EQ(Names(), Files{"a.txt"});
}

TEST_F(Replacing, IsNotStoppedByAPlaceThatCannotKeepTheContentBefore) {
    temp_.Put("a.txt", "old");
    fs::create_directories(temp_.Path("a.txt.bak") + "/full");
    EXPECT_TRUE(Replace("a.txt", "new"));
    EXPECT_EQ(temp_.Content("a.txt"), "new");
    EXPECT_EQ(Names(), (Files{"a.txt", "a.txt.bak"}));
    // There is room for the new file and not for a copy of the old one.
    temp_.Put("b.txt", std::string(1000, 'o'));
    files::FailWritesAfter(5);
    EXPECT_TRUE(Replace("b.txt", "new"));
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp_.Content("b.txt"), "new");
    EXPECT_EQ(Names(), (Files{"a.txt", "a.txt.bak", "b.txt"}));
}

TEST_F(Replacing, TouchesNoOtherFile) {
    temp_.Put("a.txt", "old");
    temp_.Put("a.txt.~1", "the user's own");
    temp_.Put("a.txt.~2", "another");
    EXPECT_TRUE(Replace("a.txt", "new"));
    EXPECT_EQ(temp_.Content("a.txt.~1"), "the user's own");
    EXPECT_EQ(temp_.Content("a.txt.~2"), "another");
    EXPECT_EQ(Names(), (Files{"a.txt", "a.txt.bak", "a.txt.~1", "a.txt.~2"}));
}

TEST_F(Replacing, ChangesSeveralFilesOrNone) {
    temp_.Put("a", "old a");
    temp_.Put("c", "old c");
    temp_.Put("d", "old d");
    auto change = [&](const std::string& last) {
        files::Replacement files;
        files.Put(temp_.Path("a"), "new a", Before::Kept);
        files.Put(temp_.Path("b"), "new b", Before::Kept);
        files.TakeAway(temp_.Path("c"), Before::Kept);
        files.TakeAway(temp_.Path("none"), Before::Kept);
        files.Put(temp_.Path(last), "new d", Before::Kept);
        const bool done = files.CarryOut();
        EXPECT_EQ(files.Failed(), done ? "" : temp_.Path(last));
        return done;
    };
    EXPECT_FALSE(change("no folder/d"));
    EXPECT_EQ(files::LastError(), ENOENT);
    EXPECT_EQ(Names(), (Files{"a", "c", "d"}));
    EXPECT_EQ(temp_.Content("a"), "old a");
    EXPECT_TRUE(change("d"));
    EXPECT_EQ(Names(), (Files{"a", "a.bak", "b", "c.bak", "d", "d.bak"}));
    EXPECT_EQ(temp_.Content("a") + temp_.Content("b") + temp_.Content("d"), "new anew bnew d");
    EXPECT_EQ(temp_.Content("a.bak") + temp_.Content("c.bak"), "old aold c");
}

TEST_F(Replacing, EachFaultLeavesEveryFileOldOrNew) {
    for (const bool twice : {false, true}) {
        int faults = 0;
        for (std::int64_t fault = 1;; ++fault) {
            const TempFolder temp;
            temp.Put("a", "the old content of a");
            temp.Put("c", "old c");
            std::error_code ignored;
            if (twice)
                fs::create_hard_link(temp.Path("a"), temp.Path("another name"), ignored);
            files::Replacement files;
            files.Put(temp.Path("a"), "new a", Before::Kept);
            files.Put(temp.Path("b"), "new b", Before::Kept);
            files.TakeAway(temp.Path("c"), Before::Kept);
            const FaultyOperation faulty(fault);
            const bool done = files.CarryOut();
            if (!faulty.Happened())
                break;
            ++faults;
            const std::string a = temp.Content("a");
            EXPECT_EQ(a, done ? "new a" : "the old content of a") << fault;
            EXPECT_EQ(temp.Content("b"), done ? "new b" : "") << fault;
            EXPECT_EQ(fs::exists(temp.Path("b")), done) << fault;
            EXPECT_EQ(temp.Content("c"), done ? "" : "old c") << fault;
            EXPECT_EQ(fs::exists(temp.Path("c")), !done) << fault;
            if (twice && temp.Content("another name") != "new a") {
                EXPECT_EQ(temp.Content("another name"), "the old content of a") << fault;
            }
            if (!done) {
                EXPECT_EQ(files::LastError(), EIO) << fault;
            }
        }
        EXPECT_GE(faults, 15);
    }
}

TEST_F(Replacing, LeavesAFileItsOtherNames) {
    temp_.Put("a.txt", "the old content");
    fs::create_hard_link(temp_.Path("a.txt"), temp_.Path("other"));
    EXPECT_TRUE(Replace("a.txt", "new"));
    EXPECT_EQ(temp_.Content("other"), "new");
    EXPECT_TRUE(files::SameFile(temp_.Path("a.txt").c_str(), temp_.Path("other").c_str()));
    EXPECT_EQ(Names(), (Files{"a.txt", "a.txt.bak", "other"}));
}

#ifndef _WIN32
TEST_F(Replacing, LeavesALinkAndRightsAsTheyAre) {
    fs::create_directory(temp_.Path("there"));
    temp_.Put("there/a.txt", "old");
    chmod(temp_.Path("there/a.txt").c_str(), 0604);
    fs::create_symlink("there/a.txt", temp_.Path("link"));
    EXPECT_TRUE(Replace("link", "new"));
    EXPECT_TRUE(fs::is_symlink(temp_.Path("link")));
    EXPECT_EQ(temp_.Content("there/a.txt"), "new");
    EXPECT_EQ(temp_.Content("link.bak"), "old");
    struct stat about {};
    stat(temp_.Path("there/a.txt").c_str(), &about);
    EXPECT_EQ(about.st_mode & 0777, 0604u);
}

TEST_F(Replacing, TakesRightsOverWhereAFileCannotHaveTwoNames) {
    temp_.Put("a.txt", "old");
    chmod(temp_.Path("a.txt").c_str(), 0604);
    temp_.Put("a.new", "new");
    EXPECT_TRUE(files::TakePlace(temp_.Path("a.new").c_str(), temp_.Path("a.txt").c_str()));
    struct stat about {};
    stat(temp_.Path("a.txt").c_str(), &about);
    EXPECT_EQ(about.st_mode & 0777, 0604u);
    EXPECT_EQ(temp_.Content("a.txt"), "new");
}

// As the name of a device would.
TEST_F(Replacing, TakesThePlaceOfNoPipe) {
    temp_.Put("a.txt", "old");
    ASSERT_EQ(mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    files::Replacement both;
    both.Put(temp_.Path("a.txt"), "new", Before::Dropped);
    both.Put(temp_.Path("pipe"), "new", Before::Dropped);
    EXPECT_FALSE(both.CarryOut());
    EXPECT_EQ(files::LastError(), EACCES);
    EXPECT_TRUE(fs::is_fifo(temp_.Path("pipe")));
    EXPECT_EQ(temp_.Content("a.txt"), "old");
    EXPECT_EQ(Names(), (Files{"a.txt", "pipe"}));
}

TEST(ReadWhole, ReadsAPipeToItsEnd) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "some text", 9), 9);
    close(ends[1]);
    std::string text;
    EXPECT_TRUE(
        files::ReadWhole(("/dev/fd/" + std::to_string(ends[0])).c_str(), files::Mode::Read, text));
    EXPECT_EQ(text, "some text");
    close(ends[0]);
}

// The device that is always full.
TEST(Write, SaysThatTheDiskIsFull) {
    const int han = files::Open("/dev/full", files::Mode::Update);
    ASSERT_NE(han, -1);
    EXPECT_EQ(files::Write(han, "x", 1), -1);
    EXPECT_EQ(files::LastError(), ENOSPC);
    files::Close(han);
}
#endif

TEST(SameFile, KnowsAFileUnderAnotherName) {
    const TempFolder temp;
    temp.Put("a", "x");
    temp.Put("b", "x");
    EXPECT_TRUE(files::SameFile(temp.Path("a").c_str(), temp.Path("./a").c_str()));
    EXPECT_FALSE(files::SameFile(temp.Path("a").c_str(), temp.Path("b").c_str()));
    EXPECT_FALSE(files::SameFile(temp.Path("none").c_str(), temp.Path("none").c_str()));
}

TEST(KeepBefore, CopiesWhatIsThereAndSaysNothing) {
    const TempFolder temp;
    files::KeepBefore(temp.Path("none").c_str());
    temp.Put("empty", "");
    files::KeepBefore(temp.Path("empty").c_str());
    temp.Put("a", "content");
    files::KeepBefore(temp.Path("a").c_str());
    EXPECT_EQ(temp.Content("a.bak"), "content");
    EXPECT_FALSE(fs::exists(temp.Path("none.bak")));
    EXPECT_FALSE(fs::exists(temp.Path("empty.bak")));
    files::FailWritesAfter(0);
    temp.Put("a", "later");
    files::KeepBefore(temp.Path("a").c_str());
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp.Content("a.bak"), "content");
}

} // namespace
