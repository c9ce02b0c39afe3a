#include "datafact.h"

#include "explain.h"
#include "justify.h"
#include "state.h"

#include <cmath>
#include <deque>
#include <limits>
#include <optional>

using morv::CertaintyWord;
using morv::hot;
using morv::Number;

// What a fact was until the end of some ticks, the last one first.
struct morv::FactPast {
    struct Entry {
        long until;
        DATAFACT::Reading reading;
    };
    std::deque<Entry> entries;
    std::vector<Rule*> readers;
    std::vector<const Item*> items; // that its initial value is made of
};

DATAFACT::DATAFACT(const DATAFACT& other)
    : name(other.name), type(other.type), description(other.description),
      fact_value(other.fact_value), text(other.text), now_(other.now_), origin_(other.Origin()) {}

DATAFACT& DATAFACT::operator=(const DATAFACT& other) {
    if (past_ == nullptr) {
        name = other.name;
        type = other.type;
        description = other.description;
        fact_value = other.fact_value;
        text = other.text;
        now_ = other.now_;
        origin_ = other.Origin();
        return *this;
    }
    const morv::Aside aside;
    morv::Read();
    other.value();
    hot.reading = false;
    Give(other.now_.value, other.now_.certainty, "copied");
    morv::Act([&] { return "copy " + Summary() + " (" + CertaintyWord(now_.certainty) + ")"; });
    hot.read_count = hot.read_from;
    return *this;
}

void DATAFACT::Register(const char* fact_name, const morv::System* system) {
    text = fact_name;
    system_ = system;
    registered_ = hot.tick;
    past_ = new morv::FactPast;
}

void DATAFACT::AddReader(morv::Rule& rule) {
    if (past_ != nullptr)
        past_->readers.push_back(&rule);
}

DATAFACT::Reading DATAFACT::At(int ticks_ago) const {
    if (ticks_ago == 0)
        return now_;
    const long tick = hot.tick - ticks_ago;
    if (ticks_ago < 0 || past_ == nullptr || ticks_ago > MAXNUMTICKS || tick < registered_)
        return {};
    Reading reading = now_;
    for (const morv::FactPast::Entry& entry : past_->entries) {
        if (entry.until < tick)
            break;
        reading = entry.reading;
    }
    return reading;
}

std::string DATAFACT::Told(int ticks_ago, double value, double certainty) const {
    if (certainty <= 0)
        return std::string(text) + " unknown";
    const std::string unit(fact_value.units);
    std::string told = std::string(text);
    if (ticks_ago == 0)
        told += " = " + Number(value) + (unit.empty() ? "" : " " + unit) + ", " + LevelOf(value) +
                (IsOutside(value) ? ", outside its limits" : "");
    else
        told += " " + std::to_string(ticks_ago) + " ticks ago = " + Number(value);
    return told + " (" + CertaintyWord(certainty) + ")";
}

double DATAFACT::value(int ticks_ago) const {
    const Reading reading = At(ticks_ago);
    morv::Note({Origin(), nullptr, nullptr, ticks_ago, reading.value, reading.certainty});
    return reading.value;
}

double DATAFACT::certainty(int ticks_ago) const {
    return At(ticks_ago).certainty;
}

// The tick that saw one of the items of its initial value last; 0 when none was ever poked.
long DATAFACT::LastPoke() const {
    long last = 0;
    if (past_ != nullptr)
        for (const morv::Item* item : past_->items)
            last = std::max(last, item->tick);
    return last;
}

int DATAFACT::age() const {
    long given = given_ - 1;
    if (source_ != nullptr && (past_ == nullptr || past_->items.empty()))
        given = hot.tick;
    else if (const long poked = LastPoke(); poked > 0)
        given = std::max(given, poked);
    return given < 0 ? std::numeric_limits<int>::max()
                     : static_cast<int>(std::max(0L, hot.tick - given));
}

const char* DATAFACT::LevelOf(double value) const {
    if (value <= fact_value.lowest)
        return "lowest";
    if (value <= fact_value.low)
        return "low";
    if (value >= fact_value.highest)
        return "highest";
    return value >= fact_value.high ? "high" : "normal";
}

bool DATAFACT::IsOutside(double value) const {
    return value < fact_value.inf_limit || value > fact_value.sup_limit;
}

std::string DATAFACT::level() const {
    return LevelOf(value());
}

bool DATAFACT::outside() const {
    return IsOutside(value());
}

std::string DATAFACT::Summary() const {
    const std::string unit(fact_value.units);
    return std::string(text) + (" = " + Number(now_.value)) + (unit.empty() ? "" : " " + unit) +
           ", " + LevelOf(now_.value) + (IsOutside(now_.value) ? ", outside its limits" : "");
}

// Returns whether that is a change.
bool DATAFACT::Set(double value, double certainty, const char* verb) {
    if (std::isnan(value))
        certainty = 0;
    if (certainty == now_.certainty && morv::Same(value, now_.value))
        return false;
    if (past_ == nullptr) {
        now_ = {value, certainty};
        return true;
    }
    const bool first = changed_ != hot.tick + 1;
    if (first && MAXNUMTICKS > 0) {
        past_->entries.push_front({hot.tick - 1, now_});
        if (static_cast<int>(past_->entries.size()) > MAXNUMTICKS)
            past_->entries.pop_back();
    }
    morv::Now().changes.push_back(
        {this, nullptr, now_.value, now_.certainty, morv::RunningRule(), first});
    for (morv::Rule* rule : past_->readers)
        *rule->clean = 0;
    changed_ = hot.tick + 1;
    now_ = {value, certainty};
    morv::Justification& why = morv::Justify(why_, verb);
    why.value = value;
    why.certainty = certainty;
    return true;
}

void DATAFACT::Give(double value, double certainty, const char* verb) {
    origin_ = nullptr;
    given_ = hot.tick + 1;
    Set(value, std::min(certainty, hot.path), verb);
}

void DATAFACT::assign(double value, double certainty) {
    const bool computed = hot.computing == this;
    std::optional<morv::Aside> aside;
    if (!computed)
        aside.emplace();
    hot.reading = false;
    hot.computing = nullptr;
    const double most = computed ? hot.rests_on : double(FULL);
    Give(value, std::min(morv::InRange(certainty), most), "assigned");
    morv::Act([&] {
        // What is unknown now is so for what it was computed from.
        return "assign " + Summary() + " (" + CertaintyWord(now_.certainty) + ")" +
               (computed && now_.certainty <= 0 ? morv::ReadText() : "");
    });
    if (computed)
        hot.read_count = hot.read_from;
}

void DATAFACT::TakeUp(double value, double certainty, const char* source) {
    // Nearly always nothing has changed.
    if (source_ == source && value == now_.value && certainty == now_.certainty &&
        certainty <= hot.path && !hot.trace)
        return;
    if (source_ != source) {
        source_ = source;
        for (const std::string& name : morv::ItemsIn(source)) {
            morv::Item& item = morv::Now().items[name];
            item.name = name;
            if (past_ != nullptr)
                past_->items.push_back(&item);
        }
    }
    if (Set(value, std::min(morv::InRange(certainty), hot.path), "taken up") && why_ != nullptr) {
        why_->initial = source;
        why_->poked = LastPoke();
    }
    if (hot.trace)
        deduce(this);
}

void deduce(DATAFACT* fact) {
    if (hot.trace)
        morv::Trace("initial " + fact->Summary() + " (" + CertaintyWord(fact->certainty()) + ")");
}
