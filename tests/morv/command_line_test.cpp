// How the compiler utility finds its paths among the words of its command line.
#include "morv/command_line.h"

#include "tests/core/core_test.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;
using zentrik_test::TempFolder;

// A Wine prefix with a drive C:.
class CommandLine : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(temp_.Path("dosdevices"));
        fs::create_directories(temp_.Path("drive_c"));
        fs::create_directory_symlink("../drive_c", temp_.Path("dosdevices/c:"));
        setenv("WINEPREFIX", temp_.Path("").c_str(), 1);
    }
    void TearDown() override { unsetenv("WINEPREFIX"); }

    void Folder(const std::string& name) const {
        fs::create_directories(temp_.Path("drive_c/" + name));
    }
    void File(const std::string& name) const {
        Folder(fs::path(name).parent_path().string());
        temp_.Put("drive_c/" + name, "");
    }
    fs::path Drive(const std::string& name) const {
        return temp_.Path("") + "/dosdevices/c:/" + name;
    }

    // Reads a line as a program gets it, cut at blanks.
    std::string Read(const std::string& line) {
        std::istringstream stream(line);
        std::vector<std::string> words;
        for (std::string word; stream >> word;)
            words.push_back(word);
        return morv::ReadCommandLine(words, job_);
    }

    static std::string Plain(const fs::path& path) { return path.lexically_normal().string(); }

    TempFolder temp_;
    morv::Job job_;
};

TEST_F(CommandLine, PutsPathsWithBlanksTogether) {
    File("my work/my morv/apimorv.cpp");
    File("my work/my/morv"); // misleads nobody
    File("my work/big boiler/big boilerR.cpp");
    Folder("Program Files/MinGW/include");
    File("Program Files/MinGW/bin dir/g++.exe");
    ASSERT_EQ(Read("apimorv apimorv.rc big boilerR.cpp ddecom.cpp C:\\my work\\my morv "
                   "C:\\my work\\big boiler C:\\Program Files\\MinGW\\include "
                   "C:\\Program Files\\MinGW\\bin dir C:\\my work"),
              "");
    EXPECT_EQ(job_.rules, "big boilerR.cpp");
    EXPECT_EQ(job_.program, "Apibig boiler");
    EXPECT_EQ(Plain(job_.runtime), Plain(Drive("my work/my morv")));
    EXPECT_EQ(Plain(job_.project), Plain(Drive("my work/big boiler")));
    EXPECT_EQ(Plain(job_.include), Plain(Drive("Program Files/MinGW/include")));
    EXPECT_EQ(Plain(job_.compiler), Plain(Drive("Program Files/MinGW/bin dir")));
    EXPECT_EQ(Plain(job_.work), Plain(Drive("my work")));
}

TEST_F(CommandLine, TheIncludeAndCompilerPathsMayBeEmpty) {
    File("morv/apimorv.cpp");
    File("p/pR.cpp");
    Folder("include");
    File("bin/g++.exe");
    const std::string start = "apimorv apimorv.rc pR.cpp ddecom.cpp C:\\morv C:\\p ";
    ASSERT_EQ(Read(start + "  C:\\"), "");
    EXPECT_TRUE(job_.include.empty() && job_.compiler.empty());
    ASSERT_EQ(Read(start + "C:\\include  C:\\"), "");
    EXPECT_EQ(Plain(job_.include), Plain(Drive("include")));
    EXPECT_TRUE(job_.compiler.empty());
    ASSERT_EQ(Read(start + " C:\\bin C:\\"), "");
    EXPECT_EQ(Plain(job_.compiler), Plain(Drive("bin")));
    EXPECT_TRUE(job_.include.empty());
}

TEST_F(CommandLine, NamesHaveAnyCaseAndADriveIsAFolder) {
    File("Zentrik Work/Morv/apimorv.cpp");
    File("pR.cpp");
    ASSERT_EQ(
        Read("apimorv apimorv.rc pR.cpp ddecom.cpp c:\\zentrik WORK\\morv C:   C:\\ZENTRIK work"),
        "");
    EXPECT_EQ(Plain(job_.runtime), Plain(Drive("Zentrik Work/Morv")));
    EXPECT_TRUE(fs::equivalent(job_.project, Drive("")));
    EXPECT_EQ(Plain(job_.work), Plain(Drive("Zentrik Work")));
}

TEST_F(CommandLine, FindsTheProjectAlsoWhenAnotherPathIsWrong) {
    File("morv/apimorv.cpp");
    File("p/pR.cpp");
    const std::string start = "apimorv apimorv.rc pR.cpp ddecom.cpp ";
    EXPECT_EQ(
        Read(start + "C:\\morv C:\\p C:\\none C:\\"),
        "the Compiler Include, the Compiler Path or the work folder is not there: C:\\none C:\\");
    EXPECT_EQ(Plain(job_.project), Plain(Drive("p")));
    EXPECT_EQ(Read(start + "C:\\none C:\\p   C:\\")
                  .find("no apimorv.cpp in the MORV Path, or no such path, in: "),
              0u);
    EXPECT_EQ(Plain(job_.project), Plain(Drive("p")));
    EXPECT_EQ(Read(start + "C:\\morv C:\\none   C:\\"),
              "no folder with pR.cpp in: C:\\morv C:\\none C:\\");
    EXPECT_TRUE(job_.project.empty());
}

TEST_F(CommandLine, SaysWhatIsMissing) {
    File("morv/apimorv.cpp");
    EXPECT_NE(Read(""), "");
    EXPECT_NE(Read("apimorv apimorv.rc ddecom.cpp"), "");
    EXPECT_NE(Read("apimorv apimorv.rc p.cpp ddecom.cpp C:\\morv C:\\p C:\\"), "");
    EXPECT_NE(Read("apimorv apimorv.rc pR.cpp ddecom.cpp C:\\morv C:\\p C:\\"), "");
    std::string many = "apimorv apimorv.rc pR.cpp ddecom.cpp";
    for (int i = 0; i < 1000; ++i)
        many += " x";
    EXPECT_EQ(Read(many), "the paths have too many words");
}

} // namespace
