// What rules mean when they run: each test is a few commands to one program.
#include "made_rules.h"

#include <algorithm>

namespace {

using morv_test::MadeProject;
using morv_test::MadeRulesTest;

// Code of extern files in every form that rules of other sources may use.
constexpr char kExterns[] = R"(#include <string.h>
#include <string>
#define LIMIT 50.0
#define IS_HIGH(fact) ((fact).value() > LIMIT)
struct Curve { double gain, offset; double At(double x) const; };
double Curve::At(double x) const { return gain * x + offset; }
enum Mode { kIdle, kBusy = 3 };
static Curve curve = {2, 1};
static const double table[] = {1, 2, 4};
static double from_table(int at, double scale = 1.5);
double from_table(int at, double scale) { return table[at] * scale; }
template <class T> T twice(T x) { return x + x; }
int shifted(int bits = 1 << 3, const char *unit = "a.b") { return bits + (unit[1] == '.'); }
int taken(Curve &&moved) { return (int)moved.gain; }
int counts[3], *first_count = counts;
void count(int by) { *first_count += by; }
int counted() { return counts[0]; }
Mode mode() { return counts[0] > 3 ? kBusy : kIdle; }
std::string word(const char* text) { std::string s; s.assign(text, 2); return s; }
void nested() { morv::Tick(); }
static DATAFACT& kept() { static DATAFACT fact; return fact; }
void keep(const DATAFACT& fact) { kept() = fact; }
double kept_value() { return kept().value(); }
void tell(const char* what, int number)
{
    char text[40];
    snprintf(text, sizeof text, "%s %d", what, number);
    put_box(text);
}
)";

