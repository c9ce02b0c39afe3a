// Plain text editing: one file per "Main" child, whose title is the file's path.
#pragma once

#include "shell/services/ask_and_save.h"

#include <optional>
#include <string>
#include <windows.h>

extern int EditState; // 1 while a text editor is in use
extern int EditRule; // 1 while the rule editor uses the text editor; save and close then do nothing

int IsRule(); // EditRule

// Set while the rule editor is open: at exit its text is saved as rules. The rules when `child`
// shows them; nothing for any other child.
extern std::optional<Savable> (*RuleTextOf)(HWND child);

// Opens an editor on `nom`; a missing file gives an empty one.
void OpenEdit(const char* nom);

// Shows a line (from 0) of a file, selected: in the rule editor's text or another one of that file,
// or in a new one. A line behind the end of the text is its last one.
void ShowLine(const char* path, int line);

void OpenFile();            // asks for a file and opens an editor on it
void SaveFile(HWND hwnd);   // saves the editor child `hwnd`; asks for a name when untitled
void SaveFileAs(HWND hwnd); // asks for a name and saves under it
int CloseFile(HWND hwnd);   // asks to save, destroys the edit control; 1 when cancelled
int DestroyMdiE();          // closes the topmost editor; 1 when cancelled
bool SaveEditors();         // at exit: asks for every changed text; false when cancelled
void DestroyEditors();      // at exit: destroys the edit controls of all editors

// Writes the text of an edit control to `path`, replacing the file whole, and clears its modified
// flag. On failure returns false and shows nothing.
bool WriteEdit(HWND edit, const char* path);

// The whole text of an edit control.
std::string EditText(HWND edit);
