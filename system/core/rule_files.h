// A rules file (.rul) and its index (.siz), as the rule editor reads and writes them.
#pragma once

#include <string>
#include <string_view>

// What came of saving rules.
enum class StoredRules {
    Yes,
    NotIndex, // the index could not be written; the rules file was not touched
    NotRules, // the rules file could not be written; neither file was touched
};

// Replaces an index alone. Returns false, leaving the old one, when that fails.
bool StoreIndex(const std::string& path, std::string_view index);

// Replaces a rules file and its index: both or neither. Without an index path only the rules file.
StoredRules StoreRules(const std::string& path, std::string_view text,
                       const std::string& index_path, std::string_view index);
