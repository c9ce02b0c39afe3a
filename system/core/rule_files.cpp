#include "system/core/rule_files.h"

#include "shell/core/record_text.h"
#include "shell/core/replacement.h"

bool StoreIndex(const std::string& path, std::string_view index) {
    return path.size() < kNameSize ? files::ReplaceKeeping(path.c_str(), index)
                                   : files::NameTooLong();
}

StoredRules StoreRules(const std::string& path, std::string_view text,
                       const std::string& index_path, std::string_view index) {
    if (index_path.size() >= kNameSize) {
        files::NameTooLong();
        return StoredRules::NotIndex;
    }
    files::Replacement files;
    if (!index_path.empty())
        files.Put(index_path, index, files::Before::Kept);
    files.Put(path, text, files::Before::Kept);
    if (files.CarryOut())
        return StoredRules::Yes;
    return files.Failed() == path ? StoredRules::NotRules : StoredRules::NotIndex;
}
