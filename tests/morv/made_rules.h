// Rules that a test writes, translated, compiled for the host with sanitizers, and run.
#pragma once

#include "morv/translate.h"
#include "tests/core/core_test.h"

#include <cstdlib>

namespace morv_test {

struct MadeSystem {
    std::string name;
    std::vector<std::string> facts; // "A", "A=ITEM CERTAINTY" for an initial value, "A:TYPE"
    std::string opposites;          // as "set_opposites(UP, DOWN);"
    std::string rules;              // with the header around them
};

struct MadeProject {
    std::vector<std::string> items, results;
    std::string externs;
    std::vector<MadeSystem> systems;
    std::string main;
};

// The program of a project. Its words: "all" makes every rule run in every tick, also those that
// need not. It reads the commands of a console program.
class MadeRules {
public:
    explicit MadeRules(const MadeProject& project) {
        Put(project);
        const std::string runtime = Runtime();
        std::string line = Compiler() + " -o program '" + runtime + "' ddecom.cpp";
        for (const morv::Piece& piece : translation.sources)
            line += " " + piece.name;
        EXPECT_EQ(Shell(line), 0) << folder_.Content("said");
    }

    std::string Run(const std::string& commands, const std::string& words = "") const {
        folder_.Put("commands", commands);
        const std::string line = "./program " + words + " <commands >said 2>&1";
        EXPECT_EQ(std::system(("cd '" + folder_.Path("") + "' && " + line).c_str()), 0)
            << folder_.Content("said");
        return folder_.Content("said");
    }

    morv::Translation translation;

private:
    static std::string Compiler() {
        return "g++ -std=c++17 -O0 -Wall -Werror -fsanitize=address,undefined "
               "-fno-sanitize-recover=all -I. -I'" SOURCE_FOLDER "/morv' "
               "-I'" SOURCE_FOLDER "/tests/morv/host'";
    }

    int Shell(const std::string& line) const {
        return std::system(("cd '" + folder_.Path("") + "' && " + line + " >said 2>&1").c_str());
    }

    // Compiled once, for all projects here have the same constants.
    std::string Runtime() const {
        static const zentrik_test::TempFolder made;
        const std::string object = made.Path("runtime.o");
        if (std::filesystem::exists(object))
            return object;
        folder_.Put("main.cpp", R"(#include "runtime_engine.cpp"
#include <cstdio>
#include <iostream>
void morv::Output(const std::string& line) { std::puts(line.c_str()); }
static void Unclean() {
    for (morv::System* system : morv::Now().systems)
        for (const morv::RuleRun& run : system->Rules())
            for (int i = 0; i < run.count; ++i)
                *run.rules[i].clean = 0;
}
int main(int count, char**) {
    const auto tick = [&](long ticks) {
        for (; ticks > 0; --ticks) {
            if (count > 1)
                Unclean();
            morv::RunTick();
        }
    };
    for (std::string line; std::getline(std::cin, line);)
        morv::DoCommand(line, {tick, [](bool) {}});
}
)");
        EXPECT_EQ(Shell(Compiler() + " -c -o '" + object + "' main.cpp"), 0)
            << folder_.Content("said");
        return object;
    }

    static std::string List(const std::vector<std::string>& names, const std::string& quote) {
        std::string list;
        for (const std::string& name : names)
            list += (list.empty() ? "" : ",\n") + quote + name + quote;
        return list;
    }

    // All projects have as many items, for the runtime knows their number.
    static std::vector<std::string> Items(const MadeProject& project) {
        std::vector<std::string> items = project.items;
        while (items.size() < 16)
            items.push_back("Spare" + std::to_string(items.size()));
        return items;
    }

    void Put(const MadeProject& project) {
        const std::vector<std::string> items = Items(project);
        std::filesystem::copy(SOURCE_FOLDER "/tests/morv/blocks/consts.h", folder_.Path(""));
        std::string fields, cases;
        for (std::size_t i = 0; i < items.size(); ++i) {
            fields += "double " + items[i] + ";\n";
            cases += "case " + std::to_string(i) + ": DDEinfo." + items[i] +
                     " = std::atof(text); break;\n";
        }
        folder_.Put("ddecom.h", "#pragma once\n#define numItems " + std::to_string(items.size()) +
                                    "\nstruct Informacio {\n" + fields +
                                    "};\nextern Informacio DDEinfo;\nextern char *Items[];\n"
                                    "extern char hora[20];\nextern int ActivatSB;\n"
                                    "void NewData(int item, char text[]);\nnamespace morv {\n"
                                    "enum class ItemKind {Text, Int, Long, Real};\n"
                                    "extern ItemKind item_kind;\n}\n");
        folder_.Put("ddecom.cpp",
                    "#include \"ddecom.h\"\n#include <cstdlib>\n"
                    "#pragma GCC diagnostic ignored \"-Wwrite-strings\"\nInformacio DDEinfo;\n"
                    "char *Items[] = {" +
                        List(items, "\"") +
                        "};\nchar hora[20];\nint ActivatSB;\n"
                        "morv::ItemKind morv::item_kind = morv::ItemKind::Real;\n"
                        "void NewData(int item, char text[]) {\nmorv::item_kind = "
                        "morv::ItemKind::Real;\nswitch (item) {\n" +
                        cases + "}\n}\n");
        const std::string header = Header(project);
        folder_.Put("pR.h", header);
        translation = morv::Translate(Source(project), "pR.cpp", header);
        EXPECT_EQ(translation.errors, std::vector<std::string>{});
        for (const auto* pieces : {&translation.headers, &translation.sources})
            for (const morv::Piece& piece : *pieces)
                folder_.Put(piece.name, piece.text);
    }

