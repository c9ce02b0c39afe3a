// Stands in for g++ and windres: adds its arguments to the file "<own name>.args" beside it, one a
// line as UTF-8, makes the file behind -o and names the sources in the one behind -MF. By its
// environment:
//     STAND_IN_CODE    it says that it was here, makes nothing and ends with this code
//     STAND_IN_WAITS   it waits for the event of this name before it does anything
// Asked for its machine, it answers at once.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <windows.h>

#include <shellapi.h>

namespace fs = std::filesystem;

static void AwaitEvent() {
    const char* name = std::getenv("STAND_IN_WAITS");
    const HANDLE event = name != nullptr ? OpenEventA(SYNCHRONIZE, FALSE, name) : nullptr;
    if (event != nullptr)
        WaitForSingleObject(event, INFINITE);
}

// Other stand-ins write there too, so it goes out in one piece.
static void AddArguments(const std::string& text) {
    wchar_t self[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const HANDLE file = CreateFileW(fs::path(self).replace_extension(".args").c_str(),
                                    FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

int main() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count == 2 && fs::path(words[1]) == "-dumpmachine") {
        std::puts("x86_64-w64-mingw32");
        return 0;
    }
    AwaitEvent();
    const char* code = std::getenv("STAND_IN_CODE");
    std::string arguments, sources;
    fs::path made, from;
    for (int i = 1; i < count; ++i) {
        const fs::path word = words[i];
        arguments += word.string() + "\n";
        if (fs::path(words[i - 1]) == "-o")
            made = word;
        else if (fs::path(words[i - 1]) == "-MF")
            from = word;
        else if (word.extension() == ".cpp" && !word.has_root_path())
            sources += " " + word.string();
    }
    AddArguments(arguments);
    if (code != nullptr) {
        std::puts("the stand-in was here");
        return std::atoi(code);
    }
    std::ofstream(made, std::ios::binary) << "made";
    if (!from.empty())
        std::ofstream(from, std::ios::binary) << "made:" << sources << " \n";
    return 0;
}
