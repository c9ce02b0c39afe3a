#include "console/run.h"

#include "morv/run_tool.h"

namespace console {

int RunProject(const RunOptions& options, const Report& report) {
    ConsoleProgram program;
    if (const int code = MakeConsoleProgram(options.project, options.morv, report, program);
        code != kNothingFound)
        return code;
    report.out.flush();
    std::vector<std::string> words = {"/limit", std::to_string(options.limit)};
    if (options.trace)
        words.emplace_back("/trace");
    const morv::Command command{program.file, words, std::filesystem::current_path(), {}, -1, {}};
    const int code = morv::RunTools({command}, 1, [](std::size_t, int) { return true; }).front();
    if (code == 0 || code == kFound)
        return code;
    if (code == kTookTooLong) // as its last line says
        return kFound;
    return report.Stop(options.project, code == morv::kStopped
                                            ? "its program did not start or was ended"
                                            : "its program ended with " + std::to_string(code));
}

} // namespace console
