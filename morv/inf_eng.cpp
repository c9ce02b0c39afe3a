#include "inf_eng.h"

#include "state.h"

#include <algorithm>
#include <cstdio>

namespace morv {

State& Now() {
    static State state;
    return state;
}

void SetTrace(bool on) {
    Now().trace = on;
}

void StartReading() {
    State& now = Now();
    now.reading = true;
    now.rests_on = FULL;
    now.read.clear();
}

void NoteForTrace(const std::string& what) {
    std::vector<std::string>& read = Now().read;
    if (std::find(read.begin(), read.end(), what) == read.end())
        read.push_back(what);
}

std::string ReadText() {
    std::string text;
    for (const std::string& each : Now().read)
        text += (text.empty() ? "  [" : "; ") + each;
    return text.empty() ? text : text + "]";
}

void Trace(const std::string& line) {
    const State& now = Now();
    if (now.trace)
        Output(std::string(static_cast<std::size_t>(now.depth) * 2, ' ') + line);
}

std::string Number(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.6g", value);
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
        named.result->text = named.name;
        Now().results.push_back(named.result);
    }
}

DATAFACT* NoFact() {
    static DATAFACT none;
    none.text = "no fact";
    return &none;
}

namespace {

void Report() {
    std::string holding;
    for (const DATAFACTRESULT* result : Now().results)
        if (result->certainty() > 0)
            holding += (holding.empty() ? "" : ", ") + (result->text + std::string(" (")) +
                       CertaintyWord(result->certainty()) + ")";
    Output("Tick " + std::to_string(Now().tick) + ": " +
           (holding.empty() ? "nothing holds" : holding));
    for (const DATAFACT* fact : Now().facts)
        if (fact->type == ACTION && fact->known())
            Output("  " + fact->Summary());
}

} // namespace

void Tick() {
    State& now = Now();
    ++now.tick;
    for (DATAFACT* fact : now.facts)
        fact->Remember();
    for (DATAFACTRESULT* result : now.results)
        result->Remember();
    MORVmain();
    Report();
}

Run::Run() : before_(Now().conclusions) {
    Now().reading = false;
}

int Run::Conclusions() const {
    return Now().conclusions - before_;
}

Rule::Rule(const char* system, const char* name) {
    Trace(std::string("Rule ") + name + " of " + system);
    Now().rule_acts = 0;
    ++Now().depth;
}

Rule::~Rule() {
    if (Now().rule_acts == 0)
        Trace("nothing concluded");
    --Now().depth;
}

Reading::Reading() {
    StartReading();
}

double Reading::Certainty() const {
    return Now().rests_on;
}

void Reading::End() {
    Now().reading = false;
}

namespace {

constexpr const char* kKinds[] = {"If", "IfOr", "IfXor", "IfAny"};

std::string Word(Truth truth) {
    return truth == Truth::True ? "true" : truth == Truth::False ? "false" : "unknown";
}

} // namespace

Condition::Condition(Kind kind) : kind_(kind) {}

void Condition::Take(const char* text, bool value, Reading& reading) {
    reading.End();
    const double certainty = reading.Certainty();
    const Truth truth = certainty <= 0 ? Truth::Unknown : value ? Truth::True : Truth::False;
    ++(truth == Truth::True ? true_ : truth == Truth::False ? false_ : unknown_);
    if (truth == Truth::True)
        surest_true_ = std::max(surest_true_, certainty);
    least_ = std::min(least_, certainty);
    if (Now().trace)
        Trace(kKinds[static_cast<int>(kind_)] + std::string(" ") + text + " : " + Word(truth) +
              " (" + CertaintyWord(certainty) + ")" + ReadText());
}

Truth Condition::Outcome() const {
    if (kind_ == Kind::IfXor)
        return unknown_ > 0 ? Truth::Unknown : true_ == 1 ? Truth::True : Truth::False;
    if (true_ > 0)
        return Truth::True;
    return unknown_ > 0 ? Truth::Unknown : Truth::False;
}

double Condition::Certainty() const {
    return Outcome() == Truth::True && kind_ != Kind::IfXor ? surest_true_ : least_;
}

void Condition::Decide() const {
    const Truth outcome = Outcome();
    if (kind_ != Kind::If || outcome == Truth::Unknown)
        Trace(std::string(kKinds[static_cast<int>(kind_)]) + " is " + Word(outcome) + " (" +
              CertaintyWord(Certainty()) + ")" +
              (outcome == Truth::Unknown ? ": neither branch runs" : ""));
}

Branch::Branch(const Condition& condition, const char* name) : before_(Now().path) {
    Trace(name);
    Now().path = std::min(before_, condition.Certainty());
    ++Now().depth;
}

Branch::~Branch() {
    Now().path = before_;
    --Now().depth;
}

Each::Each(const DATAFACT* fact) {
    Trace(std::string("ForAll: PF is ") + fact->text);
    ++Now().depth;
}

Each::~Each() {
    --Now().depth;
}

} // namespace morv

void INFERENCE_ENGINE::Facts(std::initializer_list<morv::NamedFact> facts) {
    if (!facts_.empty())
        return;
    for (const morv::NamedFact& named : facts) {
        named.fact->text = named.name;
        facts_.push_back(named.fact);
        morv::Now().facts.push_back(named.fact);
    }
}

std::vector<DATAFACT*> INFERENCE_ENGINE::FactsOf(DATAFACTTYPE type) const {
    std::vector<DATAFACT*> facts;
    for (DATAFACT* fact : facts_)
        if (fact->type == type)
            facts.push_back(fact);
    return facts;
}
