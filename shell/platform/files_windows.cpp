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

// Passes on what the system answered, with its reason as an errno.
bool Answered(BOOL ok) {
    if (!ok)
        errno = ErrnoOf(GetLastError());
    return Noted(ok != FALSE);
}

// A file that is open for a look at what it is.
class Look {
public:
    explicit Look(const char* path)
        : han_(CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           OPEN_EXISTING, 0, nullptr)) {
        known_ = han_ != INVALID_HANDLE_VALUE && GetFileInformationByHandle(han_, &about_);
    }
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look() {
        if (han_ != INVALID_HANDLE_VALUE)
            CloseHandle(han_);
    }

    bool IsDevice() const {
        return han_ != INVALID_HANDLE_VALUE && GetFileType(han_) != FILE_TYPE_DISK;
    }

    bool IsSame(const Look& other) const {
        return known_ && other.known_ &&
               about_.dwVolumeSerialNumber == other.about_.dwVolumeSerialNumber &&
               about_.nFileIndexHigh == other.about_.nFileIndexHigh &&
               about_.nFileIndexLow == other.about_.nFileIndexLow;
    }

    // The path without its drive, behind links; empty when it cannot be said.
    std::string Name() const {
        constexpr DWORD kMost = 1024;
        alignas(FILE_NAME_INFO) char bytes[sizeof(FILE_NAME_INFO) + kMost * sizeof(WCHAR)];
        auto* info = reinterpret_cast<FILE_NAME_INFO*>(bytes);
        if (!known_ || !GetFileInformationByHandleEx(han_, FileNameInfo, bytes, sizeof bytes))
            return {};
        char name[kMost * 2];
        BOOL unknown = FALSE;
        const int length = WideCharToMultiByte(
            CP_ACP, 0, info->FileName, static_cast<int>(info->FileNameLength / sizeof(WCHAR)), name,
            sizeof name, nullptr, &unknown);
        return unknown ? std::string() : std::string(name, static_cast<std::size_t>(length));
    }

private:
    HANDLE han_;
    BY_HANDLE_FILE_INFORMATION about_{};
    bool known_;
};

// Its path with a drive; empty when it has none.
std::string FullPath(const char* path) {
    char full[1024];
    const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
    return length > 1 && length < sizeof full && full[1] == ':' ? full : std::string();
}

} // namespace

int Open(const char* path, Mode mode) {
    if (OperationFails())
        return -1;
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
    case Mode::CreateNew:
        flags |= _O_RDWR | _O_CREAT | _O_EXCL;
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
    if (OperationFails() || DiskIsFull(size))
        return -1;
    const int put = _write(han, data, size);
    if (put == static_cast<int>(size))
        return put;
    // A disk that fills up takes a part, which the runtime may report as a wrong argument.
    if (put >= 0 || errno == EINVAL)
        errno = ENOSPC;
    return Noted(-1, true);
}

bool Flush(int han) {
    return !OperationFails() &&
           Answered(FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(han))));
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
    if (han == -1)
        return true;
    const bool fails = OperationFails();
    return Noted(_close(han) == 0) && !fails;
}

bool Remove(const char* path) {
    return !OperationFails() && Noted(std::remove(path) == 0);
}

bool RenameOver(const char* from, const char* to) {
    return !OperationFails() &&
           Answered(MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

bool AddName(const char* path, const char* name) {
    return !OperationFails() && Answered(CreateHardLinkA(name, path, nullptr));
}

bool TakePlace(const char* from, const char* to) {
    if (OperationFails())
        return false;
    // The system's own way leaves the attributes out where the drive keeps no access rights.
    SetFileAttributesA(from, GetFileAttributesA(to));
    if (ReplaceFileA(to, from, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
        return true;
    // It may have failed half way, with nothing at the place any more.
    return RenameOver(from, to);
}

// The system says where a file really is, but on which drive only the file itself can tell.
std::string BehindLinks(const char* path) {
    const Look file(path);
    const std::string name = file.Name();
    const std::string full = FullPath(path);
    if (name.empty() || full.empty() || lstrcmpiA(name.c_str(), full.c_str() + 2) == 0)
        return path;
    for (const char drive : std::string(1, full[0]) + "ABCDEFGHIJKLMNOPQRSTUVWXYZ") {
        const std::string place = std::string(1, drive) + ":" + name;
        if (Exists(place.c_str()) && file.IsSame(Look(place.c_str())))
            return place;
    }
    return path;
}

bool IsDevice(const char* path) {
    return Look(path).IsDevice();
}

bool SameFile(const char* path, const char* other) {
    return Look(path).IsSame(Look(other));
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
