#include "dialog_test.h"
#include "system_window.h"
#include "tests/core/core_test.h"

#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "resources/local_variables.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

std::string VariableBytes(const std::vector<Texts>& variables) {
    std::string bytes;
    for (const Texts& texts : variables) {
        V_V variable;
        SetText(variable.Name, texts[0]);
        SetText(variable.Type, texts[1]);
        SetText(variable.Val, texts[2]);
        bytes += BytesOf(variable);
    }
    return bytes;
}

class LocalVariables : public testing::Test {
protected:
    LocalVariables() {
        SetText(System.OldVarName, temp.Path("old.var"));
        SetText(System.VarFile, temp.Path("new.var"));
        SetText(WorkPath, "C:\\work");
    }

    void Given(const std::vector<Texts>& variables) {
        temp.Put("old.var", VariableBytes(variables));
        System.VarState = 1;
    }
    static void Fill(const DialogHandle& dialog, const Texts& texts) {
        dialog.Put(VAR_NAME, texts[0]);
        dialog.Put(VAR_TYPE, texts[1]);
        dialog.Put(VAR_VALUE, texts[2]);
    }
    static Texts Filled(const DialogHandle& dialog) {
        return {dialog.Text(VAR_NAME), dialog.Text(VAR_TYPE), dialog.Text(VAR_VALUE)};
    }
    static void Add(const DialogHandle& dialog, const Texts& texts) {
        Fill(dialog, texts);
        dialog.Press(VAR_ADD);
    }

    TempFolder temp;
    SystemWindow system;
    Boxes boxes;
};

TEST_F(LocalVariables, OpenWithTheRecordsInReverseOrder) {
    Given({{"A", "int", "1"}, {"B", "char", "'x'"}, {"C", "double", "2.5"}});
    ShownDialog dialog("Var_Box", VarNew);
    EXPECT_EQ(dialog.Rows(VAR_LIST),
              (Texts{"C \t double \t 2.5", "B \t char \t 'x'", "A \t int \t 1"}));
    EXPECT_EQ(dialog.Choices(VAR_TYPE), (Texts{"int", "long", "char", "double"}));
    EXPECT_EQ(Filled(dialog), (Texts{"", "long", ""}));
    EXPECT_TRUE(dialog.Rows(VAR_DDE).empty());
}

TEST_F(LocalVariables, OfASystemWithoutThemStartEmptyThoughAFileIsThere) {
    Given({{"A", "int", "1"}});
    System.VarState = 0;
    ShownDialog dialog("Var_Box", VarNew);
    EXPECT_TRUE(dialog.Rows(VAR_LIST).empty());
}

TEST_F(LocalVariables, OpenEmptyWithoutAWordWhenTheFileIsGone) {
    System.VarState = 1;
    ShownDialog dialog("Var_Box", VarNew);
    EXPECT_TRUE(dialog.Rows(VAR_LIST).empty());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LocalVariables, LeaveOutAPartRecord) {
    temp.Put("old.var", VariableBytes({{"A", "int", "1"}}) + "half a record");
    System.VarState = 1;
    ShownDialog dialog("Var_Box", VarNew);
    EXPECT_EQ(dialog.Rows(VAR_LIST), (Texts{"A \t int \t 1"}));
}

TEST_F(LocalVariables, AskForWhatIsMissing) {
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"", "", ""});
    Add(dialog, {"a", "", ""});
    Add(dialog, {"a", "int", ""});
    EXPECT_EQ(boxes.shown, (Texts{"New Var: Name must be defined", "New Var: Type must be defined",
                                  "New Var: Value must be assigned"}));
    for (const Message& box : boxes.messages) {
        EXPECT_EQ(box.owner, dialog.Window());
        EXPECT_EQ(box.buttons, Buttons::Ok);
        EXPECT_EQ(box.icon, Icon::Exclamation);
    }
    EXPECT_TRUE(dialog.Rows(VAR_LIST).empty());
}

