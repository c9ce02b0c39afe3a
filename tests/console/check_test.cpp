#include "../core/check_log.h"
#include "console_test.h"

#include "project/core/project_file.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "system/core/rule_text.h"
#include "system/core/system_file.h"

#include <nlohmann/json.hpp>
#include <set>

namespace {

using zentrik_test::CheckLog;
using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;
using zentrik_test::WithoutRights;
using Json = nlohmann::json;

// A project C:\p\p.mrv with one system, whose rules each test gives.
class CheckCommand : public Console {
protected:
    void SetUp() override {
        SetText(project_.head.EngineNames[1], "C:\\p\\s.lse");
        SetText(project_.head.ResAux, "C:\\p\\p.aux");
        project_.head.EngNum = 1;
        SetText(system_.head.RuleName, "C:\\p\\s.rul");
        SetText(system_.head.RuleSizeName, "C:\\p\\s.siz");
        Put("p/p.aux", "");
    }

    void Fact(const std::string& name, const std::string& type = "DETECTION") {
        Dat& fact = system_.facts.emplace_back();
        fact = {};
        SetText(fact.Name, name);
        SetText(fact.KnowType, type);
        system_.head.DatNum += 1;
    }

    void Results(const std::vector<std::string>& names) {
        std::vector<TagRecord> records(names.size());
        for (std::size_t i = 0; i < names.size(); ++i)
            SetText(records[i].name, names[i]);
        Put("p/p.aux", BytesOf(records));
    }

    void Opposite(const std::string& entry) {
        SetText(system_.opposites.emplace_back().name, entry);
        system_.head.OppNum += 1;
    }

    void Variable(const std::string& name) {
        SetText(system_.head.VarName, "C:\\p\\s.var");
        V_V variable{};
        SetText(variable.Name, name);
        Put("p/s.var", Content("p/s.var") + std::string(BytesOf(variable)));
    }

    // Rules with the index that the rule editor gives them.
    void Rules(const std::string& text) { Rules(text, IndexBytes(Renumber(text).sizes)); }

    void Rules(const std::string& text, const std::string& index) {
        Put("p/s.rul", text);
        Put("p/s.siz", index);
        Put("p/s.lse", SystemBytes(system_));
        ASSERT_TRUE(WriteProject("C:\\p\\p.mrv", project_));
    }

    Ran Check(const std::vector<std::string>& more = {}) {
        std::vector<std::string> words = {"check", Host("p/p.mrv")};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }

    // The lines of a check, without the folder of the files.
    std::vector<std::string> Findings() {
        std::vector<std::string> lines;
        std::istringstream out(Check().out);
        for (std::string line; std::getline(out, line);) {
            EXPECT_TRUE(line.starts_with(Host("p") + "/")) << line;
            lines.push_back(line.substr(Host("p").size() + 1));
        }
        return lines;
    }

    ProjectFile project_;
    SystemFile system_;
};

using Lines = std::vector<std::string>;

TEST_F(CheckCommand, SoundRulesHaveNoFindings) {
    Rules("Rule 1\r\nEndRule\r\n");
    const Ran ran = Check();
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "");
}

TEST_F(CheckCommand, NamesTheLineOfTheFaultyWordAndOfTheRuleThatDoesNotBalance) {
    Rules("Rule 1\r\n  If (a())\r\n  EndIf\r\nEndRule\r\nRule 2\r\n Then\r\n ForAll "
          "(ACTION)\r\nEndRule\r\n");
    EXPECT_EQ(Check().code, 1);
    EXPECT_EQ(Findings(),
              (Lines{"s.rul:3:3: rule 1: There are If whithout Then [if-no-then]",
                     "s.rul:4:1: rule 1: There is a If or a For without End [block-open]",
                     "s.rul:6:2: rule 2: There are Then whithout any kind of If [then-no-if]",
                     "s.rul:8:1: rule 2: There is a If or a For without End [block-open]",
                     "s.rul:5:1: rule 2: There are ForAll without EndForAll [forall-open]"}));
}

