// The generated rules source.
#include "build_disk.h"

#include "build/core/rules_source.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::Disk;
using zentrik_test::EmptySystem;
using zentrik_test::ExpectGolden;
using zentrik_test::kOwner;
using zentrik_test::Name;
using zentrik_test::PutSampleProject;
using zentrik_test::SampleFact;
using zentrik_test::Triples;
using Lines = std::vector<std::string>;

struct Source {
    Source() : project(PutSampleProject(disk)) {}

    int Create() {
        return CrearRulesCpp(project, last_read, disk.Path("plantR.cpp").c_str(), "plantR.h",
                             kOwner);
    }
    std::string Written() const { return disk.Content("plantR.cpp"); }

    // The part of the one system `system`, from its Begin line to "EndSystem".
    std::string SystemPart(SystemFile system) {
        system.head.DatNum = static_cast<std::int32_t>(system.facts.size());
        system.head.OppNum = static_cast<std::int32_t>(system.opposites.size());
        disk.Put("one.lse", SystemBytes(system));
        SetText(project.EngineNames[1], disk.Path("one.lse"));
        project.EngNum = 1;
        EXPECT_EQ(Create(), 0);
        const std::string text = Written();
        const std::size_t begin = text.find("Begin Inference_Engine_1 ZkSystem\r\n");
        const std::size_t end = text.find("EndSystem\r\n");
        EXPECT_NE(begin, std::string::npos);
        EXPECT_NE(end, std::string::npos);
        return text.substr(begin, end - begin);
    }

    SystemFile WithRules() const {
        SystemFile system = EmptySystem();
        SetText(system.head.RuleName, disk.Path("second.rul"));
        return system;
    }

    const Disk disk;
    ProjectRecord project;
    SystemHead last_read{};
    Boxes boxes;
};

const std::string kBegin =
    "Begin Inference_Engine_1 ZkSystem\r\n\r\n\r\n\t//- Facts declaration\r\n"
    "\tstatic DATAFACT *PF";
const std::string kRules = "Rule 1\r\nEndRule\r\n\r\n\r\n";

TEST(RulesSource, OfTheSampleIsTheGoldenOne) {
    Source source;
    EXPECT_EQ(source.Create(), 0);
    EXPECT_EQ(source.boxes.shown, Lines{});
    ExpectGolden("plantR.cpp", source.Written());
    const std::string first = source.Written();
    EXPECT_EQ(source.Create(), 0);
    EXPECT_EQ(source.Written(), first);
}

TEST(RulesSource, KeepsTheHeadOfTheLastSystemRead) {
    Source source;
    EXPECT_EQ(source.Create(), 0);
    EXPECT_EQ(Text(source.last_read.KTypeName), source.disk.Path("second.typ"));
    EXPECT_EQ(Text(source.last_read.VarName), "");
    source.disk.Remove("second.lse");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(Text(source.last_read.VarName), source.disk.Path("first.var"));
    const std::int32_t facts = source.last_read.DatNum;
    EXPECT_EQ(facts, 2);
}

TEST(RulesSource, OfASystemWithNothingButRules) {
    Source source;
    EXPECT_EQ(source.SystemPart(source.WithRules()), kBegin + ";\r\n\r\n\r\n\r\n\r\n" + kRules);
}

TEST(RulesSource, DeclaresFactsOnOneLine) {
    Source source;
    SystemFile system = source.WithRules();
    system.facts = {SampleFact("A", 1), SampleFact("B", 2)};
    EXPECT_TRUE(source.SystemPart(system).starts_with(kBegin + ", A, B;\r\n"));
}

