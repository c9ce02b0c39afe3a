// What the parts of the file layer share: why the last call failed, and the faults of the tests.
#pragma once

#include <cerrno>
#include <cstdint>

namespace files {

inline int g_last_error = 0;
inline std::int64_t g_writes_left = -1; // bytes until the disk is full; negative: it never is
inline std::int64_t g_operations = 0;
inline std::int64_t g_failing_operation = 0; // 0: none

// Pass a result on and keep errno when the call failed.
template <class T> T Noted(T result, bool failed) {
    if (failed)
        g_last_error = errno;
    return result;
}

inline bool Noted(bool ok) {
    return Noted(ok, !ok);
}

// Asked before `size` bytes are written: true when they do not fit any more.
inline bool DiskIsFull(unsigned size) {
    if (g_writes_left < 0)
        return false;
    if (size > g_writes_left) {
        errno = ENOSPC;
        return Noted(true, true);
    }
    g_writes_left -= size;
    return false;
}

// Asked before each operation that a test can let fail.
inline bool OperationFails() {
    if (++g_operations != g_failing_operation)
        return false;
    errno = EIO;
    return Noted(true, true);
}

} // namespace files
