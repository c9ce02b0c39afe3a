#include "shell/services/file_dialogs.h"

#include "shell/core/messages.h"
#include "shell/core/record_text.h"
#include "shell/services/VARMORV.h"

#include <cstring>
#include <utility>
#include <windows.h>

#include <commdlg.h>

int DialogError;

namespace {

bool ShowSystemDialog(OPENFILENAMEA& record, bool save) {
    return (save ? GetSaveFileNameA : GetOpenFileNameA)(&record) != FALSE;
}

FileDialogShower g_shower = ShowSystemDialog;

int RunFileDialog(bool save, const char* Filter, const char* Title, const char* Ext, char* name,
                  DWORD flags) {
    name[0] = '\0';
    OPENFILENAMEA ofnTemp{};
    ofnTemp.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    ofnTemp.lpstrFilter = Filter;
    ofnTemp.lpstrFile = name;
    ofnTemp.nMaxFile = kNameSize;
    ofnTemp.lpstrTitle = Title;
    ofnTemp.lpstrDefExt = Ext;
    ofnTemp.Flags = flags;
    const bool chosen = g_shower(ofnTemp, save);
    // The dialog moves the current folder, also when cancelled; untitled files have one place.
    if (WorkPath[0] != '\0')
        SetCurrentDirectoryA(WorkPath);
    // Letters outside the code page come as '?', which no path has.
    const bool unreadable = chosen && std::strchr(name, '?');
    if (chosen && !unreadable)
        return 0;
    name[0] = '\0'; // for a path too long the dialog leaves the size it needs here
    DialogError = static_cast<int>(CommDlgExtendedError());
    if (DialogError != 0 || unreadable)
        ShowMessage(nullptr, "It can not read the file", "WARNING", Buttons::Ok, Icon::Stop);
    return 1;
}

} // namespace

int OpenDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags) {
    return RunFileDialog(false, Filter, Title, Ext, name,
                         Flags | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY);
}

int SaveDlg(const char* Filter, const char* Title, const char* Ext, char* name, unsigned Flags) {
    return RunFileDialog(true, Filter, Title, Ext, name, Flags | OFN_HIDEREADONLY);
}

FileDialogShower SetFileDialogShower(FileDialogShower shower) {
    return std::exchange(g_shower, std::move(shower));
}
