// The menu: its texts and places, and which items can be chosen in which state.
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

// The menu as an indented text: "id text", "> popup" and "-" for a separator.
std::string Outline(const std::vector<MenuItem>& items, int depth = 0) {
    std::string text;
    for (const MenuItem& item : items) {
        text.append(depth * 2, ' ');
        if (item.separator)
            text += "-";
        else if (item.popup)
            text += "> " + item.text;
        else
            text += std::to_string(item.id) + " " + item.text;
        text += "|\n" + Outline(item.items, depth + 1);
    }
    return text;
}

constexpr char kOutline[] = R"(> MORV &Project|
  100 New MORV|
  101 Open MORV|
  102 Save MORV|
  103 Save MORV as ...|
  104 Close MORV|
  -|
  106 Set Value History Length|
  > Add MORV Item|
    137 Add MORV Main|
    138 Add MORV System|
    139 Add MORV Extern|
    141 Add DDE|
    107 Add Results|
  140 Remove MORV Item|
  -|
  105 Exit Zentrik|
> MORV &Systems|
  110 New MORV System|
  115 Open MORV System|
  120 Save MORV System|
  121 Save MORV System As ... |
  122 Close MORV System |
  -|
  112 Rules|
  > Add Resource|
    129 System Local Vars|
    128 System Header|
    127 Opposites|
    108 Facts|
    111 Rules|
  109 Remove|
  -|
  150 &Init Facts Base|
> DD&E Comunication|
  130 New Item|
  131 Load Item|
132 &Debug|
> &Compile |
  124 Tools|
  126 Compile|
  -|
  151 Execute|
> &Edit|
  142 &Undo	Ctrl+Z|
  143 &Cut	Ctrl+X|
  144 &Copy	Ctrl+C|
  145 &Paste	Ctrl+V|
  -|
  136 &New File|
  146 &Open File|
  147 &Save File|
  148 S&ave File As|
  149 C&lose File|
> &Resource|
  > New MORV Resource|
    118 Tags|
    119 Results|
    125 Facts Base|
  117 Open MORV Resource|
> &Windows|
  114 Cascade|
  113 Tile Horitzontal|
  116 Tile Vertical|
  123 Arrange Icon|
> &Help|
  135 Contents|
  133 Index|
  -|
  134 About Zentrik|
)";

using Numbers = std::vector<int>;

// The groups by what changes: group 1 to 7, in the order of their numbers.
class MenuTest : public GuiTest {
protected:
    // The numbers of the groups that can be chosen; a group whose items differ is reported.
    static Numbers Enabled(App& app) {
        Numbers enabled;
        const auto add = [&](int group, const std::vector<bool>& grey) {
            for (bool each : grey)
                EXPECT_EQ(each, grey.front()) << "the items of group " << group << " differ";
            if (!grey.front())
                enabled.push_back(group);
        };
        add(1, {app.IsGrey(CM_REMOVE_ITEM)});
        add(2, {app.IsGrey("Add MORV Item")});
        add(3, {app.IsGrey(CM_SAVE_MORV), app.IsGrey(CM_SAVE_AS_MORV), app.IsGrey(CM_CLOSE_MORV)});
        add(4, {app.IsGrey(CM_DEBUG), app.IsGrey(CM_COMPILE)});
        add(5, {app.IsGrey(CM_SAVE_SYSTEM), app.IsGrey(CM_SAVE_AS_SYSTEM),
                app.IsGrey(CM_CLOSE_SYSTEM), app.IsGrey("Add Resource")});
        add(6, {app.IsGrey(CM_RESOURCE_REMOVE)});
        add(7, {app.IsGrey(CM_SAVE_FILE), app.IsGrey(CM_SAVE_FILE_AS), app.IsGrey(CM_CLOSE_FILE)});
        return enabled;
    }

    // Tells a child that it became the active one, or lost that, in the older convention.
    static void Activation(App& app, HWND child, bool active) {
        app.Process().Send(child, WM_MDIACTIVATE, active ? 1 : 0, 0);
    }
};

