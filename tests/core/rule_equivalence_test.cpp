// The rule check against the plain one, over made-up rule texts.
#include "rule_reference.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>

namespace {

using zentrik_test::CheckLog;
using zentrik_test::IndexRecord;
using zentrik_test::ReferenceCheck;

class TextMaker {
public:
    explicit TextMaker(unsigned seed) : random_(seed) {}

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    // Letters of the words and what ends lines, in any order.
    std::string Letters(int size) {
        static const std::string alphabet = "RuleEndForAIfOXrySThenswi/*\"\r\n .";
        std::string text;
        for (int i = 0; i < size; ++i)
            text += alphabet[Below(static_cast<int>(alphabet.size()))];
        return text;
    }

    std::string Bytes(int size) {
        std::string text;
        for (int i = 0; i < size; ++i)
            text += static_cast<char>(Below(256));
        return text;
    }

    // Words, whole or in part, mostly with something between.
    std::string Words(int count) {
        static const std::vector<std::string> words = {
            "Rule",  "EndRule",  "ForAll",    "EndForAll", "If",    "EndIf",    "IfOr", "EndIfOr",
            "IfXor", "EndIfXor", "Then",      "Else",      "IfAny", "EndIfAny", "/*",   "*/",
            "//",    "\"",       "Otherwise", "\r\n",      "\r",    "\n",       "End",  "x"};
        std::string text;
        for (int i = 0; i < count; ++i) {
            const std::string& word = words[Below(static_cast<int>(words.size()))];
            text += Below(8) == 0 ? word.substr(Below(static_cast<int>(word.size()))) : word;
            text += Below(6) == 0 ? "" : Below(4) == 0 ? "\r\n" : " ";
        }
        return text;
    }

    // A rule in which every block is closed.
    std::string Sound(int depth) { return "Rule 1\r\n" + Block(depth) + "EndRule\r\n"; }

    // The same with some bytes changed, removed or doubled.
    std::string Damaged(std::string text) {
        for (int i = Below(4); i > 0 && !text.empty(); --i) {
            const int at = Below(static_cast<int>(text.size()));
            switch (Below(3)) {
            case 0:
                text[at] = static_cast<char>(Below(128));
                break;
            case 1:
                text.erase(at, 1);
                break;
            default:
                text.insert(at, text.substr(at, 1 + Below(9)));
            }
        }
        return text;
    }

    // Cuts a text into rules, some longer or shorter than what is left.
    std::vector<RuleIndexRecord> Cut(const std::string& text) {
        std::vector<RuleIndexRecord> index;
        const int rules = 1 + Below(5);
        for (int i = 0; i < rules; ++i)
            index.push_back(IndexRecord("Rule " + std::to_string(i),
                                        Below(static_cast<int>(text.size()) + 20) - 5));
        return index;
    }

private:
    std::string Block(int depth) {
        static const std::vector<std::string> kinds = {"If", "IfOr", "IfXor", "IfAny"};
        std::string text = "// note\r\n";
        for (int i = Below(3); i >= 0 && depth > 0; --i) {
            if (Below(4) == 0) {
                text += "ForAll x\r\n" + Block(depth - 1) + "EndForAll\r\n";
                continue;
            }
            const std::string& kind = kinds[Below(4)];
            text += kind + " \"a\" Then\r\n" + Block(depth - 1);
            if (Below(2) == 0)
                text += (kind == "IfAny" ? "Otherwise\r\n" : "Else\r\n") + Block(depth - 1);
            text += "End" + kind + "\r\n";
        }
        return text;
    }

    std::mt19937 random_;
};

void ExpectSame(const std::string& text, const std::vector<RuleIndexRecord>& index,
                int anul_before) {
    Lexical anul = static_cast<Lexical>(anul_before);
    CheckLog log;
    CheckRules(text, index, anul, log);
    ReferenceCheck reference(text, anul_before);
    reference.Check(index);
    ASSERT_EQ(log.findings, reference.findings) << text;
    ASSERT_EQ(static_cast<int>(anul), reference.anul()) << text;
}

// Runs `once` with changing seeds for a bounded time.
template <class Once> void ForManySeeds(Once once) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
    unsigned seed = 1;
    do {
        once(seed);
        ++seed;
    } while (std::chrono::steady_clock::now() < end && !testing::Test::HasFatalFailure());
}

TEST(RuleEquivalence, OfRandomTexts) {
    ForManySeeds([](unsigned seed) {
        TextMaker make(seed);
        for (const std::string& text : {make.Letters(make.Below(400)), make.Bytes(make.Below(200)),
                                        make.Words(make.Below(120))})
            ExpectSame(text, make.Cut(text), make.Below(4));
    });
}

TEST(RuleEquivalence, OfSoundAndDamagedRules) {
    ForManySeeds([](unsigned seed) {
        TextMaker make(seed);
        const std::string sound = make.Sound(4);
        ExpectSame(sound, make.Cut(sound), 0);
        const std::string damaged = make.Damaged(sound);
        ExpectSame(damaged, make.Cut(damaged), make.Below(4));
    });
}

TEST(RuleEquivalence, OfTextsLongerThanAPiece) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        TextMaker make(seed);
        const std::string text = make.Letters(30000);
        ExpectSame(text, {IndexRecord("long", 29000), IndexRecord("short", 1000)}, 0);
    }
}

TEST(RuleEquivalence, ASoundRuleHasNoFindingsButItsOwnLine) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        const std::string text = TextMaker(seed).Sound(5);
        Lexical anul = Lexical::Code;
        CheckLog log;
        CheckRules(text, zentrik_test::WholeIndex(text), anul, log);
        ASSERT_EQ(log.findings.size(), 1u) << text;
    }
}

} // namespace
