// The names of a build's files, which are made from the project file's path, and of its engines.
#pragma once

#include "build/core/tools_file.h"

#include <string>

struct BuildNames {
    explicit BuildNames(const char* project_file);

    std::string folder; // the project folder, without a last '\'
    std::string base;   // the project file's name without folder and extension
    std::string rules_h;
    std::string rules_cpp;
    std::string rules_h_name;   // without the folder
    std::string rules_cpp_name; // without the folder
    std::string ddecom_h;
    std::string ddecom_cpp;
    std::string consts_h;
    std::string program; // the built program, without an extension
};

// The class of the system at this place of the project, from 1 on.
std::string EngineName(int i);

// The command line that starts the compiler utility.
std::string CompilerLine(const BuildNames& names, const ToolsFile& tools,
                         std::string_view work_path);