MadeProject Project() {
    MadeProject project;
    project.items = {"Level", "Least", "Settles", "Most", "Nests", "W1", "W2", "Runs", "Copies"};
    project.results = {"FIRST", "SECOND", "THIRD", "SWINGS", "SEEN",  "UNSEEN", "WORN",
                       "ANY",   "LARGE",  "BUSY",  "HALF",   "OTHER", "COPIED", "AGAIN",
                       "SURE",  "TWICE",  "QUIET", "BOTH",   "LATE",  "THREE"};
    project.externs = kExterns;
    project.systems = {
        {"chain", {"N=Least FULL"}, "", R"(Rule 1
  // Third
  If (SECOND.holds()) Then deduce(&THIRD, FULL); EndIf
EndRule
Rule 2
  // Second
  If (FIRST.holds()) Then deduce(&SECOND, FULL); EndIf
EndRule
Rule 3
  // First
  If (DDEinfo.Level > 10) Then deduce(&FIRST, FULL); EndIf
EndRule
Rule 4
  // Swings
  If (DDEinfo.Level > 20) Then
    If (SWINGS.holds()) Then retract(&SWINGS); Else deduce(&SWINGS, FULL); EndIf
  EndIf
EndRule
Rule 5
  If (N.value() > 0.0 && N.value() < 5.0) Then N.assign(N.value() + 1, FULL); EndIf
EndRule
)"},
        {"asked",
         {"L=Level HIGH", "D=Least LOW", "C", "G", "W1:WEAR=W1 HIGH", "W2:WEAR=W2 NORMAL"},
         "",
         R"(Rule 1
  If (Poked(Level)) Then deduce(&SEEN, FULL); Else deduce(&UNSEEN, FULL); EndIf
EndRule
Rule 2
  // Wear
  ForAll (WEAR)
    If (PF->value() > 5.0) Then deduce(&WORN, FULL); EndIf
  EndForAll
EndRule
Rule 3
  IfAny (WEAR, PF->value() > 8.0) Then deduce(&ANY, FULL); EndIfAny
EndRule
Rule 4
  // Copies
  DATAFACT copy = L;
  If (copy.value() > 10.0) Then deduce(&COPIED, FULL); EndIf
  If (D.value() > 1.0) Then C = L; EndIf
  If (DDEinfo.Copies > 0) Then keep(L); EndIf
  If (kept_value() > 30.0) Then deduce(&AGAIN, FULL); EndIf
EndRule
Rule 5
  // Sure
  If (L.value() > 1.0) Then deduce(&SURE, FULL); EndIf
  If (D.value() > 1.0) Then retract(&SURE); EndIf
EndRule
Rule 6
  // Twice
  If (L.value() > 60.0) Then deduce(&TWICE, FULL); EndIf
  If (L.value() > 70.0) Then deduce(&TWICE, FULL); EndIf
  If (L.value() > 80.0) Then
    If (W1.value() > 1.0) Then deduce(&TWICE, FULL); EndIf
  EndIf
EndRule
Rule 7
  If (DDEinfo.Nests > 0) Then nested(); nested(); EndIf
EndRule
Rule 8
  G.assign(L.age(), FULL);
EndRule
Rule 9
  If (DDEinfo.Copies > 5) Then retract(&TWICE); EndIf
EndRule
)"},
        {"extern_code", {"L=Level HIGH", "S"}, "", R"(Rule 1
  If (IS_HIGH(L)) Then deduce(&LARGE, FULL); EndIf
  count(2);
  If (mode() == kBusy && counted() > 3) Then deduce(&BUSY, FULL); EndIf
  S.assign(curve.At(twice(L.value())) + from_table(2, 0.5) + from_table(1) + shifted() -
           taken({9, 0}), FULL);
EndRule
Rule 2
  std::string name = word("three");
  name.assign(name + "ree");
  If (strcmp(name.c_str(), "three") != 0 && name == "three") Then deduce(&UNSEEN); EndIf
  If (name == "three") Then deduce(&THREE, FULL); EndIf
EndRule
)"},
        {"defines", {"L=Level HIGH"}, "", R"(	#define HALF_OF(fact) ((fact).value() / \
		2.0) // half
	#define LOWEST 20.0
	if (DDEinfo.Runs > 0) {
Rule 1
  If (HALF_OF(L) > LOWEST) Then deduce(&HALF, FULL); EndIf
EndRule
	}
)"},
        {"after", {"L=Level HIGH"}, "", R"(	#define LOWEST 20.0
Rule 1
  If (HALF_OF(L) < LOWEST) Then deduce(&OTHER, FULL); Else retract(&OTHER); EndIf
EndRule
)"},
        {"whole", {"L=Level HIGH"}, "", R"(	struct Sum { double all; };
	Sum sum = {0};
	double twofold = 2 * L.value();
Rule 1
  // Within the function
  #define ADD(x) sum.all += (x)
  ADD(twofold);
  If (DDEinfo.Copies > 8) Then goto end; EndIf
  If (L.value() > 50.0) Then deduce(&BOTH, FULL); Else retract(&BOTH); EndIf
EndRule
end:
	put_box(sum.all > 150 ? "much" : "little");
)"},
        {"behind", {"L=Level HIGH"}, "", R"(Rule 1
  struct { double all; } sum = {1};
  ADD(L.value());
  If (sum.all > 61.0) Then deduce(&LATE, FULL); Else retract(&LATE); EndIf
EndRule
)"}};
    project.main = R"(
	if (DDEinfo.Settles > 0)
		tell("changed", settle(chain, (int)DDEinfo.Most));
	else
		tell("changed", chain.engine());
	asked.engine();
	extern_code.engine();
	defines.engine();
	after.engine();
	whole.engine();
	behind.engine();
)";
    return project;
}

using Made = MadeRulesTest<Project>;

TEST_F(Made, SettleRunsUntilNothingChanges) {
    EXPECT_EQ(
        Run("poke Level 15\ntick\nshow THIRD\ntick\nshow THIRD\ntick\nshow THIRD\n").substr(0, 6),
        "Poke: ");
    const std::string slowly = Run("poke Level 15\ntick 2\nshow THIRD\ntick\nshow THIRD\n");
    ExpectSays(slowly, "THIRD 0 NULL\n");
    ExpectSays(slowly, "THIRD 1 FULL\n");
    const std::string at_once =
        Run("poke Level 15\npoke Settles 1\npoke Most 10\ntick\nshow THIRD\n");
    ExpectSays(at_once, "> changed 0\n");
    ExpectSays(at_once, "THIRD 1 FULL\n");
    ExpectSaysNot(at_once, "Not settled");
}

