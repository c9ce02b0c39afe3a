// The banner that opens every generated file.
#pragma once

#include "shell/file_helpers.h"

// Writes one banner line with `mis` in its middle; a text of 46 characters or more fills it.
void MCent(OutputFile& han, std::string_view mis);

// Writes the banner for the file `Nom` (a full path).
void EsqCap(OutputFile& han, const char* Nom);

// Writes #include "file" and a line end.
void IncludeLine(OutputFile& han, std::string_view file);
