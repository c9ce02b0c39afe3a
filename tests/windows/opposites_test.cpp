#include "dialog_test.h"
#include "system_window.h"
#include "tests/core/core_test.h"

#include "resources/core/record_files.h"
#include "resources/opposites.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

class Opposites : public testing::Test {
protected:
    Opposites() {
        WriteNames(temp.Path("a.rst").c_str(), Texts{"Open", "Shut", "Off"});
        SetText(ResultFileName, temp.Path("a.rst"));
        AddType = kAddResults;
    }

    static void GiveSystem(const Texts& pairs) {
        for (const std::string& pair : pairs) {
            char text[kNameSize + 1];
            SetText(text, pair);
            System.NameOpp(text);
            System.OppNum += 1;
        }
        System.TitleOpp();
        System.Engmod = 0;
    }
    static void Add(const DialogHandle& dialog, const std::string& result,
                    const std::string& opposite) {
        dialog.Put(OPP_RESULT, result);
        dialog.Put(OPP_OPPOSITE, opposite);
        dialog.Press(OPP_ADD);
    }

    TempFolder temp;
    Boxes boxes;
    SystemWindow system;
};

// This comes first: which edit last had the focus is kept from one opening to the next.
TEST_F(Opposites, ADoubleClickedResultFillsTheEditThatLastHadTheFocus) {
    {
        ShownDialog dialog("Result_Box", OppAdd);
        SetActiveWindow(dialog.Window());
        EXPECT_EQ(GetFocus(), dialog.Item(OPP_RESULTS)); // no edit has had it yet
        dialog.DoubleClick(OPP_RESULTS, 1);
        EXPECT_EQ(dialog.Text(OPP_RESULT), "Shut");
        SetFocus(dialog.Item(OPP_OPPOSITE));
        dialog.DoubleClick(OPP_RESULTS, 2);
        EXPECT_EQ(dialog.Text(OPP_OPPOSITE), "Off");
    }
    ShownDialog dialog("Result_Box", OppAdd);
    dialog.DoubleClick(OPP_RESULTS, 0);
    EXPECT_EQ(dialog.Text(OPP_RESULT), "");
    EXPECT_EQ(dialog.Text(OPP_OPPOSITE), "Open");
    SetFocus(dialog.Item(OPP_RESULT));
    dialog.DoubleClick(OPP_RESULTS, 1);
    EXPECT_EQ(dialog.Text(OPP_RESULT), "Shut");
}

TEST_F(Opposites, OfTheSystemAndTheResultsAreListed) {
    GiveSystem({"Shut\tOpen", "Open\tOff"});
    ShownDialog dialog("Result_Box", OppAdd);
    EXPECT_EQ(dialog.Rows(OPP_RESULTS), (Texts{"Open", "Shut", "Off"}));
    EXPECT_EQ(dialog.Rows(OPP_PAIRS), (Texts{"Shut\tOpen", "Open\tOff"}));
    char title[50];
    GetWindowTextA(dialog.Window(), title, sizeof title);
    EXPECT_STREQ(title, "Result/Opposite ");
}

TEST_F(Opposites, AreNotLoadedWhenFactsAreWorkedOn) {
    GiveSystem({"Shut\tOpen"});
    AddType = kAddFacts;
    ShownDialog dialog("Result_Box", OppAdd);
    EXPECT_TRUE(dialog.Rows(OPP_RESULTS).empty());
    EXPECT_TRUE(dialog.Rows(OPP_PAIRS).empty());
}

