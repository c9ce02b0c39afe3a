#include "tests/gui/driver/inside.h"

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/places.h"
#include "tests/gui/spy/spy.h"

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
    const auto hook = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void*>(GetProcAddress(library_, spy::kHookName)));
    hook_ = SetWindowsHookExA(WH_CALLWNDPROC, hook, library_, program.ThreadId());
    if (!hook_)
        Fail("the program cannot be hooked");
}

Inside::~Inside() {
    UnhookWindowsHookEx(hook_);
    FreeLibrary(library_);
    UnmapViewOfFile(answer_);
    CloseHandle(mapping_);
}

std::string Inside::Ask(HWND hwnd, WPARAM question) {
    static const UINT message = RegisterWindowMessageA(spy::kMessageName);
    program_.Send(hwnd, message, question);
    return answer_;
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
