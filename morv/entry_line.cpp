#include "entry_line.h"

#include "output_list.h"

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t kMostLines = 100;

WNDPROC g_edit = nullptr; // what an edit control does by itself
std::vector<std::string> g_lines;
std::size_t g_at = 0; // the line that was brought back; that number is behind the last

std::string TextOf(HWND entry) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(entry)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(entry, text.data(), static_cast<int>(text.size()))));
    return text;
}

void BringBack(HWND entry, bool earlier) {
    if (earlier ? g_at == 0 : g_at == g_lines.size())
        return;
    g_at = earlier ? g_at - 1 : g_at + 1;
    const std::string line = g_at < g_lines.size() ? g_lines[g_at] : "";
    SetWindowTextA(entry, line.c_str());
    SendMessageA(entry, EM_SETSEL, line.size(), static_cast<LPARAM>(line.size()));
}

void Keep(const std::string& line) {
    if (!line.empty() && (g_lines.empty() || g_lines.back() != line))
        g_lines.push_back(line);
    if (g_lines.size() > kMostLines)
        g_lines.erase(g_lines.begin());
    g_at = g_lines.size();
}

LRESULT CALLBACK EntryProcedure(HWND entry, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN) {
        switch (wParam) {
        case VK_RETURN:
            SendMessageA(GetParent(entry), kLineTyped, 0, 0);
            return 0;
        case VK_UP:
        case VK_DOWN:
            BringBack(entry, wParam == VK_UP);
            return 0;
        }
    }
    if (message == WM_CHAR && wParam == '\r')
        return 0; // an edit control of one line would beep
    return CallWindowProcA(g_edit, entry, message, wParam, lParam);
}

} // namespace

HWND MakeEntryLine(HWND parent) {
    g_lines.clear();
    g_at = 0;
    const HWND entry = CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", "",
                                       WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, 0, 0, 0,
                                       0, parent, nullptr, nullptr, nullptr);
    SendMessageA(entry, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    if (entry != nullptr)
        g_edit = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(entry, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EntryProcedure)));
    return entry;
}

std::string TakeLine(HWND entry) {
    const std::string line = TextOf(entry);
    SetWindowTextA(entry, "");
    Keep(line);
    return line;
}

int EntryHeight(HWND entry) {
    HDC dc = GetDC(entry);
    TEXTMETRICA metric{};
    GetTextMetricsA(dc, &metric);
    ReleaseDC(entry, dc);
    return static_cast<int>(metric.tmHeight) + 4 * GetSystemMetrics(SM_CYEDGE);
}