TEST_F(MenuTest, HasItsTextsAndPlaces) {
    App& app = Run();
    EXPECT_EQ(Outline(app.Menu()), kOutline);
}

TEST_F(MenuTest, AtTheStartNothingIsOpen) {
    for (Kind kind : {Kind::Nt, Kind::Win98}) {
        App& app = Run(kind);
        EXPECT_EQ(Enabled(app), Numbers{});
        // The rest can always be chosen.
        for (int id : {CM_NEW_MORV, CM_OPEN_MORV, CM_HISTORY_LENGTH, CM_EXIT, CM_NEW_SYSTEM,
                       CM_OPEN_SYSTEM, CM_RULES, CM_INIT_FACTS, CM_TOOLS, CM_EXECUTE, CM_UNDO,
                       CM_NEW_FILE, CM_OPEN_FILE, CM_OPEN_RESOURCE, CM_ABOUT})
            EXPECT_FALSE(app.IsGrey(id)) << id;
    }
}

TEST_F(MenuTest, ANewProjectCanBeSavedAndBuilt) {
    for (Kind kind : {Kind::Nt, Kind::Win98}) {
        App& app = Run(kind);
        app.Command(CM_NEW_MORV);
        // On Windows 98 the activation of its window enables the removal of items that it has not.
        EXPECT_EQ(Enabled(app), kind == Kind::Nt ? (Numbers{2, 3, 4}) : (Numbers{1, 2, 3, 4}));
        app.Command(CM_CLOSE_MORV);
        EXPECT_EQ(Enabled(app), Numbers{});
    }
}

TEST_F(MenuTest, AnOpenedProjectWithItemsHasSomethingToRemove) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    EXPECT_EQ(Enabled(app), (Numbers{1, 2, 3, 4}));
    app.Command(CM_CLOSE_MORV);
    EXPECT_EQ(Enabled(app), Numbers{});
}

TEST_F(MenuTest, AnOpenedProjectWithoutItemsHasNot) {
    App& app =
        Run(Kind::Nt, [](const WorkFolder& work) { PutProject(work.Path("empty.mrv"), {}); });
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("empty.mrv"));
    EXPECT_EQ(Enabled(app), (Numbers{2, 3, 4}));
}

TEST_F(MenuTest, AProjectThatCannotBeOpenedEnablesItsItemsAllTheSame) {
    App& app =
        Run(Kind::Nt, [](const WorkFolder& work) { PutProject(work.Path("locked.mrv"), {}); });
    const LockedFile lock(app.Path("locked.mrv"));
    app.Start(CM_OPEN_MORV);
    app.ChooseFile("Open MORV Project", app.Path("locked.mrv"));
    app.ExpectBox("Open Error", "Open Project");
    app.Finish();
    EXPECT_EQ(Enabled(app), (Numbers{2, 3, 4}));
}

TEST_F(MenuTest, ASystemCanBeSavedWhileItIsOpen) {
    App& app = Run();
    app.Command(CM_NEW_SYSTEM);
    EXPECT_EQ(Enabled(app), Numbers{5});
    app.Command(CM_CLOSE_SYSTEM);
    EXPECT_EQ(Enabled(app), Numbers{});
}

TEST_F(MenuTest, AnOpenedSystemWithResourcesHasSomethingToRemove) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path("tank.lse"));
    EXPECT_EQ(Enabled(app), (Numbers{5, 6}));
    app.Command(CM_CLOSE_SYSTEM);
    EXPECT_EQ(Enabled(app), Numbers{});
}

TEST_F(MenuTest, AnEditorsFileCanBeSaved) {
    App& app = Run();
    app.Command(CM_NEW_FILE);
    EXPECT_EQ(Enabled(app), Numbers{7});
}

TEST_F(MenuTest, WithAMaximisedChildTheItemsAreFoundOneFurther) {
    App& app = Run(Kind::Win98);
    app.Command(CM_NEW_SYSTEM);
    HWND system = app.Child(kSystem);
    app.Maximize(system);
    ASSERT_NE(app.Menu().front().text, "MORV &Project");
    Activation(app, system, true);
    EXPECT_EQ(Enabled(app), (Numbers{5, 6}));
    Activation(app, system, false);
    EXPECT_EQ(Enabled(app), Numbers{});
}

