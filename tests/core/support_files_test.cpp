// The generated support files.
#include "build_disk.h"

#include "build/core/support_files.h"

namespace {

using zentrik_test::Boxes;
using zentrik_test::Disk;
using zentrik_test::EmptySystem;
using zentrik_test::ExpectGolden;
using zentrik_test::kOwner;
using zentrik_test::PutRuntimeTemplates;
using zentrik_test::PutSampleProject;
using zentrik_test::Tags;
using Lines = std::vector<std::string>;

const std::string kNoFile = "WARNING: No such file or directory";
const std::string kDenied = "WARNING: Permison denied";

struct Support {
    Support()
        : project(PutSampleProject(disk)),
          names(disk.Path("plant.mrv").c_str()), in{project, names, disk.Path("morv"),
                                                    disk.Path("work"), kOwner} {}

    std::string EnumOf(const Lines& first, const Lines& second) {
        disk.Put("first.typ", Tags(first));
        disk.Put("second.typ", Tags(second));
        EXPECT_EQ(WriteConsts(in, last_read), 0);
        const std::string text = disk.Content("consts.h");
        const std::size_t begin = text.find("ACTION ");
        return text.substr(begin, text.find("/* consts3.dat") - begin);
    }

    // What stands in ddecom.cpp from `first` on.
    std::string SourceFrom(const std::string& first) const {
        const std::string text = disk.Content("ddecom.cpp");
        return text.substr(text.find(first));
    }

    const Disk disk;
    ProjectRecord project;
    BuildNames names;
    SupportInput in;
    SystemHead last_read{};
    Boxes boxes;
};

TEST(SupportFiles, OfTheSampleAreTheGoldenOnes) {
    Support support;
    PutRuntimeTemplates(support.disk);
    const Lines files = {"ddecom.h", "ddecom.cpp", "consts.h", "morv\\MorvApi.h"};
    Lines first;
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(WriteDdecom(support.in), 0);
        EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
        EXPECT_EQ(WriteMorvApi(support.in), 0);
        for (const std::string& file : files) {
            const std::string text = support.disk.Content(file);
            if (run == 0) {
                ExpectGolden(file.substr(file.rfind('\\') + 1), text);
                first.push_back(text);
            }
        }
    }
    EXPECT_EQ(support.boxes.shown, Lines{});
    for (std::size_t i = 0; i < files.size(); ++i)
        EXPECT_EQ(support.disk.Content(files[i]), first[i]);
    EXPECT_EQ(support.disk.Content("work\\Ktype.tmp"),
              Tags({"TEMP", "PRESS", "TEMP", "FLOW", "TEMP"}));
}

TEST(Ddecom, OfADdeFileWithOnlyItsHeadIsEmpty) {
    Support support;
    support.disk.Put("plant.dde", std::string(255, '\0'));
    EXPECT_EQ(WriteDdecom(support.in), 0);
    EXPECT_NE(support.disk.Content("ddecom.h")
                  .find("#define numItems 0\r\nstruct Informacio\r\n{\r\n};\r\n"),
              std::string::npos);
    EXPECT_NE(support.SourceFrom("char *").find("char *Items[]={\r\n};\r\n"), std::string::npos);
    EXPECT_EQ(support.SourceFrom("void NewData"),
              "void NewData(int a,char Dat[])\r\n{\r\nswitch(a)\r\n{\r\n}\r\n}\r\n");
}

TEST(Ddecom, OfADamagedDdeFileUsesTheWholeItems) {
    Support support;
    std::string item("Level");
    item.resize(50, '\0');
    item += "int";
    item.resize(150, '\0');
    for (const std::string& bytes : {std::string(), std::string("short"), std::string(300, 'x')}) {
        support.disk.Put("plant.dde", bytes);
        EXPECT_EQ(WriteDdecom(support.in), 0);
        EXPECT_NE(support.disk.Content("ddecom.h").find("#define numItems 0\r\n"),
                  std::string::npos);
    }
    support.disk.Put("plant.dde", std::string(255, 'h') + item + item.substr(0, 149));
    EXPECT_EQ(WriteDdecom(support.in), 0);
    EXPECT_NE(support.SourceFrom("char *").find("char *Items[]={\r\n\"Level\"\r\n};\r\n"),
              std::string::npos);
}

TEST(Ddecom, AnItemOfAnUnknownTypeLeavesItsLineOpen) {
    Support support;
    std::string item("Odd");
    item.resize(50, '\0');
    item += "short";
    item.resize(150, '\0');
    support.disk.Put("plant.dde", std::string(255, '\0') + item);
    EXPECT_EQ(WriteDdecom(support.in), 0);
    EXPECT_NE(support.SourceFrom("void").find("\tcase 0:\r\n\t\tDDEinfo.Odd\tbreak;\r\n}\r\n}\r\n"),
              std::string::npos);
}

