// The compiler utility for Windows, with programs that stand in for g++ and windres.
#include "tests/core/core_test.h"

#include <functional>
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

bool WaitFor(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 60000;
    while (!condition() && GetTickCount64() < end)
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
    return condition();
}

// A work folder whose paths have blanks, brackets and letters with accents.
class Utility : public testing::Test {
protected:
    void SetUp() override {
        RemoveWork();
        Put(work_ / "morv" / "apimorv.cpp", "");
        fs::create_directories(include_);
        PutProject(project_);
        for (const char* tool : {"g++.exe", "windres.exe"}) {
            fs::create_directories(compilers_);
            fs::copy_file(OwnFolder() / "compiler_stand_in.exe", compilers_ / tool);
        }
        SetEnvironmentVariableA("PATH", "C:\\windows\\system32");
        SetEnvironmentVariableA("ZKCC_SHOW", "no");
    }
    void TearDown() override {
        for (const char* variable : {"STAND_IN_CODE", "STAND_IN_WAITS", "ZKCC_SHOW"})
            SetEnvironmentVariableA(variable, nullptr);
        RemoveWork();
    }

    // A program that has ended may have its files open for a moment still.
    void RemoveWork() const {
        EXPECT_TRUE(WaitFor([this] {
            std::error_code error;
            fs::remove_all(work_, error);
            return !fs::exists(work_, error);
        }));
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
    EXPECT_EQ(Log(), "zkcc: made Apiplant\u00e1.exe\r\n");
    EXPECT_EQ(Content(Program()), "made");
    const std::string arguments = Content(compilers_ / "g++.args");
    for (const fs::path& path : {project_, work_ / "morv", fs::path(include_.wstring() + L"\\")})
        EXPECT_NE(arguments.find("-I\n" + path.string() + "\n"), std::string::npos) << arguments;
    for (const char* text : {"rules.cpp\n", "apimorv.cpp\n", "-MMD\n", "-static\n"})
        EXPECT_NE(arguments.find(text), std::string::npos) << text << arguments;
    EXPECT_EQ(Content(compilers_ / "windres.args").find("apimorv.rc\n"), 0u);
    // What is not whole yet has the name of this run in it, and goes.
    for (const auto& entry : fs::directory_iterator(project_ / "zkcc.cache"))
        EXPECT_NE(entry.path().extension(), ".made") << entry.path();
}

TEST_F(Utility, FindsTheToolsInThePathToo) {
    SetEnvironmentVariableW(L"PATH", compilers_.c_str());
    EXPECT_EQ(Run(L""), 0u);
    EXPECT_TRUE(Log().ends_with("zkcc: made Apiplant\u00e1.exe\r\n")) << Log();
}

TEST_F(Utility, SaysThatThereIsNoCompiler) {
    EXPECT_EQ(Run(L""), 1u);
    EXPECT_EQ(Log().find("no windres found: "), 0u) << Log();
    EXPECT_TRUE(Log().ends_with("zkcc: failed\r\n")) << Log();
    fs::remove(compilers_ / "g++.exe");
    SetEnvironmentVariableW(L"PATH", compilers_.c_str());
    EXPECT_EQ(Run(L""), 1u);
    EXPECT_NE(Log().find("no g++ found: "), std::string::npos) << Log();
}

TEST_F(Utility, SaysWhatTheCompilerSaidAndKeepsTheProgramThatIsThere) {
    Put(Program(), "earlier");
    SetEnvironmentVariableA("STAND_IN_CODE", "3");
    EXPECT_EQ(Run(compilers_.wstring()), 1u);
    EXPECT_NE(Log().find("the stand-in was here\r\n"), std::string::npos) << Log();
    EXPECT_TRUE(Log().ends_with("g++ ended with 3\r\nzkcc: failed\r\n")) << Log();
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

// A copy of the stand-in is a program that runs until its event comes.
TEST_F(Utility, MovesAProgramThatRunsAside) {
    fs::copy_file(OwnFolder() / "compiler_stand_in.exe", Program());
    const HANDLE event = CreateEventA(nullptr, TRUE, FALSE, "zkcc running");
    SetEnvironmentVariableA("STAND_IN_WAITS", "zkcc running");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION running{};
    ASSERT_TRUE(CreateProcessW(Program().c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &start, &running));
    SetEnvironmentVariableA("STAND_IN_WAITS", nullptr);
    EXPECT_EQ(Run(compilers_.wstring()), 0u);
    EXPECT_EQ(Log(), "zkcc: made Apiplant\u00e1.exe\r\n");
    EXPECT_EQ(Content(Program()), "made");
    DWORD code = 0;
    GetExitCodeProcess(running.hProcess, &code);
    EXPECT_EQ(code, DWORD{STILL_ACTIVE});
    SetEvent(event);
    CloseHandle(running.hThread);
    End(running.hProcess);
    CloseHandle(event);
    EXPECT_EQ(Run(compilers_.wstring()), 0u);
    for (const auto& entry : fs::directory_iterator(project_ / "zkcc.cache"))
        EXPECT_NE(entry.path().extension(), ".running") << entry.path();
}

// The window of the utility that can be seen; nullptr when there is none.
HWND Shown() {
    const HWND window = FindWindowA("#32770", "Compile");
    return window != nullptr && IsWindowVisible(window) ? window : nullptr;
}

std::string TextOf(HWND control) {
    char text[1000] = "";
    SendMessageA(control, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

constexpr int kWorkLine = 100, kMessage = 101, kMessages = 102; // the window's controls

TEST_F(Utility, ShowsThatItWorksAndClosesBySuccess) {
    SetEnvironmentVariableA("ZKCC_SHOW", nullptr);
    const HANDLE event = CreateEventA(nullptr, TRUE, FALSE, "zkcc works");
    SetEnvironmentVariableA("STAND_IN_WAITS", "zkcc works");
    const HANDLE run = Start(project_, L"", compilers_.wstring());
    ASSERT_TRUE(WaitFor([] { return Shown() != nullptr; }));
    EXPECT_TRUE(WaitFor([] {
        return TextOf(GetDlgItem(Shown(), kWorkLine)).find("Compiling Apiplant") == 0;
    })) << TextOf(GetDlgItem(Shown(), kWorkLine));
    SetEvent(event);
    EXPECT_EQ(End(run), 0u);
    EXPECT_TRUE(WaitFor([] { return FindWindowA("#32770", "Compile") == nullptr; }));
    CloseHandle(event);
}

TEST_F(Utility, ShowsWhatFailedUntilItIsClosed) {
    SetEnvironmentVariableA("ZKCC_SHOW", nullptr);
    Put(project_ / L"plant\u00e1R.h", "DATAFACTRESULT\r\nGOOD,\r\nFULL,\r\nclass;\r\n#endif\r\n");
    EXPECT_EQ(End(Start(project_, L"", compilers_.wstring())), 1u);
    ASSERT_TRUE(
        WaitFor([] { return Shown() != nullptr && GetDlgItem(Shown(), kMessages) != nullptr; }));
    const HWND window = Shown(), list = GetDlgItem(window, kMessages);
    EXPECT_TRUE(TextOf(GetDlgItem(window, kWorkLine)).ends_with(" is not made"));
    EXPECT_TRUE(TextOf(GetDlgItem(window, kMessage))
                    .ends_with(":3: the result FULL is called like a certainty"))
        << TextOf(GetDlgItem(window, kMessage));
    ASSERT_GE(SendMessageA(list, LB_GETCOUNT, 0, 0), 2);
    wchar_t row[1000] = L"";
    SendMessageW(list, LB_GETTEXT, 1, reinterpret_cast<LPARAM>(row));
    EXPECT_TRUE(std::wstring(row).ends_with(L":4: the result class is a keyword of C++"));
    PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(WaitFor([] { return FindWindowA("#32770", "Compile") == nullptr; }));
}

// What failed stays to be read until the next run knows better.
TEST_F(Utility, TheNextRunClosesTheFailureBeforeIt) {
    SetEnvironmentVariableA("ZKCC_SHOW", nullptr);
    const auto failures = [] {
        int count = 0;
        for (HWND window = nullptr;
             (window = FindWindowExA(nullptr, window, "#32770", "Compile")) != nullptr;)
            count += GetDlgItem(window, kMessages) != nullptr && IsWindowVisible(window);
        return count;
    };
    SetEnvironmentVariableA("STAND_IN_CODE", "3");
    EXPECT_EQ(Run(compilers_.wstring()), 1u);
    ASSERT_TRUE(WaitFor([&] { return failures() == 1; }));
    const HWND first = Shown();
    Put(project_ / L"plant\u00e1R.h", "DATAFACTRESULT\r\nFULL;\r\n#endif\r\n");
    EXPECT_EQ(Run(compilers_.wstring()), 1u);
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(first) && failures() == 1; }));
    PutProject(project_);
    SetEnvironmentVariableA("STAND_IN_CODE", nullptr);
    EXPECT_EQ(Run(compilers_.wstring()), 0u);
    EXPECT_TRUE(WaitFor([] { return FindWindowA("#32770", "Compile") == nullptr; }));
}

// The folder of a project in the root of a drive is named without a backslash.
TEST_F(Utility, AProjectMayStandInTheRootOfADrive) {
    PutProject("C:\\");
    EXPECT_EQ(End(Start("C:", L"", compilers_.wstring())), 0u);
    EXPECT_EQ(Content(L"C:\\Apiplant\u00e1.exe"), "made");
}

} // namespace
