// The generated rules header.
#include "build_disk.h"

#include "build/core/rules_header.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::Disk;
using zentrik_test::ExpectGolden;
using zentrik_test::kOwner;
using zentrik_test::PutSampleProject;
using zentrik_test::Tags;
using Lines = std::vector<std::string>;

struct Header {
    Header() : project(PutSampleProject(disk)) {}

    int Create() { return CrearRulesH(project, disk.Path("plantR.h").c_str(), kOwner); }
    std::string Text() const { return disk.Content("plantR.h"); }

    // What stands between two lines of the header.
    std::string Between(const std::string& first, const std::string& last) const {
        const std::string text = Text();
        const std::size_t begin = text.find(first);
        const std::size_t end = text.find(last, begin);
        EXPECT_NE(begin, std::string::npos);
        EXPECT_NE(end, std::string::npos);
        return text.substr(begin + first.size(), end - begin - first.size());
    }

    // The copied #include lines for an extern file of this text.
    std::string Includes(const std::string& text) {
        disk.Put("extern.cpp", text);
        EXPECT_EQ(Create(), 0);
        return Between("#include \"inf_eng.h\"\r\n\r\n", "\r\nclass DATAFACT;");
    }

    const Disk disk;
    ProjectRecord project;
    Boxes boxes;
};

TEST(RulesHeader, OfTheSampleIsTheGoldenOne) {
    Header header;
    EXPECT_EQ(header.Create(), 0);
    EXPECT_EQ(header.boxes.shown, Lines{});
    ExpectGolden("plantR.h", header.Text());
    const std::string first = header.Text();
    EXPECT_EQ(header.Create(), 0);
    EXPECT_EQ(header.Text(), first);
}

TEST(RulesHeader, CopiesIncludeLinesFromTheirHash) {
    Header header;
    EXPECT_EQ(header.Includes("int f();\r\n"), "");
    EXPECT_EQ(header.Includes(""), "");
    EXPECT_EQ(header.Includes("x #include <a> y\r\n// #include <b>\r\n#INCLUDE <c>\r\n"),
              "#include <a> y\r\n#include <b>\r\n");
    EXPECT_EQ(header.Includes("#include <a> #include <b>\r\nint f();"),
              "#include <a> #include <b>\r\n");
    EXPECT_EQ(header.Includes("#include\r\n#include"), "#include\r\n#include\r\n");
}

TEST(RulesHeader, CopiesToTheEndOfTheFileWithoutCrLf) {
    Header header;
    EXPECT_EQ(header.Includes("int a;\r\n#include <a>"), "#include <a>\r\n");
    EXPECT_EQ(header.Includes("#include <a>\nint f();\n"), "#include <a>\nint f();\n\r\n");
    EXPECT_EQ(header.Includes("#include <a>\r\r\nint f();\n"), "#include <a>\r\r\n");
    const std::string longer = "#include <" + std::string(5000, 'n') + ">";
    EXPECT_EQ(header.Includes(longer), longer + "\r\n");
}

TEST(RulesHeader, SearchesIncludesWithoutBackTracking) {
    Header header;
    EXPECT_EQ(header.Includes("##include <a>\r\n"), "");
}

TEST(RulesHeader, ListsTheResults) {
    Header header;
    const auto results = [&](const Lines& names, const std::string& rest) {
        header.disk.Put("plant.aux", Tags(names) + rest);
        EXPECT_EQ(header.Create(), 0);
        return header.Between("///////////////\r\nDATAFACTRESULT\r\n", "#endif\r\n");
    };
    EXPECT_EQ(results({}, ""), "");
    EXPECT_EQ(results({"ONE"}, ""), "\t\t\tONE;\r\n");
    EXPECT_EQ(results({"ONE", "TWO"}, ""), "\t\t\tONE,\r\n\t\t\tTWO;\r\n");
    EXPECT_EQ(results({"ONE"}, "cut short"), "\t\t\tONE;\r\n");
    EXPECT_EQ(results({}, std::string(50, 'x')), "\t\t\t" + std::string(50, 'x') + ";\r\n");
}

