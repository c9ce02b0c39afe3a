// The program worked with the mouse and the keyboard.
#include "tests/gui/driver/input.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

class InputTest : public GuiTest {
protected:
    static POINT RowPlace(App& app, const std::string& window, int row) {
        HWND list = app.Inner(window);
        const auto height = static_cast<LONG>(app.Process().Send(list, LB_GETITEMHEIGHT));
        return {20, height * row + height / 2};
    }
};

TEST_F(InputTest, ADoubleClickOpensTheFileOfARow) {
    App& app = Run(Kind::Nt, PutSampleProject);
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("plant.mrv"));
    MouseDoubleClick(app.Inner(kProject), RowPlace(app, kProject, 3));
    app.Process().WaitFor("the editor", [&] {
        return app.HasChild(kEditor) && TextOf(app.Child(kEditor)) == app.Path("main.cpp");
    });
}

TEST_F(InputTest, AMenuIsWorkedByItsKeys) {
    App& app = Run();
    Key(VK_F10);
    for (int i = 0; i < 5; ++i)
        Key(VK_RIGHT); // to &Edit
    Key(VK_DOWN);
    Key('N'); // &New File
    app.Process().WaitFor("the editor", [&] { return app.HasChild(kEditor); });
    Keys("typed text");
    app.Process().WaitFor("the text", [&] { return app.EditorText() == "typed text"; });
    // The edit control's own shortcut; the accelerator table is not loaded.
    app.Inner().ReadNews(app.Frame());
    Key('Z', VK_CONTROL);
    app.Process().WaitFor("the undo", [&] { return app.EditorText() != "typed text"; });
}

TEST_F(InputTest, AMessageBoxClosesWithEnter) {
    App& app = Run();
    app.Start(CM_DEBUG);
    const Box box = app.WaitBox("MORV Debug");
    EXPECT_EQ(box.text, "There is not Opened MORV System");
    Key(VK_RETURN);
    app.Process().WaitFor("the end of the box", [&] { return !IsWindow(box.hwnd); });
    app.Finish();
}

TEST_F(InputTest, ADialogIsWorkedByItsKeys) {
    App& app = Run();
    app.Start(CM_HISTORY_LENGTH);
    Dialog dialog = app.WaitDialog("History Length");
    app.Process().WaitFor("the focus in the field", [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(app.Process().ThreadId(), &info);
        return info.hwndFocus == dialog.Control(HL_LENGTH);
    });
    Keys("12"); // over the selected 4
    app.Process().WaitFor("the number", [&] { return dialog.Text(HL_LENGTH) == "12"; });
    Key(VK_RETURN);
    dialog.WaitGone();
    app.Finish();
    app.Start(CM_HISTORY_LENGTH);
    Dialog again = app.WaitDialog("History Length");
    EXPECT_EQ(again.Text(HL_LENGTH), "12");
    Key(VK_ESCAPE);
    again.WaitGone();
    app.Finish();
}

} // namespace

} // namespace gui
