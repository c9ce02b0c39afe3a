#include "shell/core/files.h"
#include "shell/core/files_state.h"

#include <cstdio>
#include <direct.h>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace files {

namespace {

// The mark alone decides, whatever the user may do to the file otherwise.
bool IsReadOnly(const char* path) {
    const DWORD marks = GetFileAttributesA(path);
    return marks != INVALID_FILE_ATTRIBUTES && (marks & FILE_ATTRIBUTE_READONLY) != 0 &&
           (marks & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

int ErrnoOf(DWORD reason) {
    switch (reason) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return ENOENT;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    default:
        return EACCES;
    }
}

} // namespace

int Open(const char* path, Mode mode) {
    if (mode != Mode::Read && IsReadOnly(path)) {
        errno = EACCES;
        return Noted(-1, true);
    }
    int flags = _O_BINARY;
    switch (mode) {
    case Mode::Read:
        flags |= _O_RDONLY;
        break;
    case Mode::Update:
        flags |= _O_RDWR;
        break;
    case Mode::UpdateOrCreate:
        flags |= _O_RDWR | _O_CREAT;
        break;
    case Mode::Create:
        flags |= _O_RDWR | _O_CREAT | _O_TRUNC;
        break;
    case Mode::Append:
        flags |= _O_WRONLY | _O_CREAT | _O_APPEND;
        break;
    }
    int han = _open(path, flags, _S_IREAD | _S_IWRITE);
    return Noted(han, han == -1);
}

int Read(int han, void* data, unsigned size) {
    int got = _read(han, data, size);
    return Noted(got, got < 0);
}

int Write(int han, const void* data, unsigned size) {
    if (DiskIsFull(size))
        return -1;
    int put = _write(han, data, size);
    return Noted(put, put < 0);
}

std::int64_t Seek(int han, std::int64_t offset, Origin origin) {
    const int whence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    std::int64_t at = _lseeki64(han, offset, whence[static_cast<int>(origin)]);
    return Noted(at, at < 0);
}

bool ChangeSize(int han, std::int64_t size) {
    const std::int64_t at = _telli64(han);
    bool ok = _chsize_s(han, size) == 0;
    // The position stays where it was, as on the other platform.
    _lseeki64(han, at, SEEK_SET);
    return Noted(ok);
}

std::int64_t Length(int han) {
    std::int64_t length = _filelengthi64(han);
    return Noted(length, length < 0);
}

bool Eof(int han) {
    std::int64_t at = _telli64(han);
    return at < 0 || at >= Length(han);
}

bool Close(int han) {
    return han == -1 || Noted(_close(han) == 0);
}

bool Remove(const char* path) {
    return Noted(std::remove(path) == 0);
}

bool Rename(const char* from, const char* to) {
    return Noted(std::rename(from, to) == 0);
}

bool RenameOver(const char* from, const char* to) {
    if (MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING))
        return true;
    const DWORD reason = GetLastError();
    // The system's own copy to another drive would write into the old file.
    if (reason == ERROR_NOT_SAME_DEVICE)
        return CopyOver(from, to);
    errno = ErrnoOf(reason);
    return Noted(false);
}

bool Exists(const char* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

bool MakeFolder(const char* path) {
    return Noted(_mkdir(path) == 0);
}

bool RemoveFolder(const char* path) {
    return Noted(_rmdir(path) == 0);
}

} // namespace files
