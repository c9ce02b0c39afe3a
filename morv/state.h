// What the parts of the runtime share while rules run.
#ifndef MORV_STATE
#define MORV_STATE

#include "datafact.h"
#include "dfactres.h"

#include <string>
#include <vector>

namespace morv {

struct State {
    std::vector<DATAFACT*> facts; // of all engines
    std::vector<DATAFACTRESULT*> results;
    long tick = 0;
    int conclusions = 0; // since the start

    double path = FULL;     // the certainty of the conditions around the statement that runs
    bool reading = false;   // an expression is being evaluated:
    double rests_on = FULL; // the least certain of what it read, and
    std::string read;       // all of that in words

    bool trace = false;
    int depth = 0;     // of the blocks
    int rule_acts = 0; // what the rule did so far
};

State& Now();

// An expression is about to be evaluated: what it reads is collected.
void StartReading();

// An expression reads something of this certainty; `what` tells it.
void Note(double certainty, const std::string& what);

// A line of the trace, indented by the blocks around it.
void Trace(const std::string& line);

// A fact or a result changes. Within a rule that goes to the trace.
void Act(const std::string& what);

std::string Number(double value);

// Drops what is beyond MAXNUMTICKS.
template <class History> void Trim(History& history) {
    const int longest = MAXNUMTICKS; // any number that the project has, also a negative one
    while (!history.empty() && static_cast<int>(history.size()) > longest)
        history.pop_back();
}

} // namespace morv

#endif
