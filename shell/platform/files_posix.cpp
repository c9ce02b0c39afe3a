#include "shell/core/files.h"
#include "shell/core/files_state.h"

#include <cctype>
#include <cstdio>
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
    if (DiskIsFull(size))
        return -1;
    auto put = static_cast<int>(write(han, data, size));
    return Noted(put, put < 0);
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
    return han == -1 || Noted(close(han) == 0);
}

bool Remove(const char* path) {
    return Noted(unlink(LocalPath(path).c_str()) == 0);
}

bool Rename(const char* from, const char* to) {
    if (Exists(to)) {
        errno = EEXIST;
        return Noted(false);
    }
    return RenameOver(from, to);
}

bool RenameOver(const char* from, const char* to) {
    if (std::rename(LocalPath(from).c_str(), LocalPath(to).c_str()) == 0)
        return true;
    return errno == EXDEV ? CopyOver(from, to) : Noted(false);
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
