// Translates a rules source for the tests: translate_rules <source> <header> <folder>. All sources
// but the first are also in pieces.cpp.
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
    const std::filesystem::path folder = words[3];
    std::filesystem::create_directories(folder);
    for (const auto* pieces : {&translation.headers, &translation.sources})
        for (const morv::Piece& piece : *pieces)
            std::ofstream(folder / piece.name, std::ios::binary) << piece.text;
    std::ofstream all(folder / "pieces.cpp", std::ios::binary);
    for (std::size_t i = 1; i < translation.sources.size(); ++i)
        all << translation.sources[i].text;
    for (const std::string& note : translation.notes)
        std::printf("%s\n", note.c_str());
    return translation.errors.empty() ? 0 : 1;
}
