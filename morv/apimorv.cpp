// The main program of a built expert system: a window that shows what the rules say, a clock that
// runs a tick a second, and the DDE server. Everything shown also goes to <program>.log beside the
// program.
//     MORV_TRACE=1 or /trace     every rule tells its conditions and conclusions
//     MORV_TICKS=n               ends after n ticks
//     MORV_PERIOD=ms             the time from tick to tick
#include "dde_server.h"
#include "output_list.h"
#include "shell.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <windows.h>

namespace {

constexpr char kClass[] = "MorvProgram";
constexpr UINT_PTR kClock = 1;

HWND g_list = nullptr;
std::FILE* g_log = nullptr;
long g_ticks_left = 0; // 0: no end

long NumberOf(const char* variable, long otherwise) {
    const char* text = std::getenv(variable);
    const long number = text != nullptr ? std::strtol(text, nullptr, 10) : 0;
    return number > 0 ? number : otherwise;
}

std::string ProgramPath() {
    char path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string whole(path, length < sizeof path ? length : 0);
    return whole.substr(0, whole.rfind('.'));
}

void OneTick(HWND window) {
    {
        const ListUpdate update(g_list);
        morv::Tick();
    }
    if (g_ticks_left > 0 && --g_ticks_left == 0)
        DestroyWindow(window);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        g_list = MakeOutputList(window);
        return g_list != nullptr ? 0 : -1;
    case WM_SIZE: {
        const ListUpdate update(g_list);
        MoveWindow(g_list, 0, 0, LOWORD(lParam), HIWORD(lParam), FALSE);
        return 0;
    }
    case WM_TIMER:
        OneTick(window);
        return 0;
    case WM_DESTROY:
        KillTimer(window, kClock);
        g_list = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeWindow(HINSTANCE instance, const std::string& title, int show) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursor(nullptr, IDC_ARROW);
    window_class.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
    window_class.lpszClassName = kClass;
    RegisterClassA(&window_class);
    const HWND window = CreateWindowA(kClass, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 700, 480, nullptr, nullptr, instance, nullptr);
    if (window != nullptr)
        ShowWindow(window, show);
    return window;
}

} // namespace

void morv::Output(const std::string& line) {
    if (g_log != nullptr) {
        std::fprintf(g_log, "%s\n", line.c_str());
        std::fflush(g_log);
    }
    if (g_list != nullptr)
        AddOutputLine(g_list, line);
}

void put_box(const char* text) {
    morv::Output(std::string("> ") + text);
}

void put_box(char* text) {
    put_box(static_cast<const char*>(text));
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR arguments, int show) {
    const char* trace = std::getenv("MORV_TRACE");
    morv::SetTrace((trace != nullptr && std::strcmp(trace, "1") == 0) ||
                   std::strstr(arguments, "/trace") != nullptr);
    g_ticks_left = NumberOf("MORV_TICKS", 0);
    const std::string program = ProgramPath();
    g_log = std::fopen((program + ".log").c_str(), "w");
    const HWND window = MakeWindow(instance, program.substr(program.find_last_of("\\/") + 1), show);
    if (window == nullptr)
        return 1;
    if (!StartDdeServer())
        morv::Output("DDE does not start");
    SetTimer(window, kClock, static_cast<UINT>(NumberOf("MORV_PERIOD", 1000)), nullptr);
    OneTick(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    StopDdeServer();
    if (g_log != nullptr)
        std::fclose(g_log);
    return 0;
}
