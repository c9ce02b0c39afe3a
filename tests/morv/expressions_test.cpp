// What an expression rests on: also when it calls functions that assign to facts or run systems,
// and behind many other expressions.
#include "made_rules.h"

namespace {

using morv_test::MadeProject;
using morv_test::MadeRulesTest;

constexpr char kFunctions[] = R"(
#include <stdexcept>
bool tally(DATAFACT& fact) { fact.assign(fact.value() + 1, FULL); return true; }
double noted(DATAFACT& fact, double value) { fact.assign(value, FULL); return value; }
void set_to(DATAFACT& fact, double value) { fact.assign(value, FULL); }
void throw_text(const char* text) { throw std::runtime_error(text); }
bool kept(DATAFACT& to, const DATAFACT& from) { to = from; return true; }
)";

std::string DeepBlocks() {
    std::string rule = "Rule 3\n  // Deep\n", end;
    for (int i = 0; i < 100; ++i) {
        rule += "  If (L.value() > " + std::to_string(i) + ") Then\n";
        end += "  EndIf\n";
    }
    return rule + "  deduce(&DEEP, FULL);\n" + end + "EndRule\n";
}

std::string ManyBlocks() {
    std::string rule = "Rule 5\n  // Many blocks\n";
    for (int i = 0; i < 300; ++i)
        rule += "  If (L.value() > 90 + " + std::to_string(i) + ") Then retract(&MANY); EndIf\n";
    return rule + "  If (L.value() > 1.0) Then deduce(&MANY, FULL); EndIf\n"
                  "  IfOr (L.value() > 80, L.value() > 2.0) Then deduce(&LAST, FULL); EndIfOr\n"
                  "  V.assign(L.value() + 1, FULL);\nEndRule\n";
}

