// The program's entry: window classes, the frame window and the message loop.
#include "shell/services/ZENTRIK.h"

#include "build/tools.h"
#include "project/project_commands.h"
#include "project/ZENPRO.h"
#include "shell/commands.h"
#include "shell/core/files.h"
#include "shell/core/messages.h"
#include "shell/mdi_windows.h"
#include "shell/services/dialog.h"
#include "shell/services/editor.h"
#include "shell/services/guarded.h"
#include "shell/services/handles.h"
#include "shell/services/help.h"
#include "shell/services/mdi.h"
#include "shell/services/menu.h"
#include "shell/services/message_box.h"
#include "shell/services/VARMORV.h"
#include "shell/toolbar.h"
#include "system/ZENSYS.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

constexpr char kTitle[] = "Zentrik 2.0a";
constexpr int kToolbarHeight = 33;
constexpr int kClientTop = kToolbarHeight + 1;
constexpr int kClientLess = 73; // the desktop's height less this is the client's
constexpr int kWindowsMenu = 7; // position of the menu that lists the children

LRESULT CALLBACK WindowFunc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

struct WindowClass {
    const char* name;
    WNDPROC procedure;
    int icon; // 0: the system's
    int background;
    const char* menu;
};

constexpr WindowClass kClasses[] = {
    {"ZentrikWin", WindowFunc, ICON_FRAME, GRAY_BRUSH, "Zentrik_Menu"},
    {"Main", MdiFunc, ICON_EDITOR, GRAY_BRUSH, nullptr},
    {"Projec", MdiFunc2, ICON_PROJECT, GRAY_BRUSH, nullptr},
    {"Dial", MdiFunc3, ICON_SYSTEM, GRAY_BRUSH, nullptr},
    {"Message", MdiFunc4, ICON_MESSAGES, GRAY_BRUSH, nullptr},
    {"Buttons", MdiFunc5, 0, LTGRAY_BRUSH, nullptr},
};

bool Register(const WindowClass& type) {
    WNDCLASSA window{};
    window.style = CS_HREDRAW | CS_VREDRAW;
    window.lpfnWndProc = type.procedure;
    window.hInstance = hInst;
    window.hIcon = type.icon ? LoadIconA(hInst, MAKEINTRESOURCEA(type.icon))
                             : LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    window.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    window.hbrBackground = static_cast<HBRUSH>(GetStockObject(type.background));
    window.lpszMenuName = type.menu;
    window.lpszClassName = type.name;
    return RegisterClassA(&window) != 0;
}

int IsWindowsNt() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT ? 1 : 0;
}

void Layout() {
    RECT desktop;
    GetWindowRect(GetDesktopWindow(), &desktop);
    const int width = desktop.right - desktop.left;
    constexpr UINT kFlags = SWP_NOZORDER | SWP_SHOWWINDOW;
    if (nt == 0)
        SetWindowPos(hTool, nullptr, desktop.left, desktop.top, width, kToolbarHeight, kFlags);
    // On Windows NT, which has no toolbar, its place stays empty.
    SetWindowPos(hMdiC, nullptr, desktop.left, desktop.top + kClientTop, width,
                 desktop.bottom - (desktop.top + kClientLess), kFlags);
}

void CreateToolbar(HWND frame) {
    hTool = CreateWindowExA(0, "Buttons", "", WS_CHILD, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, frame, nullptr, hInst, nullptr);
    if (!hTool)
        ShowMessage(frame, "Error creacio ToolBar", kTitle);
    ShowWindow(hTool, SW_SHOW);
}

void CreateClient(HWND frame) {
    CLIENTCREATESTRUCT create{};
    create.hWindowMenu = GetSubMenu(GetMenu(frame), kWindowsMenu);
    create.idFirstChild = MdiChFirstIdent;
    hMdiC =
        CreateWindowExA(0, "MDICLIENT", nullptr,
                        WS_CHILD | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL | MDIS_ALLCHILDSTYLES,
                        0, 0, 0, 0, frame, nullptr, hInst, &create);
    if (!hMdiC)
        ShowMessage(frame, "Error creacio finestra MdiClient", kTitle);
    ShowWindow(hMdiC, SW_SHOW);
}

LRESULT OnCreate(HWND frame) {
    hFrame = frame;
    if (nt == 0)
        CreateToolbar(frame);
    CreateClient(frame);
    Layout();
    return 0;
}

