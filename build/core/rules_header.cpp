#include "build/core/rules_header.h"

#include "build/core/banner.h"
#include "build/core/build_names.h"
#include "build/core/generated_file.h"
#include "build/core/project_lists.h"
#include "shell/core/record_text.h"

namespace {

constexpr char kHeaderCaption[] = "Rule.Cpp";

void FixedHead(OutputFile& han, const char* RulesH) {
    EsqCap(han, RulesH);
    WriteLines(han, {"#ifndef TAD_RULES", "#define TAD_RULES", "", "#define FALSE\t0",
                     "#define TRUE\t1", "", "", "#include <dos.h>", "", ""});
    for (const char* file : {"consts.h", "shell.h", "datafact.h", "dfactres.h", "inf_eng.h"})
        IncludeLine(han, file);
    Return(han);
}

// Repeats each #include line of an extern file's text, from its '#' on, whatever stands before it.
// Only CR LF ends a line here, so without one all that is left counts as the line.
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
    const std::string name = EngineName(i);
    WriteLine(han, {"class ", name, ":public INFERENCE_ENGINE{"});
    WriteFile(han, "\tpublic:", 1);
    WriteLine(han,
              {"\t\t", name, " () {sprintf (description, \"INF_", std::to_string(i), "\");};"});
    WriteLines(han, {"\t\tint engine();", "};"});
}

void Results(OutputFile& han, const std::vector<TagRecord>& results) {
    for (const TagRecord& result : results)
        WriteLine(han, {"\t\t\t", Text(result.name), &result != &results.back() ? "," : ";"});
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
            return GiveUp(han, owner, "Extern File Error", kHeaderCaption);
        CopyIncludes(han, text);
    }
    Return(han);
    WriteLines(han, {"class DATAFACT;", "class INFERENCE_ENGINE;"});
    const int systems = SystemCount(project);
    for (int i = 1; i <= systems; ++i)
        EngineClass(han, i);
    WriteLines(han, {"///////////////    Declaracio del DATAFACTRESULT    ///////////////",
                     "DATAFACTRESULT"});
    std::vector<TagRecord> results;
    if (!ReadRecords(Text(project.ResAux).c_str(), files::Mode::Update, results))
        return GiveUp(han, owner, "Results File Error", kHeaderCaption);
    Results(han, results);
    WriteFile(han, "#endif", 1);
    return Finish(han);
}
