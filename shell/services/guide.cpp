#include "shell/services/guide.h"

#include "shell/core/files.h"

#include <shellapi.h>
#include <utility>

namespace {

// The path in the system's code page. One with other letters, like a user's name in that of the
// profile, becomes its short name, which is empty where the drive has none.
std::string InCodePage(const std::wstring& path) {
    char text[MAX_PATH * 2] = "";
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, text, sizeof text, nullptr,
                        &lost);
    if (!lost)
        return text;
    wchar_t name[MAX_PATH] = L"";
    GetShortPathNameW(path.c_str(), name, MAX_PATH);
    return name == path ? "" : InCodePage(name);
}

std::string FolderBesideProgram() {
    wchar_t program[MAX_PATH] = L"";
    const std::wstring path(program, GetModuleFileNameW(nullptr, program, MAX_PATH));
    return InCodePage(path.substr(0, path.find_last_of(L'\\') + 1) + L"help");
}

bool OpenInBrowser(HWND owner, const std::string& file) {
    const auto code = reinterpret_cast<INT_PTR>(
        ShellExecuteA(owner, "open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return code > 32; // what is less is the reason of a failure
}

GuidePlace& Place() {
    static GuidePlace place{FolderBesideProgram(), OpenInBrowser};
    return place;
}

} // namespace

bool OpenGuide(HWND owner, std::string_view page) {
    const std::string file = Place().folder + "\\" + std::string(page) + ".html";
    return !Place().folder.empty() && files::Exists(file.c_str()) && Place().open(owner, file);
}

GuidePlace SetGuidePlace(GuidePlace place) {
    return std::exchange(Place(), std::move(place));
}
