#include "shell/services/asking.h"

#include <algorithm>
#include <cstring>

namespace {

std::vector<const Asking*> open_questions;

struct Search {
    const std::vector<const char*>& captions;
    HWND found = nullptr;
};

bool IsUsableDialog(HWND hwnd) {
    char name[8] = "";
    return GetClassNameA(hwnd, name, sizeof name) != 0 && std::strcmp(name, "#32770") == 0 &&
           IsWindowVisible(hwnd) && IsWindowEnabled(hwnd);
}

// The windows come from the topmost down.
BOOL CALLBACK TakeDialog(HWND hwnd, LPARAM lParam) {
    Search& search = *reinterpret_cast<Search*>(lParam);
    if (!IsUsableDialog(hwnd))
        return TRUE;
    char title[256] = "";
    GetWindowTextA(hwnd, title, sizeof title);
    const bool named =
        search.captions.empty() || std::ranges::any_of(search.captions, [&](const char* caption) {
            return std::strcmp(caption, title) == 0;
        });
    if (named)
        search.found = hwnd;
    return named ? FALSE : TRUE;
}

} // namespace

Asking::Asking(HWND subject, Question question, std::initializer_list<const char*> captions)
    : subject_(subject), question_(question), captions_(captions), refused_(false) {
    for (const Asking* open : open_questions)
        if (open->subject_ == subject && open->question_ == question) {
            refused_ = true;
            BringDialogToFront(open->captions_);
            return;
        }
    open_questions.push_back(this);
}

Asking::~Asking() {
    std::erase(open_questions, this);
}

void BringDialogToFront(const std::vector<const char*>& captions) {
    Search search{captions};
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&search));
    if (!search.found)
        return;
    SetForegroundWindow(search.found);
    BringWindowToTop(search.found);
}
