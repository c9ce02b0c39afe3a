// Files as low-level descriptors: the one place where the program meets the file system.
//
// Paths are the program's own, with backslashes and drive letters. On a POSIX host a drive path
// is mapped below the folder set with SetDriveRoot (drive C: is its subfolder "c").
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace files {

enum class Mode {
    Read,           // must exist
    Update,         // read and write, must exist and be writable
    UpdateOrCreate, // read and write, created empty when missing
    Create,         // read and write, created or truncated
    CreateNew,      // read and write, must not exist
    Append,         // write at the end, created when missing
};

enum class Origin { Start, Current, End };

// Opens `path` in binary mode. Returns a descriptor, or -1 with the reason in LastError().
int Open(const char* path, Mode mode);

// Transfers up to `size` bytes; returns the number of bytes read, or -1.
int Read(int han, void* data, unsigned size);

// Writes `size` bytes. Returns `size`, or -1 when they could not all be written.
int Write(int han, const void* data, unsigned size);

// Waits until what was written is on the disk. Returns false on failure.
bool Flush(int han);

// Moves the file position; returns the new position in bytes from the start, or -1.
std::int64_t Seek(int han, std::int64_t offset, Origin origin);

// Cuts or extends the file to `size` bytes. Returns false on failure.
bool ChangeSize(int han, std::int64_t size);

// True when the position is at or past the end of the file (also for a bad descriptor).
bool Eof(int han);

// Length in bytes, or -1.
std::int64_t Length(int han);

// Closes the descriptor; -1 is ignored. Returns false when buffered data could not be stored.
bool Close(int han);

bool Remove(const char* path);
bool RenameOver(const char* from, const char* to); // replaces `to`, on the same drive
bool Exists(const char* path);                     // a file or a folder
bool MakeFolder(const char* path);
bool RemoveFolder(const char* path); // fails when not empty

// Gives a file a second name on the same drive. Returns false when the drive knows no such names.
bool AddName(const char* path, const char* name);

// As RenameOver for a `to` that exists, with the rights and attributes that `to` had.
bool TakePlace(const char* from, const char* to);

// Where the file of this path is: `path` itself unless it is a link to a file elsewhere.
std::string BehindLinks(const char* path);

// True for what is there and neither a file nor a folder: something to write to, as a device or a
// pipe, that nothing can take the place of.
bool IsDevice(const char* path);

// True when both paths lead to one file, which exists.
bool SameFile(const char* path, const char* other);

// The runtime's error number (errno) of the last call above that failed. It stays until the next
// failure, so it can still be reported after other boxes were shown.
int LastError();

// Puts back the reason of a failure that matters more than those of clearing up after it.
void SetLastError(int reason);

// Notes that a name is too long for its field. Returns false.
bool NameTooLong();

// Reads a whole file in large blocks. Returns false (text emptied) when it cannot be opened or
// read, or is too large to be one text.
bool ReadWhole(const char* path, Mode mode, std::string& text);

// For a program that only looks into files: ReadWhole takes Mode::Update for Mode::Read, so that a
// file that must not be written can be read all the same.
void ReadOnlyToLook(bool on);

// Writes the whole text. Returns false on failure.
bool WriteAll(int han, std::string_view text);

// Replaces the whole content of `path`. Returns false on any failure, and then the old file is as
// it was. A file that exists but cannot be written is not replaced. See shell/core/replacement.h.
bool ReplaceWhole(const char* path, std::string_view text);

// As ReplaceWhole for what a user made: the content before stays as `path` with ".bak".
bool ReplaceKeeping(const char* path, std::string_view text);

// For tests: after `bytes` more bytes every Write fails as on a full disk; a negative number
// switches this off.
void FailWritesAfter(std::int64_t bytes);

// For tests: of the operations that follow (opening, writing, flushing, closing, renaming, naming
// and removing a file) this one fails, counted from 1; 0 switches this off.
void FailOperation(std::int64_t number);

// How many of them there were since.
std::int64_t Operations();

#ifndef _WIN32
// The local folder that stands for the drives; without one drive paths are not mapped.
void SetDriveRoot(const std::string& folder);
std::string LocalPath(const char* path);

// Puts another rule for LocalPath in place of the drive root; null takes it away.
using PathMap = std::string (*)(const char* path);
void SetPathMap(PathMap map);
#endif

} // namespace files
