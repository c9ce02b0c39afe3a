#include "shell/list_rows.h"

#include <algorithm>

namespace {

constexpr char kFilling[] = "ZentrikFilling"; // a property of a list that is not repainted

// Texts up to this length fit every list box, so they need no measuring.
constexpr std::size_t kShortText = 40;

int Send(HWND list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return static_cast<int>(SendMessageA(list, message, wParam, lParam));
}

LPARAM TextParam(const std::string& text) {
    return reinterpret_cast<LPARAM>(text.c_str());
}

// Lets a list scroll to the end of `text`; one made without a horizontal scroll bar ignores it.
void WidenFor(HWND list, const std::string& text) {
    if (text.size() <= kShortText)
        return;
    const HDC dc = GetDC(list);
    const auto font = reinterpret_cast<HFONT>(SendMessageA(list, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font ? SelectObject(dc, font) : nullptr;
    const DWORD extent =
        GetTabbedTextExtentA(dc, text.c_str(), static_cast<int>(text.size()), 0, nullptr);
    if (before)
        SelectObject(dc, before);
    ReleaseDC(list, dc);
    constexpr int kMargin = 8;
    const int width = LOWORD(extent) + kMargin;
    if (width > Send(list, LB_GETHORIZONTALEXTENT))
        Send(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

} // namespace

int ListRows::Count() const {
    return std::max(0, Send(list_, LB_GETCOUNT));
}

std::string ListRows::RowText(int row) const {
    if (row < 0)
        return {};
    const int length = Send(list_, LB_GETTEXTLEN, static_cast<WPARAM>(row));
    if (length <= 0)
        return {};
    std::string text(static_cast<std::size_t>(length), '\0');
    // The list writes the NUL where the string has its own.
    const int got = Send(list_, LB_GETTEXT, static_cast<WPARAM>(row), TextParam(text));
    text.resize(static_cast<std::size_t>(std::clamp(got, 0, length)));
    return text;
}

int ListRows::Selected() const {
    return Send(list_, LB_GETCURSEL);
}

int ListRows::FindExact(const std::string& text) const {
    return Send(list_, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), TextParam(text));
}

int ListRows::FindPrefix(const std::string& text) const {
    return Send(list_, LB_FINDSTRING, static_cast<WPARAM>(-1), TextParam(text));
}

void ListRows::Select(int row) {
    Send(list_, LB_SETCURSEL, static_cast<WPARAM>(row));
}

int ListRows::Add(const std::string& text) {
    WidenFor(list_, text);
    return Send(list_, LB_ADDSTRING, 0, TextParam(text));
}

int ListRows::Insert(int row, const std::string& text) {
    WidenFor(list_, text);
    return Send(list_, LB_INSERTSTRING, static_cast<WPARAM>(row), TextParam(text));
}

bool ListRows::Delete(int row) {
    return row >= 0 && Send(list_, LB_DELETESTRING, static_cast<WPARAM>(row)) != LB_ERR;
}

void ListRows::Clear() {
    Send(list_, LB_RESETCONTENT);
}

ListFill::ListFill(HWND list, int rows, int bytes)
    : list_(list), first_(list && !GetPropA(list, kFilling)) {
    if (first_) {
        SetPropA(list_, kFilling, list_);
        SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
    }
    if (rows > 0)
        SendMessageA(list_, LB_INITSTORAGE, static_cast<WPARAM>(rows), bytes);
}

ListFill::~ListFill() {
    if (!first_)
        return;
    RemovePropA(list_, kFilling);
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}
