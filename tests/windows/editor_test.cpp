#include "shell/services/editor.h"

#include "../core/core_test.h"
#include "frame_window.h"
#include "project/ZENPRO.h"
#include "shell/core/files.h"
#include "system/ZENSYS.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::FrameWindow;
using zentrik_test::TempFolder;

// An editor on a file of its own.
class EditorTest : public testing::Test {
protected:
    EditorTest() : path_(temp_.Path("a.cpp")) {}
    ~EditorTest() override {
        files::FailWritesAfter(-1);
        EditState = EditRule = 0;
    }

    HWND Open() {
        OpenEdit(path_.c_str());
        return GetMdi();
    }

    static void Type(HWND child, const char* text) {
        SetWindowTextA(TopChild(child), text);
        SendMessageA(TopChild(child), EM_SETMODIFY, TRUE, 0);
    }

    TempFolder temp_;
    std::string path_;
    FrameWindow frame_;
};

TEST_F(EditorTest, LoadsAFileOfAnySize) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "line " + std::to_string(i) + "\r\n";
    temp_.Put("a.cpp", text);
    const HWND child = Open();
    EXPECT_EQ(EditText(TopChild(child)), text);
    EXPECT_EQ(SendMessageA(TopChild(child), EM_GETMODIFY, 0, 0), 0);
    EXPECT_EQ(EditState, 1);
    char title[300];
    GetWindowTextA(child, title, sizeof title);
    EXPECT_EQ(title, path_);
}

TEST_F(EditorTest, AMissingOrEmptyFileGivesAnEmptyEditor) {
    Boxes boxes;
    EXPECT_EQ(EditText(TopChild(Open())), "");
    temp_.Put("a.cpp", "");
    EXPECT_EQ(EditText(TopChild(Open())), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EditorTest, AWindowThatCannotBeMadeIsReported) {
    const HWND client = hMdiC;
    hMdiC = hFrame; // which makes no children
    Boxes boxes;
    OpenEdit(path_.c_str());
    hMdiC = client;
    EXPECT_EQ(boxes.shown,
              std::vector<std::string>{"zentrik: Impossible crear finestra del editor"});
    EXPECT_EQ(boxes.messages.at(0).owner, nullptr);
    EXPECT_EQ(GetMdi(), nullptr);
    EXPECT_EQ(EditState, 1);
}

TEST_F(EditorTest, SavesToItsTitleAndClearsTheModifiedFlag) {
    Boxes boxes;
    const HWND child = Open();
    Type(child, "one\r\ntwo");
    SaveFile(child);
    EXPECT_EQ(temp_.Content("a.cpp"), "one\r\ntwo");
    HWND edit;
    EXPECT_EQ(TextState(edit), 0);
    EXPECT_EQ(edit, TopChild(child));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EditorTest, AFailedSaveKeepsTheOldFileAndSaysWhy) {
    temp_.Put("a.cpp", "old");
    const HWND child = Open();
    Type(child, "newer text");
    Boxes boxes;
    files::FailWritesAfter(3);
    SaveFile(child);
    EXPECT_EQ(boxes.shown,
              (std::vector<std::string>{": No Va be", "WARNING: No space left on the disk"}));
    EXPECT_EQ(temp_.Content("a.cpp"), "old");
    EXPECT_NE(SendMessageA(TopChild(child), EM_GETMODIFY, 0, 0), 0);
}

TEST_F(EditorTest, NothingIsSavedOrClosedWhileTheRuleEditorHasTheText) {
    const HWND child = Open();
    Type(child, "rules");
    EditRule = 1;
    Boxes boxes(Answer::Yes);
    SaveFile(child);
    SaveFileAs(child);
    EXPECT_EQ(CloseFile(child), 0);
    SendMessageA(child, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_TRUE(IsWindow(TopChild(child)));
    EXPECT_FALSE(files::Exists(path_.c_str()));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EditorTest, OnlyAnEditorIsSaved) {
    const HWND list = CrearMdiCh("Message", "Debug Errors");
    Boxes boxes;
    SaveFile(list);
    SaveFileAs(list);
    EXPECT_EQ(boxes.shown, std::vector<std::string>(2, "WARNING: There is no File Open"));
}

TEST_F(EditorTest, ClosingAsksOnlyForAChangedText) {
    temp_.Put("a.cpp", "old");
    const HWND child = Open();
    Boxes boxes(Answer::Cancel);
    Type(child, "new");
    EXPECT_EQ(CloseFile(child), 1);
    EXPECT_TRUE(IsWindow(TopChild(child)));
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0], "Close notification: File Has been change. Save before Closing?");
    EXPECT_EQ(boxes.messages[0].owner, TopChild(child));
    EXPECT_EQ(boxes.messages[0].buttons, Buttons::YesNoCancel);
    SendMessageA(TopChild(child), EM_SETMODIFY, FALSE, 0);
    EXPECT_EQ(CloseFile(child), 0);
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(TopChild(child), nullptr);
    EXPECT_EQ(EditState, 0);
}

