#include "dfactres.h"

#include "justify.h"
#include "state.h"

#include <algorithm>
#include <deque>

using morv::CertaintyWord;
using morv::hot;

// What a result was until the end of some ticks, the last one first, and what cannot hold with it.
struct morv::ResultPast {
    struct Entry {
        long until;
        double certainty;
    };
    std::deque<Entry> entries;
    std::vector<Rule*> readers;
    std::vector<DATAFACTRESULT*> opposites;
};

void DATAFACTRESULT::Register(const char* result_name) {
    text = result_name;
    if (past_ == nullptr)
        past_ = new morv::ResultPast;
}

DATAFACTRESULT& DATAFACTRESULT::operator=(const DATAFACTRESULT& other) {
    if (past_ == nullptr) {
        now_ = other.now_;
        origin_ = other.Origin();
    } else if (other.now_ > 0)
        deduce(this, other.now_);
    else
        retract(this);
    return *this;
}

void DATAFACTRESULT::AddReader(morv::Rule& rule) {
    if (past_ != nullptr)
        past_->readers.push_back(&rule);
}

std::vector<DATAFACTRESULT*> DATAFACTRESULT::Opposites() const {
    return past_ == nullptr ? std::vector<DATAFACTRESULT*>{} : past_->opposites;
}

double DATAFACTRESULT::certainty(int ticks_ago) const {
    if (ticks_ago == 0)
        return now_;
    const long tick = hot.tick - ticks_ago;
    if (ticks_ago < 0 || past_ == nullptr || ticks_ago > MAXNUMTICKS || tick < 0)
        return 0;
    double certainty = now_;
    for (const morv::ResultPast::Entry& entry : past_->entries) {
        if (entry.until < tick)
            break;
        certainty = entry.certainty;
    }
    return certainty;
}

std::string DATAFACTRESULT::Told(int ticks_ago, double certainty) const {
    return std::string(text) +
           (ticks_ago == 0 ? "" : " " + std::to_string(ticks_ago) + " ticks ago") +
           (certainty > 0 ? std::string(" holds (") + CertaintyWord(certainty) + ")"
                          : " does not hold");
}

bool DATAFACTRESULT::holds(int ticks_ago) const {
    const double how = certainty(ticks_ago);
    morv::Note({nullptr, Origin(), nullptr, ticks_ago, how, how > 0 ? how : double(FULL)});
    return how > 0;
}

void DATAFACTRESULT::Set(double certainty, const char* verb, const DATAFACTRESULT* opposite) {
    if (certainty == now_)
        return;
    if (past_ == nullptr) {
        now_ = certainty;
        return;
    }
    const bool first = changed_ != hot.tick + 1;
    if (first && MAXNUMTICKS > 0) {
        past_->entries.push_front({hot.tick - 1, now_});
        if (static_cast<int>(past_->entries.size()) > MAXNUMTICKS)
            past_->entries.pop_back();
    }
    morv::Now().changes.push_back({nullptr, this, 0, now_, morv::RunningRule(), first});
    for (morv::Rule* rule : past_->readers)
        *rule->clean = 0;
    changed_ = hot.tick + 1;
    now_ = certainty;
    morv::Justification& why = morv::Justify(why_, verb);
    why.certainty = certainty;
    why.opposite = opposite;
}

bool DATAFACTRESULT::Conclude(double certainty) {
    const long now = hot.tick + 1;
    if (past_ != nullptr) {
        for (const DATAFACTRESULT* opposite : past_->opposites)
            if (opposite->concluded_ == now && opposite->now_ > certainty)
                return false;
        for (DATAFACTRESULT* opposite : past_->opposites) {
            if (opposite->now_ > 0)
                morv::Act([&] {
                    return std::string("retract ") + opposite->text + ": it is the opposite of " +
                           text;
                });
            opposite->Retract(this);
        }
    }
    Set(concluded_ == now ? std::max(now_, certainty) : certainty, "deduced", nullptr);
    concluded_ = now;
    return true;
}

void DATAFACTRESULT::Retract(const DATAFACTRESULT* opposite) {
    Set(0, "retracted", opposite);
}

void DATAFACTRESULT::AddOpposite(DATAFACTRESULT& other) {
    if (past_ == nullptr)
        past_ = new morv::ResultPast;
    std::vector<DATAFACTRESULT*>& opposites = past_->opposites;
    if (&other != this && std::find(opposites.begin(), opposites.end(), &other) == opposites.end())
        opposites.push_back(&other);
}

void set_opposites(DATAFACTRESULT& one, DATAFACTRESULT& other) {
    one.AddOpposite(other);
    other.AddOpposite(one);
}

void deduce(DATAFACTRESULT* result, double certainty) {
    const double how = std::min(morv::InRange(certainty), hot.path);
    const auto tell = [&](double told, const char* more) {
        morv::Act([&] {
            return std::string("deduce ") + result->text + " (" + CertaintyWord(told) + ")" + more;
        });
    };
    if (how <= 0)
        return tell(how, ": nothing is certain about it");
    if (!result->Conclude(how))
        return tell(how, ": its opposite is more certain");
    tell(result->certainty(), "");
}

void retract(DATAFACTRESULT* result) {
    if (result->certainty() > hot.path) {
        morv::Act([&] {
            return std::string("retract ") + result->text + ": it stays, for it is more certain (" +
                   CertaintyWord(result->certainty()) + ") than what led here (" +
                   CertaintyWord(hot.path) + ")";
        });
        return;
    }
    result->Retract();
    morv::Act([&] { return std::string("retract ") + result->text; });
}
