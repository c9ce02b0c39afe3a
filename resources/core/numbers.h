// Numbers as texts, the same on every platform and in every locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The shortest text of at most 5 significant digits, without a trailing '.'.
std::string NumberText(double value);

// Reads the number a text starts with; 0 for a text that starts with none.
double NumberIn(std::string_view text);

// NumberIn without its fraction. What 32 bits cannot hold becomes the nearest number they can.
std::int32_t WholeNumberIn(std::string_view text);