TEST_F(Made, SettleEndsAfterTheMostRoundsAndNamesTheRulesThatGoOn) {
    const std::string said =
        Run("poke Level 25\npoke Settles 1\npoke Most 6\ntick\nshow THIRD\nshow SWINGS\n");
    ExpectSays(said, "Not settled after 6 rounds, for these go on: rule 4 of chain: Swings\n");
    ExpectSays(said, "> changed 1\n");
    ExpectSays(said, "THIRD 1 FULL\n");
    ExpectSays(said, "SWINGS 0 NULL\n"); // six rounds, each the other way
    const std::string cut = Run("poke Level 15\npoke Settles 1\npoke Most 2\ntick\nshow THIRD\n");
    ExpectSays(cut, "Not settled after 2 rounds, for these go on: rule 2 of chain: Second\n");
    ExpectSays(cut, "THIRD 0 NULL\n");
    const std::string none = Run("poke Level 15\npoke Settles 1\ntick\nshow FIRST\n");
    ExpectSays(none, "> changed 0\n");
    ExpectSays(none, "FIRST 0 NULL\n");
}

TEST_F(Made, InitialValuesAreTakenUpInTheFirstRoundOfATick) {
    const std::string said = Run("poke Least 1\npoke Settles 1\npoke Most 10\ntick\nshow N\n"
                                 "poke Settles 0\ntick\nshow N\n");
    ExpectSays(said, "N 5 FULL\n");
    ExpectSays(said, "N 2 FULL\n"); // from what the item says again, one round
}

TEST_F(Made, TheTraceMayLeaveOutASystemOrARule) {
    const std::string said = Run("trace on\ntrace off chain\ntrace off asked 5\npoke Level 5\n"
                                 "tick\n");
    ExpectSaysNot(said, "Rule 1 of chain");
    ExpectSays(said, "Rule 4 of asked");
    ExpectSaysNot(said, "Rule 5 of asked");
    ExpectSays(said, "Rule 1 of after");
    const std::string all = Run("trace on chain\ntrace off\ntick\ntrace on chain\ntrace off chain\n"
                                "tick\ntrace off asked 5\ntrace on asked 5\ntrace off behind\n"
                                "tick\ntrace on nothing\ntrace on chain 6\n");
    ExpectSaysNot(all, "Rule 1 of chain");
    ExpectSays(all, "Rule 5 of asked: Sure\n");
    ExpectSaysNot(all, "Rule 4 of asked");
    ExpectSays(all, "there is no system nothing\n"
                    "there is no rule 6 of chain\n");
}

TEST_F(Made, WhatThereIsIsKnownBeforeTheFirstTick) {
    EXPECT_EQ(Run("trace on asked 5\ntrace off\nfired asked 5\nshow asked.L\nwhy THIRD\nwhy N\n"
                  "why not THIRD\nfired asked 77\n"),
              "trace on asked 5\ntrace off\nrule 5 of asked: Sure did not run yet\n"
              "asked.L 0 NULL\nTHIRD does not hold\n  it was never concluded\n"
              "N unknown\n  it was never given a value\n"
              "THIRD does not hold\n  rule 1 of chain: Third did not run yet\n"
              "there is no rule 77 of asked\n");
}

TEST_F(Made, AFactKnowsHowLongAgoItsItemWasPoked) {
    const std::string said =
        Run("tick\nshow G\npoke Level 5\ntick\nshow G\ntick 3\nshow G\npoke Level 5\ntick\n"
            "show G\n");
    ExpectSays(said, "G 2147483647 FULL\n");
    const std::size_t first = said.find("G 0 FULL\n");
    const std::size_t later = said.find("G 3 FULL\n");
    EXPECT_LT(first, later) << said;
    EXPECT_NE(said.find("G 0 FULL\n", later), std::string::npos) << "the same value again";
}

