// The fonts of the controls in MDI children. They live as long as the program.
#pragma once

#include <windows.h>

// For texts whose columns matter: of one width, 10 points high.
HFONT TextFont();

// The font of the dialogs in res/.
HFONT DialogFont();

// Gives an edit control the text font, with a tab stop every four characters.
void UseTextFont(HWND edit);

void UseDialogFont(HWND list);
