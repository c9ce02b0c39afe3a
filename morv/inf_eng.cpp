#include "inf_eng.h"

#include "explain.h"
#include "justify.h"
#include "state.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>

namespace morv {

Hot hot;

State& Now() {
    static State state;
    return state;
}

namespace {

constexpr const char* kKinds[] = {"If", "IfOr", "IfXor", "IfAny"};

std::string Word(Truth truth) {
    return truth == Truth::True ? "true" : truth == Truth::False ? "false" : "unknown";
}

bool IsTraced(const System& system, const Rule* rule) {
    const State& now = Now();
    const auto meant = [&](const std::string& of_system, const std::string& number) {
        return (of_system.empty() || of_system == system.Name()) &&
               (number.empty() || (rule != nullptr && number == rule->number));
    };
    return now.trace && meant(now.trace_system, now.trace_rule) &&
           std::none_of(now.untraced.begin(), now.untraced.end(),
                        [&](const auto& each) { return meant(each.first, each.second); });
}

} // namespace

void SetTrace(bool on, const std::string& system, const std::string& rule) {
    State& now = Now();
    hot.trace = false;
    // Without some that are not traced the trace goes on.
    const bool all =
        system.empty() || (system == now.trace_system && (rule.empty() || rule == now.trace_rule));
    if (!on && !all) {
        now.untraced.emplace_back(system, rule);
        return;
    }
    now.trace = on;
    now.trace_system = system;
    now.trace_rule = rule;
    now.untraced.clear();
}

std::string ReadText() {
    std::vector<std::string> texts;
    for (int i = hot.read_from; i < hot.read_count; ++i) {
        const std::string text = TextOf(hot.reads[i]);
        if (std::find(texts.begin(), texts.end(), text) == texts.end())
            texts.push_back(text);
    }
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "  [" : "; ") + text;
    return all.empty() ? all : all + "]";
}

void Trace(const std::string& line) {
    if (!hot.trace)
        return;
    std::size_t depth = 0;
    for (const Scope* scope = hot.scope; scope != nullptr; scope = scope->outer)
        ++depth;
    Output(std::string(depth * 2, ' ') + line);
}

std::string Number(double value, int digits) {
    const bool whole = std::fabs(value) < 1e15 && value == std::trunc(value);
    char text[40];
    std::snprintf(text, sizeof text, "%.*g", whole ? 15 : digits, value);
    return text;
}

const char* CertaintyWord(double certainty) {
    static const char* const words[] = {"NULL",       "VERYLOW",  "LOW",
                                        "NOTVERYLOW", "NORMAL",   "NOTVERYHIGH",
                                        "HIGH",       "VERYHIGH", "FULL"};
    return words[static_cast<int>(InRange(certainty))];
}

ResultNames::ResultNames(std::initializer_list<NamedResult> results) {
    for (const NamedResult& named : results) {
        named.result->Register(named.name);
        Now().results.push_back(named.result);
    }
}

DATAFACT* NoFact() {
    static DATAFACT none;
    none.text = "no fact";
    return &none;
}

void System::Add(Rule* rules, const char* const* numbers, int count) {
    std::vector<char> clean(static_cast<std::size_t>(count), 0);
    for (int i = 0; i < count; ++i) {
        rules[i].system = this;
        rules[i].clean = clean.data() + i;
        rules[i].number = numbers != nullptr ? numbers[i] : "";
        for (const Source* source = rules[i].sources;
             source != nullptr && (source->fact != nullptr || source->result != nullptr); ++source)
            if (source->fact != nullptr)
                source->fact->AddReader(rules[i]);
            else
                source->result->AddReader(rules[i]);
    }
    rules_.push_back({rules, count});
    clean_.push_back(std::move(clean));
}

void System::Register(const FactRow* rows) {
    for (; rows->fact != nullptr; ++rows) {
        rows->fact->Register(rows->text, this);
        facts.push_back(rows->fact);
        Now().facts.push_back(rows->fact);
    }
}

void System::Set(const FactRow* rows) {
    for (const FactRow* row = rows; row->fact != nullptr; ++row) {
        if (row->description == nullptr)
            continue;
        DATAFACT& fact = *row->fact;
        fact.name = row->number;
        fact.type = row->type;
        fact.description.Set(row->description);
        fact.fact_value.units.Set(row->units);
        fact.fact_value.inf_limit = row->inf_limit;
        fact.fact_value.sup_limit = row->sup_limit;
        fact.fact_value.step_v = row->step_v;
        fact.fact_value.lowest = row->lowest;
        fact.fact_value.low = row->low;
        fact.fact_value.normal = row->normal;
        fact.fact_value.high = row->high;
        fact.fact_value.highest = row->highest;
    }
}

Known::Known(System& system, const FactRow* rows, std::initializer_list<RuleTable> tables) {
    Now().systems.push_back(&system);
    system.Register(rows);
    System::Set(rows);
    for (const RuleTable& table : tables)
        system.Add(table.rules, table.numbers, table.count);
}

const Rule* RunningRule() {
    const Scope* scope = hot.scope;
    while (scope != nullptr && scope->rule == nullptr)
        scope = scope->outer;
    return scope != nullptr ? scope->rule : nullptr;
}

