// The sample project made by hand: every record file of it from its plain texts, through nothing
// but the program's dialogs.
#pragma once

#include "tests/gui/driver/app.h"
#include "tests/gui/sample_parts.h"

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
    SampleMaking(App& app, const SampleParts& source, std::string work, Look look = {});

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
    void Results(const NameList& list);
    void Tags(const NameList& list);
    void DdeItems(const DdeParts& dde);

    void Types(const Dialog& facts, const SystemParts& system);
    void Facts(const SystemParts& system);
    void ChooseFacts(const SystemParts& system);
    void Opposites(const SystemParts& system);
    void Variables(const SystemParts& system);
    void InitialFacts(const SystemParts& system);
    void System(const SystemParts& system);

    void ChooseResults(const NameList& list);
    void History();
    void Project();
    void Tools(const std::string& compiler);

    App& app_;
    const SampleParts& source_;
    std::string work_;
    Look look_;
};

} // namespace gui
