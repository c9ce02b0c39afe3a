// The inference engine: what the blocks of the rule language become.
#ifndef MORV_INF_ENG
#define MORV_INF_ENG

#include "consts.h"
#include "datafact.h"
#include "dfactres.h"
#include "shell.h"

#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

class INFERENCE_ENGINE;

namespace morv {

struct NamedResult {
    DATAFACTRESULT* result;
    const char* name;
};

// Makes the results of the project known.
struct ResultNames {
    ResultNames(std::initializer_list<NamedResult> results);
};

// What a fact is set to; without texts it is only named.
struct FactRow {
    DATAFACT* fact;
    const char* text;
    int number;
    DATAFACTTYPE type;
    const char* description;
    const char* units;
    double inf_limit, sup_limit, step_v;
    double lowest, low, normal, high, highest;
};

DATAFACT* NoFact(); // what PF is outside the blocks that set it; never known

enum class Kind : unsigned char { If, IfOr, IfXor, IfAny };
enum class Truth : unsigned char { False, Unknown, True, NotSeen };

// A condition in the text of a rule: the one around it, if any, in which branch of that one it
// stands, and what it was when it was looked at last.
struct Site {
    Kind kind;
    const char* text;
    int outer;
    bool otherwise;
    Truth outcome = Truth::NotSeen;
};

// A conclusion in the text of a rule.
struct Conclusion {
    const char* name;
    int outer;
    bool otherwise;
};

// Whether a rule left engine() by return, and with what.
struct Left {
    bool left = false;
    int value = 0;
    Left() = default;
    Left(int returned) : left(true), value(returned) {}
};

// A fact or a result that a rule reads.
struct Source {
    DATAFACT* fact;
    DATAFACTRESULT* result;
};

class System;

struct Rule {
    Left (*run)(Rule&); // null where engine() holds the rule itself
    const char* title;  // its first comment
    Site* sites;
    int site_count;
    const Conclusion* acts;
    int act_count;
    const Source* sources; // all that it reads, when it needs not run until one of them changes
    const char* number = "";
    System* system = nullptr;
    long ran = -1;         // the tick it ran in last
    long fired = -1;       // the one in which it concluded, assigned or took back something last
    char* clean = nullptr; // 1: nothing has changed since for which it would have to run; else 0
    long called = -1;      // the tick that began with it last to run rules in a row,
    int passed = 0;        // and how many of them it ran or left out
    unsigned long long types = 0; // whose facts PF was, so far: a bit each, shared by some

    static unsigned long long Bit(DATAFACTTYPE type) {
        return 1ULL << (static_cast<unsigned>(type) % 64);
    }
};

struct RuleRun {
    Rule* rules;
    int count;
};

// One of the expert systems.
class System {
public:
    explicit System(const char* name) : name_(name) {}
    bool First() { return std::exchange(first_, false); } // whether it is asked for the first time
    void Add(Rule* rules, const char* const* numbers, int count);
    void Register(const FactRow* rows); // makes the facts known
    static void Set(const FactRow* rows);
    const char* Name() const { return name_; }
    const std::vector<RuleRun>& Rules() const { return rules_; }

    std::vector<DATAFACT*> facts;
    long taken_up = -1; // the tick that took the initial values up last

private:
    const char* name_;
    bool first_ = true;
    std::vector<RuleRun> rules_;
    std::vector<std::vector<char>> clean_; // what the rules of each run point to, side by side
};

struct RuleTable {
    Rule* rules;
    const char* const* numbers;
    int count;
};

// Makes a system with its facts and rules known.
struct Known {
    Known(System& system, const FactRow* rows, std::initializer_list<RuleTable> tables);
};

// Something that an expression read.
struct ReadRecord {
    const DATAFACT* fact;
    const DATAFACTRESULT* result;
    const struct Item* item;
    int ticks_ago;
    double value, certainty;
};

class Condition;

// A rule, a branch or a round of ForAll that runs.
struct Scope {
    Scope* outer;
    double path;
    int reads;
    Rule* rule;
    const Condition* condition;
    const DATAFACT* each;
    const char* branch;
};

// What rules touch all the time. Nothing of it grows.
struct Hot {
    static constexpr int kMostReads = 256; // what is read beyond is not taken down

