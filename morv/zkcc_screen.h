// What the window of the utility is told, a line each:
//     work TEXT         what is being done
//     step TEXT         how far
//     message TEXT      one of those of a failure, before its end
//     made              the end: the window closes
//     failed TEXT       the end: it shows TEXT and the messages until the user closes it
#pragma once

#include <cstdio>
#include <string>

namespace morv {

class Screen {
public:
    // A quiet one never has a window.
    explicit Screen(bool quiet = false) : tried_(quiet) {}
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    // The window appears with the first line.
    void Tell(const std::string& line);

    bool Appeared() const { return window_ != nullptr; }

private:
    std::FILE* window_ = nullptr;
    bool tried_;
};

} // namespace morv
