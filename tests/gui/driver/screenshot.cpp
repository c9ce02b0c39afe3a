#include "tests/gui/driver/screenshot.h"

#include <cstdint>
#include <fstream>
#include <vector>
#include <windows.h>

namespace gui {

namespace {

// The screen's pixels, 24 bits each, bottom row first.
std::vector<char> ScreenPixels(const BITMAPINFOHEADER& header) {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, header.biWidth, header.biHeight);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    std::vector<char> pixels(header.biSizeImage);
    BITMAPINFO info{header, {}};
    GetDIBits(memory, bitmap, 0, header.biHeight, pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

} // namespace

bool SaveScreenshot(const std::string& path) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = GetSystemMetrics(SM_CXSCREEN);
    header.biHeight = GetSystemMetrics(SM_CYSCREEN);
    header.biPlanes = 1;
    header.biBitCount = 24;
    header.biSizeImage = (header.biWidth * 3 + 3) / 4 * 4 * header.biHeight;
    const std::vector<char> pixels = ScreenPixels(header);

    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + header.biSizeImage;
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    return static_cast<bool>(out.flush());
}

} // namespace gui
