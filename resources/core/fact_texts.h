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

// Texts are cut to their fields; a number field holds 0 where its text starts with none.
Dat FactOf(const FactTexts& texts);
