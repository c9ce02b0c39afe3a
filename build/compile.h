// The Compile command: generates the project's C++ and starts the compiler.
#pragma once

#include <windows.h>

// Returns 0 when all files were written (and the compiler, if any, was started), else -1.
int CompileMORV(HWND hwnd);
