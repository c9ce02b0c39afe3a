// The fonts of texts and lists, by what stands on the screen.
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

POINT CharPlace(App& app, HWND edit, int at) {
    const LRESULT place = SendMessageA(edit, EM_POSFROMCHAR, static_cast<WPARAM>(at), 0);
    POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    if (place == -1)
        app.Process().WaitFor("a character at its place", [] { return false; });
    return point;
}

RECT OnScreen(HWND hwnd, RECT place) {
    MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

HFONT MakeDialogFont(HDC screen) {
    LOGFONTA font{};
    font.lfHeight = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(font.lfFaceName, "MS Shell Dlg", LF_FACESIZE);
    return CreateFontIndirectA(&font);
}

// A popup of ours that shows a text in the dialogs' font, as a list shows a row.
class DialogFontRow {
public:
    DialogFontRow(const std::string& text, SIZE size)
        : window_(CreateWindowExA(WS_EX_TOPMOST, "LISTBOX", "",
                                  WS_POPUP | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS, 0, 0, size.cx,
                                  size.cy, nullptr, nullptr, nullptr, nullptr)) {
        const HDC screen = GetDC(nullptr);
        font_ = MakeDialogFont(screen);
        ReleaseDC(nullptr, screen);
        SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
        SendMessageA(window_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        ShowWindow(window_, SW_SHOWNOACTIVATE);
        UpdateWindow(window_);
    }
    DialogFontRow(const DialogFontRow&) = delete;
    DialogFontRow& operator=(const DialogFontRow&) = delete;
    ~DialogFontRow() {
        DestroyWindow(window_);
        DeleteObject(font_);
    }

    std::vector<char> Pixels() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return ScreenPixels(place);
    }

private:
    HWND window_;
    HFONT font_;
};

std::vector<char> InDialogFont(const Program& program, const std::string& text, SIZE size) {
    const DialogFontRow row(text, size);
    std::vector<char> pixels;
    program.WaitFor("the text in the font of dialogs", [&] {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
        pixels = row.Pixels();
        return !IsOneColour(pixels);
    });
    return pixels;
}

class FontsTest : public GuiTest, public testing::WithParamInterface<Kind> {
protected:
    // An editor on this text, whole in sight, its caret at the text's end.
    HWND RunEditor(const std::string& text) {
        App& app =
            Run(GetParam(), [&](const WorkFolder& work) { PutFile(work.Path("a.cpp"), text); });
        app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("a.cpp"));
        const HWND edit = app.Inner(kEditor);
        app.Process().Send(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
        return edit;
    }

    // The pixels of one character of a line of characters of one width.
    std::vector<char> Glyph(HWND edit, int at) {
        const POINT place = CharPlace(Running(), edit, at);
        const LONG width = CharPlace(Running(), edit, at + 1).x - place.x;
        constexpr LONG kHeight = 12;
        UpdateWindow(edit);
        return ScreenPixels(OnScreen(edit, {place.x, place.y, place.x + width, place.y + kHeight}));
    }
};

TEST_P(FontsTest, CharactersOfATextHaveOneWidthAndLookDifferent) {
    const HWND edit = RunEditor("WIil|[.]\r\nWWWWWWWW\r\n");
    for (int at = 0; at < 8; ++at)
        EXPECT_EQ(CharPlace(Running(), edit, at).x, CharPlace(Running(), edit, at + 10).x) << at;
    Running().Process().WaitFor("the text on the screen",
                                [&] { return !IsOneColour(Glyph(edit, 0)); });
    for (int at = 1; at < 8; ++at)
        for (int other = 0; other < at; ++other)
            EXPECT_NE(Glyph(edit, at), Glyph(edit, other)) << at << " and " << other;
}

TEST_P(FontsTest, ATabGoesToTheNextFourCharacters) {
    const HWND edit = RunEditor("\tx\ty\r\n    x   y\r\n");
    EXPECT_EQ(CharPlace(Running(), edit, 1).x, CharPlace(Running(), edit, 10).x);
    EXPECT_EQ(CharPlace(Running(), edit, 3).x, CharPlace(Running(), edit, 14).x);
}

TEST_P(FontsTest, RowsOfADocumentAreInTheFontOfDialogs) {
    App& app = Run(GetParam(), PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    const HWND list = app.Inner(kProject);
    app.Process().Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1));
    const std::vector<std::string> rows = ListRows(list);
    // A heading, for items have a TAB in front; not the first row, which shows the focus.
    int row = 1;
    while (rows.at(static_cast<std::size_t>(row)).starts_with('\t'))
        ++row;
    const LRESULT height = app.Process().Send(list, LB_GETITEMHEIGHT);
    const SIZE size{150, static_cast<LONG>(height)};
    const std::vector<char> wanted =
        InDialogFont(app.Process(), rows.at(static_cast<std::size_t>(row)), size);
    const RECT place = OnScreen(list, {0, size.cy * row, size.cx, size.cy * row + size.cy});
    app.Process().WaitFor("the row in the font of dialogs",
                          [&] { return ScreenPixels(place) == wanted; });
    EXPECT_NE(InDialogFont(app.Process(), "I", size), InDialogFont(app.Process(), "[", size));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FontsTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
