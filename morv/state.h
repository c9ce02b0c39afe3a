// What the parts of the runtime share while rules run.
#ifndef MORV_STATE
#define MORV_STATE

#include "datafact.h"
#include "dfactres.h"

#include <algorithm>
#include <string>
#include <vector>

namespace morv {

struct State {
    std::vector<DATAFACT*> facts; // of all engines
    std::vector<DATAFACTRESULT*> results;
    long tick = 0;
    int conclusions = 0; // since the start

    double path = FULL;            // the certainty of the conditions around the statement that runs
    bool reading = false;          // an expression is being evaluated:
    double rests_on = FULL;        // the least certain of what it read, and
    std::vector<std::string> read; // for the trace, all of that in words

    bool trace = false;
    int depth = 0;     // of the blocks
    int rule_acts = 0; // what the rule did so far
};

State& Now();

// An expression is about to be evaluated: what it reads is collected.
void StartReading();

// Adds to what the expression read, but nothing twice.
void NoteForTrace(const std::string& what);

// An expression reads something of this certainty; `what()` tells it.
template <class Tell> void Note(double certainty, Tell what) {
    State& now = Now();
    if (!now.reading)
        return;
    now.rests_on = std::min(now.rests_on, certainty);
    if (now.trace)
        NoteForTrace(what());
}

// What the expression read, in brackets; empty when it read nothing.
std::string ReadText();

// A line of the trace, indented by the blocks around it.
void Trace(const std::string& line);

// A fact or a result changes. Within a rule `what()` goes to the trace.
template <class Tell> void Act(Tell what) {
    State& now = Now();
    ++now.rule_acts;
    if (now.trace && now.depth > 0)
        Trace(what());
}

// A certainty in its range; what is no number is not certain at all.
inline double InRange(double certainty) {
    return certainty > 0 ? std::min(certainty, double(FULL)) : 0;
}

std::string Number(double value);

// Drops what is beyond MAXNUMTICKS.
template <class History> void Trim(History& history) {
    const int longest = MAXNUMTICKS; // any number that the project has, also a negative one
    while (!history.empty() && static_cast<int>(history.size()) > longest)
        history.pop_back();
}

} // namespace morv

#endif
