// The translation of rules: what stays, what is refused and where it says so.
#include "morv/translate.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr char kHeader[] =
    "#include <dos.h>\r\nDATAFACTRESULT\r\n\t\t\tGOOD,\r\n\t\t\tBAD;\r\n#endif\r\n";

// A generated source with these rules; the rules start in line 9.
std::string Source(const std::string& rules) {
    return "//\r\n#include \"pR.h\"\r\n//- System Declaration\r\nInference_Engine_1 plant;\r\n"
           "//- Systems Implementation\r\nBegin Inference_Engine_1 ZkSystem\r\n\r\n"
           "\tstatic DATAFACT *PF, A, B;\r\n" +
           rules + "\r\nEndSystem\r\nvoid MORVmain()\r\n{\r\nplant.engine();\r\n}\r\n";
}

std::vector<std::string> Errors(const std::string& rules) {
    return morv::Translate(Source(rules), "pR.cpp", kHeader).errors;
}

std::string Text(const std::string& source) {
    return morv::Translate(source, "pR.cpp", kHeader).sources.front().text;
}

using Texts = std::vector<std::string>;

TEST(Translate, LeavesEverythingOutsideTheSystemsAsItIs) {
    const std::string text = Text(Source("Rule 1\r\nEndRule"));
    EXPECT_EQ(text.find("#line 1 \"pR.cpp\"\n//\n#include \"pR.h\"\n"), 0u) << text;
    EXPECT_NE(text.find("morv_results({{&GOOD, \"GOOD\"}, {&BAD, \"BAD\"}});\n#line 3"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("static DATAFACT *PF, A, B; PF = morv::NoFact(); Facts({{&A, \"A\"}, {&B, "
                        "\"B\"}});"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\nvoid MORVmain()\n{\nplant.engine();\n}\n"), std::string::npos) << text;
}

TEST(Translate, KeepsEveryRuleOnItsLine) {
    const std::string rules =
        "Rule 1\r\n  IfOr (a, // one\r\n    b)\r\n  Then\r\n    x;\r\n  EndIfOr\r\n"
        "EndRule\r\nint marked;";
    const std::string text = Text(Source(rules));
    const std::size_t from = text.find("#line 6 \"pR.cpp\"\n"); // of the Begin line
    ASSERT_NE(from, std::string::npos) << text;
    const std::size_t to = text.find("int marked;");
    ASSERT_NE(to, std::string::npos) << text;
    // The mark is in line 16, 10 lines after Begin.
    EXPECT_EQ(std::count(text.begin() + static_cast<std::ptrdiff_t>(from),
                         text.begin() + static_cast<std::ptrdiff_t>(to), '\n'),
              11);
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

TEST(Translate, RefusesBlocksThatDoNotFit) {
    EXPECT_EQ(Errors("Rule 1\r\nIf (a) Then EndIfOr EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: EndIfOr where EndIf is due"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a)\r\nEndIf\r\nEndRule"), Texts{"pR.cpp:11: If without Then"});
    EXPECT_EQ(Errors("Rule 1\r\nThen\r\nEndRule"), Texts{"pR.cpp:10: Then without an If"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a) Then Else Else EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: Else without Then"});
    EXPECT_EQ(Errors("EndForAll"), Texts{"pR.cpp:9: EndForAll without its beginning"});
    EXPECT_EQ(Errors("Rule 1\r\nForAll (X)\r\n"),
              (Texts{"pR.cpp:9: Rule without EndRule", "pR.cpp:10: ForAll without EndForAll"}));
}

TEST(Translate, RefusesBracketsThatDoNotFit) {
    EXPECT_EQ(Errors("Rule 1\r\nIf a Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: If without its brackets"});
    EXPECT_EQ(Errors("Rule 1\r\nIf (a, b) Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:10: If with 2 expressions"});
    EXPECT_EQ(Errors("Rule 1\r\nIfAny (TYPE) Then EndIfAny\r\nEndRule"),
              Texts{"pR.cpp:10: IfAny with 1 expressions"});
    EXPECT_EQ(Errors("Rule 1\r\nIfOr (a, ) Then EndIfOr\r\nEndRule"),
              Texts{"pR.cpp:10: IfOr with an empty expression"});
    EXPECT_EQ(Errors("Rule 1\r\nIfOr (f(a, b), c[1, 2]) Then EndIfOr\r\nEndRule"), Texts{});
    EXPECT_EQ(Errors("Rule 1\r\nForAll (TYPE").front(),
              "pR.cpp:10: ForAll whose bracket is not closed");
}

TEST(Translate, ARuleHasANumber) {
    EXPECT_EQ(Errors("Rule\r\nIf (a) Then EndIf\r\nEndRule"),
              Texts{"pR.cpp:9: Rule without its number"});
    EXPECT_EQ(Errors("Rule x1\r\nEndRule"), Texts{"pR.cpp:9: Rule without its number"});
    EXPECT_EQ(Errors("Rule 12\r\nEndRule"), Texts{});
}

TEST(Translate, AnAssignedValueIsSeenWhateverStandsBetween) {
    const auto code = [](const std::string& rules) {
        return Text(Source("Rule 1\r\n" + rules + "\r\nEndRule"));
    };
    for (const char* rules :
         {"A.assign(1, FULL);", "A . assign(1, FULL);", "PF -> assign(1, FULL);",
          "PF->/* now */assign(1, FULL);", "A.\r\n  assign(1, FULL);"})
        EXPECT_NE(code(rules).find("computed().assign(1, FULL);"), std::string::npos) << rules;
    EXPECT_EQ(code("assign(1, FULL);").find("computed()"), std::string::npos);
}

TEST(Translate, RefusesAResultWithTheNameOfACertainty) {
    const morv::Translation translation =
        morv::Translate(Source(""), "pR.cpp", "DATAFACTRESULT\r\n\t\t\tHIGH;\r\n#endif\r\n");
    EXPECT_EQ(translation.errors, Texts{"pR.cpp:1: the result HIGH is called like a certainty"});
}

TEST(Translate, TakesAnyText) {
    const std::string rules = "Rule 1\r\nIf (a /* b \"c) Then 'x EndIf ForAll(((\r\nEndRule";
    const std::string whole = Source(rules);
    for (std::size_t length = 0; length <= whole.size(); ++length)
        morv::Translate(whole.substr(0, length), "pR.cpp", kHeader);
    EXPECT_FALSE(morv::Translate(whole, "pR.cpp", kHeader).errors.empty());
}

} // namespace
