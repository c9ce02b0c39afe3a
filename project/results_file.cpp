#include "project/results_file.h"

#include "shell/record_text.h"

#include <unordered_set>

void PruneResults(const char* auxiliary, const char* results) {
    std::vector<TagRecord> kept;
    std::vector<TagRecord> gone;
    if (!ReadRecords(auxiliary, files::Mode::Update, kept) ||
        !ReadRecords(results, files::Mode::Update, gone))
        return;
    std::unordered_set<std::string> names;
    for (const TagRecord& record : gone)
        names.insert(Text(record.name));
    const std::size_t before = kept.size();
    std::erase_if(kept, [&](const TagRecord& record) { return names.contains(Text(record.name)); });
    if (kept.size() != before)
        files::ReplaceWhole(auxiliary, BytesOf(kept));
}

void EmptyResults(const char* auxiliary) {
    int han = files::Open(auxiliary, files::Mode::Update);
    if (han == -1)
        return;
    files::ChangeSize(han, 0);
    files::Close(han);
}
