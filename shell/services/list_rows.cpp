#include "shell/services/list_rows.h"

#include <algorithm>
#include <map>

namespace {

// A list while it is filled. It keeps its ListWidth: 10,000 rows take 0.014 s, with a new one for
// each row, which asks for the font's widths again, 0.11 s.
struct Filled {
    ListFill::Width kind;
    std::optional<ListWidth> width; // made with the first row
};
std::map<HWND, Filled> filled;

int Send(HWND list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return list ? static_cast<int>(SendMessageA(list, message, wParam, lParam)) : LB_ERR;
}

LPARAM TextParam(const std::string& text) {
    return reinterpret_cast<LPARAM>(text.c_str());
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
    // The NUL that the list adds goes to the place of the string's own NUL.
    const int got = Send(list_, LB_GETTEXT, static_cast<WPARAM>(row), TextParam(text));
    text.resize(static_cast<std::size_t>(std::clamp(got, 0, length)));
    return text;
}

int ListRows::Selected() const {
    return Send(list_, LB_GETCURSEL);
}

std::optional<std::string> ListRows::SelectedText() const {
    const int row = Selected();
    return row < 0 ? std::nullopt : std::optional(RowText(row));
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

void ListRows::Widen(const std::string& text) {
    if (!list_)
        return;
    const auto fill = filled.find(list_);
    if (fill == filled.end()) {
        ListWidth(list_).Take(text);
        return;
    }
    auto& [kind, width] = fill->second;
    if (kind == ListFill::Width::FoundAtTheEnd)
        return;
    if (!width)
        width.emplace(list_);
    width->Take(text);
}

int ListRows::Add(const std::string& text) {
    Widen(text);
    return Send(list_, LB_ADDSTRING, 0, TextParam(text));
}

int ListRows::Insert(int row, const std::string& text) {
    Widen(text);
    return Send(list_, LB_INSERTSTRING, static_cast<WPARAM>(row), TextParam(text));
}

bool ListRows::Delete(int row) {
    return row >= 0 && Send(list_, LB_DELETESTRING, static_cast<WPARAM>(row)) != LB_ERR;
}

bool ListRows::DeleteSelected() {
    return Delete(Selected());
}

void ListRows::Clear() {
    Send(list_, LB_RESETCONTENT);
}

ListWidth::ListWidth(HWND list) : list_(list), measure_(list) {
    RECT inside{};
    GetClientRect(list, &inside);
    // More rows may bring a vertical scroll bar, which takes its share.
    const int sure = inside.right - GetSystemMetrics(SM_CXVSCROLL);
    width_ = std::max(sure, Send(list, LB_GETHORIZONTALEXTENT));
}

void ListWidth::Take(const std::string& row) {
    constexpr int kMargin = 8;
    const int width = measure_.TabbedWidth(row) + kMargin;
    if (width <= width_)
        return;
    width_ = width;
    Send(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

ListFill::ListFill(HWND list, Width width, int rows, int bytes)
    : list_(list), first_(list && filled.try_emplace(list, width).second) {
    if (first_)
        SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
    if (rows > 0)
        SendMessageA(list_, LB_INITSTORAGE, static_cast<WPARAM>(rows), bytes);
}

ListFill::~ListFill() {
    if (!first_)
        return;
    filled.erase(list_);
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}