TEST_F(Made, AFactWhoseNameIsInSeveralSystemsIsToldWithItsSystem) {
    const std::string said = Run("poke Level 35\ntick\nshow defines.L\nwhy asked.L\nshow\n");
    ExpectSays(said, "defines.L 35 HIGH\nasked.L = 35 bar, normal (HIGH)\n"
                     "  from item Level = 35, poked in tick 1\n");
    ExpectSays(said, "\nextern_code.L 35 HIGH\n");
}

TEST_F(Made, WhatRulesCallStartsNoSecondTick) {
    const std::string said =
        Run("poke Nests 1\ntick\npoke Nests 0\npoke Level 3\ntick\nwhy SURE\n");
    const std::string refused = "A tick is running: the next one waits for it\n";
    ExpectSays(said, refused);
    EXPECT_EQ(said.find(refused), said.rfind(refused)) << "told once a tick";
    ExpectSays(said, "deduced in tick 2 by rule 5 of asked: Sure");
}

TEST_F(Made, PokedIsUnknownUntilTheItemWasPoked) {
    const std::string said = Run("poke Least 0\ntick\nshow\nwhy not SEEN\npoke Level 0\ntick 2\n"
                                 "show\nwhy SEEN\n");
    const std::size_t poked = said.find("Poke: Level");
    ASSERT_NE(poked, std::string::npos) << said;
    ExpectSaysNot(said.substr(0, poked), "SEEN 1");
    ExpectSays(said, "rule 1 of asked, If Poked(Level) is unknown\n");
    ExpectSays(said.substr(poked), "\nSEEN 1 FULL\n");
    ExpectSaysNot(said, "UNSEEN 1");
    ExpectSays(said, "    If Poked(Level) : true (FULL)\n"
                     "      item Level = 0, poked in tick 2\n");
}

TEST_F(Made, WhyTellsWhichFactForAllAndIfAnyWereAt) {
    const std::string said = Run("poke W1 2\npoke W2 9\ntick\nwhy WORN\nwhy ANY\n");
    ExpectSays(said, "WORN holds (NORMAL)\n"
                     "  deduced in tick 1 by rule 2 of asked: Wear\n"
                     "    ForAll: PF is W2\n"
                     "    If PF->value() > 5.0 : true (NORMAL)\n"
                     "      W2 = 9 bar, lowest (NORMAL)\n"
                     "        from item W2 = 9, poked in tick 1\n");
    ExpectSays(said, "ANY holds (NORMAL)\n"
                     "  deduced in tick 1 by rule 3 of asked\n"
                     "    IfAny WEAR, PF->value() > 8.0 : true (NORMAL)\n"
                     "      W2 = 9 bar, lowest (NORMAL)\n"
                     "        from item W2 = 9, poked in tick 1\n");
}

TEST_F(Made, WhyNotTellsEachRuleOnce) {
    EXPECT_EQ(Run("poke Level 5\ntick\nwhy not TWICE\n")
                  .find("  rule 6 of asked: Twice, If "
                        "L.value() > 60.0 is false"),
              Run("poke Level 5\ntick\nwhy not TWICE\n").rfind("  rule 6 of asked"));
    ExpectSays(Run("poke Level 65\ntick\nwhy not TWICE\n"),
               "  rule 6 of asked: Twice concludes it\n");
}

TEST_F(Made, WhyNotTellsWhichRuleTakesAResultBack) {
    ExpectSays(Run("poke Level 65\npoke Copies 9\ntick\nwhy not TWICE\n"),
               "TWICE does not hold\n"
               "  rule 6 of asked: Twice concludes it, but rule 9 of asked takes it back\n");
}

