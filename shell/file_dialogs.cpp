#include "shell/file_dialogs.h"

#include "shell/messages.h"
#include "shell/record_text.h"

#include <windows.h>

#include <commdlg.h>

int DialogError;

namespace {

using FileDialog = BOOL(WINAPI*)(LPOPENFILENAMEA);

int RunFileDialog(FileDialog run, const char* Filter, const char* Title, const char* Ext,
                  char* name, DWORD flags) {
    name[0] = '\0';
    OPENFILENAMEA ofnTemp{};
    ofnTemp.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    ofnTemp.lpstrFilter = Filter;
    ofnTemp.lpstrFile = name;
    ofnTemp.nMaxFile = kNameSize;
    ofnTemp.lpstrTitle = Title;
    ofnTemp.lpstrDefExt = Ext;
    ofnTemp.Flags = flags;
    if (run(&ofnTemp))
        return 0;
    name[0] = '\0'; // for a path too long the dialog leaves the size it needs here
    DialogError = static_cast<int>(CommDlgExtendedError());
    if (DialogError != 0)
        ShowMessage(nullptr, "It can not read the file", "WARNING", Buttons::Ok, Icon::Stop);
    return 1;
}

} // namespace

int OpenDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags) {
    return RunFileDialog(GetOpenFileNameA, Filter, Title, Ext, name,
                         Flags | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY);
}

int SaveDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags) {
    return RunFileDialog(GetSaveFileNameA, Filter, Title, Ext, name, Flags | OFN_HIDEREADONLY);
}
