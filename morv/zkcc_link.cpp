#include "zkcc_link.h"

#include "run_tool.h"
#include "zkcc_files.h"

namespace morv {

namespace fs = std::filesystem;

namespace {

// In the cache: the record of the program that stands outside.
constexpr char kProgram[] = "program";

std::vector<const char*> LinkOptions(const Job& job) {
    if (!job.console)
        return {"-static", "-mwindows", "-O1"};
#ifdef _WIN32
    return {"-static"};
#else
    return {};
#endif
}

class Linking {
public:
    Linking(Workplace& place, const fs::path& compiler, const std::vector<Unit>& units)
        : place_(place), compiler_(compiler), units_(units) {}

    bool All() {
        std::string key = ToolPrint(compiler_), objects;
        for (const Unit& unit : units_) {
            if (unit.IsHeader())
                continue;
            key += "\n" + unit.kept.identity;
            objects += unit.made + "\n";
        }
        key_ = Fingerprint(key);
        return IsMade() || (Run(objects) && PutInPlace());
    }

private:
    // The program that is there was made from these objects and is as it was made.
    bool IsMade() {
        place_.cache.Use(kProgram);
        std::string record;
        return ReadFile(place_.cache.File(kProgram), record) &&
               record == key_ + " " + FileFingerprint(ProgramOf(place_.job));
    }

    bool Run(const std::string& objects) {
        place_.screen.Tell("work Linking " + place_.job.program + ".exe");
        // The names of all objects together may be too long for a command line.
        const std::size_t number = units_.size();
        if (!WriteFile(place_.Passing(number, ".list"), objects))
            return place_.Fail("cannot write the list of objects: is the disk full?");
        made_ = place_.Passing(number, ".exe");
        Command command{
            compiler_,
            {"@" + place_.Passing(number, ".list").filename().string(), "-o", made_.string()},
            place_.cache.File(""),
            place_.Passing(number, ".said"),
            -1};
        for (const char* option : LinkOptions(place_.job))
            command.arguments.insert(command.arguments.begin(), option);
        const int code = RunTools({command}, 1, [](std::size_t, int) { return true; }).front();
        std::string said;
        ReadFile(place_.Passing(number, ".said"), said);
        place_.messages->Add(said);
        std::error_code error;
        if (code == 0 && fs::file_size(made_, error) > 0 && !error)
            return true;
        const std::string tool = CompilerName(place_.job);
        return place_.Fail(code == kStopped ? tool + " did not start or was ended"
                                            : tool + " ended with " + std::to_string(code));
    }

    // The program appears whole. Windows keeps one that runs from being replaced, but it can be
    // moved aside.
    bool PutInPlace() {
        const fs::path target = ProgramOf(place_.job);
        const std::string print = FileFingerprint(made_);
        std::error_code error;
        fs::remove(place_.cache.File(kProgram), error);
        fs::rename(made_, target, error);
        if (error) {
            const fs::path aside = place_.Passing(0, ".running");
            std::error_code ignored;
            fs::rename(target, aside, ignored);
            fs::rename(made_, target, error);
            if (error)
                fs::rename(aside, target, ignored);
        }
        if (error)
            return place_.Fail("cannot replace " + place_.job.program + ".exe: " + error.message());
        WriteFile(place_.cache.File(kProgram), key_ + " " + print);
        return true;
    }

    Workplace& place_;
    const fs::path& compiler_;
    const std::vector<Unit>& units_;
    std::string key_;
    fs::path made_; // the new program
};

} // namespace

bool Link(Workplace& place, const fs::path& compiler, const std::vector<Unit>& units) {
    return Linking(place, compiler, units).All();
}

} // namespace morv
