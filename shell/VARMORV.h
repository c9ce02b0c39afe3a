// State that several modules share.
#pragma once

#include "project/ZENPRO.h"
#include "system/ZENSYS.h"

#include <windows.h>

extern HINSTANCE hInst;          // the program's module instance
extern HWND hFrame;              // the frame window
extern HWND hMdiC;               // the MDI client
extern HWND hTool;               // the toolbar; none on Windows NT
extern int nt;                   // 1 on Windows NT, else 0
extern char WorkPath[kNameSize]; // current at the start, without a last '\'; has the tools file

extern ZKPROJECT Project; // the one project document
extern ZKSYSTEMS System;  // the one system document

// What the dialog "Add_Box" and the opposites dialog work on.
constexpr int kAddResults = 1; // results of the project
constexpr int kAddFacts = 2;   // facts of the system
extern int AddType;
extern char ResulFile[kNameSize];      // the results file chosen for "Add_Box"
extern char ResultFileName[kNameSize]; // the results file of the results and opposites dialogs
extern char DDEIKnw[kNameSize];        // the DDE items file last chosen by an editor of values
