// What the compiler utility compiles, keeps and says, with scripts that stand in for the compilers.
#include "morv/zkcc_build.h"

#include "morv/run_tool.h"
#include "morv/runtime_files.h"
#include "morv/zkcc_cache.h"
#include "morv/zkcc_files.h"
#include "morv/zkcc_includes.h"
#include "morv/zkcc_messages.h"
#include "tests/core/core_test.h"

#include <csignal>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;
using zentrik_test::TempFolder;

// Copies the source to the target, names what it was made from, and fails as the source tells it
// to.
constexpr char kStandIn[] = R"(#!/bin/bash
here=$(dirname "$0")
includes=() out= dependencies= near= sources=()
while [ $# -gt 0 ]; do
    case $1 in
    -o) out=$2; shift ;;
    -MF) dependencies=$2; shift ;;
    -I) includes+=("$2"); shift ;;
    -dumpmachine) cat "$here/machine" 2>/dev/null || echo x86_64-w64-mingw32; exit ;;
    -mcmodel=small) near=" near" ;;
    @*) while read -r name; do sources+=("$name"); done <"${1#@}" ;;
    -*) ;;
    *.*) sources+=("$1") ;;
    esac
    shift
done
echo "${0##*-} ${sources[*]##*/}$near" >>"$here/calls"
for source in "${sources[@]}"; do
    [ -n "$dependencies" ] && grep -q SAYS "$source" && echo "pR.cpp:20:3: warning: odd"
    [ -n "$dependencies" ] && grep -q ENDS "$source" && kill -9 $$
    [ -z "$dependencies" ] && grep -q LINK_STOPS "$source" && echo half >"$out" && kill -9 $$
    if grep -q FAILS "$source"; then
        echo "pR.cpp:20:3: error: bad"
        exit 4
    fi
done
cat "${sources[@]}" >"$out"
if [ -n "$dependencies" ]; then
    printf 'made: %s' "${sources[0]// /\\ }" >"$dependencies"
    grep -oh '#include "[^"]*"' "${sources[0]}" | cut -d '"' -f 2 | while read -r name; do
        for folder in "${includes[@]}"; do
            [ ! -f "$folder/$name" ] || printf ' \\\n %s' "${folder// /\\ }/$name" >>"$dependencies"
        done
    done
fi
exit 0
)";

class Build : public testing::Test {
protected:
    void SetUp() override {
        for (const char* folder : {"my morv", "my plant", "bin"})
            fs::create_directory(temp_.Path(folder));
        for (const char* name : {"x86_64-w64-mingw32-g++", "x86_64-w64-mingw32-windres"}) {
            temp_.Put(std::string("bin/") + name, kStandIn);
            fs::permissions(temp_.Path(std::string("bin/") + name), fs::perms::all);
        }
        for (const char* name : morv::kRuntimeSources)
            temp_.Put(std::string("my morv/") + name, "#include \"consts.h\"\n");
        temp_.Put("my morv/apimorv.cpp", "api\n");
        temp_.Put("my morv/apimorv.rc", "ICON \"plant.ico\"\n");
        temp_.Put("my plant/consts.h", "consts\n");
        temp_.Put("my plant/ddecom.cpp", "dde\n");
        temp_.Put("my plant/pR.h", "#include \"own.h\"\nDATAFACTRESULT\nGOOD;\n#endif\n");
        temp_.Put("my plant/own.h", "int own();\n");
        PutRules("deduce(&GOOD, FULL);");
        job_ = {"apimorv",    "apimorv.rc",          "pR.cpp",
                "ddecom.cpp", temp_.Path("my morv"), temp_.Path("my plant"),
                "",           temp_.Path("bin"),     temp_.Path(""),
                "Apip"};
        setenv("ZKCC_SHOW", "", 1);
    }
    void TearDown() override { unsetenv("ZKCC_SHOW"); }

