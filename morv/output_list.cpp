#include "output_list.h"

#include <algorithm>

namespace {

int Ask(HWND list, UINT message) {
    return static_cast<int>(SendMessageA(list, message, 0, 0));
}

// Makes the list as wide as its longest line.
void Widen(HWND list, const std::string& line) {
    HDC dc = GetDC(list);
    HGDIOBJ before = SelectObject(dc, DialogFont());
    SIZE size{};
    GetTextExtentPoint32A(dc, line.c_str(), static_cast<int>(line.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(list, dc);
    const int width = size.cx + 2 * GetSystemMetrics(SM_CXEDGE) + 4;
    if (width > Ask(list, LB_GETHORIZONTALEXTENT))
        SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
}

bool ShowsLastRow(HWND list) {
    RECT inside{};
    GetClientRect(list, &inside);
    const int height = std::max(Ask(list, LB_GETITEMHEIGHT), 1);
    return Ask(list, LB_GETTOPINDEX) + inside.bottom / height >= Ask(list, LB_GETCOUNT);
}

} // namespace

HFONT DialogFont() {
    static const HFONT font = [] {
        HDC screen = GetDC(nullptr);
        const int height = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
        ReleaseDC(nullptr, screen);
        return CreateFontA(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                           0, 0, "MS Shell Dlg");
    }();
    return font;
}

HWND MakeOutputList(HWND parent) {
    HWND list = CreateWindowA("LISTBOX", "",
                              WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL |
                                  LBS_NOINTEGRALHEIGHT | LBS_NOTIFY,
                              0, 0, 0, 0, parent, nullptr, nullptr, nullptr);
    SendMessageA(list, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    return list;
}

std::string SelectedLine(HWND list) {
    const int row = Ask(list, LB_GETCURSEL);
    const LRESULT length =
        row < 0 ? -1 : SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
    if (length <= 0)
        return {};
    std::string line(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(line.data()));
    line.pop_back();
    return line;
}

void AddOutputLine(HWND list, const std::string& line) {
    const ListUpdate update(list);
    if (Ask(list, LB_GETCOUNT) >= kMostRows) {
        const int top = Ask(list, LB_GETTOPINDEX);
        SendMessageA(list, LB_DELETESTRING, 0, 0);
        SendMessageA(list, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(top - 1, 0)), 0);
    }
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    Widen(list, line);
}

ListUpdate::ListUpdate(HWND list)
    : list_(list), outermost_(!updating_), at_end_(outermost_ && ShowsLastRow(list)) {
    updating_ = true;
    if (outermost_)
        SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
}

ListUpdate::~ListUpdate() {
    if (!outermost_)
        return;
    updating_ = false;
    if (at_end_)
        SendMessageA(list_, LB_SETTOPINDEX, static_cast<WPARAM>(Ask(list_, LB_GETCOUNT) - 1), 0);
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}