TEST(RulesSource, SetsUpAFactInTwelveLines) {
    Source source;
    SystemFile system = source.WithRules();
    system.facts = {SampleFact("A", 7)};
    system.facts[0].sup_limit = 12345.678;
    EXPECT_EQ(source.SystemPart(system), kBegin +
                                             ", A;\r\n\r\n\r\n\r\n"
                                             "//- Datafact\r\n"
                                             "\tA.name = 7;\r\n"
                                             "\tA.type = TEMP;\r\n"
                                             "\tsprintf (A.description, \"About A\");\r\n"
                                             "\tsprintf (A.fact_value.units, \"Celsius\");\r\n"
                                             "\tA.fact_value.inf_limit = -273.15;\r\n"
                                             "\tA.fact_value.sup_limit = 12346;\r\n"
                                             "\tA.fact_value.step_v = 0.5;\r\n"
                                             "\tA.fact_value.lowest = -10;\r\n"
                                             "\tA.fact_value.low = 0;\r\n"
                                             "\tA.fact_value.normal = 20.25;\r\n"
                                             "\tA.fact_value.high = 1.2346e+05;\r\n"
                                             "\tA.fact_value.highest = 1e-07;\r\n"
                                             "\r\n\r\n" +
                                             kRules);
}

TEST(RulesSource, FieldsWithoutAnEndAreCutAtTheirSize) {
    Source source;
    SystemFile system = source.WithRules();
    system.facts.resize(1);
    std::memset(&system.facts[0], 'f', offsetof(Dat, inf_limit));
    system.opposites.resize(1);
    std::memset(&system.opposites[0], 'o', sizeof(NameRecord));
    const std::string part = source.SystemPart(system);
    EXPECT_TRUE(part.starts_with(kBegin + ", " + std::string(70, 'f') + ";\r\n"));
    EXPECT_NE(part.find("type = " + std::string(50, 'f') + ";"), std::string::npos);
    EXPECT_NE(part.find("set_opposites(" + std::string(255, 'o') + ", );"), std::string::npos);
}

TEST(RulesSource, OppositesBeginWithALineEnd) {
    Source source;
    SystemFile system = source.WithRules();
    system.opposites = {Name("HIGH\tLOW"), Name("A\tB\tC"), Name("ALONE")};
    EXPECT_EQ(source.SystemPart(system), kBegin +
                                             ";\r\n\r\n\r\n"
                                             "\r\n\tset_opposites(HIGH, LOW);"
                                             "\r\n\tset_opposites(A, B\tC);"
                                             "\r\n\tset_opposites(ALONE, );"
                                             "\r\n\r\n" +
                                             kRules);
}

TEST(RulesSource, WritesLocalVariablesTwice) {
    Source source;
    SystemFile system = source.WithRules();
    SetText(system.head.VarName, source.disk.Path("one.var"));
    source.disk.Put("one.var", Triples({{"n", "long", "0"}, {"x", "double", "a b"}}));
    EXPECT_EQ(source.SystemPart(system), kBegin +
                                             ";\r\n"
                                             "\t//- Local Var Declaration\r\n\tlong n;\r\n"
                                             "\t//- Local Var Declaration\r\n\tdouble x;\r\n"
                                             "\r\n\r\n\r\n\r\n"
                                             "// - System Local Vars\r\n"
                                             "n=0;\r\n"
                                             "x=a b;\r\n"
                                             "\r\n" +
                                             kRules);
    source.disk.Put("one.var", "");
    EXPECT_EQ(source.SystemPart(system),
              kBegin + ";\r\n\r\n\r\n\r\n\r\n// - System Local Vars\r\n\r\n" + kRules);
    source.disk.Remove("one.var");
    EXPECT_EQ(source.SystemPart(system), kBegin + ";\r\n\r\n\r\n\r\n\r\n\r\n" + kRules);
}