    double path = FULL;     // the certainty of the conditions around the statement that runs
    double rests_on = FULL; // the least certain of what the expression at hand read
    bool reading = false;   // an expression is being evaluated
    const DATAFACT* computing = nullptr; // the fact that it will be assigned to, if any
    bool trace = false;                  // of what runs now
    int acts = 0;                        // what the rule did so far
    int read_from = 0, read_count = 0;
    long tick = 0;
    Scope* scope = nullptr;
    ReadRecord reads[kMostReads] = {};
};

extern Hot hot;

// An expression is about to be evaluated: what it reads is collected.
inline void Read() {
    hot.reading = true;
    hot.rests_on = FULL;
    hot.read_from = hot.read_count;
}

// An expression reads something of this certainty. What is of no system may end before the record
// is told.
inline void Note(const ReadRecord& read) {
    if (!hot.reading)
        return;
    if (read.certainty < hot.rests_on)
        hot.rests_on = read.certainty;
    const bool lasts = read.fact != nullptr || read.result != nullptr || read.item != nullptr;
    if (lasts && hot.read_count < Hot::kMostReads)
        hot.reads[hot.read_count++] = read;
}

// What a rule puts around that which is assigned: the value of a fact rests on what it is computed
// from. Whatever else has an assign is left alone.
template <class Object> Object&& Computed(Object&& object) {
    using Plain = std::remove_cv_t<std::remove_pointer_t<std::decay_t<Object>>>;
    if constexpr (std::is_same_v<Plain, DATAFACT>) {
        Read();
        if constexpr (std::is_same_v<std::decay_t<Object>, Plain>)
            hot.computing = &object;
        else
            hot.computing = object;
    }
    return static_cast<Object&&>(object);
}

// The expression at hand is put aside while something else runs: a function that it calls may
// assign to facts, or run a system.
class Aside {
public:
    Aside()
        : reading_(hot.reading), computing_(hot.computing), rests_on_(hot.rests_on),
          read_from_(hot.read_from), read_count_(hot.read_count) {
        hot.reading = false;
        hot.computing = nullptr;
        hot.read_from = hot.read_count;
    }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;
    ~Aside() {
        hot.reading = reading_;
        hot.computing = computing_;
        hot.rests_on = rests_on_;
        hot.read_from = read_from_;
        hot.read_count = read_count_;
    }

private:
    const bool reading_;
    const DATAFACT* const computing_;
    const double rests_on_;
    const int read_from_, read_count_;
};

// The condition of a block. It is unknown while it depends on facts that are; then neither branch
// of the block runs.
class Condition {
public:
    // That of an If, with the value of its expression.
    Condition(Site& site, bool value);
    // That of another block: it takes its expressions one by one and decides then.
    explicit Condition(Site& site);
    void Take(const char* text, bool value);
    void Decide();

    bool Holds() const { return truth_ == Truth::True; }
    bool Fails() const { return truth_ == Truth::False; }
    double Certainty() const { return certainty_; } // of the outcome

    const Site& site() const { return *site_; }
    int ReadsFrom() const { return from_; }
    int ReadsTo() const { return to_; }
    bool AnyTrue() const { return true_ > 0; }

private:
    Site* site_;
    double certainty_;
    Truth truth_ = Truth::Unknown;
    int from_, to_ = 0;
    int true_ = 0, unknown_ = 0;
    double of_true_ = 0;  // the certainty of the surest true one; of the first one for IfAny
    double least_ = FULL; // of all
};

// The rounds of IfAny: `PF` is each fact in turn, and at the end the first one for which the
// expression was true.
class Any {
public:
    Any(const Condition& condition, DATAFACT*& PF, std::vector<DATAFACT*> facts)
        : condition_(condition), fact_(PF), facts_(std::move(facts)) {}
    bool Next();

private:
    const Condition& condition_;
    DATAFACT*& fact_;
    const std::vector<DATAFACT*> facts_;
    std::size_t next_ = 0;
    DATAFACT* first_ = nullptr;
};

// What runs until the end of a block.
class Within {
public:
    Within(const Within&) = delete;
    Within& operator=(const Within&) = delete;
    ~Within();

protected:
    Within(Rule* rule, const Condition* condition, const DATAFACT* each, const char* branch);

private:
    Scope scope_;
};

// A branch of a block: what it concludes is no more certain than its condition.
class Branch : Within {
public:
    Branch(const Condition& condition, const char* name);
};

// One round of ForAll.
class Each : Within {
public:
    explicit Each(const DATAFACT* fact);
};

// A rule, from Rule to EndRule.
class Entered : Within {
public:
    explicit Entered(Rule& rule);
    ~Entered();

private:
    const int acts_;
    const bool trace_;
};

// Runs rules, until one leaves engine().
Left RunRules(Rule* rules, int count);

// One call of engine().
class Run {
public:
    explicit Run(System& system);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run();
    bool FirstOfTick(); // whether the initial values are to be taken up
    int Changed();      // how many facts and results are not what they were before

private:
    const Aside aside_;
    System& system_;
    const std::size_t from_; // of the changes
    const bool trace_;
};

// The facts of a type in the system of a rule.
std::vector<DATAFACT*> FactsOf(Rule& rule, DATAFACTTYPE type);

// Gives a fact its initial value, whose text is `source`.
void TakeUp(DATAFACT& fact, double value, double certainty, const char* source);

// True when the item was poked; unknown until then.
bool Poked(const char* item);

} // namespace morv

class INFERENCE_ENGINE {
public:
    morv::Field<MAXDESCRIPTION> description;

    virtual ~INFERENCE_ENGINE() = default;
    // Runs all rules once; returns how many facts and results changed.
    virtual int engine() = 0;
};

// Runs the rules until nothing changes, `most` times at most; then it names those that still change
// something. Returns how many facts and results changed in the last round.
int settle(INFERENCE_ENGINE& engine, int most);

#endif