    static std::string Header(const MadeProject& project) {
        std::string text =
            "#ifndef TAD_RULES\n#define TAD_RULES\n#include <dos.h>\n#include \"consts.h\"\n"
            "#include \"shell.h\"\n#include \"datafact.h\"\n#include \"dfactres.h\"\n"
            "#include \"inf_eng.h\"\nclass DATAFACT;\nclass INFERENCE_ENGINE;\n";
        for (std::size_t i = 1; i <= project.systems.size(); ++i) {
            const std::string name = "Inference_Engine_" + std::to_string(i);
            text += "class " + name + ":public INFERENCE_ENGINE{\npublic:\n" + name +
                    " () {sprintf (description, \"INF\");};\nint engine();\n};\n";
        }
        return text + "DATAFACTRESULT\n" + List(project.results, "") + ";\n#endif\n";
    }

    static std::string Source(const MadeProject& project) {
        std::string text = "#include \"pR.h\"\n#include \"ddecom.h\"\n\n#define si 1\n#define no "
                           "0\n\nextern void put_box(char *);\n\n//- System Declaration\n";
        for (std::size_t i = 0; i < project.systems.size(); ++i)
            text +=
                "Inference_Engine_" + std::to_string(i + 1) + " " + project.systems[i].name + ";\n";
        text += "\n//- Extern Functions\n" + project.externs + "\n//- Systems Implementation\n";
        for (std::size_t i = 0; i < project.systems.size(); ++i)
            text += "Begin Inference_Engine_" + std::to_string(i + 1) + " ZkSystem\n" +
                    SystemText(project.systems[i]) + "\nEndSystem\n";
        return text + "void MORVmain()\n{\n" + project.main + "\n}\n";
    }

    // The settings of a fact are limits from 0 to 100 and levels between.
    static std::string SystemText(const MadeSystem& system) {
        std::string names, settings, initial;
        int number = 0;
        for (const std::string& fact : system.facts) {
            const std::string name = fact.substr(0, fact.find_first_of("=:"));
            const std::size_t value = fact.find('='), type = fact.find(':'), end = fact.find(' ');
            names += ", " + name;
            settings +=
                "//- Datafact\n\t" + name + ".name = " + std::to_string(++number) + ";\n\t" + name +
                ".type = " +
                (type == fact.npos
                     ? "DETECTION"
                     : fact.substr(type + 1, value == fact.npos ? value : value - type - 1)) +
                ";\n\tsprintf (" + name + ".description, \"\");\n\tsprintf (" + name +
                ".fact_value.units, \"bar\");\n";
            const char* const limits[] = {"inf_limit", "sup_limit", "step_v", "lowest",
                                          "low",       "normal",    "high",   "highest"};
            const char* const values[] = {"0", "100", "1", "10", "25", "50", "75", "90"};
            for (std::size_t i = 0; i < std::size(limits); ++i)
                settings += "\t" + name + ".fact_value." + limits[i] + " = " + values[i] + ";\n";
            settings += "\n";
            if (value != fact.npos)
                initial += name + ".assign((double)DDEinfo." +
                           fact.substr(value + 1, end - value - 1) + "," + fact.substr(end + 1) +
                           ");\ndeduce(&" + name + ");\n\n";
        }
        return "\n\n\t//- Facts declaration\n\tstatic DATAFACT *PF" + names + ";\n\n\n\n" +
               (system.opposites.empty() ? "" : "\t" + system.opposites + "\n") + "\n" + settings +
               "\n// - System Local Vars\n\n//- Deduce Facts Values\n" + initial + "\n" +
               system.rules;
    }

    zentrik_test::TempFolder folder_;
};

// One program of made rules, which `kProject` gives, for all tests of a suite.
template <auto kProject> class MadeRulesTest : public testing::Test {
protected:
    static void SetUpTestSuite() { rules_ = new MadeRules(kProject()); }
    static void TearDownTestSuite() {
        delete rules_;
        rules_ = nullptr;
    }

    static std::string Run(const std::string& commands) { return rules_->Run(commands); }

    static void ExpectSays(const std::string& said, const std::string& text) {
        EXPECT_NE(said.find(text), std::string::npos) << text << "\nis not in\n" << said;
    }
    static void ExpectSaysNot(const std::string& said, const std::string& text) {
        EXPECT_EQ(said.find(text), std::string::npos) << text << "\nis in\n" << said;
    }

    static inline MadeRules* rules_ = nullptr;
};

} // namespace morv_test
