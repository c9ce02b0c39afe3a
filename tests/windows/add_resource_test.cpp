#include "dialog_test.h"
#include "system_window.h"
#include "tests/core/core_test.h"
#include "write_lock.h"

#include "project/ZENPRO.h"
#include "resources/core/fact.h"
#include "resources/core/record_files.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/add_resource.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

void SelectRows(const DialogHandle& dialog, int list, int first, int last) {
    SendMessageA(dialog.Item(list), LB_SETSEL, FALSE, -1);
    for (int row = first; row <= last; ++row)
        SendMessageA(dialog.Item(list), LB_SETSEL, TRUE, row);
}

Texts Numbered(const std::string& name, int count) {
    Texts texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(name + std::to_string(i));
    return texts;
}

class AddFacts : public testing::Test {
protected:
    AddFacts() {
        AddType = kAddFacts;
        SetText(System.KnowName, temp.Path("base.fac"));
        SetText(Project.ResName, "");
        SetText(Project.OldResAux, "");
    }

    void PutFacts(const Texts& names) {
        std::vector<Dat> facts(names.size());
        for (std::size_t i = 0; i < names.size(); ++i)
            SetText(facts[i].Name, names[i]);
        temp.Put("base.fac", BytesOf(facts));
    }

    TempFolder temp;
    Boxes boxes;
    SystemWindow system;
};

TEST_F(AddFacts, OffersWhatTheSystemHasNotGot) {
    system.AddFacts({"b", "elsewhere"});
    PutFacts({"a", "b", "B", "a", "c"});
    ShownDialog dialog("Add_Box", SystemAdd);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"b", "elsewhere"}));
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), (Texts{"a", "B", "a", "c"}));
}

TEST_F(AddFacts, CreatesAMissingBaseAndReadsAReadOnlyOne) {
    {
        ShownDialog dialog("Add_Box", SystemAdd);
        EXPECT_TRUE(dialog.Rows(ADD_OFFERED).empty());
        EXPECT_TRUE(files::Exists(System.KnowName));
    }
    PutFacts({"a"});
    {
        const WriteLock lock(System.KnowName);
        ShownDialog dialog("Add_Box", SystemAdd);
        EXPECT_EQ(dialog.Rows(ADD_OFFERED), Texts{"a"});
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(AddFacts, TheSameFactTwiceIsAddedOnce) {
    PutFacts({"a", "b", "a", "c"});
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_OFFERED, 0, 2);
    dialog.Press(ADD_ADD);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"a", "b"}));
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), Texts{"c"});
}

TEST_F(AddFacts, TwentySelectedLinesAreTakenAtATime) {
    PutFacts(Numbered("f", 25));
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_OFFERED, 0, 24);
    dialog.Press(ADD_ADD);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), Numbered("f", 20));
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), (Texts{"f20", "f21", "f22", "f23", "f24"}));
    SelectRows(dialog, ADD_OFFERED, 0, 4);
    dialog.Press(ADD_ADD);
    SelectRows(dialog, ADD_CHOSEN, 0, 24);
    dialog.Press(ADD_REMOVE);
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), Numbered("f", 20));
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"f20", "f21", "f22", "f23", "f24"}));
}

TEST_F(AddFacts, RemoveGivesBackTheSelectedLinesOnly) {
    system.AddFacts({"a", "b", "c", "d"});
    PutFacts({"b"});
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_CHOSEN, 1, 2);
    dialog.Press(ADD_REMOVE);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"a", "d"}));
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), (Texts{"b", "c"}));
}

TEST_F(AddFacts, TheExtraDeleteOfRemoveTakesNoLine) {
    system.AddFacts({"a", "b"});
    ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(ADD_REMOVE); // nothing is selected, so the extra delete is the only one
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"a", "b"}));
    EXPECT_TRUE(dialog.Rows(ADD_OFFERED).empty());
    dialog.Press(ADD_ADD);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"a", "b"}));
    SelectRows(dialog, ADD_CHOSEN, 1, 1);
    dialog.Press(ADD_REMOVE);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), Texts{"a"});
}

TEST_F(AddFacts, OkReplacesTheFactsOfTheSystem) {
    system.AddFacts({"a", "b"});
    PutFacts({"c"});
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_CHOSEN, 0, 0);
    dialog.Press(ADD_REMOVE);
    SelectRows(dialog, ADD_OFFERED, 0, 0);
    dialog.Press(ADD_ADD);
    dialog.Press(ADD_OK);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(system.Rows(), (Texts{"System Name", "\tuntitled.lse", "Facts Base", "\tb", "\tc"}));
    EXPECT_EQ(System.DatNum, 2);
    EXPECT_EQ(System.Engmod, 1);
}

TEST_F(AddFacts, OkWithNothingChosenRemovesTheFactsAndTheirHeading) {
    system.AddFacts({"a"});
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_CHOSEN, 0, 0);
    dialog.Press(ADD_REMOVE);
    dialog.Press(ADD_OK);
    EXPECT_EQ(system.Rows(), (Texts{"System Name", "\tuntitled.lse"}));
    EXPECT_EQ(System.DatNum, 0);
    EXPECT_EQ(System.PKnw, -1);
}

