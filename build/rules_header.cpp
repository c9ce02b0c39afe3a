#include "build/rules_header.h"

#include "build/banner.h"
#include "build/generated_file.h"
#include "build/project_lists.h"
#include "shell/record_text.h"

namespace {

constexpr char kCaption[] = "Rule.Cpp";

void FixedHead(OutputFile& han, const char* RulesH) {
    EsqCap(han, RulesH);
    for (const char* line : {"#ifndef TAD_RULES", "#define TAD_RULES", "", "#define FALSE\t0",
                             "#define TRUE\t1", "", "", "#include <dos.h>", "", ""})
        WriteFile(han, line, 1);
    for (const char* file : {"consts.h", "shell.h", "datafact.h", "dfactres.h", "inf_eng.h"})
        IncludeLine(han, file);
    Return(han);
}

// Repeats each #include line of an extern file's text, from its '#' on, whatever stands before it.
// Only CR LF ends a line here; a last line without one goes to the end of the text.
void CopyIncludes(OutputFile& han, std::string_view text) {
    const auto size = static_cast<std::ptrdiff_t>(text.size());
    for (std::ptrdiff_t at = 0; (at = FindStr("#include", text, at)) != -1;) {
        const std::size_t line_end = text.find("\r\n", static_cast<std::size_t>(at));
        const std::ptrdiff_t end =
            line_end == std::string_view::npos ? size : static_cast<std::ptrdiff_t>(line_end);
        // Copied whole, however long: a line that is cut does not compile.
        han.Add(text.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(end - at)));
        Return(han);
        at = end - 1;
    }
}

void EngineClass(OutputFile& han, int i) {
    const std::string name = "Inference_Engine_" + std::to_string(i);
    WriteFile(han, "class " + name + ":public INFERENCE_ENGINE{", 1);
    WriteFile(han, "\tpublic:", 1);
    WriteFile(
        han, "\t\t" + name + " () {sprintf (description, \"INF_" + std::to_string(i) + "\");};", 1);
    WriteFile(han, "\t\tint engine();", 1);
    WriteFile(han, "};", 1);
}

void Results(OutputFile& han, const std::vector<TagRecord>& results) {
    for (const TagRecord& result : results) {
        WriteFile(han, "\t\t\t", 0);
        WriteFile(han, Text(result.name), 0);
        WriteFile(han, &result != &results.back() ? "," : ";", 1);
    }
}

} // namespace

int CrearRulesH(const ProjectRecord& project, const char* RulesH, WindowHandle owner) {
    OutputFile han;
    if (!han.Create(RulesH)) {
        GetErr();
        return -1;
    }
    FixedHead(han, RulesH);
    const int externs = ExternCount(project);
    for (int i = 1; i <= externs; ++i) {
        std::string text;
        if (!files::ReadWhole(Text(project.ExternFiles[i]).c_str(), files::Mode::Update, text))
            return GiveUp(han, owner, "Extern File Error", kCaption);
        CopyIncludes(han, text);
    }
    Return(han);
    WriteFile(han, "class DATAFACT;", 1);
    WriteFile(han, "class INFERENCE_ENGINE;", 1);
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i)
        EngineClass(han, i);
    WriteFile(han, "///////////////    Declaracio del DATAFACTRESULT    ///////////////", 1);
    WriteFile(han, "DATAFACTRESULT", 1);
    std::vector<TagRecord> results;
    if (!ReadRecords(Text(project.ResAux).c_str(), files::Mode::Update, results))
        return GiveUp(han, owner, "Results File Error", kCaption);
    Results(han, results);
    WriteFile(han, "#endif", 1);
    return Finish(han);
}
