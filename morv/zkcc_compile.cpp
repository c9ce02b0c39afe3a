#include "zkcc_compile.h"

#include "run_tool.h"
#include "zkcc_files.h"

#include <algorithm>

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kAtOnce = 2;
constexpr int kMostFailed = 3; // after so many files no others begin

class Compilation {
public:
    Compilation(Workplace& place, std::vector<Unit>& units) : place_(place), units_(units) {}

    bool All() {
        std::vector<std::size_t> due;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            Unit& unit = units_[i];
            std::string key = ToolPrint(unit.tool) + "\n" + unit.source + "\n" + unit.text;
            for (const std::string& option : unit.options)
                key += "\n" + option;
            for (const fs::path& file : unit.from)
                key += "\n" + file.string();
            unit.key = Fingerprint(key);
            unit.kept = place_.cache.Find(unit.made, unit.key);
            if (unit.kept.identity.empty())
                due.push_back(i);
        }
        if (!due.empty() && !Run(WithoutNeedlessHeader(due)))
            return false;
        for (const Unit& unit : units_)
            place_.messages->Add(unit.kept.said);
        return true;
    }

private:
    // Without a piece to compile nobody reads the precompiled header.
    std::vector<std::size_t> WithoutNeedlessHeader(std::vector<std::size_t> due) const {
        if (units_[due.front()].IsHeader() &&
            std::none_of(due.begin(), due.end(),
                         [&](std::size_t unit) { return units_[unit].precompiled; }))
            due.erase(due.begin());
        return due;
    }

    Command CommandOf(std::size_t number) const {
        const Unit& unit = units_[number];
        Command command{unit.tool, unit.options, unit.folder, place_.Passing(number, ".said"), -1};
        if (unit.IsResource())
            command.arguments.insert(command.arguments.begin(), unit.source);
        else
            for (const std::string& word : {std::string("-MMD"), std::string("-MF"),
                                            place_.Passing(number, ".d").string(), unit.source})
                command.arguments.push_back(word);
        command.arguments.emplace_back("-o");
        command.arguments.push_back(place_.Passing(number, ".made").string());
        return command;
    }

    bool Run(const std::vector<std::size_t>& due) {
        std::vector<Command> commands;
        for (const std::size_t unit : due) {
            commands.push_back(CommandOf(unit));
            if (units_[unit].precompiled && due.front() == 0)
                commands.back().after = 0;
        }
        place_.screen.Tell("work Compiling " + place_.job.program + ".exe");
        std::size_t done = 0;
        int failed = 0;
        const std::vector<int> codes =
            RunTools(commands, kAtOnce, [&](std::size_t command, int code) {
                place_.screen.Tell("step " + std::to_string(++done) + " of " +
                                   std::to_string(due.size() + 1));
                if (code != 0 || !Take(due[command]))
                    ++failed;
                return failed < kMostFailed;
            });
        for (std::size_t i = 0; i < due.size() && failed > 0; ++i)
            if (codes[i] != kNotRun && (codes[i] != 0 || units_[due[i]].kept.identity.empty()))
                TellOf(due[i], codes[i]);
        return failed == 0;
    }

    std::string Said(std::size_t unit) const {
        std::string said;
        ReadFile(place_.Passing(unit, ".said"), said);
        return said;
    }

    // Takes what was made into the cache.
    bool Take(std::size_t number) {
        Unit& unit = units_[number];
        std::vector<fs::path> from = unit.from;
        if (std::string text; ReadFile(place_.Passing(number, ".d"), text))
            from = ReadDependencies(text);
        if (unit.precompiled && !from.empty())
            from.insert(from.end(), units_[0].kept.from.begin(), units_[0].kept.from.end());
        unit.kept = place_.cache.Keep(unit.made, unit.key, place_.Passing(number, ".made"), from,
                                      Said(number));
        return !unit.kept.identity.empty();
    }

    void TellOf(std::size_t unit, int code) {
        const std::string tool =
            units_[unit].IsResource() ? ResourceCompilerName() : CompilerName(place_.job);
        place_.messages->Add(Said(unit));
        if (code == kStopped)
            place_.Fail(tool + " did not start or was ended: " + units_[unit].source);
        else if (code == 0)
            place_.Fail("cannot keep " + units_[unit].made + ": is the disk full?");
        else
            place_.Fail(tool + " ended with " + std::to_string(code));
    }

    Workplace& place_;
    std::vector<Unit>& units_;
};

} // namespace

bool Compile(Workplace& place, std::vector<Unit>& units) {
    return Compilation(place, units).All();
}

} // namespace morv
