#include "run_tool.h"

namespace morv {

namespace {

class Runner {
public:
    Runner(const std::vector<Command>& commands, std::size_t at_once,
           const std::function<bool(std::size_t, int)>& ended)
        : commands_(commands), at_once_(at_once), ended_(ended), codes_(commands.size(), kNotRun),
          begun_(commands.size(), false) {}

    std::vector<int> All() {
        for (Begin(); !running_.empty(); Begin()) {
            int code = kStopped;
            const std::size_t at = WaitForOne(running_, code);
            const std::size_t command = numbers_[at];
            running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(at));
            numbers_.erase(numbers_.begin() + static_cast<std::ptrdiff_t>(at));
            End(command, code);
        }
        return codes_;
    }

private:
    void Begin() {
        for (std::size_t i = 0; i < commands_.size() && go_on_ && running_.size() < at_once_; ++i) {
            if (begun_[i] || !MayBegin(i))
                continue;
            begun_[i] = true;
            if (const Process process = StartTool(commands_[i]); process != 0) {
                running_.push_back(process);
                numbers_.push_back(i);
            } else {
                End(i, kStopped);
            }
        }
    }

    bool MayBegin(std::size_t command) const {
        const int after = commands_[command].after;
        return after < 0 || codes_[static_cast<std::size_t>(after)] == 0;
    }

    void End(std::size_t command, int code) {
        codes_[command] = code;
        go_on_ = ended_(command, code) && go_on_;
    }

    const std::vector<Command>& commands_;
    const std::size_t at_once_;
    const std::function<bool(std::size_t, int)>& ended_;
    std::vector<int> codes_;
    std::vector<bool> begun_;
    std::vector<Process> running_;
    std::vector<std::size_t> numbers_; // of the commands that are running
    bool go_on_ = true;
};

} // namespace

std::vector<int> RunTools(const std::vector<Command>& commands, std::size_t at_once,
                          const std::function<bool(std::size_t, int)>& ended) {
    return Runner(commands, at_once, ended).All();
}

} // namespace morv
