#include "console/command_line.h"

#include "console/build.h"
#include "console/check.h"
#include "console/export.h"
#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/import.h"
#include "console/move.h"
#include "console/run.h"
#include "console/show.h"
#include "console/test.h"
#include "shell/core/files.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <functional>
#include <map>

namespace console {

namespace {

const std::map<std::string, Format> kFormats = {
    {"text", Format::Text}, {"json", Format::Json}, {"sarif", Format::Sarif}};

// Lets only the names of `values` pass.
template <class Value> CLI::Validator OneOf(const std::map<std::string, Value>& values) {
    return CLI::Validator(
        [&values](const std::string& name) {
            return values.contains(name) ? std::string() : "no such format: " + name;
        },
        "");
}

// Every command's words. Its paths stay as the host gives them until all are read, for only then
// the drives are known.
class CommandLine {
public:
    CommandLine()
        : app_("Checks, builds, tries and converts Zentrik projects without a window.",
               "zentrikc") {
        app_.require_subcommand(1);
        app_.set_version_flag("--version", ZENTRIK_VERSION);
        app_.set_help_flag("-h,--help", "Print this help and exit");
        app_.footer("Exit codes: 0 nothing found, 1 findings or failures, 2 wrong use or a file "
                    "that cannot be "
                    "read or written.");
        AddCheck();
        AddBuild();
        AddShow();
        AddExport();
        AddImport();
        AddMove();
        AddRun();
        AddTest();
    }

    int Run(std::vector<std::string> words, const Report& report) {
        if (!words.empty() && !words[0].starts_with('-') && !IsCommand(words[0]))
            return report.Stop("", "no such command: " + words[0]);
        // What a script leaves empty by mistake would name the root.
        if (std::any_of(words.begin(), words.end(), [](const std::string& word) {
                return word.empty() || (word.starts_with("--") && word.ends_with('='));
            }))
            return report.Stop("", "an empty word names no file");
        std::reverse(words.begin(), words.end()); // as the parser wants them
        try {
            app_.parse(std::move(words));
        } catch (const CLI::ParseError& error) {
            return Answer(error, report);
        }
        std::vector<Drive> drives;
        for (const std::string& text : drives_) {
            const std::optional<Drive> drive = DriveIn(text);
            if (!drive)
                return report.Stop("",
                                   "--drive " + text + ": not a drive and a folder, like C=FOLDER");
            drives.push_back(*drive);
        }
        UseDrives(drives, hosts_());
        files::ReadOnlyToLook(true); // as in a checkout that is locked or only mounted to be read
        try {
            return command_(report);
        } catch (const WrongPath& wrong) {
            return report.Stop("", wrong.host + ": " + wrong.reason);
        }
    }

private:
    bool IsCommand(const std::string& word) {
        const auto named = [&](const CLI::App* command) { return command->get_name() == word; };
        return !app_.get_subcommands(named).empty();
    }

    // A wish for help, or words that are wrong.
    int Answer(const CLI::ParseError& error, const Report& report) {
        if (error.get_exit_code() != 0)
            return report.Stop("", error.what());
        std::ostringstream ignored;
        app_.exit(error, report.out, ignored);
        return kNothingFound;
    }

    CLI::App* Command(const char* name, const char* about, std::function<int(const Report&)> run,
                      std::function<std::vector<std::string>()> hosts) {
        CLI::App* command = app_.add_subcommand(name, about);
        command->add_option("--drive", drives_, "The folder that stands for a drive")
            ->type_name("C=FOLDER")
            ->take_all()
            ->allow_extra_args(false); // the words behind it are of the command
        command->callback([this, run, hosts] {
            command_ = run;
            hosts_ = hosts;
        });
        return command;
    }

