// Does things at random with the shipped program, as nobody would on purpose:
//     monkey SEED ACTIONS
// An odd seed sees Windows NT, an even one Windows 98. After each action the program must answer,
// or have ended because it was told to, and files that it was not given must be as they were. What
// was done stands in monkey-SEED.txt of the logs folder.
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/monkey/actions.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>

namespace monkey {

namespace {

class Run {
public:
    explicit Run(unsigned seed) : seed_(seed), dice_(seed), files_(dice_), actions_(dice_, files_) {
        gui::MakeFolders(gui::OutFolder() + "\\logs");
        log_.open(gui::OutFolder() + "\\logs\\monkey-" + std::to_string(seed) + ".txt");
        exe_ = files_.Work().Path(seed % 2 == 0 ? "zentrik98.exe" : "zentrik.exe");
        gui::CopyTo(gui::BinFolder() + "\\zentrik.exe", exe_);
    }

    void Do(int count) {
        Start();
        for (int number = 1; number <= count; ++number) {
            Note(std::to_string(number) + ": " + actions_.DoOne(*screen_));
            screen_->Settle();
            CheckFiles();
            if (!program_->Alive())
                Restart();
        }
    }

    void Report(const std::string& end) const {
        std::printf("seed %u: %zu actions, %d starts, %s\n", seed_, done_.size(), starts_,
                    end.c_str());
    }

    void TellLastActions() const {
        constexpr std::size_t kTold = 20;
        for (std::size_t i = done_.size() > kTold ? done_.size() - kTold : 0; i < done_.size(); ++i)
            std::printf("  %s\n", done_[i].c_str());
    }

private:
    void Start() {
        screen_.reset();
        actions_.ForgetExit();
        program_.emplace(exe_, files_.Work().Folder());
        screen_.emplace(*program_);
        ++starts_;
    }

    void Restart() {
        const DWORD code = program_->ExitCode();
        if (code != 0 || !actions_.ExitAsked())
            gui::Fail("the program ended by itself with the code " + std::to_string(code));
        Start();
    }

    // At once, for a run that never ends is cut off.
    void Note(const std::string& action) {
        done_.push_back(action);
        log_ << action << std::endl;
    }

    void CheckFiles() const {
        const std::string touched = files_.Touched();
        if (!touched.empty())
            gui::Fail("a file that was not given was touched: " + touched);
    }

    unsigned seed_;
    Dice dice_;
    Files files_;
    Actions actions_;
    std::string exe_;
    std::optional<gui::Program> program_;
    std::optional<Screen> screen_; // of the program, so it goes first
    std::vector<std::string> done_;
    std::ofstream log_; // of what was done
    int starts_ = 0;
};

void TakePicture(unsigned seed) {
    const std::string folder = gui::OutFolder() + "\\screenshots";
    gui::MakeFolders(folder);
    gui::SaveScreenshot(folder + "\\monkey_" + std::to_string(seed) + ".bmp");
}

int Main(unsigned seed, int actions) {
    gui::OnFailure([seed] { TakePicture(seed); });
    Run run(seed);
    try {
        run.Do(actions);
    } catch (const std::exception& failure) {
        run.Report(failure.what());
        run.TellLastActions();
        return 1;
    }
    run.Report("sound");
    return 0;
}

} // namespace

} // namespace monkey

int main(int count, char** words) {
    if (count != 3) {
        std::puts("monkey SEED ACTIONS");
        return 2;
    }
    return monkey::Main(static_cast<unsigned>(std::strtoul(words[1], nullptr, 10)),
                        std::atoi(words[2]));
}
