// The project commands in the process, and what their tests share.
#pragma once

#include "project/project_commands.h"

#include "dialog_test.h"
#include "document_test.h"
#include "file_choices.h"
#include "shell/editor.h"
#include "shell/menu.h"
#include "shell/ZENTRIK.h"

namespace zentrik_test {

class ProjectCommands : public DocumentTest {
protected:
    ProjectCommands() {
        for (int group = 1; group <= 8; ++group)
            GrayMenu(hFrame, group);
        SetText(WorkPath, Path("work"));
        std::filesystem::create_directories(Path("work") + "\\temp");
    }
    ~ProjectCommands() override { EditState = 0; }

    static RowTexts Rows() { return RowsOf(Project.hwndPro); }

    // Chooses a file in the dialog that `command` shows.
    template <class Command> void Choose(const std::string& name, Command command) {
        if (!files::Exists(Path(name).c_str()))
            temp_.Put(name, "");
        FileChoices choices;
        choices.Choose(Path(name));
        command(hFrame);
    }
    template <class Command> static void Cancel(Command command) {
        FileChoices choices;
        choices.Cancel();
        command(hFrame);
    }

    // Opens a saved project of this name.
    void OpenSaved(const std::string& name) {
        ASSERT_TRUE(WriteProject(Path(name).c_str(), ProjectFile()));
        Choose(name, OpenMORV);
        ASSERT_EQ(Project.MORState, 1);
    }

    static constexpr const char* kChanged =
        "Close MORV Project: MORV Project has been changed. Save before Close?";
};

} // namespace zentrik_test
