// The way of a rule by hand: written in the rule editor, saved, put into a system and that into a
// project, checked, mended, checked again and compiled.
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <algorithm>

namespace gui {

namespace {

const std::string kHighRule =
    "\r\nIf Level.Is(HIGH)\r\nThen deduce(&Valve);\r\nEndIf\r\nEndRule\r\n";
const std::string kOne = "Rule 1" + kHighRule;
const std::string kTwo = "Rule 2" + kHighRule;
const std::string kFaulty = "Rule 3\r\nIf Level.Is(LOW)\r\nEndIf\r\nEndRule\r\n";
const std::string kMended =
    "Rule 3\r\nIf Level.Is(LOW)\r\nThen deduce(&Valve);\r\nEndIf\r\nEndRule\r\n";

class RuleChainTest : public GuiTest {
protected:
    // The program in a folder with facts, results, a main file, a DDE file and a tag file.
    App& RunParts() {
        return Run(Kind::Nt, [](const WorkFolder& work) {
            PutSampleProject(work);
            PutTools(work, "");
            PutFile(work.Path("level.tag"), TagBytes({"LOW", "HIGH"}));
        });
    }

    // A rule as it is put together: "Rule", the condition typed, its tag double-clicked, the rest
    // typed, "EndRule".
    static void AddRule(RuleBox& box, int tag, const std::string& rest) {
        box.Click(RULE_RULE);
        box.TypeAtEnd("\rIf Level.Is(");
        box.DoubleClickTag(tag);
        box.TypeAtEnd(")\r" + rest);
        box.Click(RULE_END_RULE);
    }

    static void WriteRules(App& app) {
        app.Start(CM_RULES);
        RuleBox box(app);
        box.CommandWithFile(RM_OPEN_TAGS, kTagsTitle, app.Path("level.tag"));
        ASSERT_EQ(box.Tags(), (TextRows{"HIGH", "LOW"}));
        AddRule(box, 0, "Then deduce(&Valve);\rEndIf\r");
        AddRule(box, 0, "Then deduce(&Valve);\rEndIf\r");
        AddRule(box, 1, "EndIf\r"); // without its Then
        EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2", "Rule 3"}));
        EXPECT_EQ(box.Count(), "Rule 3");
        EXPECT_EQ(box.Content(), kOne + kTwo + kFaulty);
        box.CommandWithFile(RM_SAVE_FILE, kRulesTitle, app.Path("level.rul"));
        box.Close();
    }

    static void MakeSystem(App& app) {
        app.Command(CM_NEW_SYSTEM);
        app.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", app.Path("level.rul"));
        app.Start(CM_ADD_FACTS);
        app.ChooseFile("Open MORV Facts", app.Path("tank.fac"));
        ChooseAll(app);
        app.CommandWithFile(CM_SAVE_SYSTEM, "Save MORV System As...", app.Path("level.lse"));
    }

    static void MakeProject(App& app) {
        app.Command(CM_NEW_MORV);
        app.CommandWithFile(CM_ADD_MAIN, "Add MORV Main", app.Path("main.cpp"));
        app.CommandWithFile(CM_ADD_SYSTEM, "Add MORV System", app.Path("level.lse"));
        app.CommandWithFile(CM_ADD_DDE, "Add MORV DDE", app.Path("link.dde"));
        app.Start(CM_ADD_RESULTS);
        app.ChooseFile("Open MORV Result", app.Path("names.rst"));
        ChooseAll(app);
        app.CommandWithFile(CM_SAVE_MORV, "Save MORV Project As...", app.Path("level.mrv"));
    }

    // Takes both names that the dialog "Add Resource" offers.
    static void ChooseAll(App& app) {
        Dialog add = app.WaitDialog("Add Resource");
        add.SelectRows(ADD_OFFERED, {0, 1});
        add.Click(ADD_ADD);
        add.Click(ADD_OK);
        app.Finish();
    }

    static TextRows Debug(App& app) {
        app.Start(CM_DEBUG);
        Dialog dialog = app.WaitDialog("Debug");
        dialog.Press(DEBUG_START);
        app.ExpectBox("Debug Finalitzat", "Debug");
        app.Finish();
        app.Finish();
        return app.Rows(kMessages);
    }

    // Opens the rules from the system's window and puts the missing line in.
    static void MendRules(App& app) {
        const TextRows rows = app.Rows(kSystem);
        const auto row = std::find(rows.begin(), rows.end(), Item(app.Path("level.rul")));
        ASSERT_NE(row, rows.end());
        app.StartDoubleClick(kSystem, static_cast<int>(row - rows.begin()));
        RuleBox box(app);
        EXPECT_EQ(box.Rules(), (TextRows{"Rule 1", "Rule 2", "Rule 3"}));
        EXPECT_EQ(box.Content(), kOne + kTwo + kFaulty);
        box.TypeAt((kOne + kTwo).size() + kFaulty.find("EndIf"), "Then deduce(&Valve);\r");
        box.Command(RM_SAVE_FILE);
        box.Close();
    }
};

TEST_F(RuleChainTest, FromTheFirstTagToTheGeneratedSource) {
    App& app = RunParts();
    ASSERT_NO_FATAL_FAILURE(WriteRules(app));
    EXPECT_EQ(FileContent(app.Path("level.rul")), kOne + kTwo + kFaulty);
    const int size = static_cast<int>(kOne.size());
    EXPECT_EQ(FileContent(app.Path("level.siz")),
              IndexFile({size, size, static_cast<int>(kFaulty.size()) - 2}));

    MakeSystem(app);
    EXPECT_EQ(app.Rows(kSystem).at(1), Item(app.Path("level.lse")));
    MakeProject(app);
    EXPECT_EQ(Text(ProjectHead(app.Path("level.mrv")).EngineNames[1]), app.Path("level.lse"));

    // The lines before the one in which it shows are counted; the line end behind the last rule is
    // no part of it.
    EXPECT_EQ(Debug(app), (TextRows{app.Path("level.rul"), "Rule 1 : Line :5 : Secon Debug:",
                                    "Rule 2 : Line :10 : Secon Debug:",
                                    "Rule 3 : Line :12 : There are If whithout Then",
                                    "Rule 3 : Line :13 : There is a If or a For without End",
                                    "Rule 3 : Line :13 : Secon Debug:"}));

    ASSERT_NO_FATAL_FAILURE(MendRules(app));
    EXPECT_EQ(FileContent(app.Path("level.rul")), kOne + kTwo + kMended);
    EXPECT_EQ(FileContent(app.Path("level.siz")),
              IndexFile({size, size, static_cast<int>(kMended.size()) - 2}));
    EXPECT_EQ(Debug(app),
              (TextRows{app.Path("level.rul"), "Rule 1 : Line :5 : Secon Debug:",
                        "Rule 2 : Line :10 : Secon Debug:", "Rule 3 : Line :14 : Secon Debug:"}));

    app.Command(CM_COMPILE);
    const std::string source = FileContent(app.Path("levelR.cpp"));
    EXPECT_NE(source.find("Begin Inference_Engine_1 ZkSystem"), std::string::npos);
    EXPECT_NE(source.find(kOne + kTwo + kMended + "\r\n\r\n\r\nEndSystem"), std::string::npos);
    // The choice of results has marked the system, too; nothing else is left to be saved.
    app.Start(CM_EXIT);
    app.ExpectBox("Save Current MORV System", "Close MORV Project", Buttons::YesNoCancel,
                  Icon::None, Answer::No);
    EXPECT_EQ(app.Farewell(), 0u);
}

} // namespace

} // namespace gui
