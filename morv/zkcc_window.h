// The window of the compiler utility, on Windows.
#pragma once

namespace morv {

// Reads lines (zkcc_screen.h) from the standard input and shows them: that a program is being made,
// and when that fails, why. Returns when the user closes it, or by itself when the program is made.
int ShowProgress();

} // namespace morv
