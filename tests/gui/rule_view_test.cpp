// What is in sight while the rule editor is open: its dialog, and the place in the text.
#include "tests/gui/driver/input.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

namespace {

constexpr int kRules = 60;

// Rule n has n empty lines, so that lines cannot be mistaken for rules.
std::string ManyRules() {
    std::string text;
    for (int n = 1; n <= kRules; ++n) {
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
            PutFile(work.Path("a.siz"), IndexFile(std::vector<int>(kRules, 1)));
            PutFile(work.Path("a.tag"), TagBytes({"pump"}));
        });
        app.Start(CM_RULES);
        RuleBox box(app);
        box.CommandWithFile(RM_OPEN_RULES, kRulesTitle, app.Path("a.rul"));
        return box;
    }

    LRESULT Ask(HWND edit, UINT message, WPARAM wParam = 0) {
        return Running().Process().Send(edit, message, wParam);
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
    RECT inside{};
    GetClientRect(box.Window(), &inside);
    MapWindowPoints(box.Window(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
    // The pressed button and the text's caret are not in the lower half of the lists.
    const LONG height = inside.bottom - inside.top;
    const RECT lists{inside.left, inside.top + height / 3, inside.right, inside.top + height / 2};
    std::vector<char> seen;
    Running().Process().WaitFor("the dialog on the screen", [&] {
        seen = ScreenPixels(lists);
        return !IsOneColour(seen);
    });
    for (int click = 0; click < 3; ++click) {
        PointerClick(Running().Process(), box.Edit(), {30, 30 + 40 * click});
        Running().Process().WaitFor("the focus in the text", [&] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            GetGUIThreadInfo(Running().Process().ThreadId(), &info);
            return info.hwndFocus == box.Edit();
        });
        Running().Process().WaitFor("the dialog above the text",
                                    [&] { return ScreenPixels(lists) == seen; });
        PointerClick(Running().Process(), box.Window(), {4, 4});
        Running().Process().WaitFor("the dialog as the active window", [&] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            GetGUIThreadInfo(Running().Process().ThreadId(), &info);
            return info.hwndActive == box.Window();
        });
    }
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
    box.Select(kRules - 1); // as far as it goes
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
