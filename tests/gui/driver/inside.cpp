#include "tests/gui/driver/inside.h"

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/places.h"

#include <algorithm>
#include <sstream>

namespace gui {

namespace {

// Reads the items at `depth` and, below each popup, its own.
std::vector<MenuItem> ParseItems(std::istringstream& lines, int depth) {
    std::vector<MenuItem> items;
    std::string line;
    for (auto start = lines.tellg(); std::getline(lines, line); start = lines.tellg()) {
        std::istringstream fields(line);
        int at = 0;
        int id = 0;
        unsigned type = 0;
        unsigned state = 0;
        std::string text;
        fields >> at >> id >> type >> state;
        fields.ignore(1);
        std::getline(fields, text);
        std::replace(text.begin(), text.end(), '\1', '\t');
        if (at < depth) {
            lines.seekg(start);
            break;
        }
        if (at > depth) {
            lines.seekg(start);
            items.back().popup = true;
            items.back().items = ParseItems(lines, at);
        } else {
            items.push_back(
                {id, (type & MFT_SEPARATOR) != 0, (state & MFS_GRAYED) != 0, text, false, {}});
        }
    }
    return items;
}

} // namespace

Inside::Inside(const Program& program) : program_(program) {
    const std::string name =
        std::string(spy::kAnswerPrefix).append(std::to_string(program.ProcessId()));
    mapping_ = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                  spy::kAnswerSize, name.c_str());
    answer_ = static_cast<const char*>(MapViewOfFile(mapping_, FILE_MAP_READ, 0, 0, 0));
    library_ = LoadLibraryA((OwnFolder() + "\\gui_spy.dll").c_str());
    if (!answer_ || !library_)
        Fail("gui_spy.dll cannot be used");
    hook_ = Hook(WH_CALLWNDPROC, spy::kHookName);
    queue_hook_ = Hook(WH_GETMESSAGE, spy::kQueueHookName);
}

HHOOK Inside::Hook(int kind, const char* function) const {
    const auto procedure =
        reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(library_, function)));
    HHOOK hook = SetWindowsHookExA(kind, procedure, library_, program_.ThreadId());
    if (!hook)
        Fail("the program cannot be hooked");
    return hook;
}

Inside::~Inside() {
    UnhookWindowsHookEx(hook_);
    UnhookWindowsHookEx(queue_hook_);
    FreeLibrary(library_);
    UnmapViewOfFile(answer_);
    CloseHandle(mapping_);
}

std::string Inside::Ask(HWND hwnd, WPARAM question) {
    static const UINT message = RegisterWindowMessageA(spy::kMessageName);
    program_.Send(hwnd, message, question);
    return answer_;
}

void Inside::PostMark(HWND hwnd) {
    static const UINT message = RegisterWindowMessageA(spy::kMarkName);
    PostMessageA(hwnd, message, ++mark_, 0);
}

bool Inside::Passed(HWND hwnd) const {
    return GetPropA(hwnd, spy::kMarkName) == reinterpret_cast<HANDLE>(mark_);
}

std::vector<MenuItem> Inside::Menu(HWND frame) {
    std::istringstream lines(Ask(frame, spy::MenuTree));
    return ParseItems(lines, 0);
}

bool Inside::WaitCursorSeen(HWND frame) {
    return Ask(frame, spy::WaitCursorSeen) == "1";
}

char Inside::StockIcon(HWND control) {
    const std::string answer = Ask(control, spy::StockIcon);
    return answer.empty() ? '-' : answer[0];
}

} // namespace gui
