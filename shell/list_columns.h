// The columns of a list box whose rows have TABs in them.
#pragma once

#include <windows.h>

// Sets the tab stops of a list so that its columns align whatever is in the rows, and how far it
// can be scrolled sideways. Call it after rows were added.
void AlignColumns(HWND list);
