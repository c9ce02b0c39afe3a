#include "shell/services/help.h"

#include "shell/core/files.h"
#include "shell/core/guide_pages.h"
#include "shell/services/dialog.h"
#include "shell/services/guide.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"

#include <string>

namespace {

void ShowHelp(HWND hwnd, UINT command, ULONG_PTR data, std::string_view page) {
    const std::string file = Text(WorkPath) + "\\zkhelp.hlp";
    if (files::Exists(file.c_str()) || !OpenGuide(hwnd, page))
        WinHelpA(hwnd, file.c_str(), command, data);
}

// A topic that has no page of its own is looked for in the index.
std::string_view PageOfTopic(DWORD topic) {
    return topic == HELP_TOPIC_TOOLS ? kGuideTools : kGuideIndex;
}

constexpr DialogAction kAboutActions[] = {
    {IDOK, BN_CLICKED, LeaveDialog},
    {IDCANCEL, BN_CLICKED, LeaveDialog},
};
constexpr DialogTable kAbout = {.open = [](HWND) {}, .actions = kAboutActions};

INT_PTR CALLBACK AboutDlg(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    return RunDialogTable(kAbout, hwnd, message, wParam);
}

} // namespace

void ContentsHelp(HWND hwnd) {
    ShowHelp(hwnd, HELP_CONTENTS, 1, kGuideContents);
}

void IndexHelp(HWND hwnd) {
    TopicHelp(hwnd, HELP_TOPIC_INDEX);
}

void TopicHelp(HWND hwnd, DWORD topic) {
    ShowHelp(hwnd, HELP_CONTEXT, topic, PageOfTopic(topic));
}

void AboutZentrik(HWND hwnd) {
    RunDialog(hwnd, "About", AboutDlg);
}
