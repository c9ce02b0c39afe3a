#include "run_tool.h"

#include <windows.h>

#include <shellapi.h>

namespace morv {

namespace {

std::wstring Wide(const std::string& text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
    return wide;
}

std::string Utf8(const std::wstring& text) {
    const auto size = static_cast<int>(text.size());
    std::string narrow(text.size() * 3, '\0');
    narrow.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, nullptr)));
    return narrow;
}

// An argument as programs read their command line: backslashes count only before a quote.
std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : text) {
        if (c == L'"')
            quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

// The path of a program; empty when there is none.
std::wstring Found(const std::wstring& tool) {
    wchar_t path[32768];
    const DWORD length =
        SearchPathW(nullptr, tool.c_str(), L".exe", ARRAYSIZE(path), path, nullptr);
    return {path, length < ARRAYSIZE(path) ? length : 0};
}

// A file that a started program can go on writing.
HANDLE OpenLog(const std::filesystem::path& log) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(log.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       &inherited, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

} // namespace

std::vector<std::string> CommandWords(int, char**) {
    // main's own words have lost the letters that the system's code page lacks.
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> words;
    for (int i = 1; wide != nullptr && i < count; ++i)
        words.push_back(Utf8(wide[i]));
    LocalFree(wide);
    return words;
}

int ProcessNumber() {
    return static_cast<int>(GetCurrentProcessId());
}

void LookFirstIn(const std::filesystem::path& folder) {
    std::wstring path(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    SetEnvironmentVariableW(L"PATH", (folder.wstring() + L";" + path).c_str());
}

int RunTool(const std::string& tool, const std::vector<std::string>& arguments,
            const std::filesystem::path& log) {
    const std::wstring program = Found(Wide(tool));
    if (program.empty())
        return kNoTool;
    std::wstring line = Quoted(program);
    for (const std::string& argument : arguments)
        line += L" " + Quoted(Wide(argument));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = OpenLog(log);
    PROCESS_INFORMATION process{};
    DWORD code = 1;
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &start, &process)) {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(start.hStdOutput);
    return static_cast<int>(code);
}

} // namespace morv
