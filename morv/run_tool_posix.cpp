#include "run_tool.h"

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace morv {

namespace {

constexpr int kShellFoundNone = 127;

// An argument for the shell.
std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

} // namespace

std::vector<std::string> CommandWords(int count, char** words) {
    return {words + 1, words + count};
}

int ProcessNumber() {
    return getpid();
}

void LookFirstIn(const std::filesystem::path& folder) {
    const char* path = std::getenv("PATH");
    setenv("PATH", (folder.string() + ":" + (path != nullptr ? path : "")).c_str(), 1);
}

int RunTool(const std::string& tool, const std::vector<std::string>& arguments,
            const std::filesystem::path& log) {
    std::string line = Quoted(tool);
    for (const std::string& argument : arguments)
        line += " " + Quoted(argument);
    line += " >>" + Quoted(log.string()) + " 2>&1";
    const int status = std::system(line.c_str());
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    return code == kShellFoundNone ? kNoTool : code;
}

} // namespace morv
