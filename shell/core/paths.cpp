#include "shell/core/paths.h"

std::string CutAtDot(std::string_view path) {
    return std::string(path.substr(0, path.find('.')));
}

std::string WithExtension(std::string_view path, std::string_view extension) {
    return CutAtDot(path) + std::string(extension);
}

std::string Stem(std::string_view path, bool keep_backslash) {
    std::string cut = CutAtDot(path);
    const std::size_t at = cut.rfind('\\');
    if (at == std::string::npos)
        return cut;
    return cut.substr(keep_backslash ? at : at + 1);
}

std::string FolderOf(std::string_view path) {
    const std::string cut = CutAtDot(path);
    const std::size_t at = cut.rfind('\\');
    return at == std::string::npos ? std::string() : cut.substr(0, at);
}
