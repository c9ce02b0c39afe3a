// What every dialog shares.
#pragma once

#include <string>
#include <windows.h>

// Runs a modal dialog from the resources. Without an owner it disables no other window.
INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure);

// Answers the colour messages of a dialog: the light grey stock brush, static text on grey 200.
// Returns 0 for any other message.
INT_PTR DialogColours(UINT message, WPARAM wParam);

// The text of a control, at most `size` bytes with its NUL.
std::string ControlText(HWND dialog, int id, int size);

// A WM_COMMAND's notification code is `code` and comes from control `id`.
bool Notified(WPARAM wParam, int id, int code);