TEST_F(Made, ACopyTellsWhatItWasCopiedFrom) {
    const std::string said = Run("poke Level 35\npoke Copies 1\ntick\nwhy COPIED\npoke Least 5\n"
                                 "poke Copies 0\npoke Level 36\ntick\nwhy C\nwhy AGAIN\n");
    ExpectSays(said, "    If copy.value() > 10.0 : true (HIGH)\n"
                     "      L = 35 bar, normal (HIGH)\n"
                     "        from item Level = 35, poked in tick 1\n");
    // No more certain than what led there.
    ExpectSays(said, "C = 36 bar, normal (LOW)\n  copied in tick 2 by rule 4 of asked: Copies\n");
    ExpectSays(said, "    computed from\n      L = 36 bar, normal (HIGH)\n"
                     "        from item Level = 36, poked in tick 2\n");
    ExpectSays(said, "    If kept_value() > 30.0 : true (HIGH)\n"
                     "      L = 35 bar, normal (HIGH)\n");
}

TEST_F(Made, WhatIsLessCertainDoesNotTakeBackAndSaysSo) {
    const std::string said = Run("trace on asked 5\npoke Level 5\npoke Least 5\ntick\nshow SURE\n");
    ExpectSays(said, "    retract SURE: it stays, for it is more certain (HIGH) than what led here "
                     "(LOW)\n");
    ExpectSays(said, "SURE 1 HIGH\n");
}

TEST_F(Made, WhatCannotBeSplitIsBuiltWholeAndMeansTheSame) {
    EXPECT_EQ(rules_->translation.notes,
              (std::vector<std::string>{
                  "whole is built whole: the text around the rules says struct",
                  "behind is built whole: a system before it has lines for the preprocessor"}));
    const std::string said = Run("poke Level 60\ntick\nshow BOTH\nshow LATE\nwhy BOTH\n"
                                 "why not LATE\npoke Level 90\npoke Copies 9\ntick\nshow LATE\n"
                                 "poke Level 10\ntick\nshow BOTH\n");
    ExpectSays(said, "> little\n");
    ExpectSays(said, "BOTH 1 HIGH\nLATE 0 NULL\nBOTH holds (HIGH)\n"
                     "  deduced in tick 1 by rule 1 of whole: Within the function\n"
                     "    If L.value() > 50.0 : true (HIGH)\n");
    ExpectSays(said, "LATE does not hold\n  rule 1 of behind, If sum.all > 61.0 is false\n");
    ExpectSays(said, "> much\n");
    ExpectSays(said, "LATE 1 FULL\n");
    ExpectSays(said.substr(said.find("Poke: Level = 10")), "BOTH 1 HIGH\n"); // it jumped over that
}

TEST_F(Made, RulesOfOtherSourcesUseTheExternCode) {
    for (const std::string& note : rules_->translation.notes)
        EXPECT_EQ(note.find("extern_code"), std::string::npos) << note;
    EXPECT_EQ(std::count_if(rules_->translation.sources.begin(), rules_->translation.sources.end(),
                            [](const morv::Piece& piece) {
                                return piece.name.compare(0, 6, "rules.") != 0 &&
                                       piece.name.compare(0, 5, "rules") == 0;
                            }),
              5);
    const std::string said = Run("poke Level 60\ntick 2\nshow LARGE\nshow BUSY\nshow S\nshow "
                                 "THREE\n");
    ExpectSays(said, "LARGE 1 HIGH\nBUSY 1 FULL\nS 246 HIGH\n"); // 2 * 120 + 1 + 4 * 0.5 + 2 * 1.5
    ExpectSays(said, "THREE 1 FULL\n"); // what has another assign is left alone
}

TEST_F(Made, MacrosOfAHeaderAreForAllThatFollows) {
    const std::string said =
        Run("poke Level 60\npoke Runs 1\ntick\nshow HALF\nshow OTHER\npoke Level 30\ntick\n"
            "show OTHER\n");
    ExpectSays(said, "HALF 1 HIGH\nOTHER 0 NULL\n");
    ExpectSays(said, "OTHER 1 HIGH\n");
}

} // namespace
