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

std::string Log() {
    return Content(kProgram + ".log");
}

// Facts and results come out by request, and by a hot link when they change.
void ExpectStatesOut() {
    const auto request = [](const char* name) {
        zentrik_test::DdeClient client;
        EXPECT_TRUE(client.Connect("apiboiler", "boiler"));
        return client.Request(name);
    };
    EXPECT_EQ(request("HIGH_PRESSURE"), "1 HIGH");
    EXPECT_EQ(request("Pressure"), "11.5 VERYHIGH");
    EXPECT_EQ(request("FLAME_STABLE"), "0 NULL");
    zentrik_test::DdeClient client;
    EXPECT_TRUE(client.Connect("apiboiler", "boiler"));
    EXPECT_TRUE(client.Advise("HIGH_PRESSURE"));
    client.Poke("Pressure", "7,5");
    EXPECT_TRUE(WaitFor(30, [&] { return !client.Advised().empty(); }));
    EXPECT_EQ(client.Advised(), std::vector<std::string>{"HIGH_PRESSURE = 0 NULL"});
    client.Poke("Pressure", "11,5");
    EXPECT_TRUE(WaitFor(30, [&] { return client.Advised().size() > 1; }));
    EXPECT_EQ(client.Advised().back(), "HIGH_PRESSURE = 1 HIGH");
}

// What is typed is done, and its answer shown and logged.
void ExpectCommands(HWND window) {
    const HWND entry = FindWindowExA(window, nullptr, "EDIT", nullptr);
    const auto type = [&](const std::string& line) {
        SendMessageA(entry, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(line.c_str()));
        PostMessageA(entry, WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_TRUE(WaitFor(30, [&] { return Log().find(": " + line) != std::string::npos; }));
    };
    type("trace off");
    type("hold");
    type("poke Pressure 11,25");
    type("tick");
    type("why HIGH_PRESSURE");
    type("show Pressure");
    EXPECT_TRUE(
        WaitFor(30, [] { return Log().find("Pressure 11.25 VERYHIGH\r\n") != std::string::npos; }));
    const std::string log = Log();
    const std::string why = log.substr(log.find(": why HIGH_PRESSURE"));
    EXPECT_NE(why.find("11.25"), std::string::npos) << why;
}

TEST(BuiltProgram, IsMadeByTheUtilityAndServesDde) {
    const std::string line =
        morv_test::GenerateSample(kWork, '"' + std::string(SOURCE_FOLDER) + "/morv/zkcc\"");
    Close(Start(line));
    const std::string log = std::string(kWork) + "\\boiler\\zkcc.log";
    ASSERT_TRUE(WaitFor(180, [&] { return Content(log).find("zkcc: ") != std::string::npos; }));
    ASSERT_EQ(Content(log), "zkcc: made Apiboiler.exe\r\n");

    SetEnvironmentVariableA("MORV_PERIOD", "200");
    const Running program('"' + kProgram + ".exe\" /trace");
    const auto says = [](const std::string& text) {
        return [text] { return Log().find(text) != std::string::npos; };
    };
    ASSERT_TRUE(WaitFor(60, says("Apiboiler starts")));
    EXPECT_FALSE(says("Steam pressure is high")());

    zentrik_test::DdeClient client;
    EXPECT_FALSE(client.Connect("apiboiler", "another"));
    ASSERT_TRUE(WaitFor(30, [&] { return client.Connect("apiboiler", "boiler"); }));
    client.Poke("NoSuchItem", "1"); // what it returns depends on the system
    // What was poked last before a tick is what it sees, without the end of its line.
    client.Poke("Pressure", "12", CF_OEMTEXT);
    EXPECT_TRUE(client.Poke("Pressure", "11.5\r\n"));
    client.Poke("DrumLevel", std::string(1000, '9'));
    EXPECT_TRUE(client.Poke("DrumLevel", "30,5"));
    EXPECT_TRUE(WaitFor(30, says("> Steam pressure is high"))) << Log();
    EXPECT_TRUE(says("initial Pressure = 11.5 bar, high (VERYHIGH)")());
    EXPECT_TRUE(says("Poke: Pressure = 11.5\r\n")());
    EXPECT_FALSE(says("Poke: Pressure = 12")());
    EXPECT_TRUE(says("Poke refused: there is no item NoSuchItem\r\n")());
    EXPECT_TRUE(says("Poke: DrumLevel = 30.5\r\n")());
    EXPECT_TRUE(says("Poke refused: DrumLevel = 9999")());
    ExpectStatesOut();

    const HWND window = FindWindowA("MorvProgram", "Apiboiler");
    ASSERT_NE(window, nullptr);
    const HWND list = FindWindowExA(window, nullptr, "LISTBOX", nullptr);
    ExpectFontOfDialogs(list);
    ExpectListStays(list);
    ExpectCommands(window);
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(program.process.hProcess, 20000), WAIT_OBJECT_0);
    EXPECT_TRUE(Log().ends_with(" Apiboiler ends\r\n")) << Log();
}

// Runs the program for some ticks. Returns what it adds to its log.
std::string LogOfTicks(const char* ticks) {
    SetEnvironmentVariableA("MORV_PERIOD", "50");
    SetEnvironmentVariableA("MORV_TICKS", ticks);
    const std::string before = Log();
    const Running program('"' + kProgram + ".exe\"");
    EXPECT_EQ(WaitForSingleObject(program.process.hProcess, 60000), WAIT_OBJECT_0);
    DWORD code = 1;
    EXPECT_TRUE(GetExitCodeProcess(program.process.hProcess, &code));
    EXPECT_EQ(code, 0u);
    const std::string log = Log();
    EXPECT_EQ(log.substr(0, before.size()), before) << "the log goes on";
    return log.substr(before.size());
}

TEST(BuiltProgram, EndsByItselfAfterItsTicksAndTracesWhenToldTo) {
    ASSERT_TRUE(fs::exists(kProgram + ".exe")) << "the test before makes it";
    std::string log = LogOfTicks("3");
    const std::string waiting = "> Waiting for the first reading of the plant";
    EXPECT_NE(log.find(waiting), std::string::npos) << log;
    EXPECT_EQ(log.find(waiting), log.rfind(waiting)) << log;
    EXPECT_EQ(log.find("initial Pressure"), std::string::npos) << log;
    SetEnvironmentVariableA("MORV_TRACE", "1");
    log = LogOfTicks("2");
    EXPECT_NE(log.find("initial Pressure = 0 bar"), std::string::npos) << log;
}

} // namespace
