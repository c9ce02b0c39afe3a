// Working copies belong to the document that wrote them.
#include "command_test.h"
#include "dialog_test.h"
#include "document_test.h"

#include "project/project_commands.h"
#include "resources/core/record_files.h"
#include "resources/local_variables.h"
#include "shell/core/replacement.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/add_resource.h"
#include "system/system_commands.h"

namespace {

using namespace zentrik_test;
using Texts = std::vector<std::string>;

// A project with saved results, and a work folder with copies that others left.
class WorkingFiles : public DocumentTest {
protected:
    WorkingFiles() {
        std::filesystem::create_directories(Path("work") + "\\temp");
        SetText(WorkPath, Path("work"));
        SetText(ResulFile, Path("r.rst"));
        Put("r.rst", {"one", "two"});
        Put("p.aux", {"good"});
        Put("work\\temp\\p.aux", {"of another project"});
        ProjectFile project;
        SetText(project.head.ResAux, Path("p.aux"));
        EXPECT_TRUE(WriteProject(Path("p.mrv").c_str(), project));
        Project.OpenPro(Path("p.mrv").c_str());
        AddType = kAddResults;
    }

    void Put(const std::string& name, const Texts& names) {
        WriteWorkingNames(Path(name).c_str(), names);
    }
    Texts Names(const std::string& name) const { return NamesIn(Path(name).c_str()); }

    // Opens the dialog on the project's results; returns what it shows as chosen.
    static Texts Look(const std::function<void(const DialogHandle&)>& leave) {
        Project.GetResName(WorkPath);
        const ShownDialog dialog("Add_Box", SystemAdd);
        const Texts chosen = dialog.Rows(ADD_CHOSEN);
        leave(dialog);
        return chosen;
    }
    static void CloseBox(const DialogHandle& dialog) {
        SendMessageA(dialog.Window(), WM_CLOSE, 0, 0);
    }
    static void Cancel(const DialogHandle& dialog) { dialog.Press(ADD_CANCEL); }
    static void TakeFirst(const DialogHandle& dialog) {
        SendMessageA(dialog.Item(ADD_OFFERED), LB_SETSEL, TRUE, 0);
        dialog.Press(ADD_ADD);
        dialog.Press(ADD_OK);
    }

