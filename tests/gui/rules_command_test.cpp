// The "Rules" command: which windows it closes before the rule editor starts.
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"

namespace gui {

namespace {

class RulesCommandTest : public GuiTest {
protected:
    // The program with these files open in text windows, the last one on top.
    App& RunWith(const std::vector<std::string>& names) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            for (const std::string& name : names)
                PutFile(work.Path(name), name);
        });
        for (const std::string& name : names)
            app.CommandWithFile(CM_OPEN_FILE, "Open File", app.Path(name));
        return app;
    }

    static void Ask(App& app, Answer answer) {
        app.ExpectBox("File Has been change. Save before Closing?", "Close notification",
                      Buttons::YesNoCancel, Icon::None, answer);
    }
};

TEST_F(RulesCommandTest, NeedsNoSystem) {
    App& app = Run();
    EXPECT_FALSE(app.IsGrey(CM_RULES));
    app.Start(CM_RULES);
    RuleBox box(app);
    EXPECT_FALSE(app.HasChild(kSystem));
    box.Close();
    EXPECT_FALSE(app.IsGrey(CM_RULES));
}

TEST_F(RulesCommandTest, ClosesTextWindowsButNoDocuments) {
    App& app = RunWith({"a.cpp", "b.cpp"});
    app.Command(CM_NEW_MORV);
    app.Command(CM_NEW_SYSTEM);
    app.Start(CM_RULES);
    RuleBox box(app);
    EXPECT_EQ(app.Children().size(), 3u);
    EXPECT_EQ(TextOf(app.Child(kEditor)), "untitled.rul");
    EXPECT_TRUE(app.HasChild(kProject));
    EXPECT_TRUE(app.HasChild(kSystem));
    box.Close();
    EXPECT_EQ(app.Children().size(), 2u);
}

TEST_F(RulesCommandTest, AsksForEveryChangedText) {
    App& app = RunWith({"a.cpp", "b.cpp"});
    for (HWND child : app.Children(kEditor)) {
        app.Activate(child);
        app.Type("x");
    }
    app.Start(CM_RULES);
    Ask(app, Answer::Yes);
    Ask(app, Answer::No);
    RuleBox box(app);
    EXPECT_EQ(app.Children().size(), 1u);
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xa.cpp"); // the last one activated
    EXPECT_EQ(FileContent(app.Path("b.cpp")), "b.cpp");
    box.Close();
}

TEST_F(RulesCommandTest, ACancelledCloseEndsIt) {
    App& app = RunWith({"a.cpp"});
    app.Type("x");
    app.Start(CM_RULES);
    Ask(app, Answer::Cancel);
    app.Finish();
    EXPECT_EQ(TextOf(app.Child(kEditor)), app.Path("a.cpp"));
    EXPECT_EQ(app.EditorText(), "xa.cpp");
    EXPECT_TRUE(Dialogs(app.Process()).empty());
    app.Command(CM_SAVE_FILE); // the text editor is not held
    EXPECT_EQ(FileContent(app.Path("a.cpp")), "xa.cpp");
}

TEST_F(RulesCommandTest, DoesNothingWhileTheRuleEditorIsOpen) {
    App& app = Run();
    app.Start(CM_RULES);
    RuleBox box(app);
    box.TypeAtEnd("x");
    app.Command(CM_RULES);
    EXPECT_EQ(box.Content(), "x");
    EXPECT_EQ(app.Children().size(), 1u);
    EXPECT_EQ(Dialogs(app.Process()).size(), 1u);
}

TEST_F(RulesCommandTest, StartsAgainAfterAClose) {
    App& app = Run();
    for (int i = 0; i < 2; ++i) {
        app.Start(CM_RULES);
        RuleBox box(app);
        box.Click(RULE_RULE);
        EXPECT_EQ(box.Content(), "Rule 1");
        box.Start(RM_CLOSE);
        box.Ask(Answer::No);
        app.Finish();
        box.Finish();
    }
}

} // namespace

} // namespace gui
