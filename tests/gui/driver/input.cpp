#include "tests/gui/driver/input.h"

#include <cctype>

namespace gui {

namespace {

void PostClick(HWND hwnd, UINT down, POINT place) {
    PostMessageA(hwnd, down, MK_LBUTTON, MAKELPARAM(place.x, place.y));
    PostMessageA(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
}

void SendKey(WORD code, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(code, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Presses a key and has it stay down. The window system releases what it finds pressed when the
// news of the focus reaches the program, which may be late: the key is pressed again until the
// program has seen all such news. Two answers of the program: it reads them between the two.
void Hold(WORD code) {
    const HWND window = GetForegroundWindow();
    for (int tries = 0; tries < 10; ++tries) {
        SendKey(code, 0);
        DWORD_PTR answer = 0;
        for (int asked = 0; asked < 2; ++asked)
            SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 2000, &answer);
        if (GetAsyncKeyState(code) < 0)
            return;
    }
}

} // namespace

void MouseClick(HWND hwnd, POINT place) {
    PostClick(hwnd, WM_LBUTTONDOWN, place);
}

void MouseDoubleClick(HWND hwnd, POINT place) {
    PostClick(hwnd, WM_LBUTTONDOWN, place);
    PostClick(hwnd, WM_LBUTTONDBLCLK, place);
}

void PointerClick(const Program& program, HWND hwnd, POINT place) {
    ClientToScreen(hwnd, &place);
    program.WaitFor("the pointer at its place", [&] {
        POINT now{};
        SetCursorPos(place.x, place.y);
        return GetCursorPos(&now) && now.x == place.x && now.y == place.y;
    });
    // The click says where it is, too: the pointer may be moved back before it arrives.
    constexpr LONG kWhole = 65536; // the screen's width and height in the units of the pointer
    const DWORD steps[] = {MOUSEEVENTF_MOVE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    INPUT inputs[3]{};
    for (int i = 0; i < 3; ++i) {
        inputs[i].type = INPUT_MOUSE;
        inputs[i].mi.dx = place.x * kWhole / GetSystemMetrics(SM_CXSCREEN) + 1;
        inputs[i].mi.dy = place.y * kWhole / GetSystemMetrics(SM_CYSCREEN) + 1;
        inputs[i].mi.dwFlags = steps[i] | MOUSEEVENTF_ABSOLUTE;
    }
    SendInput(3, inputs, sizeof inputs[0]);
}

void Key(WORD code, WORD held) {
    if (held)
        Hold(held);
    SendKey(code, 0);
    SendKey(code, KEYEVENTF_KEYUP);
    if (held)
        SendKey(held, KEYEVENTF_KEYUP);
}

void Keys(const std::string& text) {
    for (char c : text)
        Key(static_cast<WORD>(std::toupper(static_cast<unsigned char>(c))));
}

} // namespace gui
