// The whole way under Wine: the compiler utility is started as Zentrik starts it, the program that
// it makes is run, and another program pokes an item into it by DDE.
#include "tests/core/core_test.h"
#include "tests/dde_client.h"
#include "tests/morv/generated.h"

#include <functional>

namespace {

namespace fs = std::filesystem;

constexpr char kWork[] = "C:\\zentrik morv";
const std::string kProgram = std::string(kWork) + "\\boiler\\Apiboiler";

bool WaitFor(int seconds, const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageA(&message);
    }
    return true;
}

std::string Content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

PROCESS_INFORMATION Start(std::string line) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                               nullptr, nullptr, &start, &process))
        << line << " " << GetLastError();
    return process;
}

void Close(const PROCESS_INFORMATION& process) {
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

// Ends the program when the test does.
struct Running {
    explicit Running(const std::string& line) : process(Start(line)) {}
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        TerminateProcess(process.hProcess, 1);
        Close(process);
    }
    PROCESS_INFORMATION process;
};

// The rows are as high as the font of dialogs is.
void ExpectFontOfDialogs(HWND list) {
    HDC screen = GetDC(nullptr);
    const int height = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
    HFONT font = CreateFontA(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                             0, 0, "MS Shell Dlg");
    HGDIOBJ before = SelectObject(screen, font);
    TEXTMETRICA metrics{};
    GetTextMetricsA(screen, &metrics);
    EXPECT_EQ(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0), metrics.tmHeight);
    SelectObject(screen, before);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
}

// New lines come into sight only when the last one was.
void ExpectListStays(HWND list) {
    const auto ask = [list](UINT message) { return SendMessageA(list, message, 0, 0); };
    const auto await_lines = [&] {
        const LRESULT before = ask(LB_GETCOUNT);
        EXPECT_TRUE(WaitFor(30, [&] { return ask(LB_GETCOUNT) > before + 50; }));
    };
    await_lines();
    EXPECT_GT(ask(LB_GETTOPINDEX), 0);
    EXPECT_GT(ask(LB_GETHORIZONTALEXTENT), 100);
    SendMessageA(list, LB_SETTOPINDEX, 3, 0);
    await_lines();
    EXPECT_EQ(ask(LB_GETTOPINDEX), 3);
    SendMessageA(list, LB_SETTOPINDEX, static_cast<WPARAM>(ask(LB_GETCOUNT) - 1), 0);
    SetWindowPos(GetParent(list), nullptr, 0, 0, 400, 200, SWP_NOMOVE | SWP_NOZORDER);
    await_lines();
    EXPECT_GT(ask(LB_GETTOPINDEX), ask(LB_GETCOUNT) - 30);
}

TEST(BuiltProgram, IsMadeByTheUtilityAndServesDde) {
    const std::string line =
        morv_test::GenerateSample(kWork, '"' + std::string(SOURCE_FOLDER) + "/morv/zkcc\"");
    Close(Start(line));
    const std::string log = std::string(kWork) + "\\boiler\\zkcc.log";
    ASSERT_TRUE(WaitFor(180, [&] { return Content(log).find("zkcc: ") != std::string::npos; }));
    ASSERT_EQ(Content(log), "zkcc: made Apiboiler.exe\n");

    SetEnvironmentVariableA("MORV_PERIOD", "200");
    const Running program('"' + kProgram + ".exe\" /trace");
    const auto says = [](const std::string& text) {
        return [text] { return Content(kProgram + ".log").find(text) != std::string::npos; };
    };
    ASSERT_TRUE(WaitFor(60, says("Tick 1: ")));
    EXPECT_FALSE(says("Steam pressure is high")());

    zentrik_test::DdeClient client;
    EXPECT_FALSE(client.Connect("apiboiler", "another"));
    ASSERT_TRUE(WaitFor(30, [&] { return client.Connect("apiboiler", "boiler"); }));
    client.Poke("NoSuchItem", "1"); // what it returns depends on the system
    // What was poked last before a tick is what it sees, without the end of its line.
    client.Poke("Pressure", "12", CF_OEMTEXT);
    EXPECT_TRUE(client.Poke("Pressure", "11.5\r\n"));
    EXPECT_TRUE(client.Poke("DrumLevel", std::string(1000, '9')));
    EXPECT_TRUE(WaitFor(30, says("> Steam pressure is high"))) << Content(kProgram + ".log");
    EXPECT_TRUE(says("initial Pressure = 11.5 bar, high (VERYHIGH)")());
    EXPECT_TRUE(says("Poke: Pressure = 11.5\r\n")());
    EXPECT_FALSE(says("Poke: Pressure = 12")());
    EXPECT_FALSE(says("NoSuchItem")());

    const HWND window = FindWindowA("MorvProgram", "Apiboiler");
    ASSERT_NE(window, nullptr);
    const HWND list = FindWindowExA(window, nullptr, "LISTBOX", nullptr);
    ExpectFontOfDialogs(list);
    ExpectListStays(list);
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(program.process.hProcess, 20000), WAIT_OBJECT_0);
}

// Runs the program for some ticks. Returns its log.
std::string LogOfTicks(const char* ticks) {
    SetEnvironmentVariableA("MORV_PERIOD", "50");
    SetEnvironmentVariableA("MORV_TICKS", ticks);
    const Running program('"' + kProgram + ".exe\"");
    EXPECT_EQ(WaitForSingleObject(program.process.hProcess, 60000), WAIT_OBJECT_0);
    DWORD code = 1;
    EXPECT_TRUE(GetExitCodeProcess(program.process.hProcess, &code));
    EXPECT_EQ(code, 0u);
    return Content(kProgram + ".log");
}

TEST(BuiltProgram, EndsByItselfAfterItsTicksAndTracesWhenToldTo) {
    ASSERT_TRUE(fs::exists(kProgram + ".exe")) << "the test before makes it";
    std::string log = LogOfTicks("3");
    EXPECT_NE(log.find("Tick 3: "), std::string::npos) << log;
    EXPECT_EQ(log.find("Tick 4: "), std::string::npos) << log;
    EXPECT_EQ(log.find("initial Pressure"), std::string::npos) << log;
    SetEnvironmentVariableA("MORV_TRACE", "1");
    log = LogOfTicks("1");
    EXPECT_NE(log.find("initial Pressure = 0 bar"), std::string::npos) << log;
}

} // namespace