// Drops what blocks of the same branch read that have ended: nobody asks for it any more.
static void LeaveRoom() {
    const int base = hot.scope != nullptr ? hot.scope->reads : 0;
    if (hot.read_from <= Hot::kMostReads / 2 || base >= hot.read_from)
        return;
    std::copy(hot.reads + hot.read_from, hot.reads + hot.read_count, hot.reads + base);
    hot.read_count -= hot.read_from - base;
    hot.read_from = base;
}

Condition::Condition(Site& site, bool value) : site_(&site), certainty_(hot.rests_on) {
    LeaveRoom();
    from_ = hot.read_from;
    to_ = hot.read_count;
    hot.reading = false;
    truth_ = certainty_ <= 0 ? Truth::Unknown : value ? Truth::True : Truth::False;
    site.outcome = truth_;
    if (hot.trace) {
        Trace(std::string("If ") + site.text + " : " + Word(truth_) + " (" +
              CertaintyWord(certainty_) + ")" + ReadText());
        if (truth_ == Truth::Unknown)
            Trace("If is unknown (NULL): neither branch runs");
    }
}

Condition::Condition(Site& site) : site_(&site), certainty_(FULL) {
    hot.read_from = hot.read_count;
    LeaveRoom();
    from_ = hot.read_from;
    site.outcome = Truth::NotSeen;
}

void Condition::Take(const char* text, bool value) {
    hot.reading = false;
    const double certainty = hot.rests_on;
    const Truth truth = certainty <= 0 ? Truth::Unknown : value ? Truth::True : Truth::False;
    if (hot.trace)
        Trace(kKinds[static_cast<int>(site_->kind)] + std::string(" ") + text + " : " +
              Word(truth) + " (" + CertaintyWord(certainty) + ")" + ReadText());
    const bool any = site_->kind == Kind::IfAny;
    if (any && true_ > 0) {
        hot.read_count = hot.read_from; // what is looked at after the one that is found
    } else if (any && truth == Truth::True) {
        from_ = hot.read_from;
    } else if (any && hot.read_count > Hot::kMostReads / 2) {
        hot.read_count = hot.read_from; // leave room for what else the rule reads
    }
    unknown_ += truth == Truth::Unknown;
    if (truth == Truth::True)
        of_true_ = any ? (true_ == 0 ? certainty : of_true_) : std::max(of_true_, certainty);
    true_ += truth == Truth::True;
    least_ = std::min(least_, certainty);
}

void Condition::Decide() {
    const bool exclusive = site_->kind == Kind::IfXor;
    to_ = hot.read_count;
    if (exclusive ? unknown_ > 0 : true_ == 0 && unknown_ > 0)
        truth_ = Truth::Unknown;
    else
        truth_ = (exclusive ? true_ == 1 : true_ > 0) ? Truth::True : Truth::False;
    certainty_ = truth_ == Truth::True && !exclusive ? of_true_ : least_;
    site_->outcome = truth_;
    if (hot.trace)
        Trace(std::string(kKinds[static_cast<int>(site_->kind)]) + " is " + Word(truth_) + " (" +
              CertaintyWord(certainty_) + ")" +
              (truth_ == Truth::Unknown ? ": neither branch runs" : ""));
}

bool Any::Next() {
    if (next_ > 0 && first_ == nullptr && condition_.AnyTrue())
        first_ = facts_[next_ - 1];
    if (next_ == facts_.size()) {
        fact_ = first_ != nullptr ? first_ : NoFact();
        return false;
    }
    fact_ = facts_[next_++];
    return true;
}

// A line that stands with the block around what runs.
static void TraceBranch(const char* name) {
    const Scope* branch = hot.scope;
    hot.scope = branch->outer;
    Trace(name);
    hot.scope = const_cast<Scope*>(branch);
}

Within::Within(Rule* rule, const Condition* condition, const DATAFACT* each, const char* branch)
    : scope_{hot.scope, hot.path, hot.read_count, rule, condition, each, branch} {
    hot.scope = &scope_;
}

Within::~Within() {
    hot.path = scope_.path;
    hot.read_count = scope_.reads;
    hot.scope = scope_.outer;
}

Branch::Branch(const Condition& condition, const char* name)
    : Within(nullptr, &condition, nullptr, name) {
    if (hot.trace)
        TraceBranch(name);
    hot.path = std::min(hot.path, condition.Certainty());
}

Each::Each(const DATAFACT* fact) : Within(nullptr, nullptr, fact, nullptr) {
    if (hot.trace)
        TraceBranch((std::string("ForAll: PF is ") + std::string(fact->text)).c_str());
}

std::string NameOf(const Rule& rule) {
    if (*rule.number == '\0')
        return std::string("the text around the rules of ") + rule.system->Name();
    return std::string("rule ") + rule.number + " of " + rule.system->Name() +
           (*rule.title != '\0' ? std::string(": ") + rule.title : "");
}

