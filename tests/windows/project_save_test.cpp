// The project document's files.
#include "document_test.h"

#include "project/ZENPRO.h"
#include "shell/core/paths.h"

#include <chrono>

namespace {

using namespace zentrik_test;

std::string Tags(const std::vector<std::string>& names) {
    std::string bytes;
    for (const std::string& name : names)
        bytes += Field(name, kTagSize);
    return bytes;
}

class ProjectSave : public DocumentTest {
protected:
    ProjectSave() { New("p.mrv"); }

    void New(const std::string& name) {
        Project.DestroyMdi();
        Project.Init();
        Project.NamePro(Path(name).c_str());
        Project.CreatePro();
        Project.MORState = 1;
    }

    void Reopen(const std::string& name) {
        Project.DestroyPro();
        Project.DestroyMdi();
        Project.OpenPro(Path(name).c_str());
    }

    static RowTexts Rows() { return RowsOf(Project.hwndPro); }

    // The name alone, as the results dialog leaves it when its close box is used.
    void NameWorking() {
        std::filesystem::create_directory(Path("temp"));
        Project.GetResName(Path("").substr(0, Path("").size() - 1).c_str());
    }

    // A working auxiliary file as the results dialog leaves it, below a work folder of its own.
    void PutWorking(const std::string& content) {
        NameWorking();
        std::ofstream(Project.ResName, std::ios::binary) << content;
        Project.WroteResults();
    }

    // The saved file as the working one, as the check and a cancelled results dialog leave it.
    void CancelWorking() {
        NameWorking();
        SetText(Project.ResName, Text(Project.OldResAux));
    }

    // Two results files of the project and their names in its auxiliary file.
    void AddTwoResults() {
        temp_.Put("p.aux", Tags({"fire", "smoke"}));
        temp_.Put("r1.rst", Tags({"fire"}));
        temp_.Put("r2.rst", Tags({"smoke"}));
        SetText(Project.ResAux, Path("p.aux"));
        Project.NameRes(Path("r1.rst").c_str(), 1);
        Project.NameRes(Path("r2.rst").c_str(), 1);
    }
};

TEST_F(ProjectSave, WritesTheWholeLayout) {
    Project.NameMain("main.cpp");
    Project.NameSys(NameBuffer("s1.lse"));
    Project.NameSys(NameBuffer("s2.lse"));
    Project.NameExt(NameBuffer("e1.cpp"));
    Project.NameDde(NameBuffer("d.dde"));
    Project.NameRes("r1.rst", 1);
    Project.NameRes("r2.rst", 1);
    Project.DatHisLen = 12;
    EXPECT_EQ(Project.SavePro(), 0);
    std::string expected = Field("main.cpp");
    for (const char* name : {"", "s1.lse", "s2.lse", "", "", "", "", "", ""})
        expected += Field(name);
    for (const char* name : {"", "e1.cpp", "", ""})
        expected += Field(name);
    expected += Field("d.dde") + Field("");
    expected += Number(2) + Number(1) + Number(2) + Number(12);
    expected += Field("r1.rst") + Field("r2.rst");
    EXPECT_EQ(temp_.Content("p.mrv"), expected);
    EXPECT_EQ(Project.MORVmod, 1); // the command clears it
}

TEST_F(ProjectSave, ReopensAsItWas) {
    Project.NameMain("main.cpp");
    Project.NameSys(NameBuffer("s1.lse"));
    Project.NameExt(NameBuffer("e1.cpp"));
    Project.NameDde(NameBuffer("d.dde"));
    Project.NameRes("r1.rst", 1);
    RowTexts rows = Rows();
    EXPECT_EQ(rows[4], "System");
    rows[4] = "Systems"; // the spelling says whether the section came from the file
    Project.SavePro();
    const std::string saved = temp_.Content("p.mrv");
    Boxes boxes;
    Reopen("p.mrv");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(Project.MORVmod, 0);
    EXPECT_EQ(Project.MORState, 1);
    EXPECT_EQ(Project.PMain, 3);
    EXPECT_EQ(Project.PEng, 5);
    EXPECT_EQ(Project.PExt, 7);
    EXPECT_EQ(Project.Pdde, 9);
    EXPECT_EQ(Project.PRes, 11);
    Project.SavePro();
    EXPECT_EQ(temp_.Content("p.mrv"), saved);
}

TEST_F(ProjectSave, ShowsARemovedMainAndDdeAgainAfterReopening) {
    Project.NameMain("main.cpp");
    Project.NameDde(NameBuffer("d.dde"));
    Project.DeleteMain();
    Project.DeleteDde();
    Project.SavePro();
    Reopen("p.mrv");
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path("p.mrv")), "Main", "\tmain.cpp", "DDE",
                                "\td.dde"}));
}

