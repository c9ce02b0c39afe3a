// How a translation is cut into sources: what one change leaves as it was.
#include "morv/translate.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

constexpr char kHeader[] = "#include <dos.h>\nDATAFACTRESULT\n\t\t\tGOOD,\n\t\t\tBAD;\n#endif\n";

// A system with facts A1, A2 and so on that have settings and initial values.
std::string Source(int facts, const std::string& value, const std::string& rules,
                   const std::string& code = "") {
    std::string text = "#include \"pR.h\"\n//- System Declaration\nInference_Engine_1 plant;\n\n"
                       "//- Extern Functions\n" +
                       code +
                       "//- Systems Implementation\nBegin Inference_Engine_1 ZkSystem\n"
                       "\t//- Facts declaration\n\tstatic DATAFACT *PF";
    std::string settings, initial;
    for (int i = 1; i <= facts; ++i) {
        const std::string name = "A" + std::to_string(i);
        text += ", " + name;
        settings += "\n//- Datafact\n";
        for (const char* field : {".name = 1", ".type = NOTYPE"})
            settings += "\t" + name + field + ";\n";
        settings += "\tsprintf (" + name + ".description, \"\");\n";
        settings += "\tsprintf (" + name + ".fact_value.units, \"\");\n";
        for (const char* field :
             {"inf_limit", "sup_limit", "step_v", "lowest", "low", "normal", "high", "highest"})
            settings += "\t" + name + ".fact_value." + field + " = 0;\n";
        initial += name + ".assign((double)" + value + ",FULL);\ndeduce(&" + name + ");\n\n";
    }
    return text + ";\n\n" + settings + "\n//- Deduce Facts Values\n" + initial + rules +
           "EndSystem\nvoid MORVmain()\n{\nplant.engine();\n}\n";
}

morv::Translation Translated(const std::string& source) {
    return morv::Translate(source, "pR.cpp", kHeader);
}

std::string TextOf(const morv::Translation& translation, const std::string& name) {
    for (const morv::Piece& piece : translation.sources)
        if (piece.name == name)
            return piece.text;
    return "";
}