TEST_F(CheckCommand, NamesOppositesThatAreNoResults) {
    Results({"HIGH_LEVEL"});
    Opposite("HIGH_LEVEL\tLOW_LEVEL");
    Rules("Rule 1\r\n deduce(&HIGH_LEVEL, FULL);\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              Lines{"s.lse: Opposite Result not defined - LOW_LEVEL [opposite-undefined]"});
}

TEST_F(CheckCommand, WarnsOfFilesThatAreNotThere) {
    SetText(project_.head.MainName, "C:\\p\\main.cpp");
    SetText(system_.head.KnowName, "D:\\s.fac");
    Rules("Rule 1\r\nEndRule\r\n");
    EXPECT_EQ(Findings(), (Lines{"p.mrv: warning: no such file: C:\\p\\main.cpp [missing-file]",
                                 "s.lse: warning: no such file: D:\\s.fac [missing-file]"}));
}

TEST_F(CheckCommand, WarnsOfNumbersAndAnIndexThatDoNotFit) {
    Rules("Rule 1\r\nEndRule\r\nRule 7\r\nEndRule\r\n");
    EXPECT_EQ(Findings(), Lines{"s.rul:3:1: warning: rule 2: the rule has the number \"7\", not "
                                "that of its place [rule-number]"});
    Rules("Rule 1\r\nEndRule\r\nRule 2\r\nEndRule\r\n", IndexBytes({10, 10}));
    const Lines findings = Findings();
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings.back(), "s.siz: warning: the index does not fit the rules: save them in the "
                               "rule editor [index-mismatch]");
}

TEST_F(CheckCommand, WarnsOfRulesWithoutAnIndex) {
    SetText(system_.head.RuleSizeName, "");
    Rules("Rule 1\r\n Then\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              Lines{"s.lse: warning: the rules have no index, so that Debug checks none: "
                    "save them in the rule editor [index-mismatch]"});
}

TEST_F(CheckCommand, WarnsOfBlockWordsInComments) {
    Rules("Rule 1\r\n // One If too many\r\nEndRule\r\n");
    EXPECT_EQ(Findings(), (Lines{"s.rul:1:1: rule 1: There are If without EndIf [if-open]",
                                 "s.rul:2:9: warning: rule 1: \"If\" in a comment counts in the "
                                 "sums of Debug [word-in-comment]"}));
}

TEST_F(CheckCommand, WarnsOfNamesThatAreNotDeclared) {
    Fact("Level");
    Rules("Rule 1\r\n If (Level.value() > Limit && Flow.value() > 2.5)\r\n Then\r\n"
          "  deduce(&ALARM, FULL);\r\n  double own = DDEinfo.Tank;\r\n  f(own, OTHER.holds());\r\n"
          " EndIf\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              (Lines{"s.rul:2:22: warning: rule 1: a variable is not declared: Limit "
                     "[undeclared-variable]",
                     "s.rul:2:31: warning: rule 1: a fact is not declared: Flow [undeclared-fact]",
                     "s.rul:4:11: warning: rule 1: a result is not declared: ALARM "
                     "[undeclared-result]",
                     "s.rul:5:24: warning: rule 1: a DDE item is not declared: Tank "
                     "[undeclared-item]",
                     "s.rul:6:10: warning: rule 1: a result is not declared: OTHER "
                     "[undeclared-result]"}));
    EXPECT_EQ(Check({"--no-names"}).code, 0);
}

