// What the editors keep of a file before they change it, and texts from elsewhere.
#include "facts_base_fixture.h"
#include "resources/core/record_files.h"
#include "rule_editor_fixture.h"

#include "shell/core/line_ends.h"
namespace {

using namespace zentrik_test;
using KeptFacts = FactsBase;
using KeptRules = RuleEditorTest;

TEST_F(KeptFacts, AreThoseFromBeforeTheDialogOpened) {
    Open({Fact("a", 1), Fact("b", 2)});
    const std::string before = temp.Content("base.fac");
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_FALSE(files::Exists(temp.Path("base.fac.bak").c_str())); // nothing has changed yet
    Add(dialog, "c");
    Add(dialog, "d");
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    EXPECT_EQ(Names(), (Texts{"b", "c", "d"}));
    EXPECT_EQ(temp.Content("base.fac.bak"), before);
}

TEST_F(KeptFacts, SurviveANewBaseUnderTheirName) {
    Open({Fact("a", 1), Fact("b", 2)});
    const std::string before = temp.Content("base.fac");
    KTyp = 0;
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(temp.Content("base.fac"), "");
    Add(dialog, "c");
    EXPECT_EQ(temp.Content("base.fac.bak"), before);
}

TEST_F(KeptFacts, SurviveTheRemovalOfTheLastOneWithTheirTypes) {
    temp.Put("base.typ", "types");
    const std::string before = temp.Content("base.fac");
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    EXPECT_FALSE(files::Exists(KnowFileName));
    EXPECT_FALSE(files::Exists(temp.Path("base.typ").c_str()));
    EXPECT_EQ(temp.Content("base.fac.bak"), before);
    EXPECT_EQ(temp.Content("base.typ.bak"), "types");
}

TEST_F(KeptRules, AreThoseBeforeTheSave) {
    temp_.Put("a.siz", "old index");
    StartWith(kTwo);
    Press(RM_SAVE_FILE);
    EXPECT_EQ(temp_.Content("a.rul.bak"), kTwo);
    EXPECT_EQ(temp_.Content("a.siz.bak"), "old index");
}

TEST_F(KeptRules, HaveNoNewIndexWhenTheyCannotBeWritten) {
    temp_.Put("a.siz", "old index");
    StartWith(kTwo);
    SetFileAttributesA(temp_.Path("a.rul").c_str(), FILE_ATTRIBUTE_READONLY);
    Boxes boxes;
    Press(RM_SAVE_FILE);
    SetFileAttributesA(temp_.Path("a.rul").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(boxes.shown, Rows{"WARNING: Permison denied"});
    EXPECT_EQ(temp_.Content("a.rul"), kTwo);
    EXPECT_EQ(temp_.Content("a.siz"), "old index");
    EXPECT_EQ(mod, 1);
}

TEST_F(KeptRules, AreSavedWithoutAnIndexWhoseNameWouldHaveToBeCut) {
    const std::string folder = temp_.Path("");
    const std::string name = std::string(252 - folder.size(), 'n'); // without an extension
    temp_.Put(name, kOne);
    Start(temp_.Path(name));
    Type('x');
    Boxes boxes;
    Press(RM_SAVE_FILE);
    EXPECT_EQ(boxes.shown, Rows{"WARNING: The file can not be written"});
    EXPECT_EQ(temp_.Content(name), "x" + kOne);
}

TEST_F(KeptRules, WithLineFeedsAloneGetWholeLineEnds) {
    StartWith("Rule 1\na\nEndRule\nRule 2\nbb\nEndRule\n");
    EXPECT_EQ(RulesText(), kOne + kTwo);
    EXPECT_FALSE(IsModified());
    ReNumRules(box_->Window(), 0);
    box_->Select(RULE_RULES, 0);
    Press(RM_REMOVE_RULE);
    EXPECT_EQ(RulesText(), "Rule 1\r\nbb\r\nEndRule\r\n");
    Press(RM_SAVE_FILE);
    EXPECT_EQ(temp_.Content("a.rul"), "Rule 1\r\nbb\r\nEndRule\r\n");
    EXPECT_EQ(WithCrLf("a\r\nb\nc\rd\n\n"), "a\r\nb\r\nc\rd\r\n\r\n");
}

TEST_F(KeptRules, OfAnEarlierNewTextAreNotListedBesideAnEmptyOne) {
    temp_.Put("untitled.siz", Record("Rule 1"));
    Start("untitled.rul");
    EXPECT_EQ(Rules(), Rows{});
    EXPECT_EQ(RuleNum, 0);
    box_.reset();
    temp_.Put("untitled.rul", kOne);
    Start("untitled.rul");
    EXPECT_EQ(Rules(), Rows{"Rule 1"});
}

} // namespace
