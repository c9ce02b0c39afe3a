// Questions that only a thread of the program itself can answer (menus and icons belong to a
// process). A small DLL is hooked into the program's window thread; it answers a registered message
// sent to any of its windows, leaving the program as it is.
#pragma once

#include <windows.h>

namespace spy {

constexpr char kMessageName[] = "ZentrikSpyQuestion";
constexpr char kAnswerPrefix[] = "ZentrikSpyAnswer."; // followed by the program's process id
constexpr char kHookName[] = "SpyHook";

// A second registered message is posted to a window; when the program takes it from its queue the
// window gets a property of this name with the message's wParam. All that was posted before has
// been taken then, and is handled or has opened a dialog.
constexpr char kMarkName[] = "ZentrikSpyMark";
constexpr char kQueueHookName[] = "SpyQueueHook";

enum Question : WPARAM {
    // The menu of the window as lines "depth TAB id TAB type TAB state TAB text LF", each popup
    // followed by its items one deeper.
    MenuTree = 1,
    // The stock icon in a static control: its first byte is 's' (stop), '!' (exclamation),
    // 'i', '?', 'o' (another one) or '-' (none).
    StockIcon = 2,
    // "1" when the wait cursor was shown while a message was sent since this was asked last.
    WaitCursorSeen = 3,
    // Nothing; but the thread has taken what the window system had to tell it, as of the focus.
    NewsRead = 4,
};

// The answer, in a named file mapping: the text and its NUL.
constexpr DWORD kAnswerSize = 64 * 1024;

} // namespace spy
