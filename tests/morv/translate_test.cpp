// The translation of rules: what stays, what is refused and where it says so.
#include "morv/translate.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

constexpr char kProjectHeader[] =
    "#include <dos.h>\r\nDATAFACTRESULT\r\n\t\t\tGOOD,\r\n\t\t\tBAD;\r\n#endif\r\n";

// A generated source with these rules; the rules start in line 9.
std::string Source(const std::string& rules) {
    return "//\r\n#include \"pR.h\"\r\n//- System Declaration\r\nInference_Engine_1 plant;\r\n"
           "//- Systems Implementation\r\nBegin Inference_Engine_1 ZkSystem\r\n"
           "\t//- Facts declaration\r\n\tstatic DATAFACT *PF, A, B;\r\n" +
           rules + "\r\nEndSystem\r\nvoid MORVmain()\r\n{\r\nplant.engine();\r\n}\r\n";
}

std::vector<std::string> Errors(const std::string& rules) {
    return morv::Translate(Source(rules), "pR.cpp", kProjectHeader).errors;
}

std::string Text(const std::string& source) {
    return morv::Translate(source, "pR.cpp", kProjectHeader).sources.front().text;
}

// All sources but the first.
std::string Pieces(const std::string& rules) {
    std::string text;
    const morv::Translation translation = morv::Translate(Source(rules), "pR.cpp", kProjectHeader);
    for (std::size_t i = 1; i < translation.sources.size(); ++i)
        text += translation.sources[i].text;
    return text;
}

bool Has(const std::string& text, const std::string& what) {
    return text.find(what) != std::string::npos;
}

std::vector<std::string> Notes(const std::string& rules) {
    return morv::Translate(Source(rules), "pR.cpp", kProjectHeader).notes;
}

using Texts = std::vector<std::string>;

