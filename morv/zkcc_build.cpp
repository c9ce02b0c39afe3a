#include "zkcc_build.h"

#include "language/names.h"
#include "run_tool.h"
#include "runtime_files.h"
#include "translate.h"
#include "zkcc_cache.h"
#include "zkcc_files.h"
#include "zkcc_includes.h"
#include "zkcc_messages.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace morv {

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr char kCompiler[] = "g++";
constexpr char kResourceCompiler[] = "windres";
#else
constexpr char kCompiler[] = "x86_64-w64-mingw32-g++";
constexpr char kResourceCompiler[] = "x86_64-w64-mingw32-windres";
#endif

constexpr char kHostCompiler[] = "g++";

constexpr char kCache[] = "zkcc.cache";
constexpr char kLock[] = "lock";
constexpr char kProgram[] =
    "program"; // in the cache: the record of the program that stands outside
constexpr std::size_t kAtOnce = 2;
// Rules are calls of the runtime: optimising makes them hardly faster, but takes twice as long.
constexpr char kQuick[] = "-O0", kOptimised[] = "-O1";
constexpr int kMostFailed = 3; // after so many files no others begin

std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

// A file to be compiled.
struct Unit {
    std::string made;   // in the cache
    std::string source; // as the command names it
    fs::path tool, folder;
    std::vector<std::string> options; // all but source and target
    std::string text;                 // of the source, where only the text counts
    std::vector<fs::path> from;       // what it is made from, for a tool that does not tell
    bool precompiled = false;         // made with the precompiled header
    std::string key;
    Kept kept;

    bool IsResource() const { return !from.empty(); }
};

class Build {
public:
    Build(const Job& job, Screen& screen)
        : job_(job), screen_(screen), cache_(job.project / kCache),
          header_name_(job.rules.substr(0, job.rules.size() - 3) + "h") {}

    bool All(Faults* faults) {
        std::error_code error;
        fs::remove(job_.project / kLog, error); // of the run before
        const bool done = Begin() && ReadFiles() && Check() && FindTools() && PutPieces() &&
                          Compile() && Link() && PutInPlace();
        if (faults != nullptr)
            *faults = {messages_ ? messages_->Errors() : std::vector<std::string>(), early_};
        return End(done);
    }

private:
    bool Fail(const std::string& text) {
        early_.push_back(text);
        return false;
    }

    bool Begin() {
        std::error_code error;
        fs::create_directory(cache_.File(""), error);
        cache_.Use(kLock);
        if (!lock_.Take(cache_.File(kLock),
                        [&] { screen_.Tell("work Waiting for the run before"); }))
            return Fail("cannot write in " + std::string(kCache));
        if (!job_.compiler.empty())
            LookFirstIn(job_.compiler);
        return true;
    }

    bool ReadFiles() {
        for (const auto& [name, text] : {std::pair{job_.rules, &source_}, {header_name_, &header_}})
            if (!ReadFile(job_.project / HostPath(name), *text))
                return Fail("cannot read " + name);
        messages_ = std::make_unique<Messages>(source_, job_.rules);
        return true;
    }

    // Names and blocks, before a compiler sees them.
    bool Check() {
        std::string dde;
        ReadFile(job_.project / job_.dde, dde);
        const Included included =
            ReadIncluded(header_ + "\n" + source_, {job_.project, job_.runtime, job_.include});
        ProjectNames names =
            ReadNames(source_, job_.rules, header_, header_name_, dde, included.text);
        names.others_are_all = included.all;
        for (const NameFault& fault : CheckNames(names))
            messages_->Complain(fault.place + ": " +
                                (fault.where.empty() ? "" : fault.where + ": ") + fault.text);
        translation_ = Translate(source_, job_.rules, header_);
        for (const std::string& error : translation_.errors)
            messages_->Complain(error);
        for (const std::string& note : translation_.notes)
            messages_->Note(note);
        messages_->SetLabels(translation_.places);
        return messages_->Errors().empty();
    }

    // In the compiler path a tool may have its plain name.
    fs::path Tool(const std::string& name) const {
        const std::string plain = name.substr(name.rfind('-') + 1);
        for (const std::string& file : {name, name + ".exe", plain, plain + ".exe"}) {
            std::error_code error;
            if (!job_.compiler.empty() && fs::exists(job_.compiler / file, error))
                return job_.compiler / file;
        }
        return FindTool(name);
    }

