// The compiler tools: their settings and the dialog "Tool_Box".
#pragma once

#include "build/core/tools_file.h"

#include <windows.h>

extern char Path[kNameSize];   // the MORV Path: templates and MorvApi.h
extern char Com[kNameSize];    // the compiler command; empty: generate only
extern char P_Com[kNameSize];  // the compiler's include path
extern char Tool_P[kNameSize]; // the compiler's path

ToolsFile CurrentTools(); // the settings, without the list of known compilers
void LoadTools();         // at start-up: the four settings from the tools file of the work folder
void CompileTools(HWND hwnd);
