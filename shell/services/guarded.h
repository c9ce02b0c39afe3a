// The border between the window system and the program's code: no exception may cross it.
#pragma once

#include <exception>
#include <windows.h>

// Says in a box that there is not enough memory, which is what an exception means here.
void TellOutOfMemory();

// What `step` returns, or after an exception `otherwise`; the box has then told the user, and the
// program goes on.
template <class Step> LRESULT Guarded(Step step, LRESULT otherwise = 0) {
    try {
        return step();
    } catch (const std::exception&) {
        TellOutOfMemory();
        return otherwise;
    }
}
