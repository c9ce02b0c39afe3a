// What is in sight while the rule editor is open: its dialog, and the place in the text.
#include "tests/gui/driver/input.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr int kRuleCount = 60;

// Rule n has n empty lines, so that lines cannot be mistaken for rules.
std::string ManyRules() {
    std::string text;
    for (int n = 1; n <= kRuleCount; ++n) {
        text += "Rule " + std::to_string(n) + "\r\n";
        for (int line = 0; line < n; ++line)
            text += "\r\n";
        text += "EndRule\r\n";
    }
    return text;
}

class RuleViewTest : public GuiTest, public testing::WithParamInterface<Kind> {
protected:
    // The rule editor on many rules.
    RuleBox RunRules() {
        App& app = Run(GetParam(), [](const WorkFolder& work) {
            PutFile(work.Path("a.rul"), ManyRules());
            PutFile(work.Path("a.siz"), IndexFile(std::vector<int>(kRuleCount, 1)));
            PutFile(work.Path("a.tag"), TagBytes({"pump"}));
            ProjectSpec spec;
            spec.systems.push_back(work.Path("missing.lse"));
            PutProject(work.Path("p.mrv"), spec);
        });
        app.Start(CM_RULES);
        RuleBox box(app);
        box.CommandWithFile(RM_OPEN_RULES, kRulesTitle, app.Path("a.rul"));
        return box;
    }

    HWND Focus() {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(Running().Process().ThreadId(), &info);
        return info.hwndFocus;
    }

    LRESULT Ask(HWND edit, UINT message, WPARAM wParam = 0) {
        return Running().Process().Send(edit, message, wParam);
    }

    // The dialog's grey is on the screen between its two lists.
    static bool IsInSight(const RuleBox& box) {
        RECT left{}, right{};
        GetWindowRect(GetDlgItem(box.Window(), RULE_RULES), &left);
        GetWindowRect(GetDlgItem(box.Window(), RULE_TAGS), &right);
        const auto pixels = ScreenPixels({left.right, left.top, right.left, left.bottom});
        constexpr char kLightGrey = '\xC0';
        return IsOneColour(pixels) && pixels[0] == kLightGrey && pixels[1] == kLightGrey &&
               pixels[2] == kLightGrey;
    }

    void ExpectInSight(const RuleBox& box, const std::string& when) {
        Running().Process().WaitFor("the dialog on the screen " + when,
                                    [&] { return IsInSight(box); });
    }

    // The caret is behind the text's last character, and its line is in sight.
    void ExpectEndInSight(const RuleBox& box) {
        const auto end = static_cast<WPARAM>(box.Content().size());
        EXPECT_EQ(Ask(box.Edit(), EM_GETSEL), static_cast<LRESULT>(MAKELONG(end, end)));
        const LRESULT place = Ask(box.Edit(), EM_POSFROMCHAR, end - 1);
        RECT inside{};
        GetClientRect(box.Edit(), &inside);
        ASSERT_NE(place, -1);
        EXPECT_GE(static_cast<short>(HIWORD(place)), 0);
        EXPECT_LT(static_cast<short>(HIWORD(place)), inside.bottom);
    }
};

TEST_P(RuleViewTest, TheDialogStaysInSightWhenTheTextIsClicked) {
    RuleBox box = RunRules();
    Running().Process().WaitFor("the dialog on the screen", [&] { return IsInSight(box); });
    for (int click = 0; click < 3; ++click) {
        MouseClick(box.Edit(), {30, 30 + 40 * click});
        Running().Process().WaitFor("the focus in the text", [&] { return Focus() == box.Edit(); });
        Running().Process().WaitFor("the dialog above the text", [&] { return IsInSight(box); });
        MouseClick(GetDlgItem(box.Window(), RULE_TAGS), {4, 4});
        Running().Process().WaitFor("the focus in the dialog",
                                    [&] { return Focus() == GetDlgItem(box.Window(), RULE_TAGS); });
    }
}

TEST_P(RuleViewTest, TheDialogStaysInSightBesideADialogOfTheFrameAndAfterIt) {
    RuleBox box = RunRules();
    App& app = Running();
    app.Start(CM_HISTORY_LENGTH);
    Dialog dialog = app.WaitDialog("History Length");
    ExpectInSight(box, "beside another dialog");
    dialog.Click(IDCANCEL);
    app.Finish();
    ExpectInSight(box, "after the dialog");
    app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path("a.tag"));
    ExpectInSight(box, "after a file dialog");
    app.Start(CM_UNDO);
    const Box undo = app.WaitBox("Undo notification");
    ExpectInSight(box, "beside a box");
    app.Press(undo);
    app.Finish();
    ExpectInSight(box, "after the box");
}

TEST_P(RuleViewTest, TheDialogStaysInSightBesideTheCheck) {
    RuleBox box = RunRules();
    App& app = Running();
    app.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", app.Path("p.mrv"));
    ExpectInSight(box, "with the project");
    app.Start(CM_DEBUG);
    Dialog debug = app.WaitDialog("Debug");
    ExpectInSight(box, "beside the dialog");
    debug.Press(DEBUG_START);
    const Box failed = app.WaitBox("Debug"); // a system is missing
    ExpectInSight(box, "beside its box");
    app.Press(failed);
    app.Finish();
    ExpectInSight(box, "after its box");
    debug.Close();
    app.Finish();
    ExpectInSight(box, "after the dialog");
}

TEST_P(RuleViewTest, ASelectedRuleIsScrolledTo) {
    RuleBox box = RunRules();
    for (const int row : {40, 3, 20, 0}) {
        box.Select(row);
        const std::size_t begin = box.Content().find("Rule " + std::to_string(row + 1) + "\r\n");
        const LRESULT line = Ask(box.Edit(), EM_LINEFROMCHAR, begin);
        EXPECT_EQ(Ask(box.Edit(), EM_GETFIRSTVISIBLELINE), line) << row;
        EXPECT_EQ(Ask(box.Edit(), EM_LINEFROMCHAR, static_cast<WPARAM>(-1)), line) << row;
    }
    box.Select(kRuleCount - 1); // as far as it goes
    const std::size_t begin = box.Content().find("Rule 60\r\n");
    EXPECT_LE(Ask(box.Edit(), EM_GETFIRSTVISIBLELINE), Ask(box.Edit(), EM_LINEFROMCHAR, begin));
    EXPECT_FALSE(box.Modified());
    EXPECT_EQ(box.Content(), ManyRules());
    box.Close();
}

TEST_P(RuleViewTest, WhatIsAppendedIsInSight) {
    RuleBox box = RunRules();
    box.Click(RULE_RULE);
    EXPECT_EQ(box.Content(), ManyRules() + "Rule 61");
    ExpectEndInSight(box);
    box.TypeAt(0, "x");
    box.CommandWithFile(RM_OPEN_TAGS, kTagsTitle, Running().Path("a.tag"));
    box.DoubleClickTag(0);
    EXPECT_EQ(box.Content(), "x" + ManyRules() + "Rule 61pump");
    ExpectEndInSight(box);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RuleViewTest, testing::Values(Kind::Nt, Kind::Win98));

} // namespace

} // namespace gui
