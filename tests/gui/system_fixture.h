// What the tests of the system document share.
#pragma once

#include "resources/variable.h"
#include "system/system_file.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

class SystemTest : public GuiTest {
protected:
    static constexpr char kOpenTitle[] = "Open MORV System";
    static constexpr char kSaveTitle[] = "Save MORV System As...";
    static constexpr char kAskSave[] = "   Save Current MORV System";
    static constexpr char kAskCaption[] = "Close MORV System";

    App& RunNew() {
        App& app = Run(Kind::Nt, PutSampleProject);
        app.Command(CM_NEW_SYSTEM);
        return app;
    }

    App& RunTank(const App::Setup& change = {}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            PutSampleProject(work);
            if (change)
                change(work);
        });
        Open(app, "tank.lse");
        return app;
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_SYSTEM, kOpenTitle, app.Path(name));
    }

    static void SaveAs(App& app, const std::string& name) {
        app.CommandWithFile(CM_SAVE_AS_SYSTEM, kSaveTitle, app.Path(name));
    }

    static void AddRules(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", app.Path(name));
    }

    static void AddHeader(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_HEADER, "Add System Header", app.Path(name));
    }

    // Starts Add Facts on the sample's facts base and returns its dialog.
    static Dialog AddFacts(App& app) {
        app.Start(CM_ADD_FACTS);
        app.ChooseFile("Open MORV Facts", app.Path("tank.fac"));
        return app.WaitDialog("Add Resource");
    }

    static void RemoveRow(App& app, int row) {
        app.SelectRow(kSystem, row);
        app.Command(CM_RESOURCE_REMOVE);
    }

    static SystemFile Stored(const App& app, const std::string& name) {
        SystemFile system;
        ReadSystem(app.Path(name).c_str(), system);
        return system;
    }

    static bool CloseAsks(App& app, Answer answer = Answer::No) {
        app.Start(CM_CLOSE_SYSTEM);
        bool asked = false;
        app.Process().WaitFor("the end of the close or its question", [&] {
            asked = !Dialogs(app.Process()).empty();
            return asked || !app.Process().Busy();
        });
        if (asked) {
            const Box box =
                app.ExpectBox(kAskSave, kAskCaption, Buttons::YesNoCancel, Icon::None, answer);
            EXPECT_EQ(box.owner, nullptr);
        }
        app.Finish();
        return asked;
    }

    // The rows of the sample system as opened from its file.
    static TextRows TankRows(const App& app) {
        return {"System Name",
                Item(app.Path("tank.lse")),
                "Rules",
                Item(app.Path("tank.rul")),
                "Facts Base",
                "\tLevel",
                "\tValve",
                "Opposites",
                "\tHIGH\tLOW",
                "System Header",
                Item(app.Path("head.cpp"))};
    }

    static TextRows Without(TextRows rows, int first, int count) {
        rows.erase(rows.begin() + first, rows.begin() + first + count);
        return rows;
    }
};

} // namespace gui
