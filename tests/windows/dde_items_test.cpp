#include "dialog_test.h"
#include "tests/core/core_test.h"
#include "write_lock.h"

#include "resources/core/dde_item.h"
#include "resources/dde_items.h"
#include "shell/services/ZENTRIK.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

std::string Bytes(const std::string& name, const std::vector<Texts>& items) {
    DdeFile dde{name, std::vector<DDE_ITEM>(items.size())};
    for (std::size_t i = 0; i < items.size(); ++i) {
        SetText(dde.items[i].DName, items[i][0]);
        SetText(dde.items[i].DType, items[i][1]);
    }
    return DdeBytes(dde);
}

class DdeItems : public testing::Test {
protected:
    void Load(const std::string& name) {
        SetText(DDEFileName, temp.Path(name));
        DDEType = 1;
    }
    static void New() {
        SetText(DDEFileName, "untitled.dde");
        DDEType = 0;
    }
    static void Add(const DialogHandle& dialog, const std::string& name, const std::string& type) {
        dialog.Put(DDE_ITEM_NAME, name);
        dialog.Put(DDE_TYPE, type);
        dialog.Press(IDOK);
    }

    TempFolder temp;
    Boxes boxes;
};

TEST_F(DdeItems, OfAFileAreListedInItsOrder) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}, {"Flow", "double"}}) + "rest");
    Load("a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    EXPECT_EQ(dialog.Text(DDE_NAME), "plant");
    EXPECT_EQ(dialog.Rows(DDE_ITEMS), (Texts{"Level\tint", "Flow\tdouble"}));
    EXPECT_EQ(dialog.Choices(DDE_TYPE), (Texts{"int", "long", "char", "double"}));
    EXPECT_EQ(dialog.Text(DDE_TYPE), "long");
    EXPECT_EQ(dialog.Text(DDE_ITEM_NAME), "");
}

TEST_F(DdeItems, OfANewListAreNoneThoughAFileOfThatNameIsThere) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    Load("a.dde");
    DDEType = 0;
    ShownDialog dialog("Dde_Box", DDEDlg);
    EXPECT_EQ(dialog.Text(DDE_NAME), "");
    EXPECT_TRUE(dialog.Rows(DDE_ITEMS).empty());
}

TEST_F(DdeItems, OfAMissingShortOrHeadOnlyFileAreNone) {
    temp.Put("short.dde", "plan");
    temp.Put("head.dde", Bytes("plant", {}));
    const std::pair<const char*, const char*> cases[] = {
        {"none.dde", ""}, {"short.dde", "plan"}, {"head.dde", "plant"}};
    for (const auto& [file, name] : cases) {
        Load(file);
        ShownDialog dialog("Dde_Box", DDEDlg);
        EXPECT_EQ(dialog.Text(DDE_NAME), name) << file;
        EXPECT_TRUE(dialog.Rows(DDE_ITEMS).empty()) << file;
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DdeItems, AskForWhatIsMissing) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "", "");
    Add(dialog, "Level", "");
    EXPECT_EQ(boxes.shown,
              (Texts{"New Dde: Name must be defined", "New Dde: Type must be defined"}));
    for (const Message& box : boxes.messages) {
        EXPECT_EQ(box.owner, dialog.Window());
        EXPECT_EQ(box.buttons, Buttons::Ok);
        EXPECT_EQ(box.icon, Icon::Exclamation);
    }
    EXPECT_TRUE(dialog.Rows(DDE_ITEMS).empty());
    EXPECT_EQ(dialog.Text(DDE_ITEM_NAME), "Level");
}

TEST_F(DdeItems, AreAddedAtTheEndOncePerSpelling) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Level", "int");
    Add(dialog, "Flow", "unsigned char");
    Add(dialog, "Level", "double");
    EXPECT_EQ(dialog.Text(DDE_ITEM_NAME), "");
    Add(dialog, "level", "double");
    Add(dialog, "Lev", "int");
    EXPECT_EQ(dialog.Rows(DDE_ITEMS),
              (Texts{"Level\tint", "Flow\tunsigned char", "level\tdouble", "Lev\tint"}));
    EXPECT_EQ(dialog.Text(DDE_TYPE), "int");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DdeItems, AreWrittenByCloseOnlyWhenSomethingChanged) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}) + "rest");
    Load("a.dde");
    {
        ShownDialog dialog("Dde_Box", DDEDlg);
        dialog.Press(DDE_CLOSE);
        EXPECT_FALSE(dialog.IsOpen());
    }
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Level", "int"}}) + "rest");
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Flow", "double");
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Level", "int"}, {"Flow", "double"}}));
}

