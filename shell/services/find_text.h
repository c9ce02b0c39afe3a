// Finding and replacing in the text editors, with the system's two dialogs. One of them is open at
// a time, beside the texts; it works on the editor that is the topmost child.
#pragma once

#include <windows.h>

void AskWhatToFind(HWND edit);    // opens the dialog, or brings it to the front
void AskWhatToReplace(HWND edit); // the same with another text to put in its place

// Finds what was looked for last, or asks for it. `other_way`: against the dialog's direction.
void FindAgain(HWND edit, bool other_way);

// True for the message that a dialog sends to the edit control it was opened for; does what it
// says.
bool TakeFindMessage(HWND edit, UINT message);

// Closes the dialog that was opened for an edit control.
void EndFinding(HWND edit);