TEST_F(ProjectSave, OfAnEmptyProjectIs4096Bytes) {
    Project.SavePro();
    EXPECT_EQ(temp_.Content("p.mrv").size(), 4096u);
    Reopen("p.mrv");
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path("p.mrv"))}));
    EXPECT_EQ(Project.PRes, -1);
}

TEST_F(ProjectSave, ThatFailsIsShownAndLosesNothing) {
    Project.SavePro();
    const std::string before = temp_.Content("p.mrv");
    temp_.Put("p.aux", Tags({"old"}));
    SetText(Project.ResAux, Path("p.aux"));
    PutWorking(Tags({"new"}));
    const std::string working = Project.ResName;
    Project.NameMain("main.cpp");
    Boxes boxes;
    files::FailWritesAfter(10);
    EXPECT_EQ(Project.SavePro(), -1);
    files::FailWritesAfter(-1);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.messages[0].caption, "WARNING");
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(temp_.Content("p.mrv"), before);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"old"}));
    EXPECT_EQ(Project.ResName, working);
    EXPECT_TRUE(files::Exists(working.c_str()));
    // The next one succeeds with everything.
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"new"}));
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(ProjectSave, OverAReadOnlyFileIsRefused) {
    Project.SavePro();
    SetFileAttributesA(Path("p.mrv").c_str(), FILE_ATTRIBUTE_READONLY);
    Boxes boxes;
    EXPECT_EQ(Project.SavePro(), -1);
    EXPECT_EQ(boxes.shown, RowTexts{"WARNING: Permison denied"});
    // It cannot be opened either: only the name is taken.
    Project.DestroyPro();
    Project.OpenPro(Path("p.mrv").c_str());
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(boxes.shown[1], "Open Project: Open Error");
    EXPECT_EQ(boxes.messages.back().owner, GetDesktopWindow());
    EXPECT_EQ(Project.MORState, 0);
    EXPECT_EQ(Project.MORVName, Path("p.mrv"));
    SetFileAttributesA(Path("p.mrv").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ProjectSave, OpensADamagedProjectAsFarAsItGoes) {
    Project.NameRes("r1.rst", 1);
    Project.NameRes("r2.rst", 1);
    Project.SavePro();
    std::string bytes = temp_.Content("p.mrv");
    bytes.resize(bytes.size() - 1);
    bytes.replace(0, 255, std::string(255, 'm')); // no NUL
    temp_.Put("bad.mrv", bytes);
    Boxes boxes;
    Reopen("bad.mrv");
    EXPECT_EQ(boxes.shown, RowTexts{"Open Project: Open Error"});
    EXPECT_EQ(Project.MORState, 1);
    EXPECT_TRUE(Project.NeedsName());
    EXPECT_EQ(Project.IsUntitled(), 0);
    EXPECT_EQ(Project.ResNum, 1);
    EXPECT_EQ(Project.MainName, std::string(254, 'm'));
    EXPECT_EQ(Rows().back(), "\tr1.rst");

    // Saved under a name it is whole.
    Project.ChName(Path("whole.mrv").c_str());
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_FALSE(Project.NeedsName());
    EXPECT_EQ(temp_.Content("bad.mrv"), bytes);

    bytes.replace(4080, 4, Number(100)); // systems
    temp_.Put("none.mrv", bytes);
    temp_.Put("short.mrv", "x");
    for (const char* name : {"none.mrv", "short.mrv"}) {
        boxes.shown.clear();
        Project.DestroyPro();
        Project.DestroyMdi();
        Project.OpenPro(Path(name).c_str());
        EXPECT_EQ(boxes.shown, RowTexts{"Open Project: Open Error"});
        EXPECT_EQ(Project.MORState, 0);
        EXPECT_EQ(GetMdi(), nullptr);
    }
}

TEST_F(ProjectSave, ReadsFieldsUpToTheirNul) {
    Project.SavePro();
    std::string bytes = temp_.Content("p.mrv");
    bytes.replace(0, 255, "main.cpp" + std::string(1, '\0') + std::string(246, 'z'));
    bytes.replace(4088, 4, Number(1));
    bytes += "r.rst" + std::string(1, '\0') + std::string(249, 'z');
    temp_.Put("p.mrv", bytes);
    Reopen("p.mrv");
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path("p.mrv")), "Main", "\tmain.cpp", "Results",
                                "\tr.rst"}));
    Project.SavePro();
    EXPECT_EQ(temp_.Content("p.mrv").substr(0, 255), Field("main.cpp"));
    EXPECT_EQ(temp_.Content("p.mrv").substr(4096), Field("r.rst"));
}

