// A fact as the texts of its editor.
#pragma once

#include "resources/core/fact.h"

#include <string>

struct FactTexts {
    std::string name;
    std::string description;
    std::string type;
    std::string unit;
    std::string lower_limit;
    std::string higher_limit;
    std::string step;
    std::string interval;
    std::string lowest;
    std::string low;
    std::string normal;
    std::string high;
    std::string highest;
    std::string ident;
};

FactTexts TextsOf(const Dat& fact);

// The fact that the texts describe. Long texts are cut; a text that starts with no number gives 0.
Dat FactOf(const FactTexts& texts);
