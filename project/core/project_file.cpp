#include "project/core/project_file.h"

#include <limits>

namespace {

bool IsWithin(std::int32_t count, std::size_t most) {
    return count >= 0 && static_cast<std::size_t>(count) <= most;
}

bool CountsArePossible(const ProjectRecord& head) {
    // The paths of the results are read as one text.
    constexpr std::size_t kMostResults = std::numeric_limits<std::int32_t>::max() / kNameSize;
    return IsWithin(head.EngNum, kMaxSystems) && IsWithin(head.ExtNum, kMaxExterns) &&
           IsWithin(head.ResNum, kMostResults);
}

} // namespace

ReadResult ReadProject(const char* path, ProjectFile& project) {
    project = {};
    std::string bytes;
    if (!files::ReadWhole(path, files::Mode::Update, bytes))
        return ReadResult::Missing;
    if (bytes.size() < sizeof(ProjectRecord))
        return ReadResult::Useless;
    std::memcpy(&project.head, bytes.data(), sizeof(ProjectRecord));
    if (!CountsArePossible(project.head)) {
        project = {};
        return ReadResult::Useless;
    }
    project.results = RecordsIn<NameRecord>(bytes, sizeof(ProjectRecord));
    const auto claimed = static_cast<std::size_t>(project.head.ResNum);
    const bool cut_short = project.results.size() < claimed;
    project.results.resize(std::min(project.results.size(), claimed));
    project.head.ResNum = static_cast<std::int32_t>(project.results.size());
    return cut_short ? ReadResult::Damaged : ReadResult::Ok;
}

bool WriteProject(const char* path, const ProjectFile& project, const WorkingCopy& results) {
    std::string bytes(BytesOf(project.head));
    bytes += BytesOf(project.results);
    files::Replacement files;
    files.Put(path, bytes, files::Before::Kept);
    if (!AddMove(files, results) || !files.CarryOut())
        return false;
    RemoveMoved(results);
    return true;
}
