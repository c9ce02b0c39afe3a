#include "datafact.h"

#include "state.h"

#include <algorithm>
#include <utility>

using morv::CertaintyWord;
using morv::Now;
using morv::Number;

DATAFACT::Reading DATAFACT::At(int ticks_ago) const {
    if (ticks_ago == 0)
        return now_;
    if (ticks_ago < 0 || ticks_ago > static_cast<int>(past_.size()))
        return {};
    return past_[static_cast<std::size_t>(ticks_ago - 1)];
}

std::string DATAFACT::Told(int ticks_ago) const {
    const Reading reading = At(ticks_ago);
    if (reading.certainty <= 0)
        return std::string(text) + " unknown";
    const std::string when = " " + std::to_string(ticks_ago) + " ticks ago = ";
    return (ticks_ago == 0 ? Summary() : text + when + Number(reading.value)) + " (" +
           CertaintyWord(reading.certainty) + ")";
}

double DATAFACT::value(int ticks_ago) const {
    const Reading reading = At(ticks_ago);
    morv::Note(reading.certainty, [&] { return Told(ticks_ago); });
    return reading.value;
}

double DATAFACT::certainty(int ticks_ago) const {
    return At(ticks_ago).certainty;
}

const char* DATAFACT::Level() const {
    if (now_.value <= fact_value.lowest)
        return "lowest";
    if (now_.value <= fact_value.low)
        return "low";
    if (now_.value >= fact_value.highest)
        return "highest";
    return now_.value >= fact_value.high ? "high" : "normal";
}

bool DATAFACT::Outside() const {
    return now_.value < fact_value.inf_limit || now_.value > fact_value.sup_limit;
}

std::string DATAFACT::level() const {
    value();
    return Level();
}

bool DATAFACT::outside() const {
    value();
    return Outside();
}

std::string DATAFACT::Summary() const {
    const std::string unit(fact_value.units);
    return text + (" = " + Number(now_.value)) + (unit.empty() ? "" : " " + unit) + ", " + Level() +
           (Outside() ? ", outside its limits" : "");
}

void DATAFACT::assign(double value, double certainty) {
    morv::State& now = Now();
    const double most = now.reading ? std::min(now.path, now.rests_on) : now.path;
    const bool computed = std::exchange(now.reading, false);
    now_ = {value, std::min(morv::InRange(certainty), most)};
    morv::Act([&] {
        // What is unknown now is so for what it was computed from.
        return "assign " + Summary() + " (" + CertaintyWord(now_.certainty) + ")" +
               (computed && now_.certainty <= 0 ? morv::ReadText() : "");
    });
}

DATAFACT& DATAFACT::computed() {
    morv::StartReading();
    return *this;
}

void DATAFACT::Remember() {
    past_.push_front(now_);
    morv::Trim(past_);
}

void deduce(DATAFACT* fact) {
    if (morv::Now().trace)
        morv::Trace("initial " + fact->Summary() + " (" + CertaintyWord(fact->certainty()) + ")");
}
