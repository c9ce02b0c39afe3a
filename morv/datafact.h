// A fact: a value with its certainty, limits, levels and history.
#ifndef MORV_DATAFACT
#define MORV_DATAFACT

#include "consts.h"
#include "shell.h"

#include <deque>

struct FACT_VALUE {
    morv::Field<MAXUNITS> units;
    double inf_limit = 0, sup_limit = 0, step_v = 0;
    double lowest = 0, low = 0, normal = 0, high = 0, highest = 0;
};

class DATAFACT {
public:
    int name = 0; // the number of the fact
    DATAFACTTYPE type = NOTYPE;
    morv::Field<MAXDESCRIPTION> description;
    FACT_VALUE fact_value;
    const char* text = ""; // the name of the fact

    // The value and its certainty, now or some ticks ago. What was never assigned, or lies before
    // the history, is 0 with certainty 0. An expression that reads a value rests on its certainty.
    double value(int ticks_ago = 0) const;
    double certainty(int ticks_ago = 0) const;
    bool known() const { return now_.certainty > 0; }

    // "lowest", "low", "normal", "high" or "highest": which level the value has reached; and
    // whether it is outside its limits. An expression rests on them as on the value.
    std::string level() const;
    bool outside() const;

    // Gives a value. Within a rule it is no more certain than the conditions that led here and the
    // facts that the value was computed from.
    void assign(double value, double certainty);

    // What a rule puts before assign, for the value to rest on the facts it is computed from.
    DATAFACT& computed();

    void Remember(); // at the start of a tick
    std::string Summary() const;

private:
    struct Reading {
        double value = 0;
        double certainty = 0;
    };
    Reading At(int ticks_ago) const;
    std::string Told(int ticks_ago) const;
    const char* Level() const;
    bool Outside() const;

    Reading now_;
    std::deque<Reading> past_; // the last tick first
};

// Takes up the initial value of a fact.
void deduce(DATAFACT* fact);

#endif
