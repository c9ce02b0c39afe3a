#include "build/core/rule_structure.h"

#include <utility>

namespace {

constexpr std::array<std::string_view, kRuleErrors> merr = {
    "There are ForAll without EndForAll",
    "There are too many EndForAll",
    "There are If without EndIf",
    "There are too many EndIf",
    "There are IfOr whithout EndIfOr",
    "There are too many EndIfOr",
    "There are IfAny whithout EndIfAny",
    "There are too many EndIfAny",
    "There are If whithout Then",
    "There are IfOr whithout Then",
    "There are IfAny whithout Then",
    "There are Then whithout any kind of If",
    "There are Else whithout Then",
    "Wrong Kind of End for this If",
    "Command Before Rule",
    "Command After EndRule",
    "There is a If or a For without End",
    "There is no Rule",
    "There is no EndRule",
    "Secon Debug:",
    "There are IfXor whithout Then",
    "There are too many EndIfXor",
    "There are Otherwise whithout Then",
};

// Stages that no instruction of a block stands for.
constexpr int kNone = -1;      // level 0 before Rule; also the kind of level 0
constexpr int kInsideRule = 0; // level 0
constexpr int kRuleEnded = 1;  // level 0

bool IsIf(int code) {
    return code == kIf || code == kIfOr || code == kIfXor || code == kIfAny;
}

// What an If of this kind gives when something else comes before its Then.
RuleError NoThen(int kind) {
    switch (kind) {
    case kIfOr:
        return kIfOrNoThen;
    case kIfXor:
        return kIfXorNoThen;
    case kIfAny:
        return kIfAnyNoThen;
    default:
        return kIfNoThen;
    }
}

// The word that closes a block of this kind.
int EndOf(int kind) {
    switch (kind) {
    case kIf:
        return kEndIf;
    case kIfOr:
        return kEndIfOr;
    case kIfXor:
        return kEndIfXor;
    default:
        return kNone;
    }
}

} // namespace

std::string_view RuleErrorText(RuleError error) {
    return merr[error];
}

int ObsInst(WordSet words, WordCounts& B, int next) {
    int code = kNoInstruction;
    const auto has = [&](RuleWord word) { return (words & SetOf(word)) != 0; };
    const auto take = [&](RuleWord word) {
        B[word] += 1;
        code = word;
    };
    // An opening word that is only the tail of its End word does not count.
    const auto take_pair = [&](RuleWord begin, RuleWord end) {
        if (has(end))
            take(end);
        else if (has(begin))
            take(begin);
    };
    // "Rule" counts in "EndRule" as well.
    for (RuleWord word : {kRule, kEndRule})
        if (has(word))
            take(word);
    take_pair(kForAll, kEndForAll);
    if (next != 'O' && next != 'A' && next != 'X')
        take_pair(kIf, kEndIf);
    take_pair(kIfOr, kEndIfOr);
    take_pair(kIfXor, kEndIfXor);
    for (RuleWord word : {kThen, kElse})
        if (has(word))
            code = word; // not counted
    take_pair(kIfAny, kEndIfAny);
    for (RuleWord word : {kBlockBegin, kBlockEnd, kLineBegin, kQuote, kOtherwise})
        if (has(word))
            take(word);
    return code;
}

void CheckBalance(const WordCounts& B, const std::function<void(RuleError)>& error) {
    const auto compare = [&](RuleWord begin, RuleWord end, RuleError open, RuleError surplus) {
        if (B[begin] > B[end])
            error(open);
        else if (B[end] > B[begin])
            error(surplus);
    };
    error(kSecondDebug);
    if (B[kRule] == 0)
        error(kNoRule);
    if (B[kEndRule] == 0)
        error(kNoEndRule);
    compare(kForAll, kEndForAll, kForAllOpen, kForAllSurplus);
    compare(kIf, kEndIf, kIfOpen, kIfSurplus);
    compare(kIfOr, kEndIfOr, kIfOrOpen, kIfOrSurplus);
    compare(kIfAny, kEndIfAny, kIfAnyOpen, kIfAnySurplus);
}

RuleStructure::RuleStructure(std::function<void(RuleError)> error) : error_(std::move(error)) {
    Reset();
}

void RuleStructure::Reset() {
    blocks_.assign(1, Block{kNone, kNone});
}

bool RuleStructure::InCondition() const {
    return IsIf(blocks_.back().stage);
}

void RuleStructure::Open(RuleWord kind) {
    if (InCondition())
        error_(NoThen(Now().stage));
    else
        blocks_.push_back({kind, kind});
}

// Level 0 is never closed: none of its stages is one that an End word closes.
void RuleStructure::Close() {
    blocks_.pop_back();
}

void RuleStructure::TakeRule() {
    if (InRule() && Now().stage == kNone)
        Now().stage = kInsideRule;
    else
        error_(kBeforeRule);
}

void RuleStructure::TakeEndRule() {
    if (InRule() && Now().stage == kInsideRule)
        Now().stage = kRuleEnded;
    else
        error_(kBlockOpen);
}

void RuleStructure::TakeEndForAll() {
    if (Now().stage == kForAll)
        Close();
    else
        error_(kForAllSurplus);
}

void RuleStructure::TakeEndIf(RuleWord code) {
    if (Now().stage == kThen || Now().stage == kElse) {
        // An IfAny may be closed by any of these words.
        const int end = EndOf(Now().kind);
        if (end != kNone && end != code)
            error_(kWrongEnd);
        Close();
    } else if (EndOf(Now().kind) != kNone && Now().stage != kOtherwise) {
        // Nothing is said after Otherwise, where only EndIfAny closes.
        error_(NoThen(Now().kind));
    }
}

void RuleStructure::TakeEndIfAny() {
    // Which kind of If it closes does not matter.
    if (Now().stage == kThen || Now().stage == kOtherwise)
        Close();
    else
        error_(kIfAnyNoThen);
}

void RuleStructure::TakeThen() {
    if (InCondition())
        Now().stage = kThen;
    else
        error_(kThenNoIf);
}

void RuleStructure::TakeAlternative(RuleWord code, RuleError refused) {
    if (Now().stage == kThen)
        Now().stage = code;
    else
        error_(refused);
}

void RuleStructure::Take(int code) {
    switch (code) {
    case kRule:
        return TakeRule();
    case kEndRule:
        return TakeEndRule();
    case kForAll:
    case kIf:
    case kIfOr:
    case kIfXor:
    case kIfAny:
        return Open(static_cast<RuleWord>(code));
    case kEndForAll:
        return TakeEndForAll();
    case kEndIf:
    case kEndIfOr:
    case kEndIfXor:
        return TakeEndIf(static_cast<RuleWord>(code));
    case kThen:
        return TakeThen();
    case kElse:
        return TakeAlternative(kElse, kElseNoThen);
    case kEndIfAny:
        return TakeEndIfAny();
    case kOtherwise:
        return TakeAlternative(kOtherwise, kOtherwiseNoThen);
    default:
        return; // comments and strings are the caller's
    }
}