TEST_F(EditorTest, ClosingWithNoDropsTheChangesAndWithYesSavesThem) {
    temp_.Put("a.cpp", "old");
    {
        Boxes boxes(Answer::No);
        Type(Open(), "dropped");
        EXPECT_EQ(DestroyMdiE(), 0);
        EXPECT_EQ(temp_.Content("a.cpp"), "old");
    }
    Boxes boxes(Answer::Yes);
    Type(Open(), "kept");
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_EQ(temp_.Content("a.cpp"), "kept");
    EXPECT_EQ(GetMdi(), nullptr);
}

TEST_F(EditorTest, ClosingDoesNotLoseATextThatCannotBeWritten) {
    const HWND child = Open();
    Type(child, "text");
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    EXPECT_EQ(DestroyMdiE(), 1);
    EXPECT_EQ(EditText(TopChild(child)), "text");
    EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(EditorTest, CloseFilePassesOverTheProjectAndTheSystem) {
    const HWND editor = Open();
    Project.hwndPro = CrearMdiCh("Projec", "MORV Project");
    System.hwndSys = CrearMdiCh("Dial", "System");
    RestoreMdiCh(Project.hwndPro);
    RestoreMdiCh(System.hwndSys);
    Boxes boxes;
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_TRUE(boxes.shown.empty());
    // Without an editor the search ends with a warning instead of going on for ever.
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"WARNING: There is no File Open"});
    EXPECT_TRUE(IsWindow(Project.hwndPro));
    EXPECT_TRUE(IsWindow(System.hwndSys));
    Project.hwndPro = System.hwndSys = nullptr;
}

TEST_F(EditorTest, CloseFileWithoutAnyChildWarns) {
    Boxes boxes;
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"WARNING: There is no File Open"});
}

TEST_F(EditorTest, AtExitEveryChangedEditorIsAskedFor) {
    const HWND first = Open();
    Type(first, "first");
    OpenEdit(temp_.Path("b.cpp").c_str());
    OpenEdit(temp_.Path("c.cpp").c_str());
    Type(GetMdi(), "third");
    {
        Boxes boxes(Answer::Cancel);
        EXPECT_FALSE(SaveEditors());
        EXPECT_EQ(boxes.shown.size(), 1u);
        EXPECT_EQ(EditState, 1);
        EXPECT_TRUE(IsWindow(TopChild(first)));
    }
    Boxes boxes(Answer::Yes);
    EXPECT_TRUE(SaveEditors());
    EXPECT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(temp_.Content("a.cpp"), "first");
    EXPECT_EQ(temp_.Content("c.cpp"), "third");
    EXPECT_FALSE(files::Exists(temp_.Path("b.cpp").c_str()));
    DestroyEditors();
    EXPECT_EQ(EditState, 0);
    EXPECT_EQ(TopChild(first), nullptr);
}

TEST_F(EditorTest, ClosingOneOfTwoEditorsLeavesTheOtherForTheExitToAskFor) {
    Type(Open(), "first");
    OpenEdit(temp_.Path("b.cpp").c_str());
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_EQ(EditState, 1);
    Boxes boxes(Answer::No);
    EXPECT_EQ(DestroyMdiE(), 0);
    EXPECT_EQ(EditState, 0);
}

TEST_F(EditorTest, AtExitAFailedWriteCountsAsCancel) {
    const HWND child = Open();
    Type(child, "text");
    EditRule = 1; // asked for in the rule editor's text too
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    EXPECT_FALSE(SaveEditors());
    EXPECT_EQ(EditText(TopChild(child)), "text");
}

} // namespace
