#include "dialog_test.h"
#include "frame_window.h"
#include "tests/core/core_test.h"

#include "project/ZENPRO.h"
#include "resources/dde_items.h"
#include "shell/services/editor.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/open_row.h"
#include "system/rule_window.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

class OpenRow : public testing::Test {
protected:
    OpenRow() {
        GetCurrentDirectoryA(sizeof folder_, folder_);
        SetCurrentDirectoryA(temp.Path("").c_str());
        SetText(WorkPath, temp.Path("").substr(0, temp.Path("").size() - 1));
        CreateDirectoryA(temp.Path("temp").c_str(), nullptr);
        Project.Init();
        System.Init();
    }
    ~OpenRow() override {
        SetCurrentDirectoryA(folder_);
        Project.Init();
        System.Init();
        Project.hwndPro = Project.hwndList = System.hwndSys = System.hwndList = nullptr;
        EditState = EditRule = 0;
    }

    static void NewProject() {
        Project.NamePro("C:\\work\\p.mrv");
        Project.CreatePro();
        Project.MORState = 1;
    }
    static void NewSystem() {
        System.NameSys("C:\\work\\s.lse");
        System.CreateSys();
        System.EngineState = 1;
    }
    template <class Add> static void Named(const std::string& name, Add add) {
        char buffer[kNameSize + 1];
        SetText(buffer, name);
        add(buffer);
    }
    // Double-clicks a row of a document's list.
    static void Open(HWND child, int row, void (*edit)()) {
        ListRows(TopChild(child)).Select(row);
        edit();
    }
    static void OpenProjectRow(int row) { Open(Project.hwndPro, row, EditItem); }
    static void OpenSystemRow(int row) { Open(System.hwndSys, row, EditItem2); }

    // The titles of the text windows, topmost first.
    static Texts Editors() {
        Texts titles;
        for (HWND child = GetMdi(); child; child = GetWindow(child, GW_HWNDNEXT)) {
            char title[300] = "";
            GetWindowTextA(child, title, sizeof title);
            if (IsEditor(child))
                titles.push_back(title);
        }
        return titles;
    }

    // The system's rules in the file `name`, opened and closed by their row.
    void EditRulesFile(const std::string& name, DialogSteps& steps) {
        temp.Put(name, "Rule 1\r\nEndRule\r\n");
        NewSystem();
        System.NameRule(name.c_str());
        steps.When("Rules", [name](const DialogHandle& dialog) {
            EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), nullptr);
            EXPECT_TRUE(IsWindowEnabled(hFrame));
            EXPECT_EQ(Text(RuleFile), name);
            EXPECT_EQ(Editors(), Texts{name});
            dialog.CloseBox();
        });
    }

    TempFolder temp;
    FrameWindow frame;
    Boxes boxes;

private:
    char folder_[MAX_PATH] = "";
};

TEST_F(OpenRow, OfAProjectsMainAndExternFilesGivesTextWindows) {
    temp.Put("main.cpp", "int main;");
    NewProject();
    Project.NameMain(temp.Path("main.cpp").c_str());
    Named(temp.Path("extern.cpp"), [](char* name) { Project.NameExt(name); });
    OpenProjectRow(Project.PMain);
    EXPECT_EQ(Editors(), Texts{temp.Path("main.cpp")});
    EXPECT_EQ(EditText(TextHwnd()), "int main;");
    OpenProjectRow(Project.PExt);
    EXPECT_EQ(Editors(), (Texts{temp.Path("extern.cpp"), temp.Path("main.cpp")}));
}

TEST_F(OpenRow, OfHeadingsAndNamesDoesNothing) {
    NewProject();
    Project.NameMain("C:\\main.cpp");
    OpenProjectRow(0);
    OpenProjectRow(1);
    OpenProjectRow(Project.PMain - 1);
    OpenProjectRow(-1);
    NewSystem();
    System.NameRule("C:\\long\\name\\rules.rul");
    Named("level", [](char* name) {
        System.NameKnw(name);
        System.DatNum = 1;
        System.TitleKnw();
    });
    Named("yes\tno", [](char* name) {
        System.NameOpp(name);
        System.OppNum = 1;
        System.TitleOpp();
    });
    const auto state = EditState; // which texts of other tests may have left
    for (int row : {-1, 0, 1, System.PRul - 1, System.PKnw - 1, System.PKnw, System.POpp})
        OpenSystemRow(row);
    EXPECT_EQ(Editors(), Texts{});
    EXPECT_EQ(EditState, state);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(OpenRow, OfASystemOpensItUnlessOneIsOpen) {
    SystemFile file;
    SetText(file.head.HeaderName, "C:\\header.cpp");
    temp.Put("one.lse", SystemBytes(file));
    temp.Put("two.lse", SystemBytes(file));
    NewProject();
    Named(temp.Path("one.lse"), [](char* name) { Project.NameSys(name); });
    Named(temp.Path("two.lse"), [](char* name) { Project.NameSys(name); });
    OpenProjectRow(Project.PEng);
    EXPECT_EQ(System.EngineState, 1);
    EXPECT_EQ(Text(System.EngineName), temp.Path("one.lse"));
    EXPECT_FALSE(FrameWindow::IsGray(CM_SAVE_SYSTEM));
    EXPECT_FALSE(FrameWindow::IsGray(CM_RESOURCE_REMOVE));
    OpenProjectRow(Project.PEng + 1);
    EXPECT_EQ(Text(System.EngineName), temp.Path("one.lse"));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(OpenRow, OfADdeFileEditsItOverTheFrame) {
    NewProject();
    Named(temp.Path("a.dde"), [](char* name) { Project.NameDde(name); });
    DDEType = 0;
    DialogSteps steps;
    steps.When("DDE", [&](const DialogHandle& dialog) {
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), hFrame);
        EXPECT_EQ(DDEType, 1);
        EXPECT_EQ(Text(DDEFileName), temp.Path("a.dde"));
        dialog.Press(IDCANCEL);
    });
    OpenProjectRow(Project.Pdde);
}

