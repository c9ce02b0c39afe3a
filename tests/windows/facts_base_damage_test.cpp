// The facts base editor over files that are damaged, locked, gone or changed behind it, and on a
// full disk.
#include "facts_base_fixture.h"
#include "write_lock.h"

namespace {

using namespace zentrik_test;
using DamagedFactsBase = FactsBase;

TEST_F(DamagedFactsBase, ADamagedRestIsNoFact) {
    temp.Put("base.fac", std::string(BytesOf(Fact("a", 1))) + std::string(200, 'x'));
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"a"});
    Add(dialog, "b");
    EXPECT_EQ(Names(), (Texts{"a", "b"}));
}

TEST_F(DamagedFactsBase, ThatVanishedSaysSoAndKeepsTheList) {
    Open({Fact("a", 1), Fact("b", 5)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    files::Remove(KnowFileName);
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    Add(dialog, "B");
    EXPECT_EQ(boxes.shown,
              (Texts{"WARNING: No such file or directory", "New Fact: Fats already exist, modify?",
                     "WARNING: No such file or directory"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "b"}));
    EXPECT_EQ(dialog.Text(KNOW_NAME), "B");
    // A new fact starts the file again, and the list shows what is in it.
    Add(dialog, "c");
    EXPECT_EQ(Names(), Texts{"c"});
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"c"});
}

TEST_F(DamagedFactsBase, ThatIsReadOnlyIsShownAndNotChanged) {
    const WriteLock lock(KnowFileName);
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"a"});
    Add(dialog, "b");
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: Permison denied", "WARNING: Permison denied"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"a"});
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b");
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
    EXPECT_EQ(Names(), Texts{"a"});
}

TEST_F(DamagedFactsBase, ThatLostFactsBehindTheListIsListedAgainAfterAReplacement) {
    Open({Fact("a", 1), Fact("b", 5), Fact("c", 6), Fact("d", 7)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    temp.Put("base.fac", BytesOf(Fact("a", 1)));
    Add(dialog, "D");
    EXPECT_EQ(Names(), (Texts{"a", "D"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "D"}));
}

TEST_F(DamagedFactsBase, ThatLostFactsBehindTheListIsListedAgainByRemove) {
    Open({Fact("a", 1), Fact("b", 5), Fact("c", 6)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    temp.Put("base.fac", BytesOf(Fact("z", 1)));
    dialog.Select(KNOW_FACTS, 2);
    dialog.Press(KNOW_REMOVE);
    EXPECT_EQ(Names(), Texts{"z"});
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"z"});
    // Nothing is left of it, which is no reason to delete its types.
    temp.Put("base.fac", "");
    temp.Put("base.typ", std::string(50, 'T'));
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    EXPECT_TRUE(files::Exists(KnowFileName));
    EXPECT_TRUE(files::Exists(temp.Path("base.typ").c_str()));
    EXPECT_TRUE(dialog.Rows(KNOW_FACTS).empty());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DamagedFactsBase, ThatCanNotBeReadSaysSoAndLosesNothing) {
    Open({Fact("a", 1), Fact("b", 5)});
    {
        const WholeLock lock(KnowFileName);
        ShownDialog dialog("Knowledge_Box", KnowledgeNew);
        EXPECT_TRUE(dialog.Rows(KNOW_FACTS).empty());
        Add(dialog, "c");
        EXPECT_EQ(boxes.shown, (Texts{"WARNING: Permison denied", "WARNING: Permison denied"}));
        EXPECT_EQ(dialog.Text(KNOW_NAME), "c");
    }
    EXPECT_EQ(Names(), (Texts{"a", "b"}));
}

TEST_F(DamagedFactsBase, WhoseTypesWouldHaveItsOwnNameHasNone) {
    const std::string folder = temp.Path("");
    const std::string longest =
        folder + std::string(static_cast<std::size_t>(kNameSize) - 1 - folder.size(), 'n');
    for (const std::string& path : {longest, temp.Path("base.TYP")}) {
        SetText(KnowFileName, path);
        KTyp = 0;
        ShownDialog dialog("Knowledge_Box", KnowledgeNew);
        Add(dialog, "a");
        const std::vector<Dat> before = Facts();
        ASSERT_EQ(before.size(), 1u) << path;
        DialogSteps steps;
        steps.Never("Knowledge Type");
        dialog.Press(KNOW_ADD_TYPE);
        EXPECT_EQ(Text(KTypeFileName), "");
        EXPECT_EQ(boxes.shown, Texts{"WARNING: No such file or directory"});
        EXPECT_EQ(dialog.Rows(KNOW_TYPES), (Texts{"DETECTION", "DIAGNOSTIC", "ACTION"}));
        EXPECT_EQ(BytesOf(Facts()), BytesOf(before));
        boxes.shown.clear();
        // Nor are types read when the base is opened again.
        KTyp = 1;
        ShownDialog again("Knowledge_Box", KnowledgeNew);
        EXPECT_EQ(again.Rows(KNOW_TYPES).size(), 3u) << path;
    }
}

TEST_F(DamagedFactsBase, OnAFullDiskKeepsWhatItHas) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    files::FailWritesAfter(0);
    Add(dialog, "b");
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, Texts{"WARNING: No space left on the disk"});
    EXPECT_EQ(Names(), Texts{"a"});
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b");
    Add(dialog, "b");
    EXPECT_EQ(Names(), (Texts{"a", "b"}));
    EXPECT_EQ(Ident(1), 2);
}

} // namespace
