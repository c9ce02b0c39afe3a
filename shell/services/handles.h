// The program's instance and its windows, which the frame sets when it makes them.
#pragma once

#include <windows.h>

extern HINSTANCE hInst; // the program's module instance
extern HWND hFrame;     // the frame window; code outside the frame asks GetFrame() (mdi.h)
extern HWND hMdiC;      // the MDI client
extern HWND hTool;      // the toolbar; none on Windows NT
extern int nt;          // 1 on Windows NT, else 0
