// Scenario files: what is poked into a project's program at which tick, and what must hold then.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

enum class StepKind { Poke, Tick, Holds, Value, Not, Unknown, Fired, NotFired };

struct Step {
    StepKind kind;
    int line;           // in the file, from 1
    std::string text;   // as it is written
    std::string name;   // of what is expected; of a rule its system
    std::string wanted; // the certainty, or the number of the rule; empty: any certainty
    double value = 0, tolerance = 0;
};

struct Scenario {
    std::string name;
    int line;
    std::vector<Step> steps;
};

// A line that means nothing, and why.
struct BadLine {
    int line;
    std::string why;
};

// Reads a scenario file; `bad` is the first line that cannot be read, if there is one.
std::vector<Scenario> ReadScenarios(std::string_view text, std::optional<BadLine>& bad);

} // namespace console
