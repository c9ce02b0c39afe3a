// A file that can be read and not written.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace zentrik_test {

// While it lives nobody can write the file, as when it is marked read-only (which the tests' user
// may be allowed to pass over).
class WriteLock {
public:
    explicit WriteLock(const std::string& path)
        : han_(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                           nullptr)) {
        EXPECT_NE(han_, INVALID_HANDLE_VALUE) << path;
    }
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;
    ~WriteLock() { CloseHandle(han_); }

private:
    HANDLE han_;
};

} // namespace zentrik_test
