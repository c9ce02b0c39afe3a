#include "tests/gui/driver/window_query.h"

namespace gui {

namespace {

std::string Narrow(const std::wstring& text) {
    std::string narrow(text.size() * 2, '\0');
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(size));
    return narrow;
}

// Rows are asked for as wide texts: between processes Wine does not convert them.
std::vector<std::string> Rows(HWND hwnd, UINT count_message, UINT length_message,
                              UINT text_message) {
    std::vector<std::string> rows;
    const LRESULT count = SendMessageW(hwnd, count_message, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
        const LRESULT length = SendMessageW(hwnd, length_message, row, 0);
        if (length < 0)
            break;
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        SendMessageW(hwnd, text_message, row, reinterpret_cast<LPARAM>(text.data()));
        text.resize(wcsnlen(text.data(), text.size()));
        rows.push_back(text.empty() ? std::string() : Narrow(text));
    }
    return rows;
}

} // namespace

std::string ClassOf(HWND hwnd) {
    char name[100] = "";
    GetClassNameA(hwnd, name, sizeof name);
    return name;
}

std::string TextOf(HWND hwnd, DWORD patience) {
    const auto ask = [&](UINT message, WPARAM size, LPARAM text) -> std::size_t {
        DWORD_PTR answer = 0;
        SendMessageTimeoutA(hwnd, message, size, text, SMTO_NORMAL, patience, &answer);
        return answer;
    };
    std::string text(ask(WM_GETTEXTLENGTH, 0, 0) + 1, '\0');
    text.resize(ask(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
    return text;
}

std::vector<HWND> ChildrenOf(HWND hwnd) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(hwnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

HWND TopChildOf(HWND hwnd) {
    return GetWindow(hwnd, GW_CHILD);
}

std::vector<std::string> ListRows(HWND list) {
    return Rows(list, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT);
}

std::vector<std::string> ComboRows(HWND combo) {
    return Rows(combo, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
}

RECT PlaceIn(HWND parent, HWND hwnd) {
    RECT place{};
    GetWindowRect(hwnd, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<HWND> Dialogs(const Program& program) {
    std::vector<HWND> dialogs;
    for (HWND hwnd : program.Windows())
        if (ClassOf(hwnd) == "#32770")
            dialogs.push_back(hwnd);
    return dialogs;
}

std::string Describe(const std::vector<HWND>& windows) {
    constexpr DWORD kShort = 500; // the program may be the one that does not answer
    std::string text;
    for (HWND hwnd : windows) {
        char title[300] = "";
        GetWindowTextA(hwnd, title, sizeof title);
        text.append("[").append(ClassOf(hwnd)).append(" \"").append(title).append("\"");
        if (ClassOf(hwnd) == "#32770")
            for (HWND child : ChildrenOf(hwnd))
                if (ClassOf(child) == "Static")
                    text.append(" '").append(TextOf(child, kShort)).append("'");
        text += "] ";
    }
    return text;
}

} // namespace gui