TEST_F(ProjectSave, NamesTheWorkingAuxiliaryFile) {
    Project.NamePro("C:\\work\\alpha.mrv");
    SetText(Project.ResAux, "C:\\work\\alpha.aux");
    Project.GetResName("C:\\run");
    EXPECT_STREQ(Project.ResName, "C:\\run\\temp\\\\alpha.aux");
    EXPECT_STREQ(Project.OldResAux, "C:\\work\\alpha.aux");
    Project.GetResName("C:\\run");
    EXPECT_STREQ(Project.OldResAux, "C:\\run\\temp\\\\alpha.aux");
    Project.NamePro("untitled.mrv");
    Project.GetResName("C:\\run");
    EXPECT_STREQ(Project.ResName, "C:\\run\\temp\\untitled.aux");
    Project.NamePro("C:\\my.dir\\p.mrv");
    Project.GetResName("C:\\run");
    EXPECT_STREQ(Project.ResName, "C:\\run\\temp\\\\my.aux");
}

TEST_F(ProjectSave, MovesTheWorkingAuxiliaryFileBesideTheProject) {
    temp_.Put("p.aux", Tags({"old"}));
    PutWorking(Tags({"new"}));
    const std::string working = Project.ResName;
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"new"}));
    EXPECT_FALSE(files::Exists(working.c_str()));
    EXPECT_EQ(Project.ResAux, Path("p.aux"));
    EXPECT_STREQ(Project.ResName, "");
    EXPECT_EQ(temp_.Content("p.mrv").substr(3825, 255), Field(Path("p.aux")));
}

TEST_F(ProjectSave, CutsTheAuxiliaryNameAtTheFirstDot) {
    std::filesystem::create_directory(Path("my.dir"));
    PutWorking(Tags({"new"}));
    EXPECT_EQ(Project.ChangeName(Path("my.dir\\p.mrv").c_str()), 0);
    EXPECT_EQ(temp_.Content("my.aux"), Tags({"new"}));
    EXPECT_EQ(Project.ResAux, Path("my.aux"));
}

TEST_F(ProjectSave, KeepsTheSavedNamesWhenTheDialogWroteNothing) {
    temp_.Put("p.aux", Tags({"old"}));
    SetText(Project.ResAux, Path("p.aux"));
    NameWorking();
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"old"}));
    EXPECT_EQ(Project.ResAux, Path("p.aux"));
    // Under another name too.
    NameWorking();
    Project.ChName(Path("q.mrv").c_str());
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("q.mrv").substr(3825, 255), Field(Path("p.aux")));
    EXPECT_STREQ(Project.ResName, "");
}

