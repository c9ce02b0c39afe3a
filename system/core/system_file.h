// The system file (.lse): the resource files of one expert system, its facts and its opposites.
#pragma once

#include "resources/core/fact.h"
#include "shell/core/read_result.h"
#include "shell/core/record_text.h"
#include "shell/core/working_copy.h"

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

// Reads a system file, which must be writable as well. Of one that lacks records the counts are set
// to the whole ones it has; one that only lacks records of facts keeps its opposites.
ReadResult ReadSystem(const char* path, SystemFile& system);

// The system that these bytes of a file hold, as ReadSystem reads it; an empty one when they are
// shorter than a head.
SystemFile SystemIn(std::string_view bytes);

// The bytes of a system file. The counts of the head are written as they are, also when fewer
// facts stand behind it.
std::string SystemBytes(const SystemFile& system);

// The files beside a system file that change when it is saved. A working copy without names stands
// for none.
struct SystemCopies {
    WorkingCopy variables;
    WorkingCopy initial_facts;
    std::string lost_variables; // a variables file that goes without a successor, or empty
};

// Adds what brings the copies to their places. Returns false when that is not possible.
bool AddCopies(files::Replacement& files, const SystemCopies& copies);

// Removes the working files of copies that have got to their places.
void RemoveMoved(const SystemCopies& copies);

// Replaces a system file and brings its copies to their places: everything or nothing. Returns
// false, leaving the old files, when that fails.
bool SaveSystem(const char* path, const SystemFile& system, const SystemCopies& copies);

// An opposite entry split at its first TAB; without one it is a result with an empty opposite.
struct OppositePair {
    std::string result;
    std::string opposite;
};
OppositePair SplitOpposite(std::string_view entry);
