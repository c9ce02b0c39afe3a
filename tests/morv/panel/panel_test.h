// Stands in for the engine: what the panel's tests say that it knows, and what it was told.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace panel_test {

using Lines = std::vector<std::string>;

struct Engine {
    Lines output;      // what was told
    Lines inputs;      // "ITEM = text", as poked
    std::string trace; // what was asked for last
    int ticks = 0;
    std::map<std::string, std::string> states;     // of facts and results
    std::function<void()> rules = [] {};           // what runs in a tick
    std::function<void(const std::string&)> shown; // what else takes the lines
};

Engine& TheEngine();

class Panel : public testing::Test {
protected:
    void SetUp() override { TheEngine() = {}; }

    // What was told since the last call.
    static Lines Told() { return std::exchange(TheEngine().output, {}); }
};

} // namespace panel_test
