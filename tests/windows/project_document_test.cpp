// The project document over a real list box: its rows and their positions.
#include "document_test.h"
#include "project/ZENPRO.h"

namespace {

using namespace zentrik_test;

class ProjectDocument : public DocumentTest {
protected:
    ProjectDocument() {
        Project.NamePro("untitled.mrv");
        Project.CreatePro();
        Project.MORState = 1;
    }

    static RowTexts Rows() { return RowsOf(Project.hwndPro); }
    static void AddSys(const std::string& name) { Project.NameSys(NameBuffer(name)); }
    static void AddExt(const std::string& name) { Project.NameExt(NameBuffer(name)); }
    static void AddDde(const std::string& name) { Project.NameDde(NameBuffer(name)); }

    // Every position is where the section's heading stands, and says when there is none.
    static void ExpectPositions() {
        const RowTexts rows = Rows();
        auto first = [&rows](const char* heading) {
            const auto at = std::ranges::find(rows, heading);
            return at == rows.end() ? -1 : static_cast<int>(at - rows.begin()) + 1;
        };
        EXPECT_EQ(Project.PMain, first("Main"));
        EXPECT_EQ(Project.PEng, first("System"));
        EXPECT_EQ(Project.PExt, first("Extern"));
        EXPECT_EQ(Project.Pdde, first("DDE"));
        // The position of results may stay when the last one was taken out by its name.
        EXPECT_EQ(Project.ResNum > 0 ? Project.PRes : -1, first("Results"));
    }
};

TEST_F(ProjectDocument, StartsWithItsNameOnly) {
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
    EXPECT_EQ(Project.IsUntitled(), 1);
    EXPECT_EQ(Project.DatHisLen, 4);
    EXPECT_EQ(Project.GetIndex(), -1);
    Project.NamePro("Untitled.mrv");
    EXPECT_EQ(Project.IsUntitled(), 0);
    EXPECT_EQ(Project.IsProWin(Project.hwndPro), 1);
    EXPECT_EQ(Project.IsProWin(hMdiC), 0);
    EXPECT_EQ(Project.GetHwnd(), Project.hwndPro);
}

TEST_F(ProjectDocument, InitEmptiesEverything) {
    Project.NameMain("main.cpp");
    AddSys("a.lse");
    SetText(Project.ResAux, "a.aux");
    SetText(Project.ResName, "b.aux");
    SetText(Project.OldResAux, "c.aux");
    Project.DatHisLen = 9;
    Project.Init();
    EXPECT_EQ(Project.PMain, -1);
    EXPECT_EQ(Project.PEng, -1);
    EXPECT_EQ(Project.EngNum, 0);
    EXPECT_EQ(Project.MORVmod, 0);
    EXPECT_EQ(Project.DatHisLen, 4);
    for (const char* name : {Project.MORVName, Project.MainName, Project.EngineNames[1],
                             Project.ResAux, Project.ResName, Project.OldResAux})
        EXPECT_STREQ(name, "");
}

TEST_F(ProjectDocument, ShowsEverySectionInItsPlaceWhateverTheOrder) {
    Project.NameRes("r1.rst", 1);
    AddDde("d.dde");
    AddExt("e1.cpp");
    AddSys("s1.lse");
    Project.NameMain("main.cpp");
    AddSys("s2.lse");
    AddExt("e2.cpp");
    Project.NameRes("r2.rst", 1);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Main", "\tmain.cpp", "System",
                                "\ts1.lse", "\ts2.lse", "Extern", "\te1.cpp", "\te2.cpp", "DDE",
                                "\td.dde", "Results", "\tr1.rst", "\tr2.rst"}));
    ExpectPositions();
    EXPECT_EQ(Project.MORVmod, 1);
}

TEST_F(ProjectDocument, EachNewItemIsAChange) {
    const std::function<void()> adds[] = {[] { Project.NameMain("m"); }, [] { AddSys("s"); },
                                          [] { AddExt("e"); }, [] { AddDde("d"); },
                                          [] { Project.NameRes("r", 1); }};
    for (const auto& add : adds) {
        Project.MORVmod = 0;
        add();
        EXPECT_EQ(Project.MORVmod, 1) << Rows().back();
    }
}

TEST_F(ProjectDocument, MainMovesTheSystemsDown) {
    AddSys("s1.lse");
    EXPECT_EQ(Project.PEng, 3);
    Project.NameMain("main.cpp");
    EXPECT_EQ(Project.PEng, 5);
    EXPECT_EQ(Rows()[2], "Main");
    EXPECT_EQ(Rows()[4], "System");
}

