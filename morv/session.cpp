#include "session.h"

#include "explain.h"
#include "items.h"
#include "shell.h"

#include "ddecom.h"

#include <cstdio>
#include <ctime>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace morv {

namespace {

struct Session {
    bool in_tick = false;
    std::vector<ItemValue> waiting;              // poked while the tick runs
    std::unordered_map<int, std::string> values; // of the items, as they were poked last
    std::string refused;                         // the line told last
    std::set<std::string> boxes, boxes_before;   // what rules told the operator in this tick
};

Session& Current() {
    static Session session;
    return session;
}

void StampTime() {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (local == nullptr || std::strftime(hora, sizeof hora, "%H:%M:%S", local) == 0)
        std::snprintf(hora, sizeof hora, "now");
}

void Give(const ItemValue& value) {
    GiveValue(value);
    StampTime();
    NoteInput(ItemName(value.item), value.text);
}

bool RefusePoke(const std::string& why, From from) {
    if (std::exchange(Current().refused, why) != why || from == From::User)
        Output("Poke refused: " + why);
    return false;
}

// Says nothing new when the rules told it in the tick before, too.
void TellBox(const std::string& text) {
    Session& session = Current();
    if (!session.in_tick)
        return Output("> " + text);
    if (session.boxes.insert(text).second && session.boxes_before.count(text) == 0)
        Output("> " + text);
}

} // namespace

bool InTick() {
    return Current().in_tick;
}

void RunTick() {
    Session& session = Current();
    if (session.in_tick)
        return;
    session.boxes_before = std::exchange(session.boxes, {});
    session.in_tick = true;
    Tick();
    session.in_tick = false;
    for (const ItemValue& value : std::exchange(session.waiting, {}))
        Give(value);
}

bool PokeItem(const std::string& item, const std::string& text, From from) {
    Session& session = Current();
    const ItemValue value = LookAtValue(item, text);
    if (!value.wrong.empty())
        return RefusePoke(value.wrong, from);
    session.refused.clear();
    if (session.in_tick)
        session.waiting.push_back(value);
    else
        Give(value);
    const auto known = session.values.find(value.item);
    if (known == session.values.end() || known->second != value.text || from == From::User) {
        session.values[value.item] = value.text;
        Output(std::string("Poke: ") + ItemName(value.item) + " = " + value.text);
    }
    return true;
}

} // namespace morv

void put_box(const char* text) {
    morv::TellBox(text != nullptr ? text : "");
}

void put_box(char* text) {
    put_box(static_cast<const char*>(text));
}
