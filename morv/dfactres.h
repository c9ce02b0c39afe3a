// A result: what rules conclude, with its certainty, opposites and history.
#ifndef MORV_DFACTRES
#define MORV_DFACTRES

#include "consts.h"
#include "datafact.h"
#include "shell.h"

#include <string>
#include <vector>

namespace morv {
struct ResultPast;
}

// Like a fact it is a constant at first; only a result of the project has a history.
class DATAFACTRESULT {
public:
    constexpr DATAFACTRESULT() = default;
    // A copy has no history and no opposites. What asks it asks the result it was copied from.
    DATAFACTRESULT(const DATAFACTRESULT& other)
        : text(other.text), now_(other.now_), origin_(other.Origin()) {}
    // A result of the project is concluded when the other one holds, and else taken back.
    DATAFACTRESULT& operator=(const DATAFACTRESULT& other);

    const char* text = ""; // the name of the result

    // Whether it holds, now or some ticks ago. An expression that asks for a result that holds
    // rests on its certainty; that one does not hold is fully certain.
    bool holds(int ticks_ago = 0) const;
    double certainty(int ticks_ago = 0) const;

    // Concludes it and takes its opposites back. An opposite that was concluded in the same tick
    // and is more certain stays, and this result does not hold. Returns whether it does.
    bool Conclude(double certainty);
    void Retract(const DATAFACTRESULT* opposite = nullptr);
    void AddOpposite(DATAFACTRESULT& other);

    // For the runtime itself.
    void Register(const char* result_name);
    std::string Told(int ticks_ago, double certainty) const;
    void AddReader(morv::Rule& rule); // that has to run when this changes
    morv::Justification* Why() const { return why_; }
    std::vector<DATAFACTRESULT*> Opposites() const;
    long counted = 0; // the round that counted its change

private:
    void Set(double certainty, const char* verb, const DATAFACTRESULT* opposite);
    const DATAFACTRESULT* Origin() const { return past_ != nullptr ? this : origin_; }

    double now_ = 0;     // its certainty; 0: does not hold
    long concluded_ = 0; // the tick that concluded it last, from 1
    long changed_ = 0;   // the tick of the last change, from 1
    morv::ResultPast* past_ = nullptr;
    morv::Justification* why_ = nullptr;
    const DATAFACTRESULT* origin_ = nullptr; // the one of the project that a copy was made of
};

// Two results of which at most one holds.
void set_opposites(DATAFACTRESULT& one, DATAFACTRESULT& other);

// Concludes a result, no more certain than the conditions that led here.
void deduce(DATAFACTRESULT* result, double certainty = FULL);

// Takes a result back, unless it is more certain than the conditions that led here.
void retract(DATAFACTRESULT* result);

#endif
