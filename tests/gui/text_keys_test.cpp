// The keys of a text editor, the find and replace dialogs, and the line to go to.
#include "tests/gui/driver/input.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"

namespace gui {

namespace {

constexpr char kText[] = "Pump one\r\npump two\r\npumps\r\nlast";

// Controls of the system's find and replace dialogs.
constexpr int kWhat = 1152;
constexpr int kWith = 1153;
constexpr int kWholeWord = 1040;
constexpr int kMatchCase = 1041;
constexpr int kUp = 1056;
constexpr int kReplaceNext = 1024;
constexpr int kReplaceAll = 1025;

class TextKeysTest : public GuiTest, public testing::WithParamInterface<Kind> {
protected:
    // An editor on a file, with the focus and the caret at its start.
    void RunWith(const std::string& text) {
        App& app =
            Run(GetParam(), [&](const WorkFolder& work) { PutFile(work.Path("a.cpp"), text); });
        app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("a.cpp"));
        edit_ = app.Inner(kEditor);
        Click();
    }

    // Clicks at the start of the text, which may have the focus already: that the caret has gone
    // there tells that the click has arrived. Until the button is up the text selects.
    void Click() {
        Running().Process().Send(edit_, EM_SETSEL, 1, 1);
        MouseClick(edit_, {0, 0});
        Wait("the click into the text", [&] {
            const GUITHREADINFO info = ThreadInfo();
            return SendMessageA(edit_, EM_GETSEL, 0, 0) == 0 && info.hwndFocus == edit_ &&
                   !info.hwndCapture;
        });
    }

    // Presses a key while another one is down.
    void KeyWith(WORD held, WORD key) {
        Running().Inner().ReadNews(Running().Frame());
        Key(key, held);
    }

    // Presses a button that has a state.
    void Check(const Dialog& dialog, int id) {
        Running().Process().Send(dialog.Control(id), BM_CLICK);
    }

    void Wait(const std::string& what, const std::function<bool()>& condition) {
        Running().Process().WaitFor(what, condition);
    }

    GUITHREADINFO ThreadInfo() {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(Running().Process().ThreadId(), &info);
        return info;
    }

    HWND Focus() { return ThreadInfo().hwndFocus; }

    // Waits until these characters of the text are selected.
    void ExpectSelected(WORD begin, WORD end) {
        Wait("the selection from " + std::to_string(begin) + " to " + std::to_string(end),
             [&] { return SendMessageA(edit_, EM_GETSEL, 0, 0) == MAKELRESULT(begin, end); });
    }

    Dialog OpenDialog(WORD key, const std::string& title) {
        KeyWith(VK_CONTROL, key);
        Dialog dialog = Running().WaitDialog(title);
        Wait("the focus in its field", [&] { return GetParent(Focus()) == dialog.Window(); });
        return dialog;
    }

    std::string File() { return FileContent(Running().Path("a.cpp")); }
    std::string Text() { return TextOf(edit_); }

