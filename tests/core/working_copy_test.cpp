#include "core_test.h"

#include "shell/core/files.h"
#include "shell/core/working_copy.h"

namespace {

using zentrik_test::TempFolder;

class WorkingCopies : public testing::Test {
protected:
    // File names of the folder; an empty one stays so.
    WorkingCopy Copy(const std::string& working, const std::string& saved) const {
        auto path = [&](const std::string& name) { return name.empty() ? name : temp_.Path(name); };
        return {path(working), path(saved), path("new.var")};
    }
    bool Exists(const std::string& name) const { return files::Exists(temp_.Path(name).c_str()); }

    TempFolder temp_;
};

TEST_F(WorkingCopies, AreMovedOverTheOldFile) {
    temp_.Put("work.var", "edited");
    temp_.Put("new.var", "old");
    const WorkingCopy copy = Copy("work.var", "new.var");
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var"));
    EXPECT_TRUE(MoveToPlace(copy));
    EXPECT_EQ(temp_.Content("new.var"), "edited");
    EXPECT_FALSE(Exists("work.var"));
}

TEST_F(WorkingCopies, OfACancelledEditLeaveTheSavedFileToItsDocument) {
    temp_.Put("saved.var", "theirs");
    temp_.Put("new.var", "old");
    const WorkingCopy copy = Copy("saved.var", "saved.var");
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var"));
    EXPECT_TRUE(MoveToPlace(copy));
    EXPECT_EQ(temp_.Content("new.var"), "theirs");
    EXPECT_EQ(temp_.Content("saved.var"), "theirs");
}

TEST_F(WorkingCopies, NeverWrittenLeaveTheSavedFileInForce) {
    temp_.Put("saved.var", "saved");
    temp_.Put("new.var", "somebody's");
    const WorkingCopy copy = Copy("work.var", "saved.var");
    EXPECT_EQ(NameAfterMove(copy), temp_.Path("saved.var"));
    EXPECT_TRUE(MoveToPlace(copy));
    EXPECT_EQ(temp_.Content("saved.var"), "saved");
    EXPECT_EQ(temp_.Content("new.var"), "somebody's");
}

TEST_F(WorkingCopies, NeverWrittenAndNeverSavedAdoptNoForeignFile) {
    for (const char* saved : {"", "gone.var", "work.var"}) {
        temp_.Put("new.var", "somebody's");
        const WorkingCopy copy = Copy("work.var", saved);
        EXPECT_EQ(NameAfterMove(copy), temp_.Path("new.var")) << saved;
        EXPECT_TRUE(MoveToPlace(copy)) << saved;
        EXPECT_FALSE(Exists("new.var")) << saved;
    }
}

TEST_F(WorkingCopies, AtTheirPlaceStayThere) {
    temp_.Put("new.var", "kept");
    EXPECT_TRUE(MoveToPlace(Copy("new.var", "new.var")));
    EXPECT_EQ(temp_.Content("new.var"), "kept");
}

TEST_F(WorkingCopies, ThatCannotGetThereSayAndKeepEverything) {
    std::filesystem::create_directories(temp_.Path("new.var") + "/full");
    temp_.Put("work.var", "edited");
    EXPECT_FALSE(MoveToPlace(Copy("work.var", "saved.var")));
    EXPECT_FALSE(MoveToPlace(Copy("work.var", "work.var")));
    EXPECT_EQ(temp_.Content("work.var"), "edited");
    EXPECT_FALSE(MoveToPlace(Copy("none.var", "")));
    EXPECT_TRUE(std::filesystem::is_directory(temp_.Path("new.var")));
}

} // namespace
