// The commands of the documents in the process, with every menu group grey at first.
#pragma once

#include "document_test.h"
#include "file_choices.h"
#include "shell/services/editor.h"
#include "shell/services/menu.h"
#include "shell/services/VARMORV.h"

namespace zentrik_test {

class CommandTest : public DocumentTest {
protected:
    CommandTest() {
        for (int group = 1; group <= 8; ++group)
            GrayMenu(hFrame, group);
        SetText(WorkPath, Path("work"));
        std::filesystem::create_directories(Path("work") + "\\temp");
    }
    ~CommandTest() override { EditState = EditRule = 0; }

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
};

} // namespace zentrik_test
