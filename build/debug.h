// The Debug command: checks every rule of the project and lists what it finds.
#pragma once

#include <windows.h>

void DebugMORV(HWND hwnd);
