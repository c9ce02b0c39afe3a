#include "project/core/results_file.h"

#include "shell/core/record_text.h"

#include <unordered_set>

bool PruneResults(const char* auxiliary, const char* results) {
    std::vector<TagRecord> kept;
    std::vector<TagRecord> gone;
    if (!ReadRecords(auxiliary, files::Mode::Update, kept) ||
        !ReadRecords(results, files::Mode::Update, gone))
        return true;
    std::unordered_set<std::string> names;
    for (const TagRecord& record : gone)
        names.insert(Text(record.name));
    const std::size_t before = kept.size();
    std::erase_if(kept, [&](const TagRecord& record) { return names.contains(Text(record.name)); });
    return kept.size() == before || files::ReplaceKeeping(auxiliary, BytesOf(kept));
}

bool EmptyResults(const char* auxiliary) {
    std::string bytes;
    return !files::ReadWhole(auxiliary, files::Mode::Update, bytes) || bytes.empty() ||
           files::ReplaceKeeping(auxiliary, "");
}