    Boxes boxes_;
};

TEST_F(WorkingFiles, OfAnEarlierRunAreNoSource) {
    EXPECT_EQ(Look(CloseBox), Texts{"good"});
    EXPECT_EQ(Look(CloseBox), Texts{"good"}); // a second look
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(Names("p.aux"), Texts{"good"});
    EXPECT_EQ(Project.ResAux, Path("p.aux"));
    EXPECT_EQ(Names("work\\temp\\p.aux"), Texts{"of another project"});
}

TEST_F(WorkingFiles, CountOnceOkHasWrittenThem) {
    EXPECT_EQ(Look(TakeFirst), Texts{"good"});
    EXPECT_EQ(Look(CloseBox), (Texts{"good", "one"}));
    EXPECT_EQ(Look(Cancel), (Texts{"good", "one"}));
    EXPECT_EQ(Names("p.aux"), Texts{"good"});
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(Names("p.aux"), (Texts{"good", "one"}));
    EXPECT_EQ(Names("p.aux.bak"), Texts{"good"});
    EXPECT_FALSE(files::Exists(Path("work\\temp\\p.aux").c_str()));
}

TEST_F(WorkingFiles, OfAClosedProjectDoNotReachIntoTheNext) {
    Look(TakeFirst);
    Project.DestroyPro();
    Project.OpenPro(Path("p.mrv").c_str());
    EXPECT_EQ(Look(CloseBox), Texts{"good"});
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(Names("p.aux"), Texts{"good"});
}

TEST_F(WorkingFiles, OfTheProjectSurviveACancelWhileFactsAreChosen) {
    Look(TakeFirst);
    AddType = kAddFacts;
    SetText(System.KnowName, Path("f.fac"));
    Project.OldResAux[0] = '\0';
    {
        const ShownDialog dialog("Add_Box", SystemAdd);
        dialog.Press(ADD_CANCEL);
    }
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(Names("p.aux"), (Texts{"good", "one"}));
}

// A project that was copied to another folder with its results: their stored path is gone.
TEST_F(WorkingFiles, ThatAreNothingLeaveTheFileThatIsThere) {
    SetText(Project.ResAux, Path("elsewhere\\p.aux"));
    Project.GetResName(WorkPath); // as the rule check does it
    SetText(Project.ResName, Text(Project.OldResAux));
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(Names("p.aux"), Texts{"good"});
    EXPECT_EQ(Project.ResAux, Path("p.aux"));
}

TEST_F(WorkingFiles, ThatCannotBeMovedLeaveTheProjectFileAsItWas) {
    Look(TakeFirst);
    const std::string before = temp_.Content("p.mrv");
    Project.NameMain("main.cpp");
    SetFileAttributesA(Path("p.aux").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Project.SavePro(), -1);
    SetFileAttributesA(Path("p.aux").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(temp_.Content("p.mrv"), before);
    // Under a new name nothing stays behind.
    std::filesystem::create_directory(Path("q.aux"));
    Project.ChName(Path("q.mrv").c_str());
    EXPECT_EQ(Project.SavePro(), -1);
    EXPECT_FALSE(files::Exists(Path("q.mrv").c_str()));
    EXPECT_EQ(boxes_.shown, Texts(2, "WARNING: Permison denied"));
}

TEST_F(WorkingFiles, WhoseNameWouldHaveToBeCutAreRefused) {
    SetText(WorkPath, std::string(250, 'w'));
    EXPECT_EQ(Project.GetResName(WorkPath), -1);
    EXPECT_STREQ(Project.ResName, "");
    const ShownDialog dialog("Add_Box", SystemAdd);
    dialog.Press(ADD_OK);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(boxes_.shown, Texts{"WARNING: The file can not be written"});
}

TEST_F(WorkingFiles, OfTheSystemAreNoSourceEither) {
    SystemFile file;
    SetText(file.head.VarName, Path("p.var"));
    SetText(file.head.InitName, Path("p.ikw"));
    temp_.Put("p.lse", SystemBytes(file));
    for (const char* name : {"p.var", "p.ikw"}) {
        temp_.Put(name, "good");
        temp_.Put(std::string("work\\temp\\") + name, "of another system");
    }
    System.NameSys(Path("p.lse").c_str());
    System.CreateSys();
    ASSERT_EQ(System.OpenSys(System.EngineName), 0);
    for (int look = 0; look < 2; ++look) {
        System.GetVarName(WorkPath);
        System.GetInitName(WorkPath);
        EXPECT_EQ(System.VariablesSource(), Path("p.var"));
        EXPECT_EQ(System.InitialFactsSource(), Path("p.ikw"));
        EXPECT_EQ(System.VariablesInForce(), Path("p.var"));
    }
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("p.var"), "good");
    EXPECT_EQ(temp_.Content("p.ikw"), "good");
    EXPECT_EQ(temp_.Content("work\\temp\\p.var"), "of another system");
}

TEST_F(WorkingFiles, OfTheSystemLeaveAllItsFilesWhenOneCannotBeReplaced) {
    System.NameSys(Path("s.lse").c_str());
    System.CreateSys();
    System.EngineState = 1;
    ASSERT_EQ(System.SaveSys(), 0);
    const std::string before = temp_.Content("s.lse");
    temp_.Put("s.var", "old");
    temp_.Put("s.ikw", "old");
    System.NameHeader("h.cpp");
    System.GetVarName(WorkPath);
    std::ofstream(System.VarFile) << "new";
    System.WroteVariables();
    System.VarState = 1;
    System.GetInitName(WorkPath);
    std::ofstream(System.IKWFile) << "new";
    System.WroteInitialFacts();
    System.InitNew = 1;
    SetFileAttributesA(Path("s.ikw").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(System.SaveSys(), -1);
    SetFileAttributesA(Path("s.ikw").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(temp_.Content("s.lse"), before);
    EXPECT_EQ(temp_.Content("s.var"), "old");
    EXPECT_EQ(System.SaveSys(), 0);
    EXPECT_EQ(temp_.Content("s.var") + temp_.Content("s.ikw"), "newnew");
    EXPECT_EQ(temp_.Content("s.lse.bak"), before);
}

TEST_F(WorkingFiles, ARulesFileWhoseIndexNameWouldHaveToBeCutIsRefused) {
    System.NameSys(Path("s.lse").c_str());
    System.CreateSys();
    const RowTexts rows = RowsOf(System.hwndSys);
    EXPECT_EQ(System.NameRule(std::string(252, 'r').c_str()), -1);
    EXPECT_EQ(boxes_.shown, Texts{"WARNING: The file can not be written"});
    EXPECT_EQ(RowsOf(System.hwndSys), rows);
    EXPECT_EQ(System.RuleState, 0);
    EXPECT_STREQ(System.RuleSizeName, "");
}

using CutShort = CommandTest;

TEST_F(CutShort, ADocumentIsSavedUnderANameThatIsAskedFor) {
    ProjectFile project;
    project.head.ResNum = 3;
    WriteProject(Path("p.mrv").c_str(), project);
    SystemFile system;
    system.head.OppNum = 3;
    temp_.Put("s.lse", SystemBytes(system));
    Boxes boxes;
    Choose("p.mrv", OpenMORV);
    Choose("s.lse", OpenEngine);
    EXPECT_EQ(boxes.shown, (RowTexts{"Open Project: Open Error", "Open Engine: Open Error"}));
    FileChoices choices;
    choices.Choose(Path("whole.mrv")).Choose(Path("whole.lse"));
    SaveMORV(hFrame);
    SaveEngine(hFrame);
    EXPECT_EQ(choices.asked.size(), 2u);
    SaveMORV(hFrame); // whole now
    SaveEngine(hFrame);
    EXPECT_EQ(choices.asked.size(), 2u);
    EXPECT_EQ(temp_.Content("s.lse"), SystemBytes(system));
    CloseMORV(hFrame);
    CloseEngine(hFrame);
}

} // namespace
