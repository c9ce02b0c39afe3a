#include "core_test.h"

#include "project/core/project_file.h"

namespace {

using zentrik_test::TempFolder;

ProjectFile Sample() {
    ProjectFile project;
    SetText(project.head.MainName, "C:\\work\\main.cpp");
    SetText(project.head.EngineNames[1], "C:\\work\\one.lse");
    SetText(project.head.EngineNames[8], "C:\\work\\eight.lse");
    SetText(project.head.ExternFiles[1], "C:\\work\\extern.cpp");
    SetText(project.head.DDEName, "C:\\work\\items.dde");
    SetText(project.head.ResAux, "C:\\work\\alpha.aux");
    project.head.EngNum = 8;
    project.head.ExtNum = 1;
    project.head.ResNum = 2;
    project.head.DatHisLen = -7;
    project.results.resize(2);
    SetText(project.results[0].name, "C:\\work\\a.rst");
    SetText(project.results[1].name, "C:\\work\\b.rst");
    return project;
}

std::string Number(std::int32_t number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

// A field of 255 bytes.
std::string Field(const std::string& text) {
    return text + std::string(255 - text.size(), '\0');
}

TEST(ProjectFile, HasEveryFieldAtItsOffset) {
    TempFolder temp;
    ASSERT_TRUE(WriteProject(temp.Path("a.mrv").c_str(), Sample()));
    const std::string bytes = temp.Content("a.mrv");
    ASSERT_EQ(bytes.size(), 4096u + 2 * 255);
    EXPECT_EQ(bytes.substr(0, 255), Field("C:\\work\\main.cpp"));
    EXPECT_EQ(bytes.substr(255, 255), Field("")); // row 0 of the systems
    EXPECT_EQ(bytes.substr(510, 255), Field("C:\\work\\one.lse"));
    EXPECT_EQ(bytes.substr(255 + 8 * 255, 255), Field("C:\\work\\eight.lse"));
    EXPECT_EQ(bytes.substr(2550, 255), Field(""));
    EXPECT_EQ(bytes.substr(2805, 255), Field("C:\\work\\extern.cpp"));
    EXPECT_EQ(bytes.substr(3570, 255), Field("C:\\work\\items.dde"));
    EXPECT_EQ(bytes.substr(3825, 255), Field("C:\\work\\alpha.aux"));
    EXPECT_EQ(bytes.substr(4080, 16), Number(8) + Number(1) + Number(2) + Number(-7));
    EXPECT_EQ(bytes.substr(4096), Field("C:\\work\\a.rst") + Field("C:\\work\\b.rst"));
}

TEST(ProjectFile, ReadsBackWhatWasWritten) {
    TempFolder temp;
    ASSERT_TRUE(WriteProject(temp.Path("a.mrv").c_str(), Sample()));
    ProjectFile project;
    EXPECT_EQ(ReadProject(temp.Path("a.mrv").c_str(), project), ReadResult::Ok);
    ASSERT_TRUE(WriteProject(temp.Path("b.mrv").c_str(), project));
    EXPECT_EQ(temp.Content("a.mrv"), temp.Content("b.mrv"));
}

TEST(ProjectFile, OfItsFixedPartOnlyIsWhole) {
    TempFolder temp;
    ProjectFile project;
    ASSERT_TRUE(WriteProject(temp.Path("a.mrv").c_str(), project));
    EXPECT_EQ(temp.Content("a.mrv").size(), 4096u);
    EXPECT_EQ(ReadProject(temp.Path("a.mrv").c_str(), project), ReadResult::Ok);
    EXPECT_TRUE(project.results.empty());
}

TEST(ProjectFile, ThatIsMissingOrTooShortGivesNothing) {
    TempFolder temp;
    ProjectFile project = Sample();
    EXPECT_EQ(ReadProject(temp.Path("none.mrv").c_str(), project), ReadResult::Missing);
    for (std::size_t size : {0, 1, 4095}) {
        temp.Put("short.mrv", std::string(size, 'x'));
        project = Sample();
        EXPECT_EQ(ReadProject(temp.Path("short.mrv").c_str(), project), ReadResult::Useless);
        EXPECT_EQ(project.head.EngNum, 0);
        EXPECT_TRUE(project.results.empty());
    }
}

TEST(ProjectFile, WithCountsThatNoProjectHasIsNoProject) {
    TempFolder temp;
    ProjectFile project;
    auto read = [&](void (*spoil)(ProjectRecord & head)) {
        ProjectFile bad = Sample();
        spoil(bad.head);
        EXPECT_TRUE(WriteProject(temp.Path("a.mrv").c_str(), bad));
        return ReadProject(temp.Path("a.mrv").c_str(), project);
    };
    EXPECT_EQ(read([](ProjectRecord& head) { head.EngNum = 9; }), ReadResult::Useless);
    EXPECT_EQ(project.head.EngNum, 0);
    EXPECT_TRUE(project.results.empty());
    EXPECT_EQ(read([](ProjectRecord& head) { head.EngNum = -1; }), ReadResult::Useless);
    EXPECT_EQ(read([](ProjectRecord& head) { head.ExtNum = 4; }), ReadResult::Useless);
    EXPECT_EQ(read([](ProjectRecord& head) { head.ExtNum = -1; }), ReadResult::Useless);
    EXPECT_EQ(read([](ProjectRecord& head) { head.ResNum = -1; }), ReadResult::Useless);
    EXPECT_EQ(read([](ProjectRecord& head) { head.ResNum = 9000000; }), ReadResult::Useless);
    // As many results as this may have been there once.
    EXPECT_EQ(read([](ProjectRecord& head) { head.ResNum = 8000000; }), ReadResult::Damaged);
    EXPECT_EQ(project.head.ResNum, 2);
    EXPECT_EQ(project.results.size(), 2u);
}

TEST(ProjectFile, KeepsItsOldContentWhenTheDiskIsFull) {
    TempFolder temp;
    ASSERT_TRUE(WriteProject(temp.Path("a.mrv").c_str(), Sample()));
    const std::string before = temp.Content("a.mrv");
    files::FailWritesAfter(100);
    EXPECT_FALSE(WriteProject(temp.Path("a.mrv").c_str(), ProjectFile()));
    files::FailWritesAfter(-1);
    EXPECT_EQ(temp.Content("a.mrv"), before);
}

} // namespace
