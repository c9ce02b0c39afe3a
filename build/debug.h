// The Debug command: checks every rule of the project and lists what it finds.
#pragma once

#include <windows.h>

void DebugMORV(HWND hwnd);

// Opens what the selected row of the findings is about: the rules file at the faulty word's line
// (at the rule's beginning when the whole rule is meant; at its top for the row that names it), or
// the system of an opposite. Nothing without a row.
void OpenFinding();
