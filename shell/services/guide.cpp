#include "shell/services/guide.h"

#include "shell/core/files.h"

#include <shellapi.h>
#include <utility>

namespace {

std::string FolderBesideProgram() {
    char program[MAX_PATH] = "";
    const DWORD length = GetModuleFileNameA(nullptr, program, sizeof program);
    const std::string path(program, length);
    return path.substr(0, path.find_last_of('\\') + 1) + "help";
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
    return files::Exists(file.c_str()) && Place().open(owner, file);
}

GuidePlace SetGuidePlace(GuidePlace place) {
    return std::exchange(Place(), std::move(place));
}