    // The statement stands on line 20, the second of its rule.
    void PutRules(const std::string& statement) {
        temp_.Put("my plant/pR.cpp",
                  "#include \"pR.h\"\r\n//- System Declaration\r\nInference_Engine_1 steam;\r\n\r\n"
                  "Begin Inference_Engine_1 ZkSystem\r\n\tstatic DATAFACT *PF, A;\r\n"
                  "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nRule 3\r\n" +
                      statement + "\r\nEndRule\r\nEndSystem\r\n");
    }

    // Returns the log; `calls_` are the sources that were given to the tools, one call a line.
    std::string Run(bool made = true) {
        temp_.Put("bin/calls", "");
        morv::Screen screen;
        EXPECT_EQ(morv::BuildProgram(job_, screen), made);
        calls_ = temp_.Content("bin/calls");
        return WithoutNotes(temp_.Content("my plant/zkcc.log"));
    }

    // How a system is split is the translation's to say.
    static std::string WithoutNotes(const std::string& log) {
        std::string kept;
        std::istringstream lines(log);
        for (std::string line; std::getline(lines, line);)
            if (line.find(" is built whole: ") == std::string::npos)
                kept += line + "\n";
        return kept;
    }

    std::string Program() const { return temp_.Content("my plant/Apip.exe"); }

    // The files of the cache that a build must not leave.
    std::string Leftovers() const {
        std::string names;
        for (const auto& entry : fs::directory_iterator(temp_.Path("my plant/zkcc.cache"))) {
            const std::string name = entry.path().filename().string();
            if (name[0] >= '0' && name[0] <= '9')
                names += name + " ";
        }
        return names;
    }

    TempFolder temp_;
    morv::Job job_;
    std::string calls_;
};

constexpr char kMade[] = "zkcc: made Apip.exe\r\n";

TEST_F(Build, MakesTheProgramAndNothingTwice) {
    EXPECT_EQ(Run(), kMade);
    EXPECT_NE(calls_.find("windres apimorv.rc\n"), std::string::npos) << calls_;
    EXPECT_NE(Program().find("deduce(&GOOD"), std::string::npos) << Program();
    EXPECT_EQ(Leftovers(), "");
    const std::string program = Program();
    EXPECT_EQ(Run(), kMade);
    EXPECT_EQ(calls_, "");
    EXPECT_EQ(Program(), program);
}

TEST_F(Build, CompilesOnlyWhatChanged) {
    Run();
    temp_.Put("my morv/runtime_engine.cpp", "other\n");
    EXPECT_EQ(Run(), kMade);
    EXPECT_EQ(calls_.find("g++ runtime_engine.cpp\ng++ "), 0u) << calls_;
    EXPECT_EQ(std::count(calls_.begin(), calls_.end(), '\n'), 2) << calls_; // and the link
    EXPECT_NE(Program().find("other\n"), std::string::npos);
    temp_.Put("my morv/runtime_engine.cpp", "#include \"consts.h\"\n");
    Run();
    temp_.Put("my plant/consts.h", "others\n");
    Run();
    EXPECT_NE(calls_.find("g++ runtime_window.cpp\n"), std::string::npos) << calls_;
    EXPECT_EQ(calls_.find("apimorv.rc"), std::string::npos) << calls_;
    temp_.Put("my morv/plant.ico", "picture");
    Run();
    EXPECT_EQ(calls_.find("windres apimorv.rc\n"), 0u) << calls_;
}

