#include "core_test.h"

#include "build/core/build_names.h"

namespace {

TEST(BuildNames, AreBesideTheProjectFile) {
    const BuildNames names("C:\\work\\plant.mrv");
    EXPECT_EQ(names.folder, "C:\\work");
    EXPECT_EQ(names.base, "plant");
    EXPECT_EQ(names.rules_h, "C:\\work\\plantR.h");
    EXPECT_EQ(names.rules_h_name, "plantR.h");
    EXPECT_EQ(names.rules_cpp, "C:\\work\\plantR.cpp");
    EXPECT_EQ(names.rules_cpp_name, "plantR.cpp");
    EXPECT_EQ(names.ddecom_h, "C:\\work\\ddecom.h");
    EXPECT_EQ(names.ddecom_cpp, "C:\\work\\ddecom.cpp");
    EXPECT_EQ(names.consts_h, "C:\\work\\consts.h");
    EXPECT_EQ(names.program, "C:\\work\\Apiplant");
}

TEST(BuildNames, AreCutAtTheFirstDotOfTheWholePath) {
    const BuildNames names("C:\\my.projects\\plant.mrv");
    EXPECT_EQ(names.folder, "C:");
    EXPECT_EQ(names.base, "my");
    EXPECT_EQ(names.rules_h, "C:\\myR.h");
}

TEST(BuildNames, OfAPathWithoutFolderStandAlone) {
    const BuildNames names("plant.mrv");
    EXPECT_EQ(names.folder, "");
    EXPECT_EQ(names.rules_cpp, "plantR.cpp");
    EXPECT_EQ(names.consts_h, "consts.h");
    EXPECT_EQ(BuildNames("\\plant.mrv").ddecom_h, "\\ddecom.h");
    EXPECT_EQ(BuildNames("").program, "Api");
}

TEST(CompilerLine, ListsFilesAndFoldersInOrder) {
    ToolsFile tools;
    tools.com = "C:\\bin\\zkc.exe";
    tools.path = "C:\\morv";
    tools.p_com = "C:\\inc";
    tools.tool_p = "C:\\bin";
    EXPECT_EQ(CompilerLine(BuildNames("C:\\work\\plant.mrv"), tools, "D:\\zk"),
              "C:\\bin\\zkc.exe apimorv apimorv.rc plantR.cpp ddecom.cpp C:\\morv C:\\work C:\\inc "
              "C:\\bin D:\\zk");
}

TEST(CompilerLine, KeepsTheBlanksOfEmptySettings) {
    ToolsFile tools;
    tools.com = "zkc";
    EXPECT_EQ(CompilerLine(BuildNames("C:\\work\\plant.mrv"), tools, "D:\\zk"),
              "zkc apimorv apimorv.rc plantR.cpp ddecom.cpp  C:\\work   D:\\zk");
}

} // namespace
