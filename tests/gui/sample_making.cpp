#include "tests/gui/sample_making.h"

#include "tests/gui/driver/failure.h"
#include "tests/gui/fact_fields.h"

#include <algorithm>
#include <numeric>

namespace gui {

SampleMaking::SampleMaking(App& app, const SampleParts& source, std::string work, Look look)
    : app_(app), source_(source), work_(std::move(work)), look_(std::move(look)) {}

std::string SampleMaking::At(const std::string& name) const {
    return work_ + "\\" + source_.name + "\\" + name;
}

void SampleMaking::Show(const std::string& step, HWND window) const {
    if (look_)
        look_(step, window);
}

// The three editors of lists that ask for their file when they are closed.

void SampleMaking::Names(int command, const std::string& title, int edit,
                         const std::vector<std::string>& names, const std::string& save_title,
                         const std::string& path) {
    app_.Start(command);
    Dialog dialog = app_.WaitDialog(title);
    for (const std::string& name : names) {
        dialog.SetText(edit, name);
        if (name == names.back())
            Show(command == CM_NEW_TAGS ? "tags" : "results", dialog.Window());
        dialog.Click(IDOK);
    }
    dialog.Press(TAGS_CLOSE);
    app_.ChooseFile(save_title, path);
    app_.Finish();
    app_.Finish();
}

void SampleMaking::Results(const NameList& list) {
    Names(CM_NEW_RESULTS, "Results", RES_NAME, list.rows, "Save Resource As...",
          At(list.name + ".rst"));
}

void SampleMaking::Tags(const NameList& list) {
    Names(CM_NEW_TAGS, "Tags", TAGS_NAME, list.rows, "Save Tags As...", At(list.name + ".tag"));
}

void SampleMaking::DdeItems(const DdeParts& dde) {
    app_.Start(CM_NEW_DDE);
    Dialog dialog = app_.WaitDialog("DDE");
    dialog.SetText(DDE_NAME, dde.conversation);
    for (const auto& [name, type] : dde.items) {
        dialog.SetText(DDE_ITEM_NAME, name);
        dialog.SetText(DDE_TYPE, type);
        if (&name == &dde.items.back().first)
            Show("dde", dialog.Window());
        dialog.Click(IDOK);
    }
    dialog.Press(DDE_CLOSE);
    app_.ChooseFile("New DDE Item", At(dde.name + ".dde"));
    app_.Finish();
    app_.Finish();
}

void SampleMaking::Types(const Dialog& facts, const SystemParts& system) {
    Dialog(facts).Press(KNOW_ADD_TYPE);
    Dialog types = app_.WaitDialog("Knowledge Type");
    for (const std::string& type : system.types) {
        types.SetText(KTYPE_NAME, type);
        Show("types", types.Window());
        types.Click(IDOK);
    }
    types.Click(IDCANCEL);
    app_.Finish();
}

// Facts base and knowledge types. The system is open already: it counts the types.
void SampleMaking::Facts(const SystemParts& system) {
    app_.Start(CM_NEW_FACTS_BASE);
    app_.ChooseFile("Save Facts Base As...", At(system.name + ".fac"));
    Dialog facts = app_.WaitDialog("Facts Base");
    Types(facts, system);
    for (const Dat& fact : system.base) {
        TypeFact(facts, fact);
        if (&fact == &system.base.back())
            Show("facts", facts.Window());
        facts.Click(IDOK);
    }
    facts.Click(KNOW_CLOSE);
    app_.Finish();
}

void SampleMaking::ChooseFacts(const SystemParts& system) {
    app_.Start(CM_ADD_FACTS);
    app_.ChooseFile("Open MORV Facts", At(system.name + ".fac"));
    Dialog add = app_.WaitDialog("Add Resource");
    const std::vector<std::string> offered = add.Rows(ADD_OFFERED);
    std::vector<int> rows;
    for (std::size_t i = 0; i < offered.size(); ++i)
        if (std::ranges::count(system.without, offered[i]) == 0)
            rows.push_back(static_cast<int>(i));
    add.SelectRows(ADD_OFFERED, rows);
    add.Click(ADD_ADD);
    Show("choose", add.Window());
    add.Click(ADD_OK);
    app_.Finish();
}

void SampleMaking::Opposites(const SystemParts& system) {
    app_.Start(CM_ADD_OPPOSITES);
    app_.ChooseFile("Add Opposites", At(system.name + ".rst"));
    Dialog opposites = app_.WaitDialog("Result/Opposite ");
    for (const auto& [result, opposite] : system.opposites) {
        opposites.SetText(OPP_RESULT, result);
        opposites.SetText(OPP_OPPOSITE, opposite);
        if (result == system.opposites.back().first)
            Show("opposites", opposites.Window());
        opposites.Click(OPP_ADD);
    }
    opposites.Click(OPP_CLOSE);
    app_.Finish();
}

// A new variable goes to the top of the list and the list is stored from its top, so the last one
// is added first.
void SampleMaking::Variables(const SystemParts& system) {
    app_.Start(CM_ADD_LOCAL_VARS);
    Dialog variables = app_.WaitDialog("Local Vars");
    for (auto each = system.variables.rbegin(); each != system.variables.rend(); ++each) {
        variables.SetText(VAR_NAME, each->name);
        variables.SetText(VAR_TYPE, each->type);
        variables.SetText(VAR_VALUE, each->value);
        if (each + 1 == system.variables.rend())
            Show("variables", variables.Window());
        variables.Click(VAR_ADD);
    }
    variables.Click(VAR_CLOSE);
    app_.Finish();
}

void SampleMaking::InitialFacts(const SystemParts& system) {
    app_.Start(CM_INIT_FACTS);
    app_.ChooseFile("Open DDE File", At(source_.dde.name + ".dde"));
    Dialog initial = app_.WaitDialog("Init Facts");
    const std::vector<std::string> words = initial.ComboRows(INIT_CERTAINTY);
    for (const auto& [fact, value, certainty] : system.initial) {
        initial.SetText(INIT_FACT, fact);
        initial.SetText(INIT_VALUE, value);
        const auto word = std::ranges::find(words, certainty) - words.begin();
        initial.SelectCombo(INIT_CERTAINTY, static_cast<int>(word));
        if (fact == system.initial.back().fact)
            Show("initial", initial.Window());
        initial.Click(IDOK);
    }
    initial.Click(INIT_CLOSE);
    app_.Finish();
}

void SampleMaking::System(const SystemParts& system) {
    app_.Command(CM_NEW_SYSTEM);
    Facts(system);
    app_.CommandWithFile(CM_ADD_RULES, "Open MORV Rules", At(system.rules));
    ChooseFacts(system);
    Opposites(system);
    if (!system.header.empty())
        app_.CommandWithFile(CM_ADD_HEADER, "Add System Header", At(system.header));
    Variables(system);
    InitialFacts(system);
    app_.CommandWithFile(CM_SAVE_AS_SYSTEM, "Save MORV System As...", At(system.name + ".lse"));
    Show("system", app_.Frame());
    app_.Command(CM_CLOSE_SYSTEM);
}

void SampleMaking::ChooseResults(const NameList& list) {
    app_.Start(CM_ADD_RESULTS);
    app_.ChooseFile("Open MORV Result", At(list.name + ".rst"));
    Dialog add = app_.WaitDialog("Add Resource");
    if (add.Rows(ADD_OFFERED) != list.rows)
        Fail("other results are offered than " + list.name + ".rst has");
    std::vector<int> all(list.rows.size());
    std::iota(all.begin(), all.end(), 0);
    add.SelectRows(ADD_OFFERED, all);
    add.Click(ADD_ADD);
    add.Click(ADD_OK);
    app_.Finish();
}

void SampleMaking::History() {
    app_.Start(CM_HISTORY_LENGTH);
    Dialog history = app_.WaitDialog("History Length");
    history.SetText(HL_LENGTH, std::to_string(source_.history));
    history.Click(IDOK);
    app_.Finish();
}

void SampleMaking::Project() {
    app_.Command(CM_NEW_MORV);
    app_.CommandWithFile(CM_ADD_MAIN, "Add MORV Main", At(source_.main));
    for (const SystemParts& system : source_.systems)
        app_.CommandWithFile(CM_ADD_SYSTEM, "Add MORV System", At(system.name + ".lse"));
    for (const std::string& name : source_.externs)
        app_.CommandWithFile(CM_ADD_EXTERN, "Add MORV Extern", At(name));
    app_.CommandWithFile(CM_ADD_DDE, "Add MORV DDE", At(source_.dde.name + ".dde"));
    for (const NameList& list : source_.results)
        ChooseResults(list);
    History();
    app_.CommandWithFile(CM_SAVE_AS_MORV, "Save MORV Project As...", At(source_.name + ".mrv"));
    Show("project", app_.Frame());
    app_.Command(CM_CLOSE_MORV);
}

void SampleMaking::Tools(const std::string& compiler) {
    app_.Start(CM_TOOLS);
    Dialog tools = app_.WaitDialog("Compile Tools");
    tools.SetText(TOOL_MORV_PATH, work_ + "\\morv");
    tools.SetText(TOOL_COMMAND, compiler);
    Show("tools", tools.Window());
    tools.Click(IDOK);
    app_.Finish();
}

void SampleMaking::All(const std::string& compiler) {
    for (const NameList& list : source_.results)
        Results(list);
    for (const NameList& list : source_.tags)
        Tags(list);
    DdeItems(source_.dde);
    for (const SystemParts& system : source_.systems)
        System(system);
    Project();
    Tools(compiler);
}

} // namespace gui
