// Under Wine: what a saved file is to the host.
#include "tests/core/core_test.h"

#include "shell/core/files.h"
#include "shell/core/replacement.h"

#include <chrono>
#include <windows.h>

namespace {

using namespace zentrik_test;

constexpr char kShell[] = "Z:\\bin\\sh";

class HostFiles : public testing::Test {
protected:
    void SetUp() override {
        // On Windows itself nobody can say from outside what became of the files' rights and links.
        if (!files::Exists(kShell))
            GTEST_SKIP() << "this is no Wine on a host with a shell";
    }

    // Runs a command of the host's shell in the folder of the test; returns what it says.
    std::string Host(const std::string& command) const {
        std::string folder = temp_.Path("");
        for (char& c : folder)
            if (c == '\\')
                c = '/';
        // The drive is a link of the prefix. Wine gives no handle to wait on, so a file says when
        // the command is done.
        std::string line = std::string(kShell) +
                           " -c \"cd $WINEPREFIX/dosdevices/c:" + folder.substr(2) + "; (" +
                           command + ") >said 2>&1; mv said done\"";
        STARTUPINFOA start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        files::Remove(temp_.Path("done").c_str());
        EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &start, &process));
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!files::Exists(temp_.Path("done").c_str()))
            if (std::chrono::steady_clock::now() > until) {
                ADD_FAILURE() << "the host did not do " << command;
                return {};
            } else {
                Sleep(1); // between two looks at the condition: the shell needs the processor
            }
        return temp_.Content("done");
    }

    bool Replace(const std::string& name, const std::string& content) const {
        return files::ReplaceKeeping(temp_.Path(name).c_str(), content);
    }

    TempFolder temp_;
};

TEST_F(HostFiles, KeepTheirModeBits) {
    for (const std::string mode : {"600", "604", "640", "644", "660", "664", "666", "755"}) {
        temp_.Put("a.mrv", "old");
        Host("chmod " + mode + " a.mrv");
        EXPECT_TRUE(Replace("a.mrv", "new of " + mode));
        EXPECT_EQ(Host("stat -c %a a.mrv"), mode + "\n");
        EXPECT_EQ(temp_.Content("a.mrv"), "new of " + mode);
    }
}

TEST_F(HostFiles, KeepTheirAttributes) {
    temp_.Put("a.mrv", "old");
    const std::string path = temp_.Path("a.mrv");
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    const DWORD before = GetFileAttributesA(path.c_str());
    EXPECT_TRUE(Replace("a.mrv", "new"));
    EXPECT_EQ(GetFileAttributesA(path.c_str()), before);
}

TEST_F(HostFiles, AreStillReachedByALink) {
    Host("mkdir there; echo old >there/a.mrv; ln -s there/a.mrv link.mrv");
    EXPECT_TRUE(Replace("link.mrv", "new"));
    EXPECT_EQ(Host("readlink link.mrv; cat there/a.mrv"), "there/a.mrv\nnew");
    EXPECT_EQ(temp_.Content("link.mrv.bak"), "old\n");
}

TEST_F(HostFiles, KeepTheirOtherNames) {
    Host("echo old >a.mrv; ln a.mrv other");
    EXPECT_TRUE(Replace("a.mrv", "new"));
    EXPECT_EQ(Host("stat -c %h a.mrv; cat other"), "2\nnew");
}

TEST_F(HostFiles, TakeThePlaceOfNoDevice) {
    if (!Host("mknod full c 1 7").empty())
        GTEST_SKIP() << "only the superuser makes devices";
    EXPECT_FALSE(Replace("full", "new"));
    EXPECT_EQ(files::LastError(), EACCES);
    // Nothing on this side of Wine can remove it.
    EXPECT_EQ(Host("stat -c %F full; rm full"), "character special file\n");
}

TEST_F(HostFiles, SayThatADiskIsFull) {
    const int han = files::Open("Z:\\dev\\full", files::Mode::Update);
    ASSERT_NE(han, -1);
    EXPECT_EQ(files::Write(han, "x", 1), -1);
    EXPECT_EQ(files::LastError(), ENOSPC);
    files::Close(han);
}

} // namespace