// What C++ can declare within the rules, and what only looks like it.
TEST_F(CheckCommand, KnowsWhatTheRulesDeclareThemselves) {
    Fact("F");
    Results({"A", "B"});
    const std::string declared = R"(
  int a, b = 2;
  double x[3], y;
  std::vector<int> v;
  std::vector<std::pair<int,double>> vv;
  const std::string& name = std::string("x");
  int* p, *q;
  int &r = a;
  char** pp;
  auto [c, d] = std::make_pair(1, 2);
  static const int N = 3, M = 4;
  for (int i = 0, j = 1; i < j; ++i) a += i + j;
  for (auto& e : v) e += 1;
  enum Kind { ONE, TWO };
  struct S { int m; double n; } one, two;
  S s; s.m = 1;
  using T = int; T k = 0;
  auto f = [&](double z) { return z + y; };
  auto g = [a, w = k](int, int u, const S& t) { return u + w + t.m; };
  unsigned long n2 = 1ul; n2 += 0x1F + 1e5;
  goto done;
done:
  b += d + c + M + N + k + x[0] + f(1) + *q + (ONE == TWO) + one.m + two.m;
  std::array<double, 3> arr{};
  double (*fp)(double) = nullptr; (void)fp;
  char buf[M]; sprintf(buf, "%d", a);
  #define LIMIT 3
  if (a > LIMIT) b = LIMIT;
  const char *t = "x"; (void)t;
  std::map<std::string, S> table2; S* sp = &table2["x"]; (void)sp;
  for (const auto& [key, val] : table2) { (void)key; (void)val; }
  b = static_cast<Kind>(a) == ONE ? a : b;
  try { b = 1; } catch (const std::exception& ex) { (void)ex; }
  DATAFACT before = F, after2 = F;
  If (F.value() > 1) Then deduce(&A, FULL); Else retract(&A); deduce(&B, NORMAL); EndIf
)";
    Rules("Rule 1" + declared + "EndRule\n");
    EXPECT_EQ(Findings(), Lines{});
    const std::string undeclared = R"(
  y = Und11 * Und12 + f(Und13);
  IfOr (F.value() < Und14, Und15 > F.value()) Then y = Und16 & Und17; EndIfOr
  y = a < Und18, Und19 > b;
  If (Und20.value() > (double) Und21) Then x[Und22] = v.at(Und23); EndIf
  y = std::max(Und24, Und25) < Und26 && b > Und27;
  deduce(&Und28, HIGH);
  y = DDEinfo.Und29 + Poked(Und30);
)";
    Rules("Rule 1" + declared + undeclared + "EndRule\n");
    std::set<std::string> told;
    for (const std::string& line : Findings())
        told.insert(
            line.substr(0, line.rfind(" [")).substr(line.rfind(' ', line.rfind(" [") - 1) + 1));
    std::set<std::string> expected;
    for (int i = 11; i <= 30; ++i)
        expected.insert("Und" + std::to_string(i));
    EXPECT_EQ(told, expected);
}

TEST_F(CheckCommand, KnowsWhatVariablesItemsAndHeadersDeclare) {
    Fact("F");
    Variable("table[10]");
    Variable("*next");
    DDE_ITEM item{};
    SetText(item.DName, "Level");
    Put("p/p.dde", std::string(kNameSize, '\0').append(BytesOf(item)));
    SetText(project_.head.DDEName, "C:\\p\\p.dde");
    SetText(project_.head.ExternFiles[1], "C:\\p\\units.cpp");
    project_.head.ExtNum = 1;
    Put("p/units.cpp", "#include \"pumps.h\"\r\n#include <cmath>\r\n");
    Put("p/pumps.h", "#include \"more.h\"\nenum Pump { ON, OFF };\n");
    Put("p/more.h", "constexpr double kLimit = 3;\n");
    const std::string sound = "Rule 1\r\n table[1] = *next + M_PI * kLimit + ON + F.age() + "
                              "Poked(Level);\r\n";
    Rules(sound + "EndRule\r\n");
    EXPECT_EQ(Findings(), Lines{});
    Rules(sound + " f(Other, Poked(Valve));\r\nEndRule\r\n");
    const std::string valve = "s.rul:3:17: warning: rule 1: a DDE item is not declared: Valve "
                              "[undeclared-item]";
    EXPECT_EQ(Findings(), (Lines{"s.rul:3:4: warning: rule 1: a variable is not declared: Other "
                                 "[undeclared-variable]",
                                 valve}));
    // A header that is not there may declare anything but items.
    std::filesystem::remove(Host("p/more.h"));
    EXPECT_EQ(Findings(), Lines{valve});
}

