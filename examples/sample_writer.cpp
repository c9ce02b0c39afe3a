#include "examples/sample_writer.h"

#include "build/core/tools_file.h"
#include "examples/sample_source.h"
#include "morv/runtime_files.h"
#include "project/core/project_file.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "shell/core/line_ends.h"
#include "system/core/rule_text.h"
#include "system/core/system_file.h"

namespace sample {

namespace {

// Where the runtime stands, seen from the source of a sample.
const std::string kRuntimeFolder = "/../../morv";

// The compiler utility for Windows: there in what is handed out, not in the sources.
const std::string kUtility = "zkcc.exe";

std::string Names(const std::vector<std::string>& names) {
    std::vector<TagRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        SetText(records[i].name, names[i]);
    return std::string(BytesOf(records));
}

std::string DdeContent(const Dde& dde) {
    DdeFile file{dde.conversation, {}};
    for (const auto& [name, type] : dde.items) {
        DDE_ITEM& item = file.items.emplace_back();
        SetText(item.DName, name);
        SetText(item.DType, type);
    }
    return DdeBytes(file);
}

std::string VariablesContent(const std::vector<Variable>& variables) {
    std::vector<V_V> records;
    for (const Variable& variable : variables) {
        V_V& record = records.emplace_back();
        SetText(record.Name, variable.name);
        SetText(record.Type, variable.type);
        SetText(record.Val, variable.value);
    }
    return std::string(BytesOf(records));
}

// A record for every fact of the system, in its order.
std::string InitialContent(const System& system) {
    std::vector<I_K> records;
    for (const Dat& fact : system.UsedFacts()) {
        I_K& record = records.emplace_back();
        SetText(record.K_Name, Text(fact.Name));
        SetText(record.K_Val, "");
        SetText(record.Pres, "  ");
        for (const InitialFact& initial : system.initial) {
            if (initial.fact != Text(fact.Name))
                continue;
            SetText(record.K_Val, initial.value);
            SetText(record.Pres, initial.certainty);
        }
    }
    return std::string(BytesOf(records));
}

// Reads and writes files until something fails.
class FileWriter {
public:
    const std::string& Failure() const { return failure_; } // the first one; empty without

protected:
    void Note(bool ok, const std::string& what) {
        if (!ok && failure_.empty())
            failure_ = what;
    }

    void MakeFolder(const std::string& folder) {
        Note(files::Exists(folder.c_str()) || files::MakeFolder(folder.c_str()),
             "cannot make " + folder);
    }

    void Write(const std::string& path, std::string_view bytes) {
        Note(path.size() < kNameSize, "the path is too long: " + path);
        if (failure_.empty())
            Note(files::ReplaceWhole(path.c_str(), bytes), "cannot write " + path);
    }

    std::string Content(const std::string& path) {
        std::string text;
        Note(files::ReadWhole(path.c_str(), files::Mode::Read, text), "cannot read " + path);
        return text;
    }

    std::string failure_;
};

class RuntimeWriter : public FileWriter {
public:
    RuntimeWriter(const std::string& from, const std::string& to) {
        MakeFolder(to);
        for (const char* name : morv::kRuntimeSources)
            Put(from, to, name);
        for (const char* name : morv::kRuntimeOthers)
            Put(from, to, name);
        const std::string utility = from + "/" + kUtility;
        if (files::Exists(utility.c_str()))
            Write(to + "\\" + kUtility, Content(utility));
    }

private:
    void Put(const std::string& from, const std::string& to, const std::string& name) {
        Write(to + "\\" + name, WithCrLf(Content(from + "/" + name)));
    }
};

// Writes one project. Its files go to work\NAME; the runtime and the program's own files to work.
class Writer : public FileWriter {
public:
    Writer(std::string folder, std::string work, const Source& source)
        : from_(std::move(folder)), work_(std::move(work)), to_(work_ + "\\" + source.name + "\\"),
          source_(source) {}

    // Returns an empty text, or the first failure; nothing is written after one.
    std::string All(const std::string& compiler) {
        MakeFolder(work_);
        MakeFolder(work_ + "\\" + source_.name);
        Lists();
        for (const System& system : source_.systems)
            WriteOne(system);
        Project();
        Tools(compiler);
        return failure_;
    }

private:
    // The content of a file of the source.
    std::string SourceContent(const std::string& name) { return Content(from_ + "/" + name); }

    // Copies a text of the source; returns where it went, or an empty text when none is named.
    std::string Copy(const std::string& name) {
        if (name.empty())
            return {};
        Write(to_ + name, WithCrLf(SourceContent(name)));
        return to_ + name;
    }

    void Lists() {
        for (const NameList& list : source_.results)
            Write(to_ + list.name + ".rst", Names(list.rows));
        for (const NameList& list : source_.tags)
            Write(to_ + list.name + ".tag", Names(list.rows));
        for (const Dde& dde : source_.dde_files)
            Write(to_ + dde.name + ".dde", DdeContent(dde));
    }