TEST(RulesSource, DeducesTheInitialFactsThatHaveACertainty) {
    Source source;
    SystemFile system = source.WithRules();
    SetText(system.head.InitName, source.disk.Path("one.ikw"));
    source.disk.Put("one.ikw", Triples({{"A", "1", "FULL"},
                                        {"B", "2", "0.5"},
                                        {"C", "3", "  "},
                                        {"D", "4", "1"},
                                        {"E", "5", "0"}}));
    const std::string head = kBegin + ";\r\n\r\n\r\n\r\n\r\n";
    EXPECT_EQ(source.SystemPart(system), head +
                                             "//- Deduce Facts Values\r\n"
                                             "A.assign((double)1,FULL);\r\ndeduce(&A);\r\n\r\n"
                                             "D.assign((double)4,1);\r\ndeduce(&D);\r\n\r\n"
                                             "\r\n" +
                                             kRules);
    source.disk.Put("one.ikw", "");
    EXPECT_EQ(source.SystemPart(system), head + "//- Deduce Facts Values\r\n\r\n" + kRules);
    source.disk.Remove("one.ikw");
    EXPECT_EQ(source.SystemPart(system), head + kRules);
}

TEST(RulesSource, PutsTheRulesAtTheMarkerOfTheHeader) {
    Source source;
    SystemFile system = source.WithRules();
    SetText(system.head.HeaderName, source.disk.Path("one.hdr"));
    const std::string head = kBegin + ";\r\n\r\n\r\n\r\n\r\n";
    const std::string rules = "Rule 1\r\nEndRule";
    const auto with_header = [&](const std::string& header) {
        source.disk.Put("one.hdr", header);
        const std::string part = source.SystemPart(system);
        EXPECT_TRUE(part.starts_with(head));
        EXPECT_TRUE(part.ends_with("\r\n\r\n"));
        return part.substr(head.size(), part.size() - head.size() - 4);
    };
    EXPECT_EQ(with_header("one ZkRules two ZkRules\r\n"), "one " + rules + "\r\n two ZkRules\r\n");
    EXPECT_EQ(with_header("ZkRules"), rules + "\r\n");
    EXPECT_EQ(with_header("zkrules\n"), "\r\nzkrules\n" + rules + "\r\n");
    EXPECT_EQ(with_header(""), "\r\n" + rules + "\r\n");
    // The search does not go back, so this holds no marker.
    EXPECT_EQ(with_header("ZZkRules"), "\r\nZZkRules" + rules + "\r\n");
}

TEST(RulesSource, CopiesRulesOfAnySizeByteForByte) {
    Source source;
    const std::string rules = std::string(300000, 'r') + std::string("\0\n\r\x1a\xff", 5);
    source.disk.Put("second.rul", rules);
    EXPECT_EQ(source.SystemPart(source.WithRules()),
              kBegin + ";\r\n\r\n\r\n\r\n\r\n" + rules + "\r\n\r\n\r\n");
}

// What CopyExt makes of a file with this text.
std::string Copied(const std::string& text) {
    const Disk disk;
    disk.Put("extern.cpp", text);
    OutputFile han;
    EXPECT_TRUE(han.Create(disk.Path("out.cpp").c_str()));
    EXPECT_EQ(CopyExt(han, disk.Path("extern.cpp").c_str()), 0);
    EXPECT_TRUE(han.Close());
    return disk.Content("out.cpp");
}

TEST(CopyExt, CopiesAFileWithoutIncludesWhole) {
    EXPECT_EQ(Copied("int f();\r\nint g();"), "int f();\r\nint g();\r\n");
    EXPECT_EQ(Copied(""), "\r\n");
    EXPECT_EQ(Copied("x"), "x\r\n");
}

TEST(CopyExt, DropsTheFirstLineUpToItsLineFeed) {
    EXPECT_EQ(Copied("#include <a>\r\n#include <b>\r\nint f();"), "\n#include <b>\r\nint f();\r\n");
    EXPECT_EQ(Copied("int f();\r\n#include <a>\r\n"), "\n#include <a>\r\n\r\n");
    EXPECT_EQ(Copied("a\n#include <a>\r\nb"), "\nb\r\n");
}

TEST(CopyExt, AFileOfOneLineWithAnIncludeLeavesNothing) {
    EXPECT_EQ(Copied("#include <a>\nint f();\n"), "\r\n");
}

TEST(CopyExt, TheLastByteIsNotSearched) {
    EXPECT_EQ(Copied("int f();\r\n#include"), "int f();\r\n#include\r\n");
    EXPECT_EQ(Copied("int f();\r\n#include "), "\n#include \r\n");
}

