#include "justify.h"

#include "state.h"

#include <cstring>

namespace morv {

namespace {

// The blocks around what runs, from the outermost on, up to the rule.
void TakeSteps(Justification& why) {
    static std::vector<const Scope*> scopes; // keeps its memory from change to change
    scopes.clear();
    for (const Scope* scope = hot.scope; scope != nullptr; scope = scope->outer) {
        if (scope->rule != nullptr) {
            why.rule = scope->rule;
            break;
        }
        scopes.push_back(scope);
    }
    for (auto at = scopes.rbegin(); at != scopes.rend(); ++at) {
        const Scope& scope = **at;
        Step step{nullptr, scope.each, scope.branch, double(FULL), 0};
        if (scope.condition != nullptr) {
            step.site = &scope.condition->site();
            step.certainty = scope.condition->Certainty();
            why.reads.insert(why.reads.end(), hot.reads + scope.condition->ReadsFrom(),
                             hot.reads + scope.condition->ReadsTo());
        }
        step.reads_end = static_cast<int>(why.reads.size());
        why.steps.push_back(step);
    }
}

} // namespace

Justification& Justify(Justification*& why, const char* verb) {
    if (why == nullptr)
        why = new Justification;
    why->verb = verb;
    why->rule = nullptr;
    why->tick = hot.tick;
    std::strncpy(why->time, Now().time.c_str(), sizeof why->time - 1);
    why->initial = nullptr;
    why->poked = 0;
    why->opposite = nullptr;
    why->steps.clear();
    why->reads.clear();
    TakeSteps(*why);
    // What a value is computed from, which is still being read.
    if (hot.read_from < hot.read_count &&
        (std::strcmp(verb, "assigned") == 0 || std::strcmp(verb, "copied") == 0))
        why->reads.insert(why->reads.end(), hot.reads + hot.read_from, hot.reads + hot.read_count);
    return *why;
}

} // namespace morv