// Names that the results editor adds to a results file are counted with the results files.
TEST_F(ProjectSave, CountsTheResultsThatHaveRows) {
    const std::string name = ItemRow(Path("p.mrv"));
    for (const char* result : {"a.rst", "b.rst"}) {
        Project.ResNum += 2;
        Project.NameRes(result, 1);
    }
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", name, "Results", "\ta.rst", "\tb.rst"}));
    Project.ResNum += 2;
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.mrv").substr(4088, 4), Number(2));
    EXPECT_EQ(temp_.Content("p.mrv").substr(4096), Field("a.rst") + Field("b.rst"));
    Boxes boxes;
    Reopen("p.mrv");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", name, "Results", "\ta.rst", "\tb.rst"}));
    Project.ResNum += 2;
    Project.DeleteRes(3);
    EXPECT_EQ(Project.ResNum, 1);
    Project.ResNum += 2;
    Project.DeleteRes(3);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", name}));
    EXPECT_EQ(Project.PRes, -1);
    Project.ResNum += 2; // none has a row
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.mrv").size(), 4096u);
    EXPECT_EQ(Project.ResNum, 0);
}

TEST_F(ProjectSave, WritesNothingWithoutItsRows) {
    Project.NameRes("a.rst", 1);
    Project.SavePro();
    const std::string before = temp_.Content("p.mrv");
    Project.DestroyPro();
    EXPECT_EQ(Project.SavePro(), -1);
    EXPECT_EQ(temp_.Content("p.mrv"), before);
}

TEST_F(ProjectSave, LeavesAnotherProjectItsAuxiliaryFile) {
    temp_.Put("p.aux", Tags({"old"}));
    SetText(Project.ResAux, Path("p.aux"));
    CancelWorking();
    Project.ChName(Path("q.mrv").c_str());
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"old"}));
    EXPECT_EQ(temp_.Content("q.aux"), Tags({"old"}));
    EXPECT_EQ(temp_.Content("q.mrv").substr(3825, 255), Field(Path("q.aux")));
    // A project that took over the file of another one, saved under its own name.
    New("r.mrv");
    SetText(Project.ResAux, Path("p.aux"));
    CancelWorking();
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"old"}));
    EXPECT_EQ(temp_.Content("r.aux"), Tags({"old"}));
}

TEST_F(ProjectSave, AdoptsNoForeignNamesWhenNoneWereWritten) {
    temp_.Put("p.aux", Tags({"foreign"}));
    NameWorking();
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"foreign"}));
    EXPECT_STREQ(Project.ResAux, "");
}

TEST_F(ProjectSave, ThatCannotMoveTheAuxiliaryFileIsShownAndLosesNothing) {
    PutWorking(Tags({"new"}));
    const std::string working = Project.ResName;
    Project.NameMain("main.cpp");
    Boxes boxes;
    std::filesystem::create_directory(Path("p.aux"));
    EXPECT_EQ(Project.SavePro(), -1);
    std::filesystem::remove(Path("p.aux"));
    temp_.Put("p.aux", Tags({"old"}));
    SetFileAttributesA(Path("p.aux").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Project.SavePro(), -1);
    SetFileAttributesA(Path("p.aux").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(boxes.shown, RowTexts(2, "WARNING: Permison denied"));
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"old"}));
    EXPECT_EQ(Project.ResName, working);
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(Project.SavePro(), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"new"}));
    EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(ProjectSave, BearsAPathOf254Characters) {
    const std::string folder = Path("");
    const std::string name = std::string(254 - folder.size() - 4, 'n') + ".mrv";
    ASSERT_EQ(Path(name).size(), 254u);
    Project.ChName(Path(name).c_str());
    Project.NameMain("main.cpp");
    EXPECT_EQ(Project.SavePro(), 0);
    Reopen(name);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path(name)), "Main", "\tmain.cpp"}));
}

TEST_F(ProjectSave, DeletingAResultPrunesTheSavedNamesWhileNoneAreWritten) {
    AddTwoResults();
    NameWorking();
    Project.DeleteRes(3);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"smoke"}));
    Project.DeleteRes(-1);
    EXPECT_EQ(temp_.Content("p.aux"), "");
    EXPECT_FALSE(files::Exists(Project.ResName));
}

