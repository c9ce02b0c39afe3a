// The lines of a generated rules source that frame its systems.
#pragma once

#include <string>
#include <vector>

namespace morv {

constexpr char kEndSystem[] = "EndSystem";

// The lines of a text without their ends.
std::vector<std::string> LinesOf(const std::string& text);

std::string Trimmed(const std::string& text);

// A line like "Inference_Engine_1 steam;".
struct SystemDeclaration {
    std::string engine, name;
};
bool IsSystemDeclaration(const std::string& line);
SystemDeclaration ReadSystemDeclaration(const std::string& line);

// A line like "Begin Inference_Engine_1 ZkSystem".
bool IsBegin(const std::string& line);
std::string EngineOfBegin(const std::string& line);

} // namespace morv
