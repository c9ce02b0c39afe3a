// What the monkey sees of the program: windows that take input, and when the program has done what
// it was told.
#pragma once

#include "tests/gui/driver/inside.h"
#include "tests/gui/driver/program.h"
#include "tests/gui/driver/window_query.h"

#include <memory>
#include <string>
#include <vector>

namespace monkey {

class Screen {
public:
    // A program just started; closes the About box.
    explicit Screen(gui::Program& program);

    gui::Program& Process() const { return program_; }
    HWND Frame() const { return frame_; }
    HWND Client() const { return client_; }
    HWND Toolbar() const { return toolbar_; } // null where there is none

    // The dialogs and boxes that take input, topmost first, and whether the frame does.
    std::vector<HWND> Dialogs() const;
    bool FrameTakesInput() const;

    // The children of a window, at any depth, that are seen and take input.
    std::vector<HWND> Controls(HWND window) const;

    // The commands of a window's menu that are not grey.
    std::vector<int> Commands(HWND window);

    HWND Focus() const; // null when no window of the program has it

    // Waits until the program has taken all that was posted to it, and answers. It may have ended
    // instead. Fails when it neither answers nor ends.
    void Settle();

private:
    void Pass();
    HWND AnyWindow() const;

    gui::Program& program_;
    HWND frame_;
    HWND client_ = nullptr;
    HWND toolbar_ = nullptr;
    gui::Inside inside_;
};

} // namespace monkey