TEST_F(ProjectSave, AResultStaysWhenItsNamesCannotBeTakenOut) {
    AddTwoResults();
    const RowTexts rows = Rows();
    Boxes boxes;
    files::FailWritesAfter(10);
    EXPECT_EQ(Project.DeleteRes(3), -1);
    files::FailWritesAfter(-1);
    // One that is open elsewhere can be written and not replaced.
    const HANDLE open =
        CreateFileA(Path("p.aux").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(Project.DeleteRes(-1), -1);
    CloseHandle(open);
    EXPECT_EQ(boxes.shown,
              (RowTexts{"WARNING: No space left on the disk", "WARNING: Permison denied"}));
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(Project.ResNum, 2);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"fire", "smoke"}));
    EXPECT_EQ(Project.DeleteRes(3), 0);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"smoke"}));
}

TEST_F(ProjectSave, DeletingAResultPrunesNothingWhenAFileIsReadOnly) {
    for (const char* name : {"p.aux", "r1.rst"}) {
        New("p.mrv");
        AddTwoResults();
        Boxes boxes;
        SetFileAttributesA(Path(name).c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(Project.DeleteRes(3), 0);
        SetFileAttributesA(Path(name).c_str(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_TRUE(boxes.shown.empty());
        EXPECT_EQ(temp_.Content("p.aux"), Tags({"fire", "smoke"})) << name;
        EXPECT_EQ(Rows().back(), ItemRow(Path("r2.rst")));
        EXPECT_EQ(Project.ResNum, 1);
    }
}

TEST_F(ProjectSave, DeletingAResultPrunesTheAuxiliaryFile) {
    temp_.Put("p.aux", Tags({"fire", "smoke", "fire"}));
    temp_.Put("r1.rst", Tags({"fire"}));
    temp_.Put("r2.rst", Tags({"smoke"}));
    SetText(Project.ResAux, Path("p.aux"));
    Project.NameRes(Path("r1.rst").c_str(), 1);
    Project.NameRes(Path("r2.rst").c_str(), 1);
    Project.DeleteRes(3);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"smoke"}));
    EXPECT_EQ(Rows(),
              (RowTexts{"MORVName", ItemRow(Path("p.mrv")), "Results", ItemRow(Path("r2.rst"))}));
    // The working file goes before the saved one.
    PutWorking(Tags({"smoke", "ash"}));
    Project.DeleteRes(3);
    EXPECT_EQ(temp_.Content("p.aux"), Tags({"smoke"}));
    EXPECT_EQ(temp_.Content("temp\\p.aux"), Tags({"ash"}));
    EXPECT_EQ(Rows().size(), 2u);
    EXPECT_EQ(Project.PRes, -1);
}

TEST_F(ProjectSave, DeletingAllResultsEmptiesTheAuxiliaryFile) {
    temp_.Put("p.aux", Tags({"fire", "smoke"}));
    SetText(Project.ResAux, Path("p.aux"));
    for (const char* name : {"a", "b", "c"})
        Project.NameRes(name, 1);
    Project.DeleteRes(-1);
    EXPECT_EQ(temp_.Content("p.aux"), "");
    EXPECT_EQ(Rows().size(), 2u);
    EXPECT_EQ(Project.ResNum, 0);
    EXPECT_EQ(Project.PRes, -1);
}

TEST_F(ProjectSave, IsQuickWithAThousandResults) {
    const auto start = std::chrono::steady_clock::now();
    {
        ListFill fill(TopChild(Project.hwndPro));
        for (int i = 0; i < 1000; ++i)
            Project.NameRes((Numbered("C:\\results\\number ", i) + ".rst").c_str(), 1);
    }
    const auto added = std::chrono::steady_clock::now();
    EXPECT_LT(added - start, std::chrono::seconds(20));
    Project.SavePro();
    Reopen("p.mrv");
    EXPECT_LT(std::chrono::steady_clock::now() - added, std::chrono::seconds(20));
    EXPECT_EQ(Rows().size(), 1003u);
    EXPECT_EQ(Rows().back(), "\tC:\\results\\number 999.rst");
}

} // namespace
