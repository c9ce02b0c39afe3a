#include "explain.h"

#include "justify.h"
#include "names.h"
#include "state.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <set>
#include <unordered_map>
#include <utility>

namespace morv {

namespace {

constexpr std::size_t kMostLines = 1000;
constexpr char kItems[] = "DDEinfo."; // what stands before an item in the text of rules

bool IsOf(const System& system, const DATAFACT* fact) {
    return fact->System() == &system;
}

// What the names of facts, "A" and "steam.A", and of results mean. Of several facts of a name it is
// the first one; of a fact and a result the result.
struct Meanings {
    std::unordered_map<std::string, const DATAFACT*> facts;
    std::unordered_map<std::string, const DATAFACTRESULT*> results;
    std::set<std::string> shared;                 // names of several facts, or of both
    std::size_t fact_count = 0, result_count = 0; // how many are in
};

// Facts and results come with their systems and then stay.
const Meanings& AllMeanings() {
    static Meanings all;
    const State& now = Now();
    for (; all.result_count < now.results.size(); ++all.result_count) {
        const DATAFACTRESULT* result = now.results[all.result_count];
        all.results.emplace(result->text, result);
    }
    for (; all.fact_count < now.facts.size(); ++all.fact_count) {
        const DATAFACT* fact = now.facts[all.fact_count];
        if (!all.facts.emplace(fact->text, fact).second || all.results.count(fact->text) != 0)
            all.shared.insert(fact->text);
        if (fact->System() != nullptr)
            all.facts.emplace(fact->System()->Name() + std::string(".") + fact->text, fact);
    }
    return all;
}

const DATAFACTRESULT* ResultOf(const std::string& name) {
    const auto found = AllMeanings().results.find(name);
    return found == AllMeanings().results.end() ? nullptr : found->second;
}

const DATAFACT* FactOf(const std::string& name) {
    const auto found = AllMeanings().facts.find(name);
    return found == AllMeanings().facts.end() || ResultOf(name) != nullptr ? nullptr
                                                                           : found->second;
}

std::string InWords(const DATAFACT& fact) {
    return fact.Told(0, fact.Value(), fact.certainty());
}

// What a name means without its system is not sure where several facts have it.
std::string WithSystem(const DATAFACT& fact) {
    const bool shared = fact.System() != nullptr && AllMeanings().shared.count(fact.text) != 0;
    return shared ? std::string(fact.System()->Name()) + "." + fact.text : fact.text;
}

std::string InFullWords(const DATAFACT& fact) {
    const std::string name = fact.text;
    return WithSystem(fact) + InWords(fact).substr(name.size());
}

// The tree of reasons, line by line.
class Tree {
public:
    std::vector<std::string> Of(const DATAFACT* fact, const DATAFACTRESULT* result) {
        if (fact != nullptr)
            Line(0, InFullWords(*fact));
        else
            Line(0, result->Told(0, result->certainty()));
        Reasons(fact, result, 1);
        return std::move(lines_);
    }

private:
    void Line(std::size_t depth, const std::string& text) {
        if (lines_.size() < kMostLines)
            lines_.push_back(std::string(depth * 2, ' ') + text);
        else if (lines_.size() == kMostLines)
            lines_.push_back("and so on");
    }

    void Reasons(const DATAFACT* fact, const DATAFACTRESULT* result, std::size_t depth) {
        const void* thing = fact != nullptr ? static_cast<const void*>(fact) : result;
        const Justification* why = fact != nullptr ? fact->Why() : result->Why();
        if (why == nullptr)
            return Line(depth,
                        fact != nullptr ? "it was never given a value" : "it was never concluded");
        if (!told_.insert(thing).second)
            return Line(depth, "as told above");
        if (why->initial != nullptr)
            return Initial(*why, depth);
        Line(depth,
             std::string(why->verb) + When(*why) +
                 (why->rule != nullptr ? " by " + NameOf(*why->rule) : "") +
                 (why->opposite != nullptr
                      ? ", for its opposite " + std::string(why->opposite->text) + " was deduced"
                      : ""));
        int read = 0;
        for (const Step& step : why->steps) {
            if (step.site != nullptr)
                Line(depth + 1, KindWord(step.site->kind) + " " + step.site->text + " : " +
                                    (std::string(step.branch) == "Then" ? "true" : "false") + " (" +
                                    CertaintyWord(step.certainty) + ")");
            else if (step.each != nullptr)
                Line(depth + 1, "ForAll: PF is " + std::string(step.each->text));
            Reads(*why, read, step.reads_end, depth + 2);
            read = step.reads_end;
        }
        if (read < static_cast<int>(why->reads.size())) {
            Line(depth + 1, "computed from");
            Reads(*why, read, static_cast<int>(why->reads.size()), depth + 2);
        }
    }

