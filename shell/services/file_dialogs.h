// The open and save file dialogs.
#pragma once

#include <functional>

extern int DialogError; // why the last dialog gave no name; 0 after a plain Cancel

// Both ask for a file name. `Filter` is pairs of NUL-terminated strings that end with an empty
// one; `name` is a buffer of 255 bytes that receives the full path; `Flags` are extra dialog
// flags. They return 0 when a file was chosen and 1 on Cancel (name empty) or when the dialog
// failed, which is shown.
int OpenDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags);
int SaveDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags);

// Shows the system's dialog, to save or to open, for a filled record. True when a file was chosen.
struct tagOFNA;
using FileDialogShower = std::function<bool(tagOFNA& record, bool save)>;

// For tests: sets what shows file dialogs from now on and returns what did before.
FileDialogShower SetFileDialogShower(FileDialogShower shower);
