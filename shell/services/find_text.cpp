#include "shell/services/find_text.h"

#include "shell/core/guide_pages.h"
#include "shell/core/messages.h"
#include "shell/core/text_search.h"
#include "shell/services/editor.h"
#include "shell/services/guide.h"
#include "shell/services/mdi.h"
#include "shell/services/text_measure.h"

#include <algorithm>
#include <commdlg.h>
#include <string>

namespace {

constexpr int kWordSize = 256;

// What the dialogs have in their fields. They keep it from one opening to the next.
char what[kWordSize];
char with[kWordSize];
FINDREPLACEA asked = [] {
    FINDREPLACEA find{};
    find.lStructSize = sizeof find;
    find.lpstrFindWhat = what;
    find.lpstrReplaceWith = with;
    find.wFindWhatLen = sizeof what;
    find.wReplaceWithLen = sizeof with;
    return find;
}();
constexpr DWORD kChoices = FR_DOWN | FR_MATCHCASE | FR_WHOLEWORD;
DWORD chosen = FR_DOWN; // which of kChoices were set when a button was pressed last
HWND dialog;            // while one is open
bool replacing;         // it is the one for replacing
HHOOK key_hook;         // while one is open

// The message loop knows no dialog. So the keys of this one, Tab, Enter, Esc and its letters, are
// taken out of the messages before the loop sees them.
LRESULT CALLBACK TakeKeys(int code, WPARAM removed, LPARAM lParam) {
    auto* message = reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && removed == PM_REMOVE && IsDialogMessageA(dialog, message))
        message->message = WM_NULL;
    return CallNextHookEx(nullptr, code, removed, lParam);
}

UINT_PTR CALLBACK FollowDialog(HWND hwnd, UINT message, WPARAM, LPARAM) {
    if (message == WM_HELP)
        return OpenGuide(hwnd, kGuideTextKeys);
    if (message == WM_DESTROY) {
        UnhookWindowsHookEx(key_hook);
        dialog = nullptr;
        key_hook = nullptr;
    }
    return message == WM_INITDIALOG;
}

struct Selection {
    std::size_t begin, end; // bytes of the text
};

// How many bytes the first `characters` of a text take.
std::size_t BytesOf(const std::string& text, std::size_t characters) {
    if (OneByteCharacters())
        return std::min(characters, text.size());
    const char* at = text.c_str();
    for (std::size_t i = 0; i < characters && *at; ++i)
        at = CharNextA(at);
    return static_cast<std::size_t>(at - text.c_str());
}

Selection SelectionOf(HWND edit, const std::string& text) {
    DWORD begin = 0, end = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    return {BytesOf(text, begin), BytesOf(text, end)};
}

void Select(HWND edit, const std::string& text, std::size_t begin, std::size_t size) {
    const std::string_view bytes = text;
    const std::size_t first = CharactersIn(bytes.substr(0, begin));
    const std::size_t behind = first + CharactersIn(bytes.substr(begin, size));
    SendMessageA(edit, EM_SETSEL, first, static_cast<LPARAM>(behind));
    SendMessageA(edit, EM_SCROLLCARET, 0, 0);
}

// A text as it is compared.
std::string Compared(std::string text) {
    if (!(chosen & FR_MATCHCASE))
        CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

Wanted WhatIsWanted() {
    return {Compared(what), (chosen & FR_WHOLEWORD) != 0};
}

void TellNotFound() {
    ShowMessage(dialog ? dialog : GetFrame(), "\"" + std::string(what) + "\" was not found",
                "Find");
}

void FindNext(HWND edit, bool down) {
    const std::string text = EditText(edit);
    const std::string searched = Compared(text);
    const Wanted wanted = WhatIsWanted();
    const Selection selected = SelectionOf(edit, text);
    const auto at = down ? FindForward(searched, wanted, selected.end)
                         : FindBackward(searched, wanted, selected.begin);
    if (at)
        Select(edit, text, *at, wanted.what.size());
    else
        TellNotFound();
}

// What is selected is replaced when it is what is looked for; then the next one is selected.
void ReplaceNext(HWND edit) {
    const std::string text = EditText(edit);
    const Selection selected = SelectionOf(edit, text);
    const Wanted wanted = WhatIsWanted();
    if (selected.end == selected.begin + wanted.what.size() &&
        FindForward(Compared(text), wanted, selected.begin) == selected.begin)
        SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(with));
    FindNext(edit, true);
}

void ReplaceEach(HWND edit) {
    const std::string text = EditText(edit);
    const auto replaced = ReplaceAll(text, Compared(text), WhatIsWanted(), with);
    if (!replaced) {
        TellNotFound();
        return;
    }
    SendMessageA(edit, EM_SETSEL, 0, -1);
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(replaced->c_str()));
}

// One line of the text that is selected is what is probably looked for.
void ProposeSelection(HWND edit) {
    const std::string text = EditText(edit);
    const Selection selected = SelectionOf(edit, text);
    const std::string taken = text.substr(selected.begin, selected.end - selected.begin);
    if (!taken.empty() && taken.size() < sizeof what && taken.find('\n') == taken.npos)
        lstrcpynA(what, taken.c_str(), sizeof what);
}

void Open(HWND edit, bool replace) {
    if (dialog && asked.hwndOwner == edit && replacing == replace) {
        SetActiveWindow(dialog);
        return;
    }
    if (dialog)
        DestroyWindow(dialog);
    ProposeSelection(edit);
    asked.hwndOwner = edit;
    asked.Flags = chosen | FR_ENABLEHOOK;
    asked.lpfnHook = FollowDialog;
    replacing = replace;
    dialog = replace ? ReplaceTextA(&asked) : FindTextA(&asked);
    if (dialog)
        key_hook = SetWindowsHookExA(WH_GETMESSAGE, TakeKeys, nullptr, GetCurrentThreadId());
}

} // namespace

void AskWhatToFind(HWND edit) {
    Open(edit, false);
}

void AskWhatToReplace(HWND edit) {
    Open(edit, true);
}

void FindAgain(HWND edit, bool other_way) {
    if (what[0] == '\0')
        AskWhatToFind(edit);
    else
        FindNext(edit, ((chosen & FR_DOWN) != 0) != other_way);
}

bool TakeFindMessage(HWND edit, UINT message) {
    static const UINT find_message = RegisterWindowMessageA(FINDMSGSTRINGA);
    if (message != find_message)
        return false;
    // While a box waits for its answer the texts stay as they are.
    if ((asked.Flags & FR_DIALOGTERM) || !IsWindowEnabled(GetFrame()))
        return true;
    // The dialog for replacing has no direction.
    chosen = (asked.Flags & kChoices) | (replacing ? FR_DOWN : 0);
    const HWND child = GetMdi();
    const HWND text = IsEditor(child) && TopChild(child) ? TopChild(child) : edit;
    if (asked.Flags & FR_REPLACEALL)
        ReplaceEach(text);
    else if (asked.Flags & FR_REPLACE)
        ReplaceNext(text);
    else if (asked.Flags & FR_FINDNEXT)
        FindNext(text, (chosen & FR_DOWN) != 0);
    return true;
}

void EndFinding(HWND edit) {
    if (dialog && asked.hwndOwner == edit)
        DestroyWindow(dialog);
}