MadeProject Expressing() {
    MadeProject project;
    project.items = {"Level", "Zero", "Throws"};
    project.results = {"YES", "NO", "INNER", "NESTED", "MANY", "LAST", "KEPT", "OF_TYPE", "DEEP"};
    project.externs = kFunctions;
    project.systems = {{"inner", {"L=Level FULL"}, "", R"(Rule 1
  If (L.value() > 1.0) Then deduce(&INNER, FULL); EndIf
EndRule
Rule 2
  // Split
  If (DDEinfo.Throws == 3) Then throw_text("in a piece"); EndIf
EndRule
)" + DeepBlocks()},
                       {"plant",
                        {"L=Level HIGH", "INNER=Zero LOW", "T", "U", "S", "V:WEAR", "W", "C:WEAR",
                         "M=Level+DDEinfo.Zero*2 LOW", "Age"},
                        "",
                        R"(Rule 1
  // Tally
  T.assign(0, FULL);
  If (tally(T) && U.value() > 3.0) Then deduce(&YES, FULL); Else deduce(&NO, FULL); EndIf
EndRule
Rule 2
  // Set
  Age.assign(M.age(), FULL);
  If (L.value() > 1.0) Then set_to(S, 3); EndIf
EndRule
Rule 3
  V.assign(noted(W, 4) * L.value(), FULL);
EndRule
Rule 4
  // Nested
  If (L.value() > 1.0 && inner.engine() >= 0) Then deduce(&NESTED, FULL); EndIf
  If (kept(C, L) && U.known() == 0) Then deduce(&KEPT, FULL); EndIf
  IfAny (WEAR, PF->value() == 5.0) Then deduce(&OF_TYPE, FULL); EndIfAny
EndRule
Rule 7
  // Throws
  If (L.value() > 1.0) Then
    If (DDEinfo.Throws == 1) Then throw_text("no \"number\""); EndIf
    If (DDEinfo.Throws == 2) Then throw 2; EndIf
  EndIf
EndRule
Rule 6
  ForAll (WEAR)
    If (PF->value() > 500.0) Then PF->assign(1, FULL); EndIf
  EndForAll
EndRule
)" + ManyBlocks()}};
    project.main = "\tplant.engine();\n";
    return project;
}

using Expressions = MadeRulesTest<Expressing>;

TEST_F(Expressions, RestOnWhatTheyReadBehindAFunctionThatAssigns) {
    const std::string said = Run("poke Level 5\ntick 2\nshow YES\nshow NO\nwhy not NO\nshow T\n");
    ExpectSays(said, "YES 0 NULL\nNO 0 NULL\n");
    ExpectSays(said, "  rule 1 of plant: Tally, If tally(T) && U.value() > 3.0 is unknown");
    ExpectSays(said, "T 1 FULL\n");
}

TEST_F(Expressions, OfAnAssignmentAreNotThoseOfAnAssignmentInAFunction) {
    const std::string said = Run("poke Level 5\ntick\nshow V\nshow W\nwhy S\n");
    ExpectSays(said, "V 6 HIGH\nW 4 FULL\n");
    EXPECT_EQ(said.substr(said.find("S = 3")), "S = 3 bar, lowest (HIGH)\n"
                                               "  assigned in tick 1 by rule 2 of plant: Set\n"
                                               "    If L.value() > 1.0 : true (HIGH)\n"
                                               "      L = 5 bar, lowest (HIGH)\n"
                                               "        from item Level = 5, poked in tick 1\n");
}

TEST_F(Expressions, RestOnWhatTheyReadAroundARunOfASystem) {
    const std::string said = Run("poke Level 5\ntick\nshow INNER\nwhy NESTED\n");
    ExpectSays(said, "INNER 1 FULL\n");
    ExpectSays(said, "NESTED holds (HIGH)\n"
                     "  deduced in tick 1 by rule 4 of plant: Nested\n"
                     "    If L.value() > 1.0 && inner.engine() >= 0 : true (HIGH)\n"
                     "      L = 5 bar, lowest (HIGH)\n");
}

TEST_F(Expressions, OfSeveralItemsAreAsOldAsTheLastPoke) {
    const std::string said = Run("tick\nwhy M\nshow Age\npoke Level 5\ntick 3\nshow Age\n"
                                 "poke Zero 1\ntick\nwhy M\nshow Age\n");
    ExpectSays(said, "  from DDEinfo.Level+DDEinfo.Zero*2 = 0, which was never poked\n"
                     "Age 2147483647 FULL\n");
    ExpectSays(said, "Age 2 FULL\n");
    ExpectSays(said, "M = 7 bar, lowest (LOW)\n"
                     "  from DDEinfo.Level+DDEinfo.Zero*2 = 7, poked in tick 5\nAge 0 FULL\n");
}

TEST_F(Expressions, AreToldWholeWhereSixDigitsAreTooFew) {
    const std::string said =
        Run("poke Level 1234567\ntick\nshow plant.L\nwhy plant.L\npoke Level 1234567.25\n"
            "tick\nshow plant.L\npoke Level 0.1\ntick\nshow plant.L\n");
    ExpectSays(said,
               "\nplant.L 1234567 HIGH\nplant.L = 1234567 bar, highest, outside its limits (HIGH)\n"
               "  from item Level = 1234567, poked in tick 1\n");
    ExpectSays(said, "\nplant.L 1234567.25 HIGH\n");
    ExpectSays(said, "\nplant.L 0.1 HIGH\n");
}

TEST_F(Expressions, OfEachFactMayAssignOnlyToFactsOfTheirType) {
    const std::string said = Run("poke Level 5\ntick\nwhy not U\nwhy not C\n");
    ExpectSays(said, "U unknown\n  no rule assigns it\n");
    ExpectSays(said, "C = 5 bar, lowest (HIGH)\n"
                     "  rule 6 of plant, If PF->value() > 500.0 is false\n");
}

TEST_F(Expressions, ThatThrowEndTheTickAndAreToldOnce) {
    const std::string said =
        Run("poke Level 5\npoke Throws 1\ntick 2\nshow MANY\nfired plant 1\nfired plant 5\n"
            "poke Throws 2\ntick\npoke Throws 3\ntick\npoke Throws 0\ntick\nwhy MANY\n"
            "show T\npoke Throws 1\ntick\n");
    const std::string once = "rule 7 of plant: Throws threw no \"number\": the tick ends there\n";
    const std::size_t first = said.find(once), last = said.rfind(once);
    EXPECT_LT(first, said.find("MANY 0 NULL\n")) << said;
    EXPECT_EQ(said.find(once, first + 1), last) << said;
    EXPECT_GT(last, said.find("T 1 FULL\n")) << said;
    ExpectSays(said,
               "rule 1 of plant: Tally fired\nrule 5 of plant: Many blocks did not run yet\n");
    ExpectSays(said, "rule 7 of plant: Throws threw something: the tick ends there\n");
    ExpectSays(said, "  deduced in tick 5 by rule 5 of plant: Many blocks\n");
    ExpectSays(said, "rule 2 of inner: Split threw in a piece: the tick ends there\n");
}

TEST_F(Expressions, AFactCalledLikeAResultIsToldWithItsSystem) {
    const std::string said = Run("poke Level 5\npoke Zero 3\ntick\nshow\nwhy INNER\n"
                                 "why plant.INNER\n");
    ExpectSays(said, "\nplant.INNER 3 LOW\n");
    ExpectSays(said, "\nINNER 1 FULL\n");
    ExpectSays(said, "INNER holds (FULL)\n  deduced in tick 1 by rule 1 of inner\n");
    ExpectSays(said, "plant.INNER = 3 bar, lowest (LOW)\n  from item Zero = 3, poked in tick 1\n");
}

TEST_F(Expressions, AreToldWithTheFactsOfTheirOwnSystem) {
    // The system inner saw its L last in tick 1.
    const std::string said = Run("poke Level 5\ntick\npoke Level 0.25\ntick\nwhy not NESTED\n");
    ExpectSays(said, "inner.engine() >= 0 is false [L = 0.25 bar, lowest (HIGH)]");
}

TEST_F(Expressions, ACopyGivesAFactTheValueAlone) {
    const std::string said = Run("poke Level 5\ntick 2\nshow KEPT\nshow OF_TYPE\nwhy C\n");
    ExpectSays(said, "KEPT 1 FULL\nOF_TYPE 1 HIGH\n"); // C is still one of WEAR
    ExpectSays(said, "C = 5 bar, lowest (HIGH)\n  copied in tick 1 by rule 4 of plant: Nested\n"
                     "    computed from\n      L = 5 bar, lowest (HIGH)\n");
}

TEST_F(Expressions, AreTakenDownHoweverDeepTheyStand) {
    const std::string said = Run("poke Level 200\ntick\nwhy DEEP\n");
    ExpectSays(
        said, "  deduced in tick 1 by rule 3 of inner: Deep\n    If L.value() > 0 : true (FULL)\n");
    ExpectSays(said, "    If L.value() > 99 : true (FULL)\n");
}

TEST_F(Expressions, AreTakenDownBehindManyOthers) {
    const std::string said = Run("poke Level 5\ntick\nwhy MANY\nwhy LAST\nwhy V\n");
    ExpectSays(said, "    If L.value() > 1.0 : true (HIGH)\n      L = 5 bar, lowest (HIGH)\n"
                     "        from item Level = 5, poked in tick 1\n");
    ExpectSays(said, "    IfOr L.value() > 80, L.value() > 2.0 : true (HIGH)\n"
                     "      L = 5 bar, lowest (HIGH)\n");
    ExpectSays(said, "V = 6 bar, lowest (HIGH)\n"
                     "  assigned in tick 1 by rule 5 of plant: Many blocks\n"
                     "    computed from\n      L = 5 bar, lowest (HIGH)\n");
}

} // namespace
