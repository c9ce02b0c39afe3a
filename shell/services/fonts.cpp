#include "shell/services/fonts.h"

#include <initializer_list>

namespace {

int CALLBACK Found(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

LOGFONTA Described(const char* face) {
    LOGFONTA font{};
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(font.lfFaceName, face, LF_FACESIZE);
    return font;
}

bool IsInstalled(HDC screen, const char* face) {
    LOGFONTA font = Described(face);
    bool found = false;
    EnumFontFamiliesExA(screen, &font, Found, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

HFONT MakeFont(HDC screen, const char* face, int points) {
    LOGFONTA font = Described(face);
    font.lfHeight = -MulDiv(points, GetDeviceCaps(screen, LOGPIXELSY), 72);
    return CreateFontIndirectA(&font);
}

// A face that is missing would be replaced by one that may not have characters of one width.
HFONT MakeTextFont() {
    constexpr int kPoints = 10;
    const HDC screen = GetDC(nullptr);
    HFONT font = nullptr;
    for (const char* face : {"Consolas", "Courier New"})
        if (!font && IsInstalled(screen, face))
            font = MakeFont(screen, face, kPoints);
    ReleaseDC(nullptr, screen);
    return font ? font : static_cast<HFONT>(GetStockObject(SYSTEM_FIXED_FONT));
}

// As res/*.rc have it.
HFONT MakeDialogFont() {
    constexpr int kPoints = 8;
    const HDC screen = GetDC(nullptr);
    const HFONT font = MakeFont(screen, "MS Shell Dlg", kPoints);
    ReleaseDC(nullptr, screen);
    return font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

void SetFont(HWND control, HFONT font) {
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

} // namespace

HFONT TextFont() {
    static const HFONT font = MakeTextFont();
    return font;
}

HFONT DialogFont() {
    static const HFONT font = MakeDialogFont();
    return font;
}

void UseTextFont(HWND edit) {
    constexpr int kCharacters = 4;
    int quarters = kCharacters * 4; // the unit is a quarter of a character
    SetFont(edit, TextFont());
    SendMessageA(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&quarters));
}

void UseDialogFont(HWND list) {
    SetFont(list, DialogFont());
}
