#include "tests/gui/driver/input.h"

#include <cctype>
#include <vector>

namespace gui {

namespace {

void PostClick(HWND hwnd, UINT down, POINT place) {
    PostMessageA(hwnd, down, MK_LBUTTON, MAKELPARAM(place.x, place.y));
    PostMessageA(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
}

INPUT KeyInput(WORD code, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(code, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
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
    std::vector<INPUT> inputs{KeyInput(code, 0), KeyInput(code, KEYEVENTF_KEYUP)};
    if (held) {
        inputs.insert(inputs.begin(), KeyInput(held, 0));
        inputs.push_back(KeyInput(held, KEYEVENTF_KEYUP));
    }
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof inputs[0]);
}

void Keys(const std::string& text) {
    for (char c : text)
        Key(static_cast<WORD>(std::toupper(static_cast<unsigned char>(c))));
}

} // namespace gui