std::size_t Count(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

std::string Rules(int count, int changed) {
    std::string rules;
    for (int i = 1; i <= count; ++i)
        rules += "Rule " + std::to_string(i) + "\nIf (A1.value() > " + std::to_string(i) +
                 (i == changed ? ".5" : "") + ")\nThen\n    deduce(&GOOD);\nEndIf\nEndRule\n";
    return rules;
}

TEST(Sources, OneChangedRuleChangesItsSourceAlone) {
    std::set<std::string> before;
    for (const morv::Piece& piece : Translated(Source(1, "0", Rules(1000, 0))).sources)
        before.insert(piece.name + piece.text);
    EXPECT_GE(before.size(), 5u);
    int alone = 0;
    for (int changed = 100; changed < 1000; changed += 45) {
        std::size_t others = 0;
        for (const morv::Piece& piece : Translated(Source(1, "0", Rules(1000, changed))).sources)
            others += before.count(piece.name + piece.text) == 0;
        // A rule that begins a source or ends one now touches those beside it, and the first.
        EXPECT_GE(others, 1u) << changed;
        EXPECT_LE(others, 4u) << changed;
        alone += others == 1;
    }
    EXPECT_GE(alone, 18);
}

TEST(Sources, ManyInitialValuesHaveASourceOfTheirOwn) {
    const morv::Translation few = Translated(Source(20, "DDEinfo.Item", Rules(1, 0)));
    EXPECT_EQ(TextOf(few, "initial1.cpp"), "");
    EXPECT_EQ(Count(TextOf(few, "rules.cpp"), "morv::TakeUp("), 20u);

    const std::string source = Source(300, "DDEinfo.Item", Rules(1, 0));
    const morv::Translation many = Translated(source);
    const std::string initial = TextOf(many, "initial1.cpp");
    EXPECT_EQ(Count(initial, "morv::TakeUp("), 300u);
    EXPECT_EQ(Count(TextOf(many, "rules.cpp"), "morv::TakeUp("), 0u);
    EXPECT_EQ(Count(TextOf(many, "rules.cpp"), "morv_initial();"), 2u); // declared and called

    // A line of it is a line of the source.
    const auto place =
        std::find_if(many.places.begin(), many.places.end(),
                     [](const morv::Place& each) { return each.label == "plant.initial"; });
    ASSERT_NE(place, many.places.end());
    const std::string marked = "#line 1 \"plant.initial\"\n";
    const std::size_t from = initial.find(marked) + marked.size(), last = initial.find("A300, ");
    ASSERT_NE(last, std::string::npos);
    const auto lines = [](const std::string& text, std::size_t begin, std::size_t end) {
        return std::count(text.begin() + static_cast<std::ptrdiff_t>(begin),
                          text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    };
    EXPECT_EQ(place->line + lines(initial, from, last),
              1 + lines(source, 0, source.find("A300.assign(")));
}

// `text` with `more` in front of `where`.
std::string With(std::string text, const std::string& where, const std::string& more) {
    return text.insert(text.find(where), more);
}

TEST(Sources, InitialValuesAreTakenUpWhateverTheVariables) {
    const std::string facts = "//- Datafact\n", initial = "//- Deduce Facts Values\n";
    const std::string heading = "\t//- Local Var Declaration\n";
    const std::string values = "// - System Local Vars\n", rule = "Rule 1\nf(s);\nEndRule\n";
    const std::string none = Source(3, "0", rule);
    // An empty file of variables leaves the heading of their values.
    const std::string empty = With(none, initial, values + "\n");
    const std::string plain =
        With(With(none, facts, heading + "\tunsigned int s;\n\n"), initial, values + "s=0;\n\n");
    const std::string own =
        With(With(none, facts, heading + "\tlong n;\n" + heading + "\tstd::vector<Pair> s;\n\n"),
             initial, values + "n=3;\ns=Pairs(1, 2);\n\n");
    for (const std::string& source : {none, empty, plain, own}) {
        const morv::Translation translation = Translated(source);
        EXPECT_EQ(Count(TextOf(translation, "rules.cpp"), "morv::TakeUp("), 3u) << source;
        EXPECT_EQ(translation.notes.size(), source == own ? 1u : 0u) << source;
    }
    const morv::Translation whole = Translated(own);
    EXPECT_EQ(whole.notes[0], "plant is built whole: a variable has the type std::vector<Pair>");
    EXPECT_EQ(Count(TextOf(whole, "rules.cpp"), "long n; std::vector<Pair> s; "), 1u);
    EXPECT_EQ(Count(TextOf(whole, "rules.cpp"), "\ns=Pairs(1, 2);"), 1u);
}

TEST(Sources, DescriptionsAndUnitsAreTextsAsTheyWereTyped) {
    const auto described = [](const std::string& description) {
        std::string source = Source(1, "0", Rules(1, 0));
        const std::string empty = "A1.description, \"\"";
        source.replace(source.find(empty), empty.size(), "A1.description, \"" + description + "\"");
        return TextOf(Translated(source), "facts1.cpp");
    };
    for (const auto& [typed, written] :
         {std::pair{R"(5" pipe)", R"("5\" pipe")"},
          {R"(C:\)", R"("C:\\")"},
          {R"(C:\users, "x"; {)", R"("C:\\users, \"x\"; {")"},
          {R"(C:\xyz)", R"("C:\\xyz")"},
          {R"(a \ b)", R"("a \\ b")"},
          // What C++ takes means what it did.
          {R"(5\" pipe\n\x41\u00e9\\)", R"("5\" pipe\n\x41\u00e9\\")"},
          {R"(5"" pipe)", R"("5"" pipe")"},
          {"50 %", "\"50 %\""},
          {"// no /* comment", "\"// no /* comment\""}})
        EXPECT_EQ(Count(described(typed), std::string("NOTYPE,\n") + written + ",\n\"\",\n"), 1u)
            << typed << "\n"
            << described(typed);
}

TEST(Sources, InitialValuesStayWhereTheyMeanSomethingElseElsewhere) {
    for (const auto& [value, code] :
         {std::pair{"start", "static struct { double x; } hidden;\n#define start hidden.x\n"},
          {"sizeof(this)", ""},
          {"sizeof(description)", ""}}) {
        const morv::Translation translation = Translated(Source(300, value, Rules(1, 0), code));
        EXPECT_EQ(TextOf(translation, "initial1.cpp"), "") << value;
        EXPECT_EQ(Count(TextOf(translation, "rules.cpp"), "morv::TakeUp("), 300u) << value;
    }
    // In a system that is built whole they are part of it.
    const morv::Translation whole =
        Translated(Source(300, "0", "int n = 0;\nRule 1\nf(n);\nEndRule\n"));
    EXPECT_EQ(TextOf(whole, "initial1.cpp"), "");
    // Macros that the system defines come behind them.
    const morv::Translation defines =
        Translated(Source(300, "0", "#define LATER 1\nRule 1\nf(LATER);\nEndRule\n"));
    EXPECT_EQ(Count(TextOf(defines, "initial1.cpp"), "morv::TakeUp("), 300u);
    EXPECT_EQ(Count(TextOf(defines, "initial1.cpp"), "LATER"), 0u);
    // Results that they ask are declared beside them.
    const morv::Translation asks = Translated(Source(300, "GOOD.certainty()", Rules(1, 0)));
    EXPECT_EQ(Count(TextOf(asks, "initial1.cpp"), "extern DATAFACTRESULT GOOD;"), 1u);
}

} // namespace
