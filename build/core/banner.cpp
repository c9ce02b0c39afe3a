#include "build/core/banner.h"

#include "shell/core/paths.h"

#include <algorithm>

namespace {

// Room for a centred text. With the slashes around it a line has 50 characters, the rules have 51.
constexpr std::size_t kWidth = 46;

void RuleLine(OutputFile& han) {
    WriteFile(han, std::string(51, '/'), 1);
}

} // namespace

void MCent(OutputFile& han, std::string_view mis) {
    const std::size_t space = kWidth - std::min(mis.size(), kWidth);
    WriteLine(han,
              {"//", std::string(space / 2, ' '), mis, std::string(space - space / 2, ' '), "//"});
}

void EsqCap(OutputFile& han, const char* Nom) {
    RuleLine(han);
    MCent(han, Stem(Nom));
    RuleLine(han);
    MCent(han, "Code Create by Zentrik 2.0a");
    MCent(han, "Copyright (c) 1999 the Zentrik project");
    MCent(han, "Author: the Zentrik project");
    MCent(han, "Tutor: the Zentrik project");
    RuleLine(han);
}

void WriteLines(OutputFile& han, std::initializer_list<std::string_view> lines) {
    for (std::string_view line : lines)
        WriteFile(han, line, 1);
}

void WriteLine(OutputFile& han, std::initializer_list<std::string_view> texts) {
    for (std::string_view text : texts)
        WriteFile(han, text, 0);
    Return(han);
}

void IncludeLine(OutputFile& han, std::string_view file) {
    WriteLine(han, {"#include \"", file, "\""});
}
