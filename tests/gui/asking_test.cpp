// Questions without an owner, from outside: what they are about is used beside them.
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <thread>

namespace gui {

namespace {

constexpr char kSaveFileAs[] = "Save File As ...";

class AskingTest : public GuiTest {
protected:
    App& RunWith(const std::string& name, const std::string& content) {
        return Run(Kind::Nt, [&](const WorkFolder& work) { PutFile(work.Path(name), content); });
    }

    // Gives the open save dialog a path, and agrees to replace the file.
    static void Answer(App& app, const std::string& path) {
        app.ChooseFile(kSaveFileAs, path);
        app.AnswerSystemQuestion(::Answer::Yes);
    }
};

TEST_F(AskingTest, AnEditorClosedBesideItsSaveDialogLeavesTheChosenFile) {
    App& app = RunWith("old.cpp", "old");
    app.Command(CM_NEW_FILE);
    app.Start(CM_SAVE_FILE_AS);
    app.WaitDialog(kSaveFileAs);
    app.CloseChild(app.Child(kEditor));
    EXPECT_FALSE(app.HasChild(kEditor));
    Answer(app, app.Path("old.cpp"));
    app.Finish();
    EXPECT_EQ(FileContent(app.Path("old.cpp")), "old");
}

TEST_F(AskingTest, ASecondSaveAsBringsTheFirstToTheFront) {
    App& app = RunWith("old.cpp", "old");
    app.Command(CM_NEW_FILE);
    app.Start(CM_SAVE_FILE_AS);
    const Dialog first = app.WaitDialog(kSaveFileAs);
    app.Command(CM_SAVE_FILE_AS); // returns at once
    std::size_t dialogs = 0;
    for (HWND window : app.Process().Windows())
        dialogs += ClassOf(window) == "#32770";
    EXPECT_EQ(dialogs, 1u);
    EXPECT_EQ(GetForegroundWindow(), first.Window());
    app.CancelFile(kSaveFileAs);
    app.Finish();
}

TEST_F(AskingTest, TheEndOfTheSessionAsksAsTheExitDoes) {
    for (const ::Answer answer : {::Answer::Cancel, ::Answer::No}) {
        App& app = Run();
        app.Command(CM_NEW_MORV);
        app.Command(CM_REMOVE_ITEM); // marks it changed
        LRESULT may_end = -1;
        std::thread asked([&] { may_end = SendMessageA(app.Frame(), WM_QUERYENDSESSION, 0, 0); });
        app.ExpectBox("MORV Project has been changed. Save before Close?", "Close MORV Project",
                      Buttons::YesNoCancel, Icon::None, answer);
        asked.join();
        EXPECT_EQ(may_end, answer == ::Answer::No ? TRUE : FALSE);
        EXPECT_TRUE(app.HasChild(kProject)); // the session may still go on
    }
}

TEST_F(AskingTest, TheExitWaitsForAChangedDdeList) {
    App& app = Run();
    app.Start(CM_NEW_DDE);
    Dialog list = app.WaitDialog("DDE");
    list.SetText(DDE_ITEM_NAME, "Level");
    list.Click(IDOK);
    app.Command(CM_EXIT); // does nothing but show the list
    EXPECT_TRUE(list.Open());
    EXPECT_TRUE(IsWindow(app.Frame()));
    list.Click(IDCANCEL);
    app.Finish();
    EXPECT_EQ(app.Exit(), 0u);
}

} // namespace

} // namespace gui