    void WriteOne(const System& system) {
        SystemFile file;
        file.facts = system.UsedFacts();
        for (const auto& [result, opposite] : system.opposites)
            SetText(file.opposites.emplace_back().name, result + "\t" + opposite);
        const std::string base = to_ + system.name;
        const std::string rules = WithCrLf(SourceContent(system.rules));
        const std::string index = to_ + system.rules.substr(0, system.rules.find('.')) + ".siz";
        SetText(file.head.KTypeName, base + ".typ");
        SetText(file.head.RuleName, to_ + system.rules);
        SetText(file.head.RuleSizeName, index);
        SetText(file.head.HeaderName, Copy(system.header));
        SetText(file.head.VarName, base + ".var");
        SetText(file.head.InitName, base + ".ikw");
        SetText(file.head.KnowName, base + ".fac");
        file.head.TypNum = static_cast<std::int32_t>(system.types.size());
        file.head.DatNum = static_cast<std::int32_t>(file.facts.size());
        file.head.OppNum = static_cast<std::int32_t>(file.opposites.size());
        const RenumberedRules renumbered = Renumber(rules);
        Note(renumbered.text == rules, "the rules are not numbered and closed: " + system.rules);
        Write(to_ + system.rules, rules);
        Write(index, IndexBytes(renumbered.sizes));
        Write(base + ".typ", Names(system.types));
        Write(base + ".fac", BytesOf(system.base));
        Write(base + ".var", VariablesContent(system.variables));
        Write(base + ".ikw", InitialContent(system));
        Write(base + ".lse", SystemBytes(file));
    }

    void Project() {
        ProjectFile project;
        SetText(project.head.MainName, Copy(source_.main));
        for (const System& system : source_.systems)
            SetText(project.head.EngineNames[++project.head.EngNum], to_ + system.name + ".lse");
        for (const std::string& name : source_.externs)
            SetText(project.head.ExternFiles[++project.head.ExtNum], Copy(name));
        SetText(project.head.DDEName, to_ + source_.dde + ".dde");
        SetText(project.head.ResAux, to_ + source_.name + ".aux");
        std::string results;
        for (const NameList& list : source_.results) {
            SetText(project.results.emplace_back().name, to_ + list.name + ".rst");
            results += Names(list.rows);
        }
        project.head.ResNum = static_cast<std::int32_t>(project.results.size());
        project.head.DatHisLen = source_.history;
        Write(to_ + source_.name + ".aux", results);
        const std::string path = to_ + source_.name + ".mrv";
        if (failure_.empty())
            Note(WriteProject(path.c_str(), project), "cannot write " + path);
    }

    void Tools(const std::string& compiler) {
        const std::string morv = work_ + "\\morv";
        if (failure_.empty())
            failure_ = WriteRuntime(from_ + kRuntimeFolder, morv);
        ToolsFile tools;
        tools.path = morv;
        tools.com = compiler;
        const std::string utility = morv + "\\" + kUtility;
        if (compiler.empty() && files::Exists(utility.c_str()))
            tools.com = '"' + utility + '"'; // the start of a command line
        if (!tools.com.empty())
            tools.compilers.push_back(tools.com);
        const std::string path = ToolsFileName(work_);
        if (failure_.empty())
            Note(WriteTools(path.c_str(), tools), "cannot write " + path);
    }

    std::string from_, work_, to_;
    const Source& source_;
};

std::string WithoutFinalSlash(std::string path) {
    while (!path.empty() && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return path;
}

// The last name in a path of either kind.
std::string LastName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

} // namespace

std::string WriteRuntime(const std::string& from, const std::string& to) {
    return RuntimeWriter(from, to).Failure();
}

bool IsWorkFolder(const std::string& work) {
    return files::Exists(ToolsFileName(WithoutFinalSlash(work)).c_str());
}

std::string UpdateRuntime(const std::string& folder, const std::string& work) {
    return WriteRuntime(WithoutFinalSlash(folder) + kRuntimeFolder,
                        WithoutFinalSlash(work) + "\\morv");
}

std::string WriteSample(const std::string& folder, const std::string& work,
                        const std::string& compiler) {
    const std::string from = WithoutFinalSlash(folder), to = WithoutFinalSlash(work);
    if (to.find('.') != std::string::npos)
        return "a work folder has no '.' in its name: " + work;
    const std::string name = from + "/" + LastName(from) + ".txt";
    std::string text;
    if (!files::ReadWhole(name.c_str(), files::Mode::Read, text))
        return "cannot read " + name;
    Source source;
    const std::string wrong = ReadSource(text, source);
    if (!wrong.empty())
        return name + ": " + wrong;
    return Writer(from, to, source).All(compiler);
}

} // namespace sample
