// Stands in for g++ and windres: writes its arguments to the file "<own name>.args" beside it, one
// a line as UTF-8, makes the file behind -o, and ends with the code that STAND_IN_CODE says.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <windows.h>

#include <shellapi.h>

int main() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    wchar_t self[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::ofstream file(std::filesystem::path(self).replace_extension(".args"), std::ios::binary);
    const char* code = std::getenv("STAND_IN_CODE");
    for (int i = 1; i < count; ++i) {
        file << std::filesystem::path(words[i]).string() << "\n";
        if (code == nullptr && std::filesystem::path(words[i - 1]) == "-o")
            std::ofstream(std::filesystem::path(words[i])) << "made";
    }
    std::puts("the stand-in was here");
    return code != nullptr ? std::atoi(code) : 0;
}