// Where nothing changed the rules are not even translated: a source that is gone stays away.
TEST_F(Build, DoesNothingTwiceUntilSomethingCounts) {
    temp_.Put("my morv/runtime_engine.cpp", "#include \"consts.h\"\nSAYS\n");
    const std::string log = Run();
    const fs::path source = temp_.Path("my plant/zkcc.cache/rules.cpp");
    const std::string kept = temp_.Content("my plant/zkcc.cache/rules.cpp");
    const auto works = [&] {
        fs::remove(source);
        EXPECT_EQ(Run(), log);
        const bool is_there = fs::exists(source);
        temp_.Put("my plant/zkcc.cache/rules.cpp", kept);
        return is_there;
    };
    EXPECT_FALSE(works());
    EXPECT_FALSE(works()); // a build that did nothing forgets nothing
    for (const char* name : {"my plant/pR.cpp", "my plant/pR.h", "my plant/ddecom.cpp",
                             "my plant/own.h", "my plant/consts.h", "my morv/apimorv.cpp",
                             "my morv/apimorv.rc", "my morv/runtime_window.cpp",
                             "bin/x86_64-w64-mingw32-g++", "bin/x86_64-w64-mingw32-windres"}) {
        temp_.Put(name, temp_.Content(name) + "\n");
        EXPECT_TRUE(works()) << name;
        EXPECT_FALSE(works()) << name;
    }
    temp_.Put("my plant/Apip.exe", "cut");
    EXPECT_TRUE(works());
    const std::string record = temp_.Content("my plant/zkcc.cache/build");
    temp_.Put("my plant/zkcc.cache/build", record.substr(0, record.size() - 1));
    EXPECT_TRUE(works());
    job_.include = temp_.Path("bin");
    EXPECT_TRUE(works());
    EXPECT_FALSE(works());
    // What failed is tried again.
    temp_.Put("my plant/consts.h", "FAILS\n");
    temp_.Put("my morv/apimorv.cpp", "FAILS\n");
    Run(false);
    Run(false);
    EXPECT_NE(calls_, "");
}

TEST_F(Build, SourcesOfRulesReachFactsDirectlyWhereTheCompilerKnowsTheOption) {
    Run();
    EXPECT_NE(calls_.find("g++ rules.cpp near\n"), std::string::npos) << calls_;
    EXPECT_NE(calls_.find("g++ runtime_engine.cpp\n"), std::string::npos) << calls_;
    // Another compiler is asked anew.
    temp_.Put("bin/machine", "i686-w64-mingw32\n");
    temp_.Put("bin/x86_64-w64-mingw32-g++", std::string(kStandIn) + "\n");
    Run();
    EXPECT_NE(calls_.find("g++ rules.cpp\n"), std::string::npos) << calls_;
    temp_.Put("bin/machine", ""); // one that does not tell
    temp_.Put("bin/x86_64-w64-mingw32-g++", std::string(kStandIn) + "\n\n");
    EXPECT_EQ(Run(), kMade);
    EXPECT_NE(calls_.find("g++ rules.cpp\n"), std::string::npos) << calls_;
    EXPECT_EQ(Leftovers(), "");
}

TEST_F(Build, MakesAgainWhatSomebodyDamaged) {
    Run();
    const std::string program = Program();
    temp_.Put("my plant/Apip.exe", "cut");
    Run();
    EXPECT_EQ(std::count(calls_.begin(), calls_.end(), '\n'), 1) << calls_;
    EXPECT_EQ(Program(), program);
    fs::remove(temp_.Path("my plant/Apip.exe"));
    Run();
    EXPECT_EQ(Program(), program);
    // Half-written objects and records.
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(temp_.Path("my plant/zkcc.cache")))
        files.push_back(entry.path());
    for (const fs::path& file : files) {
        fs::resize_file(file, fs::file_size(file) / 2);
        fs::remove(temp_.Path("my plant/Apip.exe"));
        EXPECT_EQ(Run(), kMade) << file;
        EXPECT_EQ(Program(), program) << file;
    }
    fs::remove_all(temp_.Path("my plant/zkcc.cache"));
    EXPECT_EQ(Run(), kMade);
}

TEST_F(Build, TheCacheHoldsOnlyWhatTheBuildUsed) {
    Run();
    temp_.Put("my plant/zkcc.cache/old.o", "old");
    temp_.Put("my plant/zkcc.cache/17-3.made", "half");
    EXPECT_EQ(Run(), kMade);
    EXPECT_FALSE(fs::exists(temp_.Path("my plant/zkcc.cache/old.o")));
    EXPECT_EQ(Leftovers(), "");
}

