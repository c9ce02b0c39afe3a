// The readable source of a sample project: its format stands at the top of boiler/boiler.txt.
#pragma once

#include "resources/core/fact.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sample {

using Pair = std::pair<std::string, std::string>;

struct NameList { // a results or tags section
    std::string name;
    std::vector<std::string> rows;
};

struct Dde {
    std::string name;
    std::string conversation;
    std::vector<Pair> items; // item and type
};

struct Variable {
    std::string name, type, value;
};

struct InitialFact {
    std::string fact, value, certainty;
};

struct System {
    std::string name;
    std::string rules;  // file name
    std::string header; // file name, empty when there is none
    std::vector<std::string> types;
    std::vector<std::string> without; // facts of the base that it does not use
    std::vector<Dat> base;
    std::vector<Pair> opposites; // result and opposite
    std::vector<Variable> variables;
    std::vector<InitialFact> initial;

    std::vector<Dat> UsedFacts() const; // the base but for `without`
};

struct Source {
    std::string name;
    std::string main; // file names
    std::vector<std::string> externs;
    std::string dde;
    std::int32_t history = 4;
    std::vector<NameList> results;
    std::vector<NameList> tags;
    std::vector<Dde> dde_files;
    std::vector<System> systems;
};

// Reads a source text. Returns an empty text, or what is wrong with it and in which line. Every
// name a row refers to (a type, a fact, a result) is declared when it returns an empty text.
std::string ReadSource(std::string_view text, Source& source);

} // namespace sample
