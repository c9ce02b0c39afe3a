// The main program of a built expert system: a window that shows what the rules say, a clock that
// runs a tick a second, and the DDE server. Everything shown also goes to <program>.log beside the
// program.
//     MORV_TRACE=1 or /trace     every rule tells its conditions and conclusions
//     MORV_TICKS=n               ends after n ticks
//     MORV_PERIOD=ms             the time from tick to tick
#include "dde_server.h"
#include "explain.h"
#include "program_log.h"
#include "program_window.h"
#include "shell.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <windows.h>

namespace {

std::unique_ptr<morv::ProgramLog> g_log;

long NumberOf(const char* variable, long otherwise) {
    const char* text = std::getenv(variable);
    const long number = text != nullptr ? std::strtol(text, nullptr, 10) : 0;
    return number > 0 ? number : otherwise;
}

std::wstring ProgramPath() {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole(path, length < MAX_PATH ? length : 0);
    return whole.substr(0, whole.rfind(L'.'));
}

// The name of the program, as the window's class knows it.
std::string Title(const std::wstring& program) {
    char name[MAX_PATH] = {};
    WideCharToMultiByte(CP_ACP, 0, program.c_str() + program.find_last_of(L"\\/") + 1, -1, name,
                        sizeof name - 1, nullptr, nullptr);
    return name;
}

std::string DayAndTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", now.wYear, now.wMonth,
                  now.wDay, now.wHour, now.wMinute, now.wSecond);
    return text;
}

} // namespace

void morv::Output(const std::string& line) {
    if (g_log != nullptr)
        g_log->Write(line);
    ShowLine(line);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR arguments, int show) {
    const char* trace = std::getenv("MORV_TRACE");
    morv::SetTrace((trace != nullptr && std::strcmp(trace, "1") == 0) ||
                   std::strstr(arguments, "/trace") != nullptr);
    morv::SetClock([] {
        const std::string now = DayAndTime();
        return now.substr(now.find(' ') + 1);
    });
    const std::wstring program = ProgramPath();
    g_log = std::make_unique<morv::ProgramLog>(program + L".log", DayAndTime);
    morv::Output(Title(program) + " starts");
    const WindowUse use{Title(program), show, static_cast<UINT>(NumberOf("MORV_PERIOD", 1000)),
                        NumberOf("MORV_TICKS", 0), [] { g_log->Flush(); }};
    if (!OpenProgramWindow(instance, use))
        return 1;
    ShowLine("help, typed below, lists the commands");
    if (!g_log->IsOpen())
        ShowLine("the log cannot be written");
    if (!StartDdeServer())
        morv::Output("DDE does not start");
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    StopDdeServer();
    morv::Output(Title(program) + " ends");
    g_log.reset();
    return 0;
}
