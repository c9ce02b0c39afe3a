#include "build/core/rules_source.h"

#include "build/core/banner.h"
#include "build/core/build_names.h"
#include "build/core/generated_file.h"
#include "build/core/project_lists.h"
#include "resources/core/numbers.h"
#include "resources/core/variable.h"
#include "shell/core/messages.h"
#include "shell/core/paths.h"

namespace {

constexpr char kCaption[] = "Rule.Cpp";
constexpr std::string_view kMarker = "ZkRules"; // where a header template takes the rules

void FileHead(OutputFile& han, const ProjectRecord& project, const char* RulesCpp,
              const char* fname) {
    EsqCap(han, RulesCpp);
    IncludeLine(han, fname);
    IncludeLine(han, "ddecom.h");
    WriteLines(
        han, {"", "#define si 1", "#define no 0", "", "//- Informacio del sistema en concret",
              "extern Informacio DDEinfo;", "extern char *Items[];", "extern void put_box(char *);",
              "extern char hora[20];", "extern int ActivatSB;", "", "//- System Declaration"});
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i)
        WriteLine(han, {EngineName(i), " ", Stem(Text(project.EngineNames[i])), ";"});
    WriteLines(han, {"", "//- Extern Functions"});
}

// The records of a file that a system may lack. They are read once and used in two places.
template <class Record> struct OptionalFile {
    template <std::size_t N> explicit OptionalFile(const char (&field)[N]) : named(field[0] != 0) {
        opened = named && ReadRecords(Text(field).c_str(), files::Mode::Update, records);
    }

    bool named;
    bool opened;
    std::vector<Record> records;
};

void Declarations(OutputFile& han, const SystemFile& system, const OptionalFile<V_V>& variables) {
    WriteLines(han, {"", "\t//- Facts declaration"});
    WriteFile(han, "\tstatic DATAFACT *PF", 0);
    for (const Dat& fact : system.facts) {
        WriteFile(han, ", ", 0);
        WriteFile(han, Text(fact.Name), 0);
    }
    WriteFile(han, ";", 1);
    for (const V_V& variable : variables.records) {
        WriteFile(han, "\t//- Local Var Declaration", 1); // before every variable
        WriteLine(han, {"\t", Text(variable.Type), " ", Text(variable.Name), ";"});
    }
    WriteLines(han, {"", ""});
}

void Opposites(OutputFile& han, const std::vector<NameRecord>& opposites) {
    for (const NameRecord& entry : opposites) {
        const OppositePair pair = SplitOpposite(Text(entry.name));
        Return(han);
        WriteFile(han, "\tset_opposites(", 0);
        WriteFile(han, pair.result, 0);
        WriteFile(han, ", ", 0);
        WriteFile(han, pair.opposite, 0);
        WriteFile(han, ");", 0);
    }
}

void Fact(OutputFile& han, const Dat& fact) {
    const std::string name = Text(fact.Name);
    const auto number = [&](std::string_view field, double value) {
        WriteLine(han, {"\t", name, field, NumberText(value), ";"});
    };
    WriteLines(han, {"", "//- Datafact"});
    number(".name = ", fact.Ident);
    WriteLine(han, {"\t", name, ".", "type = ", Text(fact.KnowType), ";"});
    WriteLine(han,
              {"\tsprintf (", name, ".description, ", "\"", Text(fact.Description), "\"", ");"});
    WriteLine(han,
              {"\tsprintf (", name, ".fact_value.units, ", "\"", Text(fact.Units), "\"", ");"});
    number(".fact_value.inf_limit = ", fact.inf_limit);
    number(".fact_value.sup_limit = ", fact.sup_limit);
    number(".fact_value.step_v = ", fact.Step);
    number(".fact_value.lowest = ", fact.lowest);
    number(".fact_value.low = ", fact.low);
    number(".fact_value.normal = ", fact.normal);
    number(".fact_value.high = ", fact.high);
    number(".fact_value.highest = ", fact.highest);
}

void VariableValues(OutputFile& han, const OptionalFile<V_V>& variables) {
    if (variables.opened)
        WriteFile(han, "// - System Local Vars", 1);
    for (const V_V& variable : variables.records)
        WriteLine(han, {Text(variable.Name), "=", Text(variable.Val), ";"});
    if (variables.named)
        Return(han);
}