TEST(CopyExt, ClosesTheOutputWhenItFails) {
    const Disk disk;
    Boxes boxes;
    OutputFile han;
    EXPECT_TRUE(han.Create(disk.Path("out.cpp").c_str()));
    han.Add("kept");
    EXPECT_EQ(CopyExt(han, disk.Path("none.cpp").c_str()), -1);
    EXPECT_EQ(disk.Content("out.cpp"), "kept");
    EXPECT_EQ(boxes.shown, Lines{"WARNING: No such file or directory"});
}

TEST(RulesSource, ThatCannotBeCreatedSaysSo) {
    Source source;
    source.disk.Block("plantR.cpp");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"Rule.Cpp: Creation file error", "WARNING: Permison denied"}));
    EXPECT_EQ(source.boxes.messages.at(0).owner, kOwner);
}

TEST(RulesSource, StopsAtAMissingExternFile) {
    Source source;
    source.disk.Remove("extern.cpp");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"WARNING: No such file or directory", "Rule.Cpp: Error During Extern Copy"}));
    EXPECT_TRUE(source.Written().ends_with("//- Extern Functions\r\n"));
}

TEST(RulesSource, KeepsTheExternFilesBeforeTheMissingOne) {
    Source source;
    source.disk.Put("extern.cpp", "int f();");
    SetText(source.project.ExternFiles[2], source.disk.Path("none.cpp"));
    SetText(source.project.ExternFiles[3], source.disk.Path("extern.cpp"));
    source.project.ExtNum = 3;
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"WARNING: No such file or directory", "Rule.Cpp: Error During Extern Copy"}));
    EXPECT_TRUE(source.Written().ends_with("//- Extern Functions\r\nint f();\r\n"));
}

TEST(RulesSource, StopsAtASystemFileThatCannotBeRead) {
    for (const char* how : {"missing", "short", "facts gone", "folder"}) {
        Source source;
        SystemFile damaged = EmptySystem();
        damaged.head.DatNum = 4;
        source.disk.Remove("second.lse");
        if (how == std::string("short"))
            source.disk.Put("second.lse", "too short");
        else if (how == std::string("facts gone"))
            source.disk.Put("second.lse", SystemBytes(damaged));
        else if (how == std::string("folder"))
            source.disk.MakeFolder("second.lse");
        EXPECT_EQ(source.Create(), -1);
        EXPECT_EQ(source.boxes.shown, Lines{"Rule.Cpp: Open Engine error"}) << how;
        EXPECT_TRUE(source.Written().ends_with("Begin Inference_Engine_2 ZkSystem\r\n\r\n"));
    }
}

TEST(RulesSource, StopsAtAMissingHeader) {
    Source source;
    source.disk.Remove("first.hdr");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"Rule.Cpp: Header file Error", "WARNING: No such file or directory"}));
}

TEST(RulesSource, StopsAtAMissingRulesFile) {
    Source source;
    source.disk.Remove("first.rul");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"Rule.Cpp: Rule File Error", "WARNING: No such file or directory"}));
    EXPECT_TRUE(source.Written().ends_with("// before\r\n"));
}

TEST(RulesSource, StopsAtAMissingMainFile) {
    Source source;
    source.disk.Remove("main.cpp");
    EXPECT_EQ(source.Create(), -1);
    EXPECT_EQ(source.boxes.shown,
              (Lines{"Rule.Cpp: Main File Error", "WARNING: No such file or directory"}));
    EXPECT_TRUE(source.Written().ends_with("void MORVmain()\r\n{\r\n"));
}

TEST(RulesSource, SaysWhenTheDiskIsFull) {
    Source source;
    files::FailWritesAfter(1000);
    EXPECT_EQ(source.Create(), -1);
    files::FailWritesAfter(-1);
    EXPECT_EQ(source.boxes.shown, Lines{"WARNING: No space left on the disk"});
}

} // namespace