TEST_F(CheckCommand, WarnsOfWhatIsDeclaredAndNotUsed) {
    Fact("Level");
    Fact("Any", "ACTION");
    Fact("two words", "ACTION");
    Variable("count");
    Results({"A", "B", "C"});
    Rules("Rule 1\r\n ForAll (ACTION)\r\n  put_box(\"x\");\r\n EndForAll\r\n If (B.holds())\r\n"
          " Then\r\n  deduce(&C, FULL);\r\n EndIf\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              (Lines{"s.lse: warning: a fact has no C++ name: \"two words\" [bad-name]",
                     "s.lse: warning: no rule uses the fact Level [unused-fact]",
                     "s.var: warning: no rule uses the variable count [unused-variable]",
                     "p.aux: warning: no rule uses the result A [unused-result]",
                     "p.aux: warning: no rule concludes the result B [never-concluded]"}));
}

// A result is concluded by an assignment too, and by a function that it is given to.
TEST_F(CheckCommand, WarnsOfResultsThatAreOnlyAskedOrTakenBack) {
    Results({"A", "B", "C", "D", "ASKED", "TAKEN"});
    Rules("Rule 1\r\n A = B;\r\n conclude(&B);\r\n conclude(C);\r\n deduce(&D, FULL);\r\n"
          " if (ASKED.holds()) retract(&TAKEN);\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              (Lines{"p.aux: warning: no rule concludes the result ASKED [never-concluded]",
                     "p.aux: warning: no rule concludes the result TAKEN [never-concluded]"}));
}

TEST_F(CheckCommand, WarnsOfAResultConcludedWithItsOpposite) {
    Results({"HIGH_LEVEL", "LOW_LEVEL"});
    Opposite("HIGH_LEVEL\tLOW_LEVEL");
    Rules("Rule 1\r\n If (true)\r\n Then\r\n  deduce(&HIGH_LEVEL, FULL);\r\n Else\r\n"
          "  deduce(&LOW_LEVEL, FULL);\r\n  deduce(&HIGH_LEVEL, FULL);\r\n EndIf\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              Lines{"s.rul:7:11: warning: rule 1: concluded with its opposite in one branch: "
                    "HIGH_LEVEL and LOW_LEVEL [opposites-together]"});
}

TEST_F(CheckCommand, WarnsOfTwoSystemsOfOneName) {
    SetText(project_.head.EngineNames[2], "C:\\p\\other\\S.lse");
    project_.head.EngNum = 2;
    Put("p/other/S.lse", SystemBytes(SystemFile{}));
    Rules("Rule 1\r\nEndRule\r\n");
    EXPECT_EQ(Findings(), Lines{"p.mrv: warning: two systems of one name: C:\\p\\s.lse and "
                                "C:\\p\\other\\S.lse [same-system-name]"});
}

TEST_F(CheckCommand, FindsFilesWhateverTheCaseOfTheirLetters) {
    SetText(system_.head.RuleName, "c:\\P\\S.RUL");
    Rules("Rule 1\r\nThen\r\nEndRule\r\n");
    EXPECT_EQ(Findings(),
              Lines{"s.rul:2:1: rule 1: There are Then whithout any kind of If [then-no-if]"});
}

TEST_F(CheckCommand, PrintsJson) {
    Rules("Rule 1\r\n Then\r\n // \xfc If\r\nEndRule\r\n");
    const Ran ran = Check({"--format", "json"});
    EXPECT_EQ(ran.code, 1);
    const Json list = Json::parse(ran.out);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0], (Json{{"file", Host("p/s.rul")},
                             {"line", 2},
                             {"column", 2},
                             {"rule", 1},
                             {"level", "error"},
                             {"id", "then-no-if"},
                             {"text", "There are Then whithout any kind of If"}}));
    EXPECT_EQ(list[2]["level"], "warning");
}

// A folder that a drive stands for has whatever name the host gives it.
TEST_F(CheckCommand, PrintsJsonAlsoWhereAPathIsNoUtf8) {
    Rules("Rule 1\r\n Then\r\nEndRule\r\n");
    const std::string odd = temp.Path("a\xff");
    std::filesystem::rename(Host(""), odd);
    const Ran ran = Run({"check", odd + "/p/p.mrv", "--drive", "C=" + odd, "--format", "json"});
    EXPECT_EQ(Json::parse(ran.out)[0]["file"], temp.Path("a\xc3\xbf/p/s.rul")) << ran.err;
}

