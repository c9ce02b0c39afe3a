#include "language/generated_lines.h"

#include <sstream>

namespace morv {

namespace {

constexpr char kEngine[] = "Inference_Engine_";
constexpr char kBegin[] = "Begin ";
constexpr char kUtf8Mark[] = "\xEF\xBB\xBF"; // editors begin files with it

} // namespace

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(kUtf8Mark))
            line.erase(0, 3);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::string Trimmed(const std::string& text) {
    constexpr char blanks[] = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

bool IsSystemDeclaration(const std::string& line) {
    return line.starts_with(kEngine) && line.back() == ';' && line.find(' ') != std::string::npos;
}

SystemDeclaration ReadSystemDeclaration(const std::string& line) {
    const std::size_t blank = line.find(' ');
    return {line.substr(0, blank), line.substr(blank + 1, line.size() - blank - 2)};
}

bool IsBegin(const std::string& line) {
    return line.starts_with(std::string(kBegin) + kEngine);
}

std::string EngineOfBegin(const std::string& line) {
    const std::size_t from = sizeof kBegin - 1;
    return line.substr(from, line.find(' ', from) - from);
}

} // namespace morv
