// MDI children: creating, finding, restoring and destroying them. A document's control is the
// topmost child window of its MDI child; topmost means first in Z order.
#pragma once

#include <string>
#include <windows.h>

constexpr int MdiChFirstIdent = 500; // identifier of the first MDI child

extern int EDC_ID; // identifier of the next text editor's edit control

// Creates an MDI child of class `typ` with title `nom`; returns 0 when the client refuses.
HWND CrearMdiCh(const char* typ, const char* nom);

// Destroys an MDI child and activates the next one. Returns the client's answer; for a child that
// is gone already, 0.
LRESULT DestroyMdiCh(HWND hwnd);

// Activates a child and restores it from maximised or minimised.
void RestoreMdiCh(HWND hwnd);

// Puts the control of the topmost child into `edit`; 1 when the user has changed its text.
int TextState(HWND& edit);

HWND TextHwnd();         // the topmost child's topmost control
HWND GetMdi();           // the topmost MDI child, 0 when there is none
void NextMdi(HWND hwnd); // activates the child after `hwnd`
HWND GetFrame();         // the client's parent

// The topmost child window of `hwnd`, 0 when there is none.
HWND TopChild(HWND hwnd);

std::string ChildTitle(HWND child); // of an editor the path of its file

// True when `hwnd` is a text editor child.
bool IsEditor(HWND hwnd);