    void AddCheck() {
        auto options = std::make_shared<CheckOptions>();
        auto run = [options](const Report& report) {
            options->project = ProjectPath(options->project);
            return Check(*options, report);
        };
        CLI::App* command = Command("check", "List what is wrong with a project", run,
                                    [options] { return std::vector{options->project}; });
        command->add_option("PROJECT", options->project, "The project file, .mrv")->required();
        command
            ->add_option_function<std::string>(
                "--format",
                [options](const std::string& name) { options->format = kFormats.at(name); },
                "text, json or sarif")
            ->type_name("FORMAT")
            ->check(OneOf(kFormats));
        command->add_flag_callback(
            "--no-names", [options] { options->names = false; },
            "Leave out what is wrong with names");
    }

    void AddBuild() {
        auto options = std::make_shared<BuildOptions>();
        auto run = [options](const Report& report) {
            for (std::string* path : {&options->project, &options->morv, &options->work,
                                      &options->include, &options->compiler})
                if (!path->empty())
                    *path = ProjectPath(*path);
            return Build(*options, report);
        };
        CLI::App* command = Command("build", "Write the C++ files of a project, as Compile does",
                                    run, [options] { return std::vector{options->project}; });
        command->add_option("PROJECT", options->project, "The project file, .mrv")->required();
        command->add_option("--morv", options->morv, "The runtime's folder, the MORV Path")
            ->type_name("FOLDER")
            ->required();
        command
            ->add_option("--work", options->work,
                         "The work folder; the one above the project's when not given")
            ->type_name("FOLDER");
        command->add_flag("--program", options->program, "Make the program as well");
        command->add_option("--include", options->include, "More headers for the program")
            ->type_name("FOLDER");
        command->add_option("--compiler", options->compiler, "Where the program's compiler is")
            ->type_name("FOLDER");
    }

    void AddRun() {
        auto options = std::make_shared<RunOptions>();
        auto run = [options](const Report& report) {
            options->project = ProjectPath(options->project);
            if (!options->morv.empty())
                options->morv = ProjectPath(options->morv);
            return RunProject(*options, report);
        };
        CLI::App* command = Command("run", "Make a project's program and run it over the input",
                                    run, [options] { return std::vector{options->project}; });
        command->add_option("PROJECT", options->project, "The project file, .mrv")->required();
        AddRuntime(command, options->morv);
        AddLimit(command, options->limit, "command");
        command->add_flag("--trace", options->trace, "Each rule tells what it does");
    }

    void AddTest() {
        auto options = std::make_shared<TestOptions>();
        auto run = [options](const Report& report) {
            options->project = ProjectPath(options->project);
            for (std::string* path : {&options->morv, &options->junit})
                if (!path->empty())
                    *path = ProjectPath(*path);
            for (std::string& path : options->scenarios)
                path = ProjectPath(path);
            return Test(*options, report);
        };
        CLI::App* command = Command("test", "Run a project's scenarios", run,
                                    [options] { return std::vector{options->project}; });
        command->add_option("PROJECT", options->project, "The project file, .mrv")->required();
        command->add_option("SCENARIO", options->scenarios,
                            "The scenario files; all beside the project when none is given");
        AddRuntime(command, options->morv);
        AddLimit(command, options->limit, "step");
        command->add_option("--junit", options->junit, "Where the same goes as JUnit's XML")
            ->type_name("FILE");
    }

    static void AddRuntime(CLI::App* command, std::string& morv) {
        command
            ->add_option("--morv", morv,
                         "The starter runtime's folder; the one around this program when not given")
            ->type_name("FOLDER");
    }

    // The most is what a timer takes in milliseconds on every system.
    static void AddLimit(CLI::App* command, unsigned& limit, const std::string& what) {
        command
            ->add_option("--limit", limit,
                         "How long a " + what + " may take; " + std::to_string(kUsualLimit) +
                             " when not given, 0 for any time")
            ->type_name("SECONDS")
            ->check(CLI::Range(0u, 1000000u));
    }

