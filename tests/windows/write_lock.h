// Files that cannot be written, or not even read.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace zentrik_test {

// While it lives others can open the file only for what is shared.
class FileLock {
public:
    FileLock(const std::string& path, DWORD share)
        : han_(CreateFileA(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(han_, INVALID_HANDLE_VALUE) << path;
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock() { CloseHandle(han_); }

private:
    HANDLE han_;
};

// Nobody can write the file, as when it is marked read-only (which the tests' user may be allowed
// to pass over).
struct WriteLock : FileLock {
    explicit WriteLock(const std::string& path) : FileLock(path, FILE_SHARE_READ) {}
};

// Nobody can read the file either.
struct WholeLock : FileLock {
    explicit WholeLock(const std::string& path) : FileLock(path, 0) {}
};

} // namespace zentrik_test
