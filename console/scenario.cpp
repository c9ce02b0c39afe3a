#include "console/scenario.h"

#include "console/form/fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace console {

namespace {

constexpr long kMostTicks = 100000; // that the program takes at once

constexpr std::array<std::string_view, 8> kCertainties = {
    "VERYLOW", "LOW", "NOTVERYLOW", "NORMAL", "NOTVERYHIGH", "HIGH", "VERYHIGH", "FULL"};

constexpr char kExpect[] = "expect takes: NAME holds [CERTAINTY], NAME = VALUE [+- TOLERANCE], not "
                           "NAME, unknown NAME, [not] fired SYSTEM RULE";

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (text = Trimmed(text); !text.empty();) {
        const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
        words.emplace_back(text.substr(0, end));
        text = Trimmed(text.substr(end));
    }
    return words;
}

// What follows the first `count` words of a line that has more.
std::string_view After(std::string_view line, int count) {
    for (; count > 0; --count)
        line = Trimmed(line.substr(std::min(line.find_first_of(" \t"), line.size())));
    return line;
}

template <class Number> bool Reads(const std::string& word, Number& number) {
    const char* const end = word.data() + word.size();
    const auto [stopped, error] = std::from_chars(word.data(), end, number);
    return error == std::errc() && stopped == end;
}

bool ReadsFinite(const std::string& word, double& number) {
    return Reads(word, number) && std::isfinite(number);
}

std::string ReadTick(const std::vector<std::string>& words) {
    long count = 1;
    const bool read = words.size() == 1 || (words.size() == 2 && Reads(words[1], count));
    return read && count >= 1 && count <= kMostTicks
               ? ""
               : "tick takes a number from 1 to " + std::to_string(kMostTicks);
}

// NAME holds [CERTAINTY]
std::string ReadHolds(const std::vector<std::string>& words, Step& step) {
    if (words.size() > 4)
        return kExpect;
    step.kind = StepKind::Holds;
    step.wanted = words.size() == 4 ? words[3] : "";
    if (!step.wanted.empty() &&
        std::find(kCertainties.begin(), kCertainties.end(), step.wanted) == kCertainties.end())
        return "there is no certainty " + step.wanted;
    return {};
}

// NAME = VALUE [+- TOLERANCE]
std::string ReadValue(const std::vector<std::string>& words, Step& step) {
    step.kind = StepKind::Value;
    if ((words.size() != 4 && words.size() != 6) || (words.size() == 6 && words[4] != "+-"))
        return kExpect;
    if (!ReadsFinite(words[3], step.value))
        return "not a number: " + words[3];
    if (words.size() == 6 && (!ReadsFinite(words[5], step.tolerance) || step.tolerance < 0))
        return "not a tolerance: " + words[5];
    return {};
}

std::string ReadExpect(std::vector<std::string> words, Step& step) {
    if (words.size() < 3)
        return kExpect;
    step.name = words[1];
    if (words[2] == "holds")
        return ReadHolds(words, step);
    if (words[2] == "=")
        return ReadValue(words, step);
    const bool inverse = words[1] == "not";
    if (words.size() == 3 && (inverse || words[1] == "unknown")) {
        step.kind = inverse ? StepKind::Not : StepKind::Unknown;
        step.name = words[2];
        return {};
    }
    if (inverse)
        words.erase(words.begin() + 1);
    if (words.size() != 4 || words[1] != "fired")
        return kExpect;
    step.kind = inverse ? StepKind::NotFired : StepKind::Fired;
    step.name = words[2];
    step.wanted = words[3];
    return {};
}

// Returns what is wrong with a step's line; empty when nothing is.
std::string ReadStep(Step& step) {
    const std::vector<std::string> words = WordsOf(step.text);
    if (words[0] == "poke") {
        step.kind = StepKind::Poke;
        return words.size() < 3 ? "poke takes an item and a value" : "";
    }
    if (words[0] == "tick") {
        step.kind = StepKind::Tick;
        return ReadTick(words);
    }
    if (words[0] == "expect")
        return ReadExpect(words, step);
    return "no such step: " + words[0];
}

} // namespace

std::vector<Scenario> ReadScenarios(std::string_view text, std::optional<BadLine>& bad) {
    std::vector<Scenario> scenarios;
    text = WithoutMark(text);
    for (int number = 1; !text.empty() && !bad; ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == '#')
            continue;
        const auto refuse = [&](const std::string& why) {
            if (!why.empty())
                bad = BadLine{number, why};
        };
        if (std::any_of(line.begin(), line.end(),
                        [](unsigned char c) { return c < ' ' && c != '\t'; })) {
            refuse("it is no text");
        } else if (WordsOf(line)[0] == "scenario") {
            scenarios.push_back({std::string(After(line, 1)), number, {}});
            refuse(scenarios.back().name.empty() ? "scenario takes a name" : "");
        } else if (scenarios.empty()) {
            refuse("a scenario begins with the line: scenario NAME");
        } else {
            Step step{StepKind::Tick, number, std::string(line), "", "", 0, 0};
            refuse(ReadStep(step));
            scenarios.back().steps.push_back(std::move(step));
        }
    }
    return scenarios;
}

} // namespace console
