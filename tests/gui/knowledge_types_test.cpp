// The knowledge types of a facts base: their dialog, which is open beside that of the facts.
#include "tests/gui/blocked_files.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

#include <optional>

namespace gui {

namespace {

const TextRows kBuiltIn{"DETECTION", "DIAGNOSTIC", "ACTION"};

class KnowledgeTypesTest : public GuiTest {
protected:
    // The program with the facts base in `name` newly made.
    Dialog RunFacts(const std::string& name = "base.fac") {
        App& app = Run();
        MakeFolders(app.Path(name).substr(0, app.Path(name).rfind('\\')));
        app.Start(CM_NEW_FACTS_BASE);
        app.ChooseFile("Save Facts Base As...", app.Path(name));
        return app.WaitDialog("Facts Base");
    }

    Dialog OpenTypes(Dialog& facts) {
        facts.Press(KNOW_ADD_TYPE);
        return Running().WaitDialog("Knowledge Type");
    }

    static void Add(Dialog& types, const std::string& name) {
        types.SetText(KTYPE_NAME, name);
        types.Click(IDOK);
        EXPECT_EQ(types.Text(KTYPE_NAME), "");
    }

    void Close(Dialog& types) {
        types.Click(IDCANCEL);
        Running().Finish();
        EXPECT_FALSE(types.Open());
    }

    void End(Dialog& facts) {
        facts.Click(KNOW_CLOSE);
        Running().Finish();
    }

