#include "core_test.h"

#include "build/core/rule_checker.h"
#include "build/core/tools_file.h"
#include "project/core/project_file.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "sample.h"
#include "system/core/rule_index.h"
#include "system/core/system_file.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using zentrik_test::PutSample;
using zentrik_test::TempFolder;

// The sample, written to drive C: of a folder of its own (on Windows to a folder without a '.').
// (A packed field is read as a value, with '+', for the expectations take references.)
class Sample : public testing::Test {
protected:
    void SetUp() override {
#ifdef _WIN32
        work_ = temp_.Path("work");
#else
        std::filesystem::create_directory(temp_.Path("c"));
        files::SetDriveRoot(temp_.Path(""));
        work_ = "C:\\zentrik";
#endif
        ASSERT_EQ(PutSample(work_, "C:\\tools\\zkc.exe"), "");
        project_path_ = work_ + "\\boiler\\boiler.mrv";
        ASSERT_EQ(ReadProject(project_path_.c_str(), project_), ReadResult::Ok);
    }

    void TearDown() override {
#ifndef _WIN32
        files::SetDriveRoot("");
#endif
    }

    static std::string Content(const std::string& path) {
        std::string text;
        EXPECT_TRUE(files::ReadWhole(path.c_str(), files::Mode::Read, text)) << path;
        return text;
    }

    template <class Record> static std::vector<Record> Records(const std::string& path) {
        const std::string bytes = Content(path);
        EXPECT_EQ(bytes.size() % sizeof(Record), 0u) << path;
        return RecordsIn<Record>(bytes);
    }

    std::vector<SystemFile> Systems() const {
        std::vector<SystemFile> systems(static_cast<std::size_t>(project_.head.EngNum));
        for (std::size_t i = 0; i < systems.size(); ++i)
            EXPECT_EQ(ReadSystem(Text(project_.head.EngineNames[i + 1]).c_str(), systems[i]),
                      ReadResult::Ok);
        return systems;
    }

    std::set<std::string> Results() const {
        std::set<std::string> names;
        for (const TagRecord& record : Records<TagRecord>(Text(project_.head.ResAux)))
            names.insert(Text(record.name));
        return names;
    }

    TempFolder temp_;
    std::string work_;
    std::string project_path_;
    ProjectFile project_;
};

TEST_F(Sample, HasAProjectWhoseFilesAreAllThere) {
    EXPECT_EQ(+project_.head.EngNum, 2);
    EXPECT_EQ(+project_.head.ExtNum, 1);
    EXPECT_EQ(+project_.head.ResNum, 2);
    EXPECT_EQ(+project_.head.DatHisLen, 8);
    EXPECT_EQ(Text(project_.head.MainName), work_ + "\\boiler\\main.cpp");
    std::vector<std::string> paths = {Text(project_.head.MainName), Text(project_.head.DDEName),
                                      Text(project_.head.ExternFiles[1]),
                                      work_ + "\\boiler\\boiler.tag"};
    for (const NameRecord& record : project_.results)
        paths.push_back(Text(record.name));
    for (const std::string& path : paths)
        EXPECT_FALSE(Content(path).empty()) << path;
}

TEST_F(Sample, ListsTheResultsOfAllListsInTheAuxiliaryFile) {
    std::string all;
    for (const NameRecord& record : project_.results)
        all += Content(Text(record.name));
    EXPECT_EQ(Content(Text(project_.head.ResAux)), all);
    EXPECT_EQ(Results().size(), all.size() / sizeof(TagRecord));
}

TEST_F(Sample, SystemsUseTwelveFactsOfKnownTypesFromTheirBase) {
    for (const SystemFile& system : Systems()) {
        EXPECT_EQ(+system.head.DatNum, 12);
        std::set<std::string> types = {"DETECTION", "DIAGNOSTIC", "ACTION"};
        const auto added = Records<TagRecord>(Text(system.head.KTypeName));
        EXPECT_EQ(+system.head.TypNum, static_cast<int>(added.size()));
        for (const TagRecord& type : added)
            types.insert(Text(type.name));
        std::set<std::string> base;
        for (const Dat& fact : Records<Dat>(Text(system.head.KnowName)))
            base.insert(std::string(BytesOf(fact)));
        std::set<std::string> used_types;
        for (const Dat& fact : system.facts) {
            EXPECT_TRUE(base.contains(std::string(BytesOf(fact)))) << Text(fact.Name);
            used_types.insert(Text(fact.KnowType));
            EXPECT_LE(+fact.lowest, +fact.low);
            EXPECT_LE(+fact.high, +fact.highest);
            EXPECT_LT(+fact.inf_limit, +fact.sup_limit);
        }
        EXPECT_EQ(used_types, types);
    }
}