TEST_F(ProjectDocument, PutsTheTabIntoTheCallersName) {
    NameBuffer name("s1.lse");
    Project.NameSys(name);
    EXPECT_STREQ(name, "\ts1.lse");
    EXPECT_STREQ(Project.EngineNames[1], "s1.lse");
    Project.ResTab(name);
    EXPECT_STREQ(name, "s1.lse");
    NameBuffer empty("");
    Project.ResTab(empty);
    EXPECT_STREQ(empty, "");
}

TEST_F(ProjectDocument, BearsNamesOf254Characters) {
    const std::string longest(254, 'x');
    AddSys(longest);
    EXPECT_EQ(Rows()[3], ItemRow(longest));
    EXPECT_EQ(Project.EngineNames[1], longest);
    SelectRow(Project.hwndPro, 3);
    char text[256];
    EXPECT_EQ(Project.EditItem(text), 2);
    EXPECT_EQ(text, ItemRow(longest));
    Project.DeleteSys(3);
    EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(ProjectDocument, TakesNoMoreThanItsArraysHold) {
    for (int i = 1; i <= 9; ++i)
        AddSys(Numbered("s", i));
    for (int i = 1; i <= 4; ++i)
        AddExt(Numbered("e", i));
    EXPECT_EQ(Project.EngNum, 8);
    EXPECT_EQ(Project.ExtNum, 3);
    EXPECT_EQ(Rows().size(), 2u + 9 + 4);
    ExpectPositions();
}

TEST_F(ProjectDocument, RemovingTheOnlySystemRemovesItsHeader) {
    AddSys("s1.lse");
    AddExt("e1.cpp");
    EXPECT_EQ(Project.PExt, 5);
    Project.DeleteSys(3);
    EXPECT_EQ(Project.PExt, 3);
    EXPECT_EQ(Project.PEng, -1);
    EXPECT_EQ(Project.EngNum, 0);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Extern", "\te1.cpp"}));
}

TEST_F(ProjectDocument, RemovingOneSystemClosesTheGap) {
    for (const char* name : {"s1", "s2", "s3"})
        AddSys(name);
    AddDde("d.dde");
    Project.DeleteSys(4);
    EXPECT_EQ(Project.EngNum, 2);
    EXPECT_STREQ(Project.EngineNames[1], "s1");
    EXPECT_STREQ(Project.EngineNames[2], "s3");
    EXPECT_EQ(Rows(),
              (RowTexts{"MORVName", "\tuntitled.mrv", "System", "\ts1", "\ts3", "DDE", "\td.dde"}));
    ExpectPositions();
}

TEST_F(ProjectDocument, RemovesAWholeSection) {
    for (const char* name : {"s1", "s2"})
        AddSys(name);
    for (const char* name : {"e1", "e2", "e3"})
        AddExt(name);
    Project.NameRes("r1", 1);
    Project.DeleteSys(-1);
    ExpectPositions();
    EXPECT_STREQ(Project.EngineNames[1], "");
    EXPECT_EQ(Project.EngNum, 0);
    Project.DeleteExt(-1);
    ExpectPositions();
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Results", "\tr1"}));
    // The names of earlier externs stay in memory; a new one takes row 1.
    AddExt("new");
    EXPECT_STREQ(Project.ExternFiles[1], "new");
    EXPECT_STREQ(Project.ExternFiles[2], "e2");
    EXPECT_STREQ(Project.ExternFiles[3], "");
    ExpectPositions();
}

TEST_F(ProjectDocument, RemovesExternsOneByOne) {
    AddExt("e1");
    AddExt("e2");
    AddDde("d");
    Project.DeleteExt(3);
    ExpectPositions();
    EXPECT_STREQ(Project.ExternFiles[1], "e2");
    Project.DeleteExt(3);
    EXPECT_EQ(Project.PExt, -1);
    EXPECT_EQ(Project.Pdde, 3);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "DDE", "\td"}));
}

TEST_F(ProjectDocument, MainAndDdeGoButTheirNamesStay) {
    Project.NameMain("main.cpp");
    AddDde("d.dde");
    Project.NameRes("r", 1);
    Project.MORVmod = 0;
    Project.DeleteMain();
    ExpectPositions();
    Project.DeleteDde();
    ExpectPositions();
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Results", "\tr"}));
    EXPECT_STREQ(Project.MainName, "main.cpp");
    EXPECT_STREQ(Project.DDEName, "d.dde");
    EXPECT_EQ(Project.MainState, 0);
    EXPECT_EQ(Project.DDEState, 0);
    EXPECT_EQ(Project.MORVmod, 0); // the command sets it
}