void InitialFacts(OutputFile& han, const OptionalFile<I_K>& initial) {
    if (!initial.opened)
        return;
    WriteFile(han, "//- Deduce Facts Values", 1);
    for (const I_K& fact : initial.records) {
        // Only the first character decides, so 0.5 is left out like 0 and none at all.
        if (fact.Pres[0] == ' ' || fact.Pres[0] == '0')
            continue;
        const std::string name = Text(fact.K_Name);
        WriteLine(han,
                  {name, ".", "assign((double)", Text(fact.K_Val), ",", Text(fact.Pres), ");"});
        WriteLine(han, {"deduce(&", name, ");"});
        Return(han);
    }
    Return(han);
}

// Writes the rules, at the marker of the system's header template when it has one.
int RulesText(OutputFile& han, const SystemHead& head, WindowHandle owner) {
    std::string header;
    const std::string header_name = Text(head.HeaderName);
    if (!header_name.empty() && !files::ReadWhole(header_name.c_str(), files::Mode::Read, header))
        return GiveUp(han, owner, "Header file Error", kCaption);
    const std::ptrdiff_t marker = FindStr(kMarker, header);
    const bool found = marker != -1;
    const std::size_t before = found ? static_cast<std::size_t>(marker) : header.size();
    if (!header_name.empty() && !found)
        Return(han);
    han.Add(std::string_view(header).substr(0, before));

    std::string rules;
    if (!files::ReadWhole(Text(head.RuleName).c_str(), files::Mode::Read, rules))
        return GiveUp(han, owner, "Rule File Error", kCaption);
    han.Add(rules);
    Return(han);
    if (found)
        han.Add(std::string_view(header).substr(before + kMarker.size()));
    return 0;
}

int WriteSystem(OutputFile& han, const SystemFile& system, WindowHandle owner) {
    const OptionalFile<V_V> variables(system.head.VarName);
    Declarations(han, system, variables);
    Opposites(han, system.opposites);
    for (const Dat& fact : system.facts)
        Fact(han, fact);
    WriteLines(han, {"", ""});
    VariableValues(han, variables);
    InitialFacts(han, OptionalFile<I_K>(system.head.InitName));
    if (RulesText(han, system.head, owner) != 0)
        return -1;
    WriteLines(han, {"", "", "EndSystem"});
    return 0;
}

int WriteMain(OutputFile& han, const ProjectRecord& project, WindowHandle owner) {
    const std::string rule(45, '/');
    WriteLines(han, {"", "", rule, "//////////      MORV  Main       ////////////", rule,
                     "void MORVmain()", "{"});
    std::string text;
    if (!files::ReadWhole(Text(project.MainName).c_str(), files::Mode::Read, text))
        return GiveUp(han, owner, "Main File Error", kCaption);
    han.Add(text);
    WriteLines(han, {"", "}"});
    return 0;
}

} // namespace

int CopyExt(OutputFile& han, const char* file) {
    std::string text;
    if (!files::ReadWhole(file, files::Mode::Update, text)) {
        han.Close();
        GetErr();
        return -1;
    }
    std::string_view code = text;
    // The very last byte does not count in the search.
    if (FindStr("#include", code.substr(0, code.empty() ? 0 : code.size() - 1)) != -1) {
        // The whole first line goes, wherever the #include stands: the header has it. A text
        // without CR LF is one line, which the header has to its end.
        const std::size_t line_end = code.find("\r\n");
        code.remove_prefix(line_end == std::string_view::npos ? code.size() : line_end + 1);
    }
    han.Add(code);
    Return(han);
    return 0;
}

int CrearRulesCpp(const ProjectRecord& project, SystemHead& last_read, const char* RulesCpp,
                  const char* fname, WindowHandle owner) {
    OutputFile han;
    if (!han.Create(RulesCpp))
        return GiveUp(han, owner, "Creation file error", kCaption);
    FileHead(han, project, RulesCpp, fname);
    const int externs = ExternCount(project);
    for (int i = 1; i <= externs; ++i) {
        if (CopyExt(han, Text(project.ExternFiles[i]).c_str()) != 0) {
            ShowMessage(owner, "Error During Extern Copy", kCaption);
            return -1;
        }
    }
    Return(han);
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i) {
        WriteFile(han, "//- Systems Implementation", 1);
        WriteLine(han, {"Begin ", EngineName(i), " ZkSystem"});
        Return(han);
        SystemFile system;
        const ReadResult result = ReadSystem(Text(project.EngineNames[i]).c_str(), system);
        if (result != ReadResult::Missing && result != ReadResult::Useless)
            last_read = system.head;
        // A damaged one lacks facts that its rules may use, so it makes no program.
        if (result != ReadResult::Ok) {
            han.Close();
            ShowMessage(owner, "Open Engine error", kCaption);
            return -1;
        }
        if (WriteSystem(han, system, owner) != 0)
            return -1;
    }
    return WriteMain(han, project, owner) == 0 ? Finish(han) : -1;
}
