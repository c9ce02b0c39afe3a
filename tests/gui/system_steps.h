// What the tests of a system's commands and editors share.
#pragma once

#include "system/core/system_file.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

class SystemGuiTest : public GuiTest {
protected:
    // The program with the sample's files and a new system.
    App& RunNew() {
        App& app = Run(Kind::Nt, PutSampleProject);
        app.Command(CM_NEW_SYSTEM);
        return app;
    }

    // The program with the sample's system open.
    App& RunSample() {
        App& app = Run(Kind::Nt, PutSampleProject);
        Open(app, "tank.lse");
        return app;
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", app.Path(name));
    }

    static void SaveAs(App& app, const std::string& name) {
        app.CommandWithFile(CM_SAVE_AS_SYSTEM, "Save MORV System As...", app.Path(name));
    }

    static void RemoveRow(App& app, int row) {
        app.SelectRow(kSystem, row);
        app.Command(CM_RESOURCE_REMOVE);
    }

    static void AddHeader(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_HEADER, "Add System Header", app.Path(name));
    }

    static void AddRules(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", app.Path(name));
    }

    // Opens the dialog behind a command that asks for a file first.
    static Dialog OpenWithFile(App& app, int id, const std::string& file_title,
                               const std::string& name, const std::string& title) {
        app.Start(id);
        app.ChooseFile(file_title, app.Path(name));
        return app.WaitDialog(title);
    }

    static Dialog OpenAddFacts(App& app, const std::string& name) {
        return OpenWithFile(app, CM_ADD_FACTS, "Open MORV Facts", name, "Add Resource");
    }

    // Makes these rows of the facts base the system's facts.
    static void AddFacts(App& app, const std::string& name, const std::vector<int>& rows) {
        Dialog add = OpenAddFacts(app, name);
        add.SelectRows(ADD_OFFERED, rows);
        add.Click(ADD_ADD);
        End(app, add, ADD_OK);
    }

    // Presses the button that ends a dialog and its command.
    static void End(App& app, Dialog& dialog, int button) {
        dialog.Click(button);
        app.Finish();
        EXPECT_FALSE(dialog.Open());
    }

    static void EndByCloseBox(App& app, Dialog& dialog) {
        dialog.Close();
        app.Finish();
    }

    static void ExpectSaveQuestion(App& app, Answer answer) {
        const Box box = app.ExpectBox("   Save Current MORV System", "Close MORV System",
                                      Buttons::YesNoCancel, Icon::None, answer);
        EXPECT_EQ(box.owner, nullptr);
    }

    // Closes the system and tells whether that asked to save it; the answer is No.
    static bool CloseAsks(App& app) {
        app.Start(CM_CLOSE_SYSTEM);
        bool asked = false;
        app.Process().WaitFor("the end of the close or its question", [&] {
            asked = !Dialogs(app.Process()).empty();
            return asked || !app.Process().Busy();
        });
        if (asked)
            ExpectSaveQuestion(app, Answer::No);
        app.Finish();
        return asked;
    }

    static SystemFile Stored(const App& app, const std::string& name) {
        SystemFile system;
        EXPECT_EQ(ReadSystem(app.Path(name).c_str(), system), ReadResult::Ok);
        return system;
    }

    static TextRows Opposites(const SystemFile& system) {
        TextRows texts;
        for (const NameRecord& opposite : system.opposites)
            texts.push_back(Text(opposite.name));
        return texts;
    }
};

} // namespace gui