TEST_F(Sample, OppositesVariablesAndInitialFactsReferToWhatIsThere) {
    const std::set<std::string> results = Results();
    std::set<std::string> items;
    DdeFile dde;
    ASSERT_TRUE(ReadDde(Text(project_.head.DDEName).c_str(), files::Mode::Read, dde));
    EXPECT_EQ(dde.name, "boiler");
    for (const DDE_ITEM& item : dde.items)
        items.insert("DDEinfo." + Text(item.DName));
    for (const SystemFile& system : Systems()) {
        EXPECT_EQ(+system.head.OppNum, 3);
        for (const NameRecord& record : system.opposites) {
            const OppositePair pair = SplitOpposite(Text(record.name));
            EXPECT_TRUE(results.contains(pair.result)) << pair.result;
            EXPECT_TRUE(results.contains(pair.opposite)) << pair.opposite;
        }
        EXPECT_FALSE(Records<V_V>(Text(system.head.VarName)).empty());
        const auto initial = Records<I_K>(Text(system.head.InitName));
        ASSERT_EQ(initial.size(), system.facts.size());
        for (std::size_t i = 0; i < initial.size(); ++i) {
            EXPECT_EQ(Text(initial[i].K_Name), Text(system.facts[i].Name));
            const std::string value = Text(initial[i].K_Val);
            EXPECT_EQ(value.empty(), Text(initial[i].Pres) == "  ");
            if (value.starts_with("DDEinfo.")) {
                EXPECT_TRUE(items.contains(value)) << value;
            }
        }
    }
}

TEST_F(Sample, IndexesEveryRule) {
    for (const SystemFile& system : Systems()) {
        const std::string rules = Content(Text(system.head.RuleName));
        const auto index = Records<RuleIndexRecord>(Text(system.head.RuleSizeName));
        EXPECT_EQ(index.size(), 8u);
        std::size_t at = 0;
        for (std::size_t i = 0; i < index.size(); ++i) {
            const std::string name = "Rule " + std::to_string(i + 1);
            EXPECT_EQ(Text(index[i].name), name);
            EXPECT_EQ(+index[i].bor, 0);
            EXPECT_EQ(rules.substr(at, name.size() + 2), name + "\r\n");
            at += static_cast<std::size_t>(index[i].size);
        }
        EXPECT_EQ(at, rules.size() - 2);
        EXPECT_EQ(rules.substr(at - 7), "EndRule\r\n");
    }
}

// The words that a text has right before `suffix`, or right behind `prefix`.
std::set<std::string> Words(const std::string& text, const std::string& prefix,
                            const std::string& suffix) {
    std::set<std::string> words;
    auto in_word = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    const std::string mark = prefix + suffix;
    for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1)) {
        std::size_t first = at + prefix.size();
        std::size_t last = first;
        while (prefix.empty() && first > 0 && in_word(text[first - 1]))
            --first;
        while (suffix.empty() && last < text.size() && in_word(text[last]))
            ++last;
        words.insert(text.substr(first, last - first));
    }
    return words;
}

TEST_F(Sample, RulesUseFactsOfTheirSystemAndResultsOfTheProject) {
    const std::set<std::string> results = Results();
    for (const SystemFile& system : Systems()) {
        const std::string rules = Content(Text(system.head.RuleName));
        std::set<std::string> facts = {""}; // PF-> has no name before the '.'
        for (const Dat& fact : system.facts)
            facts.insert(Text(fact.Name));
        for (const char* member : {".value()", ".assign("})
            for (const std::string& name : Words(rules, "", member))
                EXPECT_TRUE(facts.contains(name)) << name;
        for (const char* verb : {"deduce(&", "retract(&"})
            for (const std::string& name : Words(rules, verb, ""))
                EXPECT_TRUE(results.contains(name)) << name;
    }
}

// Collects what the rule check finds.
class Findings : public CheckView {
public:
    explicit Findings(std::string results) : results_(std::move(results)) {}
    void SystemFile(const char*) override {}
    void RulesFile(const char*) override {}
    void RuleName(const std::string&) override {}
    void Progress(char) override {}
    void Finding(const std::string& line) override { lines.push_back(line); }
    std::string ResultsFile() override { return results_; }

