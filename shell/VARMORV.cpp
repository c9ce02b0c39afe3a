#include "shell/VARMORV.h"

HINSTANCE hInst;
HWND hFrame;
HWND hMdiC;
HWND hTool;
int nt;
char WorkPath[kNameSize];

ZKPROJECT Project;
ZKSYSTEMS System;

int AddType;
char ResulFile[kNameSize];
char ResultFileName[kNameSize];
char DDEIKnw[kNameSize];