TEST_F(Build, WhatTheCompilerSaidStaysSaid) {
    temp_.Put("my morv/runtime_engine.cpp", "SAYS\n");
    const std::string warned = "pR.cpp:20:3: steam, rule 3, line 2: warning: odd\r\n";
    EXPECT_EQ(Run(), warned + kMade);
    EXPECT_EQ(Run(), warned + kMade);
}

TEST_F(Build, AFailureKeepsTheProgramAndSaysWhy) {
    Run();
    const std::string program = Program();
    temp_.Put("my morv/runtime_engine.cpp", "FAILS\n");
    EXPECT_EQ(Run(false), "pR.cpp:20:3: steam, rule 3, line 2: error: bad\r\n"
                          "x86_64-w64-mingw32-g++ ended with 4\r\nzkcc: failed\r\n");
    EXPECT_EQ(Program(), program);
    EXPECT_EQ(Leftovers(), "");
    temp_.Put("my morv/runtime_engine.cpp", "ENDS\n");
    EXPECT_NE(Run(false).find("g++ did not start or was ended: "), std::string::npos);
    EXPECT_EQ(Program(), program);
    temp_.Put("my morv/runtime_engine.cpp", "#include \"consts.h\"\n");
    EXPECT_EQ(Run(), kMade);
}

TEST_F(Build, ALinkerThatIsKilledLeavesTheProgramAndNothingHalfMade) {
    Run();
    const std::string program = Program();
    temp_.Put("my morv/runtime_engine.cpp", "LINK_STOPS\n");
    const std::string log = Run(false);
    EXPECT_NE(log.find("g++ did not start or was ended\r\nzkcc: failed\r\n"), std::string::npos)
        << log;
    EXPECT_EQ(Program(), program);
    EXPECT_EQ(Leftovers(), "");
}

TEST_F(Build, WithoutACompilerTheLogSaysSo) {
    Run();
    fs::remove(temp_.Path("bin/x86_64-w64-mingw32-windres"));
    const std::string path = getenv("PATH");
    setenv("PATH", "/nowhere", 1);
    EXPECT_EQ(Run(false), "no x86_64-w64-mingw32-windres found: g++ and windres of MinGW-w64 are "
                          "needed, in the Compiler Path or the PATH\r\nzkcc: failed\r\n");
    setenv("PATH", path.c_str(), 1);
    EXPECT_NE(Program(), "");
}

TEST_F(Build, NamesAndBlocksAreCheckedBeforeTheCompilerRuns) {
    PutRules("deduce(&GOAD); If (A.value())");
    const std::string place = ": steam, rule 3, line ";
    EXPECT_EQ(Run(false), "pR.cpp:20" + place +
                              "2: GOAD is not declared: no fact of steam, no result\r\npR.cpp:21" +
                              place + "3: EndRule where EndIf is due\r\npR.cpp:19" + place +
                              "1: Rule without EndRule\r\npR.cpp:20" + place +
                              "2: If without EndIf\r\nzkcc: failed\r\n");
    EXPECT_EQ(calls_, "");
    temp_.Put("my plant/own.h", "extern DATAFACT GOAD;\n");
    PutRules("deduce(&GOAD);");
    EXPECT_EQ(Run(), kMade);
    fs::remove(temp_.Path("my plant/own.h"));
    PutRules("deduce(&GOOED);");
    EXPECT_EQ(Run(), kMade); // what own.h declares is the compiler's to know
}

TEST_F(Build, WhereItCannotWriteTheProgramStays) {
    Run();
    const std::string program = Program();
    fs::remove_all(temp_.Path("my plant/zkcc.cache"));
    temp_.Put("my plant/zkcc.cache", "no folder");
    EXPECT_EQ(Run(false), "cannot write in zkcc.cache\r\nzkcc: failed\r\n");
    EXPECT_EQ(Program(), program);
}

