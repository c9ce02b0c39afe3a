#include "zkcc_tools.h"

#include "language/generated_lines.h"
#include "run_tool.h"
#include "zkcc_files.h"

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
constexpr char kMachine[] = "machine"; // in the cache: what the compiler told last

// In the compiler path a tool may have its plain name.
fs::path Tool(const Job& job, const std::string& name) {
    const std::string plain = name.substr(name.rfind('-') + 1);
    for (const std::string& file : {name, name + ".exe", plain, plain + ".exe"}) {
        std::error_code error;
        if (!job.compiler.empty() && fs::exists(job.compiler / file, error))
            return job.compiler / file;
    }
    return FindTool(name);
}

} // namespace

std::string FindTools(const Job& job, Tools& tools) {
    if (job.console) {
        tools.compiler = Tool(job, kHostCompiler);
        return tools.compiler.empty() ? "no g++ found in the PATH" : "";
    }
    for (const auto& [name, tool] :
         {std::pair{kResourceCompiler, &tools.resource_compiler}, {kCompiler, &tools.compiler}}) {
        *tool = Tool(job, name);
        if (tool->empty())
            return std::string("no ") + name +
                   " found: g++ and windres of MinGW-w64 are needed, in the Compiler Path or the "
                   "PATH";
    }
    return "";
}

const char* CompilerName(const Job& job) {
    return job.console ? kHostCompiler : kCompiler;
}

const char* ResourceCompilerName() {
    return kResourceCompiler;
}

std::string ToolPrint(const fs::path& tool) {
    std::error_code error;
    return tool.string() + " " + std::to_string(fs::file_size(tool, error)) + " " +
           std::to_string(fs::last_write_time(tool, error).time_since_epoch().count());
}

std::string MachineOf(Workplace& place, const fs::path& compiler) {
    const fs::path record = place.cache.File(kMachine);
    const std::string print = ToolPrint(compiler);
    place.cache.Use(kMachine);
    std::string text;
    ReadFile(record, text);
    std::vector<std::string> lines = LinesOf(text);
    if (lines.size() == 2 && lines[0] == print)
        return lines[1];
    const fs::path said = place.Passing(0, ".said");
    const Command command{compiler, {"-dumpmachine"}, place.cache.File(""), said, -1};
    const bool told = RunTools({command}, 1, [](std::size_t, int) { return true; })[0] == 0;
    if (!told || !ReadFile(said, text) || (lines = LinesOf(text)).size() != 1 || lines[0].empty())
        return "";
    WriteFile(record, print + "\n" + lines[0] + "\n");
    return lines[0];
}

} // namespace morv
