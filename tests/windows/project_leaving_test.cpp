// Saving, closing and the exit of the program.
#include "project/ZENPRO.h"
#include "project_commands_fixture.h"
#include "system/ZENSYS.h"

namespace {

using namespace zentrik_test;
using ProjectLeaving = ProjectCommands;

TEST_F(ProjectLeaving, CloseAndExitStopWhenTheProjectIsGone) {
    auto close = [](HWND frame) { EXPECT_EQ(CloseMORV(frame), 1); };
    for (const std::function<void(HWND)>& command :
         {std::function<void(HWND)>(close), std::function<void(HWND)>(ExitZentrik)}) {
        NewMORV(hFrame);
        Project.MORVmod = 1;
        Boxes boxes(Answer::Yes);
        FileChoices choices;
        choices.Meanwhile(
            [] {
                Project.MORVmod = 0;
                EXPECT_EQ(CloseMORV(hFrame), 1); // it is asked for already
                Project.DestroyPro();
                DestroyMdiP();
                NewMORV(hFrame);
            },
            Path("p.mrv"));
        command(hFrame);
        EXPECT_FALSE(files::Exists(Path("p.mrv").c_str()));
        EXPECT_TRUE(IsWindow(hFrame));
        EXPECT_EQ(Project.MORState, 1);
        EXPECT_EQ(Rows().size(), 2u);
        CloseMORV(hFrame);
        DestroyMdiP();
    }
}

TEST_F(ProjectLeaving, SaveAsksForANameWhileUntitled) {
    NewMORV(hFrame);
    Project.MORVmod = 1;
    Cancel(SaveMORV);
    EXPECT_EQ(Project.IsUntitled(), 1);
    EXPECT_EQ(Project.MORVmod, 1);
    {
        FileChoices choices;
        choices.Choose(Path("p.mrv"));
        SaveMORV(hFrame);
    }
    EXPECT_EQ(Project.MORVmod, 0);
    EXPECT_EQ(Rows(), (RowTexts{"MORVName", ItemRow(Path("p.mrv"))}));
    EXPECT_EQ(temp_.Content("p.mrv").size(), 4096u);
    Project.DatHisLen = 7;
    SaveMORV(hFrame);
    EXPECT_EQ(temp_.Content("p.mrv").substr(4092), Number(7));
}

TEST_F(ProjectLeaving, AFailedSaveKeepsNameAndChanges) {
    NewMORV(hFrame);
    Project.NameMain("m.cpp");
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    {
        FileChoices choices;
        choices.Choose(Path("p.mrv"));
        SaveAsMORV(hFrame);
    }
    EXPECT_EQ(Project.IsUntitled(), 1);
    EXPECT_EQ(Project.MORVmod, 1);
    Project.ChName(Path("p.mrv").c_str());
    SaveMORV(hFrame);
    EXPECT_EQ(Project.MORVmod, 1);
    EXPECT_EQ(CloseMORV(hFrame), 1);
    ExitZentrik(hFrame);
    files::FailWritesAfter(-1);
    EXPECT_TRUE(IsWindow(hFrame));
    EXPECT_EQ(Project.MORState, 1);
    EXPECT_EQ(Rows().size(), 4u);
}

TEST_F(ProjectLeaving, CloseAsksForAChangedProject) {
    OpenSaved("p.mrv");
    Project.NameMain("m.cpp");
    {
        Boxes boxes(Answer::Cancel);
        EXPECT_EQ(CloseMORV(hFrame), 1);
        EXPECT_EQ(boxes.shown, RowTexts{kChanged});
        EXPECT_EQ(boxes.messages[0].buttons, Buttons::YesNoCancel);
        EXPECT_EQ(boxes.messages[0].owner, hFrame);
        EXPECT_EQ(Project.MORState, 1);
    }
    Boxes boxes(Answer::Yes);
    EXPECT_EQ(CloseMORV(hFrame), 0);
    DestroyMdiP();
    EXPECT_EQ(Project.MORState, 0);
    EXPECT_EQ(temp_.Content("p.mrv").substr(0, 255), Field("m.cpp"));
    for (int id : {CM_SAVE_MORV, CM_CLOSE_MORV, CM_COMPILE, CM_REMOVE_ITEM})
        EXPECT_TRUE(FrameWindow::IsGray(id)) << id;
    // An unchanged one closes without a question.
    Choose("p.mrv", OpenMORV);
    EXPECT_FALSE(FrameWindow::IsGray(CM_REMOVE_ITEM)); // it has a main file
    EXPECT_EQ(CloseMORV(hFrame), 0);
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(ProjectLeaving, CloseGivesUpAnUntitledProjectWhoseNameWasCancelled) {
    NewMORV(hFrame);
    Project.MORVmod = 1;
    Boxes boxes(Answer::Yes);
    FileChoices choices;
    choices.Cancel();
    EXPECT_EQ(CloseMORV(hFrame), 0);
    EXPECT_EQ(Project.MORState, 0);
}

TEST_F(ProjectLeaving, ExitAsksForProjectAndSystemInTurn) {
    NewMORV(hFrame);
    System.NameSys("untitled.lse");
    System.CreateSys();
    System.EngineState = 1;
    Project.MORVmod = 1;
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown, RowTexts{kChanged});
        EXPECT_EQ(boxes.messages[0].owner, hFrame);
        EXPECT_EQ(Project.MORState, 1);
        EXPECT_EQ(System.EngineState, 1);
    }
    Project.MORVmod = 0;
    System.Engmod = 1;
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown, RowTexts{"Close MORV Project: Save Current MORV System"});
        EXPECT_EQ(boxes.messages[0].owner, hFrame);
        // The project is closed by then, the system is not.
        EXPECT_EQ(Project.MORState, 0);
        EXPECT_EQ(System.EngineState, 1);
        EXPECT_TRUE(IsWindow(hFrame));
    }
    Boxes boxes(Answer::No);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_EQ(System.EngineState, 0);
    EXPECT_FALSE(IsWindow(frame));
}

