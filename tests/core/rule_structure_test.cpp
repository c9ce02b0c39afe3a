// The block structure of one rule and its balance.
#include "check_log.h"

#include <gtest/gtest.h>

namespace {

using zentrik_test::CheckLog;
using zentrik_test::WholeIndex;
using Lines = std::vector<std::string>;

const std::string kHead = "R : Line :0 : ";

// The messages of a one-line rule, before its balance (`before`) or from it on.
Lines Messages(const std::string& text, bool before) {
    Lexical anul = Lexical::Code;
    CheckLog log;
    CheckRules(text, WholeIndex(text), anul, log);
    Lines lines;
    bool at_balance = false;
    for (const std::string& finding : log.findings) {
        EXPECT_TRUE(finding.starts_with(kHead)) << finding;
        const std::string message = finding.substr(kHead.size());
        if (message == "Secon Debug:")
            at_balance = true;
        else if (at_balance != before)
            lines.push_back(message);
    }
    EXPECT_TRUE(at_balance);
    return lines;
}

Lines Structure(const std::string& text) {
    return Messages(text, true);
}
Lines Balance(const std::string& text) {
    return Messages(text, false);
}

const Lines kFine;
const Lines kIfNoThen = {"There are If whithout Then"};
const Lines kIfOrNoThen = {"There are IfOr whithout Then"};
const Lines kIfXorNoThen = {"There are IfXor whithout Then"};
const Lines kIfAnyNoThen = {"There are IfAny whithout Then"};
const Lines kSurplusForAll = {"There are too many EndForAll"};
const Lines kWrongEnd = {"Wrong Kind of End for this If"};
const Lines kBeforeRule = {"Command Before Rule"};
const Lines kOpenBlock = {"There is a If or a For without End"};
const Lines kThenNoIf = {"There are Then whithout any kind of If"};
const Lines kElseNoThen = {"There are Else whithout Then"};
const Lines kOtherwiseNoThen = {"There are Otherwise whithout Then"};

TEST(RuleStructure, RuleOpensTheRuleOnce) {
    EXPECT_EQ(Structure("Rule 1 EndRule"), kFine);
    EXPECT_EQ(Structure("Rule Rule"), kBeforeRule);
    EXPECT_EQ(Structure("Rule EndRule Rule"), kBeforeRule);
    EXPECT_EQ(Structure("ForAll Rule"), kBeforeRule);
}

TEST(RuleStructure, EndRuleClosesTheRuleOutsideAllBlocks) {
    EXPECT_EQ(Structure("EndRule"), kOpenBlock);
    EXPECT_EQ(Structure("Rule EndRule EndRule"), kOpenBlock);
    EXPECT_EQ(Structure("Rule ForAll EndRule"), kOpenBlock);
    EXPECT_EQ(Structure("Rule If Then EndRule EndIf EndRule"), kOpenBlock);
}

TEST(RuleStructure, ForAllIsRefusedInACondition) {
    EXPECT_EQ(Structure("Rule ForAll ForAll EndForAll EndForAll EndRule"), kFine);
    EXPECT_EQ(Structure("Rule If Then ForAll EndForAll EndIf EndRule"), kFine);
    EXPECT_EQ(Structure("Rule If Then Else ForAll EndForAll EndIf EndRule"), kFine);
    EXPECT_EQ(Structure("ForAll EndForAll"), kFine);
    EXPECT_EQ(Structure("Rule EndRule ForAll EndForAll"), kFine);
    // A refused ForAll opens nothing.
    EXPECT_EQ(Structure("Rule If ForAll Then EndIf EndRule"), kIfNoThen);
    EXPECT_EQ(Structure("Rule IfOr ForAll Then EndIfOr EndRule"), kIfOrNoThen);
    EXPECT_EQ(Structure("Rule IfXor ForAll Then EndIfXor EndRule"), kIfXorNoThen);
    EXPECT_EQ(Structure("Rule IfAny ForAll Then EndIfAny EndRule"), kIfAnyNoThen);
}

TEST(RuleStructure, EndForAllClosesAForAll) {
    EXPECT_EQ(Structure("Rule EndForAll EndRule"), kSurplusForAll);
    EXPECT_EQ(Structure("Rule ForAll EndForAll EndForAll EndRule"), kSurplusForAll);
    EXPECT_EQ(Structure("Rule If EndForAll Then EndIf EndRule"), kSurplusForAll);
    EXPECT_EQ(Structure("Rule If Then EndForAll EndIf EndRule"), kSurplusForAll);
    EXPECT_EQ(Structure("Rule If Then Otherwise EndForAll EndIfAny EndRule"), kSurplusForAll);
}

TEST(RuleStructure, AnIfIsRefusedInACondition) {
    for (const std::string kind : {"If", "IfOr", "IfXor", "IfAny"}) {
        const std::string block = kind + " a Then b End" + kind + " ";
        EXPECT_EQ(Structure("Rule " + block + "EndRule"), kFine);
        EXPECT_EQ(Structure("Rule ForAll " + block + "EndForAll EndRule"), kFine);
        EXPECT_EQ(Structure("Rule If Then " + block + "EndIf EndRule"), kFine);
        EXPECT_EQ(Structure("Rule If Then Else " + block + "EndIf EndRule"), kFine);
        EXPECT_EQ(Structure("Rule If Then Otherwise " + block + "EndIfAny EndRule"), kFine);
        EXPECT_EQ(Structure(block), kFine);
        // A refused If opens nothing.
        EXPECT_EQ(Structure("Rule If " + kind + " Then EndIf EndRule"), kIfNoThen);
        EXPECT_EQ(Structure("Rule IfOr " + kind + " Then EndIfOr EndRule"), kIfOrNoThen);
        EXPECT_EQ(Structure("Rule IfXor " + kind + " Then EndIfXor EndRule"), kIfXorNoThen);
        EXPECT_EQ(Structure("Rule IfAny " + kind + " Then EndIfAny EndRule"), kIfAnyNoThen);
    }
}

TEST(RuleStructure, AnEndClosesItsKindAfterThenOrElse) {
    for (const std::string kind : {"If", "IfOr", "IfXor"}) {
        EXPECT_EQ(Structure("Rule " + kind + " Then End" + kind + " EndRule"), kFine);
        EXPECT_EQ(Structure("Rule " + kind + " Then Else End" + kind + " EndRule"), kFine);
        for (const std::string other : {"If", "IfOr", "IfXor"})
            EXPECT_EQ(Structure("Rule " + kind + " Then End" + other + " EndRule"),
                      kind == other ? kFine : kWrongEnd);
    }
}

TEST(RuleStructure, AnEndBeforeThenNamesTheOpenIfAndClosesNothing) {
    for (const std::string end : {"EndIf", "EndIfOr", "EndIfXor"}) {
        EXPECT_EQ(Structure("Rule If " + end + " Then EndIf EndRule"), kIfNoThen);
        EXPECT_EQ(Structure("Rule IfOr " + end + " Then EndIfOr EndRule"), kIfOrNoThen);
        EXPECT_EQ(Structure("Rule IfXor " + end + " Then EndIfXor EndRule"), kIfXorNoThen);
        EXPECT_EQ(Structure("Rule IfAny " + end + " Then EndIfAny EndRule"), kFine);
        EXPECT_EQ(Structure("Rule ForAll " + end + " EndForAll EndRule"), kFine);
        EXPECT_EQ(Structure("Rule " + end + " EndRule"), kFine);
    }
}

TEST(RuleStructure, EveryEndClosesAnIfAnyAfterThen) {
    for (const std::string end : {"EndIf", "EndIfOr", "EndIfXor", "EndIfAny"})
        EXPECT_EQ(Structure("Rule IfAny Then " + end + " EndRule"), kFine);
}

TEST(RuleStructure, EndIfAnyClosesEveryIfAfterThenOrOtherwise) {
    for (const std::string kind : {"If", "IfOr", "IfXor", "IfAny"}) {
        EXPECT_EQ(Structure("Rule " + kind + " Then EndIfAny EndRule"), kFine);
        EXPECT_EQ(Structure("Rule " + kind + " Then Otherwise EndIfAny EndRule"), kFine);
        EXPECT_EQ(Structure("Rule " + kind + " EndIfAny Then EndIfAny EndRule"), kIfAnyNoThen);
        EXPECT_EQ(Structure("Rule " + kind + " Then Else EndIfAny EndIf EndRule").front(),
                  kIfAnyNoThen.front());
    }
    EXPECT_EQ(Structure("Rule EndIfAny EndRule"), kIfAnyNoThen);
    EXPECT_EQ(Structure("Rule ForAll EndIfAny EndForAll EndRule"), kIfAnyNoThen);
}

TEST(RuleStructure, AfterOtherwiseTheOtherEndsSayAndCloseNothing) {
    for (const std::string kind : {"If", "IfOr", "IfXor", "IfAny"})
        for (const std::string end : {"EndIf", "EndIfOr", "EndIfXor"}) {
            const std::string open = "Rule " + kind + " Then Otherwise " + end;
            EXPECT_EQ(Structure(open + " EndIfAny EndRule"), kFine);
            EXPECT_EQ(Structure(open + " EndRule"), kOpenBlock);
        }
}

TEST(RuleStructure, ThenFollowsACondition) {
    EXPECT_EQ(Structure("Rule Then EndRule"), kThenNoIf);
    EXPECT_EQ(Structure("Rule ForAll Then EndForAll EndRule"), kThenNoIf);
    EXPECT_EQ(Structure("Rule If Then Then EndIf EndRule"), kThenNoIf);
    EXPECT_EQ(Structure("Rule If Then Else Then EndIf EndRule"), kThenNoIf);
    EXPECT_EQ(Structure("Rule If Then Otherwise Then EndIfAny EndRule"), kThenNoIf);
}

TEST(RuleStructure, ElseFollowsThen) {
    for (const std::string kind : {"If", "IfOr", "IfXor", "IfAny"})
        EXPECT_EQ(Structure("Rule " + kind + " Then Else EndIf EndRule"),
                  kind == "IfOr" || kind == "IfXor" ? kWrongEnd : kFine);
    EXPECT_EQ(Structure("Rule Else EndRule"), kElseNoThen);
    EXPECT_EQ(Structure("Rule If Else Then EndIf EndRule"), kElseNoThen);
    EXPECT_EQ(Structure("Rule If Then Else Else EndIf EndRule"), kElseNoThen);
    EXPECT_EQ(Structure("Rule If Then Otherwise Else EndIfAny EndRule"), kElseNoThen);
    EXPECT_EQ(Structure("Rule ForAll Else EndForAll EndRule"), kElseNoThen);
}

TEST(RuleStructure, OtherwiseFollowsThen) {
    EXPECT_EQ(Structure("Rule Otherwise EndRule"), kOtherwiseNoThen);
    EXPECT_EQ(Structure("Rule IfAny Otherwise Then EndIfAny EndRule"), kOtherwiseNoThen);
    EXPECT_EQ(Structure("Rule If Then Else Otherwise EndIf EndRule"), kOtherwiseNoThen);
    EXPECT_EQ(Structure("Rule IfAny Then Otherwise Otherwise EndIfAny EndRule"), kOtherwiseNoThen);
}

TEST(RuleStructure, NestsFarDeeperThanAnyRuleNeeds) {
    const auto nested = [](int depth) {
        std::string text = "Rule 1 ";
        for (int i = 0; i < depth; ++i)
            text += "ForAll ";
        for (int i = 0; i < depth; ++i)
            text += "EndForAll ";
        return text + "EndRule";
    };
    for (int depth : {198, 199, 200, 201, 20000}) {
        EXPECT_EQ(Structure(nested(depth)), kFine) << depth;
        EXPECT_EQ(Structure(nested(depth) + " EndForAll"), kSurplusForAll) << depth;
    }
}

TEST(RuleBalance, OfAFineRuleSaysNothing) {
    EXPECT_EQ(Balance("Rule 1 ForAll If a Then b EndIf EndForAll EndRule"), kFine);
}

TEST(RuleBalance, ComparesWhatOpensWithWhatCloses) {
    EXPECT_EQ(Balance(""), (Lines{"There is no Rule", "There is no EndRule"}));
    EXPECT_EQ(Balance("Rule"), Lines{"There is no EndRule"});
    EXPECT_EQ(Balance("EndRule"), kFine); // it ends with "Rule"
    EXPECT_EQ(Balance("EndRule ForAll"), Lines{"There are ForAll without EndForAll"});
    EXPECT_EQ(Balance("EndRule EndForAll"), Lines{"There are too many EndForAll"});
    EXPECT_EQ(Balance("EndRule If"), Lines{"There are If without EndIf"});
    EXPECT_EQ(Balance("EndRule EndIf"), Lines{"There are too many EndIf"});
    EXPECT_EQ(Balance("EndRule IfOr"), Lines{"There are IfOr whithout EndIfOr"});
    EXPECT_EQ(Balance("EndRule EndIfOr"), Lines{"There are too many EndIfOr"});
    EXPECT_EQ(Balance("EndRule IfAny"), Lines{"There are IfAny whithout EndIfAny"});
    EXPECT_EQ(Balance("EndRule EndIfAny"), Lines{"There are too many EndIfAny"});
    EXPECT_EQ(Balance("EndRule IfXor"), kFine);
    EXPECT_EQ(Balance("EndRule EndIfXor"), kFine);
    EXPECT_EQ(Balance("ForAll EndIf IfOr EndIfAny"),
              (Lines{"There is no Rule", "There is no EndRule",
                     "There are ForAll without EndForAll", "There are too many EndIf",
                     "There are IfOr whithout EndIfOr", "There are too many EndIfAny"}));
}

TEST(RuleBalance, CountsWordsInCommentsAndStrings) {
    EXPECT_EQ(Balance("EndRule /* If */"), Lines{"There are If without EndIf"});
    EXPECT_EQ(Balance("EndRule \"ForAll\""), Lines{"There are ForAll without EndForAll"});
    EXPECT_EQ(Balance("// Rule EndRule"), kFine);
    EXPECT_EQ(Structure("Rule /* Then */ \"Else\" EndRule // Then"), kFine);
}

TEST(RuleWords, AreFoundInsideOtherWords) {
    EXPECT_EQ(Balance("EndRule Iffy"), Lines{"There are If without EndIf"});
    EXPECT_EQ(Balance("EndRule ForAllif"), Lines{"There are ForAll without EndForAll"});
    EXPECT_EQ(Balance("EndRule IF if"), kFine);
}

TEST(RuleWords, AreNotTriedAgainAtTheCharacterThatBrokeThem) {
    EXPECT_EQ(Balance("RRule"), (Lines{"There is no Rule", "There is no EndRule"}));
    EXPECT_EQ(Balance("RRRule"), Lines{"There is no EndRule"});
    EXPECT_EQ(Balance("EndRule IIf"), kFine);
}

TEST(RuleWords, IfLooksAtTheNextCharacter) {
    EXPECT_EQ(Balance("EndRule IfOther"), kFine);
    EXPECT_EQ(Balance("EndRule IfA"), kFine);
    EXPECT_EQ(Balance("EndRule IfX"), kFine);
    EXPECT_EQ(Balance("EndRule EndIfX"), kFine);
    EXPECT_EQ(Balance("EndRule If"), Lines{"There are If without EndIf"}); // nothing follows
}

} // namespace