// What the schema of SARIF 2.1.0 asks for of the parts that are written.
void ExpectSarif(const Json& log) {
    EXPECT_EQ(log.at("version"), "2.1.0");
    EXPECT_TRUE(log.at("$schema").is_string());
    ASSERT_EQ(log.at("runs").size(), 1u);
    const Json& run = log["runs"][0];
    EXPECT_EQ(run.at("columnKind"), "unicodeCodePoints");
    const Json& driver = run.at("tool").at("driver");
    EXPECT_TRUE(driver.at("name").is_string());
    EXPECT_TRUE(driver.at("version").is_string());
    std::set<std::string> ids;
    for (const Json& rule : driver.at("rules"))
        EXPECT_TRUE(ids.insert(rule.at("id").get<std::string>()).second);
    for (const Json& result : run.at("results")) {
        EXPECT_EQ(driver["rules"].at(result.at("ruleIndex").get<std::size_t>()).at("id"),
                  result.at("ruleId"));
        EXPECT_TRUE(result.at("level") == "error" || result.at("level") == "warning");
        EXPECT_TRUE(result.at("message").at("text").is_string());
        ASSERT_EQ(result.at("locations").size(), 1u);
        const Json& place = result["locations"][0].at("physicalLocation");
        const std::string uri = place.at("artifactLocation").at("uri");
        EXPECT_EQ(uri.find_first_of(" \\\""), std::string::npos) << uri;
        if (place.contains("region")) {
            EXPECT_GE(place["region"].at("startLine").get<int>(), 1);
            EXPECT_GE(place["region"].at("startColumn").get<int>(), 1);
        }
    }
}

TEST_F(CheckCommand, PrintsSarif) {
    SetText(project_.head.MainName, "C:\\p\\my main.cpp");
    Rules("Rule 1\r\n Then\r\n Then\r\nEndRule\r\n");
    const Ran ran = Check({"--format=sarif"});
    const Json log = Json::parse(ran.out);
    ExpectSarif(log);
    ASSERT_EQ(log["runs"][0]["results"].size(), 3u);
    EXPECT_EQ(log["runs"][0]["results"][1]["message"]["text"],
              "rule 1: There are Then whithout any kind of If");
    Rules("Rule 1\r\nEndRule\r\n");
    Put("p/my main.cpp", "");
    const Ran none = Check({"--format=sarif"});
    EXPECT_EQ(none.code, 0);
    ExpectSarif(Json::parse(none.out));
}

TEST_F(CheckCommand, StopsAtWhatCannotBeRead) {
    ExpectStopped(Check(), "p.mrv: No such file or directory");
    Rules("Rule 1\r\nEndRule\r\n");
    std::filesystem::remove(Host("p/s.lse"));
    ExpectStopped(Check(), "s.lse: No such file or directory");
    Put("p/s.lse", "short");
    ExpectStopped(Check(), "s.lse: damaged");
    Rules("Rule 1\r\nEndRule\r\n");
    Put("p/p.aux", "no whole record");
    ExpectStopped(Check(), "p.aux: damaged");
}

// A checkout may be locked, or mounted to be read only.
TEST_F(CheckCommand, ReadsWhatMustNotBeWritten) {
    Results({"HIGH_LEVEL"});
    Opposite("HIGH_LEVEL\tLOW_LEVEL");
    Rules("Rule 1\r\n Then\r\n deduce(&HIGH_LEVEL, FULL);\r\nEndRule\r\n");
    const Lines writable = Findings();
    EXPECT_EQ(writable.size(), 2u);
    for (const auto& [name, bytes] : Files("p"))
        SetRights("p/" + name, 0444);
    const WithoutRights other;
    EXPECT_EQ(Findings(), writable);
}

TEST_F(CheckCommand, StopsAtWhatIsThereAndCannotBeRead) {
    Rules("Rule 1\r\n Then\r\nEndRule\r\n");
    for (const char* name : {"s.rul", "s.siz", "p.aux", "s.lse", "p.mrv"}) {
        SetRights(std::string("p/") + name, 0);
        {
            const WithoutRights other;
            ExpectStopped(Check(), std::string(name) + ": Permission denied");
        }
        SetRights(std::string("p/") + name, 0644);
    }
}

