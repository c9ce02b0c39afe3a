// A fact: a value with its certainty, limits, levels and history.
#ifndef MORV_DATAFACT
#define MORV_DATAFACT

#include "consts.h"
#include "shell.h"

#include <string>

namespace morv {

struct FactPast;
class System;
struct Justification;
struct Rule;

} // namespace morv

struct FACT_VALUE {
    morv::Field<MAXUNITS> units;
    double inf_limit = 0, sup_limit = 0, step_v = 0;
    double lowest = 0, low = 0, normal = 0, high = 0, highest = 0;
};

// A new fact is a constant and its end does nothing: thousands of them cost nothing at start. Only
// a fact of a system, which lives as long as the program, has a history and a justification.
class DATAFACT {
public:
    constexpr DATAFACT() = default;
    // A copy has no history. What reads it reads the fact that it was copied from.
    DATAFACT(const DATAFACT& other);
    // A fact of a system is given the value alone, no more certain than an assigned one.
    DATAFACT& operator=(const DATAFACT& other);

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

    // How many ticks ago it was given a value, by a rule or by the poke of its item, the same one
    // or another; a very large number when it never was.
    int age() const;

    // "lowest", "low", "normal", "high" or "highest": which level the value has reached; and
    // whether it is outside its limits. An expression rests on them as on the value.
    std::string level() const;
    bool outside() const;

    // Gives a value. Within a rule it is no more certain than the conditions that led here and the
    // facts that the value was computed from. What is no number is unknown.
    void assign(double value, double certainty);

    // For the runtime itself.
    void Register(const char* fact_name, const morv::System* system);
    void TakeUp(double value, double certainty, const char* source);
    std::string Summary() const;
    std::string Told(int ticks_ago, double value, double certainty) const;
    void AddReader(morv::Rule& rule); // that has to run when this changes
    morv::Justification* Why() const { return why_; }
    double Value() const { return now_.value; }
    const morv::System* System() const { return system_; }
    long counted = 0; // the round that counted its change

private:
    struct Reading {
        double value = 0;
        double certainty = 0;
    };
    friend struct morv::FactPast;
    Reading At(int ticks_ago) const;
    const char* LevelOf(double value) const;
    bool IsOutside(double value) const;
    bool Set(double value, double certainty, const char* verb);
    void Give(double value, double certainty, const char* verb);
    long LastPoke() const;
    const DATAFACT* Origin() const { return past_ != nullptr ? this : origin_; }

    Reading now_;
    const char* source_ = nullptr;     // the text of its initial value
    const DATAFACT* origin_ = nullptr; // the fact of a system that a copy has its value from
    const morv::System* system_ = nullptr;
    morv::FactPast* past_ = nullptr;
    morv::Justification* why_ = nullptr;
    long given_ = 0;      // the tick after the last assign, but not of an initial value; 0: never
    long registered_ = 0; // the tick from which on there is a history
    long changed_ = 0;    // the tick after that of the last change
};

// Takes up the initial value of a fact.
void deduce(DATAFACT* fact);

#endif
