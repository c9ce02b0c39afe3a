// Record files that an editor reads when it opens and replaces whole when it closes.
#pragma once

#include "shell/core/record_text.h"

#include <span>

// Reads the whole records of a file, which is created empty when missing. One that is marked
// read-only is read all the same; a change to it is reported when it is written.
template <class Record> bool ReadOrCreate(const char* path, std::vector<Record>& records) {
    return ReadRecords(path, files::Mode::UpdateOrCreate, records) ||
           ReadRecords(path, files::Mode::Read, records);
}

// The names in records of tags, results or knowledge types.
std::vector<std::string> NamesOf(std::span<const TagRecord> records);

// The names in a file that is not created; none when it cannot be opened.
std::vector<std::string> NamesIn(const char* path);

// Replaces a file of names; the names before stay as `path` with ".bak". Returns false, leaving the
// old file, when that fails.
bool WriteNames(const char* path, std::span<const std::string> names);

// The same for a working copy, of which nothing is kept.
bool WriteWorkingNames(const char* path, std::span<const std::string> names);

// What came of replacing a file.
enum class Stored {
    Yes,
    NotCreated, // nothing can be written there
    NotWritten, // it can, but not these bytes: the disk is full
};

// Replaces the whole content of `path`. Unless the answer is Yes the old content stays and
// files::LastError() says why.
Stored StoreWhole(const char* path, std::string_view bytes);