TEST_F(LocalVariables, AreAddedAtTheTopWithAnyType) {
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    Add(dialog, {"lev", "unsigned char", "a + b"});
    EXPECT_EQ(dialog.Rows(VAR_LIST),
              (Texts{"lev \t unsigned char \t a + b", "level \t long \t 1"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LocalVariables, OfTheSameNameInAnyLetterCaseAreReplacedAndMovedToTheTop) {
    Given({{"flow", "int", "3"},
           {"LEVEL", "int", "2"},
           {"Level", "int", "1"},
           {"level2", "int", "0"}});
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "9"});
    // Only the first of the two goes.
    EXPECT_EQ(dialog.Rows(VAR_LIST), (Texts{"level \t long \t 9", "level2 \t int \t 0",
                                            "LEVEL \t int \t 2", "flow \t int \t 3"}));
}

TEST_F(LocalVariables, ReturnToTheFieldsOnADoubleClick) {
    Given({{"my level", "int", "1"}, {"flow", "double", "a + b"}});
    ShownDialog dialog("Var_Box", VarNew);
    dialog.DoubleClick(VAR_LIST, 0);
    EXPECT_EQ(Filled(dialog), (Texts{"flow", "double", "a + b"}));
    // A name ends at its blank.
    dialog.DoubleClick(VAR_LIST, 1);
    EXPECT_EQ(dialog.Text(VAR_NAME), "my");
    Fill(dialog, {"x", "y", "z"});
    dialog.DoubleClick(VAR_LIST, -1);
    EXPECT_EQ(Filled(dialog), (Texts{"x", "y", "z"}));
}

TEST_F(LocalVariables, AreRemovedWhenSelected) {
    Given({{"A", "int", "1"}, {"B", "int", "2"}});
    ShownDialog dialog("Var_Box", VarNew);
    dialog.Press(VAR_REMOVE);
    EXPECT_EQ(dialog.Rows(VAR_LIST).size(), 2u);
    dialog.Select(VAR_LIST, 0);
    dialog.Press(VAR_REMOVE);
    EXPECT_EQ(dialog.Rows(VAR_LIST), (Texts{"A \t int \t 1"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LocalVariables, TakeItemsOfADdeFileIntoAValue) {
    DdeFile dde{"plant", std::vector<DDE_ITEM>(2)};
    SetText(dde.items[0].DName, "Level");
    SetText(dde.items[1].DName, "Flow");
    temp.Put("a.dde", DdeBytes(dde));
    ShownDialog dialog("Var_Box", VarNew);
    DialogSteps steps;
    steps.ChooseFile("Open DDE File", temp.Path("a.dde"));
    dialog.Press(VAR_LOAD);
    EXPECT_EQ(Text(DDEIKnw), temp.Path("a.dde"));
    EXPECT_EQ(dialog.Rows(VAR_DDE), (Texts{"DDEinfo.Level", "DDEinfo.Flow"}));
    dialog.Put(VAR_VALUE, "1+");
    dialog.DoubleClick(VAR_DDE, 0);
    dialog.DoubleClick(VAR_DDE, 0);
    EXPECT_EQ(dialog.Text(VAR_VALUE), "1+DDEinfo.LevelDDEinfo.Level");
    dialog.Put(VAR_VALUE, std::string(250, 'v'));
    dialog.DoubleClick(VAR_DDE, 1);
    EXPECT_EQ(dialog.Text(VAR_VALUE), std::string(250, 'v') + "DDEi");

    steps.CancelFile("Open DDE File");
    dialog.Press(VAR_LOAD);
    EXPECT_EQ(dialog.Rows(VAR_DDE).size(), 2u);
    EXPECT_EQ(Text(DDEIKnw), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LocalVariables, AreWrittenInTheOrderOfTheRows) {
    Given({{"A", "int", "1"}, {"B", "int", "2"}, {"C", "int", "3"}});
    ShownDialog dialog("Var_Box", VarNew);
    dialog.Press(VAR_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.var"),
              VariableBytes({{"C", "int", "3"}, {"B", "int", "2"}, {"A", "int", "1"}}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LocalVariables, GiveTheSystemItsRowOnClose) {
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    EXPECT_EQ(temp.Content("new.var"), "");
    dialog.Press(VAR_CLOSE);
    EXPECT_EQ(System.VarState, 1);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(system.Rows(), (Texts{"System Name", "\tuntitled.lse", "System Locar Var",
                                    "\tC:\\work\\untitled.var"}));
    EXPECT_EQ(temp.Content("new.var"), VariableBytes({{"level", "long", "1"}}));
}

TEST_F(LocalVariables, OfFullLengthAreWrittenWhole) {
    const Texts longest{std::string(254, 'n'), std::string(254, 't'), std::string(254, 'v')};
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, longest);
    Add(dialog, {std::string(400, 'N'), std::string(400, 'T'), std::string(400, 'V')});
    // The second name is the first, cut, in another letter case.
    EXPECT_EQ(dialog.Rows(VAR_LIST).size(), 1u);
    EXPECT_EQ(dialog.Rows(VAR_LIST)[0].size(), 3u * 254 + 6);
    Add(dialog, longest);
    dialog.DoubleClick(VAR_LIST, 0);
    EXPECT_EQ(Filled(dialog), longest);
    EXPECT_GT(SendMessageA(dialog.Item(VAR_LIST), LB_GETHORIZONTALEXTENT, 0, 0), 3 * 254 * 2);
    dialog.Press(VAR_CLOSE);
    EXPECT_EQ(temp.Content("new.var"), VariableBytes({longest}));
}

TEST_F(LocalVariables, TakeNoMoreKeysThanAFieldHolds) {
    ShownDialog dialog("Var_Box", VarNew);
    EXPECT_EQ(SendMessageA(dialog.Item(VAR_NAME), EM_GETLIMITTEXT, 0, 0), 254);
    EXPECT_EQ(SendMessageA(dialog.Item(VAR_VALUE), EM_GETLIMITTEXT, 0, 0), 254);
}

TEST_F(LocalVariables, AreTakenOnByTheSystemThoughTheirFileCannotBeCreated) {
    SetText(System.VarFile, temp.Path("none\\new.var"));
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    dialog.Press(VAR_CLOSE);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: No such file or directory"}));
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(System.VarState, 1);
    EXPECT_EQ(system.Rows().size(), 4u);
}

TEST_F(LocalVariables, StayInTheDialogWhenTheDiskIsFull) {
    Given({{"A", "int", "1"}});
    System.VarState = 0;
    temp.Put("new.var", "old content");
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    files::FailWritesAfter(100);
    dialog.Press(VAR_CLOSE);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: No space left on the disk"}));
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Rows(VAR_LIST).size(), 1u);
    EXPECT_EQ(temp.Content("new.var"), "old content");
    EXPECT_EQ(System.VarState, 0);
    dialog.Press(VAR_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.var"), VariableBytes({{"level", "long", "1"}}));
}

TEST_F(LocalVariables, CancelGoesBackToTheFileBefore) {
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(System.VarFile), temp.Path("old.var"));
    EXPECT_EQ(Text(System.OldVarName), "");
    EXPECT_EQ(System.VarState, 0);
    EXPECT_EQ(temp.Content("new.var"), "");
}

TEST_F(LocalVariables, TheCloseBoxForgetsTheWorkingCopy) {
    ShownDialog dialog("Var_Box", VarNew);
    Add(dialog, {"level", "long", "1"});
    dialog.CloseBox();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(System.VarFile), "");
    EXPECT_EQ(Text(System.OldVarName), temp.Path("old.var"));
    EXPECT_EQ(System.VarState, 0);
    EXPECT_EQ(temp.Content("new.var"), "");
}

TEST_F(LocalVariables, TurnTheFileRoundWithEachOpeningAndClosing) {
    Given({{"A", "int", "1"}, {"B", "int", "2"}});
    SetText(System.VarName, temp.Path("old.var"));
    SetText(System.VarFile, "");
    CreateDirectoryA(temp.Path("temp").c_str(), nullptr);
    SetText(WorkPath, temp.Path("").substr(0, temp.Path("").size() - 1));
    for (const char* first : {"B", "A", "B"}) {
        System.GetVarName(WorkPath);
        ShownDialog dialog("Var_Box", VarNew);
        dialog.Press(VAR_CLOSE);
        std::vector<V_V> written;
        ASSERT_TRUE(ReadRecords(System.VarFile, files::Mode::Read, written));
        ASSERT_EQ(written.size(), 2u);
        EXPECT_EQ(Text(written[0].Name), first);
    }
}

} // namespace