TEST(RulesHeader, HasOneClassForEachSystem) {
    Header header;
    const auto classes = [&](int count) {
        header.project.EngNum = count;
        EXPECT_EQ(header.Create(), 0);
        return header.Between("class INFERENCE_ENGINE;\r\n", "///////////////  ");
    };
    EXPECT_EQ(classes(0), "");
    EXPECT_EQ(classes(-1), "");
    EXPECT_EQ(classes(1), "class Inference_Engine_1:public INFERENCE_ENGINE{\r\n"
                          "\tpublic:\r\n"
                          "\t\tInference_Engine_1 () {sprintf (description, \"INF_1\");};\r\n"
                          "\t\tint engine();\r\n"
                          "};\r\n");
    EXPECT_EQ(classes(99), classes(8));
    EXPECT_NE(classes(8).find("INF_8"), std::string::npos);
}

TEST(RulesHeader, CountsOfExternFilesAreHeldToTheTable) {
    Header header;
    for (auto& name : header.project.ExternFiles)
        SetText(name, header.disk.Path("extern.cpp"));
    const auto copies = [&](int count) {
        header.project.ExtNum = count;
        const std::string includes = header.Includes("#include <a>\r\n");
        return includes.size() / std::string("#include <a>\r\n").size();
    };
    EXPECT_EQ(copies(0), 0u);
    EXPECT_EQ(copies(3), 3u);
    EXPECT_EQ(copies(1000), 3u);
    EXPECT_EQ(copies(-1000), 0u);
}

TEST(RulesHeader, ThatCannotBeCreatedShowsOnlyTheReason) {
    Header header;
    header.disk.Block("plantR.h");
    EXPECT_EQ(header.Create(), -1);
    EXPECT_EQ(header.boxes.shown, Lines{"WARNING: Permison denied"});
    Boxes boxes;
    EXPECT_EQ(CrearRulesH(header.project, header.disk.Path("none\\plantR.h").c_str(), kOwner), -1);
    EXPECT_EQ(boxes.shown, Lines{"WARNING: No such file or directory"});
}

TEST(RulesHeader, StopsAtAMissingExternFile) {
    Header header;
    header.disk.Remove("extern.cpp");
    EXPECT_EQ(header.Create(), -1);
    EXPECT_EQ(header.boxes.shown,
              (Lines{"Rule.Cpp: Extern File Error", "WARNING: No such file or directory"}));
    EXPECT_EQ(header.boxes.messages.at(0).owner, kOwner);
    EXPECT_EQ(header.boxes.messages.at(1).owner, nullptr);
    EXPECT_TRUE(header.Text().ends_with("#include \"inf_eng.h\"\r\n\r\n"));
}

TEST(RulesHeader, KeepsTheIncludesOfTheExternFilesBeforeTheMissingOne) {
    Header header;
    header.disk.Put("extern.cpp", "#include <a>\r\n");
    SetText(header.project.ExternFiles[2], header.disk.Path("none.cpp"));
    SetText(header.project.ExternFiles[3], header.disk.Path("extern.cpp"));
    header.project.ExtNum = 3;
    EXPECT_EQ(header.Create(), -1);
    EXPECT_EQ(header.boxes.shown,
              (Lines{"Rule.Cpp: Extern File Error", "WARNING: No such file or directory"}));
    EXPECT_TRUE(header.Text().ends_with("#include \"inf_eng.h\"\r\n\r\n#include <a>\r\n"));
}

TEST(RulesHeader, StopsAtAMissingResultsFile) {
    Header header;
    header.disk.Remove("plant.aux");
    EXPECT_EQ(header.Create(), -1);
    EXPECT_EQ(header.boxes.shown,
              (Lines{"Rule.Cpp: Results File Error", "WARNING: No such file or directory"}));
    EXPECT_TRUE(header.Text().ends_with("\r\nDATAFACTRESULT\r\n"));
}

TEST(RulesHeader, SaysWhenTheDiskIsFull) {
    Header header;
    files::FailWritesAfter(100);
    EXPECT_EQ(header.Create(), -1);
    files::FailWritesAfter(-1);
    EXPECT_EQ(header.boxes.shown, Lines{"WARNING: No space left on the disk"});
}

} // namespace