// An open that fails enables the project's items while the editor is still on top.
TEST_F(MenuTest, WithAMaximisedChildDebugStaysAsItWas) {
    App& app =
        Run(Kind::Nt, [](const WorkFolder& work) { PutProject(work.Path("locked.mrv"), {}); });
    const LockedFile lock(app.Path("locked.mrv"));
    app.Command(CM_NEW_FILE);
    app.Maximize(app.Child(kEditor));
    ASSERT_NE(app.Menu().front().text, "MORV &Project");
    app.Start(CM_OPEN_MORV);
    app.ChooseFile("Open MORV Project", app.Path("locked.mrv"));
    app.ExpectBox("Open Error", "Open Project");
    app.Finish();
    EXPECT_TRUE(app.IsGrey(CM_DEBUG));
    EXPECT_FALSE(app.IsGrey(CM_COMPILE));
    EXPECT_FALSE(app.IsGrey(CM_SAVE_MORV));
    EXPECT_FALSE(app.IsGrey("Add MORV Item"));
}

TEST_F(MenuTest, WithAMaximisedChildClosingLeavesDebugToo) {
    App& app = Run();
    app.Command(CM_NEW_MORV);
    EXPECT_FALSE(app.IsGrey(CM_DEBUG));
    app.Maximize(app.Child(kProject));
    app.Command(CM_CLOSE_MORV);
    EXPECT_FALSE(app.IsGrey(CM_DEBUG));
    EXPECT_TRUE(app.IsGrey(CM_COMPILE));
}

TEST_F(MenuTest, ActivationChangesTheMenuOnWindows98) {
    App& app = Run(Kind::Win98);
    app.Command(CM_NEW_MORV);
    HWND project = app.Child(kProject);
    app.Command(CM_NEW_SYSTEM);
    HWND system = app.Child(kSystem);
    // The system comes to the front: the project's items cannot be chosen.
    Activation(app, project, false);
    Activation(app, system, true);
    EXPECT_EQ(Enabled(app), (Numbers{5, 6}));
    // And back; a project without items has its Remove enabled too.
    Activation(app, system, false);
    Activation(app, project, true);
    EXPECT_EQ(Enabled(app), (Numbers{1, 2, 3, 4}));
    Activation(app, project, false);
    EXPECT_EQ(Enabled(app), Numbers{});
}

TEST_F(MenuTest, ActivationOfAnEditorChangesTheMenuOnWindows98) {
    App& app = Run(Kind::Win98);
    app.Command(CM_NEW_FILE);
    Activation(app, app.Child(kEditor), true);
    EXPECT_EQ(Enabled(app), Numbers{7});
    Activation(app, app.Child(kEditor), false);
    EXPECT_EQ(Enabled(app), Numbers{});
}

TEST_F(MenuTest, ActivationLeavesTheMenuOnWindowsNt) {
    App& app = Run();
    app.Command(CM_NEW_MORV);
    app.Command(CM_NEW_SYSTEM);
    app.Command(CM_NEW_FILE);
    const Numbers before{2, 3, 4, 5, 7};
    EXPECT_EQ(Enabled(app), before);
    for (HWND child : app.Children())
        for (bool active : {true, false})
            Activation(app, child, active);
    EXPECT_EQ(Enabled(app), before);
}

TEST_F(MenuTest, ListsTheOpenWindows) {
    App& app = Run();
    app.Command(CM_NEW_MORV);
    const auto menu = app.Menu();
    const auto& windows = menu.at(7);
    ASSERT_EQ(windows.text, "&Windows");
    ASSERT_GE(windows.items.size(), 6u);
    EXPECT_EQ(windows.items.back().id, 500);
    EXPECT_NE(windows.items.back().text.find("MORV Project"), std::string::npos);
}

} // namespace

} // namespace gui
