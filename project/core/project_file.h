// The project file (.mrv): which main source, systems, extern sources, DDE items and results make
// up a program.
#pragma once

#include "shell/core/read_result.h"
#include "shell/core/record_text.h"
#include "shell/core/working_copy.h"

#include <cstddef>
#include <cstdint>

constexpr int kMaxSystems = 8; // rows 1..8 are used, row 0 stays empty
constexpr int kMaxExterns = 3; // rows 1..3 are used, row 0 stays empty

#pragma pack(push, 1)
struct ProjectRecord {
    char MainName[kNameSize];
    char EngineNames[kMaxSystems + 1][kNameSize];
    char ExternFiles[kMaxExterns + 1][kNameSize];
    char DDEName[kNameSize];
    char ResAux[kNameSize];
    std::int32_t EngNum;
    std::int32_t ExtNum;
    std::int32_t ResNum;
    std::int32_t DatHisLen;
};
#pragma pack(pop)

static_assert(sizeof(ProjectRecord) == 4096);
static_assert(offsetof(ProjectRecord, ExternFiles) == 2550 &&
              offsetof(ProjectRecord, ResAux) == 3825);
static_assert(offsetof(ProjectRecord, EngNum) == 4080);

struct ProjectFile {
    ProjectRecord head{};
    std::vector<NameRecord> results; // head.ResNum result file paths
};

// Reads a project file, which must be writable as well.
ReadResult ReadProject(const char* path, ProjectFile& project);

// Replaces a project file and brings the working copy of its results to its place: both or neither.
// Returns false, leaving the old files, when that fails.
bool WriteProject(const char* path, const ProjectFile& project, const WorkingCopy& results = {});
