#include "dfactres.h"

#include "state.h"

#include <algorithm>

double DATAFACTRESULT::certainty(int ticks_ago) const {
    if (ticks_ago == 0)
        return now_;
    if (ticks_ago < 0 || ticks_ago > static_cast<int>(past_.size()))
        return 0;
    return past_[static_cast<std::size_t>(ticks_ago - 1)];
}

bool DATAFACTRESULT::holds(int ticks_ago) const {
    const double how = certainty(ticks_ago);
    morv::Note(how > 0 ? how : double(FULL), [&] {
        return text + (ticks_ago == 0 ? "" : " " + std::to_string(ticks_ago) + " ticks ago") +
               (how > 0 ? std::string(" holds (") + morv::CertaintyWord(how) + ")"
                        : " does not hold");
    });
    return how > 0;
}

bool DATAFACTRESULT::Conclude(double certainty) {
    for (const DATAFACTRESULT* opposite : opposites_)
        if (opposite->of_tick_ && opposite->now_ > certainty)
            return false;
    for (DATAFACTRESULT* opposite : opposites_) {
        if (opposite->now_ > 0)
            morv::Act([&] {
                return std::string("retract ") + opposite->text + ": it is the opposite of " + text;
            });
        opposite->Retract();
    }
    now_ = of_tick_ ? std::max(now_, certainty) : certainty;
    of_tick_ = true;
    return true;
}

void DATAFACTRESULT::AddOpposite(DATAFACTRESULT& other) {
    if (&other != this &&
        std::find(opposites_.begin(), opposites_.end(), &other) == opposites_.end())
        opposites_.push_back(&other);
}

void DATAFACTRESULT::Remember() {
    past_.push_front(now_);
    morv::Trim(past_);
    of_tick_ = false;
}

// Every engine() says its opposites anew.
void set_opposites(DATAFACTRESULT& one, DATAFACTRESULT& other) {
    one.AddOpposite(other);
    other.AddOpposite(one);
}

void deduce(DATAFACTRESULT* result, double certainty) {
    morv::State& now = morv::Now();
    const double how = std::min(morv::InRange(certainty), now.path);
    const auto tell = [&](double told, const char* more) {
        morv::Act([&] {
            return std::string("deduce ") + result->text + " (" + morv::CertaintyWord(told) + ")" +
                   more;
        });
    };
    if (how <= 0)
        return tell(how, ": nothing is certain about it");
    if (!result->Conclude(how))
        return tell(how, ": its opposite is more certain");
    ++now.conclusions;
    tell(result->certainty(), "");
}

void retract(DATAFACTRESULT* result) {
    result->Retract();
    morv::Act([&] { return std::string("retract ") + result->text; });
}
