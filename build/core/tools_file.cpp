#include "build/core/tools_file.h"

#include <iterator>

std::string ToolsFileName(std::string_view work_path) {
    return std::string(work_path) + "\\toolfile.tol";
}

bool ReadTools(const char* path, ToolsFile& tools) {
    tools = {};
    std::vector<NameRecord> slots;
    if (!ReadRecords(path, files::Mode::Update, slots))
        return false;
    std::string* const settings[] = {&tools.path, &tools.com, &tools.p_com, &tools.tool_p};
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (i < std::size(settings))
            *settings[i] = Text(slots[i].name);
        else
            tools.compilers.push_back(Text(slots[i].name));
    }
    return true;
}

std::string ToolsBytes(const ToolsFile& tools) {
    std::vector<NameRecord> slots;
    auto add = [&](const std::string& text) { SetText(slots.emplace_back().name, text); };
    add(tools.path);
    add(tools.com);
    add(tools.p_com);
    add(tools.tool_p);
    for (const std::string& compiler : tools.compilers)
        add(compiler);
    return std::string(BytesOf(slots));
}

bool WriteTools(const char* path, const ToolsFile& tools) {
    return files::ReplaceWhole(path, ToolsBytes(tools));
}
