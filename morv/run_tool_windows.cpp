#include "run_tool.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace morv {

namespace fs = std::filesystem;

namespace {

std::wstring Wide(const std::string& text, UINT code_page = CP_UTF8) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(code_page, 0, text.data(), size, wide.data(), size)));
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

// A file that a started program can go on using.
HANDLE OpenForTool(const fs::path& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       &inherited, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

void CloseFile(HANDLE file) {
    if (file != INVALID_HANDLE_VALUE && file != nullptr)
        CloseHandle(file);
}

// A start with these standard files. Compilers are console programs, which show no window of their
// own here.
Process Start(const std::wstring& program, std::wstring line, const wchar_t* folder, HANDLE in,
              HANDLE out) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in;
    start.hStdOutput = start.hStdError = out;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, folder, &start, &process))
        return 0;
    CloseHandle(process.hThread);
    return reinterpret_cast<Process>(process.hProcess);
}

std::wstring OwnPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
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

fs::path OwnProgram() {
    return OwnPath();
}

void LookFirstIn(const fs::path& folder) {
    std::wstring path(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    SetEnvironmentVariableW(L"PATH", (folder.wstring() + L";" + path).c_str());
}

fs::path FindTool(const std::string& name) {
    std::wstring path(32768, L'\0');
    const DWORD length = SearchPathW(nullptr, Wide(name).c_str(), L".exe",
                                     static_cast<DWORD>(path.size()), path.data(), nullptr);
    path.resize(length < path.size() ? length : 0);
    return path;
}

fs::path PathFromTool(const std::string& text) {
    return Wide(text, CP_ACP);
}

Process StartTool(const Command& command) {
    std::wstring line = Quoted(command.tool.wstring());
    for (const std::string& argument : command.arguments)
        line += L" " + Quoted(Wide(argument));
    if (command.says.empty())
        return Start(command.tool.wstring(), line, command.folder.c_str(),
                     GetStdHandle(STD_INPUT_HANDLE), GetStdHandle(STD_OUTPUT_HANDLE));
    const HANDLE reads =
        command.reads.empty() ? nullptr : OpenForTool(command.reads, GENERIC_READ, OPEN_EXISTING);
    const HANDLE says = OpenForTool(command.says, GENERIC_WRITE, CREATE_ALWAYS);
    const Process process =
        Start(command.tool.wstring(), line, command.folder.c_str(), reads, says);
    CloseFile(reads);
    CloseFile(says);
    return process;
}

std::size_t WaitForOne(const std::vector<Process>& running, int& code) {
    std::vector<HANDLE> handles;
    for (const Process process : running)
        handles.push_back(reinterpret_cast<HANDLE>(process));
    const DWORD ended = WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(),
                                               FALSE, INFINITE) -
                        WAIT_OBJECT_0;
    const std::size_t at = ended < handles.size() ? ended : 0;
    if (DWORD exit = 0; GetExitCodeProcess(handles[at], &exit))
        code = static_cast<int>(exit);
    CloseHandle(handles[at]);
    return at;
}

// The window is this program's own, in a process of its own. ZKCC_SHOW=no is for scripts.
std::FILE* StartWindow() {
    wchar_t show[4] = L"";
    if (GetEnvironmentVariableW(L"ZKCC_SHOW", show, ARRAYSIZE(show)) == 2 &&
        std::wstring(show) == L"no")
        return nullptr;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE in = nullptr, out = nullptr;
    if (!CreatePipe(&in, &out, &inherited, 0))
        return nullptr;
    SetHandleInformation(out, HANDLE_FLAG_INHERIT, 0);
    const std::wstring program = OwnPath();
    const Process window = Start(program, Quoted(program) + L" --show", nullptr, in, nullptr);
    CloseHandle(in);
    if (window == 0) {
        CloseHandle(out);
        return nullptr;
    }
    CloseHandle(reinterpret_cast<HANDLE>(window));
    return _fdopen(_open_osfhandle(reinterpret_cast<std::intptr_t>(out), _O_BINARY), "wb");
}

Lock::~Lock() {
    if (file_ != -1)
        CloseHandle(reinterpret_cast<HANDLE>(file_));
}

bool Lock::Take(const fs::path& file, const std::function<void()>& waits) {
    const HANDLE lock = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (lock == INVALID_HANDLE_VALUE)
        return false;
    file_ = reinterpret_cast<std::intptr_t>(lock);
    OVERLAPPED whole{};
    if (LockFileEx(lock, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &whole))
        return true;
    if (GetLastError() != ERROR_LOCK_VIOLATION && GetLastError() != ERROR_IO_PENDING)
        return true; // a file system without locks: such runs are not kept apart
    waits();
    return LockFileEx(lock, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &whole) != FALSE;
}

} // namespace morv
