// The one table of the frame's commands.
#pragma once

#include <span>
#include <windows.h>

struct Command {
    int id;
    void (*run)(HWND frame);
};

std::span<const Command> Commands();
