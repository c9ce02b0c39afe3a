// How many entries of a project's lists a build goes through, whatever the record claims.
#pragma once

#include "project/core/project_file.h"

#include <algorithm>

// A packed record's fields cannot be bound to references, so the counts are copied first.
inline int SystemCount(const ProjectRecord& project) {
    const int count = project.EngNum;
    return std::clamp(count, 0, kMaxSystems);
}

inline int ExternCount(const ProjectRecord& project) {
    const int count = project.ExtNum;
    return std::clamp(count, 0, kMaxExterns);
}
