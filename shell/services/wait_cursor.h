// The wait cursor, for what takes long.
#pragma once

#include <windows.h>

// Shows the wait cursor as long as it lives, and after that the one before.
class WaitCursor {
public:
    WaitCursor() : before_(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(before_); }

private:
    HCURSOR before_;
};
