// How a fact or a result came to be what it is: taken down when it changes.
#ifndef MORV_JUSTIFY
#define MORV_JUSTIFY

#include "inf_eng.h"

#include <vector>

namespace morv {

// A block on the way to what was done.
struct Step {
    const Site* site;     // null for a round of ForAll
    const DATAFACT* each; // its fact
    const char* branch;   // "Then", "Else" or "Otherwise"
    double certainty;     // of the condition
    int reads_end;        // where in `reads` what it read ends
};

struct Justification {
    const char* verb = "";      // "deduced", "assigned" and so on
    const Rule* rule = nullptr; // null outside of rules
    long tick = 0;
    char time[12] = "";
    double value = 0, certainty = 0;
    const char* initial = nullptr;            // the text of an initial value
    long poked = 0;                           // the tick that saw its item first, 0 for none
    const DATAFACTRESULT* opposite = nullptr; // that took a result back
    std::vector<Step> steps;                  // from the outermost block to the innermost
    std::vector<ReadRecord> reads; // of all steps, and then what a value was computed from
};

// Takes down how things stand. `why` is made when there is none yet.
Justification& Justify(Justification*& why, const char* verb);

} // namespace morv

#endif
