// What the tests of the project share.
#pragma once

#include "tests/gui/gui_test.h"
#include "tests/gui/sample_project.h"

namespace gui {

class ProjectTest : public GuiTest {
protected:
    static constexpr char kNotOpen[] = "There is not Opened MORV Project";
    static constexpr char kChanged[] = "MORV Project has been changed. Save before Close?";
    static constexpr char kCloseCaption[] = "Close MORV Project";
    static constexpr char kOpenTitle[] = "Open MORV Project";
    static constexpr char kSaveTitle[] = "Save MORV Project As...";

    // The program with a new project and these files (which may be empty) in its folder.
    App& RunNew(const std::vector<std::string>& files = {}) {
        App& app = Run(Kind::Nt, [&](const WorkFolder& work) {
            for (const std::string& name : files)
                PutFile(work.Path(name), name);
        });
        app.Command(CM_NEW_MORV);
        return app;
    }

    // The program with the sample project open.
    App& RunSample(Kind kind = Kind::Nt) {
        App& app = Run(kind, PutSampleProject);
        Open(app, "plant.mrv");
        return app;
    }

    static void Open(App& app, const std::string& name) {
        app.CommandWithFile(CM_OPEN_MORV, kOpenTitle, app.Path(name));
    }

    static void SaveAs(App& app, const std::string& name) {
        app.CommandWithFile(CM_SAVE_AS_MORV, kSaveTitle, app.Path(name));
    }

    static void AddMain(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_MAIN, "Add MORV Main", app.Path(name));
    }

    static void AddSystem(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_SYSTEM, "Add MORV System", app.Path(name));
    }

    static void AddExtern(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_EXTERN, "Add MORV Extern", app.Path(name));
    }

    static void AddDde(App& app, const std::string& name) {
        app.CommandWithFile(CM_ADD_DDE, "Add MORV DDE", app.Path(name));
    }

    static void RemoveRow(App& app, int row) {
        app.SelectRow(kProject, row);
        app.Command(CM_REMOVE_ITEM);
    }

    // Closes the project and tells whether that asked to save it; the answer is No.
    static bool CloseAsks(App& app) {
        app.Start(CM_CLOSE_MORV);
        bool asked = false;
        app.Process().WaitFor("the end of the close or its question", [&] {
            asked = !Dialogs(app.Process()).empty();
            return asked || !app.Process().Busy();
        });
        if (asked)
            app.ExpectBox(kChanged, kCloseCaption, Buttons::YesNoCancel, Icon::None, Answer::No);
        app.Finish();
        return asked;
    }

    // The rows of the sample project as opened from its file.
    static TextRows SampleRows(const App& app) {
        return {"MORVName", Item(app.Path("plant.mrv")), "Main",    Item(app.Path("main.cpp")),
                "Systems",  Item(app.Path("tank.lse")),  "Extern",  Item(app.Path("help.cpp")),
                "DDE",      Item(app.Path("link.dde")),  "Results", Item(app.Path("names.rst"))};
    }

    static TextRows Without(TextRows rows, std::size_t first, std::size_t count) {
        rows.erase(rows.begin() + static_cast<int>(first),
                   rows.begin() + static_cast<int>(first + count));
        return rows;
    }
};

} // namespace gui