    static std::string KindWord(Kind kind) {
        static const char* const words[] = {"If", "IfOr", "IfXor", "IfAny"};
        return words[static_cast<int>(kind)];
    }

    static std::string When(const Justification& why) {
        return " in tick " + std::to_string(why.tick) +
               (why.time[0] != '\0' ? std::string(", ") + why.time : "");
    }

    // The end of every branch: where a value came in.
    void Initial(const Justification& why, std::size_t depth) {
        const std::string text = why.initial;
        const std::vector<std::string> items = ItemsIn(text);
        if (items.empty())
            return Line(depth, "the initial value " + text);
        const bool as_it_is = text == kItems + items[0];
        Line(depth, "from " + (as_it_is ? "item " + items[0] : text) + " = " + Number(why.value) +
                        (why.poked > 0 ? ", poked in tick " + std::to_string(why.poked)
                                       : ", which was never poked"));
    }

    // A copy may tell what its fact or result was before.
    static bool IsOlder(const ReadRecord& read) {
        if (read.fact != nullptr)
            return !Same(read.value, read.fact->Why()->value) ||
                   read.certainty != read.fact->Why()->certainty;
        return read.value != read.result->Why()->certainty;
    }

    void Reads(const Justification& why, int from, int to, std::size_t depth) {
        std::set<std::string> texts;
        for (; from < to; ++from) {
            const ReadRecord& read = why.reads[static_cast<std::size_t>(from)];
            const std::string text = TextOf(read);
            if (!texts.insert(text).second)
                continue;
            Line(depth, text);
            const Justification* cause = read.fact != nullptr     ? read.fact->Why()
                                         : read.result != nullptr ? read.result->Why()
                                                                  : nullptr;
            if (read.item != nullptr || read.ticks_ago > 0 || lines_.size() > kMostLines)
                continue;
            if (read.result != nullptr && cause == nullptr)
                continue; // it does not hold because nothing ever concluded it
            if (cause != nullptr && (cause->tick > why.tick || IsOlder(read)))
                Line(depth + 1, "it has changed since, in tick " + std::to_string(cause->tick));
            else if (depth > 60)
                Line(depth + 1, "and so on");
            else
                Reasons(read.fact, read.result, depth + 1);
        }
    }