    void AddShow() {
        auto file = std::make_shared<std::string>();
        auto run = [file](const Report& report) { return Show(ProjectPath(*file), report); };
        CLI::App* command = Command("show", "Print a file of a project as text, a damaged one too",
                                    run, [file] { return std::vector{*file}; });
        command
            ->add_option("FILE", *file,
                         "A .mrv .aux .lse .siz .fac .typ .rst .tag .dde .var "
                         ".ikw or .tol file")
            ->required();
    }

    void AddExport() {
        auto paths = std::make_shared<std::array<std::string, 2>>();
        auto run = [paths](const Report& report) {
            return Export(ProjectPath((*paths)[0]), ProjectPath((*paths)[1]), report);
        };
        CLI::App* command = Command("export", "Write a project as text", run,
                                    [paths] { return std::vector{(*paths)[0]}; });
        command->add_option("PROJECT", (*paths)[0], "The project file, .mrv")->required();
        command->add_option("FOLDER", (*paths)[1], "Where the text and the sources go")->required();
    }

    void AddImport() {
        auto options = std::make_shared<ImportOptions>();
        auto run = [options](const Report& report) {
            options->source = ProjectPath(options->source);
            options->work = InnerPath(options->work);
            if (!options->morv.empty())
                options->morv = ProjectPath(options->morv);
            return Import(*options, report);
        };
        CLI::App* command = Command("import", "Make the project of a text, and a work folder", run,
                                    [options] { return std::vector{options->work}; });
        command->add_option("SOURCE", options->source, "The text, or the folder that it is in")
            ->required();
        command->add_option("WORKFOLDER", options->work, "Where the project's folder goes")
            ->required();
        command->add_flag("--replace", options->replace, "Write over the files that are there");
        CLI::Option* const morv =
            command
                ->add_option("--morv", options->morv,
                             "Make WORKFOLDER one to work in: with the starter runtime of this "
                             "folder, and the tools file that names it")
                ->type_name("FOLDER");
        command
            ->add_option("--utility", options->utility,
                         "The compiler utility that the tools file names; the one that comes with "
                         "the runtime when not given")
            ->type_name("COMMAND")
            ->needs(morv);
        command
            ->add_flag("--update", options->update,
                       "In a WORKFOLDER that has a tools file only bring the runtime up to date, "
                       "and leave projects and tools alone")
            ->needs(morv);
    }

    void AddMove() {
        auto options = std::make_shared<MoveOptions>();
        auto run = [options](const Report& report) {
            options->project = ProjectPath(options->project);
            options->from = InnerPath(options->from);
            options->to = InnerPath(options->to);
            return Move(*options, report);
        };
        CLI::App* command = Command("move", "Rewrite the paths in a project whose folder has moved",
                                    run, [options] { return std::vector{options->project}; });
        command->add_option("PROJECT", options->project, "The project file where it is now")
            ->required();
        command->add_option("FROM", options->from, "The folder that the paths inside still name")
            ->required();
        command->add_option("TO", options->to, "The folder that they are to name")->required();
    }

    // A folder that may be given as projects name it, with its drive, also where there are none.
    static std::string InnerPath(const std::string& word) {
        const bool inner = word.size() > 1 && word[1] == ':';
        const std::optional<std::string> bytes = FromUtf8(word);
        std::string path = inner && bytes ? *bytes : ProjectPath(word);
        std::replace(path.begin(), path.end(), '/', '\\');
        if (inner && path.size() > 2 && path[2] != '\\')
            throw WrongPath{word, "a folder's path begins at the root of its drive, like C:\\work"};
        while (path.ends_with('\\'))
            path.pop_back();
        return path;
    }

    CLI::App app_;
    std::vector<std::string> drives_;
    std::function<int(const Report&)> command_;
    std::function<std::vector<std::string>()> hosts_;
};

} // namespace

int Run(const std::vector<std::string>& words, const Report& report) {
    return CommandLine().Run(words, report);
}

} // namespace console