TEST_F(CheckCommand, StopsAtWrongWords) {
    ExpectStopped(Run({}), "A subcommand is required");
    ExpectStopped(Run({"chek"}), "chek");
    ExpectStopped(Run({"check"}), "PROJECT");
    ExpectStopped(Run({"check", "a.mrv", "--format", "xml"}), "xml");
    ExpectStopped(Run({"check", "a.mrv", "--drive", "C"}), "--drive C");
    ExpectStopped(Run({"check", "a.mrv", "--drive", "C=" + Host("nowhere")}), "nowhere");
    ExpectStopped(Run({"check", ""}), "an empty word names no file");
    ExpectStopped(Run({"export", "a.mrv", ""}), "an empty word names no file");
    ExpectStopped(Run({"test", "a.mrv", "--junit="}), "an empty word names no file");
    EXPECT_EQ(Run({"--help"}).code, 0);
    EXPECT_NE(Run({"check", "--help"}).out.find("--no-names"), std::string::npos);
}

// Greek is not in the code page, so a project there would have its files somewhere else.
TEST_F(CheckCommand, StopsAtPathsThatProjectsCannotName) {
    const std::string greek = temp.Path("\xce\x94");
    std::filesystem::create_directory(greek);
    const std::string lacks = "has letters that are not in Windows-1252";
    ExpectStopped(Run({"check", greek + "/p.mrv"}), greek + "/p.mrv: projects cannot name it");
    const std::string sample = std::string(SOURCE_FOLDER) + "/examples/boiler";
    ExpectStopped(Run({"import", sample, greek}), lacks);
    ExpectStopped(Run({"import", sample, "C:\\\xce\x94"}), lacks);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(temp.Path("")), {}), 2);
    // What lies above a drive does not matter.
    ExpectStopped(Run({"check", greek + "/p.mrv", "--drive", "D=" + greek}), "p.mrv: No such file");
    ExpectStopped(Run({"check", temp.Path("a\xff.mrv")}), "projects cannot name it");
}

// A rule text out of words, whole or in part, with all kinds of things between them.
std::string RandomRules(std::mt19937& random) {
    static const std::vector<std::string> words = {
        "Rule ", "EndRule",  "ForAll",    "EndForAll",  "If ",   "EndIf",    "IfOr", "EndIfOr",
        "IfXor", "EndIfXor", "Then",      "Else",       "IfAny", "EndIfAny", "/*",   "*/",
        "//",    "\"",       "Otherwise", "\r\n",       "\r\n",  "\r\n",     "\n",   " ",
        "1",     "R",        "End",       "(x.value()", ")",     ";",        "\xfc", "deduce(&A);"};
    std::string text;
    for (auto i = random() % 80; i > 0; --i)
        text += words[random() % words.size()];
    return text;
}

TEST_F(CheckCommand, FindsInRandomRulesWhatDebugLists) {
    std::mt19937 random(11);
    for (int run = 0; run < 1000 && !HasFailure(); ++run) {
        const std::string text = RandomRules(random);
        std::vector<std::int32_t> sizes;
        for (auto i = random() % 6; i > 0; --i)
            sizes.push_back(static_cast<std::int32_t>(random() % (text.size() + 20)) - 5);
        if (random() % 2 == 0)
            sizes = Renumber(text).sizes;
        Rules(text, IndexBytes(sizes));
        CheckLog debug;
        Lexical anul = Lexical::Code;
        ASSERT_TRUE(CheckProject(project_.head, anul, debug, nullptr));
        std::vector<std::string> expected, found;
        for (const std::string& line : debug.findings)
            if (line != "C:\\p\\s.rul" && !line.ends_with("Secon Debug:"))
                expected.push_back(line.substr(0, line.find(" : ")) + ": " +
                                   line.substr(line.rfind(" : ") + 3));
        const Ran ran = Check({"--format", "json", "--no-names"});
        for (const Json& entry : Json::parse(ran.out))
            if (entry["level"] == "error")
                found.push_back("Rule " + std::to_string(entry["rule"].get<int>()) + ": " +
                                entry["text"].get<std::string>());
        ASSERT_EQ(found, expected) << text;
    }
}

} // namespace