TEST_F(ProjectLeaving, ExitSavesWhatItIsToldTo) {
    OpenSaved("p.mrv");
    Project.NameMain("m.cpp");
    System.NameSys(Path("a.lse").c_str());
    System.CreateSys();
    System.EngineState = 1;
    System.NameHeader("h.cpp");
    Boxes boxes(Answer::Yes);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_FALSE(IsWindow(frame));
    EXPECT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(temp_.Content("p.mrv").substr(0, 255), Field("m.cpp"));
    EXPECT_EQ(temp_.Content("a.lse").substr(765, 255), Field("h.cpp"));
}

TEST_F(ProjectLeaving, ExitKeepsASystemThatCouldNotBeSaved) {
    System.NameSys(Path("a.lse").c_str());
    System.CreateSys();
    System.EngineState = 1;
    System.Engmod = 1;
    Boxes boxes(Answer::Yes);
    files::FailWritesAfter(0);
    ExitZentrik(hFrame);
    files::FailWritesAfter(-1);
    EXPECT_TRUE(IsWindow(hFrame));
    EXPECT_EQ(System.EngineState, 1);
    EXPECT_EQ(System.Engmod, 1);
}

TEST_F(ProjectLeaving, ExitStopsAtATextTheUserKeeps) {
    OpenEdit("untitled");
    SendMessageA(TextHwnd(), EM_SETMODIFY, TRUE, 0);
    {
        Boxes boxes(Answer::Cancel);
        ExitZentrik(hFrame);
        EXPECT_EQ(boxes.shown.size(), 1u);
        EXPECT_TRUE(IsWindow(hFrame));
    }
    Boxes boxes(Answer::No);
    const HWND frame = hFrame;
    ExitZentrik(hFrame);
    EXPECT_FALSE(IsWindow(frame));
}

} // namespace
