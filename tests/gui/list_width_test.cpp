// The lists of the MDI children can be scrolled to the end of a long row.
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <algorithm>

namespace gui {

namespace {

class ListWidthTest : public GuiTest, public testing::WithParamInterface<Kind> {
protected:
    // A project whose system, and the system's rules, have a path as long as paths can be.
    App& RunLong() {
        App& app = Run(GetParam(), [this](const WorkFolder& work) {
            base_ = std::string(245 - work.Path(".lse").size(), 'w');
            PutSystem(work, base_, {"Rule 1\r\nEndRule\r\n"});
            ProjectSpec spec;
            spec.systems.push_back(work.Path(base_ + ".lse"));
            PutProject(work.Path("p.mrv"), spec);
        });
        app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("p.mrv"));
        return app;
    }

    // The pixels at the right edge of a row.
    static std::vector<char> RightEdge(HWND list, int row, LONG width) {
        RECT inside{}, place{};
        GetClientRect(list, &inside);
        const auto height = static_cast<LONG>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
        place = {inside.right - width, height * row, inside.right, height * (row + 1)};
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
        return ScreenPixels(place);
    }

    // The row of the window's list with this text goes on behind the right edge, and ends within it
    // after the list was scrolled as far as it goes.
    void ExpectScrollsToTheEnd(const std::string& window, const std::string& text) {
        App& app = Running();
        const HWND list = app.Inner(window);
        const std::vector<std::string> rows = ListRows(list);
        const auto found = std::ranges::find(rows, text);
        ASSERT_NE(found, rows.end()) << window;
        const int row = static_cast<int>(found - rows.begin());
        // The focus is seen in another row; the longest path is less wide than the screen.
        app.Process().Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1));
        SetWindowPos(app.Child(window), HWND_TOP, 0, 0, 500, 250, 0);
        constexpr LONG kLetters = 30;
        constexpr LONG kBehind = 3;
        app.Process().WaitFor("a row that goes on",
                              [&] { return !IsOneColour(RightEdge(list, row, kLetters)); });
        app.Process().Send(list, WM_HSCROLL, SB_RIGHT);
        app.Process().WaitFor("the end of the row", [&] {
            return IsOneColour(RightEdge(list, row, kBehind)) &&
                   !IsOneColour(RightEdge(list, row, kLetters));
        });
    }

    std::string base_;
};

TEST_P(ListWidthTest, OfTheProject) {
    App& app = RunLong();
    ExpectScrollsToTheEnd(kProject, Item(app.Path(base_ + ".lse")));
}

TEST_P(ListWidthTest, OfASystem) {
    App& app = RunLong();
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path(base_ + ".lse"));
    ExpectScrollsToTheEnd(kSystem, Item(app.Path(base_ + ".rul")));
}

TEST_P(ListWidthTest, OfTheFindings) {
    App& app = RunLong();
    app.Start(CM_DEBUG);
    Dialog dialog = app.WaitDialog("Debug");
    dialog.Press(DEBUG_START);
    app.ExpectBox("Debug Finalitzat", "Debug");
    app.Finish();
    app.Finish();
    app.Process().Send(app.Inner(kMessages), LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(""));
    ExpectScrollsToTheEnd(kMessages, app.Path(base_ + ".rul"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, ListWidthTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
