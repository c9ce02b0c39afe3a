#include "commands.h"

#include "explain.h"
#include "names.h"
#include "session.h"
#include "shell.h"

#include <cstdlib>
#include <sstream>
#include <vector>

namespace morv {

namespace {

constexpr long kMostTicks = 100000;

// The words of a line, one after the other.
class Words {
public:
    explicit Words(const std::string& line) : stream_(line) {}

    std::string Next() {
        std::string word;
        stream_ >> word;
        return word;
    }

    // All that follows, as it was typed.
    std::string Rest() {
        std::string rest;
        std::getline(stream_ >> std::ws, rest);
        while (!rest.empty() && (rest.back() == ' ' || rest.back() == '\r'))
            rest.pop_back();
        return rest;
    }

private:
    std::istringstream stream_;
};

bool Refuse(const std::string& why) {
    Output(why);
    return false;
}

bool Tell(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        Output(line);
    return true;
}

bool DoWhy(Words& words, const Front&) {
    std::string name = words.Next();
    const bool negative = name == "not";
    if (negative)
        name = words.Next();
    if (name.empty())
        return Refuse("why takes the name of a fact or result");
    const std::string meant = MeantName(name);
    if (StateText(meant).empty())
        return Refuse("there is no fact or result " + name);
    return Tell(negative ? WhyNot(meant) : Why(meant));
}

bool DoPoke(Words& words, const Front&) {
    const std::string item = words.Next();
    const std::string value = words.Rest();
    return item.empty() || value.empty() ? Refuse("poke takes an item and a value")
                                         : PokeItem(item, value, From::User);
}

bool DoTick(Words& words, const Front& front) {
    const std::string text = words.Rest();
    char* end = nullptr;
    const long count = text.empty() ? 1 : std::strtol(text.c_str(), &end, 10);
    if (count < 1 || count > kMostTicks || (end != nullptr && *end != '\0'))
        return Refuse("tick takes a number from 1 to " + std::to_string(kMostTicks));
    if (InTick())
        return Refuse("a tick is running");
    front.tick(count);
    return true;
}

bool DoTrace(Words& words, const Front&) {
    const std::string state = words.Next();
    if (state != "on" && state != "off")
        return Refuse("trace takes on or off");
    const std::string system = words.Next();
    const std::string rule = words.Next();
    if (!system.empty() && !IsThere(system, rule))
        return Refuse("there is no " + (rule.empty() ? "system " : "rule " + rule + " of ") +
                      system);
    SetTrace(state == "on", system, rule);
    Output("trace " + state + (system.empty() ? "" : " " + system) +
           (rule.empty() ? "" : " " + rule));
    return true;
}

bool DoFired(Words& words, const Front&) {
    const std::string system = words.Next(), rule = words.Next();
    if (rule.empty())
        return Refuse("fired takes a system and the number of a rule");
    const std::vector<std::string> lines = Fired(system, rule);
    return lines.empty() ? Refuse("there is no rule " + rule + " of " + system) : Tell(lines);
}

bool DoHold(Words&, const Front& front) {
    front.hold(true);
    return true;
}

bool DoGo(Words&, const Front& front) {
    front.hold(false);
    return true;
}

// Results that do not hold and facts that are unknown have the certainty NULL.
bool IsKnown(const std::string& state) {
    const std::string null = " NULL";
    return state.size() < null.size() ||
           state.compare(state.size() - null.size(), null.size(), null) != 0;
}

bool DoShow(Words& words, const Front&) {
    const std::string name = words.Next();
    if (!name.empty()) {
        const std::string meant = MeantName(name), state = StateText(meant);
        return state.empty() ? Refuse("there is no fact or result " + name)
                             : Tell({meant + " " + state});
    }
    bool any = false;
    for (const std::string& each : Names()) {
        const std::string state = StateText(each);
        if (!IsKnown(state))
            continue;
        any = true;
        Output(each + " " + state);
    }
    return any || Tell({"nothing is known"});
}

bool DoHelp(Words&, const Front&);

struct Entry {
    const char* word;
    bool (*function)(Words& words, const Front& front);
    const char* help;
};

constexpr Entry kCommands[] = {
    {"why", DoWhy, "why NAME, why not NAME: why a result or a fact is as it is, or why not"},
    {"poke", DoPoke, "poke ITEM VALUE: gives an item a value for the next tick"},
    {"tick", DoTick, "tick [n]: runs one tick or n"},
    {"trace", DoTrace, "trace on|off [system [rule]]: each rule tells what it does, or one rule"},
    {"hold", DoHold, "hold: stops the clock"},
    {"go", DoGo, "go: lets the clock go on"},
    {"show", DoShow, "show [NAME]: all that holds or is known, or one fact or result"},
    {"fired", DoFired, "fired SYSTEM RULE: whether a rule did something in the last tick"},
    {"help", DoHelp, "help: these lines"}};

bool DoHelp(Words&, const Front&) {
    for (const Entry& entry : kCommands)
        Output(entry.help);
    return true;
}

} // namespace

bool DoCommand(const std::string& line, const Front& front) {
    Words words(line);
    const std::string word = words.Next();
    if (word.empty())
        return true;
    for (const Entry& entry : kCommands)
        if (SmallLetters(word) == entry.word)
            return entry.function(words, front);
    return Refuse("there is no command " + word + "; help lists them");
}

} // namespace morv
