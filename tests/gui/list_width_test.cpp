// The lists of the MDI children can be scrolled to the end of a long row, and a long name in a
// dialog leaves the columns beside it in sight.
#include "resources/core/variable.h"
#include "system/core/system_file.h"
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

    // The right half of a row, which is not the first one: that shows the focus.
    void ExpectColumnsInSight(HWND list, int row) {
        RECT inside{};
        GetClientRect(list, &inside);
        Running().Process().WaitFor("the value beside a short name", [&] {
            return !IsOneColour(RightEdge(list, row, inside.right / 2));
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

TEST_P(ListWidthTest, OfVariablesAndInitialFactsBesideALongName) {
    const std::string long_name(69, 'W');
    App& app = Run(GetParam(), [&](const WorkFolder& work) {
        PutSampleProject(work);
        SystemFile system;
        ASSERT_EQ(ReadSystem(work.Path("tank.lse").c_str(), system), ReadResult::Ok);
        SetText(system.facts.at(0).Name, long_name);
        SetText(system.head.VarName, work.Path("tank.var"));
        SetText(system.head.InitName, work.Path("tank.ikw"));
        PutFile(work.Path("tank.lse"), SystemBytes(system));
        V_V variable{};
        SetText(variable.Name, "A");
        SetText(variable.Type, "int");
        SetText(variable.Val, "1");
        PutFile(work.Path("tank.var"), BytesOf(std::vector<V_V>{variable, variable}));
        I_K initial{};
        SetText(initial.K_Name, system.facts.at(1).Name);
        SetText(initial.K_Val, "1");
        SetText(initial.Pres, "FULL");
        PutFile(work.Path("tank.ikw"), BytesOf(std::vector<I_K>{initial}));
    });
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("tank.lse"));
    app.Start(CM_ADD_LOCAL_VARS);
    Dialog variables = app.WaitDialog("Local Vars");
    const HWND list = variables.Control(VAR_LIST);
    ExpectColumnsInSight(list, 1);
    variables.SetText(VAR_NAME, long_name);
    variables.SetText(VAR_TYPE, "int");
    variables.SetText(VAR_VALUE, "1");
    variables.Click(VAR_ADD);
    ASSERT_EQ(variables.Rows(VAR_LIST).at(2), "A \t int \t 1");
    ExpectColumnsInSight(list, 2);
    variables.Click(IDCANCEL);
    app.Finish();
    app.Start(CM_INIT_FACTS);
    app.ChooseFile("Open DDE File", app.Path("link.dde"));
    Dialog initial = app.WaitDialog("Init Facts");
    ASSERT_EQ(initial.Rows(INIT_FACTS).at(1), "Valve \t 1 \t FULL");
    ExpectColumnsInSight(initial.Control(INIT_FACTS), 1);
    initial.Click(IDCANCEL);
    app.Finish();
}

INSTANTIATE_TEST_SUITE_P(Kinds, ListWidthTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