    std::string Types(const std::string& name = "base.typ") {
        return FileContent(Running().Path(name));
    }
};

TEST_F(KnowledgeTypesTest, AreSortedAndWrittenByClose) {
    Dialog facts = RunFacts();
    Dialog types = OpenTypes(facts);
    EXPECT_EQ(GetWindow(types.Window(), GW_OWNER), nullptr);
    EXPECT_TRUE(IsWindowEnabled(facts.Window()));
    EXPECT_TRUE(FileExists(Running().Path("base.typ")));
    EXPECT_EQ(types.Rows(KTYPE_LIST), TextRows{}); // no built-in ones
    for (const char* name : {"MIDDLE", "LAST", "ALPHA", "LAST", ""})
        Add(types, name); // no check at all
    EXPECT_EQ(types.Rows(KTYPE_LIST), (TextRows{"", "ALPHA", "LAST", "LAST", "MIDDLE"}));
    EXPECT_EQ(Types(), "");
    EXPECT_EQ(facts.Rows(KNOW_TYPES), kBuiltIn);
    Close(types);
    EXPECT_EQ(Types(), TagBytes({"", "ALPHA", "LAST", "LAST", "MIDDLE"}));
    EXPECT_EQ(facts.Rows(KNOW_TYPES), (TextRows{"DETECTION", "DIAGNOSTIC", "ACTION", "", "ALPHA",
                                                "LAST", "LAST", "MIDDLE"}));
    End(facts);
}

TEST_F(KnowledgeTypesTest, AreRemovedAndTheCloseBoxWritesToo) {
    Dialog facts = RunFacts();
    PutFile(Running().Path("base.typ"), TagBytes({"C", "A", "B"}) + "rest");
    Dialog types = OpenTypes(facts);
    EXPECT_EQ(types.Rows(KTYPE_LIST), (TextRows{"A", "B", "C"}));
    types.Select(KTYPE_LIST, 1);
    types.Click(KTYPE_REMOVE);
    EXPECT_EQ(Types(), TagBytes({"C", "A", "B"}) + "rest");
    types.Close();
    Running().Finish();
    EXPECT_EQ(Types(), TagBytes({"A", "C"}));
    EXPECT_EQ(facts.Rows(KNOW_TYPES), (TextRows{"DETECTION", "DIAGNOSTIC", "ACTION", "A", "C"}));
    End(facts);
}

TEST_F(KnowledgeTypesTest, AnUnchangedListIsNotWritten) {
    Dialog facts = RunFacts();
    const std::string before = TagBytes({"C", "A"});
    PutFile(Running().Path("base.typ"), before);
    Dialog types = OpenTypes(facts);
    Close(types);
    EXPECT_EQ(Types(), before);
    // They are listed in the file's order.
    EXPECT_EQ(facts.Rows(KNOW_TYPES), (TextRows{"DETECTION", "DIAGNOSTIC", "ACTION", "C", "A"}));
    // Remove marks the list changed even when nothing is selected.
    Dialog again = OpenTypes(facts);
    again.Click(KTYPE_REMOVE);
    Close(again);
    EXPECT_EQ(Types(), TagBytes({"A", "C"}));
    End(facts);
}

TEST_F(KnowledgeTypesTest, AFactMayHaveAnAddedType) {
    Dialog facts = RunFacts();
    Dialog types = OpenTypes(facts);
    Add(types, "OWN");
    Close(types);
    facts.SetText(KNOW_NAME, "x");
    facts.DoubleClick(KNOW_TYPES, 3);
    facts.Click(IDOK);
    EXPECT_EQ(facts.Rows(KNOW_FACTS), TextRows{"x"});
    End(facts);
    App& app = Running();
    app.Start(CM_OPEN_RESOURCE);
    app.ChooseFile("Open Resource", app.Path("base.fac"));
    Dialog again = app.WaitDialog("Facts Base");
    EXPECT_EQ(again.Rows(KNOW_TYPES).back(), "OWN");
    End(again);
}

TEST_F(KnowledgeTypesTest, TheirFileIsNamedUpToTheFirstDotOfThePath) {
    Dialog facts = RunFacts("a.b\\base.fac");
    Dialog types = OpenTypes(facts);
    Add(types, "OWN");
    Close(types);
    EXPECT_EQ(Types("a.typ"), TagBytes({"OWN"}));
    EXPECT_FALSE(FileExists(Running().Path("a.b\\base.typ")));
    End(facts);
}

TEST_F(KnowledgeTypesTest, LongNamesAreCut) {
    Dialog facts = RunFacts();
    Dialog types = OpenTypes(facts);
    Add(types, std::string(300, 't'));
    Close(types);
    EXPECT_EQ(Types(), TagBytes({std::string(49, 't')}));
    End(facts);
}

TEST_F(KnowledgeTypesTest, AFileThatCannotBeWrittenKeepsTheDialogOpenUntilItCan) {
    Dialog facts = RunFacts();
    PutFile(Running().Path("base.typ"), TagBytes({"A"}));
    std::optional<ReadOnlyFile> mark(Running().Path("base.typ"));
    Dialog types = OpenTypes(facts);
    EXPECT_EQ(types.Rows(KTYPE_LIST), TextRows{"A"});
    Add(types, "B");
    for (int tries = 0; tries < 2; ++tries) {
        types.Press(IDCANCEL);
        Running().ExpectError("Permison denied");
        Running().Finish();
        EXPECT_TRUE(types.Open());
        EXPECT_EQ(types.Rows(KTYPE_LIST), (TextRows{"A", "B"}));
    }
    mark.reset();
    Close(types);
    EXPECT_EQ(Types(), TagBytes({"A", "B"}));
    EXPECT_EQ(facts.Rows(KNOW_TYPES).back(), "B");
    End(facts);
}

TEST_F(KnowledgeTypesTest, TheCloseBoxGivesUpWhatCannotBeWritten) {
    Dialog facts = RunFacts();
    PutFile(Running().Path("base.typ"), TagBytes({"A"}));
    const ReadOnlyFile mark(Running().Path("base.typ"));
    Dialog types = OpenTypes(facts);
    Add(types, "B");
    types.Press(IDCANCEL);
    Running().ExpectError("Permison denied");
    Running().Finish();
    types.Close();
    Running().Finish();
    EXPECT_FALSE(types.Open());
    EXPECT_EQ(Types(), TagBytes({"A"}));
    EXPECT_EQ(facts.Rows(KNOW_TYPES).back(), "A");
    End(facts);
}

} // namespace

} // namespace gui
