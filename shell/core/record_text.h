// Text fields and record files. On disk a name is a field of fixed size that ends with a NUL; what
// follows the NUL means nothing. A field without a NUL ends at its last byte.
#pragma once

#include "shell/core/files.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

constexpr int kNameSize = 255; // a file or item name with its NUL
constexpr int kTagSize = 50;   // a tag, result or knowledge type name with its NUL

// The text of a field, never reading past it.
template <std::size_t N> std::string Text(const char (&field)[N]) {
    return std::string(field, strnlen(field, N));
}

// Puts `text` into a field, cut to fit, and fills the rest with zeros.
template <std::size_t N> void SetText(char (&field)[N], std::string_view text) {
    const std::size_t size = strnlen(text.data(), std::min(text.size(), N - 1));
    // The text may be part of this very field.
    std::memmove(field, text.data(), size);
    std::memset(field + size, 0, N - size);
}

// Gives a working copy up: `name` becomes the file `before` it again, and `before` empty.
template <std::size_t N> void GoBack(char (&name)[N], char (&before)[N]) {
    SetText(name, Text(before));
    SetText(before, "");
}

// One name in a file of 50-byte names (tags, results, knowledge types).
struct TagRecord {
    char name[kTagSize];
};
static_assert(sizeof(TagRecord) == 50);

// One name in a 255-byte field (opposites, result file paths).
struct NameRecord {
    char name[kNameSize];
};
static_assert(sizeof(NameRecord) == 255);

// The whole records in `bytes` after `offset`; a shorter rest is left out.
template <class Record>
std::vector<Record> RecordsIn(std::string_view bytes, std::size_t offset = 0) {
    const std::size_t size = bytes.size() > offset ? bytes.size() - offset : 0;
    std::vector<Record> records(size / sizeof(Record));
    if (!records.empty())
        std::memcpy(records.data(), bytes.data() + offset, records.size() * sizeof(Record));
    return records;
}

// Reads the whole records of a file after its first `offset` bytes. Returns false, with no
// records, when the file cannot be opened.
template <class Record>
bool ReadRecords(const char* path, files::Mode mode, std::vector<Record>& records,
                 std::size_t offset = 0) {
    std::string bytes;
    const bool ok = files::ReadWhole(path, mode, bytes);
    records = RecordsIn<Record>(bytes, offset);
    return ok;
}

// The bytes of records, as they stand in a file.
template <class Record> std::string_view BytesOf(const std::vector<Record>& records) {
    return {reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record)};
}

template <class Record> std::string_view BytesOf(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof(Record)};
}