TEST_F(DdeItems, AreRewrittenWhenOnlyTheNameWasTyped) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    Load("a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    dialog.Type(DDE_NAME, "boiler");
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("a.dde"), Bytes("boiler", {{"Level", "int"}}));
}

TEST_F(DdeItems, AreRewrittenAfterARemoval) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}, {"Flow", "double"}}));
    Load("a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    dialog.Select(DDE_ITEMS, 0);
    dialog.Press(DDE_REMOVE);
    dialog.Press(DDE_REMOVE); // nothing is selected any more
    EXPECT_EQ(dialog.Rows(DDE_ITEMS), (Texts{"Flow\tdouble"}));
    dialog.Press(DDE_CLOSE);
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Flow", "double"}}));
}

TEST_F(DdeItems, NeedANameForTheList) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Level", "int");
    dialog.Press(DDE_CLOSE);
    ASSERT_EQ(boxes.shown, (Texts{"New Dde: Items Name must be defined"}));
    EXPECT_EQ(boxes.messages[0].owner, dialog.Window());
    EXPECT_EQ(boxes.messages[0].icon, Icon::Exclamation);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Rows(DDE_ITEMS), (Texts{"Level\tint"}));
}

TEST_F(DdeItems, OfANewListAskForAFile) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Level", "int");
    dialog.Put(DDE_NAME, "plant");
    DialogSteps steps;
    steps.CancelFile("New DDE Item");
    dialog.Press(DDE_CLOSE);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(Text(DDEFileName), "untitled.dde");
    steps.ChooseFile("New DDE Item", temp.Path("new.dde"));
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(DDEFileName), temp.Path("new.dde"));
    EXPECT_EQ(temp.Content("new.dde"), Bytes("plant", {{"Level", "int"}}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DdeItems, OfAnUnchangedNewListCloseWithoutAQuestion) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DdeItems, AreKeptWhenTheDiskIsFull) {
    const std::string before = Bytes("plant", {{"Level", "int"}});
    temp.Put("a.dde", before);
    Load("a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Flow", "double");
    files::FailWritesAfter(300);
    dialog.Press(DDE_CLOSE);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: No space left on the disk"}));
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Rows(DDE_ITEMS).size(), 2u);
    EXPECT_EQ(temp.Content("a.dde"), before);
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Level", "int"}, {"Flow", "double"}}));
}

TEST_F(DdeItems, OfANewListCanBePutElsewhereAfterAFailure) {
    New();
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Level", "int");
    dialog.Put(DDE_NAME, "plant");
    DialogSteps steps;
    steps.ChooseFile("New DDE Item", temp.Path("full.dde"));
    files::FailWritesAfter(0);
    dialog.Press(DDE_CLOSE);
    files::FailWritesAfter(-1);
    EXPECT_TRUE(dialog.IsOpen());
    steps.ChooseFile("New DDE Item", temp.Path("new.dde"));
    dialog.Press(DDE_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("new.dde"), Bytes("plant", {{"Level", "int"}}));
    EXPECT_FALSE(files::Exists(temp.Path("full.dde").c_str()));
}

TEST_F(DdeItems, SayWhenTheirFolderVanished) {
    Load("none\\a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    Add(dialog, "Level", "int");
    dialog.Put(DDE_NAME, "plant");
    dialog.Press(DDE_CLOSE);
    EXPECT_EQ(boxes.shown, (Texts{"WARNING: No such file or directory"}));
    EXPECT_TRUE(dialog.IsOpen());
}

TEST_F(DdeItems, ThatCanNotBeReadAreNotEdited) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    Load("a.dde");
    DialogSteps steps;
    steps.Never("DDE");
    {
        const WholeLock lock(DDEFileName);
        EXPECT_EQ(RunDialog(nullptr, "Dde_Box", DDEDlg), 0);
    }
    EXPECT_EQ(boxes.shown, Texts{"WARNING: Permison denied"});
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Level", "int"}}));
}