TEST(Templates, LoseTheirLastByte) {
    Support support;
    for (const char* name : {"ddecom1.dat", "ddecom2.dat"})
        support.disk.Put(std::string("morv\\") + name, "x");
    support.disk.Put("morv\\ddecom3.dat", "");
    support.disk.Put("morv\\ddecom4.dat", "abc");
    EXPECT_EQ(WriteDdecom(support.in), 0);
    EXPECT_EQ(support.disk.Content("ddecom.h").find('x'), std::string::npos);
    EXPECT_TRUE(support.disk.Content("ddecom.h").ends_with("};\r\n"));
    EXPECT_NE(support.disk.Content("ddecom.cpp").find("//\r\n\r\nInformacio DDEinfo;"),
              std::string::npos);
    EXPECT_NE(support.disk.Content("ddecom.cpp").find("};\r\nab\r\nvoid NewData"),
              std::string::npos);
}

TEST(Ddecom, SaysWhichFileIsMissing) {
    const std::vector<std::pair<std::string, std::string>> missing = {
        {"morv\\ddecom1.dat", "Ddecom1.dat not found check MORV Path"},
        {"morv\\ddecom3.dat", "Ddecom3.dat not found check MORV Path"},
        {"plant.dde", "Dde File not found"},
        {"morv\\ddecom2.dat", "ddecom2.dat not found check MORV Path"},
        {"morv\\ddecom4.dat", "Ddecom4.dat not foud check MORV Path"}};
    // The first of the missing ones ends it.
    for (std::size_t first = 0; first < missing.size(); ++first) {
        Support support;
        for (std::size_t i = first; i < missing.size(); ++i)
            support.disk.Remove(missing[i].first);
        EXPECT_EQ(WriteDdecom(support.in), -1);
        EXPECT_EQ(support.boxes.shown, (Lines{"Compile MORV: " + missing[first].second, kNoFile}));
        EXPECT_EQ(support.boxes.messages.at(0).owner, kOwner);
        EXPECT_EQ(support.boxes.messages.at(1).owner, nullptr);
        // Both files stay as far as they went.
        EXPECT_NE(support.disk.Content("ddecom.h"), "");
        EXPECT_NE(support.disk.Content("ddecom.cpp"), "");
    }
}

TEST(Ddecom, ThatCannotBeCreatedShowsOnlyTheReason) {
    for (const char* file : {"ddecom.h", "ddecom.cpp"}) {
        Support support;
        support.disk.Block(file);
        support.disk.Remove("plant.dde");
        EXPECT_EQ(WriteDdecom(support.in), -1);
        EXPECT_EQ(support.boxes.shown, Lines{kDenied}) << file;
    }
}

TEST(Ddecom, SaysWhenTheDiskIsFull) {
    // Enough for the banner of the header only; and for the header but not for the source.
    for (int room : {100, 1000}) {
        Support support;
        files::FailWritesAfter(room);
        EXPECT_EQ(WriteDdecom(support.in), -1);
        files::FailWritesAfter(-1);
        EXPECT_EQ(support.boxes.shown, Lines{"WARNING: No space left on the disk"}) << room;
    }
}

TEST(Consts, ListsEachTypeWhereItStandsLast) {
    Support support;
    EXPECT_EQ(support.EnumOf({"TEMP"}, {}), "ACTION ,TEMP};\r\n\r\n");
    EXPECT_EQ(support.EnumOf({"TEMP", "PRESS", "TEMP"}, {}), "ACTION ,PRESS,TEMP};\r\n\r\n");
    EXPECT_EQ(support.EnumOf({"A", "B"}, {"A", "C", "a"}), "ACTION ,B,A,C,a};\r\n\r\n");
    EXPECT_EQ(support.boxes.shown, Lines{});
}

TEST(Consts, WithoutTypesSaysZeroAndGoesOn) {
    Support support;
    EXPECT_EQ(support.EnumOf({}, {}), "ACTION };\r\n\r\n");
    EXPECT_EQ(support.boxes.shown, Lines{"Compile MORV: Zero"});
    EXPECT_EQ(support.boxes.messages.at(0).owner, kOwner);
    EXPECT_EQ(support.disk.Content("work\\Ktype.tmp"), "");
}

TEST(Consts, AMissingTypesFileGivesNothing) {
    Support support;
    support.disk.Remove("second.typ");
    EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
    EXPECT_EQ(support.disk.Content("work\\Ktype.tmp"), Tags({"TEMP", "PRESS", "TEMP"}));
}

TEST(Consts, AProjectWithoutSystemsHasNoTypes) {
    for (int count : {0, -1}) {
        Support support;
        support.project.EngNum = count;
        EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
        EXPECT_EQ(support.boxes.shown, Lines{"Compile MORV: Zero"});
    }
}

TEST(Consts, KeepsTheTypesFileNameOfTheLastSystemAndNothingElse) {
    Support support;
    SetText(support.last_read.RuleName, "open.rul");
    EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
    EXPECT_EQ(Text(support.last_read.KTypeName), support.disk.Path("second.typ"));
    EXPECT_EQ(Text(support.last_read.RuleName), "open.rul");
}

