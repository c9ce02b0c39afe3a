// Names are checked before a compiler sees them, and sound projects raise no alarm.
#include "language/names.h"

#include "language/rule_places.h"
#include "tests/core/core_test.h"

namespace {

using morv::Name;
using morv::NameFault;
using morv::ProjectNames;
using morv::SystemNames;
using Texts = std::vector<std::string>;

std::vector<Name> Names(const Texts& texts) {
    std::vector<Name> names;
    for (const std::string& text : texts)
        names.push_back({text, "p:1"});
    return names;
}

SystemNames System(const std::string& name, const Texts& facts, const Texts& variables,
                   const std::string& text) {
    return {{name, "p:1"}, Names(facts), Names(variables), text, "p", 1};
}

Texts Told(const ProjectNames& project) {
    Texts told;
    for (const NameFault& fault : CheckNames(project))
        told.push_back((fault.where.empty() ? "" : fault.where + ": ") + fault.text);
    return told;
}

// What is told of a system with the facts A and B, the result R, and these rules.
Texts OfRules(const std::string& text, const std::string& others = "") {
    ProjectNames project;
    project.results = Names({"R"});
    project.systems = {System("steam", {"A", "B"}, {"count"}, text),
                       System("well", {"WellLevel"}, {}, "")};
    project.others = others;
    return Told(project);
}

TEST(Names, ThatAreNoneInCppAreTold) {
    ProjectNames project;
    project.results = Names({"GOOD", "no good", "operator"});
    project.items = Names({"Level", "2nd", "text[20]", "union"});
    project.systems = {
        System("steam", {"A", "A-B", "class", "Then", "si"},
               {"*next", "table[10]", "my count", "goto", "PF", "\xf3n", "\xc3\xb3n"}, ""),
        System("my well", {}, {}, "")};
    EXPECT_EQ(Told(project), (Texts{
                                 "the result \"no good\" is no name in C++",
                                 "the result operator is a keyword of C++",
                                 "the system \"my well\" is no name in C++",
                                 "the item \"2nd\" is no name in C++",
                                 "the item union is a keyword of C++",
                                 "steam: the fact \"A-B\" is no name in C++",
                                 "steam: the fact class is a keyword of C++",
                                 "steam: the fact Then is a word of the rule language",
                                 "steam: the fact si is a word of the rule language",
                                 "steam: the variable \"my count\" is no name in C++",
                                 "steam: the variable goto is a keyword of C++",
                                 "steam: the variable PF is a word of the rule language",
                                 "steam: the variable \"\xf3n\" is no name in C++",
                             }));
}

TEST(Names, ThatAreThereTwiceAreTold) {
    ProjectNames project;
    project.results = Names({"GOOD", "GOOD", "steam", "A"});
    project.items = Names({"Level", "Level", "A"});
    project.systems = {System("steam", {"A", "B", "A"}, {"B", "c", "c[2]"}, ""),
                       System("well", {"A"}, {"B", "GOOD", "well"}, ""),
                       System("well", {}, {}, "")};
    EXPECT_EQ(Told(project), (Texts{
                                 "the result GOOD is there twice",
                                 "the system steam is called like a result",
                                 "the system well is there twice",
                                 "the item Level is there twice",
                                 "steam: the fact A is there twice",
                                 "steam: the variable B is called like a fact",
                                 "steam: the variable c is there twice",
                             }));
}

TEST(Names, AResultIsNotCalledLikeACertainty) {
    ProjectNames project;
    project.results = Names({"HIGH", "NULL", "HIGHER"});
    EXPECT_EQ(Told(project), (Texts{"the result HIGH is called like a certainty",
                                    "the result NULL is called like a certainty"}));
}

TEST(Names, UndeclaredFactsAndResultsAreTold) {
    const std::string text = " is not declared: no fact of steam, no result";
    EXPECT_EQ(OfRules("If (A.value() > C.value())\nThen D . assign(1, FULL);"),
              (Texts{"C" + text, "D" + text}));
    EXPECT_EQ(OfRules("deduce(&S, FULL); retract(& T); deduce(&U);"),
              (Texts{"S" + text, "T" + text, "U" + text}));
    EXPECT_EQ(OfRules("set_opposites(R, S); set_opposites(T, R);"),
              (Texts{"S" + text, "T" + text}));
    EXPECT_EQ(OfRules("C.fact_value.low = 3; x = C.level();"), (Texts{"C" + text}));
    EXPECT_EQ(OfRules("Rule 1\nC.known();\nEndRule\nRule 2\nC.known();C.known();EndRule").size(),
              2u);
    EXPECT_EQ(OfRules("If (WellLevel.holds(1))"),
              (Texts{"WellLevel is a fact of well; facts are private to their system"}));
}

TEST(Names, ThatMayBeDeclaredSomewhereAreNotTold) {
    for (const char* text : {
             "A.value() + B.value(); deduce(&R); deduce(&A); PF->assign(1, FULL); PF.value();",
             "// C.value()\n/* C.value() */ \"C.value()\"",
             "double C; C.value();",
             "DATAFACT *C = &A, &D = B; C.value(); D.value();",
             "auto [C, D] = pair(); C.value(); D.value();",
             "std::vector<DATAFACT> C; C.value();",
             "for (DATAFACT& C : all) C.value();",
             "struct { int value; } C, D; C.value = D.value;",
             "#define C A\nC.value();",
             "#define all \\\n  C D\nC.value();",
             "enum {C, D}; C.value();",
             "plant.C.value(); plant->C.value(); plant::C.value(); C.other();",
             "f().value(); table[1].value(); 3.value();",
             "deduce(C, FULL); deduce(&C[1], FULL); deduce(&C.x);",
             "WellLevel();",
             "",
         })
        EXPECT_EQ(OfRules(text), Texts{}) << text;
    EXPECT_EQ(OfRules("C.value();", "extern DATAFACT C;"), Texts{});
    EXPECT_EQ(OfRules("C.value();", "#define MAKE(a) DATAFACT a##1"), Texts{});
    ProjectNames project;
    project.systems = {System("steam", {}, {}, "C.value();")};
    EXPECT_EQ(Told(project).size(), 1u);
    project.others_are_all = false;
    EXPECT_EQ(Told(project), Texts{});
}

std::string Generated(const std::string& rest) {
    return "//\r\n#include \"pR.h\"\r\n//- System Declaration\r\nInference_Engine_1 steam;\r\n"
           "Inference_Engine_2 the well;\r\n\r\n//- Extern Functions\r\nint own();\r\n"
           "Begin Inference_Engine_1 ZkSystem\r\n\r\n\r\n\t//- Facts declaration\r\n"
           "\tstatic DATAFACT *PF, A, B two;\r\n\t//- Local Var Declaration\r\n\tlong count;\r\n"
           "\t//- Local Var Declaration\r\n\tunsigned int a b;\r\n\r\n// - System Local Vars\r\n"
           "count=0;\r\na b=1;\r\n\r\n" +
           rest +
           "EndSystem\r\nBegin Inference_Engine_2 ZkSystem\r\n\tstatic DATAFACT "
           "*PF;\r\nEndSystem\r\n"
           "/////////////////////////////////////////////\r\n"
           "//////////      MORV  Main       ////////////\r\n"
           "/////////////////////////////////////////////\r\nvoid "
           "MORVmain()\r\n{\r\nsteam.engine();\r\n}";
}

TEST(Names, AreReadFromTheGeneratedFiles) {
    const ProjectNames project =
        morv::ReadNames(Generated("Rule 1\r\nEndRule\r\n"), "pR.cpp",
                        "DATAFACTRESULT\r\n\t\t\tGOOD,\r\n\t\t\tno good;\r\n#endif", "pR.h",
                        "char *Items[]={\r\n\"Level\",\r\n\"the rate\"\r\n};\r\n", "int inside;");
    const auto told = [](const std::vector<Name>& names) {
        std::string text;
        for (const Name& name : names)
            text += name.text + "@" + name.place + " ";
        return text;
    };
    ASSERT_EQ(project.systems.size(), 2u);
    EXPECT_EQ(told(project.results), "GOOD@pR.h:2 no good@pR.h:3 ");
    EXPECT_EQ(told(project.items), "Level@ddecom.cpp:2 the rate@ddecom.cpp:3 ");
    EXPECT_EQ(told(project.systems[0].facts), "A@pR.cpp:13 B two@pR.cpp:13 ");
    EXPECT_EQ(told(project.systems[0].variables), "count@pR.cpp:20 a b@pR.cpp:21 ");
    EXPECT_EQ(told({project.systems[0].name, project.systems[1].name}),
              "steam@pR.cpp:4 the well@pR.cpp:5 ");
    EXPECT_EQ(project.systems[0].first_line, 18);
    EXPECT_NE(project.systems[0].text.find("\nRule 1\n"), std::string::npos);
    for (const char* word : {"int own();", "int inside;", "steam.engine();"})
        EXPECT_NE(project.others.find(word), std::string::npos) << word;
}

TEST(Names, OfDamagedFilesAreReadWithoutHarm) {
    const std::string source = Generated("Rule 1\r\nEndRule\r\n");
    for (std::size_t length = 0; length <= source.size(); ++length) {
        const std::string text = source.substr(0, length);
        CheckNames(morv::ReadNames(text, "pR.cpp", text, "pR.h", text, text));
        morv::RulePlaces(text).At(20);
    }
}

TEST(RulePlaces, AreSystemRuleAndLineInTheRule) {
    const morv::RulePlaces places(
        Generated("// Rule 7 is not here\r\nRule 1\r\n\r\nIf\r\nEndRule\r\nint x;\r\nRule 12 // "
                  "EndRule\r\nEndRule\r\n"));
    const auto first = 23; // the line of the comment
    const std::vector<std::pair<int, const char*>> expected = {
        {0, ""},
        {1, ""},
        {8, ""},
        {9, "steam"},
        {20, "steam"},
        {first, "steam"},
        {first + 1, "steam, rule 1, line 1"},
        {first + 3, "steam, rule 1, line 3"},
        {first + 4, "steam, rule 1, line 4"},
        {first + 5, "steam"},
        {first + 6, "steam, rule 12, line 1"},
        {first + 7, "steam, rule 12, line 2"},
        {first + 9, "the well"},
        {first + 10, "the well"},
        {first + 12, ""},
        {first + 17, "main, line 1"}};
    for (const auto& [line, place] : expected)
        EXPECT_EQ(places.At(line), place) << line;
}

} // namespace
