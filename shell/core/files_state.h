// What the parts of the file layer share: why the last call failed, and the full disk of the tests.
#pragma once

#include <cerrno>
#include <cstdint>

namespace files {

inline int g_last_error = 0;
inline std::int64_t g_writes_left = -1; // bytes until the disk is full; negative: it never is

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

// The rename between two drives: `to` is replaced whole before `from` goes.
bool CopyOver(const char* from, const char* to);

} // namespace files
