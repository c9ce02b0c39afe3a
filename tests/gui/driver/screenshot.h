#pragma once

#include <string>

namespace gui {

// Saves the whole screen as a BMP file. Returns false when that fails.
bool SaveScreenshot(const std::string& path);

} // namespace gui
