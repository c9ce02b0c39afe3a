// The log of a running program.
#include "morv/program_log.h"
#include "panel_test.h"

#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class ProgramLog : public testing::Test {
protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = fs::temp_directory_path() /
                  (std::string("morv_log_") + test->name() + std::to_string(getpid()));
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    fs::path Path() const { return folder_ / "Apiplant.log"; }
    fs::path Older() const { return folder_ / "Apiplant.old.log"; }

    static std::string Content(const fs::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    morv::ProgramLog::Clock Clock() {
        return [this] { return now_; };
    }

    fs::path folder_;
    std::string now_ = "2026-11-22 23:59:59";
};

TEST_F(ProgramLog, EachLineHasItsTimeAndADayIsToldWhenItBegins) {
    {
        morv::ProgramLog log(Path(), Clock());
        log.Write("one");
        log.Write("two");
        now_ = "2026-11-23 00:00:00";
        log.Write("three");
    }
    EXPECT_EQ(Content(Path()), "23:59:59 2026-11-22\r\n23:59:59 one\r\n23:59:59 two\r\n"
                               "00:00:00 2026-11-23\r\n00:00:00 three\r\n");
}

TEST_F(ProgramLog, WhatWasThereStays) {
    for (const char* line : {"first run", "second run"})
        morv::ProgramLog(Path(), Clock()).Write(line);
    const std::string text = Content(Path());
    EXPECT_LT(text.find("first run"), text.find("second run")) << text;
    EXPECT_NE(text.find("second run"), std::string::npos);
}

TEST_F(ProgramLog, NoLineIsFlushedAloneAndAFlushPutsAllInPlace) {
    morv::ProgramLog log(Path(), Clock());
    log.Write("one");
    EXPECT_EQ(Content(Path()), "");
    log.Flush();
    EXPECT_NE(Content(Path()).find("one"), std::string::npos);
}

TEST_F(ProgramLog, KeepsToItsSizeAndOneOlderFile) {
    const std::string line(50, 'x');
    {
        morv::ProgramLog log(Path(), Clock(), 1000);
        for (int i = 0; i < 100; ++i)
            log.Write(line + std::to_string(i));
    }
    EXPECT_LE(fs::file_size(Path()), 1100u);
    EXPECT_LE(fs::file_size(Older()), 1100u);
    const std::string both = Content(Older()) + Content(Path());
    EXPECT_TRUE(both.find("x99\r\n") != std::string::npos) << both;
    EXPECT_TRUE(both.find("x85\r\n") != std::string::npos) << "the newest lines are all there";
    EXPECT_TRUE(Content(Path()).rfind("23:59:59 2026-11-22\r\n", 0) == 0) << "with the day";
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 2);
}

TEST_F(ProgramLog, AFullLogOfAnEarlierRunMakesRoom) {
    std::ofstream(Path()) << std::string(2000, 'y');
    morv::ProgramLog(Path(), Clock(), 1000).Write("new");
    EXPECT_EQ(Content(Older()), std::string(2000, 'y'));
    EXPECT_NE(Content(Path()).find("new"), std::string::npos);
}

TEST_F(ProgramLog, WithoutALogThatCanBeWrittenLinesGoNowhere) {
    fs::create_directory(Path());
    morv::ProgramLog log(Path(), Clock(), 100);
    EXPECT_FALSE(log.IsOpen());
    for (int i = 0; i < 10; ++i)
        log.Write(std::string(60, 'z'));
    log.Flush();
    EXPECT_TRUE(fs::is_directory(Path()));
}

#ifndef _WIN32

TEST_F(ProgramLog, AFullDiskHarmsNothing) {
    fs::create_symlink("/dev/full", Path());
    {
        morv::ProgramLog log(Path(), Clock(), 100'000);
        for (int i = 0; i < 5000; ++i)
            log.Write(std::string(60, 'z'));
        log.Flush();
    }
    EXPECT_TRUE(fs::is_symlink(Path())) << "what could not be written does not make it older";
}

#endif

} // namespace