TEST(Consts, WritesTheHistoryLengthAsItIs) {
    for (int length : {0, -5, 2147483647}) {
        Support support;
        support.project.DatHisLen = length;
        EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
        EXPECT_NE(support.disk.Content("consts.h")
                      .find("/* consts1.dat */\r\n\r\n#define MAXNUMTICKS\t" +
                            std::to_string(length) +
                            "\t//Maxim Number of TICKS to Save in Variable History\r\n\r\n"
                            "/* consts2.dat */\r\n\r\n\r\nenum DATAFACTTYPE {NOTYPE=0, "),
                  std::string::npos);
    }
}

TEST(Consts, SaysWhichFileIsMissing) {
    const std::vector<std::pair<std::string, Lines>> missing = {
        {"morv\\consts1.dat", {"Compile MORV: Consts1.dat not found check MORV Path", kNoFile}},
        {"morv\\consts2.dat", {"Compile MORV: consts2.dat not found, check MORV Path", kNoFile}},
        {"second.lse", {"Compile MORV: Engine not found"}},
        {"morv\\consts3.dat",
         {"Compile MORV: consts3.dat file not found check MORV Path", kNoFile}},
    };
    for (std::size_t first = 0; first < missing.size(); ++first) {
        Support support;
        for (std::size_t i = first; i < missing.size(); ++i)
            support.disk.Remove(missing[i].first);
        EXPECT_EQ(WriteConsts(support.in, support.last_read), -1);
        EXPECT_EQ(support.boxes.shown, missing[first].second);
        EXPECT_EQ(support.boxes.messages.at(0).owner, kOwner);
        EXPECT_NE(support.disk.Content("consts.h"), "");
    }
}

TEST(Consts, ASystemFileNeedsOnlyItsHead) {
    Support support;
    SystemFile damaged = EmptySystem();
    damaged.head.DatNum = 4;
    SetText(damaged.head.KTypeName, support.disk.Path("first.typ"));
    support.disk.Put("second.lse", SystemBytes(damaged));
    EXPECT_EQ(WriteConsts(support.in, support.last_read), 0);
    support.disk.Put("second.lse", "too short");
    EXPECT_EQ(WriteConsts(support.in, support.last_read), -1);
    EXPECT_EQ(support.boxes.shown, Lines{"Compile MORV: Engine not found"});
}

TEST(Consts, ThatCannotBeCreatedShowsOnlyTheReason) {
    for (const char* file : {"consts.h", "work\\Ktype.tmp"}) {
        Support support;
        support.disk.Block(file);
        EXPECT_EQ(WriteConsts(support.in, support.last_read), -1);
        EXPECT_EQ(support.boxes.shown, Lines{kDenied}) << file;
    }
}

TEST(Consts, SaysWhenTheDiskIsFull) {
    // No room for the scratch file; and room for it but not for the header.
    for (int room : {0, 300}) {
        Support support;
        files::FailWritesAfter(room);
        EXPECT_EQ(WriteConsts(support.in, support.last_read), -1);
        files::FailWritesAfter(-1);
        EXPECT_EQ(support.boxes.shown, Lines{"WARNING: No space left on the disk"}) << room;
        EXPECT_EQ(support.disk.Content("work\\Ktype.tmp").empty(), room == 0);
    }
}

TEST(MorvApi, NamesTheProgramAndTheConversation) {
    Support support;
    support.disk.Put("plant.dde", std::string(400, 'd'));
    EXPECT_EQ(WriteMorvApi(support.in), 0);
    EXPECT_TRUE(support.disk.Content("morv\\MorvApi.h")
                    .ends_with("#ifndef TAD_ZENPROJECT\r\n#define TAD_ZENPROJECT\r\n"
                               "char ApZk[255]={\"apiplant\"};\r\n"
                               "char ItemZk[255]={\"" +
                               std::string(255, 'd') + "\"};\r\n#endif\r\n"));
}

TEST(MorvApi, SaysWhatStopsIt) {
    Support no_dde;
    no_dde.disk.Remove("plant.dde");
    EXPECT_EQ(WriteMorvApi(no_dde.in), -1);
    EXPECT_EQ(no_dde.boxes.shown, (Lines{"Compile MORV: Dde File not found", kNoFile}));
    EXPECT_TRUE(no_dde.disk.Content("morv\\MorvApi.h").ends_with("{\"apiplant\"};\r\n"));
}

TEST(MorvApi, ThatCannotBeWrittenShowsOnlyTheReason) {
    Support blocked;
    blocked.disk.Block("morv\\MorvApi.h");
    EXPECT_EQ(WriteMorvApi(blocked.in), -1);
    EXPECT_EQ(blocked.boxes.shown, Lines{kDenied});
    blocked.boxes.shown.clear();
    blocked.in.morv_path = blocked.disk.Path("none");
    EXPECT_EQ(WriteMorvApi(blocked.in), -1);
    EXPECT_EQ(blocked.boxes.shown, Lines{kNoFile});
    blocked.boxes.shown.clear();
    blocked.in.morv_path = blocked.disk.Path("work");
    files::FailWritesAfter(0);
    EXPECT_EQ(WriteMorvApi(blocked.in), -1);
    files::FailWritesAfter(-1);
    EXPECT_EQ(blocked.boxes.shown, Lines{"WARNING: No space left on the disk"});
}

} // namespace
