// Stands in for a compiler or a built program: writes what it was started with to the file
// "<own name>.args" beside it, as two lines, its command line and its current folder.
#include <cstdio>
#include <string>
#include <windows.h>

int main() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path - 1);
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    std::string name = path;
    name = name.substr(0, name.rfind('.')) + ".args";
    // Written under another name first: whoever waits for the file finds it whole.
    const std::string unfinished = name + ".part";
    std::FILE* file = std::fopen(unfinished.c_str(), "wb");
    if (!file)
        return 1;
    std::fprintf(file, "%s\n%s\n", GetCommandLineA(), folder);
    std::fclose(file);
    return MoveFileExA(unfinished.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