    std::vector<std::string> lines_;
    std::set<const void*> told_;
};

std::string Unknown(const std::string& name) {
    return "there is no fact and no result " + name;
}

// The first condition on the way to a conclusion that was not as it must be; null when all were.
const Site* Missing(const Rule& rule, const Conclusion& conclusion) {
    int outer = conclusion.outer;
    bool otherwise = conclusion.otherwise;
    const Site* missing = nullptr;
    for (int steps = 0; outer >= 0 && outer < rule.site_count && steps <= rule.site_count;
         ++steps) {
        const Site& site = rule.sites[outer];
        if (site.outcome != (otherwise ? Truth::False : Truth::True))
            missing = &site;
        otherwise = site.otherwise;
        outer = site.outer;
    }
    return missing;
}

// What the facts and results named in a condition of the system are now.
std::string NamedIn(const std::string& text, const System& system) {
    std::set<std::string> told;
    std::string all, word;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        const char c = at < text.size() ? text[at] : ' ';
        if (IsOfName(c)) {
            word += c;
            continue;
        }
        const DATAFACT* fact = word.empty() ? nullptr : FactOf(system.Name() + ("." + word));
        const DATAFACTRESULT* result = word.empty() ? nullptr : ResultOf(word);
        if ((fact != nullptr || result != nullptr) && told.insert(word).second)
            all += (all.empty() ? " [" : "; ") +
                   (fact != nullptr ? InWords(*fact) : result->Told(0, result->certainty()));
        word.clear();
    }
    return all.empty() ? all : all + "]";
}

// What a condition was when it was looked at last.
std::string SiteText(const Site& site, const System& system) {
    static const char* const kinds[] = {"If ", "IfOr ", "IfXor ", "IfAny "};
    const char* const was = site.outcome == Truth::Unknown   ? " is unknown"
                            : site.outcome == Truth::NotSeen ? " was not looked at"
                            : site.outcome == Truth::True    ? " is true"
                                                             : " is false";
    return kinds[static_cast<int>(site.kind)] + std::string(site.text) + was +
           NamedIn(site.text, system);
}

// Whether the rules were run in this tick from one on that stands in front of this rule, up to it.
bool WasPassed(const Rule& rule, const RuleRun& run) {
    for (const Rule* first = &rule;; --first) {
        if (first->called >= 0)
            return first->called == hot.tick && &rule - first < first->passed;
        if (first == run.rules)
            return false;
    }
}

// A rule was left out of a tick when nothing that it reads had changed; what it did then stands.
bool Stands(const Rule& rule) {
    const std::less_equal<const Rule*> in_front;
    for (const RuleRun& run : rule.system->Rules())
        if (in_front(run.rules, &rule) && !in_front(run.rules + run.count, &rule))
            return *rule.clean != 0 && WasPassed(rule, run);
    return false;
}

std::vector<std::string> FiredBy(const Rule& rule) {
    const std::string name = NameOf(rule);
    if (rule.ran < 0)
        return {name + " did not run yet"};
    if (rule.ran != hot.tick && !Stands(rule))
        return {name + " did not run in this tick, but last in tick " + std::to_string(rule.ran)};
    if (rule.fired == rule.ran)
        return {name + " fired"};
    std::vector<std::string> lines = {name + " did not fire"};
    for (int i = 0; i < rule.site_count; ++i)
        lines.push_back("  " + SiteText(rule.sites[i], *rule.system));
    return lines;
}

// Of several places that conclude it, one that was reached counts, and else the first.
std::string WhyNotBy(const Rule& rule, const std::vector<const Conclusion*>& places,
                     const DATAFACTRESULT* result) {
    const std::string name = NameOf(rule);
    if (rule.ran < 0 && *rule.number != '\0')
        return name + " did not run yet";
    if (rule.ran != hot.tick && !Stands(rule) && *rule.number != '\0')
        return name + " did not run in this tick, but last in tick " + std::to_string(rule.ran);
    const Site* first = Missing(rule, *places[0]);
    if (std::all_of(places.begin(), places.end(),
                    [&](const Conclusion* place) { return Missing(rule, *place) != nullptr; }))
        return name + ", " + SiteText(*first, *rule.system);
    if (result != nullptr && result->certainty() <= 0)
        for (const DATAFACTRESULT* opposite : result->Opposites())
            if (opposite->certainty() > 0)
                return name + " concludes it, but its opposite " + std::string(opposite->text) +
                       " holds (" + CertaintyWord(opposite->certainty()) + ")";
    const Justification* why =
        result != nullptr && result->certainty() <= 0 ? result->Why() : nullptr;
    if (why != nullptr && why->rule != nullptr && why->tick == rule.ran)
        return name + " concludes it, but " + NameOf(*why->rule) + " takes it back";
    return name + " concludes it";
}

// Where a rule concludes `name`. One that assigns to PF may assign to each fact of the types that
// it went through; before it did that, to any.
std::vector<const Conclusion*> Concluding(const Rule& rule, const std::string& name,
                                          const DATAFACT* fact) {
    const bool may_be =
        fact != nullptr && (rule.types == 0 || (rule.types & Rule::Bit(fact->type)) != 0);
    std::vector<const Conclusion*> places;
    for (const Conclusion* act = rule.acts; act != rule.acts + rule.act_count; ++act)
        if (name == act->name || (may_be && std::string("PF") == act->name))
            places.push_back(act);
    return places;
}

} // namespace

std::vector<std::string> ItemsIn(const std::string& text) {
    std::vector<std::string> items;
    std::string word;
    for (std::size_t at = 0; (at = text.find(kItems, at)) != std::string::npos;) {
        at += sizeof kItems - 1;
        for (word.clear(); at < text.size() && IsOfName(text[at]); ++at)
            word += text[at];
        if (std::find(items.begin(), items.end(), word) == items.end())
            items.push_back(word);
    }
    return items;
}

std::string TextOf(const ReadRecord& read) {
    if (read.fact != nullptr)
        return read.fact->Told(read.ticks_ago, read.value, read.certainty);
    if (read.result != nullptr)
        return read.result->Told(read.ticks_ago, read.value);
    return "item " + read.item->name +
           (read.certainty > 0
                ? " = " + read.item->text + ", poked in tick " + std::to_string(read.item->tick)
                : " was never poked");
}

std::vector<std::string> Why(const std::string& name) {
    const DATAFACT* fact = FactOf(name);
    const DATAFACTRESULT* result = fact == nullptr ? ResultOf(name) : nullptr;
    if (fact == nullptr && result == nullptr)
        return {Unknown(name)};
    return Tree().Of(fact, result);
}