TEST_F(AddFacts, CancelGivesTheProjectItsResultsFileBackAndTheCloseBoxDoesNot) {
    system.AddFacts({"a"});
    const Texts before = system.Rows();
    System.Engmod = 0;
    SetText(Project.ResName, "working.aux");
    SetText(Project.OldResAux, "saved.aux");
    DialogSteps steps;
    steps.When("Add Resource", [](const DialogHandle& dialog) {
        SelectRows(dialog, ADD_CHOSEN, 0, 0);
        dialog.Press(ADD_REMOVE);
        dialog.CloseBox();
    });
    RunDialog(nullptr, "Add_Box", SystemAdd);
    EXPECT_EQ(Text(Project.ResName), "working.aux");
    EXPECT_EQ(Text(Project.OldResAux), "saved.aux");
    ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(ADD_CANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(Project.ResName), "saved.aux");
    EXPECT_EQ(Text(Project.OldResAux), "");
    EXPECT_EQ(system.Rows(), before);
    EXPECT_EQ(System.Engmod, 0);
}

TEST_F(AddFacts, TenThousandFactsOpenAndCloseQuickly) {
    system.AddFacts(Numbered("old", 5000));
    Texts names = Numbered("old", 5000);
    const Texts fresh = Numbered("new", 5000);
    names.insert(names.end(), fresh.begin(), fresh.end());
    PutFacts(names);
    const auto start = std::chrono::steady_clock::now();
    ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(ADD_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(System.DatNum, 5000);
    EXPECT_EQ(system.Rows().size(), 5003u);
    EXPECT_EQ(system.Rows()[3], "\told0");
    EXPECT_EQ(system.Rows().back(), "\told4999");
}

// The project with a list box of its own.
class AddResults : public testing::Test {
protected:
    AddResults() {
        AddType = kAddResults;
        Project.Init();
        Project.hwndPro = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                                          nullptr, nullptr, hInst, nullptr);
        CreateWindowExA(0, "LISTBOX", "", WS_CHILD | LBS_HASSTRINGS, 0, 0, 200, 200,
                        Project.hwndPro, nullptr, hInst, nullptr);
        Project.NamePro("p.mrv");
        Project.ShowPro();
        Project.MORState = 1;
        SetText(ResulFile, temp.Path("a.rst"));
        SetText(Project.OldResAux, temp.Path("old.aux"));
        SetText(Project.ResName, temp.Path("work.aux"));
        WriteNames(ResulFile, Texts{"one", "two", "three"});
        WriteNames(Project.OldResAux, Texts{"two", "kept"});
        System.Engmod = 0;
    }
    ~AddResults() override {
        DestroyWindow(Project.hwndPro);
        Project.hwndPro = Project.hwndList = nullptr;
        Project.Init();
        System.Engmod = 0;
    }

    static Texts ProjectRows() {
        Texts rows;
        const ListRows list(GetWindow(Project.hwndPro, GW_CHILD));
        for (int i = 0; i < list.Count(); ++i)
            rows.push_back(list.RowText(i));
        return rows;
    }

    TempFolder temp;
    Boxes boxes;
};

TEST_F(AddResults, OffersWhatTheProjectHasNotGot) {
    ShownDialog dialog("Add_Box", SystemAdd);
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"two", "kept"}));
    EXPECT_EQ(dialog.Rows(ADD_OFFERED), (Texts{"one", "three"}));
}

TEST_F(AddResults, OkWritesTheWorkingFileAndListsTheResultsFile) {
    ShownDialog dialog("Add_Box", SystemAdd);
    SelectRows(dialog, ADD_OFFERED, 0, 0);
    dialog.Press(ADD_ADD);
    dialog.Press(ADD_OK);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(NamesIn(Project.ResName), (Texts{"two", "kept", "one"}));
    EXPECT_EQ(temp.Content("work.aux").size(), 150u);
    EXPECT_EQ(NamesIn(temp.Path("old.aux").c_str()), (Texts{"two", "kept"}));
    EXPECT_EQ(ProjectRows(), (Texts{"MORVName", "\tp.mrv", "Results", "\t" + temp.Path("a.rst")}));
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(System.Engmod, 1); // the system's flag, too
}

TEST_F(AddResults, OkWithNothingChosenTakesTheResultsFileOut) {
    Project.NameRes(ResulFile, 1);
    files::Remove(Project.OldResAux);
    ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(ADD_OK);
    EXPECT_EQ(temp.Content("work.aux"), "");
    EXPECT_EQ(ProjectRows(), (Texts{"MORVName", "\tp.mrv"}));
}

TEST_F(AddResults, AFileThatCanNotBeWrittenKeepsTheDialogOpen) {
    temp.Put("work.aux", "as it was");
    const Texts before = ProjectRows();
    ShownDialog dialog("Add_Box", SystemAdd);
    files::FailWritesAfter(20);
    dialog.Press(ADD_OK);
    files::FailWritesAfter(-1);
    EXPECT_EQ(boxes.shown, Texts{"WARNING: No space left on the disk"});
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Rows(ADD_CHOSEN), (Texts{"two", "kept"}));
    EXPECT_EQ(temp.Content("work.aux"), "as it was");
    EXPECT_EQ(ProjectRows(), before);
    EXPECT_EQ(System.Engmod, 0);
}

TEST_F(AddResults, EscIsCancel) {
    ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Text(Project.ResName), temp.Path("old.aux"));
    EXPECT_EQ(Text(Project.OldResAux), "");
}

} // namespace
