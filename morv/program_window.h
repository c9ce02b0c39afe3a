// The window of a program: what is told, and a line to type commands into. It has the clock.
#ifndef MORV_PROGRAM_WINDOW
#define MORV_PROGRAM_WINDOW

#include <functional>
#include <string>
#include <windows.h>

struct WindowUse {
    std::string title;
    int show = SW_SHOWNORMAL;
    UINT period = 1000;          // of the clock, in milliseconds
    long ticks = 0;              // the window closes after so many; 0: it does not by itself
    std::function<void()> flush; // called once a second
};

// Opens the window and starts its clock; the first tick has run then. Returns whether it is open.
bool OpenProgramWindow(HINSTANCE instance, const WindowUse& use);

// Shows a line, the newest last; before the window is open and after it was closed, nothing. It is
// in sight when messages are handled the next time.
void ShowLine(const std::string& line);

#endif
