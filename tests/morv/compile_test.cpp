// The generated sample and the golden projects of the generators compile without a warning, for
// Windows by the compiler utility and for the host with a stand-in for the API main.
#include "tests/core/core_test.h"
#include "tests/morv/generated.h"

#include "shell/core/files.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;
using zentrik_test::TempFolder;

const std::string kTop = SOURCE_FOLDER;

// A path as one word of a command line, also when it holds blanks.
std::string Quoted(const std::string& path) {
    return '"' + path + '"';
}

// The stand-in for the API main and DDE.
const std::string kHost = kTop + "/tests/morv/host";

const std::string kHostCompiler = "g++ -I" + Quoted(kHost);
const std::string kWindowsCompiler = "x86_64-w64-mingw32-g++";

const std::string kUtility = Quoted(kTop + "/morv/zkcc");

class Compile : public testing::Test {
protected:
    // A Wine prefix that has nothing but drives.
    void SetUp() override {
        fs::create_directories(temp_.Path("dosdevices"));
        fs::create_directories(temp_.Path("c"));
        fs::create_directory_symlink("../c", temp_.Path("dosdevices/c:"));
        files::SetDriveRoot(temp_.Path(""));
        setenv("WINEPREFIX", temp_.Path("").c_str(), 1);
        // The first test builds the utility, the others find it there.
        static const TempFolder cache;
        setenv("ZKCC_CACHE", cache.Path("").c_str(), 1);
        setenv("ZKCC_SHOW", "", 1); // no window
    }
    void TearDown() override {
        unsetenv("WINEPREFIX");
        unsetenv("ZKCC_CACHE");
        unsetenv("ZKCC_SHOW");
        files::SetDriveRoot("");
    }

    // Runs a line in the shell; what it says is in the file "said".
    int Run(const std::string& line) const {
        return std::system((line + " >'" + temp_.Path("said") + "' 2>&1").c_str());
    }

    // A command line with its backslashes kept from the shell.
    static std::string ForShell(const std::string& line) {
        std::string safe;
        for (const char c : line)
            safe += c == '\\' ? std::string("\\\\") : std::string(1, c);
        return safe;
    }

    // The line by which the compiler `compiler` takes the generated files of the project X in
    // c/`work`/X; sources of the runtime and options may be added.
    std::string LineOf(const std::string& compiler, const std::string& work,
                       const std::string& name) const {
        const std::string project = Quoted(temp_.Path("c/" + work + "/" + name));
        const std::string translated = temp_.Path("translated");
        fs::remove_all(translated);
        EXPECT_EQ(Run(Quoted(TRANSLATE_RULES) + " " + project + "/" + name + "R.cpp " + project +
                      "/" + name + "R.h " + translated),
                  0)
            << temp_.Content("said");
        return compiler + " -std=c++17 -Wall -Werror -I" + project + " -I" +
               Quoted(temp_.Path("c/" + work + "/morv")) + " -I" + translated + " " + translated +
               "/rules.cpp " + translated + "/pieces.cpp " + project + "/ddecom.cpp ";
    }

    // Puts the golden files of a project where a build leaves them, in the work folder C:\golden.
    void PutGolden(const fs::path& golden, const std::string& name) const {
        const fs::path work = temp_.Path("c/golden");
        fs::create_directory(work);
        EXPECT_EQ(zentrik_test::PutRuntime("C:\\golden"), "");
        fs::copy(golden, work / name);
        fs::rename(work / name / "MorvApi.h", work / "morv" / "MorvApi.h");
    }

    TempFolder temp_;
};

TEST_F(Compile, TheUtilityMakesTheProgramWithoutAWarning) {
    // The runtime serves as it stands in the sources.
    morv_test::PutSample("C:\\my zentrik", kUtility);
    fs::remove_all(temp_.Path("c/my zentrik/morv"));
    fs::copy(kTop + "/morv", temp_.Path("c/my zentrik/morv"));
    const std::string line = morv_test::Generate("C:\\my zentrik");
    EXPECT_EQ(Run(ForShell(line)), 0) << temp_.Content("said");
    const std::string log = temp_.Content("c/my zentrik/boiler/zkcc.log");
    EXPECT_EQ(log, "zkcc: made Apiboiler.exe\r\n");
    EXPECT_TRUE(fs::exists(temp_.Path("c/my zentrik/boiler/Apiboiler.exe")));
    EXPECT_FALSE(temp_.Content("c/my zentrik/boiler/boilerR.cpp").empty());
    for (const auto& entry : fs::directory_iterator(temp_.Path("c/my zentrik/boiler")))
        EXPECT_NE(entry.path().extension(), ".tmp") << entry.path();
    EXPECT_EQ(Run(LineOf(kHostCompiler, "my zentrik", "boiler") + "-fsyntax-only"), 0)
        << temp_.Content("said");
}

