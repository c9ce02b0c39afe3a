// The compiler utility for Windows, with programs that stand in for g++ and windres.
#include "tests/core/core_test.h"

#include <windows.h>

namespace {

namespace fs = std::filesystem;

fs::path OwnFolder() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return fs::path(path).parent_path();
}

void Put(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

std::string Content(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// A work folder whose paths have blanks, brackets and letters with accents.
class Utility : public testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(work_);
        Put(work_ / "morv" / "apimorv.cpp", "");
        fs::create_directories(include_);
        PutProject(project_);
        for (const char* tool : {"g++.exe", "windres.exe"}) {
            fs::create_directories(compilers_);
            fs::copy_file(OwnFolder() / "compiler_stand_in.exe", compilers_ / tool);
        }
        SetEnvironmentVariableA("PATH", "C:\\windows\\system32");
    }
    void TearDown() override {
        SetEnvironmentVariableA("STAND_IN_CODE", nullptr);
        fs::remove_all(work_);
    }

    static void PutProject(const fs::path& folder) {
        Put(folder / L"plant\u00e1R.h", "DATAFACTRESULT\r\n#endif\r\n");
        Put(folder / L"plant\u00e1R.cpp", "#include \"plantR.h\"\r\n");
    }

    // Starts the utility as Zentrik does, in the work folder.
    HANDLE Start(const fs::path& project, const std::wstring& include,
                 const std::wstring& compilers) const {
        const fs::path utility = OwnFolder().parent_path() / "zkcc.exe";
        std::wstring line = L"\"" + utility.wstring() +
                            L"\" apimorv apimorv.rc plant\u00e1R.cpp ddecom.cpp " +
                            (work_ / "morv").wstring() + L" " + project.wstring() + L" " + include +
                            L" " + compilers + L" " + work_.wstring();
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   work_.c_str(), &start, &process));
        CloseHandle(process.hThread);
        return process.hProcess;
    }

    static DWORD End(HANDLE process) {
        DWORD code = 99;
        EXPECT_EQ(WaitForSingleObject(process, 60000), WAIT_OBJECT_0);
        GetExitCodeProcess(process, &code);
        CloseHandle(process);
        return code;
    }

    DWORD Run(const std::wstring& compilers) const {
        return End(Start(project_, include_.wstring() + L"\\", compilers));
    }

    fs::path Program() const { return project_ / L"Apiplant\u00e1.exe"; }
    std::string Log() const { return Content(project_ / "zkcc.log"); }

    const fs::path work_ = L"C:\\zk utility";
    const fs::path project_ = work_ / L"f\u00e1brica (1)";
    const fs::path include_ = work_ / L"more headers";
    const fs::path compilers_ = work_ / L"mingw (x86)" / L"bin";
};

TEST_F(Utility, MakesTheProgramWithTheToolsOfTheCompilerPath) {
    EXPECT_EQ(Run(compilers_.wstring()), 0u);
    EXPECT_EQ(Log(),
              "the stand-in was here\r\nthe stand-in was here\r\nzkcc: made Apiplant\u00e1.exe\n");
    EXPECT_EQ(Content(Program()), "made");
    const std::string arguments = Content(compilers_ / "g++.args");
    for (const fs::path& path : {project_, work_ / "morv", fs::path(include_.wstring() + L"\\")})
        EXPECT_NE(arguments.find("-I\n" + path.string() + "\n"), std::string::npos) << arguments;
    // What is not whole yet stands in a folder of this run alone.
    for (const char* file : {".tmp\\rules.cpp\n", ".tmp\\resources.o\n", ".tmp\\program.exe\n"})
        EXPECT_NE(arguments.find(file), std::string::npos) << arguments;
    EXPECT_EQ(Content(compilers_ / "windres.args").find("apimorv.rc\n"), 0u);
    for (const auto& entry : fs::directory_iterator(project_))
        EXPECT_NE(entry.path().extension(), ".tmp") << entry.path();
}

TEST_F(Utility, FindsTheToolsInThePathToo) {
    SetEnvironmentVariableW(L"PATH", compilers_.c_str());
    EXPECT_EQ(Run(L""), 0u);
    EXPECT_TRUE(Log().ends_with("zkcc: made Apiplant\u00e1.exe\n")) << Log();
}

TEST_F(Utility, SaysThatThereIsNoCompiler) {
    EXPECT_EQ(Run(L""), 1u);
    EXPECT_EQ(Log().find("no windres found: "), 0u) << Log();
    EXPECT_TRUE(Log().ends_with("zkcc: failed\n")) << Log();
    fs::remove(compilers_ / "g++.exe");
    SetEnvironmentVariableW(L"PATH", compilers_.c_str());
    EXPECT_EQ(Run(L""), 1u);
    EXPECT_NE(Log().find("\nno g++ found: "), std::string::npos) << Log();
}

TEST_F(Utility, SaysWhatTheCompilerSaidAndKeepsTheProgramThatIsThere) {
    Put(Program(), "earlier");
    SetEnvironmentVariableA("STAND_IN_CODE", "3");
    EXPECT_EQ(Run(compilers_.wstring()), 1u);
    EXPECT_EQ(Log(), "the stand-in was here\r\nwindres ended with 3\nzkcc: failed\n");
    EXPECT_EQ(Content(Program()), "earlier");
}

TEST_F(Utility, TwoRunsDoNotDisturbEachOther) {
    HANDLE runs[4];
    for (HANDLE& run : runs)
        run = Start(project_, L"", compilers_.wstring());
    for (HANDLE run : runs)
        EXPECT_EQ(End(run), 0u) << Log();
    EXPECT_EQ(Content(Program()), "made");
}

// The folder of a project in the root of a drive is named without a backslash.
TEST_F(Utility, AProjectMayStandInTheRootOfADrive) {
    PutProject("C:\\");
    EXPECT_EQ(End(Start("C:", L"", compilers_.wstring())), 0u);
    EXPECT_EQ(Content(L"C:\\Apiplant\u00e1.exe"), "made");
}

} // namespace
