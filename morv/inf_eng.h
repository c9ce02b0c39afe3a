// The inference engine: what the blocks of the rule language become.
#ifndef MORV_INF_ENG
#define MORV_INF_ENG

#include "consts.h"
#include "datafact.h"
#include "dfactres.h"
#include "shell.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace morv {

struct NamedFact {
    DATAFACT* fact;
    const char* name;
};

struct NamedResult {
    DATAFACTRESULT* result;
    const char* name;
};

// Makes the results of the project known.
struct ResultNames {
    ResultNames(std::initializer_list<NamedResult> results);
};

DATAFACT* NoFact(); // what PF is outside the blocks that set it; never known

} // namespace morv

class INFERENCE_ENGINE {
public:
    morv::Field<MAXDESCRIPTION> description;

    virtual ~INFERENCE_ENGINE() = default;
    virtual int engine() = 0; // runs all rules once; returns how many conclusions they drew

protected:
    // Makes the facts of the system known; called at the start of every engine().
    void Facts(std::initializer_list<morv::NamedFact> facts);
    std::vector<DATAFACT*> FactsOf(DATAFACTTYPE type) const;

private:
    std::vector<DATAFACT*> facts_;
};

namespace morv {

// One call of engine().
class Run {
public:
    Run();
    int Conclusions() const;

private:
    int before_;
};

// A rule, from Rule to EndRule.
class Rule {
public:
    Rule(const char* system, const char* name);
    Rule(const Rule&) = delete;
    Rule& operator=(const Rule&) = delete;
    ~Rule();
};

// The collection of what an expression rests on, for one expression.
class Reading {
public:
    Reading();
    double Certainty() const; // of the least certain fact or result read
    void End();
};

enum class Kind { If, IfOr, IfXor, IfAny };
enum class Truth { False, Unknown, True };

// The condition of a block. It is unknown while it depends on facts that are; then neither branch
// of the block runs.
class Condition {
public:
    explicit Condition(Kind kind);

    // Evaluates one of the expressions in brackets.
    template <class Expression> void Test(const char* text, Expression expression) {
        Reading reading;
        const bool value = expression();
        Take(text, value, reading);
    }

    // Evaluates the expression of IfAny for each fact, which is `PF` meanwhile; at the end `PF` is
    // the first one for which it was true.
    template <class Expression>
    void Any(const std::vector<DATAFACT*>& facts, DATAFACT*& PF, const char* text,
             Expression expression) {
        DATAFACT* first = NoFact();
        for (DATAFACT* fact : facts) {
            PF = fact;
            const bool held = Holds();
            Test(text, expression);
            if (!held && Holds())
                first = fact;
        }
        PF = first;
    }

    bool Holds() const { return Outcome() == Truth::True; }
    bool Fails() const { return Outcome() == Truth::False; }
    double Certainty() const; // of the outcome
    void Decide() const;      // tells the outcome

private:
    void Take(const char* text, bool value, Reading& reading);
    Truth Outcome() const;

    Kind kind_;
    int true_ = 0, false_ = 0, unknown_ = 0;
    double surest_true_ = 0; // the greatest certainty of those that are true
    double least_ = FULL;    // the least of all
};

// A branch of a block: what it concludes is no more certain than its condition.
class Branch {
public:
    Branch(const Condition& condition, const char* name);
    Branch(const Branch&) = delete;
    Branch& operator=(const Branch&) = delete;
    ~Branch();

private:
    double before_;
};

// One round of ForAll.
class Each {
public:
    explicit Each(const DATAFACT* fact);
    Each(const Each&) = delete;
    Each& operator=(const Each&) = delete;
    ~Each();
};

} // namespace morv

#endif
