// The Compile command: generates the project's C++ and starts the compiler.
#pragma once

#include <windows.h>

// Writes all generated files and then starts the compiler, if one is set. Returns 0, or -1 after
// showing which file failed.
int CompileMORV(HWND hwnd);