TEST_F(DdeItems, CancelAndTheCloseBoxWriteNothing) {
    const std::string before = Bytes("plant", {{"Level", "int"}});
    temp.Put("a.dde", before);
    Load("a.dde");
    {
        ShownDialog dialog("Dde_Box", DDEDlg);
        Add(dialog, "Flow", "double");
        dialog.Press(IDCANCEL);
        EXPECT_FALSE(dialog.IsOpen());
    }
    ShownDialog dialog("Dde_Box", DDEDlg);
    EXPECT_EQ(dialog.Rows(DDE_ITEMS).size(), 1u);
    Add(dialog, "Flow", "double");
    dialog.CloseBox();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(temp.Content("a.dde"), before);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DdeItems, OfFullLengthAreWrittenWholeAndLongerOnesCut) {
    Load("a.dde");
    ShownDialog dialog("Dde_Box", DDEDlg);
    dialog.Put(DDE_NAME, std::string(300, 'p'));
    Add(dialog, std::string(49, 'n'), std::string(99, 't'));
    Add(dialog, std::string(60, 'm'), std::string(120, 'u'));
    dialog.Press(DDE_CLOSE);
    EXPECT_EQ(temp.Content("a.dde"),
              Bytes(std::string(254, 'p'), {{std::string(49, 'n'), std::string(99, 't')},
                                            {std::string(49, 'm'), std::string(99, 'u')}}));
}

TEST_F(DdeItems, OfTwoDialogsGoToTheirOwnFiles) {
    // A new list's dialog leaves the frame usable, so a file can be loaded beside it.
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    New();
    ShownDialog fresh("Dde_Box", DDEDlg);
    Add(fresh, "Flow", "double");
    fresh.Put(DDE_NAME, "boiler");
    Load("a.dde");
    ShownDialog loaded("Dde_Box", DDEDlg);
    DialogSteps steps;
    steps.ChooseFile("New DDE Item", temp.Path("new.dde"));
    fresh.Press(DDE_CLOSE);
    loaded.Press(DDE_CLOSE);
    EXPECT_EQ(temp.Content("a.dde"), Bytes("plant", {{"Level", "int"}}));
    EXPECT_EQ(temp.Content("new.dde"), Bytes("boiler", {{"Flow", "double"}}));
}

TEST_F(DdeItems, NewDdeStartsEmptyAndLeavesTheFrameEnabled) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    Load("a.dde");
    const HWND frame = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                                       100, nullptr, nullptr, hInst, nullptr);
    DialogSteps steps;
    steps.When("DDE", [&](const DialogHandle& dialog) {
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), nullptr);
        EXPECT_TRUE(IsWindowEnabled(frame));
        EXPECT_EQ(Text(DDEFileName), "untitled.dde");
        EXPECT_TRUE(dialog.Rows(DDE_ITEMS).empty());
        dialog.Press(IDCANCEL);
    });
    NewDDE(frame);
    EXPECT_EQ(DDEType, 0);
    DestroyWindow(frame);
}

TEST_F(DdeItems, LoadDdeAsksForAFileAndDisablesTheFrame) {
    temp.Put("a.dde", Bytes("plant", {{"Level", "int"}}));
    New();
    const HWND frame = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                                       100, nullptr, nullptr, hInst, nullptr);
    DialogSteps steps;
    steps.CancelFile("Open DDE File");
    LoadDDE(frame);
    EXPECT_EQ(Text(DDEFileName), "untitled.dde");
    EXPECT_EQ(DDEType, 0);
    steps.ChooseFile("Open DDE File", temp.Path("a.dde"));
    steps.When("DDE", [&](const DialogHandle& dialog) {
        EXPECT_FALSE(IsWindowEnabled(frame));
        EXPECT_EQ(dialog.Rows(DDE_ITEMS), (Texts{"Level\tint"}));
        dialog.CloseBox();
    });
    LoadDDE(frame);
    EXPECT_EQ(DDEType, 1);
    EXPECT_EQ(Text(DDEFileName), temp.Path("a.dde"));
    DestroyWindow(frame);
}

} // namespace
