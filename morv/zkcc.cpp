// The compiler utility: makes the program of a project from the files that Zentrik generated.
// Its words are those of command_line.h. What the compilers say goes to zkcc.log in the project
// folder.
#include "command_line.h"
#include "run_tool.h"
#include "translate.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using morv::HostPath;

namespace {

#ifdef _WIN32
constexpr char kCompiler[] = "g++";
constexpr char kResourceCompiler[] = "windres";
#else
constexpr char kCompiler[] = "x86_64-w64-mingw32-g++";
constexpr char kResourceCompiler[] = "x86_64-w64-mingw32-windres";
#endif
constexpr char kLog[] = "zkcc.log";

// The sources of the runtime beside the API main.
constexpr const char* kRuntime[] = {"commands.cpp",    "datafact.cpp",   "dde_server.cpp",
                                    "dfactres.cpp",    "entry_line.cpp", "inf_eng.cpp",
                                    "items.cpp",       "names.cpp",      "output_list.cpp",
                                    "program_log.cpp", "session.cpp",    "program_window.cpp"};

bool ReadFile(const fs::path& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    text = content.str();
    return file.good();
}

// One run. All that it makes stands in a folder of its own until it is whole: Execute starts a run
// while that of Compile may still be at work.
class Build {
public:
    explicit Build(const morv::Job& job)
        : job_(job),
          folder_(job.project /
                  HostPath(job.program + std::to_string(morv::ProcessNumber()) + ".tmp")),
          log_(folder_ / kLog), translated_(folder_ / "rules.cpp"),
          resources_(folder_ / "resources.o"), made_(folder_ / "program.exe") {}

    bool All() {
        std::error_code error;
        fs::remove(job_.project / kLog, error); // of the run before
        fs::create_directory(folder_, error);
        if (!job_.compiler.empty())
            morv::LookFirstIn(job_.compiler);
        const bool done =
            TranslateRules() && CompileResources() && CompileProgram() && PutInPlace();
        Log(done ? "zkcc: made " + job_.program + ".exe" : "zkcc: failed");
        fs::rename(log_, job_.project / kLog, error);
        if (error)
            std::fprintf(stderr, "zkcc: cannot write %s\n", kLog);
        fs::remove_all(folder_, error);
        return done;
    }

private:
    void Log(const std::string& line) const {
        std::ofstream(log_, std::ios::binary | std::ios::app) << line << '\n';
    }

    bool TranslateRules() const {
        std::string source, header;
        const std::string header_name = job_.rules.substr(0, job_.rules.size() - 3) + "h";
        for (const auto& [name, text] : {std::pair{job_.rules, &source}, {header_name, &header}})
            if (!ReadFile(job_.project / HostPath(name), *text)) {
                Log("cannot read " + name);
                return false;
            }
        const morv::Translation translation = morv::Translate(source, job_.rules, header);
        for (const std::string& error : translation.errors)
            Log(error);
        std::ofstream file(translated_, std::ios::binary);
        file << translation.sources.front().text;
        file.close();
        if (!file)
            Log("cannot write " + translated_.string());
        return file.good() && translation.errors.empty();
    }

    // The resource script is named without its folder: the resource compiler does not take folders
    // with blanks everywhere.
    bool CompileResources() const {
        std::error_code error;
        fs::current_path(job_.runtime, error);
        return !error &&
               Run(kResourceCompiler, {job_.resource, "-O", "coff", "-o", resources_.string()});
    }

    bool CompileProgram() const {
        std::vector<std::string> arguments = {
            "-std=c++17",          "-O1",     "-Wall",
            "-mwindows",           "-static", "-I",
            job_.project.string(), "-I",      job_.runtime.string()};
        if (!job_.include.empty()) {
            arguments.emplace_back("-I");
            arguments.push_back(job_.include.string());
        }
        arguments.push_back(translated_.string());
        arguments.push_back((job_.project / job_.dde).string());
        arguments.push_back((job_.runtime / HostPath(job_.api + ".cpp")).string());
        for (const char* name : kRuntime)
            arguments.push_back((job_.runtime / name).string());
        arguments.push_back(resources_.string());
        arguments.emplace_back("-o");
        arguments.push_back(made_.string());
        return Run(kCompiler, arguments);
    }

    // The program appears whole; one that runs under Windows stays.
    bool PutInPlace() const {
        std::error_code error;
        fs::rename(made_, job_.project / HostPath(job_.program + ".exe"), error);
        if (error)
            Log("cannot replace " + job_.program +
                ".exe, which may be running: " + error.message());
        return !error;
    }

    // In the compiler path a tool may have its plain name.
    std::string Tool(const std::string& name) const {
        const std::string plain = name.substr(name.rfind('-') + 1);
        for (const std::string& file : {name, name + ".exe", plain, plain + ".exe"}) {
            std::error_code error;
            if (!job_.compiler.empty() && fs::exists(job_.compiler / file, error))
                return (job_.compiler / file).string();
        }
        return name;
    }

    bool Run(const std::string& name, const std::vector<std::string>& arguments) const {
        const int code = morv::RunTool(Tool(name), arguments, log_);
        if (code == morv::kNoTool)
            Log("no " + name +
                " found: g++ and windres of MinGW-w64 are needed, in the Compiler Path or the "
                "PATH");
        else if (code != 0)
            Log(name + " ended with " + std::to_string(code));
        return code == 0;
    }

    const morv::Job& job_;
    const fs::path folder_, log_, translated_, resources_, made_;
};

} // namespace

int main(int count, char** words) {
    morv::Job job;
    const std::string wrong = morv::ReadCommandLine(morv::CommandWords(count, words), job);
    if (!wrong.empty()) {
        std::fprintf(stderr, "zkcc: %s\n", wrong.c_str());
        if (!job.project.empty())
            std::ofstream(job.project / kLog, std::ios::binary) << wrong << "\nzkcc: failed\n";
        return 2;
    }
    return Build(job).All() ? 0 : 1;
}
