#include "zkcc_screen.h"

#include "run_tool.h"

namespace morv {

Screen::~Screen() {
    if (window_ != nullptr)
        std::fclose(window_);
}

void Screen::Tell(const std::string& line) {
    if (!tried_)
        window_ = StartWindow();
    tried_ = true;
    if (window_ == nullptr)
        return;
    std::fprintf(window_, "%s\n", line.c_str());
    std::fflush(window_);
}

} // namespace morv
