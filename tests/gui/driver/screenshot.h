#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace gui {

// Saves the whole screen as a BMP file. Returns false when that fails.
bool SaveScreenshot(const std::string& path);

// The same for a part of the screen, which lies on it as a whole.
bool SaveScreenshot(const std::string& path, const RECT& place);

// The pixels of a part of the screen, 32 bits each.
std::vector<char> ScreenPixels(const RECT& place);

bool IsOneColour(const std::vector<char>& pixels);

} // namespace gui