// A limit on the size of files is a disk that is full for the long ones.
class SmallFiles {
public:
    explicit SmallFiles(rlim_t size) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small = {size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;
    ~SmallFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit before_{};
    void (*signal_)(int);
};

TEST_F(Build, OnAFullDiskTheProgramStays) {
    Run();
    const std::string program = Program();
    PutRules("A.assign(3, FULL);");
    std::string log;
    {
        const SmallFiles full(150);
        log = Run(false);
    }
    EXPECT_NE(log.find("is the disk full?\r\nzkcc: failed\r\n"), std::string::npos) << log;
    EXPECT_EQ(Program(), program);
    EXPECT_EQ(Leftovers(), "");
    EXPECT_EQ(Run(), kMade);
    EXPECT_NE(Program(), program);
}

TEST(ReadDependencies, UndoesTheEscapes) {
    EXPECT_EQ(morv::ReadDependencies("a.o: my\\ file.cpp \\\n C:\\dir\\x.h \\\r\n a$$b\\#.h\n"),
              (std::vector<fs::path>{"my file.cpp", "C:\\dir\\x.h", "a$b#.h"}));
    EXPECT_TRUE(morv::ReadDependencies("").empty());
    EXPECT_TRUE(morv::ReadDependencies("a.o: ").empty());
}

TEST(ReadIncluded, FollowsHeadersAndSaysWhatIsMissing) {
    TempFolder temp;
    fs::create_directory(temp.Path("sub"));
    temp.Put("a.h", "one\n # include \"sub/b.h\"\n#include \"a.h\"\n");
    temp.Put("sub/b.h", "two\n#include <c.h>\n#include <vector>\n");
    temp.Put("sub/c.h", "three\n");
    const morv::Included found = morv::ReadIncluded("#include \"a.h\" // own\n", {temp.Path("")});
    EXPECT_TRUE(found.all);
    for (const char* text : {"one", "two", "three"})
        EXPECT_NE(found.text.find(text), std::string::npos) << text;
    EXPECT_FALSE(morv::ReadIncluded("#include \"a.h\"\n#include \"none.h\"", {temp.Path("")}).all);
    EXPECT_TRUE(morv::ReadIncluded("#include <none.h>\n#include \"shell.h\"\n#include", {""}).all);
}

TEST(Messages, TellLabelsAsLinesOfTheSourceAndPlaces) {
    const std::string source =
        "\nInference_Engine_1 steam;\nBegin Inference_Engine_1 ZkSystem\n\nRule "
        "7\n\nbad\nEndRule\nEndSystem\n";
    morv::Messages messages(source, "pR.cpp");
    messages.SetLabels({{"steam.rule-7", 5, "steam", "7", ""}});
    messages.Add(
        "In file included from pR.cpp:1:\n/own.h:3:1: error: no\n"
        "steam.rule-7: In function 'f':\nsteam.rule-7:3:4: error: 'x'\nsteam.rule-7:3: note: n\n"
        "rules.o:rules.cpp:(.text+0x1): undefined reference to `f()'\nplain\n");
    EXPECT_EQ(messages.Log(),
              (std::vector<std::string>{
                  "In file included from pR.cpp:1:", "/own.h:3:1: error: no",
                  "pR.cpp: In function 'f':", "pR.cpp:7:4: steam, rule 7, line 3: error: 'x'",
                  "pR.cpp:7: steam, rule 7, line 3: note: n",
                  "rules.o:rules.cpp:(.text+0x1): undefined reference to `f()'", "plain"}));
    EXPECT_EQ(messages.Errors().size(), 3u);
}

TEST(Fingerprint, DiffersWhereTextsDo) {
    EXPECT_EQ(morv::Fingerprint("").size(), 16u);
    EXPECT_NE(morv::Fingerprint("ab"), morv::Fingerprint("ba"));
    EXPECT_NE(morv::Fingerprint("a"), morv::Fingerprint(std::string("a\0", 2)));
}

} // namespace
