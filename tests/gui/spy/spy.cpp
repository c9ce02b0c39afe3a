#include "tests/gui/spy/spy.h"

#include <cstdio>

namespace {

// Appends to the answer, which it never overruns.
struct Answer {
    char* text;
    DWORD used = 0;

    void Line(int depth, const MENUITEMINFOA& item, const char* caption) {
        const int size =
            std::snprintf(text + used, spy::kAnswerSize - used, "%d\t%d\t%u\t%u\t%s\n", depth,
                          static_cast<int>(item.wID), item.fType, item.fState, caption);
        if (size > 0 && used + static_cast<DWORD>(size) < spy::kAnswerSize)
            used += static_cast<DWORD>(size);
    }
};

void DescribeMenu(HMENU menu, int depth, Answer& answer) {
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        char caption[300] = "";
        MENUITEMINFOA item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
        item.dwTypeData = caption;
        item.cch = sizeof caption;
        GetMenuItemInfoA(menu, position, TRUE, &item);
        // A TAB in a caption must not look like the end of a field.
        for (char* c = caption; *c; ++c)
            if (*c == '\t')
                *c = '\1';
        answer.Line(depth, item, caption);
        if (item.hSubMenu)
            DescribeMenu(item.hSubMenu, depth + 1, answer);
    }
}

char StockIconOf(HWND control) {
    const auto icon = reinterpret_cast<HICON>(SendMessageA(control, STM_GETICON, 0, 0));
    if (!icon)
        return '-';
    if (icon == LoadIconA(nullptr, IDI_HAND))
        return 's';
    if (icon == LoadIconA(nullptr, IDI_EXCLAMATION))
        return '!';
    if (icon == LoadIconA(nullptr, IDI_ASTERISK))
        return 'i';
    return icon == LoadIconA(nullptr, IDI_QUESTION) ? '?' : 'o';
}

// The question for the pointer goes to the X server, whose answer comes after all it told before.
void ReadNews() {
    POINT pointer{};
    GetCursorPos(&pointer);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT);
}

bool wait_cursor_seen = false;

void AnswerQuestion(const CWPSTRUCT& message) {
    char name[60];
    std::snprintf(name, sizeof name, "%s%lu", spy::kAnswerPrefix, GetCurrentProcessId());
    HANDLE mapping = OpenFileMappingA(FILE_MAP_WRITE, FALSE, name);
    if (!mapping)
        return;
    if (auto* text = static_cast<char*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0))) {
        text[0] = '\0';
        if (message.wParam == spy::MenuTree) {
            Answer answer{text};
            DescribeMenu(GetMenu(message.hwnd), 0, answer);
        } else if (message.wParam == spy::StockIcon) {
            text[0] = StockIconOf(message.hwnd);
            text[1] = '\0';
        } else if (message.wParam == spy::WaitCursorSeen) {
            text[0] = wait_cursor_seen ? '1' : '0';
            text[1] = '\0';
            wait_cursor_seen = false;
        } else if (message.wParam == spy::NewsRead) {
            ReadNews();
        }
        UnmapViewOfFile(text);
    }
    CloseHandle(mapping);
}

} // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK SpyHook(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT question = RegisterWindowMessageA(spy::kMessageName);
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && GetCursor() == LoadCursorA(nullptr, IDC_WAIT))
        wait_cursor_seen = true;
    if (code == HC_ACTION && message->message == question)
        AnswerQuestion(*message);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK
    SpyQueueHook(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT mark = RegisterWindowMessageA(spy::kMarkName);
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && message->message == mark)
        SetPropA(message->hwnd, spy::kMarkName, reinterpret_cast<HANDLE>(message->wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
