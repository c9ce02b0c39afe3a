// What generated files are made of: lines, and the banner at their beginning.
#pragma once

#include "shell/core/file_helpers.h"

#include <initializer_list>
#include <string_view>

// Writes a banner line with `mis` in its middle. A text that is too wide makes the line longer.
void MCent(OutputFile& han, std::string_view mis);

// Writes the banner of the file `Nom`, a full path.
void EsqCap(OutputFile& han, const char* Nom);

// Writes each text as a line.
void WriteLines(OutputFile& han, std::initializer_list<std::string_view> lines);

// Writes one line of several texts. Each is a text of its own for WriteFile, so only the one that
// is too long is left out.
void WriteLine(OutputFile& han, std::initializer_list<std::string_view> texts);

// Writes #include "file" and a line end.
void IncludeLine(OutputFile& han, std::string_view file);
