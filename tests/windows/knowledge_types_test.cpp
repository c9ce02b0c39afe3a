#include "dialog_test.h"
#include "tests/core/core_test.h"
#include "write_lock.h"

#include "resources/core/record_files.h"
#include "resources/knowledge_types.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

class KnowledgeTypes : public testing::Test {
protected:
    KnowledgeTypes() {
        SetText(KTypeFileName, temp.Path("base.typ"));
        Put({"zeta", "Alpha"});
        System.TypNum = 3;
    }

    void Put(const Texts& names) { WriteNames(KTypeFileName, names); }
    Texts OnDisk() const { return NamesIn(KTypeFileName); }
    static void Add(const DialogHandle& dialog, const std::string& name) {
        dialog.Put(KTYPE_NAME, name);
        dialog.Press(IDOK);
    }

    TempFolder temp;
    Boxes boxes;
};

TEST_F(KnowledgeTypes, AreListedSortedAndWrittenSorted) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    EXPECT_EQ(dialog.Rows(KTYPE_LIST), (Texts{"Alpha", "zeta"}));
    Add(dialog, "mid");
    EXPECT_EQ(dialog.Text(KTYPE_NAME), "");
    EXPECT_EQ(System.TypNum, 4);
    EXPECT_EQ(OnDisk(), (Texts{"zeta", "Alpha"}));
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(OnDisk(), (Texts{"Alpha", "mid", "zeta"}));
}

TEST_F(KnowledgeTypes, AreNotWrittenUnlessChanged) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(OnDisk(), (Texts{"zeta", "Alpha"}));
}

TEST_F(KnowledgeTypes, MayBeEmptyOrTwice) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    Add(dialog, "zeta");
    Add(dialog, "");
    EXPECT_EQ(System.TypNum, 5);
    dialog.Press(IDCANCEL);
    EXPECT_EQ(OnDisk(), (Texts{"", "Alpha", "zeta", "zeta"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(KnowledgeTypes, RemovedOnesKeepTheirCount) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    dialog.Select(KTYPE_LIST, 0);
    dialog.Press(KTYPE_REMOVE);
    dialog.Press(KTYPE_REMOVE); // nothing is selected any more
    EXPECT_EQ(System.TypNum, 3);
    dialog.Press(IDCANCEL);
    EXPECT_EQ(OnDisk(), Texts{"zeta"});
}

TEST_F(KnowledgeTypes, OfAMissingFileAreNoneAndItIsCreated) {
    files::Remove(KTypeFileName);
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    EXPECT_TRUE(dialog.Rows(KTYPE_LIST).empty());
    EXPECT_TRUE(files::Exists(KTypeFileName));
    Add(dialog, std::string(60, 't'));
    dialog.Press(IDCANCEL);
    EXPECT_EQ(OnDisk(), Texts{std::string(49, 't')});
}

TEST_F(KnowledgeTypes, ThatCanNotBeWrittenStayInTheDialogUntilTheyAre) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    Add(dialog, "mid");
    files::FailWritesAfter(10);
    dialog.Press(IDCANCEL);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, Texts{"WARNING: No space left on the disk"});
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Rows(KTYPE_LIST), (Texts{"Alpha", "mid", "zeta"}));
    EXPECT_EQ(OnDisk(), (Texts{"zeta", "Alpha"}));
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(OnDisk(), (Texts{"Alpha", "mid", "zeta"}));
}

TEST_F(KnowledgeTypes, ThatCanNotBeWrittenForGoodAreGivenUpByTheCloseBox) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    Add(dialog, "mid");
    {
        const WriteLock lock(KTypeFileName);
        dialog.CloseBox(); // writes, as Close does
        EXPECT_TRUE(dialog.IsOpen());
        dialog.CloseBox();
        EXPECT_FALSE(dialog.IsOpen());
    }
    EXPECT_EQ(boxes.shown, Texts{"WARNING: Permison denied"});
    EXPECT_EQ(OnDisk(), (Texts{"zeta", "Alpha"}));
}

TEST_F(KnowledgeTypes, AreWrittenByTheCloseBox) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    Add(dialog, "mid");
    dialog.CloseBox();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(OnDisk(), (Texts{"Alpha", "mid", "zeta"}));
}

TEST_F(KnowledgeTypes, ThatCanNotBeReadAreNotEdited) {
    DialogSteps steps;
    steps.Never("Knowledge Type");
    {
        const WholeLock lock(KTypeFileName);
        EXPECT_EQ(RunDialog(nullptr, "KnowType_Box", TypeKnowledge), 0);
    }
    EXPECT_EQ(boxes.shown, Texts{"WARNING: Permison denied"});
    EXPECT_EQ(OnDisk(), (Texts{"zeta", "Alpha"}));
    // Neither are those that no file can be made for.
    SetText(KTypeFileName, temp.Path("none\\base.typ"));
    EXPECT_EQ(RunDialog(nullptr, "KnowType_Box", TypeKnowledge), 0);
    EXPECT_EQ(boxes.shown,
              (Texts{"WARNING: Permison denied", "WARNING: No such file or directory"}));
}

TEST_F(KnowledgeTypes, GoToTheFileTheyCameFrom) {
    ShownDialog dialog("KnowType_Box", TypeKnowledge);
    Add(dialog, "mid");
    SetText(KTypeFileName, temp.Path("other.typ")); // another facts base was opened meanwhile
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(files::Exists(temp.Path("other.typ").c_str()));
    EXPECT_EQ(NamesIn(temp.Path("base.typ").c_str()), (Texts{"Alpha", "mid", "zeta"}));
}

} // namespace
