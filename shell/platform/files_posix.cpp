#include "shell/core/files.h"
#include "shell/core/files_state.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace files {

namespace {

std::string g_drive_root;
PathMap g_path_map = nullptr;

} // namespace

void SetPathMap(PathMap map) {
    g_path_map = map;
}

void SetDriveRoot(const std::string& folder) {
    g_drive_root = folder;
}

std::string LocalPath(const char* path) {
    if (g_path_map)
        return g_path_map(path);
    std::string local = path;
    if (g_drive_root.empty())
        return local;
    for (char& c : local)
        if (c == '\\')
            c = '/';
    if (local.size() >= 2 && local[1] == ':') {
        char drive = static_cast<char>(std::tolower(static_cast<unsigned char>(local[0])));
        local = g_drive_root + "/" + drive + local.substr(2);
    }
    return local;
}

int Open(const char* path, Mode mode) {
    if (OperationFails())
        return -1;
    int flags = 0;
    switch (mode) {
    case Mode::Read:
        flags = O_RDONLY;
        break;
    case Mode::Update:
        flags = O_RDWR;
        break;
    case Mode::UpdateOrCreate:
        flags = O_RDWR | O_CREAT;
        break;
    case Mode::Create:
        flags = O_RDWR | O_CREAT | O_TRUNC;
        break;
    case Mode::CreateNew:
        flags = O_RDWR | O_CREAT | O_EXCL;
        break;
    case Mode::Append:
        flags = O_WRONLY | O_CREAT | O_APPEND;
        break;
    }
    const std::string local = LocalPath(path);
    int han = open(local.c_str(), flags, 0666);
    // Windows opens no folder as a file; answer the same here, also to a wish to write.
    struct stat about {};
    if (han != -1 && fstat(han, &about) == 0 && S_ISDIR(about.st_mode)) {
        close(han);
        han = -1;
        errno = EACCES;
    } else if (han == -1 && errno == EISDIR) {
        errno = EACCES;
    }
    return Noted(han, han == -1);
}

int Read(int han, void* data, unsigned size) {
    auto got = static_cast<int>(read(han, data, size));
    return Noted(got, got < 0);
}

int Write(int han, const void* data, unsigned size) {
    if (OperationFails() || DiskIsFull(size))
        return -1;
    const char* at = static_cast<const char*>(data);
    // A disk that fills up takes a part first; the next call says why it does not take the rest.
    for (unsigned left = size; left > 0;) {
        const ssize_t put = write(han, at, left);
        if (put < 0 && errno == EDQUOT)
            errno = ENOSPC;
        if (put < 0)
            return Noted(-1, true);
        at += put;
        left -= static_cast<unsigned>(put);
    }
    return static_cast<int>(size);
}

bool Flush(int han) {
    if (OperationFails())
        return false;
    // What is no disk file has nothing to flush.
    return Noted(fsync(han) == 0 || errno == EINVAL);
}

std::int64_t Seek(int han, std::int64_t offset, Origin origin) {
    const int whence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    std::int64_t at = lseek(han, offset, whence[static_cast<int>(origin)]);
    return Noted(at, at < 0);
}

bool ChangeSize(int han, std::int64_t size) {
    return Noted(ftruncate(han, size) == 0);
}

std::int64_t Length(int han) {
    struct stat about {};
    if (fstat(han, &about) != 0)
        return Noted(std::int64_t{-1}, true);
    return about.st_size;
}

bool Eof(int han) {
    std::int64_t at = lseek(han, 0, SEEK_CUR);
    return at < 0 || at >= Length(han);
}

bool Close(int han) {
    if (han == -1)
        return true;
    const bool fails = OperationFails();
    return Noted(close(han) == 0) && !fails;
}

bool Remove(const char* path) {
    return !OperationFails() && Noted(unlink(LocalPath(path).c_str()) == 0);
}

bool RenameOver(const char* from, const char* to) {
    return !OperationFails() &&
           Noted(std::rename(LocalPath(from).c_str(), LocalPath(to).c_str()) == 0);
}

bool AddName(const char* path, const char* name) {
    return !OperationFails() && Noted(link(LocalPath(path).c_str(), LocalPath(name).c_str()) == 0);
}

bool TakePlace(const char* from, const char* to) {
    struct stat about {};
    if (stat(LocalPath(to).c_str(), &about) == 0)
        chmod(LocalPath(from).c_str(), about.st_mode & 07777);
    return RenameOver(from, to);
}

std::string BehindLinks(const char* path) {
    const std::string local = LocalPath(path);
    struct stat about {};
    if (lstat(local.c_str(), &about) != 0 || !S_ISLNK(about.st_mode))
        return path;
    char* real = realpath(local.c_str(), nullptr);
    const std::string place = real ? real : path;
    std::free(real);
    return place;
}

bool IsDevice(const char* path) {
    struct stat about {};
    return stat(LocalPath(path).c_str(), &about) == 0 && !S_ISREG(about.st_mode) &&
           !S_ISDIR(about.st_mode);
}

bool SameFile(const char* path, const char* other) {
    struct stat one {};
    struct stat two {};
    return stat(LocalPath(path).c_str(), &one) == 0 && stat(LocalPath(other).c_str(), &two) == 0 &&
           one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}

bool Exists(const char* path) {
    return access(LocalPath(path).c_str(), F_OK) == 0;
}

bool MakeFolder(const char* path) {
    return Noted(mkdir(LocalPath(path).c_str(), 0777) == 0);
}

bool RemoveFolder(const char* path) {
    return Noted(rmdir(LocalPath(path).c_str()) == 0);
}

} // namespace files
