#include "project/core/project_file.h"

namespace {

// Brings a count into 0..most; returns whether it had to change.
bool Clamp(std::int32_t& count, std::size_t most) {
    const std::int32_t was = count;
    count = std::clamp<std::int32_t>(count, 0, static_cast<std::int32_t>(most));
    return count != was;
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
    project.results = RecordsIn<NameRecord>(bytes, sizeof(ProjectRecord));
    bool damaged = Clamp(project.head.EngNum, kMaxSystems);
    damaged |= Clamp(project.head.ExtNum, kMaxExterns);
    damaged |= Clamp(project.head.ResNum, project.results.size());
    project.results.resize(static_cast<std::size_t>(project.head.ResNum));
    return damaged ? ReadResult::Damaged : ReadResult::Ok;
}

bool WriteProject(const char* path, const ProjectFile& project) {
    std::string bytes(BytesOf(project.head));
    bytes += BytesOf(project.results);
    return files::ReplaceWhole(path, bytes);
}
