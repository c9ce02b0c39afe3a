// The things that the monkey does.
#pragma once

#include "tests/gui/monkey/files.h"
#include "tests/gui/monkey/screen.h"

#include <string>
#include <vector>

namespace monkey {

class Actions {
public:
    Actions(Dice& dice, const Files& files) : dice_(dice), files_(files) {}

    // Does one thing that the windows on the screen let a user do. Returns what it was.
    std::string DoOne(Screen& screen);

    // Whether the frame was told to close since the last call: the program may end by itself.
    bool ExitAsked() const { return exit_asked_; }
    void ForgetExit() { exit_asked_ = false; }

private:
    std::string WithFrame(Screen& screen);
    std::string OpenSound(const Screen& screen);
    std::string MenuCommand(Screen& screen, HWND window);
    std::string ToolbarButton(const Screen& screen);
    std::string WithDocument(const Screen& screen, const std::vector<HWND>& documents);
    std::string WithRows(const Screen& screen, HWND document, HWND list);
    std::string Shape(HWND document);
    std::string CloseFrame(const Screen& screen);

    std::string WithDialog(Screen& screen, HWND dialog);
    std::string FileDialog(const Screen& screen, HWND dialog);
    std::string Control(const Screen& screen, HWND dialog, HWND control);
    std::string List(const Screen& screen, HWND list);
    std::string Combo(const Screen& screen, HWND combo);

    std::string Type(HWND edit);
    std::string PressKey(const Screen& screen);
    std::string AnyText();

    Dice& dice_;
    const Files& files_;
    bool exit_asked_ = false;
    std::string next_file_; // for the next file dialog; empty: any
};

} // namespace monkey
