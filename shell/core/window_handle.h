// A window handle for headers that must not include windows.h: it is the same type as HWND.
#pragma once

struct HWND__;
using WindowHandle = HWND__*;
