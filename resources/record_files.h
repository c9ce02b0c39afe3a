// Record files that an editor reads when it opens and replaces whole when it closes.
#pragma once

#include "shell/record_text.h"

#include <span>

// Reads the whole records of a file, which is created empty when missing. One that is marked
// read-only is read all the same; a change to it is reported when it is written.
template <class Record> bool ReadOrCreate(const char* path, std::vector<Record>& records) {
    return ReadRecords(path, files::Mode::UpdateOrCreate, records) ||
           ReadRecords(path, files::Mode::Read, records);
}

// The names in records of tags, results or knowledge types.
inline std::vector<std::string> NamesOf(std::span<const TagRecord> records) {
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const TagRecord& record : records)
        names.push_back(Text(record.name));
    return names;
}

// The names in a file that is not created; none when it cannot be opened.
inline std::vector<std::string> NamesIn(const char* path) {
    std::vector<TagRecord> records;
    ReadRecords(path, files::Mode::Read, records);
    return NamesOf(records);
}

// Replaces a file of names. Returns false, leaving the old file, when that fails.
inline bool WriteNames(const char* path, std::span<const std::string> names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return files::ReplaceWhole(path, BytesOf(records));
}
