#include "run_tool.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sstream>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace morv {

namespace fs = std::filesystem;

namespace {

// What a started program finds as its files and folder.
class Actions {
public:
    Actions() { posix_spawn_file_actions_init(&actions_); }
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;
    ~Actions() { posix_spawn_file_actions_destroy(&actions_); }

    void Open(int file, const char* path, int mode) {
        posix_spawn_file_actions_addopen(&actions_, file, path, mode, 0666);
    }
    void Copy(int from, int to) { posix_spawn_file_actions_adddup2(&actions_, from, to); }
    void Enter(const char* folder) { posix_spawn_file_actions_addchdir_np(&actions_, folder); }

    // Returns the process, 0 when it does not start.
    pid_t Start(const std::string& program, std::vector<std::string> words) const {
        words.insert(words.begin(), program);
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        pid_t process = 0;
        return posix_spawnp(&process, program.c_str(), &actions_, nullptr, pointers.data(),
                            environ) == 0
                   ? process
                   : 0;
    }

private:
    posix_spawn_file_actions_t actions_;
};

} // namespace

std::vector<std::string> CommandWords(int count, char** words) {
    return {words + 1, words + count};
}

int ProcessNumber() {
    return getpid();
}

fs::path OwnProgram() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

void LookFirstIn(const fs::path& folder) {
    const char* path = std::getenv("PATH");
    setenv("PATH", (folder.string() + ":" + (path != nullptr ? path : "")).c_str(), 1);
}

fs::path FindTool(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const fs::path tool = fs::path(folder) / name;
        std::error_code error;
        if (fs::is_regular_file(tool, error) && access(tool.c_str(), X_OK) == 0)
            return tool;
    }
    return {};
}

fs::path PathFromTool(const std::string& text) {
    return text;
}

Process StartTool(const Command& command) {
    Actions actions;
    if (!command.says.empty()) {
        actions.Open(STDIN_FILENO, command.reads.empty() ? "/dev/null" : command.reads.c_str(),
                     O_RDONLY);
        actions.Open(STDOUT_FILENO, command.says.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
        actions.Copy(STDOUT_FILENO, STDERR_FILENO);
    }
    actions.Enter(command.folder.c_str());
    return actions.Start(command.tool.string(), command.arguments);
}

std::size_t WaitForOne(const std::vector<Process>& running, int& code) {
    for (;;) {
        int status = 0;
        const pid_t ended = waitpid(-1, &status, 0);
        for (std::size_t at = 0; at < running.size(); ++at)
            if (running[at] == ended) {
                code = WIFEXITED(status) ? WEXITSTATUS(status) : kStopped;
                return at;
            }
        if (ended < 0 && errno != EINTR)
            return 0; // gone without a trace: `code` stays what it was
    }
}

// The script says by ZKCC_SHOW where the window's program is, which Wine runs.
std::FILE* StartWindow() {
    const char* program = std::getenv("ZKCC_SHOW");
    int ends[2];
    if (program == nullptr || *program == '\0' || pipe2(ends, O_CLOEXEC) != 0)
        return nullptr;
    std::signal(SIGPIPE, SIG_IGN); // the user may close the window
    Actions actions;
    actions.Copy(ends[0], STDIN_FILENO);
    actions.Open(STDOUT_FILENO, "/dev/null", O_WRONLY);
    actions.Open(STDERR_FILENO, "/dev/null", O_WRONLY);
    const pid_t started = actions.Start("wine", {program, "--show"});
    close(ends[0]);
    if (started == 0) {
        close(ends[1]);
        return nullptr;
    }
    return fdopen(ends[1], "w");
}

Lock::~Lock() {
    if (file_ >= 0)
        close(static_cast<int>(file_));
}

bool Lock::Take(const fs::path& file, const std::function<void()>& waits) {
    const int lock = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (lock < 0)
        return false;
    file_ = lock;
    if (flock(lock, LOCK_EX | LOCK_NB) == 0)
        return true;
    if (errno != EWOULDBLOCK)
        return true; // a file system without locks: such runs are not kept apart
    waits();
    while (flock(lock, LOCK_EX) != 0)
        if (errno != EINTR)
            return false;
    return true;
}

} // namespace morv