Entered::Entered(Rule& rule)
    : Within(&rule, nullptr, nullptr, nullptr), acts_(hot.acts), trace_(hot.trace) {
    rule.ran = hot.tick;
    hot.acts = 0;
    if (!Now().trace)
        return;
    hot.trace = IsTraced(*rule.system, &rule);
    if (hot.trace) {
        std::string name = NameOf(rule);
        name[0] = 'R';
        TraceBranch(name.c_str());
    }
}

// Notes which rule ends the tick by throwing.
static void NoteThrower(Rule& rule) {
    if (Now().thrower == nullptr)
        Now().thrower = &rule;
}

Entered::~Entered() {
    // Of rules that are functions RunRules sees it, where it costs nothing.
    if (hot.scope->rule->run == nullptr && std::uncaught_exceptions() > 0)
        NoteThrower(*hot.scope->rule);
    if (hot.acts > 0)
        hot.scope->rule->fired = hot.tick;
    else if (hot.trace)
        Trace("nothing concluded");
    hot.acts += acts_;
    hot.trace = trace_;
}

static Left RunOne(Rule& rule, Rule& first, int before) {
    try {
        return rule.run(rule);
    } catch (...) {
        first.passed = before + 1;
        NoteThrower(rule);
        throw;
    }
}

Left RunRules(Rule* rules, int count) {
    // Within blocks of another system a rule concludes less certainly.
    const bool outermost = hot.scope == nullptr;
    const bool all = !outermost || Now().trace;
    rules->called = hot.tick;
    rules->passed = count;
    char* const clean = rules->clean;
    for (int i = 0; i < count; ++i) {
        if (!all) {
            const void* next = std::memchr(clean + i, 0, static_cast<std::size_t>(count - i));
            if (next == nullptr)
                break;
            i = static_cast<int>(static_cast<const char*>(next) - clean);
        }
        const Entered entered(rules[i]);
        clean[i] = outermost && rules[i].sources != nullptr;
        const Left left = RunOne(rules[i], *rules, i);
        if (left.left) {
            rules->passed = i + 1;
            return left;
        }
    }
    return {};
}

Run::Run(System& system) : system_(system), from_(Now().changes.size()), trace_(hot.trace) {
    ++Now().rounds;
    hot.trace = IsTraced(system, nullptr);
}

bool Run::FirstOfTick() {
    if (system_.taken_up == hot.tick)
        return false;
    system_.taken_up = hot.tick;
    return true;
}

namespace {

bool IsChanged(const Change& change) {
    return change.fact != nullptr ? !Same(change.value, change.fact->Value()) ||
                                        change.certainty != change.fact->certainty()
                                  : change.certainty != change.result->certainty();
}

} // namespace

int Run::Changed() {
    State& now = Now();
    const long round = ++now.rounds;
    int count = 0;
    now.restless.clear();
    for (std::size_t at = from_; at < now.changes.size(); ++at) {
        const Change& change = now.changes[at];
        long& counted = change.fact != nullptr ? change.fact->counted : change.result->counted;
        // Of several changes of one thing the first tells what it was before the round: when it is
        // that again, nothing changed.
        if (counted != round && counted != -round) {
            counted = IsChanged(change) ? round : -round;
            count += counted == round;
        }
        if (counted == round && change.rule != nullptr &&
            std::find(now.restless.begin(), now.restless.end(), change.rule) ==
                now.restless.end() &&
            now.restless.size() < 100)
            now.restless.push_back(change.rule);
    }
    return count;
}

Run::~Run() {
    State& now = Now();
    hot.trace = trace_;
    // Of a tick only the first change of each thing counts: many rounds take no more memory than
    // one. A round within a rule of another leaves them to that one.
    if (hot.scope == nullptr)
        now.changes.erase(
            std::remove_if(now.changes.begin() + static_cast<std::ptrdiff_t>(from_),
                           now.changes.end(),
                           [](const Change& change) { return !change.first_of_tick; }),
            now.changes.end());
}

std::vector<DATAFACT*> FactsOf(Rule& rule, DATAFACTTYPE type) {
    rule.types |= Rule::Bit(type);
    std::vector<DATAFACT*> facts;
    for (DATAFACT* fact : rule.system->facts)
        if (fact->type == type)
            facts.push_back(fact);
    return facts;
}

void TakeUp(DATAFACT& fact, double value, double certainty, const char* source) {
    fact.TakeUp(value, certainty, source);
}

bool Poked(const char* name) {
    Item& item = Now().items[name];
    if (item.name.empty())
        item.name = name;
    const bool poked = item.tick > 0;
    Note({nullptr, nullptr, &item, 0, 0, poked ? double(FULL) : 0});
    return poked;
}

} // namespace morv

int settle(INFERENCE_ENGINE& engine, int most) {
    int changed = 0;
    for (int round = 0; round < most; ++round) {
        changed = engine.engine();
        if (changed == 0)
            return 0;
    }
    std::string rules;
    for (const morv::Rule* rule : morv::Now().restless)
        rules += (rules.empty() ? "" : "; ") + morv::NameOf(*rule);
    if (rules.empty())
        rules = "the text around the rules";
    if (changed != 0)
        morv::Output("Not settled after " + std::to_string(most) +
                     " rounds, for these go on: " + rules);
    return changed;
}
