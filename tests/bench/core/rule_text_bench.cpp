// How long renumbering takes.
#include "system/core/rule_text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;

// Rules that all change their number, of about a hundred bytes each.
std::string Rules(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) {
        text += "Rule " + std::to_string(count + i) + "\r\nif temperature > " + std::to_string(i) +
                " and pressure is high\r\nthen open the valve and tell the user\r\nEndRule\r\n";
    }
    return text;
}

// The best of some runs, in milliseconds.
double Measure(const std::string& text, std::size_t rules) {
    double best = 1e9;
    for (int run = 0; run < 7; ++run) {
        const auto start = Clock::now();
        const bool right = Renumber(text).sizes.size() == rules;
        const std::chrono::duration<double, std::milli> took = Clock::now() - start;
        if (!right)
            std::printf("renumber: wrong count\n");
        best = std::min(best, took.count());
    }
    return best;
}

} // namespace

void BenchRenumber() {
    double before = 0;
    for (int rules : {1000, 2000, 4000, 8000}) {
        const double took = Measure(Rules(rules), static_cast<std::size_t>(rules));
        std::printf("renumber %5d rules: %8.3f ms", rules, took);
        if (before > 0)
            std::printf("  x %.2f", took / before);
        std::printf("\n");
        before = took;
    }
}
