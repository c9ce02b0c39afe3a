// The open and save file dialogs.
#pragma once

extern int DialogError; // why the last dialog gave no name; 0 after a plain Cancel

// Both ask for a file name. `Filter` is pairs of NUL-terminated strings that end with an empty
// one; `name` is a buffer of 255 bytes that receives the full path; `Flags` are extra dialog
// flags. They return 0 when a file was chosen and 1 on Cancel (name empty) or when the dialog
// failed, which is shown.
int OpenDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags);
int SaveDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags);