TEST(Translate, LeavesEverythingOutsideTheSystemsAsItIs) {
    const std::string text = Text(Source("Rule 1\r\nEndRule"));
    EXPECT_EQ(text.find("#line 1 \"pR.cpp\"\n//\n#include \"pR.h\"\n"), 0u) << text;
    EXPECT_NE(text.find("morv_results({{&GOOD, \"GOOD\"}, {&BAD, \"BAD\"}});\n#line 3"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\nvoid MORVmain()\n{\nplant.engine();\n}\n"), std::string::npos) << text;
}

// The line of the source that a compiler means by the first line with `mark`.
int LineOf(const morv::Translation& translation, const std::string& mark) {
    for (const morv::Piece& piece : translation.sources) {
        std::istringstream lines(piece.text);
        std::string label;
        int number = 0;
        for (std::string line; std::getline(lines, line); ++number) {
            if (line.compare(0, 6, "#line ") == 0) {
                number = std::stoi(line.substr(6)) - 1;
                label = line.substr(line.find('"') + 1);
                label.pop_back();
            } else if (Has(line, mark)) {
                for (const morv::Place& place : translation.places)
                    if (place.label == label)
                        return place.line + number - 1;
                return number;
            }
        }
    }
    return 0;
}

TEST(Translate, KnowsTheLineOfEverything) {
    const std::string rules =
        "Rule 1\r\n  IfOr (a, // one\r\n    b)\r\n  Then\r\n    x;\r\n  EndIfOr\r\n"
        "EndRule\r\nint marked;\r\nRule 2\r\n  two;\r\nEndRule\r\n";
    for (const char* more : {"", "this;"}) { // each rule for itself, and the system as a whole
        const morv::Translation translation =
            morv::Translate(Source(rules + more), "pR.cpp", kProjectHeader);
        EXPECT_EQ(LineOf(translation, "    x;"), 13);
        EXPECT_EQ(LineOf(translation, "int marked;"), 16);
        EXPECT_EQ(LineOf(translation, "  two;"), 18);
        EXPECT_EQ(LineOf(translation, "plant.engine();"), 24);
    }
}

std::set<std::string> RuleTexts(const std::string& rules) {
    std::set<std::string> texts;
    for (const morv::Piece& piece :
         morv::Translate(Source(rules), "pR.cpp", kProjectHeader).sources)
        if (piece.name != "rules.cpp")
            texts.insert(piece.text);
    return texts;
}

std::string ManyRules(int from, int to, int added) {
    std::string rules;
    for (int i = from; i < to; ++i)
        rules += "Rule " + std::to_string(i + added) + "\r\n  x" + std::to_string(i) +
                 ";\r\nEndRule\r\n";
    return rules;
}

TEST(Translate, ANewRuleChangesOnlyTheSourceThatItGoesInto) {
    const std::set<std::string> before = RuleTexts(ManyRules(1, 2000, 0));
    const std::set<std::string> after = RuleTexts(
        ManyRules(1, 900, 0) + "Rule 900\r\n  between;\r\nEndRule\r\n" + ManyRules(900, 2000, 1));
    EXPECT_GT(before.size(), 5u);
    int same = 0;
    for (const std::string& text : after)
        same += before.count(text) != 0;
    EXPECT_GE(same, static_cast<int>(before.size()) - 3);
}

TEST(Translate, BuildsASystemWholeWhoseRulesNeedTheFunctionAroundThem) {
    EXPECT_EQ(Notes("Rule 1\r\nA.assign(1, FULL);\r\nEndRule"), Texts{});
    EXPECT_EQ(Notes("if (hora[0] != 0) {\r\nRule 1\r\nreturn 3;\r\nEndRule\r\n}"), Texts{});
    EXPECT_EQ(Notes("double x = A.value();\r\nRule 1\r\ny(B.value());\r\nEndRule"), Texts{});
    EXPECT_EQ(Notes("#define TWICE(x) ((x) * \\\r\n 2) // of it\r\n#define LIMIT 3\r\n"
                    "if (TWICE(2) > LIMIT) {\r\nRule 1\r\nf(TWICE(LIMIT));\r\nEndRule\r\n}"),
              Texts{});
    for (const char* rules :
         {"#define N n\r\nint N = 3;\r\nRule 1\r\nf(n);\r\nEndRule",
          "#define A B\r\nRule 1\r\nEndRule",
          "#define LEAVE goto end\r\nRule 1\r\nLEAVE;"
          "\r\nEndRule\r\nend:;",
          "#define EACH for (;;)\r\n#define END break\r\nEACH {\r\nRule 1\r\nEND;\r\nEndRule\r\n}",
          "#ifdef X\r\n#endif\r\nRule 1\r\nEndRule", "#define static\r\nRule 1\r\nEndRule",
          "auto all = [&] {\r\nRule 1\r\nEndRule\r\n}; all();",
          "double x = 3;\r\nRule 1\r\nf(x);\r\nEndRule", "Rule 1\r\ngoto end;\r\nEndRule\r\nend:;",
          "for (;;) {\r\nRule 1\r\nbreak;\r\nEndRule\r\n}", "Rule 1\r\n#define X 1\r\nEndRule",
          "int n = 0, m = 1;\r\nRule 1\r\nf(m);\r\nEndRule", "Rule 1\r\n{\r\nEndRule\r\n}",
          "struct S {};\r\nRule 1\r\nEndRule", "Rule 1\r\nf(this);\r\nEndRule",
          "double A2 = 1; auto [u, v] = f();\r\nRule 1\r\nu;\r\nEndRule"}) {
        const Texts notes = Notes(rules);
        ASSERT_EQ(notes.size(), 1u) << rules;
        EXPECT_EQ(notes[0].find("plant is built whole: "), 0u) << notes[0];
    }
}

TEST(Translate, AProjectWithoutResultsEndsTheDeclarationInItsHeader) {
    const morv::Translation translation =
        morv::Translate(Source(""), "pR.cpp", "DATAFACTRESULT\r\n#endif\r\n");
    EXPECT_NE(translation.sources.front().text.find("#include \"pR.h\"\nmorv_no_result;\n"),
              std::string::npos);
}

TEST(Translate, BlockWordsInTextsCommentsAndLongerWordsMeanNothing) {
    EXPECT_EQ(
        Errors("Rule 1\r\n// If\r\n/* Then */ x = \"Else \\\" EndIf\"; y = 'E'; IfThen = 1;\r\n"
               "EndRule"),
        Texts{});
}

TEST(Translate, ACommentGoesOnBehindABackslash) {
    for (const char* end : {"\r\n", "\n"}) {
        const std::string rule = std::string("Rule 1") + end + "// C:\\plant\\" + end + "If" + end +
                                 "If (A.value() > 1) Then EndIf // \\";
        EXPECT_EQ(Errors(rule + end + end + "EndRule"), Texts{});
        EXPECT_EQ(Errors(rule + end + "EndRule"),
                  Texts{"pR.cpp:9: plant, rule 1, line 1: Rule without EndRule"});
    }
}

TEST(Translate, NamesMayHaveLettersBeyondAscii) {
    const std::string fact = "Pressi\xC3\xB3";
    std::string source = Source("\xEF\xBB\xBFRule 1\r\nIf (" + fact + ".value() > 1) Then f(" +
                                fact + "If); EndIf\r\nEndRule");
    source.replace(source.find(", A, B"), 6, ", A, " + fact);
    const morv::Translation translation = morv::Translate(source, "pR.cpp", kProjectHeader);
    EXPECT_EQ(translation.errors, Texts{});
    std::string all;
    for (const morv::Piece& piece : translation.sources)
        all += piece.text;
    EXPECT_TRUE(Has(all, "using morv_1::" + fact + "; ")) << all;
    EXPECT_TRUE(Has(all, "DATAFACT " + fact + ";\n")) << all;
    EXPECT_FALSE(Has(all, "\xEF\xBB\xBF")) << all;
}

TEST(Translate, RefusesBlocksThatDoNotFit) {
    EXPECT_EQ(Errors("Rule 1\r\nIf (a) Then EndIfOr EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: EndIfOr where EndIf is due"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a)\r\nEndIf\r\nEndRule"),
              Texts{"pR.cpp:11: plant, rule 1, line 3: If without Then"});
    EXPECT_EQ(Errors("Rule 1\r\nThen\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: Then without an If"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a) Then Else Else EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: Else without Then"});
    EXPECT_EQ(Errors("EndForAll"), Texts{"pR.cpp:9: EndForAll without its beginning"});
    EXPECT_EQ(Errors("Rule 1\r\nForAll (X)\r\n"),
              (Texts{"pR.cpp:9: plant, rule 1, line 1: Rule without EndRule",
                     "pR.cpp:10: plant, rule 1, line 2: ForAll without EndForAll"}));
}

TEST(Translate, RefusesBracketsThatDoNotFit) {
    EXPECT_EQ(Errors("Rule 1\r\nIf a Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: If without its brackets"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a, b) Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: If with 2 expressions"});
    EXPECT_EQ(Errors("Rule 1\r\nIfAny (TYPE) Then EndIfAny\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: IfAny with 1 expressions"});
    EXPECT_EQ(Errors("Rule 1\r\nIfOr (a, ) Then EndIfOr\r\nEndRule"),
              Texts{"pR.cpp:10: plant, rule 1, line 2: IfOr with an empty expression"});
    EXPECT_EQ(Errors("Rule 1\r\nIfOr (f(a, b), c[1, 2]) Then EndIfOr\r\nEndRule"), Texts{});
    EXPECT_EQ(Errors("Rule 1\r\nForAll (TYPE").front(),
              "pR.cpp:10: plant, rule 1, line 2: ForAll whose bracket is not closed");
}

TEST(Translate, ARuleHasANumber) {
    EXPECT_EQ(Errors("Rule\r\nIf (a) Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:9: Rule without its number"});
    EXPECT_EQ(Errors("Rule x1\r\nEndRule"), Texts{"pR.cpp:9: Rule without its number"});
    EXPECT_EQ(Errors("Rule 12\r\nEndRule"), Texts{});
}

TEST(Translate, AnAssignedValueIsSeenWhateverStandsBetween) {
    const auto code = [](const std::string& rules) {
        return Pieces("Rule 1\r\n" + rules + "\r\nEndRule");
    };
    for (const auto& [rules, object] :
         {std::pair{"A.assign(1, FULL);", "morv::Computed(A)."},
          {"A . assign(1, FULL);", "morv::Computed(A) . "},
          {"if (x) PF -> assign(1, FULL);", "if (x) morv::Computed(PF) -> "},
          {"PF->/* now */assign(1, FULL);", "morv::Computed(PF)->"},
          {"A.\r\n  assign(1, FULL);", "morv::Computed(A)."},
          {"if (x) (*PF).assign(1, FULL);", "if (x) morv::Computed((*PF))."},
          {"(*PF).assign(1, FULL);", "morv::Computed((*PF))."},
          {"pick(A, 1)[2].assign(1, FULL);", "morv::Computed(pick(A, 1)[2])."},
          {"s.inner->list[3].assign(1, FULL);", "morv::Computed(s.inner->list[3])."},
          {"std::string(\"x\").assign(1, 'a');", "morv::Computed(std::string(\"x\"))."}})
        EXPECT_TRUE(Has(code(rules), object)) << rules << code(rules);
    EXPECT_FALSE(Has(code("assign(1, FULL);"), "Computed"));
    EXPECT_FALSE(Has(code("f<int>(x).assign(1);"), "Computed"));
}

TEST(Translate, RefusesAResultWithTheNameOfACertainty) {
    const morv::Translation translation =
        morv::Translate(Source(""), "pR.cpp", "DATAFACTRESULT\r\n\t\t\tHIGH;\r\n#endif\r\n");
    EXPECT_EQ(translation.errors, Texts{"pR.cpp:1: the result HIGH is called like a certainty"});
}

// The pieces of a system are named after its number.
TEST(Translate, ASystemBeginsOnce) {
    const std::string rules = "Rule 1\r\nEndRule\r\nEndSystem\r\nBegin Inference_Engine_1 ZkSystem";
    EXPECT_EQ(Errors(rules), Texts{"pR.cpp:12: Inference_Engine_1 begins a second time"});
}

TEST(Translate, TakesAnyText) {
    const std::string rules = "Rule 1\r\nIf (a /* b \"c) Then 'x EndIf ForAll(((\r\nEndRule";
    const std::string whole = Source(rules);
    for (std::size_t length = 0; length <= whole.size(); ++length)
        morv::Translate(whole.substr(0, length), "pR.cpp", kProjectHeader);
    EXPECT_FALSE(morv::Translate(whole, "pR.cpp", kProjectHeader).errors.empty());
}

// Tokens in any order are never more than complaints.
TEST(Translate, TakesTokensInAnyOrder) {
    static const char* const words[] = {
        "Rule ",  "1 ",       "EndRule ", "If ",        "(",       ")",         "Then ",   "Else ",
        "EndIf ", "IfAny ",   "ForAll ",  "EndForAll ", "A",       ".assign(",  "->",      "::",
        "[",      "]",        "{",        "}",          ";",       "\"",        "'",       "//",
        "/*",     "*/",       "\r\n",     "#",          "\\",      "deduce(&",  "GOOD",    ",",
        "IfOr ",  "EndIfOr ", "Poked(",   "R\"(",       "return ", "struct x ", "double ", "="};
    unsigned seed = 1;
    for (int text = 0; text < 600; ++text) {
        std::string rules;
        for (int i = 0; i < 60; ++i) {
            seed = seed * 1664525u + 1013904223u;
            rules += words[(seed >> 16) % std::size(words)];
        }
        const std::string whole = Source(rules);
        morv::Translate(whole, "pR.cpp", kProjectHeader);
        // The same in the place of extern code.
        std::string source = Source("");
        const std::size_t at = source.find("//- Systems Implementation");
        morv::Translate(source.insert(at, "//- Extern Functions\r\n" + rules + "\r\n"), "pR.cpp",
                        kProjectHeader);
    }
}

} // namespace