LRESULT OnPaint(HWND frame) {
    Layout();
    PAINTSTRUCT paint;
    BeginPaint(frame, &paint);
    EndPaint(frame, &paint);
    return 0;
}

// The client fills the frame and covers the toolbar, until Layout puts both to their places when
// the frame is painted.
LRESULT OnSize(int width, int height) {
    MoveWindow(hMdiC, 0, 0, width, height, TRUE);
    return 0;
}

LRESULT OnCommand(HWND frame, WPARAM wParam, LPARAM lParam) {
    const auto commands = Commands();
    const auto command = std::ranges::find(commands, LOWORD(wParam), &Command::id);
    if (command != commands.end())
        command->run(frame);
    else
        DefFrameProcA(frame, hMdiC, WM_COMMAND, wParam, lParam);
    return 0;
}

LRESULT OnDestroy(HWND frame) {
    UpdateWindow(frame);
    ShowMessage(nullptr, "Copyright (c) 1999 the Zentrik project", "Zentrik");
    PostQuitMessage(0);
    return 0;
}

LRESULT FrameProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    nt = IsWindowsNt();
    switch (message) {
    case WM_CREATE:
        return OnCreate(hwnd);
    case WM_PAINT:
        return OnPaint(hwnd);
    case WM_SIZE:
        return OnSize(LOWORD(lParam), HIWORD(lParam));
    case WM_COMMAND:
        return OnCommand(hwnd, wParam, lParam);
    case WM_ACTIVATE:
        TellFrontChanged();
        break;
    case WM_SYSCOMMAND:
        if ((wParam & 0xFFF0) != SC_CLOSE)
            break;
        [[fallthrough]];
    case WM_CLOSE:
        ExitZentrik(hwnd);
        return 0;
    case WM_QUERYENDSESSION:
        return MayEndSession(hwnd) ? TRUE : FALSE;
    case WM_DESTROY:
        return OnDestroy(hwnd);
    }
    return DefFrameProcA(hwnd, hMdiC, message, wParam, lParam);
}

LRESULT CALLBACK WindowFunc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return Guarded([&] { return FrameProc(hwnd, message, wParam, lParam); });
}

// The folder the program was started in. Its path must fit a name with room for the files in it,
// and have letters of the system's code page only; the user hears of another one at once, for
// nothing could be kept there.
void FindWorkPath() {
    constexpr std::size_t kLongest = kNameSize - sizeof "\\temp\\a.ikw";
    wchar_t folder[MAX_PATH * 4] = L"";
    GetCurrentDirectoryW(static_cast<DWORD>(std::size(folder)), folder);
    char path[MAX_PATH * 4] = "";
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, folder, -1, path, sizeof path, nullptr,
                        &lost);
    std::string name = path;
    if (name.ends_with('\\'))
        name.pop_back();
    if (lost || name.empty() || name.size() > kLongest)
        ShowMessage(nullptr, "The start folder can not be used", "WARNING", Buttons::Ok,
                    Icon::Stop);
    SetText(WorkPath, name);
}

// Starts the commands' side of the program.
void ProjectBegin(HWND hwnd) {
    Project.Init();
    System.Init();
    EditState = 0;
    FindWorkPath();
    LoadTools();
    const std::string temp = Text(WorkPath) + "\\temp";
    files::RemoveFolder(temp.c_str()); // one that is not empty stays, with its old files
    files::MakeFolder(temp.c_str());
    for (int group = kProjectItems; group <= kSystemFacts; ++group)
        GrayMenu(hwnd, group);
}

HWND CreateFrame() {
    const HWND frame =
        CreateWindowExA(0, "ZentrikWin", kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, hInst, nullptr);
    if (!frame)
        ShowMessage(nullptr, "Error Creacio finestra marc", kTitle);
    ShowWindow(frame, SW_SHOWMAXIMIZED);
    UpdateWindow(frame);
    return frame;
}

int RunMessages() {
    // No dialog: every one is modal and handles its keys itself. So IsDialogMessageA takes nothing.
    constexpr HWND hDlg = nullptr;
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (TranslateMDISysAccel(hMdiC, &message) || IsDialogMessageA(hDlg, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR, int) {
    hInst = instance;
    UseMessageBoxes();
    if (!previous && !std::ranges::all_of(kClasses, Register))
        return 0;
    const HWND frame = CreateFrame();
    ProjectBegin(frame);
    AboutZentrik(frame);
    const int code = RunMessages();
    ShowMessage(nullptr, "The Zentrik project", "Zentrik");
    return code;
}