TEST_F(OpenRow, OfAResultsFileChoosesAmongThem) {
    NewProject();
    Project.NameRes(temp.Path("a.rst").c_str(), 1);
    AddType = kAddFacts;
    DialogSteps steps;
    steps.When("Add Resource", [&](const DialogHandle& dialog) {
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), hFrame);
        EXPECT_EQ(AddType, kAddResults);
        EXPECT_EQ(Text(ResulFile), temp.Path("a.rst"));
        EXPECT_EQ(Text(Project.ResName), Text(WorkPath) + "\\temp\\\\p.aux");
        dialog.Press(ADD_CANCEL);
    });
    OpenProjectRow(Project.PRes);
}

TEST_F(OpenRow, OfASystemsHeaderGivesATextWindow) {
    NewSystem();
    System.NameHeader("C:\\header.cpp");
    OpenSystemRow(System.PHead);
    EXPECT_EQ(Editors(), Texts{"C:\\header.cpp"});
}

TEST_F(OpenRow, OfItsVariablesEditsAWorkingCopy) {
    NewSystem();
    System.NameVar("C:\\work");
    SetText(System.VarName, "C:\\work\\s.var");
    DialogSteps steps;
    steps.When("Local Vars", [&](const DialogHandle& dialog) {
        EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), hFrame);
        EXPECT_EQ(Text(System.OldVarName), "C:\\work\\s.var");
        EXPECT_EQ(Text(System.VarFile), Text(WorkPath) + "\\temp\\\\s.var");
        dialog.CloseBox();
    });
    OpenSystemRow(System.PVar);
}

TEST_F(OpenRow, OfItsRulesGivesATextWindowAndTheRuleEditor) {
    DialogSteps steps;
    EditRulesFile("rules_of_the_plant.rul", steps);
    OpenSystemRow(System.PRul);
    EXPECT_EQ(Text(RuleSize), "rules_of_the_plant.siz");
    EXPECT_EQ(Editors(), Texts{});
    EXPECT_EQ(EditRule, 0);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(OpenRow, OfRulesWithTheDotAtFourOpensThemOnceMore) {
    DialogSteps steps;
    EditRulesFile("four.rul", steps);
    OpenSystemRow(System.PRul);
    EXPECT_EQ(Editors(), Texts{"four.rul"});
}

TEST_F(OpenRow, OfRulesWithTheDotAtFiveGoesOnToTheVariables) {
    DialogSteps steps;
    EditRulesFile("fiver.rul", steps);
    int shown = 0;
    steps.When("Local Vars", [&](const DialogHandle& dialog) {
        ++shown;
        EXPECT_EQ(Text(System.VarFile), Text(WorkPath) + "\\temp\\\\s.var");
        dialog.CloseBox();
    });
    OpenSystemRow(System.PRul);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(Editors(), Texts{});
}

TEST_F(OpenRow, OfRulesGoesNoFurtherWhenTheProgramWasLeft) {
    temp.Put("four.rul", "");
    NewSystem();
    System.NameRule("four.rul");
    DialogSteps steps;
    steps.When("Rules", [](const DialogHandle& dialog) {
        DestroyWindow(hFrame);
        EndDialog(dialog.Window(), 0);
    });
    OpenSystemRow(System.PRul);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(OpenRow, OfRulesWhileTheRuleEditorRunsOnlyBringsItForward) {
    temp.Put("rules_of_the_plant.rul", "Rule 1\r\nEndRule\r\n");
    NewSystem();
    System.NameRule("rules_of_the_plant.rul");
    DialogSteps steps;
    steps.When("Rules", [](const DialogHandle& dialog) {
        OpenSystemRow(System.PRul);
        EXPECT_EQ(Editors(), Texts{"rules_of_the_plant.rul"});
        EXPECT_EQ(Text(RuleFile), "rules_of_the_plant.rul");
        dialog.CloseBox();
    });
    OpenSystemRow(System.PRul);
    EXPECT_EQ(Editors(), Texts{});
}

} // namespace
