// The texts inside project files are in code page 1252, those of the console in UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace console {

// Any bytes as UTF-8: the five that the code page leaves free stand for the control characters of
// the same number, as Windows has them.
std::string ToUtf8(std::string_view text);

// The way back; nothing for a text that is no UTF-8 or has a character that the code page lacks.
std::optional<std::string> FromUtf8(std::string_view text);

// A text that may be UTF-8 already, or else is of the code page, as UTF-8.
std::string AsUtf8(std::string text);

// A text of the code page in small letters, as Windows compares file names.
std::string Folded(std::string_view text);

} // namespace console
