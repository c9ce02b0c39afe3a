#include "zkcc_build.h"

#include "language/generated_lines.h"
#include "language/names.h"
#include "run_tool.h"
#include "translate.h"
#include "zkcc_compile.h"
#include "zkcc_files.h"
#include "zkcc_includes.h"
#include "zkcc_link.h"
#include "zkcc_tools.h"
#include "zkcc_units.h"
#include "zkcc_workplace.h"

#include <set>

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr char kLock[] = "lock";

class Build {
public:
    Build(const Job& job, Screen& screen)
        : place_(job, screen), job_(job),
          header_name_(job.rules.substr(0, job.rules.size() - 3) + "h") {}

    bool All(Faults* faults) {
        std::error_code error;
        fs::remove(job_.project / kLog, error); // of the run before
        const bool done =
            Begin() && ReadFiles() && (IsUnchanged() || (Check() && HasTools() && Make()));
        if (faults != nullptr)
            *faults = {place_.messages ? place_.messages->Errors() : std::vector<std::string>(),
                       place_.failed};
        return End(done);
    }

private:
    bool Begin() {
        std::error_code error;
        fs::create_directory(place_.cache.File(""), error);
        place_.cache.Use(kLock);
        if (!lock_.Take(place_.cache.File(kLock),
                        [&] { place_.screen.Tell("work Waiting for the run before"); }))
            return place_.Fail("cannot write in " +
                               place_.cache.File("").parent_path().filename().string());
        if (!job_.compiler.empty())
            LookFirstIn(job_.compiler);
        missing_tool_ = FindTools(job_, tools_);
        return true;
    }

    bool ReadFiles() {
        for (const auto& [name, text] : {std::pair{job_.rules, &source_}, {header_name_, &header_}})
            if (!ReadFile(job_.project / HostPath(name), *text))
                return place_.Fail("cannot read " + name);
        ReadFile(job_.project / job_.dde, dde_);
        included_ =
            ReadIncluded(header_ + "\n" + source_, {job_.project, job_.runtime, job_.include});
        place_.messages = std::make_unique<Messages>(source_, job_.rules);
        return true;
    }

    // Whether the build before had the same to do and nothing that it was made from has changed.
    bool IsUnchanged() {
        if (!missing_tool_.empty())
            return false;
        std::string key = ToolPrint(OwnProgram()) + "\n" + ToolPrint(tools_.compiler) + "\n" +
                          ToolPrint(tools_.resource_compiler);
        for (const std::string& word :
             {job_.api, job_.resource, job_.rules, job_.dde, job_.runtime.string(),
              job_.project.string(), job_.include.string(), job_.compiler.string(), job_.program,
              std::string(job_.console ? "console" : "window"), Fingerprint(source_),
              Fingerprint(header_), Fingerprint(dde_), Fingerprint(included_.text),
              std::string(included_.all ? "all" : "some")})
            key += "\n" + word;
        if (!job_.console)
            for (const fs::path& file : ResourceFiles(job_))
                key += "\n" + file.string();
        key_ = Fingerprint(key);
        std::string log;
        if (!place_.cache.Remembers(key_, log))
            return false;
        for (const std::string& line : LinesOf(log))
            place_.messages->Note(line);
        unchanged_ = true;
        return true;
    }

    // Names and blocks, before a compiler sees them.
    bool Check() {
        ProjectNames names =
            ReadNames(source_, job_.rules, header_, header_name_, dde_, included_.text);
        names.others_are_all = included_.all;
        Messages& messages = *place_.messages;
        for (const NameFault& fault : CheckNames(names))
            messages.Complain(fault.place + ": " + (fault.where.empty() ? "" : fault.where + ": ") +
                              fault.text);
        translation_ = Translate(source_, job_.rules, header_);
        for (const std::string& error : translation_.errors)
            messages.Complain(error);
        for (const std::string& note : translation_.notes)
            messages.Note(note);
        messages.SetLabels(translation_.places);
        return messages.Errors().empty();
    }

