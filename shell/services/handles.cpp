#include "shell/services/handles.h"

HINSTANCE hInst;
HWND hFrame;
HWND hMdiC;
HWND hTool;
int nt;
