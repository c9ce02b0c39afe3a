#include "tests/gui/driver/screenshot.h"

#include <algorithm>
#include <fstream>
#include <vector>
#include <windows.h>

namespace gui {

namespace {

// The pixels of the screen from (left, top) on, in the size and depth of `header`.
std::vector<char> Pixels(int left, int top, const BITMAPINFOHEADER& header) {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    const int height = header.biHeight;
    HBITMAP bitmap = CreateCompatibleBitmap(screen, header.biWidth, height);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, header.biWidth, height, screen, left, top, SRCCOPY);
    SelectObject(memory, before);
    std::vector<char> pixels(header.biSizeImage);
    BITMAPINFO info{header, {}};
    GetDIBits(memory, bitmap, 0, height, pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

BITMAPINFOHEADER Header(int width, int height, WORD bits) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = bits;
    header.biSizeImage = (width * bits / 8 + 3) / 4 * 4 * height;
    return header;
}

} // namespace

bool SaveScreenshot(const std::string& path) {
    return SaveScreenshot(path,
                          RECT{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
}

bool SaveScreenshot(const std::string& path, const RECT& place) {
    const BITMAPINFOHEADER header = Header(place.right - place.left, place.bottom - place.top, 24);
    const std::vector<char> pixels = Pixels(place.left, place.top, header);

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

std::vector<char> ScreenPixels(const RECT& place) {
    return Pixels(place.left, place.top,
                  Header(place.right - place.left, place.bottom - place.top, 32));
}

bool IsOneColour(const std::vector<char>& pixels) {
    constexpr std::size_t kPixel = 4;
    return pixels.size() <= kPixel ||
           std::equal(pixels.begin() + kPixel, pixels.end(), pixels.begin());
}

} // namespace gui
