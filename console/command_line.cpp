#include "console/command_line.h"

#include "console/check.h"
#include "console/drives.h"

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
        : app_("Checks, builds and converts Zentrik projects without a window.", "zentrikc") {
        app_.require_subcommand(1);
        app_.set_version_flag("--version", ZENTRIK_VERSION);
        app_.set_help_flag("-h,--help", "Print this help and exit");
        app_.footer("Exit codes: 0 nothing found, 1 findings, 2 wrong use or a file that cannot be "
                    "read or written.");
        AddCheck();
    }

    int Run(std::vector<std::string> words, const Report& report) {
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
        return command_(report);
    }

private:
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
            ->take_all();
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