    HWND edit_ = nullptr;
};

TEST_P(TextKeysTest, CtrlASelectsAllAndCtrlTabGoesToTheNextWindow) {
    RunWith(kText);
    KeyWith(VK_CONTROL, 'A');
    ExpectSelected(0, sizeof kText - 1);
    App& app = Running();
    const HWND first = app.Child(kEditor);
    app.Command(CM_NEW_FILE);
    ASSERT_NE(app.Child(kEditor), first);
    MouseClick(app.Inner(kEditor), {0, 0});
    Wait("the focus in the new text", [&] { return Focus() == app.Inner(kEditor); });
    KeyWith(VK_CONTROL, VK_TAB);
    Wait("the first text in front", [&] { return app.Child(kEditor) == first; });
    EXPECT_EQ(Text(), kText);
    app.Activate(first);
    app.CloseChild(first);
    EXPECT_EQ(app.EditorText(), ""); // the key is none of the text's
}

TEST_P(TextKeysTest, CtrlSSaves) {
    RunWith(kText);
    Keys("x");
    Wait("the key", [&] { return Text() == std::string("x") + kText; });
    KeyWith(VK_CONTROL, 'S');
    Wait("the end of saving", [&] { return SendMessageA(edit_, EM_GETMODIFY, 0, 0) == 0; });
    EXPECT_EQ(File(), std::string("x") + kText); // not read before: an open file is not replaced
    EXPECT_EQ(Text(), std::string("x") + kText);
}

TEST_P(TextKeysTest, CtrlSDoesNothingBesideTheRuleEditor) {
    App& app = Run(GetParam());
    app.Start(CM_RULES);
    RuleBox box(app);
    MouseClick(box.Edit(), {0, 0});
    Wait("the focus in the text", [&] { return Focus() == box.Edit(); });
    KeyWith(VK_CONTROL, 'S');
    Keys("x");
    Wait("the key behind it", [&] { return box.Content() == "x"; });
    EXPECT_FALSE(FileExists(app.Path("untitled.rul")));
    EXPECT_TRUE(box.Modified());
}

TEST_P(TextKeysTest, CtrlFFindsAndF3FindsTheNext) {
    RunWith(kText);
    Dialog dialog = OpenDialog('F', "Find");
    Keys("pump");
    Key(VK_RETURN); // the default button
    ExpectSelected(0, 4);
    dialog.Click(IDOK);
    ExpectSelected(10, 14);
    // The text stays usable beside the dialog.
    Click();
    Key(VK_F3);
    ExpectSelected(0, 4);
    Key(VK_F3);
    ExpectSelected(10, 14);
    KeyWith(VK_SHIFT, VK_F3);
    ExpectSelected(0, 4);
    PostMessageA(dialog.Window(), WM_COMMAND, IDCANCEL, 0);
    dialog.WaitGone();
    Key(VK_F3);
    ExpectSelected(10, 14);
    EXPECT_EQ(Text(), kText);
    EXPECT_EQ(SendMessageA(edit_, EM_GETMODIFY, 0, 0), 0);
}

TEST_P(TextKeysTest, TheFindDialogIsWorkedByItsKeys) {
    RunWith(kText);
    Dialog dialog = OpenDialog('F', "Find");
    const HWND field = Focus();
    Key(VK_TAB);
    Wait("the focus on the next control",
         [&] { return Focus() != field && GetParent(Focus()) == dialog.Window(); });
    Key(VK_ESCAPE);
    dialog.WaitGone();
    Wait("the focus in the text", [&] { return Focus() == edit_; });
    // Its keys are its own: those of the text go on as before.
    Key(VK_TAB);
    Keys("x");
    Wait("the keys in the text", [&] { return Text() == std::string("\tx") + kText; });
}

TEST_P(TextKeysTest, FindsWholeWordsInTheirLetterCaseAndUpwards) {
    RunWith(kText);
    Dialog dialog = OpenDialog('F', "Find");
    dialog.SetText(kWhat, "pump");
    Check(dialog, kMatchCase);
    dialog.Click(IDOK);
    ExpectSelected(10, 14);
    dialog.Click(IDOK);
    ExpectSelected(20, 24);
    Running().Process().Send(edit_, EM_SETSEL, 12, 12);
    Check(dialog, kWholeWord);
    dialog.Press(IDOK);
    Running().ExpectBox("\"pump\" was not found", "Find");
    Running().Finish();
    Running().Process().Send(edit_, EM_SETSEL, 30, 30);
    Check(dialog, kUp);
    dialog.Click(IDOK);
    ExpectSelected(10, 14);
}

TEST_P(TextKeysTest, CtrlHReplaces) {
    RunWith(kText);
    Dialog dialog = OpenDialog('H', "Replace");
    dialog.SetText(kWhat, "pump");
    dialog.SetText(kWith, "valve");
    dialog.Click(kReplaceNext); // finds the first
    ExpectSelected(0, 4);
    dialog.Click(kReplaceNext);
    EXPECT_EQ(Text(), "valve one\r\npump two\r\npumps\r\nlast");
    ExpectSelected(11, 15);
    dialog.Click(kReplaceAll);
    EXPECT_EQ(Text(), "valve one\r\nvalve two\r\nvalves\r\nlast");
    EXPECT_NE(SendMessageA(edit_, EM_GETMODIFY, 0, 0), 0);
    dialog.Press(kReplaceAll);
    Running().ExpectBox("\"pump\" was not found", "Find");
    Running().Finish();
    SendMessageA(edit_, EM_UNDO, 0, 0);
    EXPECT_EQ(Text(), "valve one\r\npump two\r\npumps\r\nlast");
    // The Backspace key, which makes the same character, still deletes.
    PostMessageA(dialog.Window(), WM_COMMAND, IDCANCEL, 0);
    dialog.WaitGone();
    Running().Process().Send(edit_, EM_SETSEL, 1, 1);
    Key(VK_BACK);
    Wait("the letter gone", [&] { return Text().starts_with("alve"); });
}

TEST_P(TextKeysTest, APartOfAWordThatIsSelectedIsNotReplacedAsAWholeOne) {
    RunWith(kText);
    Running().Process().Send(edit_, EM_SETSEL, 20, 24); // of "pumps"
    Dialog dialog = OpenDialog('H', "Replace");
    EXPECT_EQ(dialog.Text(kWhat), "pump");
    dialog.SetText(kWith, "valve");
    Check(dialog, kWholeWord);
    dialog.Press(kReplaceNext);
    Running().ExpectBox("\"pump\" was not found", "Find");
    Running().Finish();
    EXPECT_EQ(Text(), kText);
    Check(dialog, kWholeWord);
    dialog.Press(kReplaceNext);
    Running().ExpectBox("\"pump\" was not found", "Find");
    Running().Finish();
    EXPECT_EQ(Text(), "Pump one\r\npump two\r\nvalves\r\nlast");
}

TEST_P(TextKeysTest, TheFindDialogGoesWithItsText) {
    RunWith(kText);
    Dialog dialog = OpenDialog('F', "Find");
    Running().CloseChild(Running().Child(kEditor));
    dialog.WaitGone();
    Running().Command(CM_NEW_FILE);
    EXPECT_EQ(Running().Exit(), 0u);
}

TEST_P(TextKeysTest, WhileABoxWaitsNothingIsReplaced) {
    RunWith(kText);
    Dialog dialog = OpenDialog('H', "Replace");
    dialog.SetText(kWhat, "pump");
    Running().Start(CM_HISTORY_LENGTH);
    Dialog other = Running().WaitDialog("History Length");
    dialog.Click(kReplaceAll);
    EXPECT_EQ(Text(), kText);
    other.Click(IDCANCEL);
    Running().Finish();
    dialog.Click(kReplaceAll);
    EXPECT_EQ(Text(), " one\r\n two\r\ns\r\nlast");
}

TEST_P(TextKeysTest, CtrlGGoesToALine) {
    std::string text;
    for (int line = 1; line <= 300; ++line)
        text += "line " + std::to_string(line) + "\r\n";
    RunWith(text);
    const auto go_to = [&](const std::string& line) {
        Wait("the focus in the text", [&] { return Focus() == edit_; });
        KeyWith(VK_CONTROL, 'G');
        Dialog dialog = Running().WaitDialog("Go to Line");
        Wait("the focus in the field", [&] { return Focus() == dialog.Control(GOTO_LINE); });
        Keys(line); // over the line that was proposed
        Wait("the number", [&] { return dialog.Text(GOTO_LINE) == line; });
        Key(VK_RETURN);
        dialog.WaitGone();
    };
    go_to("123");
    const auto start = static_cast<WORD>(text.find("line 123\r"));
    ExpectSelected(start, start);
    const LRESULT first = SendMessageA(edit_, EM_GETFIRSTVISIBLELINE, 0, 0);
    EXPECT_LE(first, 122);
    EXPECT_GT(first, 122 - 80);
    go_to("99999");
    const auto end = static_cast<WORD>(text.size());
    ExpectSelected(end, end);
    go_to("0");
    ExpectSelected(0, 0);
    Wait("the focus in the text", [&] { return Focus() == edit_; });
    KeyWith(VK_CONTROL, 'G');
    Dialog dialog = Running().WaitDialog("Go to Line");
    EXPECT_EQ(dialog.Text(GOTO_LINE), "1");
    dialog.Click(IDCANCEL);
    dialog.WaitGone();
}

INSTANTIATE_TEST_SUITE_P(Kinds, TextKeysTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
