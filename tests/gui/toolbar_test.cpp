// The toolbar, which is there on Windows 98 only.
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/input.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

class ToolbarTest : public GuiTest {
protected:
    static HWND Toolbar(const App& app) {
        for (HWND part : ChildrenOf(app.Frame()))
            if (ClassOf(part) == "Buttons")
                return part;
        return nullptr;
    }

    // What a button sends where window handles have 16 bits.
    static void Press(App& app, int button) {
        app.Process().Start(Toolbar(app), WM_COMMAND, button, 0);
    }

    static void Click(App& app, int button) {
        Press(app, button);
        app.Finish();
    }
};

TEST_F(ToolbarTest, IsNotThereOnWindowsNt) {
    App& app = Run();
    EXPECT_EQ(Toolbar(app), nullptr);
}

TEST_F(ToolbarTest, SpansTheTopOfTheFrame) {
    App& app = Run(Kind::Win98);
    HWND toolbar = Toolbar(app);
    ASSERT_NE(toolbar, nullptr);
    EXPECT_TRUE(IsWindowVisible(toolbar));
    const RECT place = PlaceIn(app.Frame(), toolbar);
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
    EXPECT_EQ(place.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(place.bottom, 33);
}

TEST_F(ToolbarTest, HasEightButtonsInGroups) {
    App& app = Run(Kind::Win98);
    HWND toolbar = Toolbar(app);
    const std::vector<std::pair<int, int>> places{{10, 10},  {11, 35},  {12, 70},  {13, 95},
                                                  {14, 130}, {15, 165}, {16, 190}, {17, 215}};
    EXPECT_EQ(ChildrenOf(toolbar).size(), places.size());
    for (const auto& [id, x] : places) {
        HWND button = GetDlgItem(toolbar, id);
        ASSERT_NE(button, nullptr) << id;
        EXPECT_EQ(ClassOf(button), "Button");
        EXPECT_EQ(GetWindowLongA(button, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
        const RECT place = PlaceIn(toolbar, button);
        EXPECT_EQ(place.left, x) << id;
        EXPECT_EQ(place.top, 0) << id;
        EXPECT_EQ(place.right - place.left, 25) << id;
        EXPECT_EQ(place.bottom - place.top, 25) << id;
    }
}

TEST_F(ToolbarTest, APressedButtonLooksDifferent) {
    App& app = Run(Kind::Win98);
    for (int id = TB_NEW_MORV; id <= TB_EXECUTE; ++id) {
        HWND button = GetDlgItem(Toolbar(app), id);
        RECT place{};
        GetWindowRect(button, &place);
        std::vector<char> normal;
        app.Process().WaitFor("a picture on the button", [&] {
            normal = ScreenPixels(place);
            return !IsOneColour(normal);
        });
        app.Process().Send(button, BM_SETSTATE, TRUE);
        app.Process().WaitFor("the pressed picture", [&] { return ScreenPixels(place) != normal; });
        app.Process().Send(button, BM_SETSTATE, FALSE);
        app.Process().WaitFor("the normal picture", [&] { return ScreenPixels(place) == normal; });
    }
}

TEST_F(ToolbarTest, NewProjectAndSystem) {
    App& app = Run(Kind::Win98);
    Click(app, TB_NEW_MORV);
    EXPECT_EQ(app.Rows(kProject), (TextRows{"MORVName", "\tuntitled.mrv"}));
    Click(app, TB_NEW_SYSTEM);
    EXPECT_EQ(app.Rows(kSystem), (TextRows{"System Name", "\tuntitled.lse"}));
    Press(app, TB_NEW_MORV);
    EXPECT_EQ(app.ExpectBox("There is Opened MORV Project", "New MORV Project").owner, app.Frame());
    app.Finish();
}

TEST_F(ToolbarTest, AButtonIsClickedWithThePointer) {
    App& app = Run(Kind::Win98);
    PointerClick(app.Process(), GetDlgItem(Toolbar(app), TB_NEW_MORV), {12, 12});
    app.Process().WaitFor("the new project", [&] { return app.HasChild(kProject); });
    PointerClick(app.Process(), GetDlgItem(Toolbar(app), TB_NEW_SYSTEM), {12, 12});
    app.Process().WaitFor("the new system", [&] { return app.HasChild(kSystem); });
}

// Handles have more than 16 bits here, so all of what activation says is another number than they
// had in the older convention.
TEST_F(ToolbarTest, TheMenuFollowsAWindowThatIsActivatedWithThePointer) {
    App& app = Run(Kind::Win98);
    app.Command(CM_NEW_MORV);
    app.Command(CM_NEW_SYSTEM);
    app.Command(CM_CASCADE);
    // The title of the back window is in sight left of the front one's.
    const auto activate = [&](const char* window) {
        PointerClick(app.Process(), app.Child(window), {60, -GetSystemMetrics(SM_CYCAPTION) / 2});
        app.Process().WaitFor("the activation",
                              [&] { return ClassOf(app.Children().front()) == window; });
    };
    activate(kProject);
    EXPECT_FALSE(app.IsGrey(CM_SAVE_MORV));
    EXPECT_TRUE(app.IsGrey(CM_SAVE_SYSTEM));
    app.Command(CM_CASCADE);
    activate(kSystem);
    EXPECT_TRUE(app.IsGrey(CM_SAVE_MORV));
    EXPECT_FALSE(app.IsGrey(CM_SAVE_SYSTEM));
}

TEST_F(ToolbarTest, OpenProjectAndSystem) {
    App& app = Run(Kind::Win98, PutSampleProject);
    Press(app, TB_OPEN_MORV);
    app.ChooseFile("Open MORV Project", app.Path("plant.mrv"));
    app.Finish();
    EXPECT_EQ(app.Rows(kProject).at(1), Item(app.Path("plant.mrv")));
    Press(app, TB_OPEN_SYSTEM);
    app.ChooseFile("Open MORV System", app.Path("tank.lse"));
    app.Finish();
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("tank.lse")));
}

TEST_F(ToolbarTest, NewFileLeavesTheEditMenuAsItWas) {
    App& app = Run(Kind::Win98);
    Click(app, TB_NEW_FILE);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled");
    for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
        EXPECT_TRUE(app.IsGrey(id));
    app.CommandWithCancel(CM_OPEN_FILE, "Open File"); // which enables them
    Click(app, TB_NEW_FILE);
    EXPECT_EQ(app.Children(kEditor).size(), 2u);
    for (int id : {CM_SAVE_FILE, CM_SAVE_FILE_AS, CM_CLOSE_FILE})
        EXPECT_FALSE(app.IsGrey(id));
}

TEST_F(ToolbarTest, DebugCompileAndExecute) {
    App& app = Run(Kind::Win98);
    Press(app, TB_DEBUG);
    app.ExpectBox("There is not Opened MORV System", "MORV Debug");
    app.Finish();
    // The result of this Compile is not looked at: no further box.
    Press(app, TB_COMPILE);
    app.ExpectBox("There is no MORV Project Open", "Compile MORV");
    app.Finish();
    Press(app, TB_EXECUTE);
    app.ExpectBox("There is not Opened MORV System", "MORV Debug");
    app.ExpectBox("There is no MORV Project Open", "Compile MORV");
    app.Finish();
}

TEST_F(ToolbarTest, ActsOnTheOlderNotificationOnly) {
    App& app = Run(Kind::Win98);
    app.Process().Send(Toolbar(app), WM_COMMAND, TB_NEW_MORV, 0x10000);
    EXPECT_TRUE(app.Children().empty());
    for (int id : {9, 18, 19, 100})
        Click(app, id);
    EXPECT_TRUE(app.Children().empty());
}

} // namespace

} // namespace gui
