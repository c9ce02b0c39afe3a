// The compiler utility: makes the program of a project from the files that Zentrik generated.
// Its words are those of command_line.h. What the compilers say goes to zkcc.log in the project
// folder.
#include "command_line.h"
#include "translate.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#ifdef _WIN32
#include <process.h>
#define getpid _getpid
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr char kCompiler[] = "g++";
constexpr char kResourceCompiler[] = "windres";
#else
constexpr char kCompiler[] = "x86_64-w64-mingw32-g++";
constexpr char kResourceCompiler[] = "x86_64-w64-mingw32-windres";
#endif

// The sources of the runtime beside the API main.
constexpr const char* kRuntime[] = {"datafact.cpp", "dde_server.cpp", "dfactres.cpp",
                                    "inf_eng.cpp"};

bool ReadFile(const fs::path& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    text = content.str();
    return file.good();
}

// An argument for the system's shell. (Windows file names hold no double quotes.)
std::string Argument(const std::string& text) {
#ifdef _WIN32
    return '"' + text + '"';
#else
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
#endif
}

class Build {
public:
    explicit Build(const morv::Job& job)
        : job_(job), log_(job.project / "zkcc.log"), unique_(std::to_string(getpid())),
          translated_(job.project / (job.program + "_rules.cpp")),
          resources_(job.project / (job.program + unique_ + ".o")),
          made_(job.project / (job.program + unique_ + ".tmp")) {}

    bool All() {
        std::ofstream(log_, std::ios::binary).close();
        const bool done =
            TranslateRules() && CompileResources() && CompileProgram() && PutInPlace();
        std::error_code ignored;
        fs::remove(resources_, ignored);
        fs::remove(made_, ignored);
        Log(done ? "zkcc: made " + job_.program + ".exe" : "zkcc: failed");
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
            if (!ReadFile(job_.project / name, *text)) {
                Log("cannot read " + name);
                return false;
            }
        const morv::Translation translation = morv::Translate(source, job_.rules, header);
        for (const std::string& error : translation.errors)
            Log(error);
        std::ofstream file(translated_, std::ios::binary);
        file << translation.text;
        file.close();
        if (!file)
            Log("cannot write " + translated_.filename().string());
        return file.good() && translation.errors.empty();
    }

    // The resource script is named without its folder: the resource compiler does not take folders
    // with blanks everywhere.
    bool CompileResources() const {
        std::error_code error;
        fs::current_path(job_.runtime, error);
        return !error && Run(Tool(kResourceCompiler),
                             {job_.resource, "-O", "coff", "-o", resources_.string()});
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
        arguments.push_back((job_.runtime / (job_.api + ".cpp")).string());
        for (const char* name : kRuntime)
            arguments.push_back((job_.runtime / name).string());
        arguments.push_back(resources_.string());
        arguments.emplace_back("-o");
        arguments.push_back(made_.string());
        return Run(Tool(kCompiler), arguments);
    }

    // The program appears whole, for who waits for it; one that runs under Windows stays.
    bool PutInPlace() const {
        std::error_code error;
        fs::rename(made_, job_.project / (job_.program + ".exe"), error);
        if (error)
            Log("cannot replace " + job_.program +
                ".exe, which may be running: " + error.message());
        return !error;
    }

    // A tool in the compiler path, under its own or its plain name, else wherever the system finds
    // it.
    std::string Tool(const std::string& name) const {
        const std::string plain = name.substr(name.rfind('-') + 1);
        for (const std::string& file : {name, name + ".exe", plain, plain + ".exe"})
            if (!job_.compiler.empty() && fs::exists(job_.compiler / file))
                return (job_.compiler / file).string();
        return name;
    }

    bool Run(const std::string& tool, const std::vector<std::string>& arguments) const {
        std::string line = Argument(tool);
        for (const std::string& argument : arguments)
            line += " " + Argument(argument);
        line += " >>" + Argument(log_.string()) + " 2>&1";
#ifdef _WIN32
        line = '"' + line + '"'; // the shell takes the outer quotes off
#endif
        const int code = std::system(line.c_str());
        if (code != 0)
            Log(tool + " ended with " + std::to_string(code));
        return code == 0;
    }

    const morv::Job& job_;
    const fs::path log_;
    const std::string unique_;
    const fs::path translated_, resources_, made_;
};

} // namespace

int main(int count, char** words) {
    morv::Job job;
    const std::string wrong = morv::ReadCommandLine({words + 1, words + count}, job);
    if (!wrong.empty()) {
        std::fprintf(stderr, "zkcc: %s\n", wrong.c_str());
        return 2;
    }
    return Build(job).All() ? 0 : 1;
}
