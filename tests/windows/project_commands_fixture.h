// The project commands in the process, and what their tests share.
#pragma once

#include "project/project_commands.h"

#include "command_test.h"
#include "dialog_test.h"
#include "project/ZENPRO.h"
#include "shell/services/ZENTRIK.h"

namespace zentrik_test {

class ProjectCommands : public CommandTest {
protected:
    static RowTexts Rows() { return RowsOf(Project.hwndPro); }

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
