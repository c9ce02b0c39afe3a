// The commands of the project menu and the program's exit. Each takes the frame window.
#pragma once

#include <windows.h>

void NewMORV(HWND hwnd);
void OpenMORV(HWND hwnd);
void SaveMORV(HWND hwnd);
void SaveAsMORV(HWND hwnd);
int CloseMORV(HWND hwnd); // 1 when the user cancelled; the caller destroys the window otherwise
void AddMain(HWND hwnd);
void AddEngine(HWND hwnd);
void AddExtern(HWND hwnd);
void AddDDE(HWND hwnd);
void AddResult(HWND hwnd);
int Remove(HWND hwnd);
void DataLength(HWND hwnd);
void ExitZentrik(HWND hwnd);   // destroys the frame unless the user cancels
bool MayEndSession(HWND hwnd); // asks the questions of the exit, and closes nothing
void DestroyMdiP();            // destroys the project's MDI child
INT_PTR CALLBACK HistoryDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
