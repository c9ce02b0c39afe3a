// MDI children: creating, finding, restoring and destroying them. Each holds one control, which is
// found as the topmost window of the child.
#pragma once

#include <string>
#include <windows.h>

constexpr int MdiChFirstIdent = 500; // identifier of the first MDI child

extern int EDC_ID; // identifier of the next text editor's edit control

// Makes a window of class `typ` with title `nom`; 0 when the client does not take it.
HWND CrearMdiCh(const char* typ, const char* nom);

// Destroys an MDI child and activates the next one. Returns the client's answer; for a child that
// is gone already, 0.
LRESULT DestroyMdiCh(HWND hwnd);

// Activates a child and restores it from maximised or minimised.
void RestoreMdiCh(HWND hwnd);

// Puts TextHwnd() into `edit`; not 0 when the user has changed its text.
int TextState(HWND& edit);

HWND TextHwnd();         // the control of GetMdi()
HWND GetMdi();           // the topmost MDI child, 0 when there is none
void NextMdi(HWND hwnd); // activates the child after `hwnd`
HWND GetFrame();         // the client's parent

// The topmost child window of `hwnd`, 0 when there is none.
HWND TopChild(HWND hwnd);

// The list box in a document's child: its topmost window. `known` is the one found before; while it
// is still in the child it is returned without asking for the topmost window, which is slow.
HWND ListOf(HWND child, HWND known);

std::string ChildTitle(HWND child); // of an editor the path of its file

bool IsEditor(HWND hwnd);   // a text editor child
bool IsDocument(HWND hwnd); // the child of the project or of a system
