// The tools file: where the runtime is and which compiler utility runs.
#pragma once

#include "shell/core/record_text.h"

#include <string>
#include <string_view>
#include <vector>

struct ToolsFile {
    std::string path;                   // the MORV Path: templates and MorvApi.h
    std::string com;                    // compiler command; empty: generate only
    std::string p_com;                  // the compiler's include path
    std::string tool_p;                 // the compiler's path
    std::vector<std::string> compilers; // known compiler commands
};

// The tools file of a work folder.
std::string ToolsFileName(std::string_view work_path);

// Reads the tools file, which must be writable; slots that are missing are empty. Returns false
// when it cannot be opened.
bool ReadTools(const char* path, ToolsFile& tools);

// The content of a tools file.
std::string ToolsBytes(const ToolsFile& tools);

// Replaces the tools file. Returns false, leaving the old one, when that fails.
bool WriteTools(const char* path, const ToolsFile& tools);
