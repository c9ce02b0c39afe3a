#include "build/core/build_names.h"

#include "shell/core/paths.h"

BuildNames::BuildNames(const char* project_file)
    : folder(FolderOf(project_file)), base(Stem(project_file)) {
    const std::string cut = CutAtDot(project_file);
    const std::string beside = cut.substr(0, cut.size() - base.size()); // with its '\', if any
    rules_h_name = base + "R.h";
    rules_cpp_name = base + "R.cpp";
    rules_h = beside + rules_h_name;
    rules_cpp = beside + rules_cpp_name;
    ddecom_h = beside + "ddecom.h";
    ddecom_cpp = beside + "ddecom.cpp";
    consts_h = beside + "consts.h";
    program = beside + "Api" + base;
}

std::string EngineName(int i) {
    return "Inference_Engine_" + std::to_string(i);
}

std::string CompilerLine(const BuildNames& names, const ToolsFile& tools,
                         std::string_view work_path) {
    std::string line = tools.com + " apimorv apimorv.rc " + names.rules_cpp_name + " ddecom.cpp ";
    line += tools.path + " " + names.folder + " " + tools.p_com + " " + tools.tool_p + " ";
    return line.append(work_path);
}
