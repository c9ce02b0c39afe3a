// Rules that are left out of a tick because nothing has changed for them: everything must come out
// as if all of them ran in every tick.
#include "made_rules.h"

#include <algorithm>
#include <random>

namespace {

using morv_test::MadeProject;
using morv_test::MadeRules;
using morv_test::MadeSystem;

constexpr unsigned kItems = 8, kSystems = 5, kFacts = 5, kResults = 16, kRules = 16;

class RandomRules {
public:
    explicit RandomRules(unsigned seed) : random_(seed) {}

    MadeProject Project() {
        MadeProject project;
        for (unsigned i = 0; i < kItems; ++i)
            project.items.push_back(Item(i));
        for (unsigned i = 0; i < kSystems * kResults; ++i)
            project.results.push_back("R" + std::to_string(i));
        project.externs = "#define AGAIN for (int again = 0; again < 2; ++again)\n";
        for (unsigned i = 0; i < kSystems; ++i) {
            project.systems.push_back(System(i));
            project.main += OneIn(5) ? "if (DDEinfo.I0 > 40) " : "";
            project.main += project.systems.back().name + ".engine();\n";
        }
        return project;
    }

    std::string Commands(int ticks) {
        std::string commands;
        for (int i = 0; i < ticks; ++i) {
            for (unsigned pokes = Below(3); pokes > 0; --pokes)
                commands += "poke " + Item(Below(kItems)) + " " +
                            std::to_string(OneIn(3) ? Below(9) : Below(110)) + "\n";
            commands += "tick\nshow\n";
        }
        return commands;
    }

private:
    unsigned Below(unsigned end) { return random_() % end; }
    bool OneIn(unsigned of) { return Below(of) == 0; }
    std::string Pick(const std::vector<std::string>& texts) {
        return texts[Below(static_cast<unsigned>(texts.size()))];
    }
    static std::string Item(unsigned number) { return "I" + std::to_string(number); }

    // Some facts have an item, whose certainty may be one, too; others are what rules assign.
    MadeSystem System(unsigned number) {
        number_ = number;
        MadeSystem system;
        system.name = "s" + std::to_string(number);
        for (unsigned i = 0; i < kFacts; ++i) {
            std::string fact = "F" + std::to_string(i);
            fact += Pick({"", ":WEAR", ":ACTION"});
            if (i < 3)
                fact += "=" + Item(Below(kItems)) + " " +
                        (OneIn(2) ? "DDEinfo." + Item(Below(kItems)) : Certainty());
            system.facts.push_back(fact);
        }
        if (OneIn(2))
            system.opposites = "set_opposites(" + OfResult(0) + ", " + OfResult(1) + ");";
        std::string rules;
        for (unsigned i = 1; i <= kRules; ++i) {
            rules += "Rule " + std::to_string(i) + "\n";
            own_ = i - 1; // the result that others seldom touch
            plain_ = !OneIn(4);
            rules += Block(0) + "EndRule\n";
        }
        system.rules = Around(rules);
        return system;
    }

    std::string Around(const std::string& rules) {
        switch (Below(8)) {
        case 0:
            return "if (DDEinfo.I1 > 30) {\n" + rules + "}\n";
        case 1:
            return "for (int i = 0; i < 2; ++i) {\n" + rules + "}\n";
        case 2:
            return "AGAIN {\n" + rules + "}\n";
        case 3:
            return "#define ONCE_MORE while (++count < 3)\nint count = 0;\nONCE_MORE {\n" + rules +
                   "}\n";
        default:
            return rules;
        }
    }

    std::string Certainty() {
        return Pick(
            {"VERYLOW", "LOW", "NOTVERYLOW", "NORMAL", "NOTVERYHIGH", "HIGH", "VERYHIGH", "FULL"});
    }
    std::string OfResult(unsigned number) const {
        return "R" + std::to_string(number_ * kResults + number);
    }
    std::string AnyResult() {
        return OneIn(6) ? "R" + std::to_string(Below(kSystems * kResults))
                        : OfResult(Below(kResults));
    }
    std::string AnyFact() { return "F" + std::to_string(Below(kFacts)); }

    std::string Question() {
        const std::string fact = AnyFact();
        switch (Below(!plain_ && OneIn(6) ? 14 : 9)) {
        case 0:
            return AnyResult() + ".holds()";
        case 1:
            return "!" + AnyResult() + ".holds()";
        case 2:
            return AnyResult() + ".certainty() > 3";
        case 3:
            return fact + ".level() == " + Pick({"\"high\"", "\"low\"", "\"normal\""});
        case 4:
            return Pick({"", "!"}) + fact + ".known()";
        case 5:
            return fact + ".certainty() >= " + Certainty();
        case 6:
            return "(" + Question() + Pick({" && ", " || "}) + Question() + ")";
        case 9:
            return AnyResult() + ".holds(1)";
        case 10:
            return fact + ".value(1) < " + fact + ".value()";
        case 11:
            return "Poked(" + Item(Below(kItems)) + ")";
        case 12:
            return fact + ".age() > 2";
        case 13:
            return "DDEinfo." + Item(Below(kItems)) + " > 20";
        default:
            return fact + ".value() " + Pick({"<", ">", "<=", ">="}) + " " + fact +
                   Pick({".fact_value.high", ".fact_value.low", ".fact_value.normal"}) +
                   Pick({"", " + 5.0", " * 0.5"});
        }
    }

