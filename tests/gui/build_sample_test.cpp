// The sample project made by hand: from its plain texts alone, through nothing but the program's
// dialogs, to the very bytes that its record writers give.
#include "examples/sample_source.h"
#include "examples/sample_writer.h"
#include "tests/gui/fact_fields.h"
#include "tests/gui/gui_test.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <numeric>

namespace gui {

namespace {

using sample::Source;
using Contents = std::map<std::string, std::string>; // by the file's name

// The names of all files in a folder.
TextRows FilesIn(const std::string& folder) {
    TextRows names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

// Where two files differ first, for the message of a failure.
std::string Difference(const std::string& a, const std::string& b) {
    const auto at = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    return std::to_string(a.size()) + " and " + std::to_string(b.size()) +
           " bytes, first difference at " + std::to_string(at);
}

// The records of a file in the order of their bytes.
TextRows SortedRecords(const std::string& bytes, std::size_t size) {
    TextRows records;
    for (std::size_t i = 0; i + size <= bytes.size(); i += size)
        records.push_back(bytes.substr(i, size));
    std::ranges::sort(records);
    return records;
}

class BuildSample : public GuiTest {
protected:
    void SetUp() override {
        const std::string folder = SourceFolder() + "\\examples\\boiler";
        ASSERT_EQ(sample::ReadSource(FileContent(folder + "\\boiler.txt"), source_), "");
        Run(Kind::Nt, [&](const WorkFolder& work) {
            ASSERT_EQ(sample::WriteSample(folder, work.Folder(), ""), "");
            TakeRecords(work);
        });
    }

    // Keeps the record files and takes them out of the folder. The rule indexes stay: they come
    // with their rules files, as from another work folder.
    void TakeRecords(const WorkFolder& work) {
        const std::string folder = work.Path(source_.name);
        for (const std::string& name : FilesIn(folder)) {
            const std::string extension = name.substr(name.find('.'));
            if (extension == ".cpp" || extension == ".rul" || extension == ".siz")
                continue;
            written_[name] = FileContent(folder + "\\" + name);
            DeleteFileA((folder + "\\" + name).c_str());
        }
        tools_ = FileContent(work.Path("toolfile.tol"));
        DeleteFileA(work.Path("toolfile.tol").c_str());
    }

    std::string At(App& app, const std::string& name) const {
        return app.Path(source_.name + "\\" + name);
    }

    // The three editors of lists that ask for their file when they are closed.

    static void MakeNames(App& app, int command, const std::string& title, int edit,
                          const TextRows& names, const std::string& save_title,
                          const std::string& path) {
        app.Start(command);
        Dialog dialog = app.WaitDialog(title);
        for (const std::string& name : names) {
            dialog.SetText(edit, name);
            dialog.Click(IDOK);
        }
        dialog.Press(TAGS_CLOSE);
        app.ChooseFile(save_title, path);
        app.Finish();
        app.Finish();
    }

    void MakeResults(App& app, const sample::NameList& list) {
        MakeNames(app, CM_NEW_RESULTS, "Results", RES_NAME, list.rows, "Save Resource As...",
                  At(app, list.name + ".rst"));
    }

    void MakeTags(App& app, const sample::NameList& list) {
        MakeNames(app, CM_NEW_TAGS, "Tags", TAGS_NAME, list.rows, "Save Tags As...",
                  At(app, list.name + ".tag"));
    }

    void MakeDde(App& app, const sample::Dde& dde) {
        app.Start(CM_NEW_DDE);
        Dialog dialog = app.WaitDialog("DDE");
        dialog.SetText(DDE_NAME, dde.conversation);
        for (const auto& [name, type] : dde.items) {
            dialog.SetText(DDE_ITEM_NAME, name);
            dialog.SetText(DDE_TYPE, type);
            dialog.Click(IDOK);
        }
        dialog.Press(DDE_CLOSE);
        app.ChooseFile("New DDE Item", At(app, dde.name + ".dde"));
        app.Finish();
        app.Finish();
    }

    // Facts base and knowledge types. The system is open already: it counts the types.
    void MakeFacts(App& app, const sample::System& system) {
        app.Start(CM_NEW_FACTS_BASE);
        app.ChooseFile("Save Facts Base As...", At(app, system.name + ".fac"));
        Dialog facts = app.WaitDialog("Facts Base");
        facts.Press(KNOW_ADD_TYPE);
        Dialog types = app.WaitDialog("Knowledge Type");
        for (const std::string& type : system.types) {
            types.SetText(KTYPE_NAME, type);
            types.Click(IDOK);
        }
        types.Click(IDCANCEL);
        app.Finish();
        for (const Dat& fact : system.base) {
            TypeFact(facts, fact);
            facts.Click(IDOK);
        }
        facts.Click(KNOW_CLOSE);
        app.Finish();
    }

    void ChooseFacts(App& app, const sample::System& system) {
        app.Start(CM_ADD_FACTS);
        app.ChooseFile("Open MORV Facts", At(app, system.name + ".fac"));
        Dialog add = app.WaitDialog("Add Resource");
        const TextRows offered = add.Rows(ADD_OFFERED);
        std::vector<int> rows;
        for (std::size_t i = 0; i < offered.size(); ++i)
            if (std::ranges::count(system.without, offered[i]) == 0)
                rows.push_back(static_cast<int>(i));
        add.SelectRows(ADD_OFFERED, rows);
        add.Click(ADD_ADD);
        add.Click(ADD_OK);
        app.Finish();
    }

    void MakeOpposites(App& app, const sample::System& system) {
        app.Start(CM_ADD_OPPOSITES);
        app.ChooseFile("Add Opposites", At(app, system.name + ".rst"));
        Dialog opposites = app.WaitDialog("Result/Opposite ");
        for (const auto& [result, opposite] : system.opposites) {
            opposites.SetText(OPP_RESULT, result);
            opposites.SetText(OPP_OPPOSITE, opposite);
            opposites.Click(OPP_ADD);
        }
        opposites.Click(OPP_CLOSE);
        app.Finish();
    }

    // A new variable goes to the top of the list and the list is stored from its top, so the last
    // one is added first.
    static void MakeVariables(App& app, const sample::System& system) {
        app.Start(CM_ADD_LOCAL_VARS);
        Dialog variables = app.WaitDialog("Local Vars");
        for (auto each = system.variables.rbegin(); each != system.variables.rend(); ++each) {
            variables.SetText(VAR_NAME, each->name);
            variables.SetText(VAR_TYPE, each->type);
            variables.SetText(VAR_VALUE, each->value);
            variables.Click(VAR_ADD);
        }
        variables.Click(VAR_CLOSE);
        app.Finish();
    }

    void MakeInitialFacts(App& app, const sample::System& system) {
        app.Start(CM_INIT_FACTS);
        app.ChooseFile("Open DDE File", At(app, source_.dde + ".dde"));
        Dialog initial = app.WaitDialog("Init Facts");
        const TextRows words = initial.ComboRows(INIT_CERTAINTY);
        for (const auto& [fact, value, certainty] : system.initial) {
            initial.SetText(INIT_FACT, fact);
            initial.SetText(INIT_VALUE, value);
            const auto word = std::ranges::find(words, certainty) - words.begin();
            initial.SelectCombo(INIT_CERTAINTY, static_cast<int>(word));
            initial.Click(IDOK);
        }
        initial.Click(INIT_CLOSE);
        app.Finish();
    }

    void MakeSystem(App& app, const sample::System& system) {
        app.Command(CM_NEW_SYSTEM);
        MakeFacts(app, system);
        app.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", At(app, system.rules));
        ChooseFacts(app, system);
        MakeOpposites(app, system);
        if (!system.header.empty())
            app.CommandWithFile(CM_ADD_HEADER, "Add System Header", At(app, system.header));
        MakeVariables(app, system);
        MakeInitialFacts(app, system);
        app.CommandWithFile(CM_SAVE_AS_SYSTEM, "Save MORV System As...",
                            At(app, system.name + ".lse"));
        app.Command(CM_CLOSE_SYSTEM);
    }

    void AddResults(App& app, const sample::NameList& list) {
        app.Start(CM_ADD_RESULTS);
        app.ChooseFile("Open MORV Result", At(app, list.name + ".rst"));
        Dialog add = app.WaitDialog("Add Resource");
        ASSERT_EQ(add.Rows(ADD_OFFERED), list.rows);
        std::vector<int> all(list.rows.size());
        std::iota(all.begin(), all.end(), 0);
        add.SelectRows(ADD_OFFERED, all);
        add.Click(ADD_ADD);
        add.Click(ADD_OK);
        app.Finish();
    }

    void MakeProjectFile(App& app) {
        app.Command(CM_NEW_MORV);
        app.CommandWithFile(CM_ADD_MAIN, "Add MORV Main", At(app, source_.main));
        for (const sample::System& system : source_.systems)
            app.CommandWithFile(CM_ADD_SYSTEM, "Add MORV System", At(app, system.name + ".lse"));
        for (const std::string& name : source_.externs)
            app.CommandWithFile(CM_ADD_EXTERN, "Add MORV Extern", At(app, name));
        app.CommandWithFile(CM_ADD_DDE, "Add MORV DDE", At(app, source_.dde + ".dde"));
        for (const sample::NameList& list : source_.results)
            AddResults(app, list);
        app.Start(CM_HISTORY_LENGTH);
        Dialog history = app.WaitDialog("History Length");
        history.SetText(HL_LENGTH, std::to_string(source_.history));
        history.Click(IDOK);
        app.Finish();
        app.CommandWithFile(CM_SAVE_AS_MORV, "Save MORV Project As...",
                            At(app, source_.name + ".mrv"));
        app.Command(CM_CLOSE_MORV);
    }

    static void MakeTools(App& app) {
        app.Start(CM_TOOLS);
        Dialog tools = app.WaitDialog("Compile Tools");
        tools.SetText(TOOL_MORV_PATH, app.Path("morv"));
        tools.Click(IDOK);
        app.Finish();
    }

    // Everything, in an order that never needs a file that is not there yet. The results come
    // before the project: their editor counts each into the project that is open.
    void MakeAll(App& app) {
        for (const sample::NameList& list : source_.results)
            MakeResults(app, list);
        for (const sample::NameList& list : source_.tags)
            MakeTags(app, list);
        for (const sample::Dde& dde : source_.dde_files)
            MakeDde(app, dde);
        for (const sample::System& system : source_.systems)
            MakeSystem(app, system);
        MakeProjectFile(app);
        MakeTools(app);
    }

    Source source_;
    Contents written_;
    std::string tools_;
};

TEST_F(BuildSample, EveryFileIsTheOneThatTheWritersGive) {
    App& app = Running();
    ASSERT_EQ(FilesIn(app.Path(source_.name)),
              (TextRows{"burner.rul", "burner.siz", "cycle.cpp", "main.cpp", "steam.rul",
                        "steam.siz", "units.cpp"}));
    MakeAll(app);
    for (const auto& [name, bytes] : written_) {
        const std::string made = FileContent(At(app, name));
        if (name.ends_with(".tag")) {
            // The list of tags is sorted, so the file is too, whatever order they were typed in.
            EXPECT_NE(made, bytes);
            EXPECT_EQ(SortedRecords(made, kTagSize), SortedRecords(bytes, kTagSize));
        } else {
            EXPECT_TRUE(made == bytes) << name << ": " << Difference(made, bytes);
        }
    }
    EXPECT_TRUE(FileContent(app.Path("toolfile.tol")) == tools_);
    // And nothing besides: every working copy was moved to its place.
    EXPECT_EQ(FilesIn(app.Path(source_.name)).size(), written_.size() + 7);
    EXPECT_EQ(FilesIn(app.Path("temp")), TextRows{});
    EXPECT_EQ(FilesIn(app.Work().Folder()),
              (TextRows{source_.name, "morv", "temp", "toolfile.tol", "zentrik.exe"}));
    EXPECT_EQ(app.Exit(), 0u);
}

} // namespace

} // namespace gui
