// Translates a rules source for the tests: translate_rules <source> <header> <output>
#include "morv/translate.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

static std::string Content(const char* path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

int main(int count, char** words) {
    if (count != 4)
        return 2;
    const std::string name = std::filesystem::path(words[1]).filename().string();
    const morv::Translation translation =
        morv::Translate(Content(words[1]), name, Content(words[2]));
    for (const std::string& error : translation.errors)
        std::fprintf(stderr, "%s\n", error.c_str());
    std::ofstream(words[3], std::ios::binary) << translation.sources.front().text;
    return translation.errors.empty() ? 0 : 1;
}
