// A result: what rules conclude, with its certainty, opposites and history.
#ifndef MORV_DFACTRES
#define MORV_DFACTRES

#include "consts.h"
#include "shell.h"

#include <deque>
#include <vector>

class DATAFACTRESULT {
public:
    const char* text = ""; // the name of the result

    // Whether it holds, now or some ticks ago. An expression that asks for a result that holds
    // rests on its certainty; that one does not hold is fully certain.
    bool holds(int ticks_ago = 0) const;
    double certainty(int ticks_ago = 0) const;

    // Concludes it and takes its opposites back. An opposite that was concluded in the same tick
    // and is more certain stays, and this result does not hold. Returns whether it does.
    bool Conclude(double certainty);
    void Retract() { now_ = 0; }
    void AddOpposite(DATAFACTRESULT& other);

    void Remember(); // at the start of a tick

private:
    double now_ = 0;       // its certainty; 0: does not hold
    bool of_tick_ = false; // concluded in this tick
    std::vector<DATAFACTRESULT*> opposites_;
    std::deque<double> past_; // the last tick first
};

// Two results of which at most one holds.
void set_opposites(DATAFACTRESULT& one, DATAFACTRESULT& other);

// Concludes a result, no more certain than the conditions that led here.
void deduce(DATAFACTRESULT* result, double certainty = FULL);

void retract(DATAFACTRESULT* result);

#endif
