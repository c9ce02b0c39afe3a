// What the sample consists of, as a user types it in.
#pragma once

#include "resources/core/fact.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace gui {

using Pair = std::pair<std::string, std::string>;

struct NameList { // of results or tags
    std::string name;
    std::vector<std::string> rows;
};

struct DdeParts {
    std::string name;
    std::string conversation;
    std::vector<Pair> items; // item and type
};

struct VariableParts {
    std::string name, type, value;
};

struct InitialParts {
    std::string fact, value, certainty;
};

struct SystemParts {
    std::string name;
    std::string rules;  // file name
    std::string header; // file name, empty when there is none
    std::vector<std::string> types;
    std::vector<std::string> without; // facts of the base that it does not use
    std::vector<Dat> base;
    std::vector<Pair> opposites; // result and opposite
    std::vector<VariableParts> variables;
    std::vector<InitialParts> initial; // those that have a value
};

// Files are named without their folder, and those that the project makes without extension.
struct SampleParts {
    std::string name;
    std::string main;
    std::vector<std::string> externs;
    std::int32_t history = 0;
    DdeParts dde;
    std::vector<NameList> results;
    std::vector<NameList> tags;
    std::vector<SystemParts> systems;
};

// The parts of the sample whose text form stands in `folder`. A text that cannot be read fails.
SampleParts PartsOfSample(const std::string& folder);

} // namespace gui
