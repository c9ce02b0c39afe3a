// The line that commands are typed into.
#ifndef MORV_ENTRY_LINE
#define MORV_ENTRY_LINE

#include <string>
#include <windows.h>

// What the parent is sent when Enter was pressed: TakeLine has the line.
constexpr UINT kLineTyped = WM_APP + 1;

// The entry line of a window; null when it cannot be made. The keys up and down bring back lines
// that were typed before.
HWND MakeEntryLine(HWND parent);

// What is typed; the entry line is empty then.
std::string TakeLine(HWND entry);

int EntryHeight(HWND entry);

#endif