TEST_F(ProjectDocument, ResultsAreAddedOnceAndRemovedByName) {
    Project.NameRes("a.rst", 3);
    Project.NameRes("a.rst", 1);
    EXPECT_EQ(Project.ResNum, 1);
    Project.NameRes("A.rst", 1); // letter case counts
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv", "Results", "\ta.rst", "\tA.rst"}));
    Project.NameRes("b.rst", 0);
    EXPECT_EQ(Project.ResNum, 2);
    Project.NameRes("a.rst", 0);
    Project.NameRes("A.rst", 0);
    EXPECT_EQ(Rows().size(), 2u);
    Project.MORVmod = 0;
    Project.NameRes("A.rst", 0);
    EXPECT_EQ(Rows().size(), 2u);
    EXPECT_EQ(Project.MORVmod, 1);
    // Sections added after that find their places.
    Project.NameMain("main.cpp");
    AddSys("s");
    Project.NameRes("c.rst", 1);
    ExpectPositions();
    EXPECT_EQ(Rows().back(), "\tc.rst");
}

TEST_F(ProjectDocument, SaysWhatTheRowsAre) {
    Project.NameMain("main.cpp");
    AddSys("s1");
    AddSys("s2");
    AddExt("e1");
    AddDde("d");
    Project.NameRes("r1", 1);
    // 0,1 name; 2,3 main; 4-6 systems; 7,8 externs; 9,10 DDE; 11,12 results
    auto parts = [](auto is) {
        std::string digits;
        for (int i = -2; i < 15; ++i)
            digits += static_cast<char>('0' + is(i));
        return digits;
    };
    EXPECT_EQ(parts([](int i) { return Project.IsMain(i); }), "00"
                                                              "0011"
                                                              "00000000000");
    EXPECT_EQ(parts([](int i) { return Project.IsSys(i); }), "00"
                                                             "0000122"
                                                             "00000000");
    EXPECT_EQ(parts([](int i) { return Project.IsExt(i); }), "00"
                                                             "000000012"
                                                             "000000");
    EXPECT_EQ(parts([](int i) { return Project.IsDde(i); }), "00"
                                                             "00000000011"
                                                             "0000");
    EXPECT_EQ(parts([](int i) { return Project.IsRes(i); }), "00"
                                                             "0000000000012"
                                                             "00");
    std::string codes;
    char text[256];
    for (int i = 0; i < 13; ++i) {
        SelectRow(Project.hwndPro, i);
        codes += static_cast<char>('0' + Project.EditItem(text));
        EXPECT_EQ(text, Rows()[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(codes, "0001022030405");
}

TEST_F(ProjectDocument, AbsentSectionsHaveNoRows) {
    char text[256] = "before";
    EXPECT_EQ(Project.EditItem(text), 0);
    EXPECT_STREQ(text, "");
    for (int i = -3; i < 6; ++i) {
        EXPECT_EQ(Project.IsMain(i) + Project.IsSys(i) + Project.IsExt(i) + Project.IsDde(i) +
                      Project.IsRes(i),
                  0)
            << i;
        Project.DeleteSys(i);
        Project.DeleteExt(i);
        Project.DeleteRes(i);
    }
    Project.DeleteMain();
    Project.DeleteDde();
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tuntitled.mrv"}));
    EXPECT_EQ(Project.ResNum, 0);
    EXPECT_EQ(Project.PEng, -1);
}

TEST_F(ProjectDocument, FindsDuplicatesInAnyRoleAndLetterCase) {
    Project.NameMain("C:\\w\\Main.cpp");
    AddSys("C:\\w\\s.lse");
    EXPECT_EQ(Project.IsDup("c:\\W\\main.CPP"), 3);
    EXPECT_EQ(Project.IsDup("C:\\w\\s.lse"), 5);
    EXPECT_EQ(Project.IsDup("C:\\w\\s.ls"), -1);
    EXPECT_EQ(Project.IsDup("Main"), -1);
}

TEST_F(ProjectDocument, IsRenamedWithItsRows) {
    Project.NameMain("main.cpp");
    Project.ChName("C:\\w\\p.mrv");
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", "\tC:\\w\\p.mrv", "Main", "\tmain.cpp"}));
    EXPECT_STREQ(Project.MORVName, "C:\\w\\p.mrv");
}

TEST_F(ProjectDocument, GoesWithItsListAndWindow) {
    const HWND child = Project.hwndPro;
    Project.DestroyPro();
    EXPECT_EQ(Project.MORState, 0);
    EXPECT_EQ(TopChild(child), nullptr);
    EXPECT_TRUE(IsWindow(child));
    Project.DestroyMdi();
    EXPECT_FALSE(IsWindow(child));
    // Without a window nothing happens, and nothing else is touched.
    Project.DestroyPro();
    Project.DestroyMdi();
    EXPECT_TRUE(IsWindow(hMdiC));
}

} // namespace
