// What the parts of the runtime share while rules run.
#ifndef MORV_STATE
#define MORV_STATE

#include "datafact.h"
#include "dfactres.h"
#include "inf_eng.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace morv {

// What another program pokes.
struct Item {
    std::string name, text;
    long tick = 0; // that sees it first; 0: never poked
};

// The items in the text of an initial value: Level and Least of "DDEinfo.Level-DDEinfo.Least".
std::vector<std::string> ItemsIn(const std::string& text);

// A change of a fact or a result, with what it was before.
struct Change {
    DATAFACT* fact;
    DATAFACTRESULT* result;
    double value, certainty;
    const Rule* rule;   // that did it, if one did
    bool first_of_tick; // of this fact or result
};

struct State {
    std::vector<DATAFACT*> facts; // of all engines
    std::vector<DATAFACTRESULT*> results;
    std::vector<System*> systems;
    std::map<std::string, Item> items;
    std::vector<Change> changes;            // of this tick
    std::vector<std::string> told;          // of the last one, in words
    std::vector<const Rule*> restless;      // the rules that changed something in the last round
    std::vector<std::string> assigned_from; // what the value to be assigned was computed from
    bool trace = false;
    std::string trace_system, trace_rule;                      // empty: all
    std::vector<std::pair<std::string, std::string>> untraced; // of these: system and rule
    std::string (*clock)() = nullptr;
    std::string time; // of this tick
    bool running = false, refused = false;
    const Rule* thrower = nullptr; // that ended this tick, if known
    std::string thrown;            // what was told of the one that ended the last tick
    long rounds = 0;
};

State& Now();

// The text of a reading: "Pressure = 9 bar, normal (HIGH)".
std::string TextOf(const ReadRecord& read);

// What the expression at hand read, in brackets; empty when it read nothing.
std::string ReadText();

// A line of the trace, indented by the blocks around it.
void Trace(const std::string& line);

// A fact or a result is told to change. Within a rule `what()` goes to the trace.
template <class Tell> void Act(Tell what) {
    ++hot.acts;
    if (hot.trace && hot.scope != nullptr)
        Trace(what());
}

// A certainty in its range; what is no number is not certain at all.
inline double InRange(double certainty) {
    return certainty > 0 ? std::min(certainty, double(FULL)) : 0;
}

// Whether two values are the same; those that are no numbers are.
inline bool Same(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

// With six digits, but whole numbers as they are: 0.333333, 1234567.
std::string Number(double value, int digits = 6);

// "rule 3 of steam: its title"
std::string NameOf(const Rule& rule);

// The rule that runs; null outside of rules.
const Rule* RunningRule();

} // namespace morv

#endif
