// The block structure of one rule: which instruction may follow which, and what is wrong otherwise.
#pragma once

#include "build/core/rule_scanner.h"

#include <array>
#include <functional>
#include <string_view>
#include <vector>

// Numbers of the messages that a rule can give.
enum RuleError : int {
    kForAllOpen,
    kForAllSurplus,
    kIfOpen,
    kIfSurplus,
    kIfOrOpen,
    kIfOrSurplus,
    kIfAnyOpen,
    kIfAnySurplus,
    kIfNoThen,
    kIfOrNoThen,
    kIfAnyNoThen,
    kThenNoIf,
    kElseNoThen,
    kWrongEnd,
    kBeforeRule,
    kAfterEndRule, // no check gives it
    kBlockOpen,
    kNoRule,
    kNoEndRule,
    kSecondDebug,
    kIfXorNoThen,
    kIfXorSurplus, // no check gives it
    kOtherwiseNoThen,
    kRuleErrors // how many there are
};

std::string_view RuleErrorText(RuleError error);

constexpr int kNoInstruction = -1;

// How often each word stands in a rule.
using WordCounts = std::array<int, kRuleWords>;

// Turns the words that one byte completed into the instruction they mean, and counts it: "EndIf"
// also ends with the word "If", and "If" may be the start of "IfOr". `next` is the byte that
// follows in the file, -1 at its end. Of several instructions the last in code order is returned.
int ObsInst(WordSet words, WordCounts& B, int next);

// Checks the counts of a whole rule. "IfXor" is not compared.
void CheckBalance(const WordCounts& B, const std::function<void(RuleError)>& error);

// The blocks that are open at a place of a rule. The lowest, level 0, stands for the whole rule.
class RuleStructure {
public:
    explicit RuleStructure(std::function<void(RuleError)> error);

    void Reset(); // a new rule begins
    void Take(int code);

private:
    struct Block {
        int kind;  // the instruction that opened it
        int stage; // the instruction reached in it
    };

    Block& Now() { return blocks_.back(); }
    bool InRule() const { return blocks_.size() == 1; }
    bool InCondition() const; // after an If of any kind, before its Then
    void Open(RuleWord kind);
    void Close();
    void TakeRule();
    void TakeEndRule();
    void TakeEndForAll();
    void TakeEndIf(RuleWord code);
    void TakeEndIfAny();
    void TakeThen();
    void TakeAlternative(RuleWord code, RuleError refused);

    std::vector<Block> blocks_;
    std::function<void(RuleError)> error_;
};
