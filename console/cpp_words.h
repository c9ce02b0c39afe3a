// Which names C++ takes.
#pragma once

#include <string_view>

namespace console {

// Whether C++ keeps the word for itself.
bool IsCppKeyword(std::string_view word);

// Whether a C++ variable can have the name.
bool IsCppName(std::string_view name);

} // namespace console