TEST_F(Compile, AWrongPathStandsInTheLogOfTheProject) {
    const std::string line = morv_test::GenerateSample("C:\\zentrik", kUtility);
    const std::string tail = " C:\\zentrik";
    ASSERT_TRUE(line.ends_with("  " + tail)) << line;
    const std::string start = line.substr(0, line.size() - tail.size() - 2);
    EXPECT_EQ(Run(ForShell(start + " C:\\nosuch  C:\\zentrik")), 2 << 8);
    EXPECT_EQ(temp_.Content("c/zentrik/boiler/zkcc.log"),
              "the Compiler Include, the Compiler Path or the work folder is not there: "
              "C:\\nosuch C:\\zentrik\r\nzkcc: failed\r\n");
    fs::remove(temp_.Path("c/zentrik/morv/apimorv.cpp"));
    EXPECT_EQ(Run(ForShell(line)), 2 << 8);
    EXPECT_EQ(temp_.Content("c/zentrik/boiler/zkcc.log").find("no apimorv.cpp in the MORV Path"),
              0u);
}

TEST_F(Compile, AUtilityThatCannotBeMadeStandsInTheLogOfTheProject) {
    // A file stands where the utility would be made.
    temp_.Put("taken", "");
    setenv("ZKCC_CACHE", temp_.Path("taken").c_str(), 1);
    for (const char* work : {"C:\\my zentrik", "C:\\zentrik"}) {
        const std::string line = morv_test::GenerateSample(work, kUtility);
        const std::string folder = "c/" + std::string(work + 3) + "/boiler/";
        temp_.Put(folder + "Apiboiler.exe", "before");
        EXPECT_EQ(Run(ForShell(line)), 1 << 8);
        const std::string log = temp_.Content(folder + "zkcc.log");
        EXPECT_NE(log.find("Not a directory\r\n"), std::string::npos) << log;
        EXPECT_TRUE(log.ends_with("\r\nzkcc is not made\r\nzkcc: failed\r\n")) << log;
        EXPECT_EQ(temp_.Content(folder + "Apiboiler.exe"), "before");
    }
    // Words that name no project have nowhere to leave it.
    EXPECT_EQ(Run(kUtility + " apimorv apimorv.rc noneR.cpp ddecom.cpp a b c"), 1 << 8);
    EXPECT_EQ(Run(kUtility), 1 << 8);
}

TEST_F(Compile, AnErrorInTheRulesStandsInTheLogWithItsLine) {
    const std::string line = morv_test::GenerateSample("C:\\zentrik", kUtility);
    const std::string path = "c/zentrik/boiler/boilerR.cpp";
    std::string source = temp_.Content(path);
    const std::string good = "deduce(&LOCKOUT, FULL);";
    const std::size_t at = source.find(good);
    ASSERT_NE(at, std::string::npos);
    const auto row =
        1 + std::count(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    temp_.Put(path, source.replace(at, good.size(), "deduce(&NOSUCH, FULL);"));
    EXPECT_NE(Run(ForShell(line)), 0);
    const std::string log = temp_.Content("c/zentrik/boiler/zkcc.log");
    EXPECT_NE(log.find("boilerR.cpp:" + std::to_string(row) + ":"), std::string::npos) << log;
    EXPECT_NE(log.find("NOSUCH"), std::string::npos) << log;
    EXPECT_TRUE(log.ends_with("zkcc: failed\r\n")) << log;
    EXPECT_FALSE(fs::exists(temp_.Path("c/zentrik/boiler/Apiboiler.exe")));
}

TEST_F(Compile, TheGoldenProjectsCompileWithoutAWarning) {
    int projects = 0;
    for (const fs::directory_entry& golden : fs::directory_iterator(kTop + "/tests/core/golden")) {
        if (!golden.is_directory())
            continue;
        const std::string name = golden.path().filename().string();
        SCOPED_TRACE(name);
        PutGolden(golden.path(), name);
        for (const std::string& compiler : {kWindowsCompiler, kHostCompiler})
            EXPECT_EQ(
                Run("cd " + temp_.Path("") + " && " + LineOf(compiler, "golden", name) + "-O1 -c"),
                0)
                << temp_.Content("said");
        fs::remove_all(temp_.Path("c/golden"));
        ++projects;
    }
    EXPECT_GE(projects, 2);
}

} // namespace
