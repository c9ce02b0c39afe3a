#include "tests/gui/driver/places.h"

#include "tests/gui/driver/failure.h"

#include <filesystem>
#include <fstream>
#include <windows.h>

namespace gui {

namespace {

std::string Parent(const std::string& path) {
    return path.substr(0, path.rfind('\\'));
}

std::string Place(const char* variable, const std::string& otherwise) {
    char value[MAX_PATH] = "";
    const DWORD size = GetEnvironmentVariableA(variable, value, sizeof value);
    return size > 0 && size < sizeof value ? value : otherwise;
}

} // namespace

std::string OwnFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path - 1);
    return Parent(path);
}

std::string BinFolder() {
    return Place("ZENTRIK_BIN", Parent(OwnFolder()));
}

std::string SourceFolder() {
    return Place("ZENTRIK_SOURCE", Parent(Parent(Parent(OwnFolder()))));
}

std::string OutFolder() {
    return Place("ZENTRIK_OUT", Parent(Parent(OwnFolder())));
}

std::string FileContent(const std::string& path) {
    // A program that has just renamed the file may still have it open, and then it must be shared.
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    std::string content;
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, kShared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return content;
    char part[16384];
    DWORD read = 0;
    while (ReadFile(file, part, sizeof part, &read, nullptr) && read > 0)
        content.append(part, read);
    CloseHandle(file);
    return content;
}

void PutFile(const std::string& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file)
        Fail("cannot write " + path);
}

bool FileExists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void CopyTo(const std::string& from, const std::string& to) {
    if (!CopyFileA(from.c_str(), to.c_str(), FALSE))
        Fail("cannot copy " + from + " to " + to);
}

void MakeFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error)
        Fail("cannot make the folder " + path);
}

// The read-only attribute would not do: it does not stop the superuser of a Linux host.
LockedFile::LockedFile(const std::string& path)
    : handle_(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE)
        Fail("cannot lock " + path);
}

LockedFile::~LockedFile() {
    CloseHandle(handle_);
}

WorkFolder::WorkFolder() {
    CreateDirectoryA("C:\\t", nullptr);
    static int number = 0;
    do {
        folder_ =
            "C:\\t\\w" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++number);
    } while (!CreateDirectoryA(folder_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

} // namespace gui