    bool FindTools() {
        if (job_.console) {
            compiler_ = Tool(kHostCompiler);
            return !compiler_.empty() || Fail("no g++ found in the PATH");
        }
        for (const auto& [name, tool] :
             {std::pair{kResourceCompiler, &resource_compiler_}, {kCompiler, &compiler_}}) {
            *tool = Tool(name);
            if (tool->empty())
                return Fail(std::string("no ") + name +
                            " found: g++ and windres of MinGW-w64 are needed, in the Compiler Path "
                            "or the PATH");
        }
        return true;
    }

    const char* CompilerName() const { return job_.console ? kHostCompiler : kCompiler; }

    bool PutPieces() {
        // The generated files include it and use nothing of it; only Windows' compilers have it.
        if (job_.console)
            translation_.headers.push_back({"dos.h", ""});
        for (const std::vector<Piece>* pieces : {&translation_.headers, &translation_.sources})
            for (const Piece& piece : *pieces) {
                cache_.Use(piece.name);
                if (!WriteFile(cache_.File(piece.name), piece.text))
                    return Fail("cannot write " + piece.name + ": is the disk full?");
            }
        return true;
    }

    std::vector<std::string> CompilerOptions(const char* level) const {
        std::vector<std::string> options = {"-std=c++17", level, "-Wall",
                                            "-fno-diagnostics-show-caret", "-fmax-errors=20"};
        for (const fs::path& folder : {job_.console ? cache_.File("") : fs::path(), job_.project,
                                       job_.runtime, job_.include})
            if (!folder.empty()) {
                options.emplace_back("-I");
                options.push_back(folder.string());
            }
        return options;
    }

    void AddSource(const std::string& made, const fs::path& source, const std::string& text,
                   const char* level = kOptimised, bool precompiled = false) {
        Unit unit{made,
                  source.string(),
                  compiler_,
                  cache_.File(""),
                  CompilerOptions(level),
                  text,
                  {},
                  precompiled,
                  "",
                  {}};
        unit.options.emplace_back("-c");
        units_.push_back(std::move(unit));
    }

    // The precompiled header comes first, and what is linked in its order. The first source, the
    // largest, does not wait for it.
    void ListUnits() {
        const bool header = !translation_.headers.empty();
        if (header) {
            const Piece& piece = translation_.headers.front();
            AddSource(piece.name + ".gch", piece.name, piece.text, kQuick);
            units_.back().options.pop_back();
            units_.back().options.insert(units_.back().options.end(), {"-x", "c++-header"});
        }
        for (const Piece& piece : translation_.sources) {
            const bool first = &piece == &translation_.sources.front();
            AddSource(WithoutExtension(piece.name) + ".o", piece.name, piece.text,
                      first ? kOptimised : kQuick, header && !first);
        }
        AddSource("runtime-ddecom.o", job_.project / job_.dde, "", kQuick);
        const auto add_of_runtime = [this](const char* name) {
            AddSource(WithoutExtension(name) + ".o", job_.runtime / name, "");
        };
        if (job_.console) {
            std::for_each(std::begin(kConsoleSources), std::end(kConsoleSources), add_of_runtime);
            return;
        }
        AddSource("runtime-api.o", job_.runtime / HostPath(job_.api + ".cpp"), "");
        std::for_each(std::begin(kRuntimeSources), std::end(kRuntimeSources), add_of_runtime);
        // The script is named without its folder: the resource compiler does not take folders with
        // blanks everywhere.
        units_.push_back({"runtime-resources.o",
                          job_.resource,
                          resource_compiler_,
                          job_.runtime,
                          {"-O", "coff"},
                          "",
                          ResourceFiles(),
                          false,
                          "",
                          {}});
    }

    // The script and what it names of its folder.
    std::vector<fs::path> ResourceFiles() const {
        const fs::path script = job_.runtime / HostPath(job_.resource);
        std::vector<fs::path> files = {script};
        std::string text;
        ReadFile(script, text);
        std::error_code error;
        for (fs::directory_iterator at(job_.runtime, error), end; !error && at != end;
             at.increment(error))
            if (text.find(at->path().filename().string()) != std::string::npos)
                files.push_back(at->path());
        return files;
    }

    // A tool that was exchanged makes everything anew.
    static std::string ToolPrint(const fs::path& tool) {
        std::error_code error;
        return tool.string() + " " + std::to_string(fs::file_size(tool, error)) + " " +
               std::to_string(fs::last_write_time(tool, error).time_since_epoch().count());
    }

