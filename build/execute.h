// The Execute command.
#pragma once

#include <windows.h>

// Checks the rules, compiles the project and, when that went well, starts the built program. It
// waits for neither the compiler nor the program.
void ExecMORV(HWND hwnd);
