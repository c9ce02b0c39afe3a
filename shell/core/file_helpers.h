// Searching texts, writing generated lines and reporting a failed file operation.
#pragma once

#include "shell/core/window_handle.h"

#include <string>
#include <string_view>

// Where `name` begins in the first `len` bytes of `text`, looked for from index `ini` on; -1 when
// it is not there (nothing is found for an empty name either). Each character is read once: the one
// that ends a half match cannot begin the next, so "ab" is missed in "aab".
int FindStr(const char* name, const char* text, int len, int ini);

// The same in a whole text of any length.
std::ptrdiff_t FindStr(std::string_view name, std::string_view text, std::ptrdiff_t ini = 0);

// A generated file being written: text collects in memory and goes to the file in large pieces.
class OutputFile {
public:
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile() { Close(); }

    // Creates or truncates `path`. Returns false when that fails (files::LastError() says why).
    bool Create(const char* path);

    // Adds bytes as they are.
    void Add(std::string_view bytes);

    // Writes what is left and closes. Returns false when anything could not be written.
    bool Close();

private:
    void Flush();

    int han_ = -1;
    bool ok_ = true;
    std::string buffer_;
};

// Writes the line end CR LF.
void Return(OutputFile& han);

// Writes `Text`, or nothing at all, without a word, when it has more than 256 characters. With
// `ret` 1 a line end follows in either case.
void WriteFile(OutputFile& han, std::string_view Text, int ret);

// Shows in a box "WARNING" of its own why the last file operation failed. Reasons other than a
// missing file, too many open files, no permission and a wrong access mode show nothing.
void GetErr();

// Shows why a file could not be saved: as GetErr, but other reasons get a text too.
void SaveErr();