    std::vector<std::string> lines;

private:
    std::string results_;
};

TEST_F(Sample, IsFoundSoundByTheRuleCheck) {
    Findings findings(Text(project_.head.ResAux));
    Lexical anul = Lexical::Code;
    ASSERT_TRUE(CheckProject(project_.head, anul, findings, nullptr));
    EXPECT_EQ(anul, Lexical::Code);
    // A heading for each rules file and the line that every rule has.
    ASSERT_EQ(findings.lines.size(), 18u);
    for (std::size_t i = 0; i < findings.lines.size(); ++i)
        EXPECT_TRUE(findings.lines[i].ends_with(i % 9 == 0 ? ".rul" : "Secon Debug:"))
            << findings.lines[i];
}

TEST_F(Sample, RulesHaveEveryKindOfBlock) {
    std::string all;
    for (const SystemFile& system : Systems())
        all += Content(Text(system.head.RuleName));
    for (const char* word :
         {"ForAll", "EndForAll", "If ", "EndIf\r", "IfOr", "EndIfOr", "IfXor", "EndIfXor", "IfAny",
          "EndIfAny", "Then", "Else", "Otherwise", "//", "/*", "*/", "\""})
        EXPECT_NE(all.find(word), all.npos) << word;
}

TEST_F(Sample, WritesTextsWithCrLfAndTheHeaderWithItsMarker) {
    for (const char* name : {"main.cpp", "units.cpp", "cycle.cpp", "steam.rul", "burner.rul"}) {
        const std::string text = Content(work_ + "\\boiler\\" + name);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'),
                  std::count(text.begin(), text.end(), '\r'));
        EXPECT_TRUE(text.ends_with("\r\n")) << name;
    }
    for (const SystemFile& system : Systems())
        EXPECT_NE(Content(Text(system.head.HeaderName)).find("ZkRules"), std::string::npos);
}

TEST_F(Sample, WritesTheTemplatesAndTheToolsFile) {
    ToolsFile tools;
    ASSERT_TRUE(ReadTools(ToolsFileName(work_).c_str(), tools));
    EXPECT_EQ(tools.path, work_ + "\\morv");
    EXPECT_EQ(tools.com, "C:\\tools\\zkc.exe");
    EXPECT_EQ(tools.compilers, std::vector<std::string>{"C:\\tools\\zkc.exe"});
    for (const char* name : {"consts1.dat", "consts2.dat", "consts3.dat", "ddecom1.dat",
                             "ddecom2.dat", "ddecom3.dat", "ddecom4.dat"})
        EXPECT_TRUE(Content(tools.path + "\\" + name).ends_with("\r\n\x1a")) << name;
}

TEST_F(Sample, SameSourceGivesTheSameBytes) {
    auto snapshot = [&] {
        std::map<std::string, std::string> content;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(temp_.Path("")))
            if (entry.is_regular_file())
                content[entry.path().string()] =
                    temp_.Content(std::filesystem::relative(entry.path(), temp_.Path("")).string());
        return content;
    };
    const auto before = snapshot();
    EXPECT_EQ(before.size(), 66u);
    ASSERT_EQ(PutSample(work_, "C:\\tools\\zkc.exe"), "");
    EXPECT_EQ(snapshot(), before);
}

#ifndef _WIN32

// What is handed out has the compiler utility beside the runtime.
TEST(SampleRuntime, RegistersTheUtilityThatComesWithTheRuntime) {
    const TempFolder temp;
    std::filesystem::create_directories(temp.Path("examples"));
    std::filesystem::create_directory(temp.Path("c"));
    for (const char* folder : {"examples/boiler", "morv"})
        std::filesystem::copy(std::string(SOURCE_FOLDER) + "/" + folder, temp.Path(folder));
    temp.Put("morv/zkcc.exe", std::string("MZ\n\0\r", 5));
    files::SetDriveRoot(temp.Path(""));
    ASSERT_EQ(PutSample("C:", "", temp.Path("")), "");
    ToolsFile tools;
    EXPECT_TRUE(ReadTools("C:\\toolfile.tol", tools));
    files::SetDriveRoot("");
    EXPECT_EQ(tools.path, "C:\\morv");
    EXPECT_EQ(tools.com, "\"C:\\morv\\zkcc.exe\"");
    EXPECT_EQ(tools.compilers, std::vector<std::string>{tools.com});
    EXPECT_EQ(temp.Content("c/morv/zkcc.exe"), std::string("MZ\n\0\r", 5));
}

#endif

} // namespace
