// The compiler utility: makes the program of a project from the files that Zentrik generated. Its
// words are those of command_line.h. What it and the compilers have to say goes to zkcc.log in the
// project folder, and to a window.
#include "command_line.h"
#include "run_tool.h"
#include "zkcc_build.h"
#include "zkcc_window.h"

#include <cstdio>
#include <exception>

namespace {

int Run(const std::vector<std::string>& words) {
    morv::Screen screen;
    morv::Job job;
    const std::string wrong = morv::ReadCommandLine(words, job);
    if (wrong.empty())
        return morv::BuildProgram(job, screen) ? 0 : 1;
    std::fprintf(stderr, "zkcc: %s\n", wrong.c_str());
    morv::TellFailure(job.project, wrong, screen);
    return 2;
}

} // namespace

int main(int count, char** words) {
    const std::vector<std::string> arguments = morv::CommandWords(count, words);
#ifdef _WIN32
    if (arguments.size() == 1 && arguments[0] == "--show")
        return morv::ShowProgress();
#endif
    try {
        return Run(arguments);
    } catch (const std::exception& failure) { // such as no memory
        std::fprintf(stderr, "zkcc: %s\n", failure.what());
        return 1;
    }
}
