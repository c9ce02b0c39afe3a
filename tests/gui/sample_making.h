// The sample project made by hand: every record file of it from its plain texts, through nothing
// but the program's dialogs.
#pragma once

#include "examples/sample_source.h"
#include "tests/gui/driver/app.h"

#include <functional>
#include <string>

namespace gui {

class SampleMaking {
public:
    // Sees a window that is filled in and not yet answered, under the name of its step. A step that
    // is done again has the same name.
    using Look = std::function<void(const std::string& step, HWND window)>;

    // `work` is the current folder of the program. Its subfolder named like the sample has the
    // sources and rules files already, its subfolder "morv" the templates.
    SampleMaking(App& app, const sample::Source& source, std::string work, Look look = {});

    // Everything, in an order that never needs a file that is not there yet. The results come
    // before the project: their editor counts each into the project that is open. The tools file
    // names `compiler`, which may be empty.
    void All(const std::string& compiler = "");

private:
    std::string At(const std::string& name) const; // a file of the sample
    void Show(const std::string& step, HWND window) const;

    void Names(int command, const std::string& title, int edit,
               const std::vector<std::string>& names, const std::string& save_title,
               const std::string& path);
    void Results(const sample::NameList& list);
    void Tags(const sample::NameList& list);
    void DdeItems(const sample::Dde& dde);

    void Types(const Dialog& facts, const sample::System& system);
    void Facts(const sample::System& system);
    void ChooseFacts(const sample::System& system);
    void Opposites(const sample::System& system);
    void Variables(const sample::System& system);
    void InitialFacts(const sample::System& system);
    void System(const sample::System& system);

    void ChooseResults(const sample::NameList& list);
    void History();
    void Project();
    void Tools(const std::string& compiler);

    App& app_;
    const sample::Source& source_;
    std::string work_;
    Look look_;
};

} // namespace gui
