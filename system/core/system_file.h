// The system file (.lse): the resource files of one expert system, its facts and its opposites.
#pragma once

#include "resources/core/fact.h"
#include "shell/core/read_result.h"
#include "shell/core/record_text.h"

#pragma pack(push, 1)
struct SystemHead {
    char KTypeName[kNameSize];
    char RuleName[kNameSize];
    char RuleSizeName[kNameSize];
    char HeaderName[kNameSize];
    char VarName[kNameSize];
    char InitName[kNameSize];
    char KnowName[kNameSize];
    std::int32_t TypNum;
    std::int32_t DatNum;
    std::int32_t OppNum;
};
#pragma pack(pop)

static_assert(sizeof(SystemHead) == 1797 && offsetof(SystemHead, TypNum) == 1785);

struct SystemFile {
    SystemHead head{};
    std::vector<Dat> facts;            // head.DatNum
    std::vector<NameRecord> opposites; // head.OppNum, each "result TAB opposite"
};

// Reads a system file, which must be writable as well. Of a damaged file the counts are set to
// the whole records it has; one that only lacks records of facts keeps its opposites.
ReadResult ReadSystem(const char* path, SystemFile& system);

// The system that these bytes of a file hold, as ReadSystem reads it; an empty one when they are
// shorter than a head.
SystemFile SystemIn(std::string_view bytes);

// The bytes of a system file. The counts of the head are written as they are, also when fewer
// facts stand behind it.
std::string SystemBytes(const SystemFile& system);

// An opposite entry split at its first TAB; without one it is a result with an empty opposite.
struct OppositePair {
    std::string result;
    std::string opposite;
};
OppositePair SplitOpposite(std::string_view entry);
