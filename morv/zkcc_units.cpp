#include "zkcc_units.h"

#include "runtime_files.h"
#include "zkcc_files.h"

#include <algorithm>
#include <iterator>

namespace morv {

namespace fs = std::filesystem;

namespace {

// Rules are calls of the runtime: optimising makes them hardly faster, but takes twice as long.
constexpr char kQuick[] = "-O0", kOptimised[] = "-O1";

constexpr char kHeaderMade[] = ".gch";

std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

class List {
public:
    List(Workplace& place, const Tools& tools) : place_(place), job_(place.job), tools_(tools) {}

    std::vector<Unit> All(const Translation& translation) {
        AddTranslation(translation);
        AddSource("runtime-ddecom.o", job_.project / job_.dde, "", kQuick);
        if (job_.console) {
            AddRuntime(std::begin(kConsoleSources), std::end(kConsoleSources));
            return std::move(units_);
        }
        AddSource("runtime-api.o", job_.runtime / HostPath(job_.api + ".cpp"), "", kOptimised);
        AddRuntime(std::begin(kRuntimeSources), std::end(kRuntimeSources));
        // The script is named without its folder: the resource compiler does not take folders with
        // blanks everywhere.
        units_.push_back({"runtime-resources.o",
                          job_.resource,
                          tools_.resource_compiler,
                          job_.runtime,
                          {"-O", "coff"},
                          "",
                          ResourceFiles(job_),
                          false,
                          "",
                          {}});
        return std::move(units_);
    }

private:
    // The first source, the largest, does not wait for the precompiled header.
    void AddTranslation(const Translation& translation) {
        const std::string near = Near();
        const auto add_near = [&] {
            if (!near.empty())
                units_.back().options.push_back(near);
        };
        const bool header = !translation.headers.empty();
        if (header) {
            const Piece& piece = translation.headers.front();
            AddSource(piece.name + kHeaderMade, piece.name, piece.text, kQuick);
            units_.back().options.pop_back();
            units_.back().options.insert(units_.back().options.end(), {"-x", "c++-header"});
            add_near();
        }
        for (const Piece& piece : translation.sources) {
            const bool first = &piece == &translation.sources.front();
            AddSource(WithoutExtension(piece.name) + ".o", piece.name, piece.text,
                      first ? kOptimised : kQuick, header && !first);
            add_near();
        }
    }

    // For 64 bits a compiler reaches what stands in other sources by way of a pointer of its own
    // for each, in case that it stands in a DLL far away. The facts and results of a program stand
    // in it: without these pointers linking thousands of them takes a tenth of the time.
    std::string Near() {
        if (job_.console)
            return "";
        const std::string machine = MachineOf(place_, tools_.compiler);
        return machine.compare(0, 7, "x86_64-") == 0 ? "-mcmodel=small" : "";
    }

    std::vector<std::string> CompilerOptions(const char* level) const {
        std::vector<std::string> options = {"-std=c++17", level, "-Wall",
                                            "-fno-diagnostics-show-caret", "-fmax-errors=20"};
        for (const fs::path& folder : {job_.console ? place_.cache.File("") : fs::path(),
                                       job_.project, job_.runtime, job_.include})
            if (!folder.empty()) {
                options.emplace_back("-I");
                options.push_back(folder.string());
            }
        return options;
    }

    void AddSource(const std::string& made, const fs::path& source, const std::string& text,
                   const char* level, bool precompiled = false) {
        Unit unit{made,
                  source.string(),
                  tools_.compiler,
                  place_.cache.File(""),
                  CompilerOptions(level),
                  text,
                  {},
                  precompiled,
                  "",
                  {}};
        unit.options.emplace_back("-c");
        units_.push_back(std::move(unit));
    }

    template <class Names> void AddRuntime(Names from, Names to) {
        std::for_each(from, to, [this](const char* name) {
            AddSource(WithoutExtension(name) + ".o", job_.runtime / name, "", kOptimised);
        });
    }

    Workplace& place_;
    const Job& job_;
    const Tools& tools_;
    std::vector<Unit> units_;
};

} // namespace

std::vector<fs::path> ResourceFiles(const Job& job) {
    const fs::path script = job.runtime / HostPath(job.resource);
    std::vector<fs::path> files = {script};
    std::string text;
    ReadFile(script, text);
    std::error_code error;
    for (fs::directory_iterator at(job.runtime, error), end; !error && at != end;
         at.increment(error))
        if (text.find(at->path().filename().string()) != std::string::npos)
            files.push_back(at->path());
    return files;
}

bool Unit::IsHeader() const {
    return made.size() > 4 && made.compare(made.size() - 4, 4, kHeaderMade) == 0;
}

std::vector<Unit> ListUnits(Workplace& place, const Tools& tools, const Translation& translation) {
    return List(place, tools).All(translation);
}

} // namespace morv