std::vector<std::string> WhyNot(const std::string& name) {
    const DATAFACT* fact = FactOf(name);
    const DATAFACTRESULT* result = fact == nullptr ? ResultOf(name) : nullptr;
    if (fact == nullptr && result == nullptr)
        return {Unknown(name)};
    const std::string plain = fact != nullptr ? std::string(fact->text) : name;
    std::vector<std::string> lines = {fact != nullptr ? InFullWords(*fact)
                                                      : result->Told(0, result->certainty())};
    for (const System* system : Now().systems) {
        if (fact != nullptr && !IsOf(*system, fact))
            continue;
        for (const RuleRun& run : system->Rules())
            for (const Rule* rule = run.rules; rule != run.rules + run.count; ++rule)
                if (const auto places = Concluding(*rule, plain, fact); !places.empty())
                    lines.push_back("  " + WhyNotBy(*rule, places, result));
    }
    if (lines.size() == 1)
        lines.push_back(fact != nullptr ? "  no rule assigns it" : "  no rule concludes it");
    return lines;
}

std::vector<std::string> Fired(const std::string& system, const std::string& number) {
    for (const System* each : Now().systems)
        for (const RuleRun& run : each->Rules())
            for (const Rule* rule = run.rules; rule != run.rules + run.count; ++rule)
                if (system == each->Name() && number == rule->number)
                    return FiredBy(*rule);
    return {};
}

bool IsThere(const std::string& system, const std::string& rule) {
    for (const System* each : Now().systems) {
        if (system != each->Name())
            continue;
        if (rule.empty())
            return true;
        for (const RuleRun& run : each->Rules())
            for (const Rule* at = run.rules; at != run.rules + run.count; ++at)
                if (rule == at->number)
                    return true;
    }
    return false;
}

std::string StateText(const std::string& name) {
    if (const DATAFACT* fact = FactOf(name))
        return Number(fact->Value(), 15) + " " + CertaintyWord(fact->certainty());
    if (const DATAFACTRESULT* result = ResultOf(name))
        return (result->certainty() > 0 ? "1 " : "0 ") +
               std::string(CertaintyWord(result->certainty()));
    return "";
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const DATAFACT* fact : Now().facts)
        names.push_back(WithSystem(*fact));
    for (const DATAFACTRESULT* result : Now().results)
        names.push_back(std::string(result->text));
    return names;
}

std::vector<std::string> Changes() {
    return Now().told;
}

void SetClock(std::string (*clock)()) {
    Now().clock = clock;
}

void NoteInput(const std::string& name, const std::string& text) {
    Item& item = Now().items[name];
    item.name = name;
    item.text = text;
    item.tick = hot.tick + (Now().running ? 0 : 1);
}

namespace {

// What users watch: results that begin or end to hold, and actions.
std::vector<std::string> ChangesInWords() {
    std::vector<std::string> lines;
    for (const Change& change : Now().changes) {
        if (!change.first_of_tick)
            continue;
        if (change.result != nullptr) {
            const double how = change.result->certainty();
            if ((how > 0) != (change.certainty > 0))
                lines.push_back(how > 0 ? change.result->Told(0, how)
                                        : std::string(change.result->text) + " no longer holds");
        } else if (change.fact->type == ACTION && (!Same(change.value, change.fact->Value()) ||
                                                   change.certainty != change.fact->certainty()))
            lines.push_back(InFullWords(*change.fact));
    }
    return lines;
}

// What users write may throw, such as a conversion of a text that is no number. That ends the tick;
// it is told when it begins.
void RunMain() {
    State& now = Now();
    now.thrower = nullptr;
    std::string what;
    try {
        MORVmain();
    } catch (const std::exception& failure) {
        what = std::string("threw ") + failure.what();
    } catch (...) {
        what = "threw something";
    }
    if (!what.empty())
        what = (now.thrower != nullptr ? NameOf(*now.thrower) : "what runs in the tick") + " " +
               what + ": the tick ends there";
    if (std::exchange(now.thrown, what) != what && !what.empty())
        Output(what);
}

// One tick at a time.
struct Running {
    Running() { Now().running = true; }
    ~Running() { Now().running = Now().refused = false; }
};

} // namespace

void Tick() {
    State& now = Now();
    if (now.running) {
        if (!now.refused)
            Output("A tick is running: the next one waits for it");
        now.refused = true;
        return;
    }
    const Running running;
    ++hot.tick;
    now.changes.clear();
    now.time = now.clock != nullptr ? now.clock() : "";
    RunMain();
    now.told = ChangesInWords();
    for (const std::string& line : now.told)
        Output("Tick " + std::to_string(hot.tick) + ": " + line);
}

} // namespace morv
