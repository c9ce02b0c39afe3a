// The Compile command: generates the project's C++ and starts the compiler.
#pragma once

#include <windows.h>

// Returns -1 as soon as a file fails, which was shown. After the last one the compiler is started,
// unless none is set, and 0 returned.
int CompileMORV(HWND hwnd);