    std::string Statement() {
        const std::string result = !plain_ && OneIn(8) ? AnyResult() : OfResult(own_);
        switch (Below(!plain_ && OneIn(3) ? 8 : 5)) {
        case 0:
        case 1:
            return "deduce(&" + result + ", " + Certainty() + ");\n";
        case 2:
            return "deduce(&" + result + ");\n";
        case 3:
        case 4:
            return "retract(&" + result + ");\n";
        case 5:
            return AnyFact() + ".assign(" + AnyFact() + ".value() * 0.5 + 20, " + Certainty() +
                   ");\n";
        case 6:
            return "ForAll (WEAR)\nPF->assign(PF->value() + 1, HIGH);\nEndForAll\n";
        default:
            return OneIn(3) ? "return 0;\n" : "put_box(\"told\");\n";
        }
    }

    std::string Block(int depth) {
        std::string text;
        for (unsigned i = 1 + Below(2); i > 0; --i) {
            if (depth > 0 && OneIn(2)) {
                text += Statement();
                continue;
            }
            const std::string word =
                Pick({"If", "If", "If", "IfOr", "IfXor", plain_ ? "If" : "IfAny"});
            text += word + " (" + (word == "IfAny" ? "WEAR, PF->value() > 30" : Question());
            if (word == "IfOr" || word == "IfXor")
                text += ", " + Question();
            text += ") Then\n" + (depth < 2 ? Block(depth + 1) : Statement());
            if (OneIn(2))
                text += "Else\n" + (depth < 2 ? Block(depth + 1) : Statement());
            text += "End" + word + "\n";
        }
        return text;
    }

    std::mt19937 random_;
    unsigned number_ = 0, own_ = 0;
    bool plain_ = false; // the rule only asks what is now, and concludes its own result
};

// How many rules may be left out.
int QuietRules(const morv::Translation& translation) {
    int count = 0;
    for (const morv::Piece& piece : translation.sources)
        for (std::size_t at = 0;
             (at = piece.text.find("static const morv::Source ", at)) != std::string::npos; ++at)
            ++count;
    return count;
}

// The first line that differs, for a reader.
void ExpectSame(const std::string& some, const std::string& all) {
    const auto differs = std::mismatch(some.begin(), some.end(), all.begin(), all.end());
    const std::string same(some.begin(), differs.first);
    const std::size_t line = same.rfind('\n') + 1;
    EXPECT_EQ(some.substr(line, some.find('\n', line) - line),
              all.substr(line, all.find('\n', line) - line))
        << "after " << same.substr(same.rfind("\nTick ") + 1);
}

TEST(QuietRules, AreLeftOutWithoutATrace) {
    RandomRules random(2);
    const MadeRules rules(random.Project());
    EXPECT_GT(QuietRules(rules.translation), 10);
    for (int run = 0; run < 4 && !HasFailure(); ++run) {
        const std::string commands = random.Commands(150);
        ExpectSame(rules.Run(commands), rules.Run(commands, "all"));
    }
}

// What a rule did stands while it is left out; where its place was not reached it did not run.
TEST(QuietRules, TellWhetherTheirPlaceWasReached) {
    MadeProject project;
    project.items = {"Level", "Runs", "Leaves"};
    project.results = {"QUIET", "OTHER"};
    project.systems = {{"plant", {"L=Level HIGH"}, "", R"(if (DDEinfo.Runs > 0) {
Rule 1
  If (DDEinfo.Leaves > 0) Then return 0; EndIf
EndRule
Rule 2
  If (L.value() > 40.0) Then deduce(&QUIET, FULL); Else retract(&QUIET); EndIf
EndRule
}
Rule 3
  If (L.value() > 50.0) Then deduce(&OTHER, FULL); Else retract(&OTHER); EndIf
EndRule
)"}};
    project.main = "plant.engine();";
    const MadeRules rules(project);
    EXPECT_EQ(QuietRules(rules.translation), 2);
    const std::string ask = "tick\nfired plant 2\nfired plant 3\n";
    std::istringstream said(rules.Run("poke Level 60\n" + ask + "poke Runs 1\n" + ask + ask +
                                      "poke Runs 0\n" + ask + "poke Runs 1\npoke Leaves 1\n" + ask +
                                      "why not QUIET\n"));
    std::vector<std::string> told;
    for (std::string line; std::getline(said, line);)
        if (line.find("rule ") != std::string::npos)
            told.push_back(line);
    const std::string idle = "rule 2 of plant did not run in this tick, but last in tick 2";
    EXPECT_EQ(told,
              (std::vector<std::string>{
                  "rule 2 of plant did not run yet", "rule 3 of plant fired",
                  "rule 2 of plant fired", "rule 3 of plant fired", "rule 2 of plant fired",
                  "rule 3 of plant fired", idle, "rule 3 of plant fired", idle,
                  "rule 3 of plant did not run in this tick, but last in tick 1", "  " + idle}));
}

} // namespace