    bool HasTools() { return missing_tool_.empty() || place_.Fail(missing_tool_); }

    bool Make() {
        if (!PutPieces())
            return false;
        units_ = ListUnits(place_, tools_, translation_);
        if (!Compile(place_, units_) || !Link(place_, tools_.compiler, units_))
            return false;
        Remember();
        return true;
    }

    bool PutPieces() {
        // The generated files include it and use nothing of it; only Windows' compilers have it.
        if (job_.console)
            translation_.headers.push_back({"dos.h", ""});
        for (const std::vector<Piece>* pieces : {&translation_.headers, &translation_.sources})
            for (const Piece& piece : *pieces) {
                place_.cache.Use(piece.name);
                if (!WriteFile(place_.cache.File(piece.name), piece.text))
                    return place_.Fail("cannot write " + piece.name + ": is the disk full?");
            }
        return true;
    }

    void Remember() {
        std::set<fs::path> from;
        for (const Unit& unit : units_) {
            if (unit.IsHeader() && unit.kept.identity.empty())
                continue; // nobody read it
            if (unit.kept.from.empty())
                return; // what it was made from is not known
            for (const fs::path& file : unit.kept.from)
                if (file.has_root_path()) // others are in the cache: made from the rest
                    from.insert(file);
        }
        std::string log;
        for (const std::string& line : place_.messages->Log())
            log += line + "\n";
        place_.cache.Remember(key_, {from.begin(), from.end()}, ProgramOf(job_), log);
    }

    bool End(bool done) {
        // Without what was not finished there may be room for the log.
        if (!units_.empty() || unchanged_)
            place_.cache.DropOthers();
        std::vector<std::string> lines, errors;
        if (place_.messages) {
            lines = place_.messages->Log();
            errors = place_.messages->Errors();
        }
        lines.insert(lines.end(), place_.failed.begin(), place_.failed.end());
        errors.insert(errors.end(), place_.failed.begin(), place_.failed.end());
        WriteLog(lines,
                 done ? "zkcc: made " + ProgramOf(job_).filename().string() : "zkcc: failed");
        Show(done, errors);
        return done;
    }

    void WriteLog(std::vector<std::string> lines, const std::string& last) const {
        lines.push_back(last);
        std::string text;
        for (const std::string& line : lines)
            text += line + "\r\n";
        const fs::path log = place_.Passing(0, ".log");
        std::error_code error;
        if (WriteFile(log, text))
            fs::rename(log, job_.project / kLog, error);
        // The cache may be what cannot be written.
        if (!fs::exists(job_.project / kLog, error) && !WriteFile(job_.project / kLog, text))
            std::fprintf(stderr, "zkcc: cannot write %s\n%s", kLog, text.c_str());
    }

    void Show(bool done, const std::vector<std::string>& errors) {
        Screen& screen = place_.screen;
        if (done && screen.Appeared())
            screen.Tell("made");
        if (done)
            return;
        for (const std::string& error : errors)
            screen.Tell("message " + error);
        screen.Tell("failed " + job_.program + ".exe is not made");
    }

    Workplace place_;
    Lock lock_; // of the cache
    const Job& job_;
    const std::string header_name_;
    std::string source_, header_, dde_;
    Included included_;
    std::string key_; // of all that the build is told
    bool unchanged_ = false;
    Tools tools_;
    std::string missing_tool_;
    Translation translation_;
    std::vector<Unit> units_;
};

} // namespace

bool BuildProgram(const Job& job, Screen& screen, Faults* faults) {
    return Build(job, screen).All(faults);
}

void TellFailure(const fs::path& project, const std::string& wrong, Screen& screen) {
    if (!project.empty())
        WriteFile(project / kLog, wrong + "\r\nzkcc: failed\r\n");
    screen.Tell("failed " + wrong);
}

} // namespace morv
