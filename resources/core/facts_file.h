// The facts base file (.fac): fact records and nothing else. A record that is cut short at the end
// of a file is no fact; the next fact that is added is written over it.
#pragma once

#include "resources/core/fact.h"
#include "shell/core/record_text.h"

// The companion file of the knowledge types that were added to a facts base.
std::string TypesFileOf(const char* path);

// The identifier for the next fact of a base: one more than that of the last fact. That of the
// first fact is not looked at, so it is 2 after a single one.
std::int32_t NextIdent(const std::vector<Dat>& facts);

// `ident` + 1; the largest identifier is followed by the smallest.
std::int32_t IdentAfter(std::int32_t ident);

// Reads fact `index`. Returns false when the file cannot be opened or has no such fact.
bool ReadFact(const char* path, std::size_t index, Dat& fact);

// Adds a fact at the end of a file, which is created when missing. Returns its index, or -1 when
// it cannot be written; then the file is as it was.
int AppendFact(const char* path, const Dat& fact);

// Writes over fact `index`; past the end it appends. Returns where the fact stands now, or -1 when
// it cannot be written.
int ReplaceFact(const char* path, std::size_t index, const Dat& fact);

// What came of taking a fact out. Only after Done is the file another than before.
enum class Removal {
    Done,
    NoSuchFact, // the file has fewer facts
    Failed,
};

// Takes fact `index` out. When none is left the file and its knowledge types are deleted.
Removal RemoveFact(const char* path, std::size_t index);
