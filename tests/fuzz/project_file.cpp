// The project file.
#include "project/core/project_file.h"
#include "tests/fuzz/fuzz.h"

void Fuzz(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    ProjectFile project;
    const ReadResult result = ReadProject(path.c_str(), project);
    if (result == ReadResult::Missing || result == ReadResult::Useless)
        return;
    const int systems = project.head.EngNum;
    const int externs = project.head.ExtNum;
    fuzz::Holds(systems >= 0 && systems <= kMaxSystems, "a project has at most its systems");
    fuzz::Holds(externs >= 0 && externs <= kMaxExterns, "a project has at most its externs");
    fuzz::Holds(static_cast<std::size_t>(project.head.ResNum) == project.results.size(),
                "the results are counted");

    fuzz::Holds(WriteProject(path.c_str(), project), "a project is written");
    const std::string written = fuzz::ContentOf(path);
    fuzz::Holds(result != ReadResult::Ok || input.starts_with(written),
                "a sound project is written as it was");
    ProjectFile again;
    fuzz::Holds(ReadProject(path.c_str(), again) == ReadResult::Ok, "what was written is sound");
    fuzz::Holds(WriteProject(path.c_str(), again) && fuzz::ContentOf(path) == written,
                "a project written, read and written again has the same bytes");
}
