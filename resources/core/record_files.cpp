#include "resources/core/record_files.h"

namespace {

std::vector<TagRecord> RecordsOf(std::span<const std::string> names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return records;
}

bool CanCreate(const char* path) {
    if (path[0] == '\0')
        return files::NameTooLong(); // the name that was to be made did not fit
    const bool there = files::Exists(path);
    const int han = files::Open(path, files::Mode::UpdateOrCreate);
    if (han == -1)
        return false;
    files::Close(han);
    if (!there)
        files::Remove(path);
    return true;
}

} // namespace

std::vector<std::string> NamesOf(std::span<const TagRecord> records) {
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const TagRecord& record : records)
        names.push_back(Text(record.name));
    return names;
}

std::vector<std::string> NamesIn(const char* path) {
    std::vector<TagRecord> records;
    ReadRecords(path, files::Mode::Read, records);
    return NamesOf(records);
}

bool WriteNames(const char* path, std::span<const std::string> names) {
    return files::ReplaceKeeping(path, BytesOf(RecordsOf(names)));
}

bool WriteWorkingNames(const char* path, std::span<const std::string> names) {
    return files::ReplaceWhole(path, BytesOf(RecordsOf(names)));
}

Stored StoreWhole(const char* path, std::string_view bytes) {
    if (!CanCreate(path))
        return Stored::NotCreated;
    return files::ReplaceWhole(path, bytes) ? Stored::Yes : Stored::NotWritten;
}
