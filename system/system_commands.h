// The commands of the systems menu. Each takes the frame window.
#pragma once

#include <windows.h>

void NewEngine(HWND hwnd);
void OpenEngine(HWND hwnd);
void SaveEngine(HWND hwnd);
void SaveAsEngine(HWND hwnd);
int CloseEngine(HWND hwnd); // 1 when the user cancelled; the caller destroys the window otherwise
// Asks whether to save a changed system. False when it must not be closed now.
bool MayCloseEngine(HWND owner, const char* text, const char* caption);
void Rules(HWND hwnd);
void AddLocalVar(HWND hwnd);
// Runs the dialog of the local variables. False, after a box, when their working copy can have no
// name: the path is too long.
bool EditVariables(HWND owner);
void AddHeader(HWND hwnd);
void AddOpposite(HWND hwnd);
void AddKnow(HWND hwnd);
void AddRules(HWND hwnd);
void ResRemove(HWND hwnd);
void KnowValue(HWND hwnd);
void DestroyMdiS(); // destroys the system's MDI child

// Enables the menu groups of the system just opened.
void EnableSystemMenus(HWND hwnd);
