// The rule index (.siz): one record per rule of a rules file, in text order.
#pragma once

#include "shell/core/record_text.h"

#include <cstddef>

#pragma pack(push, 1)
struct RuleIndexRecord {
    std::int32_t size; // bytes of text from this rule's start to the next rule's
    std::int32_t num;  // not used
    char name[kNameSize];
    std::int32_t bor; // 0: live record
};
#pragma pack(pop)

static_assert(sizeof(RuleIndexRecord) == 267 && offsetof(RuleIndexRecord, bor) == 263);