TEST_F(Opposites, AddedInAnyLetterCaseAreStoredAsTyped) {
    ShownDialog dialog("Result_Box", OppAdd);
    Add(dialog, "OPEN", "shut");
    EXPECT_EQ(dialog.Rows(OPP_PAIRS), Texts{"OPEN\tshut"});
    EXPECT_EQ(dialog.Text(OPP_RESULT), "");
    EXPECT_EQ(dialog.Text(OPP_OPPOSITE), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Opposites, MustBeResults) {
    ShownDialog dialog("Result_Box", OppAdd);
    Add(dialog, "Ope", "Shut");
    Add(dialog, "Open", "");
    EXPECT_EQ(boxes.shown,
              (Texts{"Add Opposites: Result not defined", "Add Opposites: Result not defined"}));
    EXPECT_EQ(boxes.messages[0].icon, Icon::Exclamation);
    EXPECT_EQ(boxes.messages[0].buttons, Buttons::Ok);
    EXPECT_TRUE(dialog.Rows(OPP_PAIRS).empty());
    EXPECT_EQ(dialog.Text(OPP_RESULT), "Open");
}

TEST_F(Opposites, AreKeptOnceButMayBeReversedOrTheSame) {
    ShownDialog dialog("Result_Box", OppAdd);
    Add(dialog, "Open", "Shut");
    Add(dialog, "Open", "Shut");
    EXPECT_EQ(dialog.Text(OPP_RESULT), "Open"); // a refused pair stays in the edits
    EXPECT_EQ(dialog.Rows(OPP_PAIRS), Texts{"Open\tShut"});
    Add(dialog, "Shut", "Open");
    Add(dialog, "Off", "Off");
    Add(dialog, "open", "Shut");
    EXPECT_EQ(dialog.Rows(OPP_PAIRS),
              (Texts{"Open\tShut", "Shut\tOpen", "Off\tOff", "open\tShut"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Opposites, CloseReplacesTheOnesOfTheSystem) {
    GiveSystem({"Shut\tOpen", "Open\tOff"});
    ShownDialog dialog("Result_Box", OppAdd);
    dialog.Press(OPP_REMOVE); // nothing is selected
    dialog.Select(OPP_PAIRS, 0);
    dialog.Press(OPP_REMOVE);
    Add(dialog, "Off", "Shut");
    dialog.Press(OPP_CLOSE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(System.OppNum, 2);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(system.Rows(),
              (Texts{"System Name", "\tuntitled.lse", "Opossites", "\tOpen\tOff", "\tOff\tShut"}));
}

TEST_F(Opposites, CloseOnAnUnchangedListStillMarksTheSystemChanged) {
    ShownDialog dialog("Result_Box", OppAdd);
    dialog.Press(OPP_CLOSE);
    EXPECT_EQ(System.Engmod, 1);
    EXPECT_EQ(System.OppNum, 0);
    EXPECT_EQ(system.Rows(), (Texts{"System Name", "\tuntitled.lse"}));
}

TEST_F(Opposites, CloseOnAnEmptyListRemovesThemAndTheirHeading) {
    GiveSystem({"Shut\tOpen"});
    ShownDialog dialog("Result_Box", OppAdd);
    dialog.Select(OPP_PAIRS, 0);
    dialog.Press(OPP_REMOVE);
    dialog.Press(OPP_CLOSE);
    EXPECT_EQ(System.OppNum, 0);
    EXPECT_EQ(system.Rows(), (Texts{"System Name", "\tuntitled.lse"}));
}

TEST_F(Opposites, CancelAndTheCloseBoxLeaveTheSystemAlone) {
    GiveSystem({"Shut\tOpen"});
    const Texts before = system.Rows();
    ShownDialog dialog("Result_Box", OppAdd);
    Add(dialog, "Open", "Off");
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(dialog.IsOpen());
    DialogSteps steps;
    steps.When("Result/Opposite ", [](const DialogHandle& open) {
        Add(open, "Open", "Off");
        open.CloseBox();
    });
    RunDialog(nullptr, "Result_Box", OppAdd);
    EXPECT_EQ(system.Rows(), before);
    EXPECT_EQ(System.OppNum, 1);
    EXPECT_EQ(System.Engmod, 0);
}

TEST_F(Opposites, AMissingResultsFileOffersNothing) {
    SetText(ResultFileName, temp.Path("none.rst"));
    ShownDialog dialog("Result_Box", OppAdd);
    EXPECT_TRUE(dialog.Rows(OPP_RESULTS).empty());
    EXPECT_FALSE(files::Exists(ResultFileName));
    Add(dialog, "Open", "Shut");
    EXPECT_TRUE(dialog.Rows(OPP_PAIRS).empty());
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(Opposites, OfTheLongestNamesSurviveClose) {
    const std::string name(49, 'r');
    WriteNames(ResultFileName, Texts{name});
    const std::string damaged(255, 'd'); // a field without a terminator
    GiveSystem({damaged.substr(0, 254)});
    ShownDialog dialog("Result_Box", OppAdd);
    Add(dialog, name, name);
    dialog.Press(OPP_CLOSE);
    EXPECT_EQ(system.Rows().back(), "\t" + name + "\t" + name);
    EXPECT_EQ(system.Rows()[3], "\t" + damaged.substr(0, 254));
}

TEST_F(Opposites, DialogsMadeLaterHaveAGreyClassAndStillWork) {
    { ShownDialog dialog("Result_Box", OppAdd); }
    ShownDialog dialog("Result_Box", OppAdd);
    EXPECT_EQ(reinterpret_cast<HBRUSH>(GetClassLongPtrA(dialog.Window(), GCLP_HBRBACKGROUND)),
              static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
    EXPECT_EQ(LOWORD(SendMessageA(dialog.Window(), DM_GETDEFID, 0, 0)), OPP_ADD);
}

} // namespace