    bool Compile() {
        ListUnits();
        std::vector<std::size_t> due;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            Unit& unit = units_[i];
            std::string key = ToolPrint(unit.tool) + "\n" + unit.source + "\n" + unit.text;
            for (const std::string& option : unit.options)
                key += "\n" + option;
            for (const fs::path& file : unit.from)
                key += "\n" + file.string();
            unit.key = Fingerprint(key);
            unit.kept = cache_.Find(unit.made, unit.key);
            if (unit.kept.identity.empty())
                due.push_back(i);
        }
        if (!due.empty() && !Run(WithoutNeedlessHeader(due)))
            return false;
        for (const Unit& unit : units_)
            messages_->Add(unit.kept.said);
        return true;
    }

    // Without a piece to compile nobody reads the precompiled header.
    std::vector<std::size_t> WithoutNeedlessHeader(std::vector<std::size_t> due) const {
        const bool header = !translation_.headers.empty() && due.front() == 0;
        if (header && std::none_of(due.begin(), due.end(),
                                   [&](std::size_t unit) { return units_[unit].precompiled; }))
            due.erase(due.begin());
        return due;
    }

    fs::path Passing(std::size_t unit, const char* extension) const {
        return cache_.File(std::to_string(ProcessNumber()) + "-" + std::to_string(unit) +
                           extension);
    }

    Command CommandOf(std::size_t number) const {
        const Unit& unit = units_[number];
        Command command{unit.tool, unit.options, unit.folder, Passing(number, ".said"), -1};
        if (unit.IsResource())
            command.arguments.insert(command.arguments.begin(), unit.source);
        else
            for (const std::string& word : {std::string("-MMD"), std::string("-MF"),
                                            Passing(number, ".d").string(), unit.source})
                command.arguments.push_back(word);
        command.arguments.emplace_back("-o");
        command.arguments.push_back(Passing(number, ".made").string());
        return command;
    }

    bool Run(const std::vector<std::size_t>& due) {
        std::vector<Command> commands;
        for (const std::size_t unit : due) {
            commands.push_back(CommandOf(unit));
            if (units_[unit].precompiled && due.front() == 0)
                commands.back().after = 0;
        }
        screen_.Tell("work Compiling " + job_.program + ".exe");
        std::size_t done = 0;
        int failed = 0;
        const std::vector<int> codes =
            RunTools(commands, kAtOnce, [&](std::size_t command, int code) {
                screen_.Tell("step " + std::to_string(++done) + " of " +
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
        ReadFile(Passing(unit, ".said"), said);
        return said;
    }

    // Takes what was made into the cache.
    bool Take(std::size_t number) {
        Unit& unit = units_[number];
        std::vector<fs::path> from = unit.from;
        if (std::string text; ReadFile(Passing(number, ".d"), text))
            from = ReadDependencies(text);
        if (unit.precompiled && !from.empty())
            from.insert(from.end(), units_[0].kept.from.begin(), units_[0].kept.from.end());
        unit.kept = cache_.Keep(unit.made, unit.key, Passing(number, ".made"), from, Said(number));
        return !unit.kept.identity.empty();
    }

    void TellOf(std::size_t unit, int code) {
        const std::string tool = units_[unit].IsResource() ? kResourceCompiler : CompilerName();
        messages_->Add(Said(unit));
        if (code == kStopped)
            Fail(tool + " did not start or was ended: " + units_[unit].source);
        else if (code == 0)
            Fail("cannot keep " + units_[unit].made + ": is the disk full?");
        else
            Fail(tool + " ended with " + std::to_string(code));
    }

    bool Link() {
        std::string key = ToolPrint(compiler_), objects;
        for (const Unit& unit : units_) {
            if (unit.made.size() > 4 && unit.made.compare(unit.made.size() - 4, 4, ".gch") == 0)
                continue;
            key += "\n" + unit.kept.identity;
            objects += unit.made + "\n";
        }
        link_key_ = Fingerprint(key);
        if (IsMade())
            return true;
        screen_.Tell("work Linking " + job_.program + ".exe");
        // The names of all objects together may be too long for a command line.
        const std::size_t number = units_.size();
        if (!WriteFile(Passing(number, ".list"), objects))
            return Fail("cannot write the list of objects: is the disk full?");
        made_ = Passing(number, ".exe");
        Command command{compiler_,
                        {"@" + Passing(number, ".list").filename().string(), "-o", made_.string()},
                        cache_.File(""),
                        Passing(number, ".said"),
                        -1};
        for (const char* option : LinkOptions())
            command.arguments.insert(command.arguments.begin(), option);
        const int code = RunTools({command}, 1, [](std::size_t, int) { return true; }).front();
        messages_->Add(Said(number));
        std::error_code error;
        if (code == 0 && fs::file_size(made_, error) > 0 && !error)
            return true;
        return Fail(code == kStopped
                        ? std::string(CompilerName()) + " did not start or was ended"
                        : std::string(CompilerName()) + " ended with " + std::to_string(code));
    }

    std::vector<const char*> LinkOptions() const {
        if (!job_.console)
            return {"-static", "-mwindows", "-O1"};
#ifdef _WIN32
        return {"-static"};
#else
        return {};
#endif
    }

    fs::path Target() const {
        return ProgramOf(job_);
    }

    // The program that is there was made from these objects and is as it was made.
    bool IsMade() {
        cache_.Use(kProgram);
        std::string record;
        return ReadFile(cache_.File(kProgram), record) &&
               record == link_key_ + " " + FileFingerprint(Target());
    }

    // The program appears whole. Windows keeps one that runs from being replaced, but it can be
    // moved aside.
    bool PutInPlace() {
        if (made_.empty())
            return true;
        const std::string print = FileFingerprint(made_);
        std::error_code error;
        fs::remove(cache_.File(kProgram), error);
        fs::rename(made_, Target(), error);
        if (error) {
            const fs::path aside = Passing(0, ".running");
            std::error_code ignored;
            fs::rename(Target(), aside, ignored);
            fs::rename(made_, Target(), error);
            if (error)
                fs::rename(aside, Target(), ignored);
        }
        if (error)
            return Fail("cannot replace " + job_.program + ".exe: " + error.message());
        WriteFile(cache_.File(kProgram), link_key_ + " " + print);
        return true;
    }

    bool End(bool done) {
        // Without what was not finished there may be room for the log.
        if (!units_.empty())
            cache_.DropOthers();
        std::vector<std::string> lines = messages_ ? messages_->Log() : std::vector<std::string>();
        std::vector<std::string> errors =
            messages_ ? messages_->Errors() : std::vector<std::string>();
        lines.insert(lines.end(), early_.begin(), early_.end());
        errors.insert(errors.end(), early_.begin(), early_.end());
        WriteLog(lines, done ? "zkcc: made " + Target().filename().string() : "zkcc: failed");
        Show(done, errors);
        return done;
    }

    void WriteLog(std::vector<std::string> lines, const std::string& last) const {
        lines.push_back(last);
        std::string text;
        for (const std::string& line : lines)
            text += line + "\r\n";
        const fs::path log = Passing(0, ".log");
        std::error_code error;
        if (WriteFile(log, text))
            fs::rename(log, job_.project / kLog, error);
        // The cache may be what cannot be written.
        if (!fs::exists(job_.project / kLog, error) && !WriteFile(job_.project / kLog, text))
            std::fprintf(stderr, "zkcc: cannot write %s\n%s", kLog, text.c_str());
    }

    void Show(bool done, const std::vector<std::string>& errors) {
        if (done && screen_.Appeared())
            screen_.Tell("made");
        if (done)
            return;
        for (const std::string& error : errors)
            screen_.Tell("message " + error);
        screen_.Tell("failed " + job_.program + ".exe is not made");
    }

    const Job& job_;
    Screen& screen_;
    Cache cache_;
    Lock lock_; // of the cache
    const std::string header_name_;
    std::string source_, header_;
    std::unique_ptr<Messages> messages_;
    std::vector<std::string> early_; // what went wrong beside what compilers and checks say
    Translation translation_;
    fs::path compiler_, resource_compiler_;
    std::vector<Unit> units_;
    std::string link_key_;
    fs::path made_; // the new program; empty when that which is there will do
};

} // namespace

bool BuildProgram(const Job& job, Screen& screen, Faults* faults) {
    return Build(job, screen).All(faults);
}

fs::path ProgramOf(const Job& job) {
#ifndef _WIN32
    if (job.console)
        return job.project / HostPath(job.program);
#endif
    return job.project / HostPath(job.program + ".exe");
}

void TellFailure(const fs::path& project, const std::string& wrong, Screen& screen) {
    if (!project.empty())
        WriteFile(project / kLog, wrong + "\r\nzkcc: failed\r\n");
    screen.Tell("failed " + wrong);
}

} // namespace morv
